#include "fuzz_check.h"
#include "fuzz_talk.h"
#include "fuzz_targets.h"

#include <QVariant>

namespace {

/// Lines that are results, told by their bytes alone: their beginning, and at least six fields.
int resultLinesIn(const QByteArray& stream)
{
    int count = 0;
    int from = 0;
    for (int end = stream.indexOf("\r\n"); end >= 0; end = stream.indexOf("\r\n", from)) {
        const QByteArray line = stream.mid(from, end - from).trimmed();
        count += line.startsWith("RE:F:") && line.count(',') >= 5 ? 1 : 0;
        from = end + 2;
    }
    return count;
}

} // namespace

/// "listenEventsData": each result line once and in order (that is in the naive talk), and none that no line carried.
void fuzz::listener(const QByteArray& bytes)
{
    FuzzInput input(bytes);
    TalkSetUp setUp;
    setUp.command = QStringLiteral("listenEventsData");
    setUp.properties.insert(QStringLiteral("currentProgId"), input.number(0, 9));
    const FuzzTalk talk = runFuzzTalk(setUp, input);

    const int results = talk.published(QStringLiteral("eventData")).size();
    FUZZ_CHECK(results <= resultLinesIn(talk.line) || !talk.isPlain());
    FUZZ_CHECK(talk.frames().isEmpty());
}
