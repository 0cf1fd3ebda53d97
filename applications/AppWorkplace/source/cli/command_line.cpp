#include "command_line.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QRegularExpression>

#include <algorithm>

#include "../services/configuration_file.h"
#include "../services/language.h"
#include "../services/setting_entries.h"

namespace {

const QString c_program = QStringLiteral("app_workplace");
const QString c_helpOption = QStringLiteral("help");
const QString c_versionOption = QStringLiteral("version");
const QString c_configOption = QStringLiteral("config");

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
    QString text = QCoreApplication::translate("CommandLine",
                                               "Usage: %1 [options] COMMAND …\n\nRuns a tightening workplace with one "
                                               "wireless torque wrench.\n\nCommands (each has --help):\n")
                       .arg(c_program);
    for (const CliEntry& entry : entries) {
        text += QStringLiteral("  %1  %2\n").arg(entry.name, -24).arg(entry.summary);
    }
    return text + QCoreApplication::translate("CommandLine", "\nOptions, before or behind the command:\n") +
           optionLines(globalOptions()) +
           QCoreApplication::translate(
               "CommandLine",
               "\nExit status: 0 done, 1 the device said no or did not answer, 2 wrong usage, 3 set-up problem.");
}

QString commandHelp(const CliEntry& entry)
{
    QString text = QCoreApplication::translate("CommandLine", "Usage: %1 [options] %2\n\n%3\n")
                       .arg(c_program, (entry.name + QLatin1Char(' ') + entry.arguments).trimmed(), entry.summary);
    if (!entry.options.isEmpty()) {
        text += QCoreApplication::translate("CommandLine", "\nOptions of this command:\n") + optionLines(entry.options);
    }
    return text + QCoreApplication::translate("CommandLine", "\nOptions of every command:\n") +
           optionLines(globalOptions()).trimmed().prepend(QStringLiteral("  "));
}

Problem usage(const QString& what, const CliEntry* entry)
{
    const QString command = entry == nullptr ? c_program : c_program + QLatin1Char(' ') + entry->name;
    return {Problem::Kind::Usage,
            QStringLiteral("command line"),
            what,
            {},
            QCoreApplication::translate("CommandLine", "see %1 --help").arg(command)};
}

QString parsingError(const QCommandLineParser& parser)
{
    const QStringList unknown = parser.unknownOptionNames();
    if (!unknown.isEmpty()) {
        return QCoreApplication::translate("CommandLine", "there is no option \"--%1\"").arg(unknown.first());
    }
    // The parser's words are Qt's; wanted of them are which of two it is, and the option, which stands in quotes.
    static const QRegularExpression quoted(QStringLiteral("'([^']*)'"));
    const QString option = quoted.match(parser.errorText()).captured(1);
    return parser.errorText().startsWith(QLatin1String("Unexpected"))
               ? QCoreApplication::translate("CommandLine", "unexpected value after '%1'").arg(option)
               : QCoreApplication::translate("CommandLine", "missing value after '%1'").arg(option);
}

configuration::Value valueOf(const QCommandLineOption& option)
{
    static const QMap<QString, configuration::Value> values = {
        {QString(), configuration::Value::Switch},
        {QStringLiteral("N"), configuration::Value::WholeNumber},
        {QStringLiteral("SECONDS"), configuration::Value::Number},
    };
    return isRepeated(option) ? configuration::Value::TextList
                              : values.value(option.valueName(), configuration::Value::Text);
}

configuration::Sections sectionsOf(const QList<CliEntry>& entries)
{
    configuration::Sections sections;
    for (const CliEntry& entry : entries) {
        if (entry.hasSettings) {
            for (const QCommandLineOption& option : entry.options) {
                sections[entry.name].insert(settingKey(option), valueOf(option));
            }
        }
    }
    return sections;
}

