#include "line_port.h"

#include <array>
#include <cerrno>
#include <utility>

#include <unistd.h>

LinePort::LinePort(std::unique_ptr<Terminal> terminal, LineSpeed speed, QObject* parent)
    : QObject(parent), m_terminal(std::move(terminal)), m_speed(speed)
{}

LinePort::~LinePort()
{
    close();
}

bool LinePort::open(QString* error)
{
    if (!m_terminal->open(error)) {
        return false;
    }
    m_readNotifier = makeNotifier(m_terminal->descriptor(), QSocketNotifier::Read, &LinePort::readAll);
    m_writeNotifier = makeNotifier(m_terminal->descriptor(), QSocketNotifier::Write, &LinePort::writeRest);
    m_writeNotifier->setEnabled(false);
    if (m_terminal->readerWatch() >= 0) {
        m_readerNotifier = makeNotifier(m_terminal->readerWatch(), QSocketNotifier::Read, &LinePort::readersChanged);
    }
    return true;
}

void LinePort::close()
{
    // May be called from within a notifier's own signal.
    for (auto* notifier : {&m_readNotifier, &m_writeNotifier, &m_readerNotifier}) {
        if (*notifier) {
            (*notifier)->setEnabled(false);
            notifier->release()->deleteLater();
        }
    }
    m_rest.clear();
    m_terminal->close();
}

void LinePort::write(const QByteArray& chunk)
{
    m_rest = m_speed.through(m_terminal->descriptor(), chunk);
    writeRest();
}

std::unique_ptr<QSocketNotifier> LinePort::makeNotifier(int descriptor, QSocketNotifier::Type type,
                                                        void (LinePort::*slot)())
{
    auto notifier = std::make_unique<QSocketNotifier>(descriptor, type);
    connect(notifier.get(), &QSocketNotifier::activated, this, slot);
    return notifier;
}

void LinePort::readAll()
{
    std::array<char, 4096> buffer{};
    const ssize_t size = ::read(m_terminal->descriptor(), buffer.data(), buffer.size());
    if (size > 0) {
        Q_EMIT received(m_speed.through(m_terminal->descriptor(), QByteArray(buffer.data(), static_cast<int>(size))));
    } else if (size == 0 || (errno != EAGAIN && errno != EINTR)) {
        hangUp();
    }
}

void LinePort::readersChanged()
{
    if (!forgetUnread()) {
        Q_EMIT heard();
    }
}

bool LinePort::forgetUnread()
{
    if (m_terminal->hasReader()) {
        return false;
    }
    m_rest.clear();
    m_writeNotifier->setEnabled(false);
    Q_EMIT unread();
    return true;
}

void LinePort::writeRest()
{
    if (forgetUnread()) {
        return;
    }
    const bool wasBlocked = m_writeNotifier->isEnabled();
    while (!m_rest.isEmpty()) {
        const ssize_t size = ::write(m_terminal->descriptor(), m_rest.constData(), static_cast<size_t>(m_rest.size()));
        if (size > 0) {
            m_rest.remove(0, static_cast<int>(size));
        } else if (errno == EAGAIN) {
            break;
        } else if (errno != EINTR) {
            hangUp();
            return;
        }
    }
    m_writeNotifier->setEnabled(!m_rest.isEmpty());
    if (wasBlocked && m_rest.isEmpty()) {
        Q_EMIT writable();
    }
}

void LinePort::hangUp()
{
    close();
    Q_EMIT hungUp();
}
