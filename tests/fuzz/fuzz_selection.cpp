#include "fuzz_check.h"
#include "fuzz_talk.h"
#include "fuzz_targets.h"

/// "setProgram" on its way through the wrench's programs: as many steps as it takes, and done only behind them.
void fuzz::selection(const QByteArray& bytes)
{
    FuzzInput input(bytes);
    const int wanted = input.number(0, 9);
    const int count = input.number(0, 9);
    TalkSetUp setUp;
    setUp.command = QStringLiteral("setProgram");
    setUp.parameters.insert(QStringLiteral("progId"), wanted);
    setUp.properties.insert(QStringLiteral("currentProgId"), -1);
    setUp.properties.insert(QStringLiteral("programListCount"), count);
    const FuzzTalk talk = runFuzzTalk(setUp, input);

    QStringList all{QStringLiteral("IDLE")};
    for (int step = 1; step < wanted; ++step) {
        all.append(QStringLiteral("TR:N"));
    }
    all.append(QStringLiteral("TR:C"));
    const QStringList frames = talk.frames();
    FUZZ_CHECK(frames == all.mid(0, frames.size()));
    FUZZ_CHECK(frames.isEmpty() == (wanted < 1 || wanted > count));
    const bool isDone = talk.published(QStringLiteral("cmd_success")).contains(QStringLiteral("true"));
    FUZZ_CHECK(!isDone || frames.size() == all.size());
    FUZZ_CHECK(isDone == !talk.published(QStringLiteral("presetData")).isEmpty());
}
