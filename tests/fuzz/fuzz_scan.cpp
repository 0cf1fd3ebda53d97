#include "fuzz_check.h"
#include "fuzz_talk.h"
#include "fuzz_targets.h"

/// "startDetection": one list for each reply, which never gets shorter, and never an end of its own.
void fuzz::scan(const QByteArray& bytes)
{
    FuzzInput input(bytes);
    TalkSetUp setUp;
    setUp.command = QStringLiteral("startDetection");
    const FuzzTalk talk = runFuzzTalk(setUp, input);

    FUZZ_CHECK(talk.frames() == QStringList{QStringLiteral("ATS")});
    int found = 0;
    const QStringList lists = talk.published(QStringLiteral("lastResults"));
    for (const QString& list : lists) {
        const int now = list.count(QStringLiteral("\"mac\":"));
        FUZZ_CHECK(now >= found);
        found = now;
    }
    // A repeated reply is taken for new: with the one before it, it may make an answer that was on no line.
    FUZZ_CHECK(found <= talk.delivered.count("RESP") || !talk.isPlain());
    FUZZ_CHECK(!talk.outcome.events.last().startsWith(QLatin1String("end")));
}
