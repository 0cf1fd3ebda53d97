#include "d_cmd_sendInitConfig.h"

#include "command_run.h"

namespace {

using ConfigRun = CommandRun<DCmdSendInitConfig>;

} // namespace

class TestDCmdSendInitConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/sendInitConfig")); }
    void transcript() { playTranscript(); }

    void withoutAPluginNothingIsSentAndTheCommandStaysOpen()
    {
        RecordingOrder order;
        QObject stranger;
        DCmdSendInitConfig command({}, &stranger);
        command.linkWithItsOrder(&order);
        QVERIFY(!command.commandExecute());
        QVERIFY(order.events().isEmpty());
    }

    void withoutAParentNothingIsSent()
    {
        RecordingOrder order;
        DCmdSendInitConfig command({}, nullptr);
        command.linkWithItsOrder(&order);
        QVERIFY(!command.commandExecute());
        QVERIFY(order.events().isEmpty());
    }

    void lockIsFalseRightAfterExecuteAndSurvivesARestart()
    {
        ConfigRun run;
        QVERIFY(run.execute());
        QCOMPARE(run.property("lock"), QVariant(false));
        QCOMPARE(run.keptProperty("lock"), QJsonValue(false));
    }

    void lockIsTrueBeforeTheNextFrameIsWritten()
    {
        ConfigRun run;
        QVERIFY(run.execute());
        QVariant lockWhenWritten;
        run.order.beforeEvent = [&] { lockWhenWritten = run.property("lock"); };
        QVERIFY(run.arrive(1, "OK:1\r\n"));
        QCOMPARE(run.lastFrame(), QStringLiteral("SC:TL:2"));
        QCOMPARE(lockWhenWritten, QVariant(true));
        QCOMPARE(run.keptProperty("lock"), QJsonValue(true));
    }

    void replyWithoutNumberCountsAsZero()
    {
        ConfigRun run;
        QVERIFY(run.execute());
        const quint64 subscription = run.order.openSubscription();
        QVERIFY(run.command->setReply(subscription, {{QStringLiteral("frame"), QByteArray("OK:1\r\n")}}));
        QVERIFY(run.arrive(0, "OK:2\r\n"));
        QCOMPARE(run.lastFrame(), QStringLiteral("SC:TL:2"));
        QVERIFY(run.arrive(1, "OK:2\r\n"));
        QCOMPARE(run.lastFrame(), QStringLiteral("RE:1"));
    }

    void everyReplyIsAccepted_data()
    {
        QTest::addColumn<QByteArray>("chunk");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("strange") << QByteArray("hello\r\n");
        QTest::newRow("answer") << QByteArray("OK:1\r\n");
        QTest::newRow("end") << QByteArray("OK:1\r\nOK:2\r\nOK:1\r\n");
        QTest::newRow("failure") << QByteArray("ERR\r\n");
    }

    void everyReplyIsAccepted()
    {
        QFETCH(QByteArray, chunk);
        ConfigRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, chunk));
    }

    void repeatedReplyIsAcceptedToo()
    {
        ConfigRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "hello\r\n"));
        QVERIFY(run.arrive(1, "hello\r\n"));
    }

    void endTellsWhetherTheSubscriptionWasStopped()
    {
        ConfigRun run;
        QVERIFY(run.execute());
        run.order.stopsSucceed = false;
        QVERIFY(run.arrive(1, "ERR\r\n"));
        QCOMPARE(run.order.ends(), QVector<bool>{false});
    }

    void successIsNotPublishedWithFailed()
    {
        ConfigRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "OK:1\r\nOK:2\r\nERR:1\r\n"));
        QCOMPARE(run.order.published(), (QVector<QVariantMap>{{{QStringLiteral("failed"), true}}}));
    }

    void whoeverHearsOfTheEndMayDeleteTheCommand_data()
    {
        QTest::addColumn<QByteArray>("lastChunk");
        QTest::newRow("success") << QByteArray("OK:1\r\nOK:2\r\nOK:1\r\nOK:1\r\n");
        QTest::newRow("failure") << QByteArray("ERR:1\r\nOK:1\r\n");
    }

    void whoeverHearsOfTheEndMayDeleteTheCommand()
    {
        QFETCH(QByteArray, lastChunk);
        ConfigRun run;
        QVERIFY(run.execute());
        connect(run.command, &DAbstractCommand::sigCommandFinished, this, [&] { run.held.reset(); });
        QVERIFY(run.arrive(1, lastChunk));
        QVERIFY(run.held.isNull());
        QCOMPARE(run.order.ends(), QVector<bool>{true});
    }
};

QTEST_GUILESS_MAIN(TestDCmdSendInitConfig)
#include "tst_d_cmd_sendInitConfig.moc"
