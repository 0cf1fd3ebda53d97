#include "d_cmd_checkSerialId.h"

#include "command_fixture.h"

class TestDCmdCheckSerialId : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/checkSerialId")); }
    void transcript() { playTranscript(); }

    void neitherSendsNorPublishesWhenTheHostRefusesTheRun()
    {
        CommandFixture<DCmdCheckSerialId> fixture({{QStringLiteral("serialId"), QStringLiteral("2210")}});
        fixture.order.accepts = false;
        QVERIFY(!fixture.command->commandExecute());
        QVERIFY(fixture.order.events().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestDCmdCheckSerialId)
#include "tst_d_cmd_checkSerialId.moc"