std::optional<Problem> readConfiguration(const QCommandLineParser& options, const QList<CliEntry>& entries,
                                         Settings& settings)
{
    const bool isNamed = options.isSet(c_configOption);
    const QString file = isNamed ? options.value(c_configOption) : configuration::defaultFile();
    if (isNamed ? file.isEmpty() : !QFileInfo::exists(file)) {
        return std::nullopt;
    }
    return configuration::readFile(file, sectionsOf(entries), settings);
}

void takeOptions(const QCommandLineParser& options, Settings& settings)
{
    for (const SettingEntry& entry : settingEntries()) {
        const QString option = QLatin1String(entry.option);
        if (options.isSet(option)) {
            settings.origins.insert(QLatin1String(entry.key),
                                    {SettingOrigin::Kind::CommandLine, QStringLiteral("--") + option, 0});
            if (entry.text != nullptr) {
                settings.*(entry.text) = options.value(option);
            } else {
                settings.*(entry.isOn) = true;
            }
        }
    }
}

/// What the file says for the command, as options; what the command line says goes before it.
QStringList optionsFromFile(const CliEntry& entry, const QCommandLineParser& given, Settings& settings)
{
    QStringList arguments;
    const QJsonObject section = settings.commands.value(entry.name).toObject();
    for (const QCommandLineOption& option : entry.options) {
        const QString name = option.names().constLast();
        const QString path = entry.name + QLatin1Char('.') + settingKey(option);
        const QJsonValue value = section.value(settingKey(option));
        if (given.isSet(name)) {
            settings.origins.insert(path, {SettingOrigin::Kind::CommandLine, QStringLiteral("--") + name, 0});
        } else if (!value.isUndefined() && option.valueName().isEmpty()) {
            arguments += value.toBool() ? QStringList{QStringLiteral("--") + name} : QStringList();
        } else if (value.isArray()) {
            const QJsonArray list = value.toArray();
            for (const QJsonValue& each : list) {
                arguments.append(QStringLiteral("--%1=%2").arg(name, each.toString()));
            }
        } else if (!value.isUndefined()) {
            arguments.append(QStringLiteral("--%1=%2").arg(name, value.toVariant().toString()));
        }
    }
    return arguments;
}

/// A port "simulated:" without a file behind it.
Problem portRefusal(const Settings& settings)
{
    const QString what = QCoreApplication::translate("CommandLine", "the port \"%1\" names no file").arg(settings.port);
    const QString mend =
        QCoreApplication::translate("CommandLine", "name a scenario as simulated:FILE, or write only \"simulated\"");
    const SettingOrigin origin = settings.origins.value(QStringLiteral("port"));
    return origin.kind == SettingOrigin::Kind::File
               ? configuration::refusal(origin.source, origin.line, what, mend)
               : Problem{Problem::Kind::Usage, QStringLiteral("command line"), what, {}, mend};
}

/// The setting of the file that a command refuses, if it is one: the refusal names it as an option.
SettingOrigin refusedSetting(const Invocation& invocation, const Problem& problem)
{
    for (const QCommandLineOption& option : invocation.entry->options) {
        SettingOrigin origin =
            invocation.settings.origins.value(invocation.entry->name + QLatin1Char('.') + settingKey(option));
        if (origin.kind == SettingOrigin::Kind::File &&
            problem.what.startsWith(QStringLiteral("--%1 ").arg(option.names().constLast()))) {
            return origin;
        }
    }
    return {};
}

} // namespace

QList<QCommandLineOption> globalOptions()
{
    QList<QCommandLineOption> options;
    for (const SettingEntry& entry : settingEntries()) {
        options.append({QLatin1String(entry.option), entry.shownDescription(), QLatin1String(entry.valueName)});
        if (qstrcmp(entry.option, "serial-id") == 0) {
            options.append({c_configOption,
                            QCoreApplication::translate(
                                "CommandLine", "A configuration file; the command line goes before it. Empty: none."),
                            QStringLiteral("FILE")});
        }
    }
    options.append(
        {{QStringLiteral("h"), c_helpOption}, QCoreApplication::translate("CommandLine", "Shows this help.")});
    options.append({c_versionOption, QCoreApplication::translate("CommandLine", "Shows the version.")});
    return options;
}

