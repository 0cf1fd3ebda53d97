#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QStringList>
#include <QTest>

#include "simulator_run.h"
#include "workplace_run.h"

namespace {

constexpr int c_results = 3;

/// What the wrench said of each tightening: the records without the number of the chunk that each came in.
QJsonArray recordsOf(const WorkplaceRun& session)
{
    QJsonArray records;
    const QList<QJsonObject> results = session.events(QStringLiteral("result"));
    for (const QJsonObject& result : results) {
        QJsonObject record = result.value(QLatin1String("eventData")).toObject();
        record.remove(QStringLiteral("eventCountNo"));
        records.append(record);
    }
    return records;
}

int readingOf(const QJsonValue& record)
{
    return record.toObject().value(QLatin1String("readingNumber")).toString().toInt();
}

QStringList countOption()
{
    return {QStringLiteral("--count"), QString::number(c_results)};
}

QStringList tightening()
{
    return {QStringLiteral("--rate"), QStringLiteral("5")};
}

} // namespace

class TestSessionDisturbed : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesTheSameResultsOverADisturbedLine_data();
    void takesTheSameResultsOverADisturbedLine();
    void losesNoResultAtFiftyASecond();
    void goesOnWhenTheLinkWasLostWhileListening();
};

void TestSessionDisturbed::takesTheSameResultsOverADisturbedLine_data()
{
    QTest::addColumn<QStringList>("faults");
    const QString fault = QStringLiteral("--fault");
    QTest::newRow("late answers") << QStringList{fault, QStringLiteral("late:60")};
    QTest::newRow("chunks of one byte") << QStringList{fault, QStringLiteral("split:1")};
    QTest::newRow("chunks of seven bytes") << QStringList{fault, QStringLiteral("split:7,2")};
    QTest::newRow("lines glued") << QStringList{fault, QStringLiteral("glue:3,60")};
    QTest::newRow("frames echoed") << QStringList{QStringLiteral("--echo")};
    QTest::newRow("frames echoed in chunks of one byte")
        << QStringList{QStringLiteral("--echo"), fault, QStringLiteral("split:1")};
    QTest::newRow("frames echoed, lines glued")
        << QStringList{QStringLiteral("--echo"), fault, QStringLiteral("glue:2,40")};
}

void TestSessionDisturbed::takesTheSameResultsOverADisturbedLine()
{
    QFETCH(QStringList, faults);
    static const QJsonArray c_undisturbed = [] {
        SimulatorRun simulator;
        WorkplaceRun session;
        const bool isDone =
            simulator.start(tightening()) && session.startSession(simulator, countOption()) && session.waitForEnd();
        return isDone ? recordsOf(session) : QJsonArray();
    }();
    QCOMPARE(c_undisturbed.size(), c_results);

    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(tightening() + faults), simulator.report());
    QVERIFY(session.startSession(simulator, countOption()));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
    QCOMPARE(recordsOf(session), c_undisturbed);
    QCOMPARE(disorderAfter(session, simulator), QString());
}

void TestSessionDisturbed::losesNoResultAtFiftyASecond()
{
    constexpr int c_many = 150;
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start({QStringLiteral("--rate"), QStringLiteral("50")}), simulator.report());
    QVERIFY(session.startSession(simulator, {QStringLiteral("--count"), QString::number(c_many)}));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
    const QJsonArray records = recordsOf(session);
    QCOMPARE(records.size(), c_many);
    // The wrench tightens as soon as it is unlocked, which may be before the session listens.
    const int first = readingOf(records.first());
    for (int i = 0; i < c_many; ++i) {
        QCOMPARE(readingOf(records.at(i)), first + i);
    }
}

void TestSessionDisturbed::goesOnWhenTheLinkWasLostWhileListening()
{
    // What is tightened without a link stays in the wrench until the keep-alive has opened the link again.
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(tightening()), simulator.report());
    QVERIFY(session.startSession(simulator, {QStringLiteral("--count"), QStringLiteral("6"), QStringLiteral("--config"),
                                             QStringLiteral(CONFIGURATIONS "/keep_alive_often.json")}));
    QVERIFY2(session.waitForEvents(QStringLiteral("result"), 2), session.report());
    QCOMPARE(simulator.say(QStringLiteral("lose-link")), QStringLiteral("ok link lost"));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
    const QJsonArray records = recordsOf(session);
    QCOMPARE(records.size(), 6);
    for (int i = 0; i < records.size(); ++i) {
        QCOMPARE(readingOf(records.at(i)), i + 1);
    }
}

QTEST_GUILESS_MAIN(TestSessionDisturbed)

#include "tst_session_disturbed.moc"
