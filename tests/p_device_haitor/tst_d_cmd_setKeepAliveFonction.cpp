#include "d_cmd_setKeepAliveFonction.h"

#include "command_fixture.h"

class TestDCmdSetKeepAliveFonction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/setKeepAliveFonction")); }
    void transcript() { playTranscript(); }

    void neitherSendsNorPublishesWhenTheHostRefusesTheRun()
    {
        CommandFixture<DCmdSetKeepAliveFonction> fixture({{QStringLiteral("serialId"), QStringLiteral("2210")}});
        fixture.order.accepts = false;
        QVERIFY(!fixture.command->commandExecute());
        QVERIFY(fixture.order.events().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestDCmdSetKeepAliveFonction)
#include "tst_d_cmd_setKeepAliveFonction.moc"
