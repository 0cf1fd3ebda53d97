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
};

/// What a command line asks for.
struct Invocation
{
    const CliEntry* entry = nullptr; ///< null: nothing to run
    QString help;                    ///< to be shown instead; empty: none
    Problem problem;                 ///< with a `what`: nothing can be run
    Settings settings;
    bool isJson = false;
    QStringList arguments;
    std::shared_ptr<QCommandLineParser> options;
};

/// Reads the arguments, the program's own name first. Options may stand before or behind the command.
Invocation readCommandLine(const QStringList& arguments, const QList<CliEntry>& entries);
