#include "pseudo_terminal.h"

#include "raw_mode.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace {
QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}
} // namespace

PseudoTerminal::PseudoTerminal(QString linkPath) : m_linkPath(std::move(linkPath)) {}

PseudoTerminal::~PseudoTerminal()
{
    PseudoTerminal::close();
}

bool PseudoTerminal::open(QString* error)
{
    const QString advice =
        QStringLiteral("cannot make a pseudo-terminal: %1; check that /dev/pts is mounted and not full");
    m_master.reset(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    std::array<char, 64> name{};
    if (!m_master.isOpen() || ::grantpt(m_master.get()) != 0 || ::unlockpt(m_master.get()) != 0 ||
        ::ptsname_r(m_master.get(), name.data(), name.size()) != 0) {
        *error = advice.arg(systemError());
        close();
        return false;
    }
    m_path = QFile::decodeName(name.data());
    // Raw before anybody can open it by name, or the first lines would be echoed and their CR translated.
    if (!openSlave() || !makeRaw(m_slave.get())) {
        *error = advice.arg(systemError());
        close();
        return false;
    }
    m_hasReader = false;
    m_notify.reset(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!m_notify.isOpen() || !watchSlave()) {
        *error = QStringLiteral("cannot watch %1: %2; raise fs.inotify.max_user_instances or end other programs")
                     .arg(m_path, systemError());
        close();
        return false;
    }
    if (!makeLink(error)) {
        close();
        return false;
    }
    return true;
}

void PseudoTerminal::close()
{
    removeLink();
    m_notify.reset();
    m_slave.reset();
    m_master.reset();
    m_path.clear();
}

bool PseudoTerminal::hasReader()
{
    alignas(inotify_event) std::array<char, 4096> buffer{};
    quint32 seen = 0;
    ssize_t size = 0;
    while ((size = ::read(m_notify.get(), buffer.data(), buffer.size())) > 0) {
        for (size_t at = 0; at < static_cast<size_t>(size);) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof(event));
            at += sizeof(event) + event.len;
            seen |= event.mask;
        }
    }
    // Two equal events in a row may come as one, so openings cannot be counted against closings.
    if ((seen & IN_CLOSE) != 0) {
        m_hasReader = isOpenElsewhere();
        if (!m_hasReader) {
            becomeIdle();
        }
    } else if ((seen & IN_OPEN) != 0) {
        m_hasReader = true;
    }
    return m_hasReader;
}

bool PseudoTerminal::openSlave()
{
    m_slave.reset(::open(QFile::encodeName(m_path).constData(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    return m_slave.isOpen();
}

bool PseudoTerminal::watchSlave()
{
    m_watch = ::inotify_add_watch(m_notify.get(), QFile::encodeName(m_path).constData(), IN_OPEN | IN_CLOSE);
    return m_watch >= 0;
}

bool PseudoTerminal::isOpenElsewhere()
{
    // The master knows, but says so only while the slave is not held here.
    ::inotify_rm_watch(m_notify.get(), m_watch);
    int isExclusive = 0;
    ::ioctl(m_slave.get(), TIOCGEXCL, &isExclusive);
    ::ioctl(m_slave.get(), TIOCNXCL); // or it could not be opened again below
    m_slave.reset();
    pollfd master{m_master.get(), 0, 0};
    ::poll(&master, 1, 0);
    const bool isOpen = (master.revents & POLLHUP) == 0;
    openSlave();
    if (isOpen && isExclusive != 0) {
        ::ioctl(m_slave.get(), TIOCEXCL);
    }
    watchSlave();
    return isOpen;
}

void PseudoTerminal::becomeIdle()
{
    ::tcflush(m_slave.get(), TCIFLUSH);
    makeRaw(m_slave.get());
}

bool PseudoTerminal::makeLink(QString* error)
{
    if (m_linkPath.isEmpty()) {
        return true;
    }
    const QFileInfo existing(m_linkPath);
    if (existing.exists() && !existing.isSymLink()) {
        *error = QStringLiteral("--link %1: something that is no symbolic link is there already; "
                                "choose another path or remove it")
                     .arg(m_linkPath);
        return false;
    }
    // A link that a killed simulator left behind is replaced in one step.
    const QByteArray link = QFile::encodeName(m_linkPath);
    const QByteArray temporary = link + '.' + QByteArray::number(::getpid());
    if (::symlink(QFile::encodeName(m_path).constData(), temporary.constData()) != 0 ||
        ::rename(temporary.constData(), link.constData()) != 0) {
        *error = QStringLiteral("--link %1: cannot make the link: %2; choose a path in a folder that you may write to")
                     .arg(m_linkPath, systemError());
        ::unlink(temporary.constData());
        return false;
    }
    return true;
}

void PseudoTerminal::removeLink()
{
    // Not if somebody else has put his own there since.
    if (!m_linkPath.isEmpty() && !m_path.isEmpty() && QFile::symLinkTarget(m_linkPath) == m_path) {
        ::unlink(QFile::encodeName(m_linkPath).constData());
    }
}
