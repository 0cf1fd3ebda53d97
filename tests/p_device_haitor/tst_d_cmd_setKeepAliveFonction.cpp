#include "command_run.h"
#include "d_cmd_setKeepAliveFonction.h"

class TestDCmdSetKeepAliveFonction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/setKeepAliveFonction")); }
    void transcript() { playTranscript(); }

    void whoeverHearsOfTheEndMayDeleteTheCommand()
    {
        CommandRun<DCmdSetKeepAliveFonction> run;
        QVERIFY(run.execute());
        connect(run.command, &DAbstractCommand::sigCommandFinished, this, [&] { run.held.reset(); });
        QVERIFY(run.answer(0, {}));
        QVERIFY(run.held.isNull());
        QCOMPARE(run.order.ends(), QVector<bool>{true});
    }

    void finishLeavesTheFlagAsItIs()
    {
        CommandRun<DCmdSetKeepAliveFonction> run;
        QVERIFY(run.execute());
        bool ok = false;
        QVERIFY(run.command->finishTheCommand(ok));
        QCOMPARE(run.order.ends(), QVector<bool>{false});
    }
};

QTEST_GUILESS_MAIN(TestDCmdSetKeepAliveFonction)
#include "tst_d_cmd_setKeepAliveFonction.moc"
