#include "fuzz_input.h"

#include <random>

int FuzzInput::number(int least, int most)
{
    const int byte = isAtEnd() ? 0 : uchar(m_bytes.at(m_at++));
    return least + byte % (most - least + 1);
}

QByteArray FuzzInput::bytes(int count)
{
    const QByteArray taken = m_bytes.mid(m_at, count);
    m_at += taken.size();
    return taken;
}

QByteArray FuzzInput::until(char end)
{
    const int at = m_bytes.indexOf(end, m_at);
    const QByteArray taken = at < 0 ? rest() : bytes(at - m_at);
    m_at += at < 0 ? 0 : 1;
    return taken;
}

QVector<QByteArray> piecesOf(const QByteArray& text, int manner)
{
    constexpr int c_fixed[] = {0, 1, 7};
    constexpr int c_longest = 40;
    std::mt19937 random(static_cast<quint32>(manner));
    QVector<QByteArray> pieces;
    for (int from = 0; from < text.size();) {
        int size = manner < 3 ? c_fixed[manner] : 1 + static_cast<int>(random() % c_longest);
        size = size == 0 ? text.size() : size;
        pieces.append(text.mid(from, size));
        from += size;
    }
    return pieces;
}
