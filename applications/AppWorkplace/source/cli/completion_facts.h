#pragma once

#include <QCommandLineOption>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

struct CliEntry;
class DAbstractPlugin;

/// What shells complete: the commands of the program with their options, and the commands of the plugins with their
/// parameters, in their own words.
struct CompletionFacts
{
    struct Word
    {
        QString text;
        QString description;
    };
    struct PluginCommand
    {
        QString name; ///< "driver/write" for one of the driver
        QString description;
        QList<Word> parameters;      ///< "lock=" …
        QList<Word> parameterValues; ///< "lock=true" … where there are only some
    };

    QList<Word> commands;
    QList<Word> globalOptions; ///< "--port"
    QMap<QString, QList<Word>> commandOptions;
    /// Options that take a value, by what they take: "DIR", "FILE|-", "en|de|fr".
    QMap<QString, QStringList> valueOptions;
    QList<PluginCommand> pluginCommands;

    CompletionFacts(const QList<CliEntry>& entries, const QList<const DAbstractPlugin*>& devices,
                    const QList<const DAbstractPlugin*>& drivers);

private:
    QList<Word> takeOptions(const QList<QCommandLineOption>& options);
    void takePlugins(const QList<const DAbstractPlugin*>& plugins, const QString& prefix);
};

/// The scripts, ready to be sourced (bash) or to be put into the function path as _app_workplace (zsh).
QString bashCompletion(const CompletionFacts& facts);
QString zshCompletion(const CompletionFacts& facts);

/// A text as one word of a shell.
QString shellQuoted(const QString& text);
