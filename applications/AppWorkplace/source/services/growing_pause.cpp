#include "growing_pause.h"

#include <algorithm>

GrowingPause::GrowingPause(int firstMs, int longestMs, quint32 seed)
    : m_firstMs(firstMs), m_longestMs(longestMs), m_mostMs(firstMs), m_random(seed)
{}

int GrowingPause::next()
{
    const int mostMs = m_mostMs;
    m_mostMs = std::min(2 * mostMs, m_longestMs);
    return m_random.bounded(mostMs / 2, mostMs + 1);
}

void GrowingPause::reset()
{
    m_mostMs = m_firstMs;
}
