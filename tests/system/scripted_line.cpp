#include "scripted_line.h"

#include <cstdlib>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

ScriptedLine::ScriptedLine(const Answers& answers)
    : m_answers(answers), m_master(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
{
    ::grantpt(m_master);
    ::unlockpt(m_master);
    const QByteArray name = ::ptsname(m_master);
    m_port = QString::fromLocal8Bit(name);
    m_slave = ::open(name.constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios settings = {};
    ::tcgetattr(m_slave, &settings);
    ::cfmakeraw(&settings);
    ::tcsetattr(m_slave, TCSANOW, &settings);
    m_notifier = std::make_unique<QSocketNotifier>(m_master, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &ScriptedLine::read);
}

ScriptedLine::~ScriptedLine()
{
    m_notifier.reset();
    ::close(m_slave);
    ::close(m_master);
}

void ScriptedLine::read()
{
    char buffer[4096];
    const ssize_t size = ::read(m_master, buffer, sizeof(buffer));
    if (size <= 0) {
        return;
    }
    const QByteArray bytes(buffer, int(size));
    if (m_isRepeating) {
        send(bytes);
    }
    m_rest += bytes;
    for (int end = m_rest.indexOf("\r\n"); end >= 0; end = m_rest.indexOf("\r\n")) {
        const QByteArray frame = m_rest.left(end);
        m_rest.remove(0, end + 2);
        m_frames.append(frame);
        send(m_answers.value(frame, m_answers.value(QByteArray())));
    }
}

void ScriptedLine::send(const QByteArray& bytes) const
{
    if (!bytes.isEmpty() && ::write(m_master, bytes.constData(), size_t(bytes.size())) != bytes.size()) {
        qWarning("the pseudo-terminal does not take %d bytes", bytes.size());
    }
}

ScriptedLine::Answers ScriptedLine::goodAnswers()
{
    return {{"ATH", "ATH\r\n"},
            {"ATS", "RESP 02:00:00:00:00:01 TW60 2210 -61\r\n"},
            {"ATD 020000000001", "ATD 020000000001\r\nDATA\r\n"},
            {"DI:C", "OK:0\r\n"},
            {"DT:0", "OK:0\r\n"},
            {"DT:1", "OK:1\r\n"},
            {"SC:TL:2", "OK:2\r\n"},
            {"RE:1", "OK:1\r\n"},
            {"IDLE", "OK\r\n"},
            {"TR:C", "OK:UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1\r\n"},
            {"TR:N", "OK\r\n"}};
}
