#include <QStringList>
#include <QTest>
#include <QVariant>
#include <QVector>

#include "history/history_index.h"
#include "history_fixture.h"

namespace {

constexpr int c_page = HistoryIndex::c_page;

/// Results one second after the other, from that second on.
QVector<HistoryRecord> results(int count, int from = 0)
{
    QVector<HistoryRecord> records;
    for (int i = from; i < from + count; ++i) {
        records.append(HistoryFixture::result(i, i, i % 5 != 0, 1 + i % 4));
    }
    return records;
}

} // namespace

class TestHistoryIndex : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void knowsEachPageOfAnyCount_data();
    void knowsEachPageOfAnyCount();
    void knowsTheNewestPagesFirst();
    void numbersWhatComesBehind_data();
    void numbersWhatComesBehind();
    void numbersWhatComesBetween_data();
    void numbersWhatComesBetween();
    void totalsAfterAreWhatCame();
    void findsWrenchesAndPrograms();
    void answersEveryStepFromAnIndex();

private:
    /// An index over all that is stored; complete.
    void open(const HistoryFilter& filter = {});
    /// What it says is stored, in its order.
    QStringList all() const;
    /// Stores these, tells the index, and gives what it says of them.
    QVector<HistoryIndex::Insertion> store(const QVector<HistoryRecord>& records);

    std::unique_ptr<HistoryFixture> m_history;
    std::unique_ptr<HistoryStore> m_store;
    std::unique_ptr<HistoryIndex> m_index;
    qint64 m_lastId = 0;
};

void TestHistoryIndex::init()
{
    m_index.reset();
    m_store.reset();
    m_history = std::make_unique<HistoryFixture>();
}

void TestHistoryIndex::open(const HistoryFilter& filter)
{
    m_store = std::make_unique<HistoryStore>(m_history->folder());
    QVERIFY(!m_store->openToRead());
    HistoryQuery query(m_store->database(), filter);
    HistoryTotals totals;
    QVERIFY(!query.totals({}, &totals));
    QVERIFY(!query.lastId(&m_lastId));
    m_index = std::make_unique<HistoryIndex>(m_store->database(), filter);
    QVERIFY(!m_index->begin(totals.listed(filter)));
    QVERIFY(!m_index->extend(HistoryFixture::c_all));
    QVERIFY(m_index->isComplete());
}

QStringList TestHistoryIndex::all() const
{
    QStringList readings;
    for (int page = 0; qint64{page} * c_page < m_index->entries(); ++page) {
        QVector<HistoryRecord> records;
        if (m_index->read(page, &records)) {
            return {QStringLiteral("unreadable")};
        }
        readings += HistoryFixture::readingsOf(records);
    }
    return readings;
}

QVector<HistoryIndex::Insertion> TestHistoryIndex::store(const QVector<HistoryRecord>& records)
{
    QVector<HistoryRecord> stored;
    QVector<HistoryIndex::Insertion> insertions;
    if (!m_history->fill(records) ||
        HistoryQuery(m_store->database(), {}).storedAfter(m_lastId, HistoryFixture::c_all, &stored) ||
        m_index->take(stored, &insertions)) {
        qWarning("not stored");
    }
    return insertions;
}

void TestHistoryIndex::knowsEachPageOfAnyCount_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, c_page - 1, c_page, c_page + 1, 7 * c_page, 7 * c_page + 3}) {
        QTest::addRow("%d", count) << count;
    }
}

void TestHistoryIndex::knowsEachPageOfAnyCount()
{
    QFETCH(int, count);
    QVERIFY(m_history->fill(results(count)));
    open();
    QCOMPARE(m_index->entries(), count);
    QCOMPARE(all(), m_history->readings());
}

void TestHistoryIndex::knowsTheNewestPagesFirst()
{
    QVERIFY(m_history->fill(results(5 * c_page + 10)));
    open();
    QVERIFY(!m_index->begin(5 * c_page + 10));
    QVERIFY(!m_index->knows(5));
    QVERIFY(!m_index->extend(2));
    QVERIFY(m_index->knows(5) && m_index->knows(4) && !m_index->knows(3));
    QVector<HistoryRecord> records;
    QVERIFY(!m_index->read(5, &records));
    QCOMPARE(HistoryFixture::readingsOf(records), m_history->readings().mid(5 * c_page));
}

void TestHistoryIndex::numbersWhatComesBehind_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("more");
    QTest::newRow("the first ones") << 0 << 3;
    QTest::newRow("within a page") << 10 << 5;
    QTest::newRow("a new page") << c_page << 1;
    QTest::newRow("over several pages") << c_page - 1 << 3 * c_page;
}

void TestHistoryIndex::numbersWhatComesBehind()
{
    QFETCH(int, before);
    QFETCH(int, more);
    QVERIFY(m_history->fill(results(before)));
    open();
    const QVector<HistoryIndex::Insertion> insertions = store(results(more, before));
    QCOMPARE(insertions.size(), more);
    for (int i = 0; i < more; ++i) {
        QCOMPARE(insertions.at(i).number, before + i);
        QCOMPARE(insertions.at(i).record.entries.at(HistoryRecord::ReadingNumber).toInt(), before + i);
    }
    QCOMPARE(all(), m_history->readings());
}

