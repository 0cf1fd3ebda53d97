#include "dongle_port.h"

#include <QFile>

#include <utility>

DonglePort::DonglePort(const QStringList& options, ManualClock& clock, LineRecord& record)
    : m_clock(clock), m_record(record), m_dongle(options, *this)
{
    DonglePort::pluggedIn();
}

DonglePort::~DonglePort()
{
    *m_isAlive = false;
}

QString DonglePort::open(const LineSettings&)
{
    advance();
    if (!isPlugged()) {
        return QStringLiteral("The simulated port is not there: plug the adapter in.");
    }
    m_isOpen = true;
    ++m_opening;
    m_record.entries.append({LineRecord::Kind::Opened, m_clock.nowUs(), {}});
    return {};
}

void DonglePort::close()
{
    if (std::exchange(m_isOpen, false)) {
        m_record.entries.append({LineRecord::Kind::Closed, m_clock.nowUs(), {}});
    }
}

void DonglePort::write(const QByteArray& bytes)
{
    m_record.entries.append({LineRecord::Kind::Sent, m_clock.nowUs(), bytes});
    later([this] { m_observer->bytesLeft(); });
    m_dongle.receive(bytes, m_clock.nowUs());
}

void DonglePort::chunkArrived(const QByteArray& chunk)
{
    later([this, chunk] {
        m_record.entries.append({LineRecord::Kind::Arrived, m_clock.nowUs(), chunk});
        m_observer->bytesArrived(chunk);
    });
}

void DonglePort::pluggedIn()
{
    QFile file(DonglePort::file());
    if (!file.open(QIODevice::WriteOnly)) {
        qFatal("the simulated port has no file: %s", qPrintable(file.errorString()));
    }
}

void DonglePort::pulled()
{
    QFile::remove(file());
    later([this] {
        m_isOpen = false;
        m_record.entries.append({LineRecord::Kind::Pulled, m_clock.nowUs(), {}});
        m_observer->portFailed(QStringLiteral("The simulated port went away: plug the adapter in again."));
    });
}

void DonglePort::later(Clock::Action action)
{
    m_clock.callAfter(0, [this, isAlive = m_isAlive, opening = m_opening, action = std::move(action)] {
        if (*isAlive && m_isOpen && m_opening == opening && m_observer != nullptr) {
            action();
        }
    });
}
