#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QVector>

class Clock;

/// Hears a trace as it grows. It takes itself away before it is destroyed.
class ITraceListener
{
public:
    /// line: of the trace, without its line end. Told in the middle of what it tells of: the listener only takes it and
    /// calls nothing of the line.
    virtual void traceGrew(const QByteArray& line) = 0;

protected:
    ~ITraceListener() = default;
};

/// Writes down what goes over the line, in both directions, so that it can be read and played back.
///
/// A trace is text, one entry a line, in the order in which things happened:
///
///     # serial trace 1, /dev/ttyUSB0, 2026-11-21T07:28:00.125
///     0.000000 ! opened
///     0.000125 > ATS\r\n
///     0.004218 < RESP AA:BB:CC:DD:EE:FF HTR 2210 -61\r\nRE
///     0.004300 < SP 11:22
///
/// - The first line is "# serial trace 1" (the number of the format), what is traced, and the date of moment 0.
/// - Every other line is: the moment in seconds with six decimals (microseconds) since the trace was switched on, never
///   falling; one blank; the direction; one blank; the text.
/// - ">" has been handed to the port, "<" has arrived: one entry for each frame or chunk, its bytes as they were.
///   "!" is a remark for people (opened, closed, a drop); who plays a trace back leaves it out.
/// - Of the bytes, 0x20 to 0x7e stand for themselves but the backslash, which is "\\". CR is "\r", LF "\n", TAB "\t";
///   every other byte is "\x" and two lower-case hexadecimal digits, and so is a blank at the end. The bytes can be
///   regained without loss.
class LineTrace
{
public:
    /// The clock outlives the trace.
    explicit LineTrace(const Clock& clock);

    /// Begins a new trace and ends the one before. target: a file, which is written anew, or "-" for standard error.
    /// subject: what is traced. Empty: it is on. Otherwise off, and one sentence: the file, the cause and what to do.
    QString start(const QString& target, const QString& subject);
    void stop();
    /// It is being written; listeners hear it all the same.
    bool isOn() const { return m_output.isOpen(); }

    /// From now on the listener gets a trace of its own: the first line at once, then each entry. Its moment 0 is now.
    void addListener(ITraceListener* listener, const QString& subject);
    /// One that is none is no error.
    void removeListener(ITraceListener* listener);

    // While the trace is off and nobody hears it these do nothing. Each entry is with the system when the call returns.
    void sent(const QByteArray& bytes);
    void arrived(const QByteArray& bytes);
    void remark(const QString& text);

    /// The bytes with control characters made visible, as above.
    static QByteArray escaped(const QByteArray& bytes);

private:
    struct Hearing
    {
        ITraceListener* listener;
        qint64 startUs;
    };

    bool isWanted() const { return isOn() || !m_hearings.isEmpty(); }
    void add(char direction, const QByteArray& bytes);
    void put(const QByteArray& line);

    const Clock& m_clock;
    QFile m_output;
    QString m_subject;
    qint64 m_startUs = 0;
    QVector<Hearing> m_hearings;
};
