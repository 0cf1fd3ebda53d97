#include <QAbstractItemModelTester>
#include <QFile>
#include <QLocale>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>
#include <QVariant>
#include <QVector>

#include "gui/history_table.h"
#include "history/history_format.h"
#include "history_fixture.h"

namespace {

constexpr int c_limitMs = 20000;
constexpr int c_page = HistoryIndex::c_page;
constexpr int c_secondsPerDay = 86400;

QVector<HistoryRecord> results(int count, int from = 0)
{
    QVector<HistoryRecord> records;
    for (int i = from; i < from + count; ++i) {
        records.append(HistoryFixture::result(i, i, i % 5 != 0, 1 + i % 4, QString::number(i % 3 == 0 ? 2211 : 2210)));
    }
    return records;
}

/// Newest first.
QStringList reversed(QStringList list)
{
    std::reverse(list.begin(), list.end());
    return list;
}

} // namespace

class TestHistoryTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void listsTheNewestFirst();
    void showsAnEntryForPeople();
    void showsGapsAndRepeatsAsRows();
    void fetchesRowsOfAnyPlaceAndKeepsFew();
    void filtersAsTheQueryDoes_data();
    void filtersAsTheQueryDoes();
    void followsTheCalendar_data();
    void followsTheCalendar();
    void takesMomentsAsTheyAreTyped();
    void whatIsStoredAppearsBeforeTheOthers();
    void whatArrivedEarlierAppearsInItsPlace();
    void aFilterLetsThroughWhatIsStoredMeanwhile();
    void followsOnlyWhileItIsShown();
    void saysThatThereIsNoneYetAndFindsTheFirst();
    void tellsOfDamageAndFindsWhatIsMended();
    void tellsOfANewerFile();
    void visibleRowsAreThoseOfTheSource();
    void visibleRowsChangeOneByOne();

private:
    void open(bool isShown = true);
    bool append(const QVector<HistoryRecord>& records) { return m_history->fill(records); }
    /// Of every row, loading what is not loaded.
    QStringList readings();
    QVariant value(int row, int role) const { return m_table->data(m_table->index(row), role); }
    bool load(int row);

    std::unique_ptr<HistoryFixture> m_history;
    std::unique_ptr<HistoryTable> m_table;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
    std::unique_ptr<QAbstractItemModelTester> m_rowsTester;
};

