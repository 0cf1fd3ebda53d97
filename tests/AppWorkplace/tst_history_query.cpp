#include <QStringList>
#include <QTest>
#include <QVector>

#include "history_fixture.h"

namespace {

constexpr qint64 c_us = HistoryFixture::c_usPerSecond;

/// Two wrenches, three programs, good and bad ones, gaps; one entry a second, in an order of storing of their own.
QVector<HistoryRecord> mixture()
{
    QVector<HistoryRecord> records;
    for (int i = 0; i < 60; ++i) {
        const QString serialId = i % 3 == 0 ? QStringLiteral("A") : QStringLiteral("B");
        records.append(HistoryFixture::result(i, i, i % 5 != 0, 1 + i % 4, serialId));
        if (i % 20 == 10) {
            HistoryRecord gap = HistoryFixture::gap(i, i + 2, i);
            gap.serialId = serialId;
            records.append(gap);
        }
    }
    std::reverse(records.begin(), records.begin() + 30); // a clock that was set back
    return records;
}

bool passes(const HistoryFilter& filter, const HistoryRecord& record)
{
    const bool isResult = record.kind == HistoryRecord::Kind::Result;
    return (!filter.sinceUs || record.arrivedUs >= *filter.sinceUs) &&
           (!filter.untilUs || record.arrivedUs < *filter.untilUs) &&
           (filter.serialId.isEmpty() || record.serialId == filter.serialId) &&
           (isResult || (!filter.program && !filter.isGood)) &&
           (!filter.program || record.entries.at(HistoryRecord::ProgId).toInt() == *filter.program) &&
           (!filter.isGood || record.isGood == *filter.isGood);
}

/// What a filter lets through, in the order of a list.
QStringList expected(const HistoryFilter& filter)
{
    QVector<HistoryRecord> records = mixture();
    for (int i = 0; i < records.size(); ++i) {
        records[i].id = i + 1;
    }
    std::stable_sort(records.begin(), records.end(),
                     [](const HistoryRecord& a, const HistoryRecord& b) { return a.arrivedUs < b.arrivedUs; });
    records.erase(std::remove_if(records.begin(), records.end(),
                                 [&](const HistoryRecord& record) { return !passes(filter, record); }),
                  records.end());
    return HistoryFixture::readingsOf(records);
}

/// Every combination of the filters.
QVector<HistoryFilter> allFilters()
{
    QVector<HistoryFilter> filters;
    for (int bits = 0; bits < 32; ++bits) {
        for (const bool isGood : {true, false}) {
            HistoryFilter filter;
            filter.sinceUs = (bits & 1) != 0 ? std::optional<qint64>(12 * c_us) : std::nullopt;
            filter.untilUs = (bits & 2) != 0 ? std::optional<qint64>(47 * c_us) : std::nullopt;
            filter.serialId = (bits & 4) != 0 ? QStringLiteral("B") : QString();
            filter.program = (bits & 8) != 0 ? std::optional<int>(3) : std::nullopt;
            filter.isGood = (bits & 16) != 0 ? std::optional<bool>(isGood) : std::nullopt;
            filters.append(filter);
        }
    }
    return filters;
}

} // namespace

class TestHistoryQuery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void listsWhatAFilterLetsThrough();
    void pagesHoldEachEntryOnce();
    void listsEntriesOfOneMomentInTheOrderOfStoring();
    void countsWhatAFilterLetsThrough();
    void countsGapsWhateverTheProgram();
    void findsTheLastResults_data();
    void findsTheLastResults();
    void listsWhatWasStoredSince();
    void seesNothingThatIsStoredBetweenBeginAndEnd();
    void answersEveryPageFromAnIndex();
    void refusesAnEntryOfNoKnownKind();

private:
    HistoryFixture m_history;
    std::unique_ptr<HistoryStore> m_store;
};

void TestHistoryQuery::initTestCase()
{
    QVERIFY(m_history.fill(mixture()));
}

