#include "undelivered_input.h"

#include <utility>

#include "logging.h"

void UndeliveredInput::add(const QByteArray& bytes)
{
    m_bytes += bytes;
    // Dropped by the half: cutting a little off the front for each chunk would move the whole each time.
    if (m_bytes.size() > c_limitBytes) {
        const int excess = m_bytes.size() - c_limitBytes / 2;
        m_bytes.remove(0, excess);
        m_droppedBytes += excess;
    }
}

QByteArray UndeliveredInput::takeAll()
{
    if (m_droppedBytes > 0) {
        qCWarning(lcDriverSerial).noquote()
            << QStringLiteral("%1 bytes from the line are dropped: more than %2 arrived before anybody listened.")
                   .arg(m_droppedBytes)
                   .arg(c_limitBytes);
        m_droppedBytes = 0;
    }
    return std::exchange(m_bytes, {});
}
