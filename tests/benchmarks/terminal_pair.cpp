#include "terminal_pair.h"

#include <QtGlobal>

#include <cstdlib>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

TerminalPair::TerminalPair() : m_master(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
{
    if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0) {
        qFatal("no pseudo-terminal is to be had");
    }
    termios settings{};
    tcgetattr(m_master, &settings);
    cfmakeraw(&settings);
    tcsetattr(m_master, TCSANOW, &settings);
}

TerminalPair::~TerminalPair()
{
    close(m_master);
}

QString TerminalPair::path() const
{
    return QString::fromLocal8Bit(ptsname(m_master));
}
