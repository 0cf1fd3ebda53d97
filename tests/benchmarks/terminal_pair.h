#pragma once

#include <QString>

/// A pseudo-terminal in raw mode: whoever opens path() is at the other end of master().
class TerminalPair
{
public:
    TerminalPair();
    ~TerminalPair();
    TerminalPair(const TerminalPair&) = delete;
    TerminalPair& operator=(const TerminalPair&) = delete;

    int master() const { return m_master; }
    QString path() const;

private:
    int m_master;
};
