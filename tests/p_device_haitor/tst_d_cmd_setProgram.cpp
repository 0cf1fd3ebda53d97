#include "command_run.h"
#include "d_cmd_setProgram.h"
#include "log_capture.h"

namespace {

using SelectRun = CommandRun<DCmdSetProgram>;

QVariantMap done()
{
    return {{QStringLiteral("cmd_success"), true}};
}

QVariantMap wanted(const QVariant& progId)
{
    return {{QStringLiteral("progId"), progId}};
}

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

/// The plugin has a list of so many programs, and that one is current.
void giveList(SelectRun& run, int count, int current)
{
    run.give("programListCount", count);
    run.give("currentProgId", current);
}

} // namespace

/// The command itself, and the way that steps the wrench to a program that is not current.
class TestDCmdSetProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/setProgram")); }
    void transcript() { playTranscript(); }

    // Declaration and start.

    void declaresItself()
    {
        SelectRun run;
        QCOMPARE(run.command->fullDescription(), jsonObject(R"json({
            "name": "setProgram", "stopName": "", "description": "Set current program by ID on haitor device",
            "parameters": [
                {"name": "progId", "type": "int", "description": "Program ID to select (starts at 1)"}],
            "results": [
                {"name": "cmd_success", "type": "bool", "description": "Command success status", "default": false},
                {"name": "presetData", "type": "varM", "description": "Program parameters map"}]
        })json"));
    }

    void aFreshCommandIsOfTheSameClassAndPlugin()
    {
        SelectRun run(wanted(2));
        QVERIFY(qobject_cast<DCmdSetProgram*>(run.command) != nullptr);
        QCOMPARE(run.command->parent(), &run.plugin);
    }

    void aFreshCommandHasTheGivenParametersAndTheSameDeclarations()
    {
        SelectRun run(wanted(2));
        QCOMPARE(run.command->commandArguments(), wanted(2));
        QCOMPARE(run.command->fullDescription(), run.prototype.fullDescription());
    }

    void aRefusedRunDoesNothing()
    {
        SelectRun run(wanted(2));
        run.order.accepts = false;
        QVERIFY(!run.execute());
        QVERIFY(run.order.events().isEmpty());
        QVERIFY(!run.hasProperty("currentProgId"));
    }

    void withoutADeviceTheRunIsRefusedAndNothingIsSent()
    {
        RecordingOrder order;
        QObject stranger;
        DCmdSetProgram command(wanted(0), &stranger);
        command.linkWithItsOrder(&order);
        QVERIFY(!command.commandExecute());
        QVERIFY(order.events().isEmpty());
    }

    // Stepping.

    void itSubscribesFirstAndThenSendsIdle()
    {
        SelectRun run(wanted(3));
        giveList(run, 5, 1);
        QVERIFY(run.execute());
        const QVector<DInstruction> sent = run.order.instructions();
        QCOMPARE(sent.size(), 2);
        QCOMPARE(sent.at(0).command, QStringLiteral("listenEventsData"));
        QCOMPARE(sent.at(0).parameters, QVariantMap({{QStringLiteral("subscription"), true}}));
        QCOMPARE(sent.at(0).limitMs, 2000);
        QCOMPARE(sent.at(1).parameters,
                 QVariantMap({{QStringLiteral("frame"), QByteArray("IDLE\r\n")}, {QStringLiteral("timeout"), 500}}));
        QCOMPARE(sent.at(1).limitMs, 2000);
        QVERIFY(!sent.at(1).wantsReply);
    }

    void theFramesAreOneStepLessThanTheId_data()
    {
        QTest::addColumn<int>("progId");
        QTest::addColumn<QStringList>("frames");
        QTest::newRow("1") << 1 << words("IDLE TR:C");
        QTest::newRow("2") << 2 << words("IDLE TR:N TR:C");
        QTest::newRow("3") << 3 << words("IDLE TR:N TR:N TR:C");
        QTest::newRow("the last") << 5 << words("IDLE TR:N TR:N TR:N TR:N TR:C");
    }

    void theFramesAreOneStepLessThanTheId()
    {
        QFETCH(const int, progId);
        SelectRun run(wanted(progId));
        giveList(run, 5, 4);
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, QByteArray("OK\r\n").repeated(8)));
        QTEST(run.frames(), "frames");
    }

    void eachStepWaitsForAnOk()
    {
        SelectRun run(wanted(3));
        giveList(run, 5, 1);
        QVERIFY(run.execute());
        const char* expected[] = {"IDLE TR:N", "IDLE TR:N TR:N", "IDLE TR:N TR:N TR:C"};
        int number = 0;
        for (const char* frames : expected) {
            QVERIFY(run.arrive(++number, "ERR:1\r\nok\r\nRE:F:1,2\r\n"));
            QCOMPARE(run.frames().size(), number);
            QVERIFY(run.arrive(number + 100, "OK\r\n"));
            QCOMPARE(run.frames(), words(frames));
        }
    }

    void theCurrentProgramIsSetToTheWantedOneBeforeAnyCheckOnPurpose_data()
    {
        QTest::addColumn<QVariant>("progId");
        QTest::addColumn<int>("stored");
        QTest::newRow("one in the list") << QVariant(3) << 3;
        QTest::newRow("0") << QVariant(0) << 0;
        QTest::newRow("below") << QVariant(-1) << -1;
        QTest::newRow("beyond the list") << QVariant(6) << 6;
        QTest::newRow("no number") << QVariant(QStringLiteral("three")) << 0;
        QTest::newRow("missing") << QVariant() << 0;
    }

    void theCurrentProgramIsSetToTheWantedOneBeforeAnyCheckOnPurpose()
    {
        QFETCH(const QVariant, progId);
        QFETCH(const int, stored);
        SelectRun run(progId.isValid() ? wanted(progId) : QVariantMap{});
        giveList(run, 5, 1);
        QVector<QVariant> seen;
        run.order.beforeEvent = [&] { seen.append(run.property("currentProgId")); };
        QVERIFY(run.execute());
        QCOMPARE(seen.constFirst(), QVariant(stored));
        QCOMPARE(seen.constFirst().userType(), int(QMetaType::Int));
        QCOMPARE(run.keptProperty("currentProgId"), QJsonValue(stored));
    }

    void anIdOutsideTheListPublishesFalseAndEnds_data()
    {
        QTest::addColumn<int>("progId");
        QTest::addColumn<int>("count");
        QTest::newRow("0") << 0 << 5;
        QTest::newRow("-1") << -1 << 5;
        QTest::newRow("one beyond the last") << 6 << 5;
        QTest::newRow("of an empty list") << 1 << 0;
        QTest::newRow("of no list") << 2 << -1;
    }

    void anIdOutsideTheListPublishesFalseAndEnds()
    {
        QFETCH(const int, progId);
        QFETCH(const int, count);
        SelectRun run(wanted(progId));
        run.give("currentProgId", 3);
        if (count >= 0) {
            run.give("programListCount", count);
        }
        QVERIFY(run.execute());
        QCOMPARE(run.order.events().size(), 2);
        const QVariantMap failed{{QStringLiteral("cmd_success"), false}};
        QCOMPARE(run.order.published(), QVector<QVariantMap>{failed});
        QCOMPARE(run.order.ends(), QVector<bool>{true});
    }

    void anAnswerWithATorqueIsPublishedAndEndsTheRun()
    {
        SelectRun run(wanted(1));
        giveList(run, 5, 2);
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "OK\r\n"));
        run.order.forgetEvents();
        QVERIFY(run.arrive(2, "OK:UNT9,TRQ20,NUM0\r\n"));
        const QVector<OrderEvent>& events = run.order.events();
        QCOMPARE(events.size(), 4);
        const QVariantMap preset{{QStringLiteral("UNT"), QStringLiteral("9")},
                                 {QStringLiteral("TRQ"), QStringLiteral("20")},
                                 {QStringLiteral("NUM"), QStringLiteral("0")},
                                 {QStringLiteral("unit"), QString()},
                                 {QStringLiteral("torque"), 2000},
                                 {QStringLiteral("targetAngle"), QString()},
                                 {QStringLiteral("snugTorque"), QString()},
                                 {QStringLiteral("auditMode"), QString()},
                                 {QStringLiteral("numberOfReadings"), QStringLiteral("0")}};
        QCOMPARE(events.at(0).values, QVariantMap({{QStringLiteral("presetData"), preset}}));
        QCOMPARE(events.at(1).values, done());
        QCOMPARE(events.at(2).kind, OrderEvent::Kind::Stop);
        QCOMPARE(events.at(3).kind, OrderEvent::Kind::End);
    }

    void aMissingNumberCountsAsZero()
    {
        SelectRun run(wanted(1));
        giveList(run, 5, 2);
        QVERIFY(run.execute());
        QVERIFY(run.command->setReply(run.order.openSubscription(), {{QStringLiteral("frame"), QByteArray("OK\r\n")}}));
        QVERIFY(run.arrive(0, "OK:TRQ1\r\n"));
        QVERIFY(run.order.ends().isEmpty());
    }

    void theLastNumberIsForgottenByTheNextRun()
    {
        SelectRun run(wanted(1));
        giveList(run, 5, 2);
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "OK\r\n"));
        QVERIFY(run.arrive(2, "OK:TRQ1\r\n"));
        run.give("currentProgId", 2);
        QVERIFY(run.execute());
        QVERIFY(run.arrive(2, "OK\r\n"));
        QCOMPARE(run.frames(), words("IDLE TR:C IDLE TR:C"));
    }

    void theLogStaysSilent()
    {
        const LogCapture log;
        SelectRun run(wanted(9));
        giveList(run, 5, 1);
        QVERIFY(run.execute());
        QCOMPARE(run.order.ends(), QVector<bool>{true});
        QVERIFY(log.messages(QtWarningMsg).isEmpty() && log.messages(QtCriticalMsg).isEmpty());
    }

    // Ends.

    void stoppedWhileStepping_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::newRow("waiting for the first OK") << QByteArray();
        QTest::newRow("waiting for a step") << QByteArray("OK\r\n");
        QTest::newRow("waiting for the program") << QByteArray("OK\r\nOK\r\nOK\r\n");
        QTest::newRow("in mid line") << QByteArray("OK\r\nOK\r\nOK\r\nOK:TRQ");
    }

    void stoppedWhileStepping()
    {
        QFETCH(const QByteArray, lines);
        SelectRun run(wanted(3));
        giveList(run, 5, 1);
        QVERIFY(run.execute());
        const quint64 subscription = run.order.openSubscription();
        QVERIFY(run.arrive(1, lines));
        bool ok = false;
        QVERIFY(run.command->finishTheCommand(ok));
        QVERIFY(ok);
        QCOMPARE(run.order.events(OrderEvent::Kind::Stop).size(), 1);
        QVERIFY(run.order.published().isEmpty());
        QVERIFY(!run.command->setReply(subscription, {{QStringLiteral("frame"), QByteArray("OK\r\n")}}));
    }

    void theResultOfTheStopBecomesTheOkFlag()
    {
        SelectRun run(wanted(1));
        giveList(run, 5, 2);
        run.order.stopsSucceed = false;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "OK\r\nOK:TRQ1\r\n"));
        QCOMPARE(run.order.ends(), QVector<bool>{false});
        QCOMPARE(run.order.lastResult(QStringLiteral("cmd_success")), QVariant(true));
    }

    void finishingWithoutARunLeavesOkAndDoesNothing()
    {
        SelectRun run;
        bool ok = true;
        QVERIFY(!run.command->finishTheCommand(ok));
        QVERIFY(ok);
        QVERIFY(run.order.events().isEmpty());
    }

    void whoHearsOfTheEndMayDeleteTheCommand()
    {
        SelectRun run(wanted(1));
        giveList(run, 5, 2);
        QVERIFY(run.execute());
        connect(run.command, &DAbstractCommand::sigCommandFinished, this, [&] { run.held.reset(); });
        QVERIFY(run.arrive(1, "OK\r\nOK:TRQ1\r\nOK\r\nOK:TRQ1\r\n"));
        QCOMPARE(run.order.ends(), QVector<bool>{true});
    }
};

QTEST_GUILESS_MAIN(TestDCmdSetProgram)

#include "tst_d_cmd_setProgram.moc"
