#include "d_cmd_startDetection.h"

#include "command_run.h"

namespace {

using ScanRun = CommandRun<DCmdStartDetection>;

const QString c_lastResults = QStringLiteral("lastResults");
QVariantMap written()
{
    return {{QStringLiteral("cmd_success"), true}};
}
constexpr int c_anyNumber = 5;

} // namespace

class TestDCmdStartDetection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/startDetection")); }
    void transcript() { playTranscript(); }

    void subscribesOnlyWhenTheDriverHasAnswered()
    {
        ScanRun run;
        QVERIFY(run.execute());
        QCOMPARE(run.order.instructions().size(), 1);
        QVERIFY(run.answer(0, written()));
        QCOMPARE(run.order.instructions().size(), 2);
    }

    void subscribesWhateverTheDriverAnswers()
    {
        ScanRun run;
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, {{QStringLiteral("cmd_success"), false}}));
        QVERIFY(run.order.openSubscription() != 0);
    }

    void publishesOnceForAReplyOfSeveralLines()
    {
        ScanRun run;
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, written()));
        QVERIFY(run.arrive(c_anyNumber, "RESP BB x 2 -2\r\nRESP AA x 1 -1\r\nRE"));
        QCOMPARE(run.order.published().size(), 1);
        const QVariantList list = run.order.lastResult(c_lastResults).toList();
        QCOMPARE(list.size(), 2);
        QCOMPARE(list.first().toMap().value(QStringLiteral("mac")).toString(), QStringLiteral("AA"));
    }

    void entryHasThreeTexts()
    {
        ScanRun run;
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, written()));
        QVERIFY(run.arrive(c_anyNumber, "RESP AA:BB 1 2 3\r\n"));
        const QVariantMap wanted{{QStringLiteral("mac"), QStringLiteral("AA:BB")},
                                 {QStringLiteral("sn"), QStringLiteral("2")},
                                 {QStringLiteral("rssi"), QStringLiteral("3")}};
        const QVariantMap entry = run.order.lastResult(c_lastResults).toList().value(0).toMap();
        QCOMPARE(entry, wanted);
        for (const QVariant& value : entry) {
            QCOMPARE(value.userType(), int(QMetaType::QString));
        }
    }

    void replyWithoutFramePublishesTheListToo()
    {
        ScanRun run;
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, written()));
        QVERIFY(run.command->setReply(run.order.openSubscription(), {}));
        QCOMPARE(run.order.published(), (QVector<QVariantMap>{{{c_lastResults, QVariantList()}}}));
    }

    void endTellsWhetherTheSubscriptionWasStopped()
    {
        ScanRun run;
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, written()));
        run.order.stopsSucceed = false;
        bool ok = true;
        QVERIFY(run.command->finishTheCommand(ok));
        QVERIFY(!ok);
        QCOMPARE(run.order.ends(), QVector<bool>{false});
        QCOMPARE(run.frames(), QStringList({QStringLiteral("ATS"), QStringLiteral("ATH")}));
    }

    void finishBeforeTheSubscriptionWritesNoHangUp()
    {
        ScanRun run;
        QVERIFY(run.execute());
        bool ok = true;
        QVERIFY(run.command->finishTheCommand(ok));
        QCOMPARE(run.frames(), QStringList(QStringLiteral("ATS")));
        QVERIFY(run.order.events(OrderEvent::Kind::Stop).isEmpty());
    }

    void secondFinishStopsNothingMore()
    {
        ScanRun run;
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, written()));
        bool ok = true;
        QVERIFY(run.command->finishTheCommand(ok));
        run.order.forgetEvents();
        QVERIFY(!run.command->finishTheCommand(ok));
        QVERIFY(run.order.events().isEmpty());
    }

    // Kept on purpose: only a finish closes a subscription, and only the one opened last.
    void secondExecuteDoesNotCloseTheSubscriptionOfTheFirst()
    {
        ScanRun run;
        QVERIFY(run.execute());
        QVERIFY(run.answer(-1, written()));
        const quint64 first = run.order.openSubscription();
        QVERIFY(run.arrive(c_anyNumber, "RESP AA x 1 -1\r\nRESP"));
        QVERIFY(run.execute());
        QVERIFY(run.answer(-1, written()));
        QCOMPARE(run.order.openSubscriptions().size(), 2);
        QVERIFY(run.order.openSubscriptions().contains(first));
        // Both the list and the rest of a line have gone.
        QVERIFY(run.arrive(c_anyNumber, " BB x 2 -2\r\n"));
        QCOMPARE(run.order.lastResult(c_lastResults), QVariant(QVariantList()));
        bool ok = true;
        QVERIFY(run.command->finishTheCommand(ok));
        QCOMPARE(run.order.events(OrderEvent::Kind::Stop).size(), 1);
        QVERIFY(run.order.events(OrderEvent::Kind::Stop).at(0).instructionId != first);
    }

    void foundDevicesAreKeptUntilTheNextExecute()
    {
        ScanRun run;
        QVERIFY(run.execute());
        QVERIFY(run.answer(-1, written()));
        QVERIFY(run.arrive(c_anyNumber, "RESP AA x 1 -1\r\n"));
        QCOMPARE(run.order.lastResult(c_lastResults).toList().size(), 1);
        QVERIFY(run.arrive(c_anyNumber, "\r\n"));
        QCOMPARE(run.order.lastResult(c_lastResults).toList().size(), 1);
    }

    void twoScansAtOnceHearTheSameAndAreEndedEachAlone()
    {
        ScanRun first;
        ScanRun second;
        for (ScanRun* run : {&first, &second}) {
            QVERIFY(run->execute());
            QVERIFY(run->answer(0, written()));
        }
        for (ScanRun* run : {&first, &second}) {
            QVERIFY(run->arrive(1, "RESP AA x 1 -1\r\nRE"));
        }
        bool ok = true;
        QVERIFY(first.command->finishTheCommand(ok));
        QVERIFY(second.arrive(2, "SP BB x 2 -2\r\n"));
        QCOMPARE(first.order.lastResult(c_lastResults).toList().size(), 1);
        QCOMPARE(second.order.lastResult(c_lastResults).toList().size(), 2);
        QVERIFY(second.order.ends().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestDCmdStartDetection)
#include "tst_d_cmd_startDetection.moc"
