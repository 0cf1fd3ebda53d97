#include <QCoreApplication>
#include <QDateTime>
#include <QJsonObject>
#include <QStringList>
#include <QTest>
#include <QVector>

#include "history/result_recorder.h"
#include "history_fixture.h"

namespace {

TighteningResult reading(int number, bool isAfterReconnection = false,
                         const QString& torqueStatus = QStringLiteral("0"))
{
    TighteningResult result;
    result.eventData = {{QStringLiteral("convertedTorque"), QStringLiteral("12.05")},
                        {QStringLiteral("torqueStatus"), torqueStatus},
                        {QStringLiteral("angleStatus"), QStringLiteral("0")},
                        {QStringLiteral("readingStatus"), QString(QLatin1String(""))},
                        {QStringLiteral("readingNumber"), QString::number(number)},
                        {QStringLiteral("eventCountNo"), 40 + number},
                        {QStringLiteral("progId"), 2}};
    result.arrival = QDateTime::fromMSecsSinceEpoch(1000 + number, Qt::UTC);
    result.preset = {{QStringLiteral("unit"), QStringLiteral("N.m")}};
    result.rawLine = "RE:F:…";
    result.isFirstAfterReconnection = isAfterReconnection;
    return result;
}

/// A recorder and what it tells, each with what was stored when it was told.
class Recording
{
public:
    explicit Recording(const HistoryFixture& fixture, int busyLimitMs = HistoryStore::c_busyLimitMs)
        : history(fixture)
        , store(fixture.folder(), busyLimitMs)
        , recorder(store, {QStringLiteral("2210"), QStringLiteral("/dev/x"), QStringLiteral("scripted")})
    {
        isOpen = !store.openToWrite();
        QObject::connect(&recorder, &ResultRecorder::sigResult, &recorder, [this](const QVariantMap& eventData) {
            tell(eventData.value(QStringLiteral("readingNumber")).toString());
        });
        QObject::connect(&recorder, &ResultRecorder::sigNote, &recorder,
                         [this](const HistoryRecord& note) { tell(HistoryFixture::readingsOf({note}).constFirst()); });
        QObject::connect(&recorder, &ResultRecorder::sigFailed, &recorder, [this] { tell(QStringLiteral("failed")); });
    }

    const HistoryFixture& history;
    HistoryStore store;
    ResultRecorder recorder;
    bool isOpen = false;
    QStringList told;
    QVector<QStringList> storedThen; // seen by another connection

private:
    void tell(const QString& what)
    {
        told.append(what);
        storedThen.append(history.readings());
    }
};

} // namespace

class TestResultRecorder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsNothingBeforeItIsStored();
    void storesWhatComesInOneTurnTogether();
    void storesWhatItIsTold();
    void storesWhatElseTheRecordHolds();
    void countsWhatIsStored();
    void notesAGapBeforeTheReading();
    void goesOnFromTheLastSession();
    void notesARepeatAndDoesNotCountIt();
    void notesChunksThatWereNotHeard();
    void tellsOnlyTheFailureWhenItCannotStore();
    void takesNothingAfterAFailure();
};