void TestHistoryQuery::init()
{
    m_store = std::make_unique<HistoryStore>(m_history.folder());
    QVERIFY(!m_store->openToRead());
}

void TestHistoryQuery::listsWhatAFilterLetsThrough()
{
    const QVector<HistoryFilter> filters = allFilters();
    for (const HistoryFilter& filter : filters) {
        QCOMPARE(m_history.readings(filter), expected(filter));
    }
}

void TestHistoryQuery::pagesHoldEachEntryOnce()
{
    for (const int size : {1, 7, 60}) {
        HistoryQuery query(m_store->database(), {});
        QVector<HistoryRecord> all;
        QVector<HistoryRecord> page;
        std::optional<HistoryKey> behind;
        do {
            QVERIFY(!query.page(behind, size, &page));
            QVERIFY(page.size() <= size);
            all += page;
            if (!page.isEmpty()) {
                behind = HistoryKey{page.constLast().arrivedUs, page.constLast().id};
            }
        } while (!page.isEmpty());
        QCOMPARE(HistoryFixture::readingsOf(all), expected({}));
    }
}

void TestHistoryQuery::listsEntriesOfOneMomentInTheOrderOfStoring()
{
    const HistoryFixture history;
    QVERIFY(history.fill({HistoryFixture::result(3, 1), HistoryFixture::result(1, 1, false),
                          HistoryFixture::gap(1, 3, 1), HistoryFixture::result(2, 1)}));
    QCOMPARE(history.readings(),
             (QStringList{QStringLiteral("3"), QStringLiteral("1"), QStringLiteral("gap"), QStringLiteral("2")}));
    HistoryStore store(history.folder());
    QVERIFY(!store.openToRead());
    QVector<HistoryRecord> page;
    QVERIFY(!HistoryQuery(store.database(), {}).page(HistoryKey{c_us, 2}, 10, &page));
    QCOMPARE(HistoryFixture::readingsOf(page), (QStringList{QStringLiteral("gap"), QStringLiteral("2")}));
}

void TestHistoryQuery::countsWhatAFilterLetsThrough()
{
    const QVector<HistoryFilter> filters = allFilters();
    for (const HistoryFilter& filter : filters) {
        HistoryTotals totals;
        QVERIFY(!HistoryQuery(m_store->database(), filter).totals({}, &totals));
        QStringList results = expected(filter);
        results.removeAll(QStringLiteral("gap"));
        QCOMPARE(totals.good + totals.notGood, qint64(results.size()));
        QVERIFY(!filter.isGood || (*filter.isGood ? totals.notGood : totals.good) == 0);
    }
}

void TestHistoryQuery::countsGapsWhateverTheProgram()
{
    HistoryFilter filter;
    filter.program = 3;
    filter.serialId = QStringLiteral("B");
    HistoryTotals totals;
    QVERIFY(!HistoryQuery(m_store->database(), filter).totals({}, &totals));
    QCOMPARE(totals.gaps, 2); // after 10 and 50; that after 30 is of the other wrench
    QCOMPARE(totals.repeats, 0);
}

void TestHistoryQuery::findsTheLastResults_data()
{
    QTest::addColumn<int>("wanted");
    QTest::addColumn<QStringList>("found");
    QTest::newRow("the last one") << 1 << QStringList{QStringLiteral("59")};
    QTest::newRow("with the gap among them")
        << 10 << QStringList{QStringLiteral("50"), QStringLiteral("gap"), QStringLiteral("51"), QStringLiteral("52"),
                             QStringLiteral("53"), QStringLiteral("54"),  QStringLiteral("55"), QStringLiteral("56"),
                             QStringLiteral("57"), QStringLiteral("58"),  QStringLiteral("59")};
    QTest::newRow("all") << 60 << expected({});
    QTest::newRow("more than there are") << 1000 << expected({});
}

