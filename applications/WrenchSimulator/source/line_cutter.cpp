#include "line_cutter.h"

#include <utility>

LineCutter::LineCutter(QByteArray terminator) : m_terminator(std::move(terminator)) {}

QByteArrayList LineCutter::feed(const QByteArray& bytes)
{
    QByteArrayList lines;
    for (const char c : bytes) {
        m_rest.append(c);
        // A byte that breaks a beginning terminator may itself begin one, as the second CR of CR CR LF does.
        m_matched = c == m_terminator.at(m_matched) ? m_matched + 1 : static_cast<int>(c == m_terminator.at(0));
        if (m_matched == m_terminator.size()) {
            if (m_isOverlong) {
                m_droppedBytes += m_rest.size();
            } else if (m_rest.size() > m_terminator.size()) {
                lines.append(m_rest.chopped(m_terminator.size()));
            }
            clear();
        } else if (m_rest.size() - m_matched > c_maxLineBytes || m_isOverlong) {
            m_isOverlong = true;
            m_droppedBytes += m_rest.size();
            m_rest.resize(0);
        }
    }
    return lines;
}

int LineCutter::takeDroppedBytes()
{
    return std::exchange(m_droppedBytes, 0);
}

void LineCutter::clear()
{
    m_rest.resize(0);
    m_matched = 0;
    m_isOverlong = false;
}
