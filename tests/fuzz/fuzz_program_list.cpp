#include "fuzz_check.h"
#include "fuzz_talk.h"
#include "fuzz_targets.h"

/// "listProgram": a question for each answer, programs counted from 1, and what is stored is what is published.
void fuzz::program_list(const QByteArray& bytes)
{
    FuzzInput input(bytes);
    TalkSetUp setUp;
    setUp.command = QStringLiteral("listProgram");
    const FuzzTalk talk = runFuzzTalk(setUp, input);

    constexpr int c_mostIdle = 6;
    const QStringList frames = talk.frames();
    FUZZ_CHECK(frames.count(QStringLiteral("IDLE")) <= c_mostIdle);
    FUZZ_CHECK(frames.size() <= talk.line.count('\n') + 1);
    if (talk.published(QStringLiteral("cmd_success")).isEmpty()) {
        FUZZ_CHECK(!talk.outcome.properties.contains(QStringLiteral("programList")));
        return;
    }
    const QVariantList programs = talk.outcome.properties.value(QStringLiteral("programList")).toList();
    FUZZ_CHECK(talk.outcome.properties.value(QStringLiteral("programListCount")) == QVariant(programs.size()));
    // A zero byte takes what is behind it in its chunk away, so that two ends of a line may meet.
    FUZZ_CHECK(programs.size() <= (talk.isPlain() ? talk.line.count("OK:") : talk.line.count('\n')));
    for (int i = 0; i < programs.size(); ++i) {
        FUZZ_CHECK(programs.at(i).toMap().value(QStringLiteral("progId")) == QVariant(i + 1));
    }
}
