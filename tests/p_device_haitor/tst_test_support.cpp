#include <QTemporaryDir>
#include <QTest>

#include "event_text.h"
#include "p_device_haitor.h"
#include "transcript_player.h"
#include "typed_text.h"

namespace {

OrderEvent instruction(const DInstruction& sent)
{
    OrderEvent event{OrderEvent::Kind::Instruction};
    event.instruction = sent;
    event.instructionId = 1;
    return event;
}

DInstruction write(const QVariant& frame)
{
    return {QStringLiteral("driver"),
            QStringLiteral("write"),
            {{QStringLiteral("frame"), frame}, {QStringLiteral("timeout"), 500}},
            2000,
            false};
}

} // namespace

Q_DECLARE_METATYPE(DInstruction)

/// A checker that lets everything pass would make every test of a command worthless.
class TestTestSupport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goodTranscriptIsPlayedWithoutComplaint()
    {
        QCOMPARE(complaintAbout("run     checkSerialId serialId=\"7\"\n"
                                "result  serialId=\"7\" cmd_success=true\n"
                                "end     true\n"),
                 QString());
    }

    void complains_data()
    {
        QTest::addColumn<QByteArray>("transcript");
        QTest::addColumn<QString>("complaint");
        const auto row = [](const char* name, const char* transcript, const char* complaint) {
            QTest::newRow(name) << QByteArray(transcript) << QString::fromUtf8(complaint);
        };
        const char* const run = "run     checkSerialId\n";
        row("of an event that is not in the file", run, "also");
        row("of an event that does not happen", "run     setKeepAlive\nhost>   DI:C\n", "expected \"host>   DI:C\"");
        row("when nothing happens any more",
            "run     setKeepAlive\nresult  cmd_success=true\nend     true\nend     true\n", "nothing happened");
        row("of another order", "run     checkSerialId\nresult  cmd_success=true serialId=\"\"\n", "expected");
        row("of another type", "run     checkSerialId serialId=7\nresult  serialId=7\n", "serialId=\"7\"");
        row("of one call instead of two", "run     checkSerialId\nresult  serialId=\"\" + cmd_success=true\n",
            "expected");
        row("of a run that has not ended", "run     sendInitConfig\nproperty lock=false\nlisten\nhost>   DT:1\n",
            "open");
        row("of a property that is not announced", "run     sendInitConfig\nlisten\n", "property lock=false");
        row("of an arrival that nobody hears", "run     startDetection\nstop\nhost>   ATS\n", "before this");
        row("of an answer that nobody waits for",
            "run     setKeepAlive\nresult  cmd_success=true\nend     true\ndriver< cmd_success=true\n", "nobody waits");
        row("of a line when nobody listens",
            "run     setKeepAlive\nresult  cmd_success=true\nend     true\nwrench< OK\n", "nobody listens");
        row("of an unknown command", "run     getCoffee\n", "no command \"getCoffee\"");
        row("of a run that should have been refused", "run!    setKeepAlive\n", "did not return false");
        row("of a message that is not in the file", "run     searchAndConnect\nstop\n", "log     critical");
    }

    void complains()
    {
        QFETCH(QByteArray, transcript);
        QFETCH(QString, complaint);
        const QString actual = complaintAbout(transcript);
        QVERIFY2(actual.contains(complaint), qPrintable(actual));
    }

    void wellFormedInstructionsReadAsLines()
    {
        QCOMPARE(eventText(instruction(write(QByteArray("DT:1\r\n")))), QStringLiteral("host>   DT:1"));
        QCOMPARE(eventText(instruction(write(QStringLiteral("ATH\r\n")))), QStringLiteral("host>   ATH"));
    }

    void illFormedInstructionReadsAsNoLine_data()
    {
        QTest::addColumn<DInstruction>("sent");
        QTest::newRow("a text frame") << write(QStringLiteral("DT:1\r\n"));
        QTest::newRow("the hang-up as bytes") << write(QByteArray("ATH\r\n"));
        QTest::newRow("no line end") << write(QByteArray("DT:1"));
        QTest::newRow("two line ends") << write(QByteArray("DT:1\r\n\r\n"));
        QTest::newRow("a scan without wish for an answer") << write(QByteArray("ATS\r\n"));
        DInstruction sent = write(QByteArray("DT:1\r\n"));
        sent.limitMs = 3000;
        QTest::newRow("another limit") << sent;
        sent = write(QByteArray("DT:1\r\n"));
        sent.parameters[QStringLiteral("timeout")] = 500.0;
        QTest::newRow("a timeout of another type") << sent;
        sent = write(QByteArray("DT:1\r\n"));
        sent.parameters[QStringLiteral("more")] = true;
        QTest::newRow("a parameter too many") << sent;
        sent = write(QByteArray("DT:1\r\n"));
        sent.target = QStringLiteral("dongle");
        QTest::newRow("another target") << sent;
        const QMap<QString, QVariant> subscription{{QStringLiteral("subscription"), 1}};
        QTest::newRow("a subscription that is a number")
            << DInstruction{QStringLiteral("driver"), QStringLiteral("listenEventsData"), subscription, 2000, true};
    }

    void illFormedInstructionReadsAsNoLine()
    {
        QFETCH(DInstruction, sent);
        const QString text = eventText(instruction(sent));
        QVERIFY2(!text.startsWith(QLatin1String("host>")) && !text.startsWith(QLatin1String("listen")),
                 qPrintable(text));
    }

    void typesAreTold()
    {
        QCOMPARE(typedText(QVariant(1)), QStringLiteral("1"));
        QCOMPARE(typedText(QVariant(1U)), QStringLiteral("1u"));
        QCOMPARE(typedText(QVariant(QStringLiteral("1"))), QStringLiteral("\"1\""));
        QCOMPARE(typedText(QVariant(QByteArray("1"))), QStringLiteral("bytes\"1\""));
        QCOMPARE(typedText(QVariant(1.0)), QStringLiteral("1.0"));
        QCOMPARE(typedText(QVariant()), QStringLiteral("none"));
        QCOMPARE(typedText(QVariant(qlonglong(1))), QStringLiteral("qlonglong(1)"));
    }

private:
    static QString complaintAbout(const QByteArray& transcript)
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("transcript.txt")));
        if (!file.open(QIODevice::WriteOnly) || file.write(transcript) != transcript.size()) {
            qFatal("cannot write %s", qPrintable(file.fileName()));
        }
        file.close();
        PDeviceHaitor plugin(QUuid::createUuid(), nullptr);
        plugin.initPluginCommands();
        return TranscriptPlayer(plugin, TranscriptPlayer::c_whole).play(file.fileName());
    }
};

QTEST_GUILESS_MAIN(TestTestSupport)
#include "tst_test_support.moc"
