#include "interrupts.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

int g_pipe[2] = {-1, -1};
volatile std::sig_atomic_t g_count = 0;

constexpr int c_signals[] = {SIGINT, SIGTERM, SIGHUP};
constexpr int c_killedBySignal = 128;

// Only what may be done in a signal handler: a byte into the pipe that the event loop watches.
void onSignal(int number)
{
    if (++g_count > 1) {
        _exit(c_killedBySignal + number);
    }
    const char byte = 0;
    const ssize_t written = write(g_pipe[1], &byte, 1);
    static_cast<void>(written);
}

} // namespace

Interrupts::Interrupts(QObject* parent) : QObject(parent)
{
    if (pipe2(g_pipe, O_CLOEXEC | O_NONBLOCK) != 0) {
        return; // the signals keep their usual effect
    }
    m_notifier = std::make_unique<QSocketNotifier>(g_pipe[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        while (read(g_pipe[0], &byte, 1) > 0) {
        }
        Q_EMIT sigInterrupted();
    });
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    for (const int number : c_signals) {
        sigaction(number, &action, nullptr);
    }
    // A reader that goes away and a file that may not grow are noticed by the writing itself.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

Interrupts::~Interrupts()
{
    for (const int number : c_signals) {
        std::signal(number, SIG_DFL);
    }
    m_notifier.reset();
    for (int& end : g_pipe) {
        close(end);
        end = -1;
    }
}
