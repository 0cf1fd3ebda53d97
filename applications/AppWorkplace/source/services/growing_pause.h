#pragma once

#include <QRandomGenerator>

/// Pauses between attempts: each up to twice as long as the one before, never longer than the longest. Each is drawn
/// from the upper half of what it may be, so that workplaces that were cut off together do not all come back at once.
class GrowingPause
{
public:
    /// Both in milliseconds, > 0. seed: the same one gives the same pauses.
    GrowingPause(int firstMs, int longestMs, quint32 seed);

    /// In milliseconds.
    int next();
    /// The next one is a first one again.
    void reset();

private:
    const int m_firstMs;
    const int m_longestMs;
    int m_mostMs;
    QRandomGenerator m_random;
};
