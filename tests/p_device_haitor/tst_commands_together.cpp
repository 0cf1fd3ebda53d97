#include "command_run.h"
#include "d_cmd_listPrograms.h"
#include "d_cmd_listen.h"
#include "tightening_results.h"

namespace {

using ListenRun = CommandRun<DCmdListen>;

} // namespace

/// Commands that listen to the same line at the same time.
class TestCommandsTogether : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void twoListenersHearTheSameAndStopByThemselves()
    {
        ListenRun run;
        RecordingOrder otherOrder;
        const auto other = run.prototype.createCommand({});
        other->linkWithItsOrder(&otherOrder);
        QVERIFY(run.execute());
        QVERIFY(other->commandExecute());
        const auto arriveAtBoth = [&](int number) {
            other->setReply(otherOrder.openSubscription(),
                            {{QStringLiteral("number"), number}, {QStringLiteral("frame"), c_result}});
            run.arrive(number, c_result);
        };
        arriveAtBoth(1);
        bool ok = true;
        QVERIFY(other->finishTheCommand(ok));
        arriveAtBoth(2);
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>({record(1, 0), record(2, 0)}));
        QCOMPARE(recordsOf(otherOrder), QVector<QVariantMap>{record(1, 0)});
        QVERIFY(run.order.ends().isEmpty());
    }

    void aListenerBesideTheProgramListHearsResultsOnlyAndTheNewProgramAfterwards()
    {
        ListenRun run;
        RecordingOrder listOrder;
        DCmdListPrograms list({}, &run.plugin);
        list.linkWithItsOrder(&listOrder);
        QVERIFY(run.execute());
        QVERIFY(list.commandExecute());
        int number = 0;
        const QByteArray lines[] = {"OK\r\n", c_result, "OK:UNT0,TRQ12\r\n", "OK\r\n", "OK:UNT0,TRQ12\r\n", c_result};
        for (const QByteArray& line : lines) {
            ++number;
            list.setReply(listOrder.openSubscription(),
                          {{QStringLiteral("number"), number}, {QStringLiteral("frame"), line}});
            run.arrive(number, line);
        }
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>({record(2, 0), record(6, 1)}));
        QCOMPARE(listOrder.lastResult(QStringLiteral("programList")).toList().size(), 1);
        QVERIFY(run.order.ends().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestCommandsTogether)

#include "tst_commands_together.moc"
