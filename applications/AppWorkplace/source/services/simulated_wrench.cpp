#include "simulated_wrench.h"

#include <QCoreApplication>
#include <QProcess>

#include "settings.h"
#include "simulator_process.h"

namespace {

constexpr int c_answerLimitMs = 10000;
const QString c_ownName = QStringLiteral("wrench_simulator: ");

} // namespace

std::optional<Problem> findSimulatedWrench(Settings& settings)
{
    if (!settings.hasScenario()) {
        return std::nullopt;
    }
    settings.simulatedSerialId.clear();
    QProcess simulator;
    simulator.start(SimulatorProcess::program(),
                    {QStringLiteral("--scenario"), settings.scenarioFile(), QStringLiteral("--list-wrenches")});
    const bool hasEnded = simulator.waitForFinished(c_answerLimitMs);
    if (hasEnded && simulator.exitStatus() == QProcess::NormalExit && simulator.exitCode() == 0) {
        settings.simulatedSerialId = QString::fromUtf8(simulator.readLine()).trimmed();
        return std::nullopt;
    }
    QString words = QString::fromUtf8(simulator.readAllStandardError()).trimmed();
    if (words.startsWith(c_ownName)) {
        words.remove(0, c_ownName.size());
    }
    return Problem{
        Problem::Kind::SetUp, QStringLiteral("open"),
        QCoreApplication::translate("SimulatedWrench", "the scenario %1 is not used").arg(settings.scenarioFile()),
        words.isEmpty() ? simulator.errorString() : words,
        QCoreApplication::translate("SimulatedWrench",
                                    "mend the file, or name another one with --port simulated:FILE")};
}
