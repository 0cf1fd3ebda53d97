#include "d_cmd_connectToDevice.h"

#include <QRegularExpression>
#include <QTimer>

#include "command_run.h"
#include "log_capture.h"

namespace {

QVariantMap parameters()
{
    return {{QStringLiteral("serialId"), QStringLiteral("2210")}, {QStringLiteral("name"), QStringLiteral("Bench 4")}};
}

QVariantMap written()
{
    return {{QStringLiteral("cmd_success"), true}};
}

struct ConnectRun : CommandRun<DCmdConnectToDevice>
{
    ConnectRun() : CommandRun(parameters()) {}

    /// Executes and lets the driver answer the scan, so that the subscription is open.
    bool search() { return execute() && answer(-1, written()); }

    QTimer& timer() const { return *command->findChild<QTimer*>(); }

    bool timeOut() const { return QMetaObject::invokeMethod(command, "disconnectAndFail", Qt::DirectConnection); }
};

} // namespace

class TestDCmdConnectToDevice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/searchAndConnect")); }
    void transcript() { playTranscript(); }

    void subscribesOnlyWhenTheDriverHasAnswered()
    {
        ConnectRun run;
        QVERIFY(run.execute());
        QCOMPARE(run.order.instructions().size(), 1);
        QVERIFY(run.answer(0, written()));
        QCOMPARE(run.order.instructions().size(), 2);
    }

    void searchTimerIsOneChildOfTenSecondsThatRepeats()
    {
        const ConnectRun run;
        QCOMPARE(run.command->findChildren<QTimer*>().size(), 1);
        QCOMPARE(run.timer().interval(), 10000);
        QVERIFY(!run.timer().isSingleShot());
        QVERIFY(!run.timer().isActive());
    }

    void searchTimerRunsFromTheExecuteToTheMatch()
    {
        ConnectRun run;
        QVERIFY(run.search());
        QVERIFY(run.timer().isActive());
        QVERIFY(run.arrive(1, "RESP AA x 7 -1\r\n"));
        QVERIFY(run.timer().isActive());
        QVERIFY(run.arrive(2, "RESP AA x 2210 -1\r\n"));
        QVERIFY(!run.timer().isActive());
    }

    void finishStopsTheSearchTimer()
    {
        ConnectRun run;
        QVERIFY(run.search());
        bool ok = true;
        QVERIFY(run.command->finishTheCommand(ok));
        QVERIFY(!run.timer().isActive());
    }

    void timeoutHangsUpClosesPublishesAndHangsUpOnceMore()
    {
        ConnectRun run;
        QVERIFY(run.search());
        run.order.forgetEvents();
        QVERIFY(run.timeOut());
        QStringList instructions;
        const QVector<DInstruction> sent = run.order.instructions();
        for (const DInstruction& instruction : sent) {
            instructions.append(instruction.command);
        }
        QCOMPARE(instructions,
                 QStringList({QStringLiteral("write"), QStringLiteral("closeConnection"), QStringLiteral("write")}));
        QCOMPARE(run.frames(), QStringList({QStringLiteral("ATH"), QStringLiteral("ATH")}));
        const DInstruction close = run.order.instructions().at(1);
        QCOMPARE(close.target, QStringLiteral("driver"));
        QVERIFY(close.parameters.isEmpty());
        QCOMPARE(close.limitMs, 2000);
        QVERIFY(!close.wantsReply);
        QCOMPARE(run.order.published(),
                 (QVector<QVariantMap>{{{QStringLiteral("cmd_success"), false}}, {{QStringLiteral("failed"), true}}}));
        QVERIFY(!run.timer().isActive());
    }

    void withoutSerialIdTheLogSaysSoInItsFixedForm()
    {
        CommandRun<DCmdConnectToDevice> run;
        const LogCapture capture;
        QVERIFY(run.execute());
        QCOMPARE(capture.messages(QtCriticalMsg).size(), 1);
        const LogMessage message = capture.messages(QtCriticalMsg).at(0);
        QCOMPARE(message.category, QStringLiteral("default"));
        const QStringList pieces = message.text.split(QStringLiteral(";\t"));
        QCOMPARE(pieces.size(), 6);
        QVERIFY(pieces.at(0).startsWith(QLatin1Char('\n')));
        // The date as getDate() gives it: 2026-11-21T07:28:00.125.
        QVERIFY(pieces.at(0).contains(
            QRegularExpression(QStringLiteral("\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}"))));
        QVERIFY(pieces.at(1).trimmed().startsWith(QLatin1String("Thread = QThread(0x")));
        QVERIFY(pieces.at(2).trimmed().startsWith(QLatin1String("This = DCmdConnectToDevice(0x")));
        QCOMPARE(pieces.at(3).trimmed(), QStringLiteral("plugins/p_device_haitor/source/d_cmd_connectToDevice"));
        QCOMPARE(pieces.at(4).trimmed(), QStringLiteral("239"));
        QCOMPARE(pieces.at(5).trimmed(), QStringLiteral("ERROR: Device haitor does not have a serial Id"));
    }

    void withoutSerialIdTheTimerIsNotStarted()
    {
        CommandRun<DCmdConnectToDevice> run;
        const LogCapture capture;
        QVERIFY(run.execute());
        QVERIFY(!run.command->findChild<QTimer*>()->isActive());
        QVERIFY(run.order.events().isEmpty());
    }

    void refusalMessageIsAnInformation()
    {
        ConnectRun run;
        QVERIFY(run.search());
        const LogCapture capture;
        QVERIFY(run.arrive(1, "ERR without code\r\n"));
        QCOMPARE(capture.messages().size(), 1);
        const LogMessage message = capture.messages().first();
        QCOMPARE(message.type, QtInfoMsg);
        QCOMPARE(message.category, QStringLiteral("default"));
        QVERIFY(message.text.startsWith(QLatin1String("[Norbar device] Cannot connect to the device ")));
        QVERIFY(message.text.contains(QLatin1String("Bench 4")));
        QVERIFY(message.text.contains(QLatin1String(" error ")));
        QVERIFY(message.text.contains(QLatin1String("ERR without code")));
    }

    void refusalWithACodeIsNotLogged()
    {
        ConnectRun run;
        QVERIFY(run.search());
        const LogCapture capture;
        QVERIFY(run.arrive(1, "ERR:3\r\n"));
        QVERIFY(capture.messages().isEmpty());
    }

    void dialDoesNotChangeTheFrameThatIsWaitedFor()
    {
        ConnectRun run;
        QVERIFY(run.search());
        QVERIFY(run.arrive(1, "RESP A:B x 2210 -1\r\nERR:2\r\nATH\r\n"));
        QCOMPARE(run.lastFrame(), QStringLiteral("ATD AB"));
        // The answer is still one to the probe.
        QVERIFY(run.arrive(2, "OK:1\r\n"));
        QCOMPARE(run.lastFrame(), QStringLiteral("DT:0"));
    }

    void finishWithoutARunHangsUp()
    {
        ConnectRun run;
        bool ok = true;
        QVERIFY(!run.command->finishTheCommand(ok));
        QCOMPARE(run.frames(), QStringList(QStringLiteral("ATH")));
        QVERIFY(run.order.ends().isEmpty());
    }

    void endTellsWhetherTheSubscriptionWasStopped()
    {
        ConnectRun run;
        QVERIFY(run.search());
        run.order.stopsSucceed = false;
        QVERIFY(run.arrive(1, "ERR:3\r\n"));
        QCOMPARE(run.order.ends(), QVector<bool>{false});
    }

    void stopBeforeTheDriverHasAnsweredStopsNoSubscription()
    {
        ConnectRun run;
        QVERIFY(run.execute());
        bool ok = true;
        QVERIFY(run.command->finishTheCommand(ok));
        QVERIFY(run.order.events(OrderEvent::Kind::Stop).isEmpty());
        QCOMPARE(run.frames(), QStringList({QStringLiteral("ATS"), QStringLiteral("ATH")}));
    }

    void lastNumberOutlivesASecondExecute()
    {
        ConnectRun run;
        QVERIFY(run.search());
        QVERIFY(run.arrive(7, "hello\r\n"));
        QVERIFY(run.search());
        QVERIFY(run.arrive(7, "ERR:3\r\n"));
        QVERIFY(run.order.ends().isEmpty());
        QVERIFY(run.arrive(8, "ERR:3\r\n"));
        QCOMPARE(run.order.ends().size(), 1);
    }

    void secondExecuteStartsTheTimerThatAMatchHasStopped()
    {
        ConnectRun run;
        QVERIFY(run.search());
        QVERIFY(run.arrive(1, "RESP AA x 2210 -1\r\n"));
        QVERIFY(run.search());
        QVERIFY(run.timer().isActive());
    }

    void whoeverHearsOfTheEndMayDeleteTheCommand_data()
    {
        QTest::addColumn<QByteArray>("lastChunk");
        QTest::newRow("success") << QByteArray("RESP A x 2210 1\r\nATH\r\nATD A\r\nDATA\r\nATH\r\n");
        QTest::newRow("another wrench") << QByteArray("RESP A x 2210 1\r\nATH\r\nATD B\r\nDATA\r\nATH\r\n");
        QTest::newRow("probe") << QByteArray("ERR:2\r\nOK:0\r\nOK\r\nATH\r\n");
        QTest::newRow("failure") << QByteArray("ERR:3\r\nATH\r\n");
        QTest::newRow("failure with a message") << QByteArray("ERR\r\nATH\r\n");
        QTest::newRow("timeout") << QByteArray();
    }

    void whoeverHearsOfTheEndMayDeleteTheCommand()
    {
        QFETCH(QByteArray, lastChunk);
        ConnectRun run;
        QVERIFY(run.search());
        connect(run.command, &DAbstractCommand::sigCommandFinished, this, [&] { run.held.reset(); });
        QVERIFY(lastChunk.isEmpty() ? run.timeOut() : run.arrive(1, lastChunk));
        QVERIFY(run.held.isNull());
        QCOMPARE(run.order.ends(), QVector<bool>{true});
    }

    void twoSearchesAtOnceKeepApart()
    {
        ConnectRun first;
        ConnectRun second;
        QVERIFY(first.search());
        QVERIFY(second.search());
        QVERIFY(first.arrive(1, "ERR:2\r\n"));
        QVERIFY(second.arrive(1, "RESP AA x 2210 -1\r\n"));
        for (ConnectRun* run : {&first, &second}) {
            QVERIFY(run->arrive(2, "OK:0\r\n"));
        }
        QCOMPARE(first.lastFrame(), QStringLiteral("DT:0"));
        QCOMPARE(second.lastFrame(), QStringLiteral("ATH"));
    }
};

QTEST_GUILESS_MAIN(TestDCmdConnectToDevice)
#include "tst_d_cmd_connectToDevice.moc"
