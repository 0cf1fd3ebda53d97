#include "line_bound.h"

#include <utility>

QByteArray LineBound::arrived(const QByteArray& chunk)
{
    if (!m_isCutting && m_size + chunk.size() <= c_limitBytes) {
        // The usual case: only where the last line begins matters.
        const int lastEnd = chunk.lastIndexOf("\r\n");
        const bool isEndSplit = lastEnd < 0 && m_isAfterReturn && chunk.startsWith('\n');
        const int begin = isEndSplit ? 1 : lastEnd < 0 ? 0 : lastEnd + 2;
        m_size = chunk.size() - begin + (begin == 0 ? m_size : 0);
        m_isAfterReturn = chunk.isEmpty() ? m_isAfterReturn : chunk.endsWith('\r');
        return chunk;
    }
    QByteArray passed;
    for (const char byte : chunk) {
        if (endsLine(byte)) {
            passed += m_isCutting ? "\r\n" : "\n";
            m_isCutting = false;
            m_size = 0;
        } else if (m_size < c_limitBytes) {
            passed += byte;
            ++m_size;
        } else if (!std::exchange(m_isCutting, true)) {
            m_hasOverflow = true;
        }
    }
    return passed;
}

bool LineBound::endsLine(char byte)
{
    const bool ends = m_isAfterReturn && byte == '\n';
    m_isAfterReturn = byte == '\r';
    return ends;
}

bool LineBound::takeOverflow()
{
    return std::exchange(m_hasOverflow, false);
}
