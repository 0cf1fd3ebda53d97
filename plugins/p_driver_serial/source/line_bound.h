#pragma once

#include <QByteArray>

/// Bounds what a line can make its listeners keep: they wait for its end, CR LF, and one that does not come would fill
/// the memory. Of a line longer than c_limitBytes the rest is taken out, up to its end, which stays. Linear in what
/// arrives, in chunks of any size.
class LineBound
{
public:
    static constexpr int c_limitBytes = 1024 * 1024; ///< no device of text lines says a thousandth of it

    /// What is passed on of the chunk; the chunk itself while no line is too long.
    QByteArray arrived(const QByteArray& chunk);

    /// The line has grown too long since the last call.
    bool takeOverflow();

private:
    bool endsLine(char byte);

    int m_size = 0;           // of the line that is not at its end, as passed on
    bool m_isCutting = false; // the rest of the line is taken out
    bool m_hasOverflow = false;
    bool m_isAfterReturn = false; // the byte before was CR
};
