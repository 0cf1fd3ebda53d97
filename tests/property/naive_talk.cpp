#include "naive_talk.h"

#include "naive_commands.h"
#include "typed_text.h"

namespace {

const QByteArray c_lineEnd = QByteArrayLiteral("\r\n");

} // namespace

std::unique_ptr<NaiveTalk> NaiveTalk::of(const TalkSetUp& setUp)
{
    if (setUp.command == QLatin1String("listenEventsData")) {
        return std::make_unique<NaiveListener>(setUp);
    }
    if (setUp.command == QLatin1String("startDetection")) {
        return std::make_unique<NaiveScan>(setUp);
    }
    if (setUp.command == QLatin1String("searchAndConnect")) {
        return std::make_unique<NaiveConnection>(setUp);
    }
    if (setUp.command == QLatin1String("sendInitConfig")) {
        return std::make_unique<NaiveConfiguration>(setUp);
    }
    if (setUp.command == QLatin1String("listProgram")) {
        return std::make_unique<NaiveProgramList>(setUp);
    }
    return std::make_unique<NaiveSelection>(setUp);
}

NaiveTalk::NaiveTalk(const TalkSetUp& setUp) : m_parameters(setUp.parameters)
{
    m_outcome.properties = setUp.properties;
}

void NaiveTalk::start()
{
    begin();
}

void NaiveTalk::arrive(const QVariantMap& reply)
{
    if (m_hasEnded) {
        return;
    }
    const int number = reply.value(QStringLiteral("number")).toInt();
    if (dropsRepeats() && number == m_number) {
        return;
    }
    m_number = number;
    const QVariant frame = reply.value(QStringLiteral("frame"));
    if (readsBytes()) {
        m_bytes = m_bytes + frame.toByteArray();
    } else {
        m_text = m_text + frame.toString();
    }
    while (!m_hasEnded && (m_bytes.contains(c_lineEnd) || m_text.contains(QLatin1String(c_lineEnd)))) {
        onLine(takeLine());
    }
    if (!m_hasEnded) {
        afterReply();
    }
}

QString NaiveTalk::takeLine()
{
    if (readsBytes()) {
        const int end = m_bytes.indexOf(c_lineEnd);
        const QByteArray line = m_bytes.left(end);
        m_bytes = m_bytes.mid(end + 2);
        const int zero = line.indexOf('\0');
        return QString::fromUtf8(zero < 0 ? line : line.left(zero)).trimmed();
    }
    const int end = m_text.indexOf(QLatin1String(c_lineEnd));
    const QString line = m_text.left(end);
    m_text = m_text.mid(end + 2);
    return line.trimmed();
}

void NaiveTalk::listen(const QString& validator)
{
    m_outcome.events.append(validator.isEmpty() ? QStringLiteral("listen")
                                                : QStringLiteral("listen  validator=") + validator);
}

void NaiveTalk::send(const QString& frame)
{
    m_sent = frame;
    write(frame);
}

void NaiveTalk::write(const QString& frame)
{
    m_outcome.events.append(QStringLiteral("host>   ") + frame);
}

void NaiveTalk::publish(const QVariantMap& values)
{
    m_outcome.events.append(QStringLiteral("result  ") + typedText(values));
}

void NaiveTalk::end()
{
    m_hasEnded = true;
    m_outcome.events.append(QStringLiteral("unlisten"));
    m_outcome.events.append(QStringLiteral("end     true"));
}
