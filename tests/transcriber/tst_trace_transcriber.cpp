#include <QTemporaryDir>
#include <QTest>

#include "p_device_haitor.h"
#include "trace_transcriber.h"

namespace {

/// What becomes of a trace with these entries, each as "> ATS" with CR LF added, or "12.5 > ATS" with its moment. "|"
/// stands for CR LF inside an entry, and "…" at its end for none there.
class Transcription
{
public:
    explicit Transcription(const char* entries, const QString& serialId = {}) : m_transcriber(m_plugin, serialId)
    {
        m_plugin.initPluginCommands();
        QFile file(m_folder.filePath(QStringLiteral("trace")));
        if (!file.open(QIODevice::WriteOnly)) {
            qFatal("no file for a trace");
        }
        file.write("# serial trace 1, /dev/fake, 2026-11-21T07:28:00.125\n");
        QString moment = QStringLiteral("0.000000");
        const QStringList lines = QString::fromUtf8(entries).split(QLatin1Char('\n'));
        for (QString line : lines) {
            if (!line.contains(QLatin1Char(' '))) {
                continue;
            }
            if (line.at(0).isDigit()) {
                moment = QString::number(line.section(QLatin1Char(' '), 0, 0).toDouble(), 'f', 6);
                line = line.section(QLatin1Char(' '), 1);
            }
            const bool hasEnd = !line.endsWith(QStringLiteral("…"));
            line = (hasEnd ? line + QStringLiteral("\\r\\n") : line.chopped(1));
            file.write((moment + QLatin1Char(' ') + line.replace(QLatin1Char('|'), QStringLiteral("\\r\\n"))).toUtf8() +
                       '\n');
        }
        file.close();
        complaint = m_transcriber.read(file.fileName()).remove(file.fileName());
    }

    QStringList lines(const QStringList& commands = {}) const { return m_transcriber.transcript(commands); }
    QString line(int index) const { return lines().mid(2).value(index); }
    QString all() const { return lines().join(QLatin1Char('\n')); }
    bool has(const char* line) const { return lines().contains(QString::fromUtf8(line)); }

    /// Empty, or what the player says of it.
    QString played(int pieceSize) const
    {
        QFile file(m_folder.filePath(QStringLiteral("transcript.txt")));
        if (!file.open(QIODevice::WriteOnly)) {
            return file.errorString();
        }
        file.write(lines().join(QLatin1Char('\n')).toUtf8());
        file.close();
        PDeviceHaitor plugin(QUuid::createUuid(), nullptr);
        plugin.initPluginCommands();
        return TranscriptPlayer(plugin, pieceSize).play(file.fileName());
    }

    QString complaint;

private:
    QTemporaryDir m_folder;
    PDeviceHaitor m_plugin{QUuid::createUuid(), nullptr};
    TraceTranscriber m_transcriber;
};

constexpr char c_connect[] = "> ATS\n< RESP 02:00:00:00:00:01 TW60 2210 -61\n> ATH\n< ATH\n> ATD 020000000001\n"
                             "< ATD 020000000001\n< DATA\n> ATH\n";
constexpr char c_list[] = "> IDLE\n< OK\n> TR:C\n< OK:UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1\n> TR:N\n< OK\n> TR:C\n"
                          "< OK:UNT0,ANG30,TRQ9,SNG3,ADT0,NUM2\n> TR:N\n< OK\n> TR:C\n"
                          "< OK:UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1\n";

} // namespace

class TestTraceTranscriber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itsTranscriptIsPlayed_data();
    void itsTranscriptIsPlayed();

    void wrenchIsKnownByItsAddress();
    void wrenchThatTheTraceDoesNotTellIsAskedFor();
    void searchThatIsGivenUpWaitsForItsLimit();
    void runThatTheHostEndsIsStopped();
    void keepAliveIsNoFrameOfTheListener();
    void lineThatNobodyHearsIsARemark();
    void lineInPiecesIsOneLine();
    void oddBytesAreEscaped();
    void oneCommandIsGivenWhatItNeeds();
    void otherFramesAreRefused();
    void damagedTraceIsRefused();
};

