#include "fault_trial.h"

const QString c_serialId = QStringLiteral("2210");

namespace {

FaultTrial onOwnLine(const char* command, int limitMs)
{
    FaultTrial trial;
    trial.name = trial.command = QLatin1String(command);
    trial.limitMs = limitMs;
    return trial;
}

FaultTrial connected(const char* command, int limitMs, const char* parameter = nullptr)
{
    FaultTrial trial = onOwnLine(command, limitMs);
    trial.connects = true;
    if (parameter != nullptr) {
        trial.parameters = QString::fromLatin1(parameter).split(QLatin1Char(' '));
        trial.name += QLatin1Char(' ') + QString::fromLatin1(parameter);
    }
    return trial;
}

FaultTrial listening(const QString& name, const QString& command, int limitMs)
{
    FaultTrial trial;
    trial.name = name;
    trial.command = command;
    trial.connects = true;
    trial.limitMs = limitMs;
    trial.keepAliveMs = 1000;
    trial.ratePerSecond = 0.4; // slow enough for the keep-alive to get its turn
    return trial;
}

} // namespace

const QVector<FaultTrial>& FaultTrial::all()
{
    // The search ends by itself after 10 s; the others have a limit that is well behind the longest delay of an answer.
    static const QVector<FaultTrial> trials = [] {
        QVector<FaultTrial> list{
            onOwnLine("searchAndConnect", 14000),
            onOwnLine("startDetection", 2500),
            connected("searchAndConnect", 14000),
            connected("sendInitConfig", 3000),
            connected("listProgram", 6000),
            connected("setProgram", 3000, "progId=2"),
            connected("setProgram", 3000, "progId=3"),
            connected("setLock", 3000, "lock=true"),
            connected("setLock", 3000, "lock=false"),
            connected("setKeepAlive", 3000),
            connected("setKeepAliveFonction", 3000, "frame=DI:C responseFrame=OK:"),
            connected("checkSerialId", 3000),
            connected("getPresetData", 3000, "progId=2"),
            listening(QStringLiteral("listenEventsData"), QStringLiteral("listenEventsData"), 5000),
            listening(QStringLiteral("session --program 2"), QString(), 12000),
        };
        list[2].name = QStringLiteral("searchAndConnect, linked already");
        return list;
    }();
    return trials;
}

bool FaultTrial::isEndless() const
{
    return command == QLatin1String("startDetection") || command == QLatin1String("listenEventsData");
}

QStringList FaultTrial::simulatorOptions(const QString& fault) const
{
    QStringList options{QStringLiteral("--seed"),
                        QStringLiteral("7"),
                        QStringLiteral("--programs"),
                        QStringLiteral("3"),
                        QStringLiteral("--wrench"),
                        c_serialId,
                        QStringLiteral("--wrench"),
                        QStringLiteral("2211"),
                        QStringLiteral("--link-delay"),
                        QStringLiteral("50"),
                        QStringLiteral("--answer-delay"),
                        QStringLiteral("5"),
                        QStringLiteral("--scan-period"),
                        QStringLiteral("1000"),
                        QStringLiteral("--tightening-time"),
                        QStringLiteral("0"),
                        QStringLiteral("--rate"),
                        QString::number(ratePerSecond)};
    if (!fault.isEmpty()) {
        options << QStringLiteral("--fault") << fault;
    }
    return options;
}

QStringList matrixFaults()
{
    const char* const faults[] = {"silence",
                                  "silence+",
                                  "late:700",
                                  "late:4000",
                                  "err:1",
                                  "err:3",
                                  "err:7",
                                  "echo",
                                  "foreign-echo",
                                  "out-of-range",
                                  "out-of-range:,2000",
                                  "lose-link",
                                  "unplug",
                                  "unplug:100",
                                  "unplug:300",
                                  "unplug:3000",
                                  "flood",
                                  "endless",
                                  "duplicate-serial",
                                  "split",
                                  "glue",
                                  "cut",
                                  "flip",
                                  "double",
                                  "garbage",
                                  "lower-case"};
    QStringList texts;
    for (const char* fault : faults) {
        texts.append(QLatin1String(fault));
    }
    return texts;
}
