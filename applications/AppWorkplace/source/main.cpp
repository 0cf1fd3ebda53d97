#include <QCoreApplication>
#include <QTimer>

#include <cstdio>
#include <memory>

#include "cli/all_commands.h"
#include "cli/command_line.h"
#include "cli/console.h"
#include "cli/interrupts.h"
#include "cli/log_lines.h"
#include "gui/gui_command.h"
#include "gui/window_display.h"
#include "services/language.h"
#include "services/simulated_wrench.h"
#include "services/translations.h"

namespace {

Console::Manner mannerOf(const Settings& settings)
{
    return settings.isQuiet     ? Console::Manner::Quiet
           : settings.isVerbose ? Console::Manner::Verbose
                                : Console::Manner::Usual;
}

void tellWhatIsInUse(Console& console, const Invocation& invocation)
{
    console.remark(QCoreApplication::translate("Main", "app_workplace %1").arg(QCoreApplication::applicationVersion()));
    console.remark(
        invocation.settings.configurationFile.isEmpty()
            ? QCoreApplication::translate("Main", "no configuration file")
            : QCoreApplication::translate("Main", "configuration file %1").arg(invocation.settings.configurationFile));
}

/// With windows only for the command that shows one, and only where one can be shown: the others work on any machine.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv, const QList<CliEntry>& entries,
                                                  std::optional<Problem>* noDisplay)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    bool isHeadless = false;
    if (commandOnCommandLine(arguments, entries, QStringLiteral("screenshot"), &isHeadless) ==
        GuiCommand::entry().name) {
        *noDisplay = isHeadless ? std::nullopt : window_display::missing();
        if (!*noDisplay) {
            return window_display::makeApplication(argc, argv, isHeadless);
        }
    }
    return std::make_unique<QCoreApplication>(argc, argv);
}

QList<CliEntry> entriesWithWindow()
{
    QList<CliEntry> entries = allCommands();
    entries.insert(1, GuiCommand::entry());
    return entries;
}

/// The status that the program ends with: who misses results is told, whatever else went well.
int endOf(const Console& console, int exitStatus)
{
    return exitStatus == 0 && console.hasLost() ? int(Problem::Kind::SetUp) : exitStatus;
}

} // namespace

int main(int argc, char* argv[])
{
    std::optional<Problem> noDisplay;
    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv, entriesWithWindow(), &noDisplay);
    QCoreApplication::setApplicationName(QStringLiteral("haitor-workplace"));
    QCoreApplication::setApplicationVersion(QStringLiteral(WORKPLACE_VERSION));
    log_lines::show(false);

    // The help and what is wrong with the command line are texts, too.
    translations::install(language::choose(languageOnCommandLine(QCoreApplication::arguments())).name);
    const QList<CliEntry> entries = entriesWithWindow();
    Invocation invocation = readCommandLine(QCoreApplication::arguments(), entries);
    Console console(stdout, stderr, invocation.isJson, mannerOf(invocation.settings));
    if (!invocation.help.isEmpty()) {
        console.line(invocation.help);
        return endOf(console, 0);
    }
    translations::install(language::choose(invocation.settings).name);
    log_lines::show(invocation.settings.isVerbose);
    const std::optional<Problem> noWrench =
        invocation.problem.what.isEmpty() ? findSimulatedWrench(invocation.settings) : std::nullopt;
    Problem problem;
    std::unique_ptr<CliCommand> command = invocation.make(console, entries, &problem);
    if (problem.what.isEmpty() && noDisplay) {
        problem = window_display::missing().value_or(*noDisplay); // in the language that is known by now
    }
    if (!problem.what.isEmpty()) {
        // Why there is no wrench says more than that there is none.
        problem = noWrench.value_or(problem);
        tellProblem(console, problem);
        return problem.exitStatus();
    }
    tellWhatIsInUse(console, invocation);

    const Interrupts interrupts;
    QObject::connect(&interrupts, &Interrupts::sigInterrupted, command.get(), &CliCommand::interrupt);
    // Queued: a command that ends at once would end a loop that does not run yet.
    QObject::connect(command.get(), &CliCommand::sigDone, application.get(), &QCoreApplication::exit,
                     Qt::QueuedConnection);
    QTimer::singleShot(0, command.get(), &CliCommand::start);
    int exitStatus = QCoreApplication::exec();
    command.reset();
    // What was left to the event loop to delete; it no longer runs.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    exitStatus = endOf(console, exitStatus);
    console.remark(QCoreApplication::translate("Main", "%1 ended after %2 s with exit status %3")
                       .arg(invocation.entry->name, QLocale().toString(log_lines::secondsSinceStart(), 'f', 3))
                       .arg(exitStatus));
    return exitStatus;
}