void TestTraceTranscriber::itsTranscriptIsPlayed_data()
{
    QTest::addColumn<QByteArray>("entries");
    QTest::addColumn<QString>("command");
    const auto row = [](const char* name, const QByteArray& entries, const char* command) {
        QTest::newRow(name) << entries << QString(QLatin1String(command));
    };
    row("connected", c_connect, "searchAndConnect");
    row("heard by its scan", QByteArray("< RESP 02:00:00:00:00:09 TW60 2299 -61\n") + c_connect, "searchAndConnect");
    row("refused", "> ATS\n< RESP 02:00:00:00:00:01 TW60 2210 -61\n> ATH\n< ATH\n> ATD 020000000001\n< ERR:1\n> ATH\n",
        "searchAndConnect");
    row("linked already", "> ATS\n< ERR:2\n> DI:C\n< OK:1\n> DT:0\n< OK:0\n> ATH\n", "searchAndConnect");
    row("searched in vain", "> ATS\n< RESP 02:00:00:00:00:09 TW60 9 -61\n10.01 > ATH\n> ATH\n", "searchAndConnect");
    row("stopped while searching", "> ATS\n> ATH\n> DT:1\n< OK:1\n> SC:TL:2\n< OK:2\n> RE:1\n< OK:1\n",
        "sendInitConfig");
    row("detection",
        "> ATS\n< RESP 02:00:00:00:00:01 TW60 2210 -61|RESP 02:00:00:00:00:02 TW60 2211 -71\n> ATH\n< ATH\n",
        "startDetection");
    row("configured", "> DT:1\n< ATH\n< OK:1\n> SC:TL:2\n< OK:2\n> RE:1\n< OK:1\n", "sendInitConfig");
    row("configuration refused", "> DT:1\n< OK:1\n> SC:TL:2\n< ERR:3\n> ATH\n", "sendInitConfig");
    row("programs listed", c_list, "listProgram");
    row("programs while busy",
        "> IDLE\n< ERR:5\n> IDLE\n< OK\n> TR:C\n< OK:UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1\n> TR:N\n"
        "< ERR:1\n",
        "listProgram");
    row("program selected", "> IDLE\n< OK\n> TR:N\n< OK\n> TR:C\n< OK:UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1\n", "setProgram");
    row("program that was listed", QByteArray(c_list) + "> IDLE\n< OK\n> TR:C\n< OK:UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1\n",
        "setProgram");
    row("locked", "> DT:1\n< OK:1\n", "setLock");
    row("results",
        "> DT:0\n< OK:0\n< RE:F:12.05,0,0,90,0,1,0|RE:F:12.06,0,0,90,0,2,0\n< ERR:9|RE:F:1,0,0,90,0,3,0\n> ATH\n",
        "listenEventsData");
    row("results in pieces", "< RE:F:12.05…\n< ,0,0,90,0,1,0|RE:F…\n< :1,0,0,90,0,2,0\n< RE…\n", "listenEventsData");
}

void TestTraceTranscriber::itsTranscriptIsPlayed()
{
    QFETCH(QByteArray, entries);
    QFETCH(QString, command);
    const Transcription made(entries.constData(), QStringLiteral("2210"));
    QCOMPARE(made.complaint, QString());
    QVERIFY2(!made.lines({command}).isEmpty(), qPrintable(made.all()));
    for (const int pieceSize : {TranscriptPlayer::c_whole, 7, 1}) {
        const QString complaint = made.played(pieceSize);
        QVERIFY2(complaint.isEmpty(), qPrintable(complaint + QLatin1Char('\n') + made.all()));
    }
}

void TestTraceTranscriber::wrenchIsKnownByItsAddress()
{
    const Transcription made("> ATS\n< RESP 02:00:00:00:00:02 TW60 77 -61|RESP 02:00:00:00:00:01 TW60 2210 -61\n> ATH\n"
                             "< ATH\n> ATD 020000000001\n< ATD 020000000001\n< DATA\n> ATH\n");
    QCOMPARE(made.complaint, QString());
    QCOMPARE(made.line(0), QStringLiteral("run     searchAndConnect serialId=\"2210\""));
}

