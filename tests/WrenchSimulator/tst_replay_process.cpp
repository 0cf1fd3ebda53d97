#include "simulator_process.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

namespace {
const QByteArray c_head = QByteArrayLiteral("# serial trace 1, /dev/fake, 2026-11-21T07:28:00.125\n");

/// Most memory that a process has had so far, in KiB.
long peakMemoryKib(qint64 pid)
{
    QFile file(QStringLiteral("/proc/%1/status").arg(pid));
    if (!file.open(QIODevice::ReadOnly)) {
        return -1;
    }
    const QByteArray text = file.readAll();
    return text.mid(text.indexOf("VmHWM:") + 6).simplified().split(' ').constFirst().toLong();
}
} // namespace

class TestReplayProcess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void talkIsPlayedOverTheTerminal();
    void whatComesFirstWaitsForAReader();
    void differenceEndsWithStatusOne();
    void stoppedReplayEndsWithStatusOne();
    void damagedTraceEndsWithStatusTwo();
    void longTraceCostsNoMemory();

private:
    QString written(const QByteArray& entries)
    {
        QFile file(m_folder.filePath(QStringLiteral("trace.txt")));
        const QByteArray text = c_head + entries;
        return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() ? file.fileName() : QString();
    }
    static bool start(SimulatorProcess& simulator, const QString& trace)
    {
        return simulator.start({QStringLiteral("--replay"), trace, QStringLiteral("--pace"), QStringLiteral("fast")},
                               SimulatorProcess::Console::No);
    }
    static int statusOf(SimulatorProcess& simulator)
    {
        return simulator.process().waitForFinished() ? simulator.process().exitCode() : -1;
    }

    QTemporaryDir m_folder;
};

void TestReplayProcess::talkIsPlayedOverTheTerminal()
{
    const QString trace = written("0.000000 ! opened\n0.000000 > ATH\\r\\n\n3.000000 < AT\n3.000000 < H\\r\\n\n");
    SimulatorProcess simulator;
    QVERIFY(start(simulator, trace));
    {
        OpenTerminal terminal(simulator.path());
        QVERIFY(terminal.isOpen());
        terminal.send("ATH");
        QCOMPARE(terminal.receive(5), QByteArray("ATH\r\n"));
    }
    QCOMPARE(statusOf(simulator), 0);
}

void TestReplayProcess::whatComesFirstWaitsForAReader()
{
    const QString trace = written("0.000000 < RE:F:1\\r\\n\n0.000000 > ATH\\r\\n\n");
    SimulatorProcess simulator;
    QVERIFY(start(simulator, trace));
    {
        OpenTerminal terminal(simulator.path());
        QCOMPARE(terminal.receive(8), QByteArray("RE:F:1\r\n"));
        terminal.send("ATH"); // and closed at once
    }
    QCOMPARE(statusOf(simulator), 0);
}

void TestReplayProcess::differenceEndsWithStatusOne()
{
    const QString trace = written("0.000000 > DT:1\\r\\n\n0.000000 < OK:1\\r\\n\n");
    SimulatorProcess simulator;
    QVERIFY(start(simulator, trace));
    {
        OpenTerminal terminal(simulator.path());
        terminal.send("DT:0");
        QCOMPARE(terminal.receive(6), QByteArray("OK:1\r\n"));
    }
    QCOMPARE(statusOf(simulator), 1);
}

void TestReplayProcess::stoppedReplayEndsWithStatusOne()
{
    const QString trace = written("0.000000 > DT:1\\r\\n\n");
    SimulatorProcess simulator;
    QVERIFY(start(simulator, trace));
    simulator.process().terminate();
    QCOMPARE(statusOf(simulator), 1);
}

void TestReplayProcess::damagedTraceEndsWithStatusTwo()
{
    QProcess process;
    process.start(QStringLiteral(SIMULATOR), {QStringLiteral("--replay"), written("0.000000 ? DT:1\\r\\n\n")});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 2);
    const QByteArray told = process.readAllStandardError();
    QVERIFY2(told.contains("trace.txt, line 2: no entry"), told.constData());
    QCOMPARE(process.readAllStandardOutput(), QByteArray());
}

void TestReplayProcess::longTraceCostsNoMemory()
{
    constexpr int c_chunkBytes = 3000;
    constexpr int c_chunks = 8000; // 24 MB
    QFile file(m_folder.filePath(QStringLiteral("long.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(c_head);
    const QByteArray entry = "0.000000 < " + QByteArray(c_chunkBytes, 'A') + '\n';
    for (int i = 0; i < c_chunks; ++i) {
        file.write(entry);
    }
    file.close();
    SimulatorProcess simulator;
    QVERIFY(start(simulator, file.fileName()));
    const long before = peakMemoryKib(simulator.process().processId()); // it has checked the file already
    QVERIFY(before > 0);
    OpenTerminal terminal(simulator.path());
    const int size = c_chunkBytes * c_chunks;
    QCOMPARE(terminal.receive(size).size(), size);
    const long grown = peakMemoryKib(simulator.process().processId()) - before;
    QVERIFY2(grown < 4096, qPrintable(QString::number(grown)));
}

QTEST_GUILESS_MAIN(TestReplayProcess)

#include "tst_replay_process.moc"
