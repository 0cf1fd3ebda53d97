#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QVector>

#include <algorithm>
#include <memory>

#include "gui/history_exporter.h"
#include "history/history_format.h"
#include "history_fixture.h"

namespace {

constexpr int c_limitMs = 20000;

QVector<HistoryRecord> results(int count)
{
    QVector<HistoryRecord> records;
    for (int i = 0; i < count; ++i) {
        records.append(HistoryFixture::result(i, i, i % 5 != 0));
    }
    return records;
}

} // namespace

/// The export of the window; that of the command line is the same run.
class TestHistoryExporter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void writesWhatTheFilterLetsThrough();
    void tellsHowFarItIs();
    void replacesAFileOnlyWhenItMay();
    void leavesNothingWhenItIsStopped();
    void refusesInAnOrderlyWay_data();
    void refusesInAnOrderlyWay();
    void goesWhileItRuns();

private:
    QString file(const char* name) const { return m_out->filePath(QLatin1String(name)); }
    bool isOver() const
    {
        return QTest::qWaitFor([this] { return !m_exporter->isRunning(); }, c_limitMs);
    }
    QStringList files() const { return QDir(m_out->path()).entryList(QDir::Files); }

    std::unique_ptr<HistoryFixture> m_history;
    std::unique_ptr<QTemporaryDir> m_out;
    std::unique_ptr<HistoryExporter> m_exporter;
};

void TestHistoryExporter::init()
{
    m_exporter.reset();
    m_history = std::make_unique<HistoryFixture>();
    m_out = std::make_unique<QTemporaryDir>();
    m_exporter = std::make_unique<HistoryExporter>(m_history->folder());
}

void TestHistoryExporter::writesWhatTheFilterLetsThrough()
{
    QVERIFY(m_history->fill(results(1200)));
    HistoryFilter filter;
    filter.isGood = false;
    m_exporter->setFilter(filter);
    m_exporter->start(file("out.csv"), false);
    QVERIFY(isOver());
    QVERIFY2(!m_exporter->hasProblem(), qPrintable(m_exporter->problemWhat()));
    QCOMPARE(m_exporter->writtenFile(), file("out.csv"));
    QByteArray expected = history_format::csvTitles();
    HistoryStore store(m_history->folder());
    QVector<HistoryRecord> records;
    QVERIFY(!store.openToRead() && !HistoryQuery(store.database(), filter).page({}, 1200, &records));
    QCOMPARE(records.size(), 240);
    for (const HistoryRecord& record : qAsConst(records)) {
        expected += history_format::toCsv(record);
    }
    QCOMPARE(HistoryFixture::bytesOf(file("out.csv")), expected);
}

void TestHistoryExporter::tellsHowFarItIs()
{
    QVERIFY(m_history->fill(results(2200)));
    const auto told = std::make_shared<QVector<double>>();
    connect(m_exporter.get(), &HistoryExporter::sigChanged, this,
            [this, told] { told->append(m_exporter->progress()); });
    m_exporter->start(file("out.jsonl"), false);
    QVERIFY(isOver());
    QVERIFY(std::is_sorted(told->cbegin(), told->cend()));
    QVERIFY(told->contains(1000.0 / 2200));
}

void TestHistoryExporter::replacesAFileOnlyWhenItMay()
{
    QVERIFY(m_history->fill(results(3)));
    {
        QFile old(file("out.csv"));
        QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    }
    m_exporter->start(file("out.csv"), false);
    QVERIFY(isOver());
    QVERIFY(m_exporter->wouldReplace());
    QVERIFY(m_exporter->problemWhat().contains(QLatin1String("out.csv")));
    QCOMPARE(HistoryFixture::bytesOf(file("out.csv")), QByteArray("old"));
    m_exporter->start(file("out.csv"), true);
    QVERIFY(isOver());
    QVERIFY(!m_exporter->hasProblem() && !m_exporter->wouldReplace());
    QVERIFY(HistoryFixture::bytesOf(file("out.csv")).startsWith("id,"));
}

void TestHistoryExporter::leavesNothingWhenItIsStopped()
{
    QVERIFY(m_history->fill(results(20000)));
    m_exporter->start(file("out.csv"), false);
    QTRY_VERIFY_WITH_TIMEOUT(m_exporter->progress() > 0, c_limitMs);
    m_exporter->stop();
    QVERIFY(isOver());
    QVERIFY(m_exporter->wasStopped());
    QVERIFY(m_exporter->writtenFile().isEmpty());
    QCOMPARE(files(), QStringList());
}

void TestHistoryExporter::refusesInAnOrderlyWay_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("stored");
    QTest::newRow("no such folder") << QStringLiteral("none/out.csv") << 1;
    QTest::newRow("an ending that says nothing") << QStringLiteral("out.txt") << 1;
    QTest::newRow("no name") << QString() << 1;
    QTest::newRow("nothing stored") << QStringLiteral("out.csv") << 0;
}

void TestHistoryExporter::refusesInAnOrderlyWay()
{
    QFETCH(QString, name);
    QFETCH(int, stored);
    QVERIFY(stored == 0 || m_history->fill(results(stored)));
    m_exporter->start(name.isEmpty() ? name : m_out->filePath(name), false);
    QVERIFY(isOver());
    QVERIFY(m_exporter->hasProblem());
    QVERIFY(!m_exporter->problemWhat().isEmpty());
    QVERIFY(!m_exporter->wouldReplace());
    QCOMPARE(files(), QStringList());
    m_exporter->forget();
    QVERIFY(!m_exporter->hasProblem());
}

void TestHistoryExporter::goesWhileItRuns()
{
    QVERIFY(m_history->fill(results(20000)));
    m_exporter->start(file("out.csv"), false);
    QTRY_VERIFY_WITH_TIMEOUT(m_exporter->progress() > 0, c_limitMs);
    m_exporter.reset();
    QCOMPARE(files(), QStringList());
}

QTEST_GUILESS_MAIN(TestHistoryExporter)
#include "tst_history_exporter.moc"
