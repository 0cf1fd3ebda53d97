#include "fuzz_talk.h"

#include <QRegularExpression>

#include <algorithm>

#include "command_talk.h"
#include "fuzz_check.h"
#include "log_capture.h"

namespace {

const QString c_frameMark = QStringLiteral("host>   ");

QVector<QVariantMap> repliesOf(const QVector<QByteArray>& chunks, int repeatEach)
{
    QVector<QVariantMap> replies;
    for (const QByteArray& chunk : chunks) {
        const int number = replies.size() + 1;
        replies.append({{QStringLiteral("frame"), chunk}, {QStringLiteral("number"), number}});
        if (repeatEach > 0 && number % repeatEach == 0) {
            replies.append(replies.last());
        }
    }
    return replies;
}

/// Without what belongs to the chunks: the numbers of the replies, and what a scan has published on the way.
TalkOutcome withoutChunks(TalkOutcome outcome, const TalkSetUp& setUp)
{
    static const QRegularExpression number(QStringLiteral("\"eventCountNo\":[0-9]+"));
    outcome.events.replaceInStrings(number, QString());
    if (setUp.command == QLatin1String("startDetection")) {
        outcome.events = outcome.events.mid(outcome.events.size() - 1);
    }
    return outcome;
}

int sizeOf(const QStringList& texts)
{
    int size = 0;
    for (const QString& text : texts) {
        size += text.size();
    }
    return size;
}

} // namespace

bool FuzzTalk::isPlain() const
{
    return std::all_of(line.cbegin(), line.cend(), [](char byte) { return byte > 0; });
}

QStringList FuzzTalk::frames() const
{
    QStringList frames;
    for (const QString& event : outcome.events) {
        if (event.startsWith(c_frameMark)) {
            frames.append(event.mid(c_frameMark.size()));
        }
    }
    return frames;
}

QStringList FuzzTalk::published(const QString& name) const
{
    const QString mark = QStringLiteral("result  %1=").arg(name);
    QStringList values;
    for (const QString& event : outcome.events) {
        if (event.startsWith(mark)) {
            values.append(event.mid(mark.size()));
        }
    }
    return values;
}

FuzzTalk runFuzzTalk(const TalkSetUp& setUp, FuzzInput& input)
{
    const LogCapture log;
    const int manner = input.number(0, c_manners);
    const int repeatEach = input.number(0, 9);
    FuzzTalk talk;
    talk.line = input.rest();
    const QVector<QVariantMap> inPieces = repliesOf(piecesOf(talk.line, manner), repeatEach);
    const QVector<QVariantMap> inOne = repliesOf({talk.line}, 0);
    for (const QVariantMap& reply : inPieces) {
        talk.delivered += reply.value(QStringLiteral("frame")).toByteArray();
    }
    // Each one registers types for the panel, which are never freed.
    static PDeviceHaitor plugin(QUuid::createUuid(), nullptr);

    talk.outcome = CommandTalk::play(plugin, setUp, inPieces);
    FUZZ_CHECK(talk.outcome == CommandTalk::playNaively(setUp, inPieces));
    const TalkOutcome whole = CommandTalk::play(plugin, setUp, inOne);
    FUZZ_CHECK(whole == CommandTalk::playNaively(setUp, inOne));
    // The scan takes a repeated reply for new.
    const bool isSame = repeatEach == 0 || setUp.command != QLatin1String("startDetection");
    if (isSame && talk.isPlain() && !talk.line.isEmpty()) {
        FUZZ_CHECK(withoutChunks(talk.outcome, setUp) == withoutChunks(whole, setUp));
    }

    // A line makes a few events at most, and a reply of the scan one with all it has found.
    constexpr int c_eventsALine = 4;
    constexpr int c_eventsAround = 8;
    const int lines = talk.line.count('\n');
    FUZZ_CHECK(talk.outcome.events.size() <= c_eventsAround + c_eventsALine * lines + inPieces.size());
    constexpr int c_textAround = 1000;
    constexpr int c_textALine = 400; // the names of the entries
    constexpr int c_textAByte = 12;  // "\u0001", in two entries
    const int bound = c_textAround + c_textALine * lines + c_textAByte * talk.line.size();
    FUZZ_CHECK(sizeOf(whole.events) <= bound);
    return talk;
}
