#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "p_device_haitor.h"
#include "simulator_run.h"
#include "transcript_player.h"
#include "workplace_run.h"

namespace {

/// tools/trace-to-transcript with these arguments.
struct Tool
{
    explicit Tool(const QStringList& arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("TRANSCRIBE_TRACE"), QStringLiteral(TRANSCRIBE_TRACE));
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(TOOL), arguments);
        hasEnded = process.waitForFinished();
        status = process.exitCode();
        output = process.readAllStandardOutput();
        messages = process.readAllStandardError();
    }

    bool hasEnded = false;
    int status = -1;
    QByteArray output;
    QByteArray messages;
};

} // namespace

/// From a session on the simulator's line to transcripts that pass.
class TestTraceToTranscript : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void transcriptOfASessionIsPlayed_data();
    void transcriptOfASessionIsPlayed();
    void commandThatIsNotInTheTraceIsRefused();
    void wrongUseIsRefused_data();
    void wrongUseIsRefused();

private:
    WorkplaceRun m_session;
};

void TestTraceToTranscript::initTestCase()
{
    SimulatorRun simulator;
    // Chunks of all sizes, and an echo before each answer.
    QVERIFY2(simulator.start({QStringLiteral("--rate"), QStringLiteral("20"), QStringLiteral("--echo"),
                              QStringLiteral("--fault"), QStringLiteral("split:5,0")}),
             simulator.report());
    QVERIFY(m_session.startSession(
        simulator, {QStringLiteral("--program"), QStringLiteral("1"), QStringLiteral("--count"), QStringLiteral("5")}));
    QVERIFY2(m_session.waitForEnd(), m_session.report());
    QCOMPARE(m_session.exitStatus(), 0);
}

void TestTraceToTranscript::transcriptOfASessionIsPlayed_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("pieceSize");
    for (const char* command :
         {"", "searchAndConnect", "sendInitConfig", "listProgram", "setProgram", "setLock", "listenEventsData"}) {
        for (const int pieceSize : {TranscriptPlayer::c_whole, 7, 1}) {
            QTest::addRow("%s, %d", *command == '\0' ? "all" : command, pieceSize)
                << QString(QLatin1String(command)) << pieceSize;
        }
    }
}

void TestTraceToTranscript::transcriptOfASessionIsPlayed()
{
    QFETCH(QString, command);
    QFETCH(int, pieceSize);
    const QStringList selection = command.isEmpty() ? QStringList() : QStringList{QStringLiteral("--command"), command};
    const Tool tool(QStringList(m_session.traceFile()) + selection);
    QVERIFY2(tool.hasEnded && tool.status == 0, tool.messages.constData());
    QCOMPARE(tool.messages, QByteArray());
    QVERIFY(command.isEmpty() || tool.output.contains("run     " + command.toUtf8()));

    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("transcript.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(tool.output);
    file.close();
    PDeviceHaitor plugin(QUuid::createUuid(), nullptr);
    plugin.initPluginCommands();
    const QString complaint = TranscriptPlayer(plugin, pieceSize).play(file.fileName());
    QVERIFY2(complaint.isEmpty(), (complaint.toUtf8() + '\n' + tool.output).constData());
}

void TestTraceToTranscript::commandThatIsNotInTheTraceIsRefused()
{
    const Tool tool({m_session.traceFile(), QStringLiteral("--command"), QStringLiteral("startDetection")});
    QCOMPARE(tool.status, 2);
    QVERIFY2(tool.messages.contains("no run of that command; the trace has: searchAndConnect, sendInitConfig"),
             tool.messages.constData());
    QCOMPARE(tool.output, QByteArray());
}

void TestTraceToTranscript::wrongUseIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("no trace") << QStringList() << QByteArray("name one trace");
    QTest::newRow("missing file") << QStringList(QStringLiteral("/nowhere")) << QByteArray("/nowhere: cannot be read");
    QTest::newRow("no trace at all") << QStringList(QStringLiteral(TOOL)) << QByteArray("line 1: no trace");
    QTest::newRow("unknown option") << QStringList{QStringLiteral("--colour"), QStringLiteral(TOOL)}
                                    << QByteArray("colour");
}

void TestTraceToTranscript::wrongUseIsRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const Tool tool(arguments);
    QCOMPARE(tool.status, 2);
    QVERIFY2(tool.messages.contains(message), tool.messages.constData());
    QCOMPARE(tool.output, QByteArray());
}

QTEST_GUILESS_MAIN(TestTraceToTranscript)

#include "tst_trace_to_transcript.moc"
