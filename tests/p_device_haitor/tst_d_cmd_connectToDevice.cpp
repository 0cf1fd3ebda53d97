#include "d_cmd_connectToDevice.h"

#include "command_fixture.h"

class TestDCmdConnectToDevice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/searchAndConnect")); }
    void transcript() { playTranscript(); }

    void neitherSendsNorPublishesWhenTheHostRefusesTheRun()
    {
        CommandFixture<DCmdConnectToDevice> fixture({{QStringLiteral("serialId"), QStringLiteral("2210")}});
        fixture.order.accepts = false;
        QVERIFY(!fixture.command->commandExecute());
        QVERIFY(fixture.order.events().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestDCmdConnectToDevice)
#include "tst_d_cmd_connectToDevice.moc"
