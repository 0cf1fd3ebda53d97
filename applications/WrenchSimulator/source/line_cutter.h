#pragma once

#include <QByteArray>
#include <QByteArrayList>

/// Cuts a stream of bytes into lines, however it arrives: in single bytes, in many lines at once. Work and memory are
/// bounded: each byte is looked at once, and an endless line is thrown away up to its end.
class LineCutter
{
public:
    static constexpr int c_maxLineBytes = 4096;

    /// terminator: the bytes that end a line, not empty.
    explicit LineCutter(QByteArray terminator);

    /// The lines that these bytes complete, without their ends; empty lines are left out.
    QByteArrayList feed(const QByteArray& bytes);

    /// Bytes thrown away since the last call because their line grew past c_maxLineBytes; 0: none.
    int takeDroppedBytes();

    /// Forgets the line that is not complete yet.
    void clear();

private:
    QByteArray m_terminator;
    QByteArray m_rest;
    int m_matched = 0; ///< how much of the terminator the end of the stream already holds
    bool m_isOverlong = false;
    int m_droppedBytes = 0;
};