void TestResultRecorder::tellsNothingBeforeItIsStored()
{
    const HistoryFixture history;
    Recording recording(history);
    QVERIFY(recording.isOpen);
    QVERIFY(recording.recorder.take(reading(1)));
    QCOMPARE(recording.told, QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(recording.told, QStringList{QStringLiteral("1")});
    QCOMPARE(recording.storedThen.constFirst(), QStringList{QStringLiteral("1")});
}

void TestResultRecorder::storesWhatComesInOneTurnTogether()
{
    const HistoryFixture history;
    Recording recording(history);
    const QStringList numbers{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")};
    for (int i = 1; i <= 3; ++i) {
        recording.recorder.take(reading(i));
    }
    QCoreApplication::processEvents();
    QCOMPARE(recording.told, numbers);
    QCOMPARE(recording.storedThen, QVector<QStringList>(3, numbers));
}

void TestResultRecorder::storesWhatItIsTold()
{
    const HistoryFixture history;
    Recording recording(history);
    const TighteningResult result = reading(3, true, QStringLiteral("2"));
    recording.recorder.take(result);
    recording.recorder.flush();
    QVector<HistoryRecord> records;
    QVERIFY(!HistoryQuery(recording.store.database(), {}).page({}, 10, &records));
    const HistoryRecord& record = records.constFirst();
    QCOMPARE(record.eventData(), result.eventData);
    QCOMPARE(record.arrivedUs, result.arrival.toMSecsSinceEpoch() * 1000);
    QCOMPARE(record.utcOffsetS, result.arrival.toLocalTime().offsetFromUtc());
    QCOMPARE(record.serialId, QStringLiteral("2210"));
    QCOMPARE(record.device, QStringLiteral("/dev/x"));
    QCOMPARE(record.plugin, QStringLiteral("scripted"));
    QCOMPARE(record.preset, QStringLiteral("{\"unit\":\"N.m\"}"));
    QCOMPARE(record.rawLine, result.rawLine);
    QCOMPARE(record.isGood, false);
    QCOMPARE(record.isAfterReconnection, true);
}

void TestResultRecorder::storesWhatElseTheRecordHolds()
{
    const HistoryFixture history;
    Recording recording(history);
    TighteningResult result = reading(1);
    result.eventData.insert(QStringLiteral("colour"), QStringLiteral("red"));
    result.eventData.insert(QStringLiteral("progId"), QVariantList{1, 2}); // no kind that a column keeps
    recording.recorder.take(result);
    recording.recorder.flush();
    QVector<HistoryRecord> records;
    QVERIFY(!HistoryQuery(recording.store.database(), {}).page({}, 10, &records));
    QCOMPARE(records.constFirst().otherEntries, QStringLiteral("{\"colour\":\"red\",\"progId\":[1,2]}"));
    QVERIFY(!records.constFirst().entries.at(HistoryRecord::ProgId).isValid());
}

void TestResultRecorder::countsWhatIsStored()
{
    const HistoryFixture history;
    Recording recording(history);
    recording.recorder.take(reading(1));
    recording.recorder.take(reading(2, false, QStringLiteral("1")));
    recording.recorder.take(reading(3));
    QCOMPARE(recording.recorder.good() + recording.recorder.notGood(), 0);
    recording.recorder.flush();
    QCOMPARE(recording.recorder.good(), 2);
    QCOMPARE(recording.recorder.notGood(), 1);
}

void TestResultRecorder::notesAGapBeforeTheReading()
{
    const HistoryFixture history;
    Recording recording(history);
    recording.recorder.take(reading(1));
    recording.recorder.take(reading(4));
    recording.recorder.flush();
    QCOMPARE(recording.told, (QStringList{QStringLiteral("1"), QStringLiteral("gap"), QStringLiteral("4")}));
    QVector<HistoryRecord> records;
    QVERIFY(!HistoryQuery(recording.store.database(), {}).page({}, 10, &records));
    QCOMPARE(records.at(1).counter, QStringLiteral("readingNumber"));
    QCOMPARE(records.at(1).countBefore, 1);
    QCOMPARE(records.at(1).countAfter, 4);
    QCOMPARE(records.at(1).missing(), 2);
}

void TestResultRecorder::goesOnFromTheLastSession()
{
    const HistoryFixture history;
    QVERIFY(history.fill({HistoryFixture::result(7)}));
    Recording recording(history);
    QVERIFY(!recording.recorder.continueCount());
    recording.recorder.take(reading(9));
    recording.recorder.flush();
    QCOMPARE(recording.told, (QStringList{QStringLiteral("gap"), QStringLiteral("9")}));
}

void TestResultRecorder::notesARepeatAndDoesNotCountIt()
{
    const HistoryFixture history;
    Recording recording(history);
    QVERIFY(recording.recorder.take(reading(1)));
    QVERIFY(!recording.recorder.take(reading(1, true)));
    QVERIFY(recording.recorder.take(reading(2)));
    recording.recorder.flush();
    QCOMPARE(recording.told, (QStringList{QStringLiteral("1"), QStringLiteral("repeat"), QStringLiteral("2")}));
    QCOMPARE(recording.recorder.good(), 2);
    QVector<HistoryRecord> records;
    QVERIFY(!HistoryQuery(recording.store.database(), {}).storedAfter(1, 1, &records));
    QCOMPARE(records.constFirst().kind, HistoryRecord::Kind::Repeat);
    QCOMPARE(records.constFirst().repeatOf, 1);
    QCOMPARE(records.constFirst().entries.at(HistoryRecord::EventCountNo).toInt(), 41);
}

void TestResultRecorder::notesChunksThatWereNotHeard()
{
    const HistoryFixture history;
    Recording recording(history);
    recording.recorder.takeChunk(5);
    recording.recorder.takeChunk(8);
    recording.recorder.forgetChunk();
    recording.recorder.takeChunk(20);
    recording.recorder.flush();
    QCOMPARE(recording.told, QStringList{QStringLiteral("gap")});
    QCOMPARE(history.readings(), QStringList{QStringLiteral("gap")});
}

void TestResultRecorder::tellsOnlyTheFailureWhenItCannotStore()
{
    const HistoryFixture history;
    Recording recording(history, 20);
    HistoryDatabase other(history.file(), HistoryDatabase::Access::Write, 0);
    QVERIFY(other.open() && other.run(QStringLiteral("BEGIN IMMEDIATE")));
    recording.recorder.take(reading(1));
    QCoreApplication::processEvents();
    QCOMPARE(recording.told, QStringList{QStringLiteral("failed")});
    QVERIFY(recording.recorder.failure());
    QCOMPARE(recording.recorder.good(), 0);
}

void TestResultRecorder::takesNothingAfterAFailure()
{
    const HistoryFixture history;
    Recording recording(history, 20);
    {
        HistoryDatabase other(history.file(), HistoryDatabase::Access::Write, 0);
        QVERIFY(other.open() && other.run(QStringLiteral("BEGIN IMMEDIATE")));
        recording.recorder.take(reading(1));
        recording.recorder.flush();
    }
    recording.recorder.take(reading(2));
    recording.recorder.flush();
    QCOMPARE(recording.told, QStringList{QStringLiteral("failed")});
    QCOMPARE(history.readings(), QStringList());
}

QTEST_GUILESS_MAIN(TestResultRecorder)
#include "tst_result_recorder.moc"
