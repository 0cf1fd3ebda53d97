#pragma once

#include <QByteArray>
#include <QString>

#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

/// The far end of a serial line: a pseudo-terminal whose near end is opened by its path.
class PseudoTerminal
{
public:
    PseudoTerminal() : m_master(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        ::grantpt(m_master);
        ::unlockpt(m_master);
        // Otherwise lines are echoed and CR is translated until somebody sets the near end up.
        termios settings = {};
        ::tcgetattr(m_master, &settings);
        ::cfmakeraw(&settings);
        ::tcsetattr(m_master, TCSANOW, &settings);
    }
    ~PseudoTerminal()
    {
        hangUp();
        if (m_reservation >= 0) {
            ::close(m_reservation);
        }
    }

    QString path() const { return QString::fromLocal8Bit(::ptsname(m_master)); }

    void send(const QByteArray& bytes) const
    {
        if (::write(m_master, bytes.constData(), static_cast<size_t>(bytes.size())) != bytes.size()) {
            qFatal("the pseudo-terminal does not take the bytes");
        }
    }

    /// What has arrived by now.
    QByteArray received() const
    {
        QByteArray bytes;
        pollfd file = {m_master, POLLIN, 0};
        char buffer[4096];
        while (::poll(&file, 1, 0) > 0 && (file.revents & POLLIN) != 0) {
            const ssize_t count = ::read(m_master, buffer, sizeof(buffer));
            if (count <= 0) {
                break;
            }
            bytes.append(buffer, static_cast<int>(count));
        }
        return bytes;
    }

    /// As if the adapter were pulled. The path is gone, and no other process gets it while the object lives: who looks
    /// for the line again would steal that one's bytes.
    void hangUp()
    {
        if (m_master >= 0) {
            m_reservation = ::open(::ptsname(m_master), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
            ::close(m_master);
            m_master = -1;
        }
    }

private:
    Q_DISABLE_COPY(PseudoTerminal)

    int m_master;
    int m_reservation = -1;
};
