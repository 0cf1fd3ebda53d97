#include "d_cmd_keepAlive.h"

#include "command_fixture.h"

class TestDCmdKeepAlive : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/setKeepAlive")); }
    void transcript() { playTranscript(); }

    void neitherSendsNorPublishesWhenTheHostRefusesTheRun()
    {
        CommandFixture<DCmdKeepAlive> fixture({{QStringLiteral("serialId"), QStringLiteral("2210")}});
        fixture.order.accepts = false;
        QVERIFY(!fixture.command->commandExecute());
        QVERIFY(fixture.order.events().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestDCmdKeepAlive)
#include "tst_d_cmd_keepAlive.moc"
