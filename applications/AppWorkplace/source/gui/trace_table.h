#pragma once

#include <QAbstractListModel>
#include <QDateTime>
#include <QTimer>

#include <deque>

#include "../services/problem.h"
#include "trace_feed.h"
#include "trace_store.h"

/// What is said on a device's line, while it is said: one row for each entry of the driver's trace, the newest last.
/// It is kept in bounds, and what had to go is told with its number: of what is shown the oldest goes; while it is
/// paused the rows stay as they are, and what comes waits, of that the oldest goes, too. What is saved is a trace as
/// the driver writes it, with all that is kept, whatever is filtered.
class TraceTable : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(bool isOn READ isOn WRITE setOn NOTIFY isOnChanged)
    Q_PROPERTY(bool isHearing READ isHearing NOTIFY isHearingChanged)
    Q_PROPERTY(bool isPaused READ isPaused WRITE setPaused NOTIFY isPausedChanged)
    Q_PROPERTY(int shown READ shown NOTIFY countsChanged)
    Q_PROPERTY(int kept READ kept NOTIFY countsChanged)
    Q_PROPERTY(int waiting READ waiting NOTIFY countsChanged)
    Q_PROPERTY(qlonglong dropped READ dropped NOTIFY countsChanged)
    Q_PROPERTY(bool showsSent READ showsSent WRITE setShowsSent NOTIFY filterChanged)
    Q_PROPERTY(bool showsArrived READ showsArrived WRITE setShowsArrived NOTIFY filterChanged)
    Q_PROPERTY(bool showsRemarks READ showsRemarks WRITE setShowsRemarks NOTIFY filterChanged)
    Q_PROPERTY(QString filterText READ filterText WRITE setFilterText NOTIFY filterChanged)
    Q_PROPERTY(QString savedFile READ savedFile NOTIFY savedChanged)
    Q_PROPERTY(bool hasProblem READ hasProblem NOTIFY savedChanged)
    Q_PROPERTY(QString problemWhat READ problemWhat NOTIFY savedChanged)
    Q_PROPERTY(QString problemCause READ problemCause NOTIFY savedChanged)
    Q_PROPERTY(QString problemMend READ problemMend NOTIFY savedChanged)

public:
    enum Roles {
        Moment = Qt::UserRole + 1, ///< seconds with six decimals, a text
        Direction,                 ///< "sent", "arrived" or "remark"
        Text                       ///< with codes for what cannot be seen; the beginning of one that is very long
    };

    static constexpr int c_mostShownCharacters = 2000; ///< of one entry

    /// folder: where traces are saved when only a name is given.
    explicit TraceTable(const QString& folder, QObject* parent = nullptr);

    /// The line to hear; nulls: there is none now. What was heard of another stays.
    void setLine(DHost* host, DAbstractPlugin* driver) { m_feed.setLine(host, driver); }

    bool isOn() const { return m_feed.isOn(); }
    void setOn(bool isOn);
    bool isHearing() const { return m_feed.isHearing(); }
    bool isPaused() const { return m_isPaused; }
    void setPaused(bool isPaused);
    int shown() const { return int(m_shown.size()); } ///< by the filter
    int kept() const { return m_entries.size() + m_waiting.size(); }
    int waiting() const { return m_isPaused ? m_waiting.size() : 0; } ///< until it goes on
    qint64 dropped() const { return m_entries.taken() + m_droppedWaiting + m_waiting.taken(); }
    bool showsSent() const { return m_shows[int(TraceEntry::Direction::Sent)]; }
    bool showsArrived() const { return m_shows[int(TraceEntry::Direction::Arrived)]; }
    bool showsRemarks() const { return m_shows[int(TraceEntry::Direction::Remark)]; }
    void setShowsSent(bool shows) { setShows(TraceEntry::Direction::Sent, shows); }
    void setShowsArrived(bool shows) { setShows(TraceEntry::Direction::Arrived, shows); }
    void setShowsRemarks(bool shows) { setShows(TraceEntry::Direction::Remark, shows); }
    QString filterText() const { return m_filterText; }
    /// Rows that hold the text only, whatever its case; empty: all.
    void setFilterText(const QString& text);
    QString savedFile() const { return m_savedFile; } ///< the last one; empty: none, or it failed
    bool hasProblem() const { return !m_problem.what.isEmpty(); }
    QString problemWhat() const { return m_problem.what; }
    QString problemCause() const { return m_problem.cause; }
    QString problemMend() const { return m_problem.mend; }

    /// A name for a file that holds what is kept now.
    Q_INVOKABLE QString suggestedFile() const;
    /// Writes a file that is not there yet: a name in the folder for traces, or a whole path. False: a problem.
    Q_INVOKABLE bool save(const QString& file);
    /// Forgets what is kept, and how much was dropped.
    Q_INVOKABLE void clear();
    Q_INVOKABLE void forgetProblem();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void isOnChanged();
    void isHearingChanged();
    void isPausedChanged();
    void countsChanged();
    void filterChanged();
    void savedChanged();

private:
    void begin(const QByteArray& line);
    void hear(const QByteArray& line);
    void keep(const TraceEntry& entry);
    void showWaiting();
    void dropOldest();
    bool passes(const TraceEntry& entry) const;
    void setShows(TraceEntry::Direction direction, bool shows);
    void filterAnew();
    bool fail(const QString& what, const QString& cause, const QString& mend);
    QByteArray trace() const;

    const QString m_folder;
    TraceFeed m_feed;
    QByteArray m_firstLine; // of the first trace that was heard
    QDateTime m_began;      // its moment 0
    qint64 m_offsetUs = 0;  // of the moments of the trace that is heard now
    qint64 m_lastMomentUs = 0;
    TraceStore m_entries;
    std::deque<qint64> m_shown;  // the numbers of those that pass the filter
    TraceStore m_waiting;        // not among them yet
    qint64 m_droppedWaiting = 0; // of earlier ones
    QTimer m_showTimer;
    bool m_isPaused = false;
    bool m_shows[3] = {true, true, true};
    QString m_filterText;
    QString m_savedFile;
    Problem m_problem;
};
