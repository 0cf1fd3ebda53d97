#include "trace_reader.h"

#include <QRegularExpression>

#include <optional>

namespace {
constexpr qint64 c_usPerSecond = 1000000;
const QByteArray c_mark = QByteArrayLiteral("# serial trace ");
const QByteArray c_format = QByteArrayLiteral("1");

bool isPlain(char byte)
{
    return byte >= ' ' && byte <= '~' && byte != '\\';
}

int hexDigit(char digit)
{
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    return digit >= 'a' && digit <= 'f' ? digit - 'a' + 10 : -1;
}

/// The byte that the escape at that place stands for, which moves behind it; nothing: it is none.
std::optional<char> escapedByte(const QByteArray& text, int* at)
{
    const char letter = text.at(*at);
    const int high = hexDigit(text.at(qMin(*at + 1, text.size() - 1)));
    const int low = hexDigit(text.at(qMin(*at + 2, text.size() - 1)));
    ++*at;
    switch (letter) {
    case '\\':
        return '\\';
    case 'r':
        return '\r';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'x':
        if (*at + 2 > text.size() || high < 0 || low < 0) {
            return std::nullopt;
        }
        *at += 2;
        return static_cast<char>(16 * high + low);
    default:
        return std::nullopt;
    }
}

std::optional<QByteArray> unescaped(const QByteArray& text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (int at = 0; at < text.size();) {
        const char byte = text.at(at++);
        if (isPlain(byte)) {
            bytes += byte;
            continue;
        }
        const std::optional<char> meant =
            byte == '\\' && at < text.size() ? escapedByte(text, &at) : std::optional<char>();
        if (!meant) {
            return std::nullopt;
        }
        bytes += *meant;
    }
    return bytes;
}

std::optional<TraceEntry::Kind> kindOf(char direction)
{
    switch (direction) {
    case '>':
        return TraceEntry::Kind::FromHost;
    case '<':
        return TraceEntry::Kind::ToHost;
    case '!':
        return TraceEntry::Kind::Remark;
    default:
        return std::nullopt;
    }
}
} // namespace

TraceReader::TraceReader(const QString& path) : m_file(path) {}

bool TraceReader::open()
{
    m_error.clear();
    m_line = 0;
    m_lastMomentUs = 0;
    m_file.close();
    if (!m_file.open(QIODevice::ReadOnly)) {
        m_error = QStringLiteral("%1: cannot be read (%2); name a trace that the driver has saved")
                      .arg(path(), m_file.errorString());
        return false;
    }
    QByteArray head;
    if (!readLine(&head)) {
        return m_error.isEmpty() ? refuse(QStringLiteral("the file is empty")) : false;
    }
    if (!head.startsWith(c_mark)) {
        return refuse(QStringLiteral("no trace of a serial line: it begins with \"# serial trace 1\""));
    }
    const QByteArray format = head.mid(c_mark.size(), head.indexOf(',') - c_mark.size());
    return format == c_format ||
           refuse(QStringLiteral("the format \"%1\" is not known, only \"1\" is").arg(QString::fromUtf8(format)));
}

bool TraceReader::next(TraceEntry* entry)
{
    QByteArray line;
    if (!m_error.isEmpty() || !readLine(&line)) {
        return false;
    }
    static const QRegularExpression form(QStringLiteral("^([0-9]{1,9})\\.([0-9]{6}) (.) "));
    const QRegularExpressionMatch match = form.match(QString::fromLatin1(line.left(32)));
    const std::optional<TraceEntry::Kind> kind =
        match.hasMatch() ? kindOf(match.captured(3).at(0).toLatin1()) : std::nullopt;
    if (!kind) {
        return refuse(QStringLiteral("no entry: write SECONDS.MICROSECONDS, then >, < or !, then the bytes"));
    }
    entry->kind = *kind;
    entry->line = m_line;
    entry->momentUs = match.captured(1).toLongLong() * c_usPerSecond + match.captured(2).toLongLong();
    if (entry->momentUs < m_lastMomentUs) {
        return refuse(QStringLiteral("its moment is before that of the line above"));
    }
    m_lastMomentUs = entry->momentUs;
    const std::optional<QByteArray> bytes = unescaped(line.mid(match.capturedLength()));
    if (!bytes) {
        return refuse(QStringLiteral("a byte that is not written as a trace writes it: "
                                     "\\r, \\n, \\t, \\\\ or \\x and two lower-case digits"));
    }
    if (bytes->isEmpty() && *kind != TraceEntry::Kind::Remark) {
        return refuse(QStringLiteral("no bytes behind the direction"));
    }
    entry->bytes = *bytes;
    return true;
}

bool TraceReader::check()
{
    if (!open()) {
        return false;
    }
    TraceEntry entry;
    while (next(&entry)) {
    }
    return m_error.isEmpty() && open();
}

/// False: the end of the file, or an error.
bool TraceReader::readLine(QByteArray* line)
{
    // Into one buffer for all lines: QIODevice would make one of the longest line for each.
    m_buffer.resize(c_maxLineBytes + 3); // a zero byte stands behind what was read
    const qint64 size = m_file.readLine(m_buffer.data(), m_buffer.size());
    *line = m_buffer.left(int(qMax<qint64>(size, 0)));
    if (line->isEmpty()) {
        if (m_file.error() != QFileDevice::NoError) {
            ++m_line;
            return refuse(QStringLiteral("cannot be read (%1)").arg(m_file.errorString()));
        }
        return false;
    }
    ++m_line;
    if (!line->endsWith('\n')) {
        return refuse(line->size() > c_maxLineBytes
                          ? QStringLiteral("longer than %1 bytes").arg(c_maxLineBytes)
                          : QStringLiteral("cut off: the last line has no end; remove it to play what is before it"));
    }
    line->chop(1);
    return true;
}

bool TraceReader::refuse(const QString& reason)
{
    m_error = QStringLiteral("%1, line %2: %3").arg(path(), QString::number(m_line), reason);
    return false;
}

QByteArray TraceReader::escaped(const QByteArray& bytes)
{
    QByteArray text;
    for (const char byte : bytes) {
        switch (byte) {
        case '\\':
            text += "\\\\";
            break;
        case '\r':
            text += "\\r";
            break;
        case '\n':
            text += "\\n";
            break;
        case '\t':
            text += "\\t";
            break;
        default:
            text += isPlain(byte) ? QByteArray(1, byte) : "\\x" + QByteArray(1, byte).toHex();
        }
    }
    return text;
}
