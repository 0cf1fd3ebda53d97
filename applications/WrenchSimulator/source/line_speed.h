#pragma once

#include <QByteArray>

/// The speed that a dongle has, on a terminal that has none of its own: while the other side has set another one, bytes
/// pass as garbage, as they do on a real line.
class LineSpeed
{
public:
    /// baud: 0: every speed is the right one.
    explicit LineSpeed(int baud) : m_baud(baud) {}

    /// The bytes as they come through the open terminal, the same garbage for the same bytes each time: one byte for a
    /// byte, none of them ASCII.
    QByteArray through(int descriptor, QByteArray bytes) const;

private:
    int m_baud;
};
