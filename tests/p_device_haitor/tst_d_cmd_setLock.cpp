#include "command_run.h"
#include "d_cmd_setLock.h"

namespace {

using SetLockRun = CommandRun<DCmdSetLock>;

QVariantMap toLock()
{
    return {{QStringLiteral("lock"), true}};
}

QVariantMap toUnlock()
{
    return {{QStringLiteral("lock"), false}};
}

QVariantMap done()
{
    return {{QStringLiteral("cmd_success"), true}};
}

QVariantMap failed()
{
    return {{QStringLiteral("cmd_success"), false}};
}

} // namespace

class TestDCmdSetLock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/setLock")); }
    void transcript() { playTranscript(); }

    void declaresItself()
    {
        SetLockRun run;
        QCOMPARE(run.command->fullDescription(), jsonObject(R"json({
            "name": "setLock", "stopName": "", "description": "Set tool lock state (Data Transmission mode)",
            "parameters": [
                {"name": "lock", "type": "bool", "description": "True to lock (DT:1), false to unlock (DT:0)"}],
            "results": [
                {"name": "cmd_success", "type": "bool", "description": "Command success status", "default": false}]
        })json"));
    }

    void aFreshCommandIsOfTheSameClassAndPlugin()
    {
        SetLockRun prototype;
        const auto fresh = prototype.command->createCommand(toLock());
        auto* object = dynamic_cast<DCmdSetLock*>(fresh.data());
        QVERIFY(object != nullptr);
        QCOMPARE(object->parent(), &prototype.plugin);
    }

    void aFreshCommandHasTheGivenParametersAndTheSameDeclarations()
    {
        SetLockRun prototype;
        const auto fresh = prototype.command->createCommand(toLock());
        QCOMPARE(fresh->commandArguments(), toLock());
        QCOMPARE(fresh->fullDescription(), prototype.command->fullDescription());
    }

    void aPrototypeHasNoParameters()
    {
        PDeviceHaitor plugin;
        QVERIFY(DCmdSetLock(&plugin).commandArguments().isEmpty());
    }

    void aRefusedRunDoesNothing()
    {
        SetLockRun run(toLock());
        run.order.accepts = false;
        QVERIFY(!run.execute());
        QVERIFY(run.order.events().isEmpty());
    }

    void withoutADeviceTheRunIsRefusedAndNothingIsSent()
    {
        RecordingOrder order;
        QObject stranger;
        DCmdSetLock command(toLock(), &stranger);
        command.linkWithItsOrder(&order);
        QVERIFY(!command.commandExecute());
        QVERIFY(order.events().isEmpty());
    }

    void theFrameFollowsTheParameter_data()
    {
        QTest::addColumn<QVariantMap>("parameters");
        QTest::addColumn<QByteArray>("frame");

        const QByteArray lock("DT:1\r\n");
        const QByteArray unlock("DT:0\r\n");
        const auto with = [](const QVariant& value) { return QVariantMap{{QStringLiteral("lock"), value}}; };
        QTest::newRow("true") << with(true) << lock;
        QTest::newRow("false") << with(false) << unlock;
        QTest::newRow("missing") << QVariantMap{} << unlock;
        QTest::newRow("invalid") << with(QVariant()) << unlock;
        QTest::newRow("the text true") << with(QStringLiteral("true")) << lock;
        QTest::newRow("the text false") << with(QStringLiteral("false")) << unlock;
        QTest::newRow("the text 0") << with(QStringLiteral("0")) << unlock;
        QTest::newRow("the empty text") << with(QString()) << unlock;
        QTest::newRow("the number 1") << with(1) << lock;
        QTest::newRow("the number 0") << with(0) << unlock;
    }

    void theFrameFollowsTheParameter()
    {
        QFETCH(const QVariantMap, parameters);
        SetLockRun run(parameters);
        QVERIFY(run.execute());
        QTEST(run.order.instructions().constFirst().parameters.value(QStringLiteral("frame")).toByteArray(), "frame");
    }

    void oneWriteGoesToTheDriverAndItsAnswerIsAwaited()
    {
        SetLockRun run(toLock());
        QVERIFY(run.execute());
        QCOMPARE(run.order.events().size(), 1);
        const DInstruction sent = run.order.instructions().constFirst();
        QCOMPARE(sent.target, QStringLiteral("driver"));
        QCOMPARE(sent.command, QStringLiteral("write"));
        QCOMPARE(sent.limitMs, 2000);
        QVERIFY(sent.wantsReply);
    }

    void theMapHasExactlyFrameAndTimeout()
    {
        SetLockRun run(toLock());
        QVERIFY(run.execute());
        const QVariantMap map = run.order.instructions().constFirst().parameters;
        QCOMPARE(map.keys(), QStringList({QStringLiteral("frame"), QStringLiteral("timeout")}));
        QCOMPARE(map.value(QStringLiteral("frame")).userType(), int(QMetaType::QByteArray));
        QCOMPARE(map.value(QStringLiteral("timeout")).userType(), int(QMetaType::Int));
        QCOMPARE(map.value(QStringLiteral("timeout")).toInt(), 500);
    }

    void theRunIsStartedEvenWhenTheInstructionIsRefused()
    {
        SetLockRun run(toLock());
        run.order.refusesInstructions = true;
        QVERIFY(run.execute());
        QVERIFY(run.order.ends().isEmpty());
    }

    void nothingIsPublishedBeforeTheAnswer()
    {
        SetLockRun run(toLock());
        QVERIFY(run.execute());
        QVERIFY(run.order.published().isEmpty());
        QVERIFY(!run.hasProperty("lock"));
    }

    void anAnswerIsTakenAndThenTheRunHasEnded()
    {
        SetLockRun run(toLock());
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, done()));
        QCOMPARE(run.order.published(), QVector<QVariantMap>{done()});
        QCOMPARE(run.order.ends(), QVector<bool>{true});
    }

    void theLockIsStoredFalseOnPurpose_data()
    {
        QTest::addColumn<QVariantMap>("parameters");
        QTest::newRow("after a successful locking") << toLock();
        QTest::newRow("after a successful unlocking") << toUnlock();
    }

    void theLockIsStoredFalseOnPurpose()
    {
        QFETCH(const QVariantMap, parameters);
        SetLockRun run(parameters);
        run.give("lock", true);
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, done()));
        QCOMPARE(run.property("lock"), QVariant(false));
        QCOMPARE(run.property("lock").userType(), int(QMetaType::Bool));
    }

    void theLockSurvivesARestart()
    {
        SetLockRun run(toLock());
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, done()));
        QCOMPARE(run.keptProperty("lock"), QJsonValue(false));
    }

    void aFailedAnswerPublishesFalseAndEndsTheRun_data()
    {
        QTest::addColumn<QVariantMap>("reply");
        QTest::newRow("false") << failed();
        QTest::newRow("without cmd_success") << QVariantMap{{QStringLiteral("other"), true}};
        QTest::newRow("empty") << QVariantMap{};
    }

    void aFailedAnswerPublishesFalseAndEndsTheRun()
    {
        QFETCH(const QVariantMap, reply);
        SetLockRun run(toLock());
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, reply));
        QCOMPARE(run.order.published(), QVector<QVariantMap>{failed()});
        QCOMPARE(run.order.ends(), QVector<bool>{true});
    }

    void aFailedAnswerLeavesTheLockAsItWas()
    {
        SetLockRun run(toUnlock());
        run.give("lock", true);
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, failed()));
        QCOMPARE(run.property("lock"), QVariant(true));
        QVERIFY(run.keptProperty("lock").isUndefined());
    }

    void aFailedAnswerMakesNoProperty()
    {
        SetLockRun run(toUnlock());
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, {}));
        QVERIFY(!run.hasProperty("lock"));
    }

    void theResultComesBeforeThePropertyAndThatBeforeTheEnd()
    {
        SetLockRun run(toLock());
        QVERIFY(run.execute());
        run.order.forgetEvents();
        QVector<bool> hadProperty;
        run.order.beforeEvent = [&] { hadProperty.append(run.hasProperty("lock")); };
        QVERIFY(run.command->setReply(1, done()));
        QCOMPARE(run.order.events().size(), 2);
        QCOMPARE(run.order.events().at(0).kind, OrderEvent::Kind::Results);
        QCOMPARE(run.order.events().at(1).kind, OrderEvent::Kind::End);
        QCOMPARE(hadProperty, QVector<bool>({false, true}));
    }

    void aSecondAnswerIsNotTaken()
    {
        SetLockRun run(toLock());
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, failed()));
        QVERIFY(!run.answer(0, done()));
        QVERIFY(!run.hasProperty("lock"));
    }

    void theSameCommandRunsTwice()
    {
        SetLockRun run(toLock());
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, failed()));
        QVERIFY(run.execute());
        QVERIFY(run.answer(1, done()));
        QCOMPARE(run.frames(), QStringList({QStringLiteral("DT:1"), QStringLiteral("DT:1")}));
        QCOMPARE(run.order.published(), QVector<QVariantMap>({failed(), done()}));
        QCOMPARE(run.order.ends(), QVector<bool>({true, true}));
    }

    void finishingWithoutARunDoesNothing()
    {
        SetLockRun run;
        bool ok = true;
        QVERIFY(!run.command->finishTheCommand(ok));
        QVERIFY(ok);
        QVERIFY(run.order.events().isEmpty());
    }

    void stoppedWhileWaitingItPublishesNothingAndTakesNoAnswer()
    {
        SetLockRun run(toLock());
        QVERIFY(run.execute());
        bool ok = false;
        QVERIFY(run.command->finishTheCommand(ok));
        QVERIFY(!run.answer(0, done()));
        QVERIFY(run.order.published().isEmpty());
        QVERIFY(!run.hasProperty("lock"));
        QCOMPARE(run.order.ends(), QVector<bool>{false});
    }
};

QTEST_GUILESS_MAIN(TestDCmdSetLock)

#include "tst_d_cmd_setLock.moc"