void TestTraceTranscriber::wrenchThatTheTraceDoesNotTellIsAskedFor()
{
    const char* const trace = "> ATS\n< ERR:2\n> DI:C\n< OK:1\n> DT:0\n< OK:0\n> ATH\n";
    QVERIFY(
        Transcription(trace).complaint.contains(QStringLiteral("line 2 of the trace: it does not tell which wrench")));
    QCOMPARE(Transcription(trace, QStringLiteral("5")).line(0),
             QStringLiteral("run     searchAndConnect serialId=\"5\""));
}

void TestTraceTranscriber::searchThatIsGivenUpWaitsForItsLimit()
{
    const Transcription made("1 > ATS\n11.000001 > ATH\n> ATH\n", QStringLiteral("5"));
    QCOMPARE(made.complaint, QString());
    QVERIFY2(made.has("wait    10000") && made.has("driver> closeConnection"), qPrintable(made.all()));
}

void TestTraceTranscriber::runThatTheHostEndsIsStopped()
{
    const Transcription made("> IDLE\n> TR:X\n");
    QCOMPARE(made.complaint, QString());
    QVERIFY2(made.has("stop"), qPrintable(made.all()));
    QCOMPARE(made.lines().constLast(), QStringLiteral("# of no command: TR:X"));
}

void TestTraceTranscriber::keepAliveIsNoFrameOfTheListener()
{
    const Transcription made("< RE:F:1,0,0,90,0,1,0\n> DI:C\n< OK:0\n< RE:F:1,0,0,90,0,2,0\n");
    QCOMPARE(made.complaint, QString());
    QVERIFY2(made.has("# the driver keeps the link alive: DI:C"), qPrintable(made.all()));
    QCOMPARE(made.all().count(QStringLiteral("run     listenEventsData")), 1);
}

void TestTraceTranscriber::lineThatNobodyHearsIsARemark()
{
    const Transcription made("> DT:0\n< OK:0\n");
    QVERIFY2(made.has("# nobody listens: OK:0"), qPrintable(made.all()));
}

void TestTraceTranscriber::lineInPiecesIsOneLine()
{
    const Transcription made("> DT:1\n< OK…\n< :1\n> SC:TL:2\n");
    QVERIFY2(made.has("wrench< OK:1"), qPrintable(made.all()));
}

void TestTraceTranscriber::oddBytesAreEscaped()
{
    const Transcription made("> DT:1\n< OK\\x00\\x20\n> SC:TL:2\n> DT:1\n< \\\\x\n");
    QVERIFY2(made.has("wrench< OK\\x00\\s"), qPrintable(made.complaint + made.all()));
}

void TestTraceTranscriber::oneCommandIsGivenWhatItNeeds()
{
    const Transcription made((QByteArray(c_list) + "< RE:F:1,0,0,90,0,1,0\n").constData());
    QCOMPARE(made.complaint, QString());
    const QStringList lines = made.lines({QStringLiteral("listenEventsData")});
    QVERIFY2(lines.value(2).startsWith(QStringLiteral("given   currentProgId=2 programList=[")),
             qPrintable(lines.join(QLatin1Char('\n'))));
    QVERIFY(lines.value(2).endsWith(QStringLiteral("programListCount=2")));
    QCOMPARE(lines.value(3), QStringLiteral("run     listenEventsData"));
}

void TestTraceTranscriber::otherFramesAreRefused()
{
    // As if the command had been changed since.
    const Transcription made("> DT:1\n< OK:1\n> SC:TL:2\n< OK:2\n> RE:2\n");
    QVERIFY2(made.complaint.contains(QStringLiteral("line 6 of the trace: the host sent \"RE:2\", and the command "
                                                    "sendInitConfig now sends \"RE:1\"")),
             qPrintable(made.complaint));
}

void TestTraceTranscriber::damagedTraceIsRefused()
{
    const Transcription made("? ATS\n");
    QVERIFY2(made.complaint.startsWith(QStringLiteral(", line 2: no entry")), qPrintable(made.complaint));
    QVERIFY(made.lines().isEmpty());
}

QTEST_GUILESS_MAIN(TestTraceTranscriber)

#include "tst_trace_transcriber.moc"
