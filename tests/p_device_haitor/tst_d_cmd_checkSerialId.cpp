#include "command_fixture.h"

class TestDCmdCheckSerialId : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/checkSerialId")); }
    void transcript() { playTranscript(); }
};

QTEST_GUILESS_MAIN(TestDCmdCheckSerialId)
#include "tst_d_cmd_checkSerialId.moc"
