#include "simulator_process.h"

#include <QElapsedTimer>
#include <QFile>

#include <array>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {
constexpr int c_patienceMs = 30000; // a long trace is checked before the line is ready, slowly under a sanitizer
constexpr size_t c_mostAtOnce = 4096;

/// What is there, once something is; empty: the line stayed silent, or was hung up.
QByteArray receiveNext(int descriptor, size_t most)
{
    pollfd poll{descriptor, POLLIN, 0};
    std::array<char, c_mostAtOnce> buffer{};
    if (::poll(&poll, 1, c_patienceMs) <= 0) {
        return {};
    }
    const ssize_t size = ::read(descriptor, buffer.data(), most);
    return size > 0 ? QByteArray(buffer.data(), static_cast<int>(size)) : QByteArray();
}
} // namespace

SimulatorProcess::~SimulatorProcess()
{
    m_process.terminate();
    m_process.waitForFinished();
}

bool SimulatorProcess::start(const QStringList& arguments, Console console)
{
    const QStringList common = console == Console::Yes ? QStringList(QStringLiteral("--console")) : QStringList();
    // Under the address sanitizer what was freed is kept for a while; not so much that it looks like a leak.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("quarantine_size_mb=1"));
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(SIMULATOR), common + arguments);
    const QString line = readLine();
    if (!line.startsWith(QStringLiteral("ready "))) {
        return false;
    }
    m_path = line.mid(6);
    return true;
}

QString SimulatorProcess::command(const char* text)
{
    m_process.write(QByteArray(text) + '\n');
    return readLine();
}

QString SimulatorProcess::readLine()
{
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(c_patienceMs)) {
            return {};
        }
    }
    return QString::fromLocal8Bit(m_process.readLine()).trimmed();
}

QByteArray receiveFrom(int descriptor, int bytes)
{
    QByteArray result;
    while (result.size() < bytes) {
        const QByteArray next = receiveNext(descriptor, c_mostAtOnce);
        if (next.isEmpty()) {
            break;
        }
        result += next;
    }
    return result;
}

OpenTerminal::OpenTerminal(const QString& path)
    : m_descriptor(::open(QFile::encodeName(path).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
{}

OpenTerminal::~OpenTerminal()
{
    if (isOpen()) {
        ::close(m_descriptor);
    }
}

void OpenTerminal::send(const QByteArray& frame)
{
    const QByteArray bytes = frame + "\r\n";
    if (::write(m_descriptor, bytes.constData(), static_cast<size_t>(bytes.size())) != bytes.size()) {
        qWarning("the terminal did not take %d bytes", bytes.size());
    }
}

QByteArray OpenTerminal::receiveLine()
{
    QByteArray line;
    while (!line.endsWith("\r\n")) {
        const QByteArray next = receiveNext(m_descriptor, 1);
        if (next.isEmpty()) {
            break;
        }
        line += next;
    }
    return line;
}

bool OpenTerminal::waitForHangUp()
{
    pollfd poll{m_descriptor, 0, 0};
    return ::poll(&poll, 1, c_patienceMs) == 1 && (poll.revents & POLLHUP) != 0;
}
