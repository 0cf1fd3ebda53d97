#include "config_command.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <lib_plugins_management/d_abstract_plugin.h>

#include "../services/configuration_file.h"
#include "../services/driver_settings.h"
#include "../services/language.h"
#include "../services/setting_entries.h"
#include "configuration_text.h"
#include "parameters.h"

namespace {

const QString c_writeOption = QStringLiteral("write-default");
const QString c_driver = QStringLiteral("driver");

std::unique_ptr<CliCommand> make(const CliContext& context, Problem* problem)
{
    const int most = context.options.isSet(c_writeOption) ? 1 : 0;
    if (context.arguments.size() > most) {
        *problem = {Problem::Kind::Usage,
                    QStringLiteral("command line"),
                    ConfigCommand::tr("the configuration takes no argument \"%1\"").arg(context.arguments.at(most)),
                    {},
                    ConfigCommand::tr("see %1 --help").arg(QStringLiteral("app_workplace config"))};
        return nullptr;
    }
    return std::make_unique<ConfigCommand>(context);
}

/// For programs.
QString nameOf(SettingOrigin::Kind kind)
{
    switch (kind) {
    case SettingOrigin::Kind::Default:
        return QStringLiteral("default");
    case SettingOrigin::Kind::File:
        return QStringLiteral("file");
    case SettingOrigin::Kind::Environment:
        return QStringLiteral("environment");
    case SettingOrigin::Kind::CommandLine:
        return QStringLiteral("commandLine");
    }
    Q_UNREACHABLE();
}

/// For people.
QString shown(const SettingOrigin& origin)
{
    switch (origin.kind) {
    case SettingOrigin::Kind::Default:
        return ConfigCommand::tr("default");
    case SettingOrigin::Kind::File:
        return ConfigCommand::tr("%1, line %2").arg(origin.source).arg(origin.line);
    case SettingOrigin::Kind::Environment:
        return ConfigCommand::tr("environment, %1").arg(origin.source);
    case SettingOrigin::Kind::CommandLine:
        return ConfigCommand::tr("command line, %1").arg(origin.source);
    }
    Q_UNREACHABLE();
}

} // namespace

CliEntry ConfigCommand::entry()
{
    return {QStringLiteral("config"),
            QStringLiteral("[--write-default [FILE|-]]"),
            tr("Shows the settings in effect and where each comes from."),
            {{c_writeOption, tr("Writes a commented file of the defaults, to this user's own place when no other is "
                                "named; - for standard output.")}},
            &make};
}

ConfigCommand::ConfigCommand(const CliContext& context)
    : CliCommand(context)
    , m_entries(*context.entries)
    , m_workplace(context.settings)
    , m_writes(context.options.isSet(c_writeOption))
    , m_file(context.arguments.value(0, configuration::defaultFile()))
{}

void ConfigCommand::start()
{
    const std::optional<Problem> problem = m_workplace.loadPlugins();
    for (const DPluginRefusal& refusal : m_workplace.plugins().refusals()) {
        m_console.message(refusal.message());
    }
    bool isDone = true;
    if (!m_writes) {
        showAll();
    } else if (!problem) {
        isDone = writeDefault(m_file);
    }
    if (problem) {
        tell(*problem);
    }
    Q_EMIT sigDone(problem || !isDone ? int(Problem::Kind::SetUp) : 0);
}

QVariantList ConfigCommand::settingsOfTheDriver() const
{
    const QList<const DAbstractPlugin*> drivers = m_workplace.rootsOf(Workplace::Role::Driver);
    return drivers.isEmpty() ? QVariantList() : driverSettings(*drivers.constFirst());
}

