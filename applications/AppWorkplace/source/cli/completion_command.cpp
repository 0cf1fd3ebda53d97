#include "completion_command.h"

#include "completion_facts.h"

namespace {

const QString c_bash = QStringLiteral("bash");
const QString c_zsh = QStringLiteral("zsh");

std::unique_ptr<CliCommand> make(const CliContext& context, Problem* problem)
{
    if (context.arguments != QStringList{c_bash} && context.arguments != QStringList{c_zsh}) {
        *problem = {
            Problem::Kind::Usage,
            QStringLiteral("command line"),
            CompletionCommand::tr("for which shell is not said, or for one that is not known"),
            {},
            CompletionCommand::tr("write \"app_workplace completion bash\" or \"app_workplace completion zsh\"")};
        return nullptr;
    }
    return std::make_unique<CompletionCommand>(context);
}

} // namespace

CliEntry CompletionCommand::entry()
{
    return {QStringLiteral("completion"),
            QStringLiteral("bash|zsh"),
            tr("Prints the script that completes command lines in a shell."),
            {},
            &make};
}

CompletionCommand::CompletionCommand(const CliContext& context)
    : CliCommand(context)
    , m_entries(*context.entries)
    , m_workplace(context.settings)
    , m_isForZsh(context.arguments.first() == c_zsh)
{}

void CompletionCommand::start()
{
    if (const std::optional<Problem> problem = m_workplace.loadPlugins()) {
        tell(*problem);
        Q_EMIT sigDone(problem->exitStatus());
        return;
    }
    const CompletionFacts facts(m_entries, m_workplace.rootsOf(Workplace::Role::Device),
                                m_workplace.rootsOf(Workplace::Role::Driver));
    m_console.line((m_isForZsh ? zshCompletion(facts) : bashCompletion(facts)).trimmed());
    Q_EMIT sigDone(0);
}