void TestHistoryQuery::findsTheLastResults()
{
    QFETCH(int, wanted);
    QFETCH(QStringList, found);
    HistoryQuery query(m_store->database(), {});
    std::optional<HistoryKey> behind;
    QVector<HistoryRecord> page;
    QVERIFY(!query.beforeLast(wanted, &behind));
    QVERIFY(!query.page(behind, 100, &page));
    QCOMPARE(HistoryFixture::readingsOf(page), found);
}

void TestHistoryQuery::listsWhatWasStoredSince()
{
    const HistoryFixture history;
    QVERIFY(history.fill({HistoryFixture::result(1, 9), HistoryFixture::result(2, 3), HistoryFixture::gap(2, 4, 2),
                          HistoryFixture::result(4, 1, false)}));
    HistoryStore store(history.folder());
    QVERIFY(!store.openToRead());
    QVector<HistoryRecord> page;
    QVERIFY(!HistoryQuery(store.database(), {}).storedAfter(1, 10, &page));
    QCOMPARE(HistoryFixture::readingsOf(page),
             (QStringList{QStringLiteral("2"), QStringLiteral("gap"), QStringLiteral("4")}));
    HistoryFilter good;
    good.isGood = true;
    QVERIFY(!HistoryQuery(store.database(), good).storedAfter(0, 10, &page));
    QCOMPARE(HistoryFixture::readingsOf(page), (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
}

void TestHistoryQuery::seesNothingThatIsStoredBetweenBeginAndEnd()
{
    const HistoryFixture history;
    QVERIFY(history.fill({HistoryFixture::result(1, 1)}));
    HistoryStore store(history.folder());
    QVERIFY(!store.openToRead());
    HistoryQuery query(store.database(), {});
    QVector<HistoryRecord> page;
    QVERIFY(!query.begin());
    QVERIFY(!query.page({}, 10, &page));
    QVERIFY(history.fill({HistoryFixture::result(2, 2)}));
    QVERIFY(!query.page({}, 10, &page));
    QCOMPARE(page.size(), 1);
    query.end();
    QVERIFY(!query.page({}, 10, &page));
    QCOMPARE(page.size(), 2);
}

// A page of a million entries is to cost what it holds: nothing is scanned, and nothing is sorted.
void TestHistoryQuery::answersEveryPageFromAnIndex()
{
    const QVector<HistoryFilter> filters = allFilters();
    for (const HistoryFilter& filter : filters) {
        const QString statement = HistoryQuery(m_store->database(), filter)
                                      .pageStatement(HistoryKey{})
                                      .replace(QLatin1String(":most"), QLatin1String("9"));
        QSqlQuery plan = m_store->database().prepared(QStringLiteral("EXPLAIN QUERY PLAN ") + statement);
        QVERIFY(plan.exec());
        while (plan.next()) {
            const QString step = plan.value(3).toString();
            QVERIFY2(!step.contains(QLatin1String("SCAN")) && !step.contains(QLatin1String("TEMP B-TREE")),
                     qPrintable(step + QLatin1Char('\n') + statement));
        }
    }
}

void TestHistoryQuery::refusesAnEntryOfNoKnownKind()
{
    const HistoryFixture history;
    QVERIFY(history.fill({HistoryFixture::result(1)}));
    HistoryStore store(history.folder());
    QVERIFY(!store.openToWrite());
    QVERIFY(store.database().run(QStringLiteral("PRAGMA ignore_check_constraints = ON")));
    QVERIFY(store.database().run(QStringLiteral("UPDATE entries SET kind = 9, good = NULL")));
    QVector<HistoryRecord> records;
    const std::optional<Problem> problem = HistoryQuery(store.database(), {}).page({}, 9, &records);
    QVERIFY(problem);
    QVERIFY2(problem->cause.contains(QLatin1String("kind 9 of entry 1")), qPrintable(problem->cause));
}

QTEST_GUILESS_MAIN(TestHistoryQuery)
#include "tst_history_query.moc"