bool ConfigCommand::writeDefault(const QString& file)
{
    const QString text = configurationText(m_entries, settingsOfTheDriver());
    if (file == QLatin1String("-")) {
        m_console.line(text.trimmed());
        return true;
    }
    QDir().mkpath(QFileInfo(file).absolutePath());
    QFile output(file);
    const QByteArray bytes = text.toUtf8();
    // What is there is somebody's work.
    if (!output.open(QIODevice::WriteOnly | QIODevice::NewOnly) || output.write(bytes) != bytes.size() ||
        !output.flush()) {
        tell({Problem::Kind::SetUp, QStringLiteral("configuration"), tr("the file %1 is not written").arg(file),
              output.exists() ? tr("it is there already") : output.errorString(),
              tr("name another file, or move that one away")});
        return false;
    }
    m_console.notice(tr("%1 is written; it holds the defaults.").arg(file));
    return true;
}

void ConfigCommand::showAll()
{
    TextTable table({{tr("setting")}, {tr("value")}, {tr("from")}});
    for (const SettingEntry& entry : settingEntries()) {
        const QString key = QLatin1String(entry.key);
        QJsonValue value =
            entry.text != nullptr ? QJsonValue(m_settings.*(entry.text)) : QJsonValue(m_settings.*(entry.isOn));
        SettingOrigin origin = originOf(key);
        if (entry.text == &Settings::pluginFolder) {
            value = Workplace::pluginFolder(m_settings);
        } else if (entry.text == &Settings::dataFolder) {
            value = Workplace::dataFolder(m_settings);
        } else if (entry.text == &Settings::serialId) {
            value = m_settings.wrench();
        } else if (entry.text == &Settings::language) {
            const language::Choice choice = language::choose(m_settings);
            value = choice.name;
            origin = choice.origin;
        }
        show(table, key, value == QJsonValue(QString()) ? QJsonValue(QJsonValue::Undefined) : value, origin);
    }
    for (const CliEntry& entry : m_entries) {
        const QJsonObject section = m_settings.commands.value(entry.name).toObject();
        for (const QCommandLineOption& option : entry.hasSettings ? entry.options : QList<QCommandLineOption>()) {
            const QString path = entry.name + QLatin1Char('.') + settingKey(option);
            const QJsonValue value = section.value(settingKey(option));
            const bool isSwitch = option.valueName().isEmpty();
            show(table, path, isSwitch ? QJsonValue(value.toBool()) : value, originOf(path));
        }
    }
    const QVariantList settings = settingsOfTheDriver();
    for (const QVariant& setting : settings) {
        const QString name = setting.toMap().value(QStringLiteral("name")).toString();
        const QJsonValue standard = QJsonValue::fromVariant(setting.toMap().value(QStringLiteral("default")));
        const QString path = c_driver + QLatin1Char('.') + name;
        show(table, path, m_settings.driver.contains(name) ? m_settings.driver.value(name) : standard, originOf(path));
    }
    if (m_console.isJson()) {
        return;
    }
    m_console.line(!m_settings.configurationFile.isEmpty()
                       ? tr("Configuration: %1").arg(Console::visible(m_settings.configurationFile))
                       : tr("Configuration: none was read; this user's own would be %1")
                             .arg(Console::visible(configuration::defaultFile())));
    const QStringList lines = table.lines();
    for (const QString& line : lines) {
        m_console.line(QStringLiteral("  ") + line);
    }
}

void ConfigCommand::show(TextTable& table, const QString& path, const QJsonValue& value, const SettingOrigin& origin)
{
    if (m_console.isJson()) {
        m_console.object({{QStringLiteral("event"), QStringLiteral("setting")},
                          {QStringLiteral("name"), path},
                          {QStringLiteral("value"), value.isUndefined() ? QJsonValue(QJsonValue::Null) : value},
                          {QStringLiteral("from"), nameOf(origin.kind)},
                          {QStringLiteral("source"), origin.source},
                          {QStringLiteral("line"), origin.line}});
    } else {
        table.addRow({path, value.isUndefined() ? QStringLiteral("-") : shownValue(value.toVariant()), shown(origin)});
    }
}
