#include "command_run.h"
#include "d_cmd_listPrograms.h"
#include "log_capture.h"

namespace {

using ListRun = CommandRun<DCmdListPrograms>;

/// The frames of texts like "IDLE TR:C".
QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

/// The whole walk over programs of these torques, from the first "OK" to the first program again.
QByteArray answers(const QByteArrayList& torques)
{
    QByteArray lines("OK\r\n");
    for (const QByteArray& torque : torques) {
        lines += "OK:UNT0,TRQ" + torque + "\r\nOK\r\n";
    }
    return lines + "OK:UNT0,TRQ" + torques.constFirst() + "\r\n";
}

} // namespace

class TestDCmdListPrograms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/listProgram")); }
    void transcript() { playTranscript(); }

    // Declaration and start.

    void declaresItself()
    {
        ListRun run;
        QCOMPARE(run.command->fullDescription(), jsonObject(R"json({
            "name": "listProgram", "stopName": "", "description": "List all programs from haitor device",
            "parameters": [],
            "results": [
                {"name": "programList", "type": "varL", "description": "List of programs found on the device"},
                {"name": "cmd_success", "type": "bool", "description": "Command success status", "default": false},
                {"name": "failed", "type": "bool", "description": "Discoverd failed", "default": false}]
        })json"));
    }

    void aFreshCommandIsOfTheSameClassPluginAndDeclarations()
    {
        ListRun run;
        QVERIFY(qobject_cast<DCmdListPrograms*>(run.command) != nullptr);
        QCOMPARE(run.command->parent(), &run.plugin);
        QCOMPARE(run.command->fullDescription(), run.prototype.fullDescription());
    }

    void aRefusedRunDoesNothing()
    {
        ListRun run;
        run.order.accepts = false;
        QVERIFY(!run.execute());
        QVERIFY(run.order.events().isEmpty());
    }

    void withoutADeviceTheRunIsRefusedAndNothingIsSent()
    {
        RecordingOrder order;
        QObject stranger;
        DCmdListPrograms command({}, &stranger);
        command.linkWithItsOrder(&order);
        QVERIFY(!command.commandExecute());
        QVERIFY(order.events().isEmpty());
    }

    void itSubscribesFirstAndThenSendsIdle()
    {
        ListRun run;
        QVERIFY(run.execute());
        const QVector<DInstruction> sent = run.order.instructions();
        QCOMPARE(sent.size(), 2);
        QCOMPARE(sent.at(0).command, QStringLiteral("listenEventsData"));
        QCOMPARE(sent.at(1).command, QStringLiteral("write"));
        QCOMPARE(run.frames(), words("IDLE"));
    }

    void theSubscriptionAsksForNothingButToLast()
    {
        ListRun run;
        QVERIFY(run.execute());
        const DInstruction sent = run.order.instructions().constFirst();
        QCOMPARE(sent.target, QStringLiteral("driver"));
        QCOMPARE(sent.parameters, QVariantMap({{QStringLiteral("subscription"), true}}));
        QCOMPARE(sent.parameters.first().userType(), int(QMetaType::Bool));
        QCOMPARE(sent.limitMs, 2000);
        QVERIFY(sent.wantsReply);
    }

    void framesAreBytesWithTheirTimeoutAndNobodyWaitsForTheirAnswer()
    {
        ListRun run;
        QVERIFY(run.execute());
        const DInstruction sent = run.order.instructions().constLast();
        QCOMPARE(sent.target, QStringLiteral("driver"));
        QCOMPARE(sent.parameters,
                 QVariantMap({{QStringLiteral("frame"), QByteArray("IDLE\r\n")}, {QStringLiteral("timeout"), 500}}));
        QCOMPARE(sent.parameters.value(QStringLiteral("frame")).userType(), int(QMetaType::QByteArray));
        QCOMPARE(sent.parameters.value(QStringLiteral("timeout")).userType(), int(QMetaType::Int));
        QCOMPARE(sent.limitMs, 2000);
        QVERIFY(!sent.wantsReply);
    }

    // The walk.

    void aWalkThatArrivesInOneReplyIsFollowedToItsEnd()
    {
        ListRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, answers({"10", "20", "30"})));
        QCOMPARE(run.frames(), words("IDLE TR:C TR:N TR:C TR:N TR:C TR:N TR:C"));
        QCOMPARE(run.property("programListCount"), QVariant(3));
        QCOMPARE(run.order.ends(), QVector<bool>{true});
    }

    void programsAreMapsOfTextsWithAnIntId()
    {
        ListRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, answers({"10", "20.5"})));
        const QVariantMap program = run.property("programList").toList().at(1).toMap();
        QCOMPARE(program, QVariantMap({{QStringLiteral("UNT"), QStringLiteral("0")},
                                       {QStringLiteral("TRQ"), QStringLiteral("20.5")},
                                       {QStringLiteral("progId"), 2}}));
        QCOMPARE(program.value(QStringLiteral("TRQ")).userType(), int(QMetaType::QString));
        QCOMPARE(program.value(QStringLiteral("progId")).userType(), int(QMetaType::Int));
    }

    void twoProgramsThatAreNotTheFirstMayBeEqual()
    {
        ListRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, answers({"10", "20", "20"})));
        QCOMPARE(run.property("programListCount"), QVariant(3));
    }

    void propertiesAreStoredBeforeResultsArePublished()
    {
        ListRun run;
        QVERIFY(run.execute());
        QVector<int> counts;
        run.order.beforeEvent = [&] { counts.append(run.property("programListCount").toInt()); };
        QVERIFY(run.arrive(1, "OK\r\nOK:UNT0,TRQ1\r\nERR:1\r\n"));
        // TR:C, TR:N; programList, cmd_success, the subscription's stop, the end.
        QCOMPARE(counts, QVector<int>({0, 0, 1, 1, 1, 1}));
    }

    void theEndIsTwoResultsTheStopAndTheEnd()
    {
        ListRun run;
        QVERIFY(run.execute());
        run.order.forgetEvents();
        QVERIFY(run.arrive(1, "OK\r\nERR:1\r\n"));
        const QVector<OrderEvent>& events = run.order.events();
        QCOMPARE(events.size(), 5);
        QCOMPARE(events.at(1).values.keys(), words("programList"));
        QCOMPARE(events.at(2).values.keys(), words("cmd_success"));
        QCOMPARE(events.at(3).kind, OrderEvent::Kind::Stop);
        QCOMPARE(events.at(4).kind, OrderEvent::Kind::End);
    }

    void failedIsNeverPublished()
    {
        ListRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "OK\r\nERR:1\r\n"));
        QVERIFY(!run.order.lastResult(QStringLiteral("failed")).isValid());
    }

    void anEmptyListIsASuccessOnPurpose()
    {
        ListRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "OK\r\nERR:1\r\n"));
        QCOMPARE(run.order.lastResult(QStringLiteral("cmd_success")), QVariant(true));
        QCOMPARE(run.order.lastResult(QStringLiteral("programList")).userType(), int(QMetaType::QVariantList));
        QCOMPARE(run.order.lastResult(QStringLiteral("programList")).toList(), QVariantList{});
    }

    // What is stored.

    void aListWithProgramsSurvivesARestart()
    {
        ListRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, answers({"10", "20"})));
        QCOMPARE(run.keptProperty("programList").toArray().size(), 2);
        QCOMPARE(run.keptProperty("programListCount"), QJsonValue(2));
        QCOMPARE(run.keptProperty("currentProgId"), QJsonValue(2));
    }

    void anEmptyListDoesNotSurviveARestart()
    {
        ListRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "OK\r\nERR:1\r\n"));
        QCOMPARE(run.property("programList"), QVariant(QVariantList{}));
        QCOMPARE(run.property("programListCount"), QVariant(0));
        QVERIFY(run.keptProperty("programList").isUndefined());
        QVERIFY(run.keptProperty("programListCount").isUndefined());
    }

    void anEmptyListLeavesTheCurrentProgramAsItWas()
    {
        ListRun run;
        run.give("currentProgId", 4);
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "OK\r\nERR:1\r\n"));
        QCOMPARE(run.property("currentProgId"), QVariant(4));
        QVERIFY(run.keptProperty("currentProgId").isUndefined());
    }

    void anEmptyListMakesNoCurrentProgram()
    {
        ListRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "OK\r\nERR:1\r\n"));
        QVERIFY(!run.hasProperty("currentProgId"));
    }

    void theCurrentProgramIsTheLastOneReadOnPurpose_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<int>("progId");
        const QByteArray two("OK\r\nOK:TRQ1\r\nOK\r\nOK:TRQ2\r\n");
        QTest::newRow("after the first has come again") << QByteArray(two + "OK\r\nOK:TRQ1\r\n") << 2;
        QTest::newRow("after a refused step") << QByteArray(two + "ERR:1\r\n") << 2;
        QTest::newRow("after a refused reading") << QByteArray(two + "OK\r\nERR:1\r\n") << 2;
        QTest::newRow("of one program") << QByteArray("OK\r\nOK:TRQ1\r\nOK\r\nOK:TRQ1\r\n") << 1;
    }

    void theCurrentProgramIsTheLastOneReadOnPurpose()
    {
        QFETCH(const QByteArray, lines);
        ListRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, lines));
        QTEST(run.property("currentProgId").toInt(), "progId");
    }

    void nothingIsStoredBeforeTheEnd()
    {
        ListRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "OK\r\nOK:TRQ1\r\nOK\r\nOK:TRQ2\r\n"));
        for (const char* name : {"programList", "programListCount", "currentProgId"}) {
            QVERIFY2(!run.hasProperty(name), name);
        }
        QVERIFY(run.order.published().isEmpty());
    }

    void theLogStaysSilent()
    {
        const LogCapture log;
        ListRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "nonsense\r\nERR:1\r\nOK\r\nnonsense\r\nERR:1\r\n"));
        QCOMPARE(run.order.ends(), QVector<bool>{true});
        QVERIFY(log.messages(QtWarningMsg).isEmpty() && log.messages(QtCriticalMsg).isEmpty());
    }

    // Replies.

    void aMissingNumberCountsAsZero()
    {
        ListRun run;
        QVERIFY(run.execute());
        QVERIFY(run.command->setReply(run.order.openSubscription(), {{QStringLiteral("frame"), QByteArray("OK\r\n")}}));
        QVERIFY(run.arrive(0, "OK:TRQ1\r\n"));
        QCOMPARE(run.frames(), words("IDLE TR:C"));
    }

    void theFrameMayAlsoBeAText()
    {
        ListRun run;
        QVERIFY(run.execute());
        QVERIFY(
            run.command->setReply(run.order.openSubscription(), {{QStringLiteral("number"), 1},
                                                                 {QStringLiteral("frame"), QStringLiteral("OK\r\n")}}));
        QCOMPARE(run.frames(), words("IDLE TR:C"));
    }

    void theLastNumberIsKeptIntoTheNextRun()
    {
        ListRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(9, "OK\r\nERR:1\r\n"));
        QVERIFY(run.execute());
        QVERIFY(run.arrive(9, "OK\r\n"));
        QCOMPARE(run.frames(), words("IDLE TR:C IDLE"));
        QVERIFY(run.arrive(10, "OK\r\n"));
        QCOMPARE(run.frames(), words("IDLE TR:C IDLE TR:C"));
    }

    // Ends.

    void stopped_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::newRow("waiting for OK") << QByteArray();
        QTest::newRow("after a refusal") << QByteArray("ERR:1\r\n");
        QTest::newRow("waiting for a program") << QByteArray("OK\r\n");
        QTest::newRow("waiting for the step") << QByteArray("OK\r\nOK:TRQ1\r\n");
        QTest::newRow("in mid line") << QByteArray("OK\r\nOK:TR");
    }

    void stopped()
    {
        QFETCH(const QByteArray, lines);
        ListRun run;
        QVERIFY(run.execute());
        const quint64 subscription = run.order.openSubscription();
        QVERIFY(run.arrive(1, lines));
        bool ok = false;
        QVERIFY(run.command->finishTheCommand(ok));
        QVERIFY(ok);
        QCOMPARE(run.order.events(OrderEvent::Kind::Stop).size(), 1);
        QCOMPARE(run.order.ends(), QVector<bool>{true});
        QVERIFY(run.order.published().isEmpty());
        QVERIFY(!run.hasProperty("programList"));
        QVERIFY(!run.command->setReply(subscription, {{QStringLiteral("frame"), QByteArray("OK\r\n")}}));
    }

    void theResultOfTheStopBecomesTheOkFlag()
    {
        ListRun run;
        run.order.stopsSucceed = false;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "OK\r\nERR:1\r\n"));
        QCOMPARE(run.order.ends(), QVector<bool>{false});
        QCOMPARE(run.order.lastResult(QStringLiteral("cmd_success")), QVariant(true));
    }

    void finishingWithoutARunLeavesOkAndDoesNothing()
    {
        ListRun run;
        bool ok = true;
        QVERIFY(!run.command->finishTheCommand(ok));
        QVERIFY(ok);
        QVERIFY(run.order.events().isEmpty());
    }

    void whoHearsOfTheEndMayDeleteTheCommand()
    {
        ListRun run;
        QVERIFY(run.execute());
        connect(run.command, &DAbstractCommand::sigCommandFinished, this, [&] { run.held.reset(); });
        QVERIFY(run.arrive(1, answers({"10"}) + "OK\r\nOK:UNT0,TRQ10\r\n"));
        QCOMPARE(run.order.ends(), QVector<bool>{true});
    }
};

QTEST_GUILESS_MAIN(TestDCmdListPrograms)

#include "tst_d_cmd_listPrograms.moc"
