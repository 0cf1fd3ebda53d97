#include "trace_transcriber.h"

#include <lib_plugins_management/d_abstract_plugin.h>

#include "command_guess.h"
#include "trace_reader.h"
#include "typed_text.h"

namespace {
constexpr qint64 c_usPerMs = 1000;
const QByteArray c_keepAlive = QByteArrayLiteral("DI:C");
const QString c_listener = QStringLiteral("listenEventsData");
const QString c_detection = QStringLiteral("startDetection");
const QString c_eachReply = QStringLiteral("each-reply");

QString inPlace(const TraceItem& item, const QString& text)
{
    return QStringLiteral("line %1 of the trace: %2").arg(QString::number(item.line), text);
}

/// As a transcript has it; blanks at the ends would not be seen.
QString arrivalText(const TraceItem& item)
{
    QString text = QString::fromLatin1(TraceReader::escaped(item.text));
    if (text.startsWith(QLatin1Char(' '))) {
        text.replace(0, 1, QStringLiteral("\\s"));
    }
    if (text.endsWith(QLatin1Char(' '))) {
        text.replace(text.size() - 1, 1, QStringLiteral("\\s"));
    }
    return text;
}

QString arrivalWord(const TraceItem& item)
{
    if (item.isCut) {
        return QStringLiteral("piece<");
    }
    for (const char* word : {"RESP", "ATD", "ATH", "DATA"}) {
        if (item.text.startsWith(word)) {
            return QStringLiteral("dongle<");
        }
    }
    return QStringLiteral("wrench<");
}
} // namespace

TraceTranscriber::TraceTranscriber(DAbstractPlugin& plugin, const QString& serialId)
    : m_plugin(plugin), m_serialId(serialId), m_recorder(plugin)
{}

QString TraceTranscriber::read(const QString& file)
{
    QString complaint = m_trace.read(file);
    for (int at = 0; complaint.isEmpty() && at < m_trace.items.size(); ++at) {
        complaint = take(at);
        if (!complaint.isEmpty()) {
            complaint = file + QStringLiteral(", ") + inPlace(m_trace.items.at(at), complaint);
        }
    }
    if (complaint.isEmpty() && m_recorder.isRunning()) {
        complaint = stop();
    }
    closeRun();
    return complaint;
}

QStringList TraceTranscriber::transcript(const QStringList& commands) const
{
    const bool isAll = commands.isEmpty() && !m_runs.isEmpty();
    QStringList lines = isAll ? m_recorder.lines() : QStringList();
    for (const Run& run : m_runs) {
        if (!commands.contains(run.command)) {
            continue;
        }
        if (!run.given.isEmpty()) {
            lines.append(run.given);
        }
        lines += m_recorder.lines().mid(run.from, run.to - run.from);
    }
    if (!lines.isEmpty()) {
        lines.prepend(QStringLiteral("# What the commands do was recorded: read it before you check it in."));
        lines.prepend(QStringLiteral("# Source: serial trace of ") + m_trace.subject);
    }
    return lines;
}

QStringList TraceTranscriber::commands() const
{
    QStringList names;
    for (const Run& run : m_runs) {
        names.append(run.command);
    }
    names.removeDuplicates();
    return names;
}

QString TraceTranscriber::take(int at)
{
    const TraceItem& item = m_trace.items.at(at);
    QString complaint = letTimePass(item.momentUs);
    if (complaint.isEmpty()) {
        complaint = item.isFrame ? takeFrame(at) : takeLine(item);
    }
    m_lastUs = item.momentUs;
    return complaint;
}

QString TraceTranscriber::takeFrame(int at)
{
    const TraceItem& item = m_trace.items.at(at);
    const QString frame = QString::fromUtf8(item.text);
    const auto isOwed = [&] { return !m_owed.isEmpty() && m_owed.constFirst() == frame; };
    if (!isOwed() && m_recorder.isRunning() && item.text == c_keepAlive && m_owed.isEmpty()) {
        m_recorder.remark(QStringLiteral("the driver keeps the link alive: ") + frame);
        return {};
    }
    if (!isOwed() && m_recorder.isRunning()) {
        // The host has ended the run, which may have a last word.
        QString complaint = stop();
        if (!complaint.isEmpty()) {
            return complaint;
        }
    }
    if (isOwed()) {
        m_owed.removeFirst();
        return {};
    }
    if (!m_owed.isEmpty()) {
        return QStringLiteral("the host sent \"%1\", and the command %2 now sends \"%3\"")
            .arg(frame, m_runs.constLast().command, m_owed.constFirst());
    }
    CommandGuess guess = guessCommand(m_trace.items, at);
    if (guess.name.isEmpty()) {
        closeRun();
        m_recorder.remark(QStringLiteral("of no command: ") + frame);
        return {};
    }
    if (guess.needsSerialId && m_serialId.isEmpty()) {
        return QStringLiteral("it does not tell which wrench was searched; name it with --serial-id");
    }
    if (guess.needsSerialId) {
        guess.parameters = QStringLiteral("serialId=\"%1\"").arg(m_serialId);
    }
    QString complaint = begin(guess);
    if (!complaint.isEmpty()) {
        return complaint;
    }
    if (!isOwed()) {
        return QStringLiteral("the host sent \"%1\", and the command %2 does not").arg(frame, guess.name);
    }
    m_owed.removeFirst();
    return {};
}

