#include "d_cmd_sendInitConfig.h"

#include "command_fixture.h"

class TestDCmdSendInitConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/sendInitConfig")); }
    void transcript() { playTranscript(); }

    void neitherSendsNorPublishesWhenTheHostRefusesTheRun()
    {
        CommandFixture<DCmdSendInitConfig> fixture({{QStringLiteral("serialId"), QStringLiteral("2210")}});
        fixture.order.accepts = false;
        QVERIFY(!fixture.command->commandExecute());
        QVERIFY(fixture.order.events().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestDCmdSendInitConfig)
#include "tst_d_cmd_sendInitConfig.moc"
