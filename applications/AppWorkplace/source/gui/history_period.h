#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <optional>

/// The time that is looked at: days that go along with the calendar, or from one moment to another.
class HistoryPeriod : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Kind kind READ kind WRITE setKind NOTIFY sigChanged)
    /// As a person writes them, see momentOf(); empty: no bound. They count when the kind is Between.
    Q_PROPERTY(QString since READ since WRITE setSince NOTIFY sigChanged)
    Q_PROPERTY(QString until READ until WRITE setUntil NOTIFY sigChanged)
    Q_PROPERTY(bool isSinceRight READ isSinceRight NOTIFY sigChanged)
    Q_PROPERTY(bool isUntilRight READ isUntilRight NOTIFY sigChanged)

public:
    enum class Kind { All, Today, Yesterday, LastSevenDays, LastThirtyDays, Between };
    Q_ENUM(Kind)

    explicit HistoryPeriod(QObject* parent = nullptr);

    Kind kind() const { return m_kind; }
    void setKind(Kind kind);
    QString since() const { return m_since; }
    void setSince(const QString& since);
    QString until() const { return m_until; }
    void setUntil(const QString& until);
    bool isSinceRight() const { return m_since.isEmpty() || from(); }
    bool isUntilRight() const { return m_until.isEmpty() || to(); }

    /// Microseconds since 1970-01-01 UTC; none: no bound, or one that is written wrongly.
    std::optional<qint64> sinceUs() const;
    std::optional<qint64> untilUs() const;

Q_SIGNALS:
    void sigChanged();

private:
    std::optional<qint64> from() const;
    std::optional<qint64> to() const;
    void changed();
    static qint64 dayUs(int daysFromToday);

    Kind m_kind = Kind::All;
    QString m_since;
    QString m_until;
    QTimer m_nextDay;
};