void TestHistoryTable::init()
{
    m_history = std::make_unique<HistoryFixture>();
    m_table = std::make_unique<HistoryTable>(m_history->folder());
    m_tester = std::make_unique<QAbstractItemModelTester>(m_table.get(),
                                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    m_rowsTester = std::make_unique<QAbstractItemModelTester>(m_table->visibleRows(),
                                                              QAbstractItemModelTester::FailureReportingMode::QtTest);
}

void TestHistoryTable::cleanup()
{
    m_rowsTester.reset();
    m_tester.reset();
    m_table.reset();
    m_history.reset();
}

void TestHistoryTable::open(bool isShown)
{
    m_table->setShown(isShown);
    if (!isShown) {
        m_table->look();
    }
    QTRY_VERIFY_WITH_TIMEOUT(!m_table->isReading(), c_limitMs);
}

bool TestHistoryTable::load(int row)
{
    return QTest::qWaitFor([&] { return value(row, HistoryTable::LoadedRole).toBool(); }, c_limitMs);
}

QStringList TestHistoryTable::readings()
{
    QStringList list;
    for (int row = 0; row < m_table->rowCount(); ++row) {
        if (!load(row)) {
            return {QStringLiteral("not loaded: %1").arg(row)};
        }
        const QString kind = value(row, HistoryTable::KindRole).toString();
        list.append(kind == QLatin1String("result") ? value(row, HistoryTable::ReadingRole).toString() : kind);
    }
    return list;
}

void TestHistoryTable::listsTheNewestFirst()
{
    QVERIFY(append(results(2 * c_page + 50)));
    open();
    QCOMPARE(m_table->count(), 2 * c_page + 50);
    QCOMPARE(readings(), reversed(m_history->readings()));
    QCOMPARE(m_table->good(), 200);
    QCOMPARE(m_table->notGood(), 50);
    QCOMPARE(m_table->wrenches(), (QStringList{QStringLiteral("2210"), QStringLiteral("2211")}));
}

void TestHistoryTable::showsAnEntryForPeople()
{
    HistoryRecord record = HistoryFixture::result(7, 3600, false);
    record.utcOffsetS = 3600;
    record.entries.at(HistoryRecord::SnugTorqueAngle) = QStringLiteral("9.50 ");
    record.entries.at(HistoryRecord::ReadingStatus) = QVariant();
    QVERIFY(append({record}));
    QLocale::setDefault(QLocale(QLocale::German));
    open();
    QVERIFY(load(0));
    QCOMPARE(value(0, HistoryTable::ArrivedRole).toString(), QStringLiteral("01.01.1970  02:00:00"));
    QCOMPARE(value(0, HistoryTable::TorqueRole).toString(), QStringLiteral("12,05"));
    QCOMPARE(value(0, HistoryTable::AngleRole).toString(), QStringLiteral("9.50 ")); // no number: as received
    QCOMPARE(value(0, HistoryTable::UnitRole).toString(), QStringLiteral("N.m"));
    QCOMPARE(value(0, HistoryTable::StatusRole).toString(), QStringLiteral("2 0 –"));
    QCOMPARE(value(0, HistoryTable::GoodRole).toBool(), false);
    QLocale::setDefault(QLocale::c());
    const QVariantMap entry = m_table->entry(0);
    QCOMPARE(entry.value(QStringLiteral("rawLine")).toString(), QStringLiteral("RE:F:12.05,0,0,90,0,1,0"));
    QCOMPARE(entry.value(QStringLiteral("eventData")).toMap().value(QStringLiteral("convertedTorque")).toString(),
             QStringLiteral("12.05"));
}

void TestHistoryTable::showsGapsAndRepeatsAsRows()
{
    HistoryRecord repeat = HistoryFixture::result(4, 12);
    repeat.kind = HistoryRecord::Kind::Repeat;
    QVERIFY(append({HistoryFixture::result(1, 1), HistoryFixture::gap(1, 4, 2), HistoryFixture::result(4, 3), repeat}));
    open();
    QCOMPARE(readings(),
             (QStringList{QStringLiteral("repeat"), QStringLiteral("4"), QStringLiteral("gap"), QStringLiteral("1")}));
    QCOMPARE(value(2, HistoryTable::NoteRole).toString(), QStringLiteral("gap: 2 readings are missing, 2 to 3"));
    QCOMPARE(m_table->gaps(), 1);
    QCOMPARE(m_table->repeats(), 1);
}

void TestHistoryTable::fetchesRowsOfAnyPlaceAndKeepsFew()
{
    constexpr int c_many = 45 * c_page;
    QVERIFY(append(results(c_many)));
    open();
    for (const int row : {0, c_many / 2, 13, c_many - 1, c_many / 3}) {
        QVERIFY(load(row));
        QCOMPARE(value(row, HistoryTable::ReadingRole).toInt(), c_many - 1 - row);
    }
    for (int row = 0; row < c_many; row += c_page / 2) {
        QVERIFY(load(row));
        QVERIFY(m_table->keptPages() <= HistoryPages::c_mostPages);
    }
}

void TestHistoryTable::filtersAsTheQueryDoes_data()
{
    QTest::addColumn<QString>("wrench");
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("verdict");
    for (const char* wrench : {"", "2211"}) {
        for (const char* program : {"", "3"}) {
            for (const char* verdict : {"", "ok", "nok"}) {
                QTest::addRow("wrench %s program %s %s", wrench, program, verdict)
                    << QString::fromUtf8(wrench) << QString::fromUtf8(program) << QString::fromUtf8(verdict);
            }
        }
    }
}

void TestHistoryTable::filtersAsTheQueryDoes()
{
    QFETCH(QString, wrench);
    QFETCH(QString, program);
    QFETCH(QString, verdict);
    QVector<HistoryRecord> records = results(60);
    records.append(HistoryFixture::gap(59, 61, 200));
    QVERIFY(append(records));
    open();
    m_table->setWrench(wrench);
    m_table->setProgram(program);
    m_table->setVerdict(verdict);
    QTRY_VERIFY_WITH_TIMEOUT(!m_table->isReading(), c_limitMs);
    HistoryFilter filter;
    filter.serialId = wrench;
    filter.program = program.isEmpty() ? std::nullopt : std::optional<int>(program.toInt());
    filter.isGood = verdict.isEmpty() ? std::nullopt : std::optional<bool>(verdict == QLatin1String("ok"));
    QCOMPARE(readings(), reversed(m_history->readings(filter)));
    m_table->resetFilters();
    QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 61, c_limitMs);
    QVERIFY(!m_table->isFiltered());
}

