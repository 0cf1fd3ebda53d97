#include "command_line.h"

#include <algorithm>

#include "../services/configuration_file.h"

namespace {

const QString c_program = QStringLiteral("app_workplace");
const QString c_helpOption = QStringLiteral("help");

QList<QCommandLineOption> globalOptions()
{
    return {
        {QStringLiteral("port"),
         QStringLiteral("The serial port, or \"simulated\" (the default) for a simulator of its own."),
         QStringLiteral("PATH|simulated")},
        {QStringLiteral("serial-id"), QStringLiteral("The serial number of the wrench."), QStringLiteral("NUMBER")},
        {QStringLiteral("config"), QStringLiteral("A configuration file; the command line goes before it."),
         QStringLiteral("FILE")},
        {QStringLiteral("plugins"), QStringLiteral("The folder of the plugins."), QStringLiteral("DIR")},
        {QStringLiteral("data"), QStringLiteral("The folder for what is kept of a device."), QStringLiteral("DIR")},
        {QStringLiteral("trace"), QStringLiteral("Writes down every byte on the line; - for standard error."),
         QStringLiteral("FILE|-")},
        {QStringLiteral("json"), QStringLiteral("One JSON object a line, messages on standard error.")},
        {{QStringLiteral("h"), c_helpOption}, QStringLiteral("Shows this help.")},
    };
}

std::shared_ptr<QCommandLineParser> makeParser(const QList<CliEntry>& entries)
{
    auto parser = std::make_shared<QCommandLineParser>();
    QStringList known;
    const auto add = [&](const QList<QCommandLineOption>& options) {
        for (const QCommandLineOption& option : options) {
            if (!known.contains(option.names().constLast())) {
                known.append(option.names().constLast());
                parser->addOption(option);
            }
        }
    };
    add(globalOptions());
    for (const CliEntry& entry : entries) {
        add(entry.options);
    }
    return parser;
}

QString optionLines(const QList<QCommandLineOption>& options)
{
    QString lines;
    for (const QCommandLineOption& option : options) {
        QString syntax = QStringLiteral("--") + option.names().constLast();
        if (!option.valueName().isEmpty()) {
            syntax += QLatin1Char(' ') + option.valueName();
        }
        lines += QStringLiteral("  %1  %2\n").arg(syntax, -24).arg(option.description());
    }
    return lines;
}

QString programHelp(const QList<CliEntry>& entries)
{
    QString text =
        QStringLiteral("Usage: %1 [options] COMMAND …\n\nRuns a tightening workplace with one wireless torque "
                       "wrench.\n\nCommands (each has --help):\n")
            .arg(c_program);
    for (const CliEntry& entry : entries) {
        text += QStringLiteral("  %1  %2\n").arg(entry.name, -24).arg(entry.summary);
    }
    return text + QStringLiteral("\nOptions, before or behind the command:\n") + optionLines(globalOptions()) +
           QStringLiteral(
               "\nExit status: 0 done, 1 the device said no or did not answer, 2 wrong usage, 3 set-up problem.");
}

QString commandHelp(const CliEntry& entry)
{
    QString text = QStringLiteral("Usage: %1 [options] %2\n\n%3\n")
                       .arg(c_program, (entry.name + QLatin1Char(' ') + entry.arguments).trimmed(), entry.summary);
    if (!entry.options.isEmpty()) {
        text += QStringLiteral("\nOptions of this command:\n") + optionLines(entry.options);
    }
    return text + QStringLiteral("\nOptions of every command:\n") +
           optionLines(globalOptions()).trimmed().prepend(QStringLiteral("  "));
}

Problem usage(const QString& what, const CliEntry* entry)
{
    const QString command = entry == nullptr ? c_program : c_program + QLatin1Char(' ') + entry->name;
    return {
        Problem::Kind::Usage, QStringLiteral("command line"), what, {}, QStringLiteral("see %1 --help").arg(command)};
}

QString parsingError(const QCommandLineParser& parser)
{
    const QStringList unknown = parser.unknownOptionNames();
    if (!unknown.isEmpty()) {
        return QStringLiteral("there is no option \"--%1\"").arg(unknown.first());
    }
    QString error = parser.errorText();
    error.replace(0, 1, error.at(0).toLower());
    if (error.endsWith(QLatin1Char('.'))) {
        error.chop(1);
    }
    return error;
}

void takeOption(const QCommandLineParser& options, const QString& name, QString* setting)
{
    if (options.isSet(name)) {
        *setting = options.value(name);
    }
}

} // namespace

Invocation readCommandLine(const QStringList& arguments, const QList<CliEntry>& entries)
{
    Invocation invocation;
    // First with the options of all commands, to tell an option's value from the command's name.
    const std::shared_ptr<QCommandLineParser> any = makeParser(entries);
    any->parse(arguments);
    invocation.isJson = any->isSet(QStringLiteral("json"));
    const QStringList words = any->positionalArguments();
    if (words.isEmpty()) {
        if (any->isSet(c_helpOption)) {
            invocation.help = programHelp(entries);
        } else {
            const bool isWrong = !any->errorText().isEmpty();
            invocation.problem = usage(isWrong ? parsingError(*any) : QStringLiteral("no command is given"), nullptr);
        }
        return invocation;
    }
    const auto entry = std::find_if(entries.cbegin(), entries.cend(),
                                    [&](const CliEntry& each) { return each.name == words.first(); });
    if (entry == entries.cend()) {
        invocation.problem = usage(QStringLiteral("there is no command \"%1\"").arg(words.first()), nullptr);
        return invocation;
    }
    invocation.options = makeParser({*entry});
    if (!invocation.options->parse(arguments)) {
        invocation.problem = usage(parsingError(*invocation.options), &*entry);
        return invocation;
    }
    if (invocation.options->isSet(c_helpOption)) {
        invocation.help = commandHelp(*entry);
        return invocation;
    }

    const QCommandLineParser& options = *invocation.options;
    if (options.isSet(QStringLiteral("config"))) {
        if (const auto problem = readConfigurationFile(options.value(QStringLiteral("config")), invocation.settings)) {
            invocation.problem = *problem;
            return invocation;
        }
    }
    takeOption(options, QStringLiteral("port"), &invocation.settings.port);
    takeOption(options, QStringLiteral("serial-id"), &invocation.settings.serialId);
    takeOption(options, QStringLiteral("plugins"), &invocation.settings.pluginFolder);
    takeOption(options, QStringLiteral("data"), &invocation.settings.dataFolder);
    takeOption(options, QStringLiteral("trace"), &invocation.settings.traceFile);
    invocation.arguments = words.mid(1);
    invocation.entry = &*entry;
    return invocation;
}
