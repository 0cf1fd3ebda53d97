#pragma once

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

#include "cli_command.h"

/// One command as the command line offers it.
struct CliEntry
{
    QString name;
    QString arguments; ///< their syntax, for the help
    QString summary;
    QList<QCommandLineOption> options;
    /// Null, with the problem, when the arguments are wrong.
    std::unique_ptr<CliCommand> (*make)(const CliContext& context, Problem* problem);
    /// Its options are settings, too: the configuration file may hold them, in an object of the command's name.
    bool hasSettings = false;
};

/// What a command line asks for.
struct Invocation
{
    const CliEntry* entry = nullptr; ///< null: nothing to run
    QString help;                    ///< help or version, to be shown instead; empty: none
    Problem problem;                 ///< with a `what`: nothing can be run
    Settings settings;
    bool isJson = false;
    QStringList arguments;
    std::shared_ptr<QCommandLineParser> options;

    /// Null, with the problem, when nothing can be run. The invocation and the entries outlive the command.
    std::unique_ptr<CliCommand> make(Console& console, const QList<CliEntry>& entries, Problem* why) const;
};

/// The options of every command.
QList<QCommandLineOption> globalOptions();

/// The name of an option's setting in the configuration file: "serialId" for --serial-id.
QString settingKey(const QCommandLineOption& option);

/// The command that the arguments name, without a look at anything else; empty: none, or help is asked for.
/// option: whether the arguments set it.
QString commandOnCommandLine(const QStringList& arguments, const QList<CliEntry>& entries, const QString& option,
                             bool* isSet);

/// The option may be given more than once: its value is a pair, and its setting a list.
bool isRepeated(const QCommandLineOption& option);

/// What the arguments say about the language, without a look at anything else.
Settings languageOnCommandLine(const QStringList& arguments);

/// Reads the arguments, the program's own name first, and the configuration file: the one that is named, else this
/// user's when there is one. Options may stand before or behind the command.
Invocation readCommandLine(const QStringList& arguments, const QList<CliEntry>& entries);
