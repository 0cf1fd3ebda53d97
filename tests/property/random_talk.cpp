#include "random_talk.h"

#include "command_talk.h"

namespace {

const QByteArray c_lineEnd = QByteArrayLiteral("\r\n");

QByteArrayList words(const char* text)
{
    return QByteArray(text).split('|');
}

} // namespace

RandomTalk::RandomTalk(quint64 seed) : m_random(seed)
{
    const QStringList commands{QStringLiteral("listenEventsData"), QStringLiteral("startDetection"),
                               QStringLiteral("searchAndConnect"), QStringLiteral("sendInitConfig"),
                               QStringLiteral("listProgram"),      QStringLiteral("setProgram")};
    m_setUp.command = oneOf(commands);
    if (m_setUp.command == QLatin1String("searchAndConnect")) {
        m_setUp.parameters.insert(QStringLiteral("serialId"), QString::number(2209 + below(3)));
    }
    if (chance(50)) {
        m_setUp.properties.insert(QStringLiteral("currentProgId"), below(5));
    }
    if (m_setUp.command == QLatin1String("setProgram")) {
        m_setUp.properties.insert(QStringLiteral("programListCount"), 1 + below(6));
        // Another one than the current: what is current is not asked of the wrench.
        const int current = m_setUp.properties.value(QStringLiteral("currentProgId")).toInt();
        m_setUp.parameters.insert(QStringLiteral("progId"), current + (chance(80) ? 1 + below(4) : -1 - below(3)));
    }
    const int programs = 1 + below(5);
    for (int i = 0; i < programs; ++i) {
        m_programs.append(programLine());
    }
    m_busy = chance(30) ? below(9) : 0;
    m_mildness = oneOf(QVector<int>{100, 95, 80, 50, 10});
}

int RandomTalk::below(int end)
{
    // Not a distribution of the library: the same seed gives the same talk everywhere.
    return int(m_random() % quint64(end));
}

QVector<QVariantMap> RandomTalk::talkTo(CommandTalk& command)
{
    QVector<QVariantMap> replies;
    QByteArray waiting;
    const auto deliver = [&](const QVariantMap& reply) {
        replies.append(reply);
        command.arrive(reply);
    };
    const int lines = 1 + below(60);
    const bool isInPieces = chance(60);
    m_number = chance(10) ? -2 : below(1000);
    for (int i = 0; i < lines && command.isListening(); ++i) {
        waiting += nextLine(command.lastFrame());
        if (chance(15)) {
            continue; // the next line comes with it
        }
        while (!waiting.isEmpty() && command.isListening()) {
            const int size = isInPieces ? 1 + below(waiting.size()) : waiting.size();
            deliver(nextReply(waiting.left(size)));
            waiting.remove(0, size);
            if (chance(10)) {
                deliver(chance(50) ? replies.last() : nextReply(waiting + "again"));
            }
        }
    }
    return replies;
}

/// The number counts up, but for a delivery that is repeated.
QVariantMap RandomTalk::nextReply(const QByteArray& chunk)
{
    m_number += chance(95) ? 1 : 0;
    QVariantMap reply{{QStringLiteral("frame"), chunk}};
    if (chance(99)) {
        reply.insert(QStringLiteral("number"), m_number);
    }
    return reply;
}

QByteArray RandomTalk::nextLine(const QString& lastFrame)
{
    QByteArray line = chance(m_mildness) ? fittingAnswer(lastFrame) : anyLine();
    if (!chance(m_mildness)) {
        line = damaged(line);
    }
    return line + (chance(98) ? c_lineEnd : oneOf(words("\n|\r|\n\r|\r\r\n|")));
}

QByteArray RandomTalk::fittingAnswer(const QString& lastFrame)
{
    if (lastFrame.isEmpty()) { // the listener says nothing
        return "RE:F:12." + QByteArray::number(below(99)) + ",1,0," + QByteArray::number(below(400)) + ",1," +
               QByteArray::number(below(5000)) + ",0";
    }
    if (lastFrame == QLatin1String("ATS")) {
        return "RESP 02:00:00:00:00:0" + QByteArray::number(below(4)) + " TW60 " + QByteArray::number(2209 + below(3)) +
               " -" + QByteArray::number(40 + below(50));
    }
    if (lastFrame == QLatin1String("ATH")) {
        return "ATH";
    }
    if (lastFrame.startsWith(QLatin1String("ATD "))) {
        return chance(50) ? lastFrame.toLatin1() : QByteArray("DATA");
    }
    if (lastFrame == QLatin1String("TR:N")) {
        m_program = (m_program + 1) % m_programs.size();
        return "OK";
    }
    if (lastFrame == QLatin1String("TR:C")) {
        return m_programs.at(m_program);
    }
    if (lastFrame == QLatin1String("SC:TL:2")) {
        return "OK:2";
    }
    if (lastFrame == QLatin1String("IDLE")) {
        return m_busy-- > 0 ? "ERR:5" : "OK";
    }
    return "OK:1";
}

QByteArray RandomTalk::anyLine()
{
    switch (below(6)) {
    case 0: {
        QByteArrayList fields;
        const int count = below(10);
        for (int i = 0; i < count; ++i) {
            fields.append(fieldText());
        }
        return "RE:F:" + fields.join(',');
    }
    case 1:
        return programLine();
    case 2: {
        QByteArrayList fields;
        const int count = below(8);
        for (int i = 0; i < count; ++i) {
            fields.append(fieldText());
        }
        return "RESP" + QByteArray(1 + below(3), ' ') + fields.join(' ');
    }
    default:
        return oneOf(words("OK|OK:0|OK:1|OK:2|OK:|ok|ERR|ERR:1|ERR:2|ERR:2:|ERR::2|ATH|ATD|ATD 020000000001|ATD 1 2|"
                           "DATA|IDLE|TR:C|TR:N|TRQ|OKTRQ9|DT:1|SC:TL:2|RE:1||  OK:1 \t|\v|xERR|TR:N TRQ5|RE:F|RESP"));
    }
}

QByteArray RandomTalk::programLine()
{
    QByteArrayList fields;
    const QByteArrayList codes = words("UNT|ANG|TRQ|SNG|ADT|NUM|TRQ|XYZ|T|");
    const int count = 1 + below(8);
    for (int i = 0; i < count; ++i) {
        fields.append(oneOf(codes) + fieldText());
    }
    return (chance(90) ? "OK:TRQ" : "OK:") + QByteArray::number(below(100)) + ',' + fields.join(',');
}

QByteArray RandomTalk::fieldText()
{
    return oneOf(words("0|1|2|3|4|9|12|12.5|-1|+3|007| 5|21474836|21474837|-21474837|99999999999999999999|1e9|NaN|x||"
                       "\xC2\xB5|2210|2211|AA:BB|\x1b[31m|=1+1|\"<b>"));
}

QByteArray RandomTalk::damaged(QByteArray line)
{
    const int at = below(line.size() + 1);
    switch (below(5)) {
    case 0:
        return line.left(at);
    case 1:
        return line.insert(at, char(below(256)));
    case 2:
        return line.isEmpty() ? line : line.remove(at, 1);
    case 3:
        return line.toLower();
    default:
        return line.insert(at, anyLine());
    }
}
