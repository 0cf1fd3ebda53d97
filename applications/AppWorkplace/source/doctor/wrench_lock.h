#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <optional>

class LineTalk;

/// The lock of the wrench as it was found, which is put back however the examination ends.
class WrenchLock : public QObject
{
    Q_OBJECT

public:
    /// The talk outlives the lock. answerLimitMs: how long to wait for the wrench; 0: as long as is usual.
    WrenchLock(LineTalk& talk, int answerLimitMs);

    void found(bool isLocked) { m_found = isLocked; }
    /// Said before anything that may change it.
    void mayChange() { m_mayHaveChanged = true; }
    bool hasToBePutBack() const { return m_mayHaveChanged && m_found.has_value(); }
    bool wasLocked() const { return m_found.value_or(false); }

    /// Puts it back, where it has to be. then: called once, perhaps at once. cause: why it could not be; empty: it is
    /// as it was found.
    void putBack(const std::function<void(const QString& cause)>& then);

private:
    void tryToPutBack(int triesLeft, const std::function<void(const QString& cause)>& then);

    LineTalk& m_talk;
    const int m_answerLimitMs;
    std::optional<bool> m_found;
    bool m_mayHaveChanged = false;
};
