#include "bounds.h"
#include "fuzz_check.h"
#include "fuzz_targets.h"
#include "scenario_reader.h"
#include "simulated_talk.h"

#include <QRegularExpression>

/// The reader of scenarios: a refusal with file, line and reason, or a scenario within the bounds, with which a
/// simulation starts.
void fuzz::scenario_reader(const QByteArray& bytes)
{
    QString error;
    const std::optional<Scenario> scenario = readScenario(bytes, QStringLiteral("f.json"), &error);
    if (!scenario) {
        static const QRegularExpression form(QStringLiteral("^scenario f\\.json, line ([0-9]+): ."),
                                             QRegularExpression::DotMatchesEverythingOption);
        const QRegularExpressionMatch match = form.match(error);
        FUZZ_CHECK(match.hasMatch());
        FUZZ_CHECK(match.captured(1).toInt() >= 1 && match.captured(1).toInt() <= 1 + bytes.count('\n'));
        return;
    }
    FUZZ_CHECK(error.isEmpty());
    FUZZ_CHECK(!scenario->wrenches.empty() && scenario->wrenches.size() <= size_t(c_maxWrenches));
    FUZZ_CHECK(scenario->events.size() <= size_t(c_maxEvents));
    FUZZ_CHECK(scenario->faults.size() <= size_t(FaultInjector::c_maxFaults));
    qint64 atUs = 0;
    for (const Event& event : scenario->events) {
        FUZZ_CHECK(event.atUs >= atUs);
        atUs = event.atUs;
    }
    for (const Wrench::Settings& wrench : scenario->wrenches) {
        FUZZ_CHECK(!wrench.programs.empty() && wrench.programs.size() <= size_t(c_maxPrograms));
        FUZZ_CHECK(wrench.rssiDbm >= c_minRssiDbm && wrench.rssiDbm <= c_maxRssiDbm);
        FUZZ_CHECK(isWord(QString::fromUtf8(wrench.serial)) && isAddress(QString::fromUtf8(wrench.mac)));
    }
    SimulatedTalk talk(*scenario);
    talk.send("ATS");
    talk.pass(20, 10);
}