QString commandOnCommandLine(const QStringList& arguments, const QList<CliEntry>& entries, const QString& option,
                             bool* isSet)
{
    const std::shared_ptr<QCommandLineParser> parser = makeParser(entries);
    parser->parse(arguments);
    *isSet = parser->isSet(option);
    return parser->isSet(c_helpOption) ? QString() : parser->positionalArguments().value(0);
}

Settings languageOnCommandLine(const QStringList& arguments)
{
    Settings settings;
    QCommandLineParser parser;
    parser.addOptions(globalOptions());
    parser.parse(arguments); // in vain for options of commands, which does not matter here
    const QString name = parser.value(QStringLiteral("language"));
    if (language::all().contains(name)) {
        settings.language = name;
    }
    return settings;
}

bool isRepeated(const QCommandLineOption& option)
{
    return option.valueName().contains(QLatin1String("[,"));
}

QString settingKey(const QCommandLineOption& option)
{
    QStringList words = option.names().constLast().split(QLatin1Char('-'));
    for (int i = 1; i < words.size(); ++i) {
        words[i].replace(0, 1, words.at(i).at(0).toUpper());
    }
    return words.join(QString());
}

std::unique_ptr<CliCommand> Invocation::make(Console& console, const QList<CliEntry>& entries, Problem* why) const
{
    *why = problem;
    if (!problem.what.isEmpty()) {
        return nullptr;
    }
    std::unique_ptr<CliCommand> command = entry->make({console, settings, arguments, *options, &entries}, why);
    const SettingOrigin origin = refusedSetting(*this, *why);
    if (origin.kind == SettingOrigin::Kind::File) {
        *why = configuration::refusal(origin.source, origin.line, why->what, why->mend);
    }
    return command;
}

Invocation readCommandLine(const QStringList& arguments, const QList<CliEntry>& entries)
{
    Invocation invocation;
    // First with the options of all commands, to tell an option's value from the command's name.
    const std::shared_ptr<QCommandLineParser> any = makeParser(entries);
    any->parse(arguments);
    invocation.isJson = any->isSet(QStringLiteral("json"));
    if (any->isSet(c_versionOption)) {
        invocation.help = c_program + QLatin1Char(' ') + QCoreApplication::applicationVersion();
        return invocation;
    }
    const QStringList words = any->positionalArguments();
    if (words.isEmpty()) {
        if (any->isSet(c_helpOption)) {
            invocation.help = programHelp(entries);
        } else {
            const bool isWrong = !any->errorText().isEmpty();
            invocation.problem =
                usage(isWrong ? parsingError(*any) : QCoreApplication::translate("CommandLine", "no command is given"),
                      nullptr);
        }
        return invocation;
    }
    const auto entry = std::find_if(entries.cbegin(), entries.cend(),
                                    [&](const CliEntry& each) { return each.name == words.first(); });
    if (entry == entries.cend()) {
        invocation.problem =
            usage(QCoreApplication::translate("CommandLine", "there is no command \"%1\"").arg(words.first()), nullptr);
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

    if (const auto problem = readConfiguration(*invocation.options, entries, invocation.settings)) {
        invocation.problem = *problem;
        return invocation;
    }
    takeOptions(*invocation.options, invocation.settings);
    if (!invocation.settings.language.isEmpty() && !language::all().contains(invocation.settings.language)) {
        invocation.problem = language::refusal(invocation.settings.language);
        return invocation;
    }
    if (invocation.settings.lacksScenarioFile()) {
        invocation.problem = portRefusal(invocation.settings);
        return invocation;
    }
    QStringList all = arguments;
    all = all.mid(0, 1) + optionsFromFile(*entry, *invocation.options, invocation.settings) + all.mid(1);
    invocation.options = makeParser({*entry});
    invocation.options->parse(all); // the file has been checked against the options
    invocation.isJson = invocation.settings.isJson;
    invocation.arguments = words.mid(1);
    invocation.entry = &*entry;
    return invocation;
}
