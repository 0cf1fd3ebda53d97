#include <QCoreApplication>
#include <QTimer>

#include <cstdio>
#include <memory>

#include "cli/all_commands.h"
#include "cli/command_line.h"
#include "cli/console.h"
#include "cli/interrupts.h"

namespace {

/// Log lines for people. Traces are for who asks for them: the plugins write one for each instance.
void writeLog(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    static const bool isTraced = qEnvironmentVariableIsSet("WORKPLACE_DEBUG");
    if (type == QtDebugMsg && !isTraced) {
        return;
    }
    const QByteArray line = Console::visible(message.trimmed()).toUtf8();
    std::fprintf(stderr, "%s: %s\n", context.category, line.constData());
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("haitor-workplace"));
    qInstallMessageHandler(&writeLog);

    const QList<CliEntry> entries = allCommands();
    const Invocation invocation = readCommandLine(QCoreApplication::arguments(), entries);
    Console console(stdout, stderr, invocation.isJson);
    if (!invocation.help.isEmpty()) {
        console.line(invocation.help);
        return 0;
    }
    Problem problem;
    std::unique_ptr<CliCommand> command = invocation.make(console, entries, &problem);
    if (!problem.what.isEmpty()) {
        tellProblem(console, problem);
        return problem.exitStatus();
    }

    const Interrupts interrupts;
    QObject::connect(&interrupts, &Interrupts::sigInterrupted, command.get(), &CliCommand::interrupt);
    // Queued: a command that ends at once would end a loop that does not run yet.
    QObject::connect(command.get(), &CliCommand::sigDone, &application, &QCoreApplication::exit, Qt::QueuedConnection);
    QTimer::singleShot(0, command.get(), &CliCommand::start);
    const int exitStatus = QCoreApplication::exec();
    command.reset();
    // What was left to the event loop to delete; it no longer runs.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return exitStatus == 0 && console.hasLost() ? int(Problem::Kind::SetUp) : exitStatus;
}
