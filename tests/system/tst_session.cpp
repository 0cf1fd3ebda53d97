#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

#include <csignal>

#include "processes.h"
#include "simulator_run.h"
#include "workplace_run.h"

namespace {

/// The lines of a talk that is checked in, of one direction.
QStringList linesOf(const QString& file, const QString& prefix)
{
    QStringList lines;
    QFile input(file);
    if (input.open(QIODevice::ReadOnly)) {
        const QStringList all = QString::fromUtf8(input.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        for (const QString& line : all) {
            if (line.startsWith(prefix)) {
                lines.append(line.mid(prefix.size()));
            }
        }
    }
    return lines;
}

/// The record of a result line "RE:F:<torque>,<direction>,…", without what the plugin adds to it.
QJsonObject recordOf(const QString& resultLine)
{
    const QStringList fields = resultLine.section(QLatin1Char(':'), 2).split(QLatin1Char(','));
    return {{QStringLiteral("convertedTorque"), fields.value(0)}, {QStringLiteral("direction"), fields.value(1)},
            {QStringLiteral("torqueStatus"), fields.value(2)},    {QStringLiteral("snugTorqueAngle"), fields.value(3)},
            {QStringLiteral("angleStatus"), fields.value(4)},     {QStringLiteral("readingNumber"), fields.value(5)},
            {QStringLiteral("readingStatus"), fields.value(6)}};
}

QJsonObject eventDataOf(const QJsonObject& result)
{
    return result.value(QLatin1String("eventData")).toObject();
}

QStringList typicalOptions()
{
    return {QStringLiteral("--programs"), QStringLiteral("3"), QStringLiteral("--rate"), QStringLiteral("5")};
}

QStringList typicalSession()
{
    return {QStringLiteral("--program"), QStringLiteral("2"), QStringLiteral("--count"), QStringLiteral("5")};
}

const QString c_typicalTalk = QStringLiteral(TRACES "/typical_run.txt");

} // namespace

class TestSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void endsWithStatus0AfterTheResultsAskedFor();
    void endsInAnOrderlyWay();
    void tellsItsStepsAsEventsInTheirOrder();
    void tellsTheProgramsWithTheirPresets();
    void tellsTheResultsAsTheWrenchPrintedThem();
    void writesTheFramesOfTheTypicalRunInTheirOrder();
    void hearsTheLinesOfTheTypicalRun();
    void tellsPeopleTheSame();
    void leavesTheSelectionAloneWhenNoneIsAskedFor();
    void endsAfterTheDuration();
    void runsTwiceOnOneSimulator();
    void needsNoPortWithTheSimulatedWrench();
    void leavesNoSimulatorBehind();
    void endsWhenNobodyReadsItsOutput();
    void endsWhenItsOutputHasNoRoom();

private:
    WorkplaceRun m_session; // the typical run
    QString m_disorder;     // after it
};

void TestSession::initTestCase()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(typicalOptions()), simulator.report());
    QVERIFY(m_session.startSession(simulator, typicalSession()));
    QVERIFY2(m_session.waitForEnd(), m_session.report());
    m_disorder = disorderAfter(m_session, simulator);
}

void TestSession::endsWithStatus0AfterTheResultsAskedFor()
{
    QCOMPARE(m_session.exitStatus(), 0);
    QCOMPARE(m_session.events(QStringLiteral("result")).size(), 5);
    QCOMPARE(m_session.event(QStringLiteral("summary")).value(QLatin1String("results")).toInt(), 5);
    QCOMPARE(m_session.event(QStringLiteral("summary")).value(QLatin1String("endedBy")).toString(),
             QStringLiteral("count"));
    QCOMPARE(m_session.messages(), QString());
}

void TestSession::endsInAnOrderlyWay()
{
    QCOMPARE(m_disorder, QString());
}

void TestSession::tellsItsStepsAsEventsInTheirOrder()
{
    QCOMPARE(m_session.events().size(), m_session.outputLines().size());
    QStringList names;
    const QList<QJsonObject> events = m_session.events();
    for (const QJsonObject& event : events) {
        names.append(event.value(QLatin1String("event")).toString());
    }
    QCOMPARE(names, (QStringList{QStringLiteral("link"), QStringLiteral("scan"), QStringLiteral("connected"),
                                 QStringLiteral("configured"), QStringLiteral("programs"), QStringLiteral("selected"),
                                 QStringLiteral("result"), QStringLiteral("result"), QStringLiteral("result"),
                                 QStringLiteral("result"), QStringLiteral("result"), QStringLiteral("summary")}));
}

