#include "completion_facts.h"

namespace {

const QString c_script =
    QStringLiteral(R"script(# bash completion for app_workplace; made by "app_workplace completion bash".

# Offers the words that begin as the current one does; a word that ends with "=" is gone on with.
_app_workplace_offer() {
    local word
    while IFS= read -r word; do
        [[ $word == *= ]] && compopt -o nospace 2>/dev/null
        # Of a word with "=" bash replaces only what is behind it, where it takes the two apart.
        if [[ $cur == *=* && $COMP_WORDBREAKS == *=* ]]; then
            word=${word#"${cur%%=*}="}
        fi
        COMPREPLY+=("$word")
    done < <(compgen -W "$1" -- "$cur")
}

_app_workplace_ports() {
    local port
    printf 'simulated\n'
    for port in /dev/serial/by-id/* /dev/ttyUSB* /dev/ttyACM* /dev/ttyS[0-9]*; do
        [[ -e $port ]] && printf '%s\n' "$port"
    done
}

# Offers the values of an option. Fails for one that takes none.
_app_workplace_value() {
    local cur=$2
    case $1 in
%VALUES%    *) return 1 ;;
    esac
}

_app_workplace_parameters() {
    case $1 in
%PARAMETERS%    esac
}

_app_workplace_options() {
    printf '%s ' %GLOBAL%
    case $1 in
%OPTIONS%    esac
}

_app_workplace() {
    local -a words=()
    local word command="" target="" is_glued="" cur
    local -i i
    COMPREPLY=()
    # What bash takes apart at "=" is one word to the program.
    for ((i = 1; i <= COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        if [[ ${#words[@]} -gt 0 && ($word == "=" || -n $is_glued) ]]; then
            words[-1]+=$word
        else
            words+=("$word")
        fi
        [[ $word == "=" ]] && is_glued=yes || is_glued=""
    done
    cur=${words[-1]}
    for ((i = 0; i < ${#words[@]} - 1; ++i)); do
        case ${words[i]} in
        --*=*) ;;
        %TAKING%)
            if ((i == ${#words[@]} - 2)); then
                _app_workplace_value "${words[i]}" "$cur"
                return
            fi
            ((++i))
            ;;
        -*) ;;
        *)
            if [[ -z $command ]]; then
                command=${words[i]}
            elif [[ -z $target ]]; then
                target=${words[i]}
            fi
            ;;
        esac
    done

    if [[ $cur == --*=* ]]; then
        _app_workplace_value "${cur%%=*}" "${cur#*=}"
    elif [[ $cur == -* ]]; then
        _app_workplace_offer "$(_app_workplace_options "$command")"
    elif [[ -z $command ]]; then
        _app_workplace_offer %COMMANDS%
    elif [[ $command == run && -n $target ]]; then
        _app_workplace_offer "$(_app_workplace_parameters "$target")"
    elif [[ ($command == run || $command == commands) && -z $target ]]; then
        _app_workplace_offer %PLUGIN_COMMANDS%
    elif [[ $command == completion && -z $target ]]; then
        _app_workplace_offer 'bash zsh'
    elif [[ $command == config && -z $target ]]; then
        mapfile -t COMPREPLY < <(compgen -f -- "$cur")
    fi
}

complete -F _app_workplace app_workplace
)script");

QStringList textsOf(const QList<CompletionFacts::Word>& words)
{
    QStringList texts;
    for (const CompletionFacts::Word& word : words) {
        texts.append(word.text);
    }
    return texts;
}

/// What stands between the dashes of an option and completes its value.
QString valueAction(const QString& valueName)
{
    QStringList words;
    const QStringList alternatives = valueName.split(QLatin1Char('|'));
    for (const QString& alternative : alternatives) {
        if (alternative.toLower() == alternative) {
            words.append(alternative);
        }
    }
    if (alternatives.contains(QLatin1String("PATH"))) {
        return QStringLiteral("_app_workplace_offer \"$(_app_workplace_ports)\"");
    }
    if (alternatives.contains(QLatin1String("DIR"))) {
        return QStringLiteral("mapfile -t COMPREPLY < <(compgen -d -- \"$cur\")");
    }
    if (alternatives.contains(QLatin1String("FILE"))) {
        return QStringLiteral("mapfile -t COMPREPLY < <(compgen -f -- \"$cur\")");
    }
    return QStringLiteral("_app_workplace_offer %1").arg(shellQuoted(words.join(QLatin1Char(' '))));
}

QString branch(const QString& pattern, const QString& action)
{
    return QStringLiteral("    %1) %2 ;;\n").arg(pattern, action);
}

} // namespace

QString bashCompletion(const CompletionFacts& facts)
{
    QString values;
    QStringList taking;
    for (auto options = facts.valueOptions.cbegin(); options != facts.valueOptions.cend(); ++options) {
        values += branch(options->join(QLatin1String(" | ")), valueAction(options.key()));
        taking += *options;
    }
    QString commandOptions;
    for (auto options = facts.commandOptions.cbegin(); options != facts.commandOptions.cend(); ++options) {
        if (!options->isEmpty()) {
            commandOptions +=
                branch(options.key(), QStringLiteral("printf '%s ' ") + textsOf(*options).join(QLatin1Char(' ')));
        }
    }
    QStringList commands;
    QString parameters;
    for (const CompletionFacts::PluginCommand& command : facts.pluginCommands) {
        commands.append(command.name);
        const QStringList words = textsOf(command.parameters + command.parameterValues);
        if (!words.isEmpty()) {
            parameters += branch(command.name,
                                 QStringLiteral("[[ $cur == *=* ]] && printf '%s ' %1 || printf '%s ' %2")
                                     .replace(QLatin1String("%1"), words.join(QLatin1Char(' ')))
                                     .replace(QLatin1String("%2"), textsOf(command.parameters).join(QLatin1Char(' '))));
        }
    }
    QString script = c_script;
    script.replace(QLatin1String("%VALUES%"), values);
    script.replace(QLatin1String("%PARAMETERS%"), parameters);
    script.replace(QLatin1String("%GLOBAL%"), textsOf(facts.globalOptions).join(QLatin1Char(' ')));
    script.replace(QLatin1String("%OPTIONS%"), commandOptions);
    script.replace(QLatin1String("%TAKING%"), taking.join(QLatin1String(" | ")));
    script.replace(QLatin1String("%COMMANDS%"), shellQuoted(textsOf(facts.commands).join(QLatin1Char(' '))));
    return script.replace(QLatin1String("%PLUGIN_COMMANDS%"), shellQuoted(commands.join(QLatin1Char(' '))));
}
