#include "command_fixture.h"

class TestDCmdKeepAlive : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/setKeepAlive")); }
    void transcript() { playTranscript(); }
};

QTEST_GUILESS_MAIN(TestDCmdKeepAlive)
#include "tst_d_cmd_keepAlive.moc"
