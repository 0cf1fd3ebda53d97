#include "replayer.h"
#include "trace_reader.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

namespace {
constexpr qint64 c_usPerMs = 1000;
const QByteArray c_head = QByteArrayLiteral("# serial trace 1, /dev/fake, 2026-11-21T07:28:00.125\n");

/// A trace in a file of its own, and its player under a time turned by hand.
class Replay
{
public:
    explicit Replay(const QByteArray& entries, Replayer::Pace pace = Replayer::Pace::Recorded)
        : m_trace(written(c_head + entries))
    {
        m_isOpen = m_trace.check();
        player = std::make_unique<Replayer>(m_trace, pace, [this](const QString& text) { notes.append(text); });
        player->setHeard(true, 0);
    }

    bool isOpen() const { return m_isOpen; }
    void pass(int ms) { m_nowUs += ms * c_usPerMs; }
    void send(const QByteArray& bytes) { player->receive(bytes, m_nowUs); }
    void setHeard(bool isHeard) { player->setHeard(isHeard, m_nowUs); }

    /// What leaves now, a "|" behind each chunk.
    QByteArray taken()
    {
        QByteArray result;
        while (const std::optional<QByteArray> chunk = player->takeChunk(m_nowUs)) {
            result += TraceReader::escaped(*chunk) + '|';
        }
        return result;
    }

    std::unique_ptr<Replayer> player;
    QStringList notes;

private:
    QString written(const QByteArray& text)
    {
        QFile file(m_folder.filePath(QStringLiteral("trace")));
        const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
        return isWritten ? file.fileName() : QString();
    }

    QTemporaryDir m_folder;
    TraceReader m_trace;
    bool m_isOpen = false;
    qint64 m_nowUs = 0;
};

QString refusalOf(const QByteArray& text)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("trace")));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) {
        return QStringLiteral("the test cannot write its file");
    }
    file.close();
    TraceReader trace(file.fileName());
    return trace.check() ? QString() : trace.error().remove(file.fileName());
}
} // namespace

class TestReplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyByteIsReadAsItWas();
    void theLongestLineIsRead();
    void damagedTraceIsRefused_data();
    void damagedTraceIsRefused();
    void missingFileIsNamed();

    void chunkWaitsForTheHost();
    void chunkLeavesAsLateAsRecorded();
    void lateTurnDoesNotMakeTheRestLate();
    void fastChunksLeaveAtOnce();
    void remarksArePassedOver();
    void frameMayComeInPieces();
    void framesMayComeTogether();
    void frameBeforeItsTimeWaits();
    void traceStandsStillWhileNobodyHears();

    void differentFrameIsToldAndTakenInItsPlace();
    void differencesAreToldOnce();
    void frameBehindTheEndIsADifference();
    void hostTooFarAheadIsADifference();
    void sameTalkIsNoDifference();
    void summarySaysWhatIsWaitedFor();
};

void TestReplay::everyByteIsReadAsItWas()
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    Replay replay("0.000000 < " + TraceReader::escaped(all) + "\n", Replayer::Pace::Fast);
    QVERIFY(replay.isOpen());
    QCOMPARE(replay.player->takeChunk(0), std::optional<QByteArray>(all));
}

void TestReplay::theLongestLineIsRead()
{
    const QByteArray moment("0.000001 < ");
    const QByteArray bytes(TraceReader::c_maxLineBytes - moment.size(), 'A');
    QCOMPARE(refusalOf(c_head + moment + bytes + "\n" + "0.000002 < B\n"), QString());
}

void TestReplay::damagedTraceIsRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("refusal");
    const auto row = [](const char* name, const QByteArray& text, const char* refusal) {
        QTest::newRow(name) << text << QString(QLatin1String(refusal));
    };
    row("empty file", "", ", line 0: the file is empty");
    row("another file", "hello\n", ", line 1: no trace of a serial line");
    row("another format", "# serial trace 2, x, y\n", ", line 1: the format \"2\" is not known");
    row("no moment", c_head + "> ATS\n", ", line 2: no entry");
    row("a moment without microseconds", c_head + "0.001 > ATS\n", ", line 2: no entry");
    row("no direction", c_head + "0.000001 ATS\n", ", line 2: no entry");
    row("no bytes", c_head + "0.000001 > \n", ", line 2: no bytes");
    row("time goes back", c_head + "0.000002 > A\n0.000001 < B\n", ", line 3: its moment is before");
    row("unknown escape", c_head + "0.000001 > A\\q\n", ", line 2: a byte that is not written");
    row("half an escape", c_head + "0.000001 > A\\\n", ", line 2: a byte that is not written");
    row("one digit", c_head + "0.000001 > A\\x0\n", ", line 2: a byte that is not written");
    row("a bare control character", c_head + "0.000001 > A\r\n", ", line 2: a byte that is not written");
    row("cut off", c_head + "0.000001 > A\n0.000002 < OK", ", line 3: cut off");
    row("a line without end", c_head + "0.000001 < " + QByteArray(TraceReader::c_maxLineBytes, 'A') + "\n",
        ", line 2: longer than");
}

