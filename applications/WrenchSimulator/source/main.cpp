#include "file_descriptor.h"
#include "options.h"
#include "replay_simulator.h"
#include "say.h"
#include "simulator.h"
#include "trace_reader.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <cstdio>
#include <functional>

#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {
constexpr int c_exitSetUp = 3;

/// From now on the signals come through the returned descriptor alone.
int takeSignals()
{
    sigset_t signals;
    ::sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGUSR1}) {
        ::sigaddset(&signals, signal);
    }
    ::sigprocmask(SIG_BLOCK, &signals, nullptr);
    std::signal(SIGPIPE, SIG_IGN); // who stops reading our standard output does not end us
    return ::signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
}
/// Shows the line until a signal, or the shell itself, ends the program. onUserSignal: what SIGUSR1 does.
template <class Shell>
int serve(Shell& shell, int signalPipe, const std::function<void()>& onUserSignal)
{
    QSocketNotifier signalNotifier(signalPipe, QSocketNotifier::Read);
    QObject::connect(&signalNotifier, &QSocketNotifier::activated, &shell, [&onUserSignal, signalPipe] {
        signalfd_siginfo signal{};
        while (::read(signalPipe, &signal, sizeof(signal)) == sizeof(signal)) {
            if (signal.ssi_signo == SIGUSR1) {
                onUserSignal();
            } else {
                QCoreApplication::quit();
            }
        }
    });
    QString error;
    if (!shell.start(&error)) {
        sayNote(error);
        return c_exitSetUp;
    }
    return QCoreApplication::exec();
}

int simulate(const Options& options, int signalPipe)
{
    Simulator simulator(options);
    return serve(simulator, signalPipe, [&simulator] { simulator.tightenOnce(); });
}

int replay(const Options& options, int signalPipe)
{
    TraceReader trace(options.replay.tracePath);
    if (!trace.check()) {
        sayNote(trace.error());
        return c_exitUsage;
    }
    ReplaySimulator simulator(options, trace);
    const int status = serve(simulator, signalPipe, [] {});
    return status == 0 ? simulator.finish() : status;
}
} // namespace

int main(int argc, char* argv[])
{
    const pid_t parent = ::getppid();
    const QCoreApplication application(argc, argv);
    const ParsedOptions parsed = parseOptions(QCoreApplication::arguments());
    switch (parsed.outcome) {
    case ParsedOptions::Outcome::Run:
        break;
    case ParsedOptions::Outcome::Explain:
        std::fputs(parsed.text.toLocal8Bit().constData(), stdout);
        return 0;
    case ParsedOptions::Outcome::Refuse:
        sayNote(parsed.text);
        return c_exitUsage;
    }

    const FileDescriptor signalPipe(takeSignals());
    if (parsed.options.exitsWithParent) {
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (::getppid() != parent) {
            return 0; // it ended before it could be watched
        }
    }

    const bool isReplay = !parsed.options.replay.tracePath.isEmpty();
    return isReplay ? replay(parsed.options, signalPipe.get()) : simulate(parsed.options, signalPipe.get());
}
