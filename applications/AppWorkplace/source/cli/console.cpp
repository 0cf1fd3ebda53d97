#include "console.h"

#include <QCoreApplication>
#include <QDateTime>

#include <cerrno>
#include <cstring>

#include <unistd.h>

#include "../services/json_lines.h"
#include "log_lines.h"

namespace {
constexpr char c_escape = '\x1b';
const QByteArray c_clearLine = QByteArrayLiteral("\r\x1b[K");
const QString c_strong = QStringLiteral("\x1b[1m");
const QString c_alarming = QStringLiteral("\x1b[31m");
const QString c_plain = QStringLiteral("\x1b[0m");
} // namespace

Console::Console(std::FILE* results, std::FILE* messages, bool isJson, Manner manner)
    : m_results(results)
    , m_messages(messages)
    , m_isJson(isJson)
    , m_manner(manner)
    , m_isTerminal(isatty(fileno(results)) != 0)
    , m_isColoured(m_isTerminal && qEnvironmentVariableIsEmpty("NO_COLOR"))
{}

void Console::line(const QString& text)
{
    write(m_results, text.toUtf8() + '\n');
}

void Console::object(QJsonObject object)
{
    const QDateTime now = QDateTime::currentDateTime();
    object.insert(QStringLiteral("time"), now.toOffsetFromUtc(now.offsetFromUtc()).toString(Qt::ISODateWithMs));
    write(m_results, jsonLine(object));
}

void Console::message(const QString& text)
{
    write(m_messages, visible(text).toUtf8() + '\n');
}

void Console::detail(const QString& text)
{
    if (!isQuiet()) {
        line(text);
    }
}

void Console::notice(const QString& text)
{
    if (!isQuiet()) {
        message(text);
    }
}

void Console::remark(const QString& text)
{
    if (m_manner == Manner::Verbose) {
        message(QStringLiteral("%1 %2").arg(log_lines::secondsSinceStart(), 9, 'f', 3).arg(text));
    }
}

void Console::takeBack(int lines)
{
    if (m_isTerminal && lines > 0) {
        write(m_results, QByteArray(1, c_escape) + '[' + QByteArray::number(lines) + 'A' + c_escape + "[J");
    }
}

void Console::progress(const QString& text)
{
    if (m_isTerminal && !m_isJson && !isQuiet() && !(text.isEmpty() && m_progress.isEmpty())) {
        m_progress = visible(text).toUtf8();
        put(m_results, c_clearLine + m_progress);
    }
}

QString Console::strong(const QString& text) const
{
    return m_isColoured ? c_strong + text + c_plain : text;
}

QString Console::alarming(const QString& text) const
{
    return m_isColoured ? c_alarming + text + c_plain : text;
}

QString Console::visible(const QString& text)
{
    QString shown;
    shown.reserve(text.size());
    for (const QChar character : text) {
        const ushort code = character.unicode();
        switch (character.category()) {
        case QChar::Other_Control:
        case QChar::Other_Format:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            shown += QStringLiteral("\\x%1").arg(code, 2, 16, QLatin1Char('0'));
            break;
        default:
            shown += character;
        }
    }
    return shown;
}

// Results and messages are often on one terminal, and the line of progress stays the last there.
void Console::write(std::FILE* stream, const QByteArray& bytes)
{
    if (m_progress.isEmpty()) {
        put(stream, bytes);
        return;
    }
    put(m_results, c_clearLine);
    put(stream, bytes);
    put(m_results, m_progress);
}

void Console::put(std::FILE* stream, const QByteArray& bytes)
{
    const auto size = std::size_t(bytes.size());
    const bool isWritten = std::fwrite(bytes.constData(), 1, size, stream) == size && std::fflush(stream) == 0;
    if (!isWritten && stream == m_results && m_isOpen) {
        const int error = errno;
        m_isOpen = false;
        m_hasLost = error != EPIPE; // who stops reading has had enough
        if (m_hasLost) {
            message(QCoreApplication::translate(
                        "Console", "The results cannot be written (%1): make room, or write them elsewhere.")
                        .arg(QString::fromLocal8Bit(std::strerror(error))));
        }
    }
}
