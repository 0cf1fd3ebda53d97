#include "babbler.h"

#include "fault_injector.h"

#include <algorithm>

namespace {
constexpr int c_pieceBytes = 64;
}

void Babbler::start(const Babble& babble, qint64 nowUs)
{
    m_count = babble.count;
    m_pieces = m_kind == Kind::Lines ? babble.count : (babble.count + c_pieceBytes - 1) / c_pieceBytes;
    m_next = 0;
    m_startUs = nowUs;
    m_durationUs = babble.durationUs;
}

std::optional<qint64> Babbler::nextDueUs() const
{
    return m_next < m_pieces ? std::optional<qint64>(m_startUs + m_durationUs * m_next / m_pieces) : std::nullopt;
}

QByteArray Babbler::take()
{
    const int number = m_next++;
    return m_kind == Kind::Lines ? "INFO " + QByteArray::number(number + 1)
                                 : QByteArray(std::min(c_pieceBytes, m_count - number * c_pieceBytes), 'x');
}