void TestSession::tellsTheProgramsWithTheirPresets()
{
    const QJsonArray programs = m_session.event(QStringLiteral("programs")).value(QLatin1String("programs")).toArray();
    QCOMPARE(programs.size(), 3);
    const QJsonObject second = programs.at(1).toObject();
    QCOMPARE(second.value(QLatin1String("progId")).toInt(), 2);
    QCOMPARE(second.value(QLatin1String("TRQ")).toString(), QStringLiteral("18"));
    QCOMPARE(second.value(QLatin1String("presetData")).toObject().value(QLatin1String("unit")).toString(),
             QStringLiteral("N.m"));
    const QJsonObject selected = m_session.event(QStringLiteral("selected"));
    QCOMPARE(selected.value(QLatin1String("progId")).toInt(), 2);
    QCOMPARE(selected.value(QLatin1String("presetData")).toObject().value(QLatin1String("targetAngle")).toString(),
             QStringLiteral("105"));
}

void TestSession::tellsTheResultsAsTheWrenchPrintedThem()
{
    const QStringList printed = m_session.trace().arrived().filter(QStringLiteral("RE:F:"));
    const QList<QJsonObject> results = m_session.events(QStringLiteral("result"));
    QVERIFY2(printed.size() >= 5 && results.size() == 5, m_session.report());
    for (int i = 0; i < results.size(); ++i) {
        QJsonObject told = eventDataOf(results.at(i));
        QCOMPARE(told.take(QStringLiteral("progId")).toInt(), 2);
        QVERIFY(told.take(QStringLiteral("eventCountNo")).toInt() > 0);
        QCOMPARE(told, recordOf(printed.at(i)));
    }
}

void TestSession::writesTheFramesOfTheTypicalRunInTheirOrder()
{
    QCOMPARE(m_session.trace().sent(), linesOf(c_typicalTalk, QStringLiteral("> ")));
}

void TestSession::hearsTheLinesOfTheTypicalRun()
{
    // On a busy machine more may arrive before the line is closed.
    const QStringList expected = linesOf(c_typicalTalk, QStringLiteral("< "));
    QVERIFY(!expected.isEmpty());
    QCOMPARE(m_session.trace().arrived().mid(0, expected.size()), expected);
}

void TestSession::tellsPeopleTheSame()
{
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(typicalOptions()), simulator.report());
    QVERIFY(session.startOn(simulator.port(), QStringList{QStringLiteral("session"), QStringLiteral("--serial-id"),
                                                          QStringLiteral("2210")} +
                                                  typicalSession()));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
    for (const char* text : {"heard 2210 (02:00:00:00:00:01", "3 programs", "18    105\n", "program 2",
                             "waiting for results", "5 results: ", "; program 2\n"}) {
        QVERIFY2(session.output().contains(QLatin1String(text)), text + session.report());
    }
    const QStringList printed = session.trace().arrived().filter(QStringLiteral("RE:F:"));
    const QStringList rows = session.outputLines().filter(QRegularExpression(QStringLiteral("(good|NOT GOOD)$")));
    QCOMPARE(rows.size(), 5);
    for (int i = 0; i < rows.size(); ++i) {
        const QString torque = printed.at(i).section(QLatin1Char(':'), 2).section(QLatin1Char(','), 0, 0);
        QVERIFY2(rows.at(i).contains(torque), qPrintable(rows.at(i)));
    }
    QVERIFY2(!session.output().contains(QLatin1Char('\x1b')), "colours without a terminal");
    QCOMPARE(disorderAfter(session, simulator), QString());
}

void TestSession::leavesTheSelectionAloneWhenNoneIsAskedFor()
{
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(typicalOptions()), simulator.report());
    QVERIFY(session.startSession(simulator, {QStringLiteral("--count"), QStringLiteral("1")}));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
    QCOMPARE(session.events(QStringLiteral("selected")).size(), 0);
    QCOMPARE(session.trace().sent().count(QStringLiteral("IDLE")), 1); // of the list
    QCOMPARE(session.event(QStringLiteral("summary")).value(QLatin1String("progId")).toInt(), 1);
}

