#include "simulator_run.h"

namespace {

bool isAnswer(const QString& line)
{
    return line.startsWith(QLatin1String("ok ")) || line.startsWith(QLatin1String("error "));
}

} // namespace

bool SimulatorRun::start(const QStringList& options)
{
    // What a test gives comes last, and wins.
    const QStringList arguments{QStringLiteral("--console"),
                                QStringLiteral("--link"),
                                port(),
                                QStringLiteral("--scan-period"),
                                QStringLiteral("3600000"),
                                QStringLiteral("--programs"),
                                QStringLiteral("2"),
                                QStringLiteral("--link-delay"),
                                QStringLiteral("20"),
                                QStringLiteral("--tightening-time"),
                                QStringLiteral("0")};
    return ProgramRun::start(QStringLiteral(WRENCH_SIMULATOR), arguments + options) &&
           waitForOutput(QStringLiteral("ready "));
}

QString SimulatorRun::say(const QString& command)
{
    const auto answers = [this] {
        QStringList lines = outputLines();
        lines.erase(std::remove_if(lines.begin(), lines.end(), [](const QString& line) { return !isAnswer(line); }),
                    lines.end());
        return lines;
    };
    type(command);
    if (!waitUntil([&] { return answers().size() > m_answers; })) {
        return {};
    }
    return answers().at(m_answers++);
}
