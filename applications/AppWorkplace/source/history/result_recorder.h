#pragma once

#include <QObject>
#include <QVector>

#include <optional>

#include "../services/problem.h"
#include "../services/tightening_result.h"
#include "history_record.h"
#include "reading_sequence.h"

class HistoryStore;

/// Stores the results of one wrench as they come, and tells of each of them once it is on the disk, never before. What
/// comes in one turn of the event loop is stored together.
class ResultRecorder : public QObject
{
    Q_OBJECT

public:
    /// Where the results come from, as it is stored with each.
    struct Origin
    {
        QString serialId;
        QString device;
        QString plugin;
    };

    /// The store is open for writing, and outlives the recorder.
    ResultRecorder(HistoryStore& store, Origin origin, QObject* parent = nullptr);

    /// Before the first result, for a wrench that lasts: its count goes on from the last session.
    std::optional<Problem> continueCount();

    /// False: it was told before and is no result of its own; only a note of it is kept.
    bool take(const TighteningResult& result);
    /// A chunk of input was heard while the session listens.
    void takeChunk(int number);
    /// The session's own commands may have heard chunks that the session has not.
    void forgetChunk() { m_sequence.forgetChunk(); }

    /// Stores what has come, and tells of it, before it returns.
    void flush();

    int good() const { return m_good; } ///< stored so far
    int notGood() const { return m_notGood; }
    /// After it nothing is stored any more.
    const std::optional<Problem>& failure() const { return m_failure; }

Q_SIGNALS:
    /// record: the entry of it in the history.
    void sigResult(const QVariantMap& eventData, const HistoryRecord& record);
    /// A gap or a repeat.
    void sigNote(const HistoryRecord& record);
    void sigFailed(const Problem& problem);

private:
    HistoryRecord recordAt(const QDateTime& arrival) const;
    HistoryRecord recordOf(const TighteningResult& result) const;
    void addGap(const ReadingSequence::Gap& gap, const QDateTime& arrival);
    void add(const HistoryRecord& record, const QVariantMap& eventData);

    HistoryStore& m_store;
    const Origin m_origin;
    ReadingSequence m_sequence;
    QVector<HistoryRecord> m_records; // what waits to be stored
    QVector<QVariantMap> m_eventData; // theirs
    int m_good = 0;
    int m_notGood = 0;
    std::optional<Problem> m_failure;
};
