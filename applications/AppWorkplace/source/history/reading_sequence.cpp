#include "reading_sequence.h"

#include <utility>

void ReadingSequence::continueFrom(const QString& readingNumber)
{
    m_last = numberOf(readingNumber);
}

ReadingSequence::Outcome ReadingSequence::take(const QStringList& reading, const QString& readingNumber,
                                               bool isAfterReconnection)
{
    m_isReconnecting = m_isReconnecting || isAfterReconnection;
    if (m_isReconnecting && m_remembered.contains(reading)) {
        return {true, std::nullopt};
    }
    m_isReconnecting = false;
    m_remembered.append(reading);
    if (m_remembered.size() > c_remembered) {
        m_remembered.removeFirst();
    }

    const std::optional<qint64> before = m_last;
    m_last = numberOf(readingNumber);
    if (!before || !m_last) {
        return {};
    }
    const bool hasSkipped = *m_last - 1 > *before; // neither is below 0
    // A counter that begins anew, with 0 or 1, has missed nothing that could be told.
    const bool hasFallenBack = *m_last<*before&& * m_last> 1;
    return {false, hasSkipped || hasFallenBack ? std::optional<Gap>({QStringLiteral("readingNumber"), *before, *m_last})
                                               : std::nullopt};
}

std::optional<ReadingSequence::Gap> ReadingSequence::takeChunk(int number)
{
    const std::optional<int> before = std::exchange(m_lastChunk, number);
    // A count that has come to its end goes on with 1, and one that falls back has begun anew.
    if (!before || qint64(number) <= qint64(*before) + 1) {
        return std::nullopt;
    }
    return Gap{QStringLiteral("eventCountNo"), *before, number};
}

std::optional<qint64> ReadingSequence::numberOf(const QString& text)
{
    bool isNumber = false;
    const qint64 number = text.trimmed().toLongLong(&isNumber);
    return isNumber && number >= 0 ? std::optional<qint64>(number) : std::nullopt;
}
