#include "fuzz_check.h"
#include "fuzz_targets.h"
#include "services/configuration_file.h"

#include <QJsonDocument>

/// The configuration file: a problem that names what, why and the mend, with a line of the file, and the settings as
/// they were; or settings of which each has its line.
void fuzz::configuration_file(const QByteArray& bytes)
{
    using configuration::Value;
    const configuration::Sections sections{
        {QStringLiteral("session"),
         {{QStringLiteral("program"), Value::WholeNumber}, {QStringLiteral("noReconnect"), Value::Switch}}},
        {QStringLiteral("scan"), {{QStringLiteral("duration"), Value::Number}, {QStringLiteral("to"), Value::Text}}}};
    const QString file = QStringLiteral("c.json");
    Settings settings;
    settings.serialId = QStringLiteral("before");
    const std::optional<Problem> problem = configuration::read(bytes, file, sections, settings);
    const int lines = 1 + bytes.count('\n');
    if (problem) {
        FUZZ_CHECK(!problem->what.isEmpty() && !problem->cause.isEmpty() && !problem->mend.isEmpty());
        const int line = problem->what.section(QLatin1Char(' '), -1).toInt();
        FUZZ_CHECK(line >= 1 && line <= lines);
        FUZZ_CHECK(settings.serialId == QLatin1String("before") && settings.configurationFile.isEmpty());
        FUZZ_CHECK(settings.origins.isEmpty() && settings.commands.isEmpty() && settings.driver.isEmpty());
        return;
    }
    FUZZ_CHECK(settings.configurationFile == file);
    for (const SettingOrigin& origin : qAsConst(settings.origins)) {
        FUZZ_CHECK(origin.kind == SettingOrigin::Kind::File && origin.line >= 1 && origin.line <= lines);
    }
    const QJsonObject object = QJsonDocument::fromJson(bytes).object();
    FUZZ_CHECK(settings.origins.contains(QStringLiteral("port")) == object.contains(QStringLiteral("port")));
    const QStringList taken = settings.commands.keys();
    for (const QString& section : taken) {
        FUZZ_CHECK(sections.contains(section) && object.value(section).isObject());
    }
}
