#include "commands_command.h"

#include <QJsonArray>

#include <lib_plugins_management/d_abstract_plugin.h>

#include "../services/workplace.h"
#include "parameters.h"
#include "text_table.h"

namespace {

const QString c_driverPrefix = QStringLiteral("driver/"); // as in "run driver/write"

std::unique_ptr<CliCommand> make(const CliContext& context, Problem* problem)
{
    if (context.arguments.size() > 1) {
        *problem = {Problem::Kind::Usage,
                    QStringLiteral("command line"),
                    CommandsCommand::tr("one command can be told about, not %1").arg(context.arguments.size()),
                    {},
                    CommandsCommand::tr("see app_workplace commands --help")};
        return nullptr;
    }
    return std::make_unique<CommandsCommand>(context);
}

QString text(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toString();
}

QString shownDefault(const QJsonValue& value)
{
    const QString shown = shownValue(value.toVariant());
    return value.isString() ? QStringLiteral("\"%1\"").arg(shown) : shown; // or an empty text could not be seen
}

void tellDeclarations(Console& console, const QString& title, const QJsonArray& declarations)
{
    if (declarations.isEmpty()) {
        console.line(CommandsCommand::tr("%1: none declared").arg(title));
        return;
    }
    console.line(title + QLatin1Char(':'));
    TextTable table({{CommandsCommand::tr("name")},
                     {CommandsCommand::tr("type")},
                     {CommandsCommand::tr("default")},
                     {CommandsCommand::tr("description")}});
    for (const QJsonValue& value : declarations) {
        const QJsonObject declaration = value.toObject();
        const QString shown = declaration.contains(QLatin1String("default"))
                                  ? shownDefault(declaration.value(QLatin1String("default")))
                                  : QStringLiteral("-");
        table.addRow({text(declaration, "name"), text(declaration, "type"), shown, text(declaration, "description")});
    }
    const QStringList lines = table.lines();
    for (const QString& line : lines) {
        console.line(QStringLiteral("  ") + line);
    }
}

} // namespace

CliEntry CommandsCommand::entry()
{
    return {QStringLiteral("commands"),
            QStringLiteral("[[driver/]COMMAND]"),
            tr("Lists what the loaded plugins offer, or tells about one command."),
            {},
            &make};
}

CommandsCommand::CommandsCommand(const CliContext& context)
    : CliCommand(context)
    , m_named(context.arguments.value(0))
    , m_isOfDriver(m_named.startsWith(c_driverPrefix))
    , m_command(m_isOfDriver ? m_named.mid(c_driverPrefix.size()) : m_named)
{}

void CommandsCommand::start()
{
    DPluginLoader plugins;
    plugins.loadFolder(Workplace::pluginFolder(m_settings));
    for (const DPluginRefusal& refusal : plugins.refusals()) {
        m_console.message(refusal.message());
    }
    bool isTold = false;
    for (const DAbstractPlugin* root : plugins.roots()) {
        isTold = tellOf(*root) || isTold;
    }
    if (plugins.roots().isEmpty()) {
        tell({Problem::Kind::SetUp, QStringLiteral("commands"), tr("there is no plugin"), tr("none was loaded"),
              tr("check the folder of the plugins with --plugins")});
        Q_EMIT sigDone(int(Problem::Kind::SetUp));
    } else if (!isTold) {
        tell({Problem::Kind::Usage,
              QStringLiteral("commands"),
              tr("no loaded plugin has the command \"%1\"").arg(m_named),
              {},
              tr("\"app_workplace commands\" lists what there is")});
        Q_EMIT sigDone(int(Problem::Kind::Usage));
    } else {
        Q_EMIT sigDone(0);
    }
}

bool CommandsCommand::tellOf(const DAbstractPlugin& plugin)
{
    if (m_isOfDriver && !Workplace::hasRole(plugin, Workplace::Role::Driver)) {
        return false;
    }
    if (!m_command.isEmpty() && !plugin.commandNames().contains(m_command)) {
        return false;
    }
    if (m_console.isJson()) {
        const QStringList names = m_command.isEmpty() ? plugin.commandNames() : QStringList{m_command};
        for (const QString& name : names) {
            m_console.object({{QStringLiteral("event"), QStringLiteral("command")},
                              {QStringLiteral("plugin"), QString::fromUtf8(plugin.pluginName())},
                              {QStringLiteral("command"), plugin.getFunctionDescription(name)}});
        }
    } else if (m_command.isEmpty()) {
        tellAll(plugin);
    } else {
        tellOne(plugin, plugin.getFunctionDescription(m_command));
    }
    return true;
}

void CommandsCommand::tellAll(const DAbstractPlugin& plugin)
{
    m_console.line(m_console.strong(QString::fromUtf8(plugin.pluginName())));
    TextTable table({{tr("command")}, {tr("stopped by")}, {tr("description")}});
    const QStringList names = plugin.commandNames();
    for (const QString& name : names) {
        const QJsonObject description = plugin.getFunctionDescription(name);
        const QString stopName = text(description, "stopName");
        table.addRow({name, stopName.isEmpty() ? QStringLiteral("-") : stopName, text(description, "description")});
    }
    const QStringList lines = table.lines();
    for (const QString& line : lines) {
        m_console.line(QStringLiteral("  ") + line);
    }
}

void CommandsCommand::tellOne(const DAbstractPlugin& plugin, const QJsonObject& description)
{
    m_console.line(
        m_console.strong(text(description, "name")) +
        QStringLiteral(" (%1): %2").arg(QString::fromUtf8(plugin.pluginName()), text(description, "description")));
    if (!text(description, "stopName").isEmpty()) {
        m_console.line(tr("Runs until it is stopped by \"%1\" (Ctrl-C).").arg(text(description, "stopName")));
    }
    tellDeclarations(m_console, tr("Parameters"), description.value(QLatin1String("parameters")).toArray());
    tellDeclarations(m_console, tr("Results"), description.value(QLatin1String("results")).toArray());
}