void TestReplay::damagedTraceIsRefused()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, refusal);
    const QString told = refusalOf(text);
    QVERIFY2(told.startsWith(refusal), qPrintable(told));
}

void TestReplay::missingFileIsNamed()
{
    TraceReader trace(QStringLiteral("/nowhere/trace"));
    QVERIFY(!trace.check());
    QVERIFY2(trace.error().startsWith(QStringLiteral("/nowhere/trace: cannot be read")), qPrintable(trace.error()));
}

void TestReplay::chunkWaitsForTheHost()
{
    Replay replay("0.000000 > ATS\\r\\n\n0.000000 < RESP\\r\\n\n");
    replay.pass(1000);
    QCOMPARE(replay.taken(), QByteArray());
    replay.send("ATS\r\n");
    QCOMPARE(replay.taken(), QByteArray("RESP\\r\\n|"));
    QVERIFY(replay.player->isOver());
}

void TestReplay::chunkLeavesAsLateAsRecorded()
{
    Replay replay("1.000000 > ATS\\r\\n\n1.020000 < RE\n1.050000 < SP\\r\\n\n");
    replay.pass(7);
    replay.send("ATS\r\n");
    replay.pass(19);
    QCOMPARE(replay.taken(), QByteArray());
    replay.pass(1);
    QCOMPARE(replay.taken(), QByteArray("RE|"));
    replay.pass(29);
    QCOMPARE(replay.taken(), QByteArray());
    replay.pass(1);
    QCOMPARE(replay.taken(), QByteArray("SP\\r\\n|"));
}

void TestReplay::lateTurnDoesNotMakeTheRestLate()
{
    Replay replay("0.000000 > A\\r\\n\n0.010000 < 1\n0.020000 < 2\n0.030000 < 3\n");
    replay.send("A\r\n");
    replay.pass(25);
    QCOMPARE(replay.taken(), QByteArray("1|2|"));
    QCOMPARE(replay.player->nextDueUs(), std::optional<qint64>(30 * c_usPerMs));
}

void TestReplay::fastChunksLeaveAtOnce()
{
    Replay replay("0.000000 > A\\r\\n\n5.000000 < 1\n9.000000 < 2\n10.000000 > B\\r\\n\n11.000000 < 3\n",
                  Replayer::Pace::Fast);
    replay.send("A\r\n");
    QCOMPARE(replay.taken(), QByteArray("1|2|"));
    replay.send("B\r\n");
    QCOMPARE(replay.taken(), QByteArray("3|"));
}

void TestReplay::remarksArePassedOver()
{
    Replay replay("0.000000 ! opened\n0.000000 > A\\r\\n\n0.000000 ! \n0.000000 < 1\n0.000000 ! closed\n");
    replay.send("A\r\n");
    QCOMPARE(replay.taken(), QByteArray("1|"));
    QVERIFY(replay.player->isOver());
}

void TestReplay::frameMayComeInPieces()
{
    Replay replay("0.000000 > AB\\r\\n\n0.000000 < 1\n");
    const QByteArray frame = "AB\r";
    for (const char byte : frame) {
        replay.send(QByteArray(1, byte));
        QCOMPARE(replay.taken(), QByteArray());
    }
    replay.send("\n");
    QCOMPARE(replay.taken(), QByteArray("1|"));
    QVERIFY(!replay.player->hasDifferences());
}

void TestReplay::framesMayComeTogether()
{
    Replay replay("0.000000 > A\\r\\n\n0.000000 > B\\r\\n\n0.000000 < 1\n");
    replay.send("A\r\nB\r\n");
    QCOMPARE(replay.taken(), QByteArray("1|"));
    QVERIFY(!replay.player->hasDifferences());
}

