#include "fuzz_check.h"
#include "fuzz_input.h"
#include "fuzz_targets.h"
#include "history/history_export.h"
#include "history/history_format.h"
#include "history_fixture.h"

#include <QJsonDocument>

namespace {

/// A whole history, made once.
const QByteArray& goodFile()
{
    static const QByteArray file = [] {
        const HistoryFixture fixture;
        QVector<HistoryRecord> records{HistoryFixture::result(1, 1), HistoryFixture::result(2, 2, false),
                                       HistoryFixture::gap(2, 5, 3), HistoryFixture::result(5, 3)};
        HistoryRecord repeat = HistoryFixture::result(5, 4);
        repeat.kind = HistoryRecord::Kind::Repeat;
        records.append(repeat);
        FUZZ_CHECK(fixture.fill(records));
        return fixture.bytes();
    }();
    return file;
}

/// The whole file with some bytes replaced, or cut off; or something else altogether.
QByteArray damagedFile(FuzzInput& input)
{
    constexpr int c_page = 256;
    constexpr int c_mostPatches = 32;
    if (input.flag()) {
        return input.rest();
    }
    QByteArray file = goodFile();
    for (int patch = 0; patch < c_mostPatches && !input.isAtEnd(); ++patch) {
        int place = c_page * input.number(0, 255);
        place += input.number(0, 255);
        const QByteArray bytes = input.bytes(input.number(0, 15));
        if (bytes.isEmpty()) {
            file.truncate(place);
        } else {
            file.replace(place % (file.size() + 1), bytes.size(), bytes);
        }
    }
    return file;
}

void checkRecord(const HistoryRecord& record)
{
    const QByteArray csv = history_format::toCsv(record);
    FUZZ_CHECK(csv.endsWith("\r\n"));
    FUZZ_CHECK(csv.count('"') % 2 == 0);
    FUZZ_CHECK(csv.count(',') >= history_format::csvTitles().count(','));
    const QJsonObject json = history_format::toJson(record);
    FUZZ_CHECK(!history_format::nameOf(record.kind).isEmpty());
    FUZZ_CHECK(QJsonDocument::fromJson(QJsonDocument(json).toJson(QJsonDocument::Compact)).object() == json);
    FUZZ_CHECK(record.missing() >= 0);
}

void checkProblem(const std::optional<Problem>& problem)
{
    FUZZ_CHECK(!problem || !problem->what.isEmpty());
}

} // namespace

/// A damaged history: it is refused by name and left as it was, or what it yields can be shown and exported.
void fuzz::history_file(const QByteArray& bytes)
{
    FuzzInput input(bytes);
    const QByteArray damaged = damagedFile(input);
    const HistoryFixture fixture;
    FUZZ_CHECK(fixture.put(damaged));
    {
        HistoryStore store(fixture.folder());
        std::optional<Problem> problem = store.openToRead();
        checkProblem(problem);
        if (!problem) {
            HistoryQuery query(store.database(), {});
            QVector<HistoryRecord> records;
            HistoryTotals totals;
            qint64 lastId = 0;
            constexpr int c_most = 1000;
            problem = query.page({}, c_most, &records);
            checkProblem(problem);
            for (const HistoryRecord& record : qAsConst(records)) {
                checkRecord(record);
            }
            checkProblem(query.totals({}, &totals));
            checkProblem(query.lastId(&lastId));
            checkProblem(query.storedAfter(0, c_most, &records));
        }
    }
    FUZZ_CHECK(fixture.bytes() == damaged);
    HistoryStore store(fixture.folder());
    const std::optional<Problem> refusal = store.openToWrite();
    checkProblem(refusal);
    if (refusal) {
        FUZZ_CHECK(fixture.bytes() == damaged);
        return;
    }
    QVector<HistoryRecord> added{HistoryFixture::result(6, 5)};
    const std::optional<Problem> failure = store.append(added);
    checkProblem(failure);
    FUZZ_CHECK(failure || added.constFirst().id > 0);
}
