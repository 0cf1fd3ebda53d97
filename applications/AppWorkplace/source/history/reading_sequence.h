#pragma once

#include <QStringList>

#include <optional>

/// Tells from the counters of one wrench's results what was not heard and what was heard twice. docs/history.md says
/// what can be told and what cannot.
class ReadingSequence
{
public:
    /// So many of the last readings are known again when they are repeated.
    static constexpr int c_remembered = 64;

    struct Gap
    {
        QString counter; ///< "readingNumber" or "eventCountNo"
        qint64 before = 0;
        qint64 after = 0;
    };
    struct Outcome
    {
        bool isRepeat = false;
        std::optional<Gap> gap; ///< before this reading
    };

    /// The wrench's last reading in an earlier session; null: none is known.
    void continueFrom(const QString& readingNumber);

    /// reading: the seven entries that the wrench sent, as texts, the number among them. After a reconnection repeats
    /// are looked for until a reading comes that is none.
    Outcome take(const QStringList& reading, const QString& readingNumber, bool isAfterReconnection);

    /// A chunk of input was heard, by a listener that hears all of them while nobody else joins it.
    std::optional<Gap> takeChunk(int number);
    /// Somebody may have joined: the next chunk may have any number.
    void forgetChunk() { m_lastChunk.reset(); }

private:
    static std::optional<qint64> numberOf(const QString& text);

    std::optional<qint64> m_last; // the last reading's number
    QList<QStringList> m_remembered;
    bool m_isReconnecting = false;
    std::optional<int> m_lastChunk;
};
