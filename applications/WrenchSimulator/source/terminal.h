#pragma once

#include <QString>

/// The simulator's end of a serial line. One thread.
class Terminal
{
public:
    Terminal() = default;
    virtual ~Terminal() = default;

    /// Opens the line, raw and not blocking. Otherwise the error names it, the cause and what to do.
    virtual bool open(QString* error) = 0;

    /// Hangs the line up. Closing a closed line is no error.
    virtual void close() = 0;

    /// To read and write; -1 while closed.
    virtual int descriptor() const = 0;

    /// What the other side opens.
    virtual QString path() const = 0;

    /// Becomes readable when somebody came or left; hasReader() makes it quiet again. -1: the line does not tell.
    virtual int readerWatch() const = 0;

    /// Whether anybody is there to read. What is written while nobody is, is gone, as on any serial line.
    virtual bool hasReader() = 0;

private:
    Q_DISABLE_COPY(Terminal)
};
