#include "completion_facts.h"

#include <QJsonArray>
#include <QJsonObject>

#include <lib_plugins_management/d_abstract_plugin.h>

#include "command_line.h"

namespace {

QString text(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toString();
}

} // namespace

CompletionFacts::CompletionFacts(const QList<CliEntry>& entries, const QList<const DAbstractPlugin*>& devices,
                                 const QList<const DAbstractPlugin*>& drivers)
{
    globalOptions = takeOptions(::globalOptions());
    for (const CliEntry& entry : entries) {
        commands.append({entry.name, entry.summary});
        commandOptions.insert(entry.name, takeOptions(entry.options));
    }
    takePlugins(devices, {});
    takePlugins(drivers, QStringLiteral("driver/"));
}

QList<CompletionFacts::Word> CompletionFacts::takeOptions(const QList<QCommandLineOption>& options)
{
    QList<Word> words;
    for (const QCommandLineOption& option : options) {
        const QString name = QStringLiteral("--") + option.names().constLast();
        words.append({name, option.description()});
        if (!option.valueName().isEmpty() && !valueOptions[option.valueName()].contains(name)) {
            valueOptions[option.valueName()].append(name);
        }
    }
    return words;
}

void CompletionFacts::takePlugins(const QList<const DAbstractPlugin*>& plugins, const QString& prefix)
{
    for (const DAbstractPlugin* plugin : plugins) {
        const QStringList names = plugin->commandNames();
        for (const QString& name : names) {
            const QJsonObject description = plugin->getFunctionDescription(name);
            PluginCommand command{prefix + name, text(description, "description"), {}, {}};
            const QJsonArray parameters = description.value(QLatin1String("parameters")).toArray();
            for (const QJsonValue& value : parameters) {
                const QJsonObject parameter = value.toObject();
                const QString assignment = text(parameter, "name") + QLatin1Char('=');
                command.parameters.append({assignment, text(parameter, "description")});
                if (text(parameter, "type") == QLatin1String("bool")) {
                    command.parameterValues.append({assignment + QStringLiteral("true"), {}});
                    command.parameterValues.append({assignment + QStringLiteral("false"), {}});
                }
            }
            pluginCommands.append(command);
        }
    }
}

QString shellQuoted(const QString& text)
{
    QString quoted = text;
    return QLatin1Char('\'') + quoted.replace(QLatin1Char('\''), QLatin1String("'\\''")) + QLatin1Char('\'');
}
