#include "fuzz_check.h"
#include "fuzz_talk.h"
#include "fuzz_targets.h"

/// "sendInitConfig": its three frames in their order, done only behind the last, and either done or failed.
void fuzz::configuration(const QByteArray& bytes)
{
    FuzzInput input(bytes);
    TalkSetUp setUp;
    setUp.command = QStringLiteral("sendInitConfig");
    const FuzzTalk talk = runFuzzTalk(setUp, input);

    const QStringList all{QStringLiteral("DT:1"), QStringLiteral("SC:TL:2"), QStringLiteral("RE:1")};
    const QStringList frames = talk.frames();
    FUZZ_CHECK(frames == all.mid(0, frames.size()));
    FUZZ_CHECK(talk.outcome.properties.value(QStringLiteral("lock")) == QVariant(frames.size() > 1));
    const bool isDone = talk.published(QStringLiteral("cmd_success")).contains(QStringLiteral("true"));
    const bool hasFailed = talk.published(QStringLiteral("failed")).contains(QStringLiteral("true"));
    FUZZ_CHECK(!isDone || frames.size() == all.size());
    FUZZ_CHECK(!isDone || !hasFailed);
    FUZZ_CHECK((isDone || hasFailed) == talk.outcome.events.last().startsWith(QLatin1String("end")));
}