QString TraceTranscriber::takeLine(const TraceItem& item)
{
    QString complaint;
    if (!m_recorder.isRunning() && item.text.startsWith("RE:F:")) {
        complaint = begin({c_listener, {}, {}, false});
    }
    if (!complaint.isEmpty()) {
        return complaint;
    }
    if (!m_recorder.isListening()) {
        m_recorder.remark(QStringLiteral("nobody listens: ") + arrivalText(item));
        return {};
    }
    // Lines that stand together would be read with one number.
    const QString last = m_recorder.lines().constLast().section(QLatin1Char(' '), 0, 0);
    if (last.endsWith(QLatin1Char('<')) && last != QLatin1String("driver<")) {
        complaint = add(QStringLiteral("next"));
    }
    return complaint.isEmpty() ? add(arrivalWord(item), arrivalText(item)) : complaint;
}

QString TraceTranscriber::begin(const CommandGuess& guess)
{
    closeRun();
    const int from = m_recorder.lines().size();
    const QString given = properties();
    const bool isDetection = guess.name == c_detection;
    QString complaint;
    bool isEnough = true;
    const QMap<QString, QVariant> needed = mapOfWords(splitWords(guess.given));
    for (auto each = needed.cbegin(); each != needed.cend(); ++each) {
        const int has = m_plugin.getProperty(each.key(), QVariant(0)).toInt();
        // Already selected, it would be answered without a frame.
        isEnough = isEnough && (each.key() == QLatin1String("currentProgId")
                                    ? QStringLiteral("progId=%1").arg(has) != guess.parameters
                                    : has >= each.value().toInt());
    }
    if (!isEnough) {
        complaint = add(QStringLiteral("given"), guess.given);
    }
    if (complaint.isEmpty() && isDetection) {
        complaint = add(c_eachReply, QStringLiteral("lastResults"));
    }
    m_runs.append({guess.name, given, from, from});
    m_hasOpenRun = true;
    return complaint.isEmpty()
               ? add(QStringLiteral("run"), (guess.name + QLatin1Char(' ') + guess.parameters).trimmed())
               : complaint;
}

QString TraceTranscriber::stop()
{
    return add(QStringLiteral("stop"));
}

QString TraceTranscriber::add(const QString& word, const QString& text)
{
    const bool hadTimer = m_recorder.timerMs() > 0;
    QString complaint = m_recorder.add(word, text);
    m_owed += m_recorder.takeFrames();
    if (m_recorder.timerMs() == 0) {
        m_timerUs = -1;
    } else if (!hadTimer || m_timerUs < 0) {
        m_timerUs = m_lastUs;
    }
    return complaint;
}

/// The time limit of a search, where it was reached.
QString TraceTranscriber::letTimePass(qint64 nowUs)
{
    if (m_timerUs < 0) {
        m_lastUs = nowUs;
        return {};
    }
    const int intervalMs = m_recorder.timerMs();
    const bool isReached = nowUs - m_timerUs >= intervalMs * c_usPerMs;
    return isReached ? add(QStringLiteral("wait"), QString::number(intervalMs)) : QString();
}

void TraceTranscriber::closeRun()
{
    if (!m_hasOpenRun) {
        return;
    }
    m_hasOpenRun = false;
    if (m_runs.constLast().command == c_detection) {
        m_recorder.add(c_eachReply);
    }
    m_runs.last().to = m_recorder.lines().size();
}

QString TraceTranscriber::properties() const
{
    QMap<QString, QVariant> values;
    for (const char* name : {"currentProgId", "lock", "programList", "programListCount"}) {
        bool exists = false;
        const QVariant value = m_plugin.getProperty(QLatin1String(name), &exists);
        if (exists) {
            values.insert(QLatin1String(name), value);
        }
    }
    return values.isEmpty()
               ? QString()
               : QStringLiteral("given   ") + typedText(values).replace(QStringLiteral(" + "), QStringLiteral(" "));
}