void TestSession::endsAfterTheDuration()
{
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(), simulator.report());
    QVERIFY(session.startSession(simulator, {QStringLiteral("--duration"), QStringLiteral("0.3")}));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
    const QJsonObject summary = session.event(QStringLiteral("summary"));
    QCOMPARE(summary.value(QLatin1String("endedBy")).toString(), QStringLiteral("duration"));
    QCOMPARE(summary.value(QLatin1String("results")).toInt(), 0);
    QVERIFY(summary.value(QLatin1String("elapsedMs")).toInt() >= 300);
    QCOMPARE(disorderAfter(session, simulator), QString());
}

void TestSession::runsTwiceOnOneSimulator()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(typicalOptions()), simulator.report());
    for (int i = 0; i < 2; ++i) {
        WorkplaceRun session;
        QVERIFY(session.startSession(simulator, {QStringLiteral("--count"), QStringLiteral("2")}));
        QVERIFY2(session.waitForEnd(), session.report());
        QCOMPARE(session.exitStatus(), 0);
        QCOMPARE(session.events(QStringLiteral("result")).size(), 2);
        QCOMPARE(disorderAfter(session, simulator), QString());
    }
}

void TestSession::needsNoPortWithTheSimulatedWrench()
{
    WorkplaceRun session;
    QVERIFY(session.start({QStringLiteral("session"), QStringLiteral("--json"), QStringLiteral("--serial-id"),
                           QStringLiteral("4711"), QStringLiteral("--count"), QStringLiteral("1")}));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
    QCOMPARE(session.event(QStringLiteral("result")).value(QLatin1String("serialId")).toString(),
             QStringLiteral("4711"));
}

void TestSession::leavesNoSimulatorBehind()
{
    WorkplaceRun session;
    QVERIFY(session.start({QStringLiteral("session"), QStringLiteral("--json")}));
    QVERIFY2(session.waitForEvents(QStringLiteral("result")), session.report());
    const QList<qint64> simulators = processes::childrenOf(session.pid());
    QCOMPARE(simulators.size(), 1);
    session.sendSignal(SIGINT);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
    QVERIFY(!processes::isRunning(simulators.first()));
}

void TestSession::endsWhenNobodyReadsItsOutput()
{
    SimulatorRun simulator;
    ProgramRun shell;
    QVERIFY2(simulator.start(typicalOptions()), simulator.report());
    const QString folder = QFileInfo(simulator.port()).path();
    QVERIFY(shell.start(QStringLiteral("bash"),
                        {QStringLiteral("-c"), QStringLiteral("\"$0\" \"$@\" | head -n 1; exit ${PIPESTATUS[0]}"),
                         QStringLiteral(APP_WORKPLACE), QStringLiteral("session"), QStringLiteral("--json"),
                         QStringLiteral("--serial-id"), QStringLiteral("2210"), QStringLiteral("--port"),
                         simulator.port(), QStringLiteral("--data"), folder}));
    QVERIFY2(shell.waitForEnd(), shell.report());
    QCOMPARE(shell.exitStatus(), 0);
    QCOMPARE(shell.outputLines().size(), 1);
    QVERIFY(HeldPort::isFree(simulator.port()));
}

void TestSession::endsWhenItsOutputHasNoRoom()
{
    SimulatorRun simulator;
    ProgramRun shell;
    QVERIFY2(simulator.start(typicalOptions()), simulator.report());
    const QString folder = QFileInfo(simulator.port()).path();
    QVERIFY(shell.start(QStringLiteral("bash"),
                        {QStringLiteral("-c"), QStringLiteral("exec \"$0\" \"$@\" > /dev/full"),
                         QStringLiteral(APP_WORKPLACE), QStringLiteral("session"), QStringLiteral("--json"),
                         QStringLiteral("--serial-id"), QStringLiteral("2210"), QStringLiteral("--port"),
                         simulator.port(), QStringLiteral("--data"), folder}));
    QVERIFY2(shell.waitForEnd(), shell.report());
    QCOMPARE(shell.exitStatus(), 3);
    QVERIFY2(shell.messages().contains(QLatin1String("The results cannot be written")), shell.report());
    QVERIFY(HeldPort::isFree(simulator.port()));
}

QTEST_GUILESS_MAIN(TestSession)

#include "tst_session.moc"
