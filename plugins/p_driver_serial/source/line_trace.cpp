#include "line_trace.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>

#include <lib_utilities/clock.h>
#include <lib_utilities/utilities.h>

#include "logging.h"

namespace {

constexpr qint64 c_usPerSecond = 1000000;
constexpr int c_secondDecimals = 6;

QByteArray firstLine(const QString& subject)
{
    return QStringLiteral("# serial trace 1, %1, %2").arg(subject, getDate()).toUtf8();
}

QByteArray seconds(qint64 us)
{
    return QByteArray::number(us / c_usPerSecond) + '.' +
           QByteArray::number(us % c_usPerSecond).rightJustified(c_secondDecimals, '0');
}

} // namespace

LineTrace::LineTrace(const Clock& clock) : m_clock(clock) {}

QString LineTrace::start(const QString& target, const QString& subject)
{
    stop();
    const bool toStandardError = target == QLatin1String("-");
    m_output.setFileName(toStandardError ? QStringLiteral("standard error") : target);
    const bool opened = toStandardError ? m_output.open(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered)
                                        : m_output.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    if (!opened) {
        return QCoreApplication::translate(
                   "SerialDriver",
                   "The trace cannot be written to %1 (%2): name a file in a folder that you may write to, "
                   "or \"-\" for standard error.")
            .arg(target, m_output.errorString());
    }
    m_startUs = m_clock.nowUs();
    m_subject = subject;
    put(firstLine(subject));
    return {};
}

void LineTrace::stop()
{
    m_output.close();
}

void LineTrace::addListener(ITraceListener* listener, const QString& subject)
{
    m_hearings.append({listener, m_clock.nowUs()});
    listener->traceGrew(firstLine(subject));
}

void LineTrace::removeListener(ITraceListener* listener)
{
    const auto isOurs = [listener](const Hearing& hearing) { return hearing.listener == listener; };
    m_hearings.erase(std::remove_if(m_hearings.begin(), m_hearings.end(), isOurs), m_hearings.end());
}

void LineTrace::sent(const QByteArray& bytes)
{
    add('>', bytes);
}

void LineTrace::arrived(const QByteArray& bytes)
{
    add('<', bytes);
}

void LineTrace::remark(const QString& text)
{
    if (isWanted()) {
        add('!', text.toUtf8());
    }
}

QByteArray LineTrace::escaped(const QByteArray& bytes)
{
    static const char c_hexDigits[] = "0123456789abcdef";
    QByteArray text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (int i = 0; i < bytes.size(); ++i) {
        const char byte = bytes.at(i);
        const bool isBlankAtEnd = byte == ' ' && i + 1 == bytes.size();
        if (byte == '\\') {
            text += "\\\\";
        } else if (byte == '\r') {
            text += "\\r";
        } else if (byte == '\n') {
            text += "\\n";
        } else if (byte == '\t') {
            text += "\\t";
        } else if (byte >= ' ' && byte <= '~' && !isBlankAtEnd) {
            text += byte;
        } else {
            const auto value = static_cast<unsigned char>(byte);
            text += "\\x";
            text += c_hexDigits[value >> 4U];
            text += c_hexDigits[value & 0x0fU];
        }
    }
    return text;
}

void LineTrace::add(char direction, const QByteArray& bytes)
{
    if (!isWanted()) {
        return;
    }
    const qint64 nowUs = m_clock.nowUs();
    const QByteArray text = QByteArray(" ") + direction + ' ' + escaped(bytes);
    if (isOn()) {
        put(seconds(nowUs - m_startUs) + text);
    }
    for (const Hearing& hearing : qAsConst(m_hearings)) {
        hearing.listener->traceGrew(seconds(nowUs - hearing.startUs) + text);
    }
}

void LineTrace::put(const QByteArray& line)
{
    const QByteArray bytes = line + '\n';
    if (m_output.write(bytes) != bytes.size()) {
        qCWarning(lcDriverSerial).noquote()
            << QCoreApplication::translate(
                   "SerialDriver",
                   "The trace of %1 to %2 ends here, it cannot be written (%3): make room and switch it on again.")
                   .arg(m_subject, m_output.fileName(), m_output.errorString());
        stop();
    }
}