void TestReplay::frameBeforeItsTimeWaits()
{
    Replay replay("0.010000 < 1\n0.010000 > A\\r\\n\n0.010000 < 2\n");
    replay.send("A\r\n");
    QCOMPARE(replay.taken(), QByteArray());
    replay.pass(10);
    QCOMPARE(replay.taken(), QByteArray("1|2|"));
    QVERIFY(!replay.player->hasDifferences());
}

void TestReplay::traceStandsStillWhileNobodyHears()
{
    Replay replay("0.000000 > A\\r\\n\n0.010000 < 1\n0.020000 < 2\n");
    replay.send("A\r\n");
    replay.pass(10);
    QCOMPARE(replay.taken(), QByteArray("1|"));
    replay.pass(4);
    replay.setHeard(false);
    replay.pass(1000);
    QCOMPARE(replay.taken(), QByteArray());
    replay.setHeard(true);
    replay.pass(5);
    QCOMPARE(replay.taken(), QByteArray());
    replay.pass(1);
    QCOMPARE(replay.taken(), QByteArray("2|"));
}

void TestReplay::differentFrameIsToldAndTakenInItsPlace()
{
    Replay replay("0.000000 > DT:1\\r\\n\n0.000000 < OK:1\\r\\n\n0.500000 > RE:1\\r\\n\n");
    replay.send("DT:0\r\n");
    QCOMPARE(replay.taken(), QByteArray("OK:1\\r\\n|"));
    QCOMPARE(replay.notes.size(), 1);
    const QString note = replay.notes.constFirst();
    QVERIFY2(note.contains(QStringLiteral("line 2 (0.000000 s): the host sent \"DT:0\\r\\n\" where the trace has "
                                          "\"DT:1\\r\\n\", different from byte 4 on")),
             qPrintable(note));
    replay.send("RE:1\r\n");
    QVERIFY(replay.player->isOver());
    QVERIFY(replay.player->hasDifferences());
}

void TestReplay::differencesAreToldOnce()
{
    Replay replay("0.000000 > A\\r\\n\n0.000000 > B\\r\\n\n0.000000 > C\\r\\n\n");
    replay.send("X\r\nB\r\nY\r\n");
    QCOMPARE(replay.notes.size(), 1);
    QVERIFY2(replay.player->summary().endsWith(QStringLiteral("took 3 frames, 2 different")),
             qPrintable(replay.player->summary()));
}

void TestReplay::frameBehindTheEndIsADifference()
{
    Replay replay("0.000000 > A\\r\\n\n");
    replay.send("A\r\n");
    QVERIFY(!replay.player->hasDifferences());
    replay.send("B\r\n");
    QVERIFY(replay.player->hasDifferences());
    QVERIFY2(replay.notes.value(0).contains(QStringLiteral("\"B\\r\\n\" behind the end")),
             qPrintable(replay.notes.join(QLatin1Char('\n'))));
}

void TestReplay::hostTooFarAheadIsADifference()
{
    Replay replay("1.000000 < 1\n");
    replay.send(QByteArray(Replayer::c_maxEarlyBytes, 'A'));
    QVERIFY(!replay.player->hasDifferences());
    replay.send("B");
    QVERIFY(replay.player->hasDifferences());
}

void TestReplay::sameTalkIsNoDifference()
{
    Replay replay("0.000000 > A\\r\\n\n0.000000 < 1\n0.000000 > B\\x00\\\\\\r\\n\n");
    replay.send("A\r\n");
    QCOMPARE(replay.taken(), QByteArray("1|"));
    replay.send(QByteArray("B\0\\\r\n", 5));
    QVERIFY(replay.player->isOver());
    QVERIFY(!replay.player->hasDifferences());
    QCOMPARE(replay.notes, QStringList());
}

void TestReplay::summarySaysWhatIsWaitedFor()
{
    Replay replay("0.000000 > A\\r\\n\n0.000000 < 1\n0.000000 > B\\r\\n\n");
    replay.send("A\r\n");
    replay.taken();
    QVERIFY2(replay.player->summary().endsWith(QStringLiteral(
                 "played 1 chunks, took 1 frames, 0 different; it ends before line 4, waiting for the host's "
                 "\"B\\r\\n\"")),
             qPrintable(replay.player->summary()));
}

QTEST_GUILESS_MAIN(TestReplay)

#include "tst_replay.moc"
