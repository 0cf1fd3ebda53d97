#include "history_period.h"

#include <QDateTime>

#include "../services/moment.h"

namespace {

constexpr qint64 c_usPerMs = 1000;
constexpr int c_week = 7;
constexpr int c_month = 30;

} // namespace

HistoryPeriod::HistoryPeriod(QObject* parent) : QObject(parent)
{
    m_nextDay.setSingleShot(true);
    m_nextDay.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_nextDay, &QTimer::timeout, this, &HistoryPeriod::changed);
}

void HistoryPeriod::setKind(Kind kind)
{
    if (kind != m_kind) {
        m_kind = kind;
        changed();
    }
}

void HistoryPeriod::setSince(const QString& since)
{
    if (since.trimmed() != m_since) {
        m_since = since.trimmed();
        changed();
    }
}

void HistoryPeriod::setUntil(const QString& until)
{
    if (until.trimmed() != m_until) {
        m_until = until.trimmed();
        changed();
    }
}

std::optional<qint64> HistoryPeriod::sinceUs() const
{
    switch (m_kind) {
    case Kind::All:
        return std::nullopt;
    case Kind::Today:
        return dayUs(0);
    case Kind::Yesterday:
        return dayUs(-1);
    case Kind::LastSevenDays:
        return dayUs(1 - c_week);
    case Kind::LastThirtyDays:
        return dayUs(1 - c_month);
    case Kind::Between:
        return from();
    }
    return std::nullopt;
}

std::optional<qint64> HistoryPeriod::untilUs() const
{
    return m_kind == Kind::Yesterday ? dayUs(0) : m_kind == Kind::Between ? to() : std::nullopt;
}

std::optional<qint64> HistoryPeriod::from() const
{
    return momentOf(m_since, false);
}

std::optional<qint64> HistoryPeriod::to() const
{
    return momentOf(m_until, true);
}

// Days that go along with the calendar are others after midnight; nothing else wakes for it.
void HistoryPeriod::changed()
{
    if (m_kind == Kind::All || m_kind == Kind::Between) {
        m_nextDay.stop();
    } else {
        const qint64 ms = dayUs(1) / c_usPerMs - QDateTime::currentMSecsSinceEpoch();
        constexpr int c_lateMs = 2000; // a coarse timer may be early by less
        m_nextDay.start(int(ms) + c_lateMs);
    }
    Q_EMIT sigChanged();
}

qint64 HistoryPeriod::dayUs(int daysFromToday)
{
    return QDate::currentDate().addDays(daysFromToday).startOfDay().toMSecsSinceEpoch() * c_usPerMs;
}
