#include "completion_facts.h"

namespace {

const QString c_script = QStringLiteral(R"script(#compdef app_workplace
# zsh completion for app_workplace; made by "app_workplace completion zsh".

_app_workplace_ports() {
    local -a ports
    ports=(simulated /dev/serial/by-id/*(N) /dev/ttyUSB*(N) /dev/ttyACM*(N) /dev/ttyS[0-9]*(N))
    compadd -- $ports
}

# Offers the values of an option. Fails for one that takes none.
_app_workplace_value() {
    case $1 in
%VALUES%    (*) return 1 ;;
    esac
}

_app_workplace_parameters() {
    local -a names values
    case $1 in
%PARAMETERS%    esac
    if [[ $PREFIX == *=* ]]; then
        compadd -- $values
    else
        _describe -t parameters parameter names -S ''
    fi
}

_app_workplace() {
    local command target
    local -a options commands plugin_commands
    local -i i
    options=(%GLOBAL%)
    commands=(%COMMANDS%)
    plugin_commands=(%PLUGIN_COMMANDS%)
    for ((i = 2; i < CURRENT; ++i)); do
        case $words[i] in
        (--*=*) ;;
        (%TAKING%)
            if ((i == CURRENT - 1)); then
                _app_workplace_value $words[i]
                return
            fi
            ((++i))
            ;;
        (-*) ;;
        (*)
            if [[ -z $command ]]; then
                command=$words[i]
            elif [[ -z $target ]]; then
                target=$words[i]
            fi
            ;;
        esac
    done
    case $command in
%OPTIONS%    esac

    if [[ $PREFIX == --*=* ]]; then
        local option=${PREFIX%%=*}
        compset -P '*='
        _app_workplace_value $option
    elif [[ $PREFIX == -* ]]; then
        _describe -t options option options
    elif [[ -z $command ]]; then
        _describe -t commands command commands
    elif [[ $command == run && -n $target ]]; then
        _app_workplace_parameters $target
    elif [[ ($command == run || $command == commands) && -z $target ]]; then
        _describe -t plugin-commands 'command of a plugin' plugin_commands
    elif [[ $command == completion && -z $target ]]; then
        compadd -- bash zsh
    elif [[ $command == config && -z $target ]]; then
        _files
    fi
}

if [[ $funcstack[1] == _app_workplace ]]; then
    _app_workplace "$@"
else
    compdef _app_workplace app_workplace
fi
)script");

/// 'text:description', as _describe takes it.
QString described(const CompletionFacts::Word& word)
{
    QString text = word.text;
    QString description = word.description;
    text.replace(QLatin1Char(':'), QLatin1String("\\:"));
    description.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    return shellQuoted(description.isEmpty() ? text : QStringLiteral("%1:%2").arg(text, description));
}

QString described(const QList<CompletionFacts::Word>& words)
{
    QStringList texts;
    for (const CompletionFacts::Word& word : words) {
        texts.append(described(word));
    }
    return texts.join(QLatin1String("\n        "));
}

QString valueAction(const QString& valueName)
{
    QStringList words;
    const QStringList alternatives = valueName.split(QLatin1Char('|'));
    for (const QString& alternative : alternatives) {
        if (alternative.toLower() == alternative) {
            words.append(shellQuoted(alternative));
        }
    }
    if (alternatives.contains(QLatin1String("PATH"))) {
        return QStringLiteral("_app_workplace_ports");
    }
    if (alternatives.contains(QLatin1String("DIR"))) {
        return QStringLiteral("_files -/");
    }
    if (alternatives.contains(QLatin1String("FILE"))) {
        return QStringLiteral("_files");
    }
    return words.isEmpty() ? QStringLiteral("_message %1").arg(shellQuoted(valueName))
                           : QStringLiteral("compadd -- %1").arg(words.join(QLatin1Char(' ')));
}

QString branch(const QString& pattern, const QString& action)
{
    return QStringLiteral("    (%1) %2 ;;\n").arg(pattern, action);
}

} // namespace

QString zshCompletion(const CompletionFacts& facts)
{
    QString values;
    QStringList taking;
    for (auto options = facts.valueOptions.cbegin(); options != facts.valueOptions.cend(); ++options) {
        values += branch(options->join(QLatin1Char('|')), valueAction(options.key()));
        taking += *options;
    }
    QString commandOptions;
    for (auto options = facts.commandOptions.cbegin(); options != facts.commandOptions.cend(); ++options) {
        if (!options->isEmpty()) {
            commandOptions +=
                branch(options.key(), QStringLiteral("options+=(") + described(*options) + QLatin1Char(')'));
        }
    }
    QList<CompletionFacts::Word> pluginCommands;
    QString parameters;
    for (const CompletionFacts::PluginCommand& command : facts.pluginCommands) {
        pluginCommands.append({command.name, command.description});
        if (!command.parameters.isEmpty()) {
            QStringList texts;
            for (const CompletionFacts::Word& value : command.parameterValues) {
                texts.append(shellQuoted(value.text));
            }
            parameters += branch(command.name, QStringLiteral("names=(") + described(command.parameters) +
                                                   QStringLiteral(") values=(") + texts.join(QLatin1Char(' ')) +
                                                   QLatin1Char(')'));
        }
    }
    QString script = c_script;
    script.replace(QLatin1String("%VALUES%"), values);
    script.replace(QLatin1String("%PARAMETERS%"), parameters);
    script.replace(QLatin1String("%GLOBAL%"), described(facts.globalOptions));
    script.replace(QLatin1String("%OPTIONS%"), commandOptions);
    script.replace(QLatin1String("%TAKING%"), taking.join(QLatin1Char('|')));
    script.replace(QLatin1String("%COMMANDS%"), described(facts.commands));
    return script.replace(QLatin1String("%PLUGIN_COMMANDS%"), described(pluginCommands));
}
