#include "command_run.h"
#include "d_cmd_listen.h"
#include "tightening_results.h"

namespace {

using ListenRun = CommandRun<DCmdListen>;

} // namespace

class TestDCmdListen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/listenEventsData")); }
    void transcript() { playTranscript(); }

    // Declaration and start.

    void declaresItself()
    {
        ListenRun run;
        QCOMPARE(run.command->fullDescription(), jsonObject(R"json({
            "name": "listenEventsData", "stopName": "stopListening",
            "description": "Listen to tightening events from the device",
            "parameters": [],
            "results": [
                {"name": "eventData", "type": "varM", "description": "Parsed tightening data from RE:F: events"}]
        })json"));
    }

    void itRunsUntilItsStopCommand()
    {
        ListenRun run;
        QVERIFY(run.command->isRecurrent());
        QCOMPARE(run.command->stopCommandName(), QStringLiteral("stopListening"));
    }

    void aFreshCommandIsOfTheSameClassPluginAndDeclarations()
    {
        ListenRun run;
        QVERIFY(qobject_cast<DCmdListen*>(run.command) != nullptr);
        QCOMPARE(run.command->parent(), &run.plugin);
        QCOMPARE(run.command->fullDescription(), run.prototype.fullDescription());
    }

    void aRefusedRunDoesNothing()
    {
        ListenRun run;
        run.order.accepts = false;
        QVERIFY(!run.execute());
        QVERIFY(run.order.events().isEmpty());
    }

    void oneSubscriptionGoesToTheDriver()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QCOMPARE(run.order.events().size(), 1);
        const DInstruction sent = run.order.instructions().constFirst();
        QCOMPARE(sent.target, QStringLiteral("driver"));
        QCOMPARE(sent.command, QStringLiteral("listenEventsData"));
        QCOMPARE(sent.limitMs, 2000);
        QVERIFY(sent.wantsReply);
    }

    void theMapHasExactlySubscriptionAndValidator()
    {
        ListenRun run;
        QVERIFY(run.execute());
        const QVariantMap map = run.order.instructions().constFirst().parameters;
        QCOMPARE(map.keys(), QStringList({QStringLiteral("subscription"), QStringLiteral("validator")}));
        QCOMPARE(map.value(QStringLiteral("subscription")).userType(), int(QMetaType::Bool));
        QVERIFY(map.value(QStringLiteral("subscription")).toBool());
    }

    void theValidatorIsTheTwoBytes00And03()
    {
        ListenRun run;
        QVERIFY(run.execute());
        const QVariant validator = run.order.instructions().constFirst().parameters.value(QStringLiteral("validator"));
        QCOMPARE(validator.userType(), int(QMetaType::QByteArray));
        QCOMPARE(validator.toByteArray(), QByteArray("\x00\x03", 2));
    }

    void withoutADeviceItListensAndRecordsHaveNoProgId()
    {
        RecordingOrder order;
        QObject stranger;
        DCmdListen command({}, &stranger);
        command.linkWithItsOrder(&order);
        QVERIFY(command.commandExecute());
        QVERIFY(command.setReply(order.openSubscription(),
                                 {{QStringLiteral("number"), 7}, {QStringLiteral("frame"), c_result}}));
        QVariantMap expected = record(7, 0);
        expected.remove(QStringLiteral("progId"));
        QCOMPARE(recordsOf(order), QVector<QVariantMap>{expected});
    }

    void theRunIsStartedEvenWhenTheSubscriptionIsRefused()
    {
        ListenRun run;
        run.order.refusesInstructions = true;
        QVERIFY(run.execute());
    }

    // Records.

    void aResultLineYieldsOneRecord()
    {
        ListenRun run;
        run.give("currentProgId", 4);
        QVERIFY(run.execute());
        QVERIFY(run.arrive(7, c_result));
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>{record(7, 4)});
    }

    void aRecordIsPublishedAloneUnderEventData()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(7, c_result));
        QCOMPARE(run.order.published().constFirst().keys(), QStringList{QStringLiteral("eventData")});
    }

    void deviceFieldsAreTextsAndTheTwoOthersInts()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(7, c_result));
        const QVariantMap published = recordsOf(run.order).constFirst();
        QCOMPARE(published.size(), 9);
        for (auto entry = published.cbegin(); entry != published.cend(); ++entry) {
            const bool isInt = entry.key() == QLatin1String("eventCountNo") || entry.key() == QLatin1String("progId");
            QCOMPARE(entry->userType(), isInt ? int(QMetaType::Int) : int(QMetaType::QString));
        }
    }

    void theProgramIsTheOneAtTheTimeOfTheLine()
    {
        ListenRun run;
        run.give("currentProgId", 1);
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, c_result));
        run.give("currentProgId", 2);
        QVERIFY(run.arrive(2, c_result));
        QCOMPARE(valuesOf(run.order, "progId"), QVariantList({1, 2}));
    }

    void theProgramIsAnIntHoweverItIsStored_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<int>("progId");
        QTest::newRow("not at all") << QVariant() << 0;
        QTest::newRow("as it comes back from the configuration") << QVariant(3.0) << 3;
        QTest::newRow("a text") << QVariant(QStringLiteral("3")) << 3;
    }

    void theProgramIsAnIntHoweverItIsStored()
    {
        QFETCH(const QVariant, stored);
        QFETCH(const int, progId);
        ListenRun run;
        if (stored.isValid()) {
            run.give("currentProgId", stored);
        }
        QVERIFY(run.execute());
        QVERIFY(run.arrive(7, c_result));
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>{record(7, progId)});
    }

    void aLineSplitOverTwoRepliesYieldsOneResultWithTheLaterNumber()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(8, "RE:F:12.5,1,"));
        QVERIFY(run.order.published().isEmpty());
        QVERIFY(run.arrive(9, "0,30,1,3,2\r\n"));
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>{record(9, 0)});
    }

    void aLineMayBeSplitBetweenCarriageReturnAndLineFeed()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(8, c_result.chopped(1)));
        QVERIFY(run.order.published().isEmpty());
        QVERIFY(run.arrive(9, "\n"));
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>{record(9, 0)});
    }

    void twoLinesInOneReplyYieldTwoResultsInOrderWithTheSameNumber()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(5, "RE:F:1,0,0,0,0,1,0\r\nRE:F:2,0,0,0,0,2,0\r\n"));
        QCOMPARE(valuesOf(run.order, "convertedTorque"), QVariantList({QStringLiteral("1"), QStringLiteral("2")}));
        QCOMPARE(valuesOf(run.order, "eventCountNo"), QVariantList({5, 5}));
    }

    void aMissingNumberCountsAsZero()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.command->setReply(run.order.openSubscription(), {{QStringLiteral("frame"), c_result}}));
        QCOMPARE(valuesOf(run.order, "eventCountNo"), QVariantList{0});
    }

    void theFrameMayAlsoBeAText()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.command->setReply(
            run.order.openSubscription(),
            {{QStringLiteral("number"), 7}, {QStringLiteral("frame"), QString::fromLatin1(c_result)}}));
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>{record(7, 0)});
    }

    void aReplyWithoutFramePublishesNothing()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.command->setReply(run.order.openSubscription(), {{QStringLiteral("number"), 7}}));
        QVERIFY(run.order.published().isEmpty());
    }

    // Repeats.

    void aReplyWithTheNumberOfTheOneBeforeIsIgnoredEvenWithAnotherFrame()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(7, c_result));
        QVERIFY(run.arrive(7, "RE:F:99,1,0,30,1,3,2\r\n"));
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>{record(7, 0)});
    }

    void aRepeatedReplyDoesNotTouchTheBuffer()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(8, "RE:F:12.5,1,"));
        QVERIFY(run.arrive(8, "RE:F:12.5,1,"));
        QVERIFY(run.arrive(9, "0,30,1,3,2\r\n"));
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>{record(9, 0)});
    }

    void onlyTheNumberDirectlyBeforeMakesARepeat()
    {
        ListenRun run;
        QVERIFY(run.execute());
        for (const int number : {7, 8, 7}) {
            QVERIFY(run.arrive(number, c_result));
        }
        QCOMPARE(valuesOf(run.order, "eventCountNo"), QVariantList({7, 8, 7}));
    }

    void theFirstReplyIsNoRepeatUnlessItsNumberIsMinusOne_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("results");
        QTest::newRow("0") << 0 << 1;
        QTest::newRow("1") << 1 << 1;
        QTest::newRow("-2") << -2 << 1;
        QTest::newRow("-1") << -1 << 0;
    }

    void theFirstReplyIsNoRepeatUnlessItsNumberIsMinusOne()
    {
        QFETCH(const int, number);
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(number, c_result));
        QTEST(run.order.published().size(), "results");
    }

    // Ends.

    void stoppingStopsTheSubscriptionOnceAndPassesItsResultOn_data()
    {
        QTest::addColumn<bool>("stopped");
        QTest::newRow("stopped") << true;
        QTest::newRow("not stopped") << false;
    }

    void stoppingStopsTheSubscriptionOnceAndPassesItsResultOn()
    {
        QFETCH(const bool, stopped);
        ListenRun run;
        run.order.stopsSucceed = stopped;
        QVERIFY(run.execute());
        const quint64 subscription = run.order.openSubscription();
        bool ok = !stopped;
        QVERIFY(run.command->finishTheCommand(ok));
        QCOMPARE(ok, stopped);
        QCOMPARE(run.order.events(OrderEvent::Kind::Stop).size(), 1);
        QCOMPARE(run.order.events(OrderEvent::Kind::Stop).constFirst().instructionId, subscription);
        QCOMPARE(run.order.ends(), QVector<bool>{stopped});
    }

    void stoppedTwiceItStopsTheSubscriptionOnce()
    {
        ListenRun run;
        QVERIFY(run.execute());
        bool ok = true;
        QVERIFY(run.command->finishTheCommand(ok));
        QVERIFY(!run.command->finishTheCommand(ok));
        QVERIFY(ok);
        QCOMPARE(run.order.events(OrderEvent::Kind::Stop).size(), 1);
    }

    void finishingWithoutARunLeavesOkAndDoesNothing()
    {
        ListenRun run;
        bool ok = true;
        QVERIFY(!run.command->finishTheCommand(ok));
        QVERIFY(ok);
        QVERIFY(run.order.events().isEmpty());
    }

    void finishingWithARefusedSubscriptionLeavesOk()
    {
        ListenRun run;
        run.order.refusesInstructions = true;
        QVERIFY(run.execute());
        bool ok = true;
        QVERIFY(run.command->finishTheCommand(ok));
        QCOMPARE(run.order.ends(), QVector<bool>{true});
        QVERIFY(run.order.events(OrderEvent::Kind::Stop).isEmpty());
    }

    void afterTheStopNothingIsHeard()
    {
        ListenRun run;
        QVERIFY(run.execute());
        const quint64 subscription = run.order.openSubscription();
        bool ok = true;
        QVERIFY(run.command->finishTheCommand(ok));
        QVERIFY(!run.command->setReply(subscription, {{QStringLiteral("frame"), c_result}}));
        QVERIFY(run.order.published().isEmpty());
    }

    void itNeverFinishesByItself()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "ERR:1\r\nATH\r\nOK\r\n" + c_result));
        QVERIFY(run.order.ends().isEmpty());
    }

    void aSecondRunGoesOnWithBufferAndLastNumber()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(8, "RE:F:12.5,1,"));
        bool ok = true;
        QVERIFY(run.command->finishTheCommand(ok));
        QVERIFY(run.execute());
        QVERIFY(run.arrive(8, "dropped as a repeat"));
        QVERIFY(run.arrive(9, "0,30,1,3,2\r\n"));
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>{record(9, 0)});
    }
};

QTEST_GUILESS_MAIN(TestDCmdListen)

#include "tst_d_cmd_listen.moc"
