#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

/// One line of a trace that tells of bytes, or a remark for people.
struct TraceEntry
{
    enum class Kind { FromHost, ToHost, Remark };

    Kind kind = Kind::Remark;
    qint64 momentUs = 0; ///< since the trace was switched on
    QByteArray bytes;    ///< as they were on the line; a remark's text; never empty but for a remark
    qint64 line = 0;     ///< in the file, from 1
};

/// Reads the trace of a serial line, one entry at a time, so that the length of a trace costs no memory:
///
///     # serial trace 1, /dev/ttyUSB0, 2026-11-21T07:28:00.125
///     0.000125 > ATS\r\n
///     0.004218 < RESP AA:BB:CC:DD:EE:FF HTR 2210 -61\r\nRE
///     0.004300 ! a remark
///
/// The moment in seconds with six decimals, never falling; ">" from the host, "<" to it; bytes from 0x20 to 0x7e as
/// they are, the backslash as "\\", CR, LF and TAB as "\r", "\n" and "\t", every other byte as "\x" and two digits.
class TraceReader
{
public:
    /// No line of a trace is longer: a chunk of 1 MiB in which every byte takes four characters, and its moment.
    static constexpr int c_maxLineBytes = 4 * 1024 * 1024 + 64;

    explicit TraceReader(const QString& path);

    /// Opens the file, or begins again. False: error() says why.
    bool open();

    /// The next entry. False: there is none, because of the end or of an error().
    bool next(TraceEntry* entry);

    /// Reads the file to its end and begins again. False: it is no trace, or damaged, and error() says where and how.
    bool check();

    /// File, line and reason in one sentence; empty: nothing is wrong.
    QString error() const { return m_error; }
    QString path() const { return m_file.fileName(); }

    /// Bytes as a trace shows them.
    static QByteArray escaped(const QByteArray& bytes);

private:
    bool readLine(QByteArray* line);
    bool refuse(const QString& reason);

    QFile m_file;
    QByteArray m_buffer;
    qint64 m_line = 0;
    qint64 m_lastMomentUs = 0;
    QString m_error;
};
