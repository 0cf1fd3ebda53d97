#pragma once

#include <QByteArray>
#include <QVector>

/// What a fuzz target makes of its bytes: a few numbers at the front, then text as it is, so that dictionaries and
/// seeds can be read and written by people. Behind the end everything is 0 or empty.
class FuzzInput
{
public:
    explicit FuzzInput(const QByteArray& bytes) : m_bytes(bytes) {}

    bool isAtEnd() const { return m_at >= m_bytes.size(); }

    /// Of one byte: least to most, both included, at most 256 apart.
    int number(int least, int most);
    bool flag() { return number(0, 1) == 1; }

    /// Up to so many bytes.
    QByteArray bytes(int count);
    /// Up to the next such byte, which is left out.
    QByteArray until(char end);
    QByteArray rest() { return bytes(m_bytes.size()); }

private:
    const QByteArray m_bytes;
    int m_at = 0;
};

/// The text in pieces: as the manner says whole, byte by byte, in sevens, or as a seed draws them.
QVector<QByteArray> piecesOf(const QByteArray& text, int manner);
constexpr int c_manners = 255;