void TestHistoryTable::followsTheCalendar_data()
{
    QTest::addColumn<HistoryPeriod::Kind>("kind");
    QTest::addColumn<QStringList>("days");
    QTest::newRow("all") << HistoryPeriod::Kind::All
                         << QStringList{QStringLiteral("0"), QStringLiteral("1"),  QStringLiteral("6"),
                                        QStringLiteral("7"), QStringLiteral("29"), QStringLiteral("30")};
    QTest::newRow("today") << HistoryPeriod::Kind::Today << QStringList{QStringLiteral("0")};
    QTest::newRow("yesterday") << HistoryPeriod::Kind::Yesterday << QStringList{QStringLiteral("1")};
    QTest::newRow("week") << HistoryPeriod::Kind::LastSevenDays
                          << QStringList{QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("6")};
    QTest::newRow("month") << HistoryPeriod::Kind::LastThirtyDays
                           << QStringList{QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("6"),
                                          QStringLiteral("7"), QStringLiteral("29")};
}

void TestHistoryTable::followsTheCalendar()
{
    QFETCH(HistoryPeriod::Kind, kind);
    QVector<HistoryRecord> records;
    const qint64 today = QDate::currentDate().startOfDay().toSecsSinceEpoch();
    for (const int day : {30, 29, 7, 6, 1, 0}) {
        records.append(HistoryFixture::result(day, today - qint64(day) * c_secondsPerDay));
    }
    QVERIFY(append(records));
    open();
    m_table->period()->setKind(kind);
    QTRY_VERIFY_WITH_TIMEOUT(!m_table->isReading(), c_limitMs);
    QTEST(readings(), "days");
}

void TestHistoryTable::takesMomentsAsTheyAreTyped()
{
    QVERIFY(append(results(100)));
    open();
    HistoryPeriod& period = *m_table->period();
    period.setKind(HistoryPeriod::Kind::Between);
    period.setSince(QStringLiteral("1970-01-01 00:00:10 "));
    period.setUntil(QStringLiteral("1970-01-01 00:00:15"));
    QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 5, c_limitMs);
    QVERIFY(period.isSinceRight() && period.isUntilRight());
    period.setUntil(QStringLiteral("tomorrow"));
    QVERIFY(period.isSinceRight() && !period.isUntilRight());
    QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 90, c_limitMs); // a bound that is not understood is none
}

void TestHistoryTable::whatIsStoredAppearsBeforeTheOthers()
{
    QVERIFY(append(results(c_page - 2)));
    open();
    QVERIFY(load(5));
    const QPersistentModelIndex seen = m_table->index(5);
    const QString reading = value(5, HistoryTable::ReadingRole).toString();
    QSignalSpy resets(m_table.get(), &QAbstractItemModel::modelReset);
    QVERIFY(append(results(7, c_page - 2)));
    QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), c_page + 5, c_limitMs);
    QCOMPARE(seen.row(), 12);
    QCOMPARE(value(12, HistoryTable::ReadingRole).toString(), reading);
    QCOMPARE(resets.size(), 0);
    QCOMPARE(readings(), reversed(m_history->readings()));
    QCOMPARE(m_table->good() + m_table->notGood(), c_page + 5);
}

void TestHistoryTable::whatArrivedEarlierAppearsInItsPlace()
{
    QVERIFY(append(results(3 * c_page)));
    open();
    QCOMPARE(readings().size(), 3 * c_page); // all of it is kept
    QVERIFY(append({HistoryFixture::result(5000, 150), HistoryFixture::result(5001, 1000),
                    HistoryFixture::result(5002, 3), HistoryFixture::result(5003, 150)}));
    QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 3 * c_page + 4, c_limitMs);
    QCOMPARE(readings(), reversed(m_history->readings()));
}

