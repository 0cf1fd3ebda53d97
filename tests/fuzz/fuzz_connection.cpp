#include "fuzz_check.h"
#include "fuzz_talk.h"
#include "fuzz_targets.h"

/// "searchAndConnect": it dials only what a scan has named, and is done only when the dongle or the wrench said so.
void fuzz::connection(const QByteArray& bytes)
{
    FuzzInput input(bytes);
    TalkSetUp setUp;
    setUp.command = QStringLiteral("searchAndConnect");
    setUp.parameters.insert(QStringLiteral("serialId"), QString::number(2209 + input.number(0, 3)));
    const FuzzTalk talk = runFuzzTalk(setUp, input);

    const QString heard = QString::fromUtf8(talk.line).remove(QLatin1Char(':'));
    const QStringList frames = talk.frames();
    for (const QString& frame : frames) {
        const bool isDial = frame.startsWith(QLatin1String("ATD "));
        FUZZ_CHECK(isDial || frame == QLatin1String("ATS") || frame == QLatin1String("ATH") ||
                   frame == QLatin1String("DI:C") || frame == QLatin1String("DT:0"));
        FUZZ_CHECK(!isDial || !talk.isPlain() || heard.contains(frame.mid(4)));
    }
    FUZZ_CHECK(frames.count(QStringLiteral("DI:C")) <= 1);
    FUZZ_CHECK(frames.count(QStringLiteral("DT:0")) <= 1);
    const bool isDone = talk.published(QStringLiteral("cmd_success")).contains(QStringLiteral("true"));
    FUZZ_CHECK(!isDone || !talk.isPlain() || talk.line.contains("DATA") || talk.line.contains("OK"));
    FUZZ_CHECK(!isDone || !talk.published(QStringLiteral("failed")).contains(QStringLiteral("true")));
}
