#include "command_guess.h"

#include <QByteArrayList>

#include <algorithm>

#include "trace_items.h"

namespace {
/// The frames from that place on.
QList<QByteArray> framesFrom(const QVector<TraceItem>& items, int at)
{
    QList<QByteArray> frames;
    for (int i = at; i < items.size(); ++i) {
        if (items.at(i).isFrame) {
            frames.append(items.at(i).text);
        }
    }
    return frames;
}

/// The serial number of the wrench that was heard with that address (without colons); empty: none was.
QByteArray serialOf(const QVector<TraceItem>& items, int at, const QByteArray& address)
{
    for (int i = at; i < items.size(); ++i) {
        const QList<QByteArray> fields = items.at(i).text.simplified().split(' ');
        if (!items.at(i).isFrame && fields.size() >= 5 && fields.at(0) == "RESP" &&
            QByteArray(fields.at(1)).replace(':', "") == address) {
            return fields.at(3);
        }
    }
    return {};
}

CommandGuess search(const QVector<TraceItem>& items, int at)
{
    CommandGuess guess;
    guess.name = QStringLiteral("searchAndConnect");
    guess.needsSerialId = true;
    int hangUps = 0;
    const QList<QByteArray> frames = framesFrom(items, at).mid(1);
    for (const QByteArray& frame : frames) {
        if (frame.startsWith("ATD ")) {
            const QByteArray serial = serialOf(items, at, frame.mid(4));
            guess.needsSerialId = serial.isEmpty();
            guess.parameters = QStringLiteral("serialId=\"%1\"").arg(QString::fromLatin1(serial));
            return guess;
        }
        if (frame != "ATH") {
            break;
        }
        ++hangUps;
    }
    // A search that is given up hangs up twice, or asks who is there behind a refusal.
    const bool probes = frames.value(0) == "DI:C";
    if (hangUps < 2 && !probes) {
        return {QStringLiteral("startDetection"), {}, {}, false};
    }
    return guess;
}

CommandGuess walk(const QVector<TraceItem>& items, int at)
{
    QList<QByteArray> frames = framesFrom(items, at);
    while (frames.value(0) == "IDLE") {
        frames.removeFirst();
    }
    const auto isStep = [](const QByteArray& frame) { return frame == "TR:N"; };
    const int steps = static_cast<int>(std::find_if_not(frames.cbegin(), frames.cend(), isStep) - frames.cbegin());
    if (steps == 0 && isStep(frames.value(1))) {
        return {QStringLiteral("listProgram"), {}, {}, false};
    }
    const int program = steps + 1;
    CommandGuess guess{QStringLiteral("setProgram"), QStringLiteral("progId=%1").arg(program), {}, false};
    guess.given = QStringLiteral("currentProgId=0 programListCount=%1").arg(program);
    return guess;
}
} // namespace

CommandGuess guessCommand(const QVector<TraceItem>& items, int at)
{
    const QByteArray& frame = items.at(at).text;
    if (frame == "ATS") {
        return search(items, at);
    }
    if (frame == "IDLE") {
        return walk(items, at);
    }
    if (frame == "DT:0") {
        return {QStringLiteral("setLock"), QStringLiteral("lock=false"), {}, false};
    }
    if (frame == "DT:1") {
        const bool configures = framesFrom(items, at).value(1) == "SC:TL:2";
        return configures ? CommandGuess{QStringLiteral("sendInitConfig"), {}, {}, false}
                          : CommandGuess{QStringLiteral("setLock"), QStringLiteral("lock=true"), {}, false};
    }
    return {};
}