void TestHistoryIndex::numbersWhatComesBetween_data()
{
    QTest::addColumn<QVector<int>>("seconds");
    QTest::newRow("before the first") << QVector<int>{-5};
    QTest::newRow("near the end") << QVector<int>{3 * c_page + 4};
    QTest::newRow("at a page's beginning") << QVector<int>{c_page, c_page};
    QTest::newRow("some and some behind") << QVector<int>{900, 7, 2 * c_page + 1, 901, 7};
    QTest::newRow("so many that there are more pages") << QVector<int>(c_page + 7, 150);
}

void TestHistoryIndex::numbersWhatComesBetween()
{
    QFETCH(QVector<int>, seconds);
    QVERIFY(m_history->fill(results(3 * c_page + 50)));
    open();
    QStringList list = all();
    QVector<HistoryRecord> records;
    for (int i = 0; i < seconds.size(); ++i) {
        records.append(HistoryFixture::result(5000 + i, seconds.at(i)));
    }
    const QVector<HistoryIndex::Insertion> insertions = store(records);
    QCOMPARE(insertions.size(), seconds.size());
    // One after the other they make the old list the new one.
    for (const HistoryIndex::Insertion& insertion : insertions) {
        list.insert(int(insertion.number), HistoryFixture::readingsOf({insertion.record}).constFirst());
    }
    QCOMPARE(list, m_history->readings());
    QCOMPARE(all(), m_history->readings());
}

void TestHistoryIndex::totalsAfterAreWhatCame()
{
    QVERIFY(m_history->fill(results(60)));
    open();
    QVector<HistoryRecord> more = results(40, 60);
    more.append(HistoryFixture::gap(100, 103, 100));
    more.append(HistoryFixture::result(103, 101, true, 2, QStringLiteral("2211")));
    QVERIFY(m_history->fill(more));
    for (int bits = 0; bits < 16; ++bits) {
        HistoryFilter filter;
        filter.serialId = (bits & 1) != 0 ? QStringLiteral("2210") : QString();
        filter.program = (bits & 2) != 0 ? std::optional<int>(2) : std::nullopt;
        filter.isGood = (bits & 4) != 0 ? std::optional<bool>(false) : std::nullopt;
        filter.sinceUs = (bits & 8) != 0 ? std::optional<qint64>(80 * HistoryFixture::c_usPerSecond) : std::nullopt;
        HistoryTotals came;
        HistoryTotals now;
        HistoryTotals before;
        HistoryQuery query(m_store->database(), filter);
        QVERIFY(!query.totalsAfter(m_lastId, &came) && !query.totals({}, &now) && !query.totalsAfter(0, &before));
        QCOMPARE(before.good, now.good);
        QCOMPARE(before.notGood, now.notGood);
        HistoryFilter sinceThen = filter;
        sinceThen.sinceUs = std::max(filter.sinceUs.value_or(0), 60 * HistoryFixture::c_usPerSecond);
        QVERIFY(!HistoryQuery(m_store->database(), sinceThen).totals({}, &now));
        QCOMPARE(came.good, now.good);
        QCOMPARE(came.notGood, now.notGood);
        QCOMPARE(came.gaps, 1);
    }
}

void TestHistoryIndex::findsWrenchesAndPrograms()
{
    QVector<HistoryRecord> records = results(10);
    records.append(HistoryFixture::result(1, 20, true, 12, QStringLiteral("0007")));
    records.append(HistoryFixture::result(1, 21, true, 5, QStringLiteral("b")));
    records[0].entries.at(HistoryRecord::ProgId) = QVariant();
    records[1].entries.at(HistoryRecord::ProgId) = QStringLiteral("text");
    QVERIFY(m_history->fill(records));
    open();
    QStringList wrenches;
    QStringList programs;
    QVERIFY(!HistoryKeys(m_store->database(), {}).origins(&wrenches, &programs));
    QCOMPARE(wrenches, (QStringList{QStringLiteral("0007"), QStringLiteral("2210"), QStringLiteral("b")}));
    QCOMPARE(programs, (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4"),
                                    QStringLiteral("5"), QStringLiteral("12")}));
}

// To find a page costs what is passed by, and nothing is sorted.
void TestHistoryIndex::answersEveryStepFromAnIndex()
{
    QVERIFY(m_history->fill(results(10)));
    open();
    for (int bits = 0; bits < 8; ++bits) {
        HistoryFilter filter;
        filter.serialId = (bits & 1) != 0 ? QStringLiteral("2210") : QString();
        filter.program = (bits & 2) != 0 ? std::optional<int>(2) : std::nullopt;
        filter.isGood = (bits & 4) != 0 ? std::optional<bool>(false) : std::nullopt;
        HistoryKeys keys(m_store->database(), filter);
        for (const QString& statement :
             {keys.statement(HistoryKeys::Way::Behind, HistoryKey{}),
              keys.statement(HistoryKeys::Way::Before, HistoryKey{}), keys.statement(HistoryKeys::Way::Before, {})}) {
            QSqlQuery plan = m_store->database().prepared(QStringLiteral("EXPLAIN QUERY PLAN ") + statement);
            QVERIFY(plan.exec());
            while (plan.next()) {
                const QString step = plan.value(3).toString();
                QVERIFY2(!step.contains(QLatin1String("SCAN")) && !step.contains(QLatin1String("TEMP B-TREE")),
                         qPrintable(step + QLatin1Char('\n') + statement));
            }
        }
    }
}

QTEST_GUILESS_MAIN(TestHistoryIndex)
#include "tst_history_index.moc"
