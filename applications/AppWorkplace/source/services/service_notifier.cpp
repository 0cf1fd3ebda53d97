#include "service_notifier.h"

#include <QCoreApplication>

#include <cstddef>
#include <cstring>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr char c_socketVariable[] = "NOTIFY_SOCKET";
constexpr char c_intervalVariable[] = "WATCHDOG_USEC";
constexpr char c_processVariable[] = "WATCHDOG_PID";
constexpr qint64 c_microsecondsPerMillisecond = 1000;

/// 0: no watchdog, or not for this process.
qint64 watchdogIntervalMs()
{
    const QByteArray process = qgetenv(c_processVariable);
    const bool isForUs = process.isEmpty() || process.toLongLong() == QCoreApplication::applicationPid();
    return isForUs ? qgetenv(c_intervalVariable).toLongLong() / c_microsecondsPerMillisecond : 0;
}

} // namespace

ServiceNotifier::ServiceNotifier(QObject* parent) : QObject(parent), m_socket(qgetenv(c_socketVariable))
{
    m_watchdog.setTimerType(Qt::PreciseTimer);
    m_watchdog.setInterval(int(watchdogIntervalMs() / 2));
    connect(&m_watchdog, &QTimer::timeout, this, [this] { tell("WATCHDOG=1"); });
    for (const char* variable : {c_socketVariable, c_intervalVariable, c_processVariable}) {
        qunsetenv(variable);
    }
}

void ServiceNotifier::tell(const QByteArray& state) const
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (m_socket.isEmpty() || m_socket.size() >= int(sizeof(address.sun_path))) {
        return;
    }
    std::memcpy(address.sun_path, m_socket.constData(), std::size_t(m_socket.size()));
    if (address.sun_path[0] == '@') { // a name that is no file
        address.sun_path[0] = '\0';
    }
    const int file = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (file < 0) {
        return;
    }
    // A manager that does not listen is no reason to end.
    const auto size = socklen_t(offsetof(sockaddr_un, sun_path) + std::size_t(m_socket.size()));
    const ssize_t sent = ::sendto(file, state.constData(), std::size_t(state.size()), MSG_NOSIGNAL,
                                  reinterpret_cast<const sockaddr*>(&address), size);
    static_cast<void>(sent);
    ::close(file);
}

void ServiceNotifier::tellStatus(const QString& text) const
{
    QByteArray line;
    const QByteArray bytes = text.toUtf8();
    for (const char byte : bytes) {
        line += uchar(byte) < ' ' ? ' ' : byte;
    }
    tell("STATUS=" + line);
}

void ServiceNotifier::startWatchdog()
{
    if (m_watchdog.interval() > 0) {
        tell("WATCHDOG=1");
        m_watchdog.start();
    }
}
