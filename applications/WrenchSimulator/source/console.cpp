#include "console.h"

#include <QStringList>

namespace {
QString ok(const QString& text)
{
    return QStringLiteral("ok ") + text;
}

QString error(const QString& text)
{
    return QStringLiteral("error ") + text;
}

QString okUnless(const QString& refusal, const QString& text)
{
    return refusal.isEmpty() ? ok(text) : error(refusal);
}

QString unknownWrench(const QByteArray& serial)
{
    return error(QStringLiteral("no wrench has the serial number \"%1\": \"wrenches\" lists them")
                     .arg(QString::fromLatin1(serial)));
}

QString whereabouts(const Dongle& dongle, int index)
{
    if (!dongle.hasPower(index)) {
        return QStringLiteral("switched off");
    }
    return dongle.isInRange(index) ? QStringLiteral("in range") : QStringLiteral("out of range");
}
} // namespace

Console::Console(Dongle& dongle, LineSwitch& line) : m_dongle(dongle), m_line(line) {}

QString Console::execute(const QString& commandLine, qint64 nowUs)
{
    QString refusal;
    const std::optional<Command> command = Command::fromText(commandLine, &refusal);
    return command ? execute(*command, nowUs) : error(refusal);
}

QString Console::execute(const Command& command, qint64 nowUs)
{
    switch (command.kind) {
    case Command::Kind::Tighten:
        return tighten(command, nowUs);
    case Command::Kind::Wrenches:
        return describeWrenches();
    case Command::Kind::Range:
    case Command::Kind::Power:
        return switchWrench(command, nowUs);
    case Command::Kind::SetFault:
        return setFault(command.fault);
    case Command::Kind::RemoveFault:
        return removeFault(command.name);
    case Command::Kind::ListFaults:
        return listFaults();
    case Command::Kind::ClearFaults:
        m_dongle.faults().clear();
        return ok(QStringLiteral("no faults"));
    case Command::Kind::LoseLink:
        return loseLink(nowUs);
    case Command::Kind::Unplug:
        return okUnless(m_line.unplug(command.backMs, nowUs), QStringLiteral("unplugged"));
    case Command::Kind::Replug:
        return okUnless(m_line.replug(nowUs), QStringLiteral("replugged"));
    case Command::Kind::Quit:
        m_line.quit();
        return ok(QStringLiteral("bye"));
    case Command::Kind::Help:
        break;
    }
    return ok(Command::help());
}

QString Console::tighten(const Command& command, qint64 nowUs)
{
    std::optional<int> wrench = m_dongle.linkedWrench() ? m_dongle.linkedWrench() : 0;
    if (!command.serial.isEmpty()) {
        wrench = m_dongle.findWrench(command.serial);
        if (!wrench) {
            return unknownWrench(command.serial);
        }
    }
    const QString serial = QString::fromLatin1(m_dongle.wrench(*wrench).settings().serial);
    return okUnless(m_dongle.demandTightening(*wrench, command.count, nowUs),
                    QStringLiteral("%1 tightenings by wrench %2").arg(QString::number(command.count), serial));
}

QString Console::describeWrenches() const
{
    QStringList texts;
    for (int i = 0; i < m_dongle.wrenchCount(); ++i) {
        const Wrench& wrench = m_dongle.wrench(i);
        const Wrench::Settings& settings = wrench.settings();
        texts.append(QStringLiteral("%1 %2 %3 %4 dBm, %5, %6, %7, %8, program %9 of %10, %11 readings")
                         .arg(QString::fromLatin1(settings.serial), QString::fromLatin1(settings.mac),
                              QString::fromLatin1(settings.model), QString::number(settings.rssiDbm),
                              whereabouts(m_dongle, i),
                              m_dongle.linkedWrench() == i ? QStringLiteral("linked") : QStringLiteral("not linked"),
                              wrench.isLocked() ? QStringLiteral("locked") : QStringLiteral("unlocked"),
                              wrench.isReporting() ? QStringLiteral("reporting") : QStringLiteral("not reporting"),
                              QString::number(wrench.programNumber()))
                         .arg(QString::number(settings.programs.size()), QString::number(wrench.readings())));
    }
    return ok(texts.join(QStringLiteral("; ")));
}

QString Console::switchWrench(const Command& command, qint64 nowUs)
{
    const std::optional<int> wrench = m_dongle.findWrench(command.serial);
    if (!wrench) {
        return unknownWrench(command.serial);
    }
    const bool isRange = command.kind == Command::Kind::Range;
    if (isRange) {
        m_dongle.setInRange(*wrench, command.isOn, nowUs);
    } else {
        m_dongle.setPower(*wrench, command.isOn, nowUs);
    }
    return ok(QStringLiteral("wrench %1 %2 %3")
                  .arg(QString::fromLatin1(command.serial), isRange ? QStringLiteral("range") : QStringLiteral("power"),
                       command.isOn ? QStringLiteral("on") : QStringLiteral("off")));
}

QString Console::setFault(const Fault& fault)
{
    return m_dongle.faults().add(fault)
               ? ok(QStringLiteral("fault ") + fault.text)
               : error(QStringLiteral("%1 faults are set already: take some away with fault off KIND or fault clear")
                           .arg(FaultInjector::c_maxFaults));
}

QString Console::removeFault(const QString& name)
{
    return m_dongle.faults().remove(name) > 0
               ? ok(QStringLiteral("fault off ") + name)
               : error(QStringLiteral("no fault \"%1\" is set: \"fault list\" tells which are").arg(name));
}

QString Console::listFaults() const
{
    const QStringList texts = m_dongle.faults().describe();
    return ok(texts.isEmpty() ? QStringLiteral("no faults") : texts.join(QStringLiteral("; ")));
}

QString Console::loseLink(qint64 nowUs)
{
    return m_dongle.loseLink(nowUs) ? ok(QStringLiteral("link lost")) : error(QStringLiteral("no link is open"));
}
