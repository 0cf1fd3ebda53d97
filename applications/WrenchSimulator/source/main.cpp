#include "file_descriptor.h"
#include "options.h"
#include "say.h"
#include "simulator.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <cstdio>

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

    Simulator simulator(parsed.options);
    QSocketNotifier signalNotifier(signalPipe.get(), QSocketNotifier::Read);
    QObject::connect(&signalNotifier, &QSocketNotifier::activated, &simulator, [&simulator, &signalPipe] {
        signalfd_siginfo signal{};
        while (::read(signalPipe.get(), &signal, sizeof(signal)) == sizeof(signal)) {
            if (signal.ssi_signo == SIGUSR1) {
                simulator.tightenOnce();
            } else {
                QCoreApplication::quit();
            }
        }
    });
    QString error;
    if (!simulator.start(&error)) {
        sayNote(error);
        return c_exitSetUp;
    }
    return QCoreApplication::exec();
}
