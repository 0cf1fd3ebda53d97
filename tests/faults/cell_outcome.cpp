#include "cell_outcome.h"

#include <QJsonArray>
#include <QRegularExpression>
#include <QStringList>

#include "fault_trial.h"

namespace {

const QString c_programList = QStringLiteral("programList");
const QString c_wrenchList = QStringLiteral("lastResults");
const QString c_events = QStringLiteral("eventData");
const QString c_preset = QStringLiteral("presetData");

/// The signal's strength wanders by itself.
QJsonArray withoutStrength(const QJsonArray& wrenches)
{
    QJsonArray all;
    for (const QJsonValue& wrench : wrenches) {
        QJsonObject each = wrench.toObject();
        each.remove(QStringLiteral("rssi"));
        all.append(each);
    }
    return all;
}

QString listDifference(const QJsonArray& list, const QJsonArray& expected, const QString& things)
{
    if (list.size() != expected.size()) {
        return QStringLiteral("%1 of %2 %3")
            .arg(QString::number(list.size()), QString::number(expected.size()), things);
    }
    return list == expected ? QString() : QStringLiteral("other %1").arg(things);
}

} // namespace

QString stateOf(const QString& wrenches)
{
    static const QRegularExpression state(
        QStringLiteral("%1 [^;]*, (locked|unlocked), (reporting|not reporting), (program [0-9]+)").arg(c_serialId));
    const QRegularExpressionMatch match = state.match(wrenches);
    return match.capturedTexts().mid(1).join(QStringLiteral(", "));
}

QString difference(const TrialTraces& disturbed, const TrialTraces& undisturbed)
{
    QStringList differences;
    const auto list = [](const TrialTraces& traces, const QString& name) {
        return traces.results.value(name).toArray();
    };
    if (undisturbed.results.contains(c_programList)) {
        differences.append(listDifference(list(disturbed, c_programList), list(undisturbed, c_programList),
                                          QStringLiteral("programs")));
    }
    if (undisturbed.results.contains(c_wrenchList)) {
        differences.append(listDifference(withoutStrength(list(disturbed, c_wrenchList)),
                                          withoutStrength(list(undisturbed, c_wrenchList)),
                                          QStringLiteral("wrenches")));
    }
    if (disturbed.results.value(c_preset) != undisturbed.results.value(c_preset)) {
        differences.append(QStringLiteral("other preset"));
    }
    if (disturbed.results.value(c_events) != undisturbed.results.value(c_events)) {
        differences.append(QStringLiteral("%1 of %2 results")
                               .arg(disturbed.results.value(c_events).toInt())
                               .arg(undisturbed.results.value(c_events).toInt()));
    }
    const QStringList states = disturbed.wrench.split(QStringLiteral(", "));
    const QStringList usualStates = undisturbed.wrench.split(QStringLiteral(", "));
    for (const QString& state : states) {
        if (!usualStates.contains(state)) {
            differences.append(QStringLiteral("wrench %1").arg(state));
        }
    }
    differences.removeAll(QString());
    return differences.join(QStringLiteral(", "));
}
