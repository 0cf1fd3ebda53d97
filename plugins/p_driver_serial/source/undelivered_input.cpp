#include "undelivered_input.h"

#include <utility>

void UndeliveredInput::add(const QByteArray& bytes, bool isHeard)
{
    m_bytes += bytes;
    m_unheardBytes = isHeard ? m_unheardBytes : m_unheardBytes + bytes.size();
    // Dropped by the half: cutting a little off the front for each chunk would move the whole each time.
    if (m_bytes.size() > c_limitBytes) {
        const int excess = m_bytes.size() - c_limitBytes / 2;
        m_bytes.remove(0, excess);
        m_droppedBytes += excess;
    }
}

QByteArray UndeliveredInput::read()
{
    m_droppedBytes = 0;
    m_unheardBytes = 0;
    return m_bytes;
}

int UndeliveredInput::clear()
{
    m_bytes.clear();
    m_droppedBytes = 0;
    return std::exchange(m_unheardBytes, 0);
}