void TestHistoryTable::aFilterLetsThroughWhatIsStoredMeanwhile()
{
    QVERIFY(append(results(40)));
    open();
    m_table->setVerdict(QStringLiteral("nok"));
    QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 8, c_limitMs);
    QVERIFY(append(results(10, 40)));
    QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 10, c_limitMs);
    QCOMPARE(m_table->good(), 0);
    QCOMPARE(m_table->notGood(), 10);
}

void TestHistoryTable::followsOnlyWhileItIsShown()
{
    QVERIFY(append(results(3)));
    open();
    m_table->setShown(false);
    QVERIFY(append(results(2, 3)));
    QCOMPARE(m_table->count(), 3);
    m_table->setShown(true);
    QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 5, c_limitMs);
}

void TestHistoryTable::saysThatThereIsNoneYetAndFindsTheFirst()
{
    open();
    QVERIFY(!m_table->isThere());
    QVERIFY(!m_table->hasProblem());
    QCOMPARE(m_table->count(), 0);
    QVERIFY(append(results(2)));
    QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 2, c_limitMs);
    QVERIFY(m_table->isThere());
    QCOMPARE(m_history->readings(), reversed(readings()));
}

void TestHistoryTable::tellsOfDamageAndFindsWhatIsMended()
{
    QVERIFY(m_history->put("this is no history, whatever its name may be; it is long enough to be looked into"));
    open();
    QVERIFY(m_table->hasProblem());
    QVERIFY2(m_table->problemWhat().contains(m_history->file()), qPrintable(m_table->problemWhat()));
    QVERIFY(!m_table->problemMend().isEmpty());
    QVERIFY(QFile::remove(m_history->file()));
    QVERIFY(append(results(4)));
    QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 4, c_limitMs);
    QVERIFY(!m_table->hasProblem());
}

void TestHistoryTable::tellsOfANewerFile()
{
    QVERIFY(append(results(1)));
    {
        HistoryStore store(m_history->folder());
        QVERIFY(!store.openToWrite());
        QVERIFY(store.database().run(QStringLiteral("PRAGMA user_version = 99")));
    }
    open();
    QVERIFY(m_table->hasProblem());
    QCOMPARE(m_table->count(), 0);
    QVERIFY2(m_table->problemCause().contains(QLatin1String("99")), qPrintable(m_table->problemCause()));
}

void TestHistoryTable::visibleRowsAreThoseOfTheSource()
{
    QVERIFY(append(results(300)));
    open();
    VisibleRows& rows = *m_table->visibleRows();
    rows.setSize(7);
    for (const int first : {0, 1, 6, 7, 100, 99, 290, 296}) {
        rows.setFirst(first);
        QVector<int> seen;
        for (int k = 0; k < 7; ++k) {
            const int sourceRow = rows.data(rows.index(k), VisibleRows::c_sourceRowRole).toInt();
            QVERIFY(sourceRow < 0 || sourceRow % 7 == k);
            seen.append(sourceRow);
        }
        std::sort(seen.begin(), seen.end());
        seen.removeAll(-1);
        QCOMPARE(seen.constFirst(), first);
        QCOMPARE(seen.size(), std::min(7, 300 - first));
    }
    rows.setFirst(50);
    QVERIFY(load(50));
    QCOMPARE(rows.data(rows.index(50 % 7), HistoryTable::ReadingRole), value(50, HistoryTable::ReadingRole));
}

void TestHistoryTable::visibleRowsChangeOneByOne()
{
    QVERIFY(append(results(300)));
    open();
    VisibleRows& rows = *m_table->visibleRows();
    rows.setSize(9);
    rows.setFirst(100);
    QVERIFY(load(100) && load(120));
    QSignalSpy changes(&rows, &QAbstractItemModel::dataChanged);
    rows.setFirst(101);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.constFirst().constFirst().toModelIndex().row(), 100 % 9);
    rows.setFirst(99);
    QCOMPARE(changes.size(), 3);
}

QTEST_GUILESS_MAIN(TestHistoryTable)
#include "tst_history_table.moc"
