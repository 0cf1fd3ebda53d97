#include "doctor_run.h"

namespace {

const QString c_stageEvent = QStringLiteral("stage");
const QString c_errorEvent = QStringLiteral("error");

QString text(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toString();
}

} // namespace

QStringList DoctorRun::arguments(const QString& port, const QStringList& options)
{
    QStringList all{QStringLiteral("doctor"), QStringLiteral("--json"), QStringLiteral("--port"), port};
    const QList<QPair<QString, QString>> defaults{{QStringLiteral("--scan"), QStringLiteral("0.2")},
                                                  {QStringLiteral("--limit"), QStringLiteral("5")},
                                                  {QStringLiteral("--serial-id"), QStringLiteral("2210")}};
    for (const auto& preset : defaults) {
        if (!options.contains(preset.first)) {
            all << preset.first << preset.second;
        }
    }
    return all + options;
}

bool DoctorRun::startDoctor(const QString& port, const QStringList& options)
{
    return start(arguments(port, options));
}

DoctorRun::Complaint DoctorRun::complaint() const
{
    const QJsonObject error = event(c_errorEvent);
    return {text(error, "step"), text(error, "message"), text(error, "reason"), text(error, "mend"), exitStatus()};
}

QString DoctorRun::stateOf(const QString& stage) const
{
    const QStringList told = stages().filter(stage + QLatin1Char(' '));
    return told.isEmpty() ? QString() : told.constFirst().section(QLatin1Char(' '), 1);
}

QStringList DoctorRun::stages() const
{
    QStringList told;
    const QList<QJsonObject> all = events(c_stageEvent);
    for (const QJsonObject& each : all) {
        if (each.contains(QLatin1String("elapsedMs"))) {
            told.append(QStringLiteral("%1 %2").arg(text(each, "stage"), text(each, "state")));
        }
    }
    return told;
}

bool DoctorRun::waitForNotice(const QString& stage, const QString& said)
{
    const auto isSaid = [&] {
        const QList<QJsonObject> all = events(c_stageEvent);
        return std::any_of(all.cbegin(), all.cend(), [&](const QJsonObject& each) {
            return text(each, "state") == QLatin1String("notice") && text(each, "stage") == stage &&
                   text(each, "text").contains(said);
        });
    };
    return waitUntil([&] { return isSaid() || !isRunning(); }) && isSaid();
}

QString DoctorRun::disorder() const
{
    const QStringList told = stages();
    const QStringList failed = told.filter(QStringLiteral(" failed"));
    if (failed.size() != 1) {
        return QStringLiteral("%1 stages have failed: %2").arg(failed.size()).arg(told.join(QStringLiteral(", ")));
    }
    const QString stage = failed.constFirst().section(QLatin1Char(' '), 0, 0);
    if (events(c_errorEvent).size() != 1 || complaint().stage != stage) {
        return QStringLiteral("the error is not the one of %1").arg(stage);
    }
    const QStringList behind = told.mid(told.indexOf(failed.constFirst()) + 1);
    if (behind.filter(QStringLiteral(" skipped")).size() != behind.size()) {
        return QStringLiteral("not all stages behind %1 were skipped").arg(stage);
    }
    const QJsonObject diagnosis = event(QStringLiteral("diagnosis"));
    if (diagnosis.value(QLatin1String("exitStatus")).toInt(-1) != exitStatus() ||
        diagnosis.value(QLatin1String("failed")).toInt() != 1) {
        return QStringLiteral("the diagnosis does not say what was found");
    }
    return {};
}
