#include "simulator_process.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace {
QStringList quickly(const QStringList& more = {})
{
    return QStringList({QStringLiteral("--link-delay"), QStringLiteral("0"), QStringLiteral("--answer-delay"),
                        QStringLiteral("0"), QStringLiteral("--tightening-time"), QStringLiteral("0")}) +
           more;
}

/// Processor time of a process so far, in clock ticks.
long processorTicks(qint64 pid)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!file.open(QIODevice::ReadOnly)) {
        return -1;
    }
    const QList<QByteArray> fields = file.readAll().split(' ');
    return fields.at(13).toLong() + fields.at(14).toLong();
}

/// Whether a process uses next to no processor time for half a second.
bool isAtRest(qint64 pid)
{
    const long before = processorTicks(pid);
    QTest::qWait(500); // what is measured, not a wait for something
    return processorTicks(pid) - before <= 2;
}

bool isExclusive(const OpenTerminal& terminal)
{
    int flag = -1;
    ::ioctl(terminal.descriptor(), TIOCGEXCL, &flag);
    return flag != 0;
}

bool exists(qint64 pid)
{
    return ::kill(static_cast<pid_t>(pid), 0) == 0;
}
} // namespace

class TestSimulatorProcess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typicalRunOverTheTerminal();
    void linkPointsToTheTerminalUntilTheEnd();
    void staleLinkIsReplaced();
    void linkOfSomebodyElseIsLeftAlone();
    void unplugHangsUpAndReplugComesBack();
    void unplugFaultComesBackByItself();
    void closedTerminalCostsNothingAndKeepsNothing();
    void unreadResultsAreNotLeftToTheNextOne();
    void whatIsStillToComeIsNotLeftToTheNextOne();
    void stalledReaderCostsNothing();
    void exclusiveUseEndsWithItsOwner();
    void exclusiveUseOutlivesAnotherUser();
    void terminalIsRawFromTheBeginning();
    void anotherSpeedTurnsTheTalkIntoGarbage();
    void unreadOutputIsBounded();
    void userSignalTightens();
    void servesASerialDevice();
    void endsWithItsParent();
    void endOfConsoleEndsIt();
    void simulatedTimeMayRunFaster();
    void timeLineUnplugsAndReplugs();
    void wrongOptionEndsWithStatusTwo();
    void controlCharactersAreNotSaid();
    void unusableLineEndsWithStatusThree();
};

void TestSimulatorProcess::typicalRunOverTheTerminal()
{
    SimulatorProcess simulator;
    // The wrench is reported once: a second report would come between the answers.
    QVERIFY(simulator.start(quickly({QStringLiteral("--scan-period"), QStringLiteral("3600000")})));
    OpenTerminal terminal(simulator.path());
    QVERIFY(terminal.isOpen());
    const auto ask = [&terminal](const char* frame, const QByteArray& answer) {
        terminal.send(frame);
        QCOMPARE(terminal.receive(answer.size()), answer);
    };
    terminal.send("ATS");
    QVERIFY(terminal.receiveLine().startsWith("RESP 02:00:00:00:00:01 TW60 2210 -"));
    ask("ATH", "ATH\r\n");
    ask("ATD 020000000001", "ATD 020000000001\r\nDATA\r\n");
    ask("ATH", "ATH\r\n");
    ask("DT:1", "OK:1\r\n");
    ask("SC:TL:2", "OK:2\r\n");
    ask("RE:1", "OK:1\r\n");
    ask("IDLE", "OK\r\n");
    ask("TR:C", "OK:UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1\r\n");
    ask("TR:N", "OK\r\n");
    ask("TR:C", "OK:UNT0,ANG105,TRQ18,SNG4,ADT0,NUM2\r\n");
    QVERIFY(simulator.command("tighten").startsWith(QStringLiteral("error wrench 2210 is locked")));
    ask("DT:0", "OK:0\r\n");
    QCOMPARE(simulator.command("tighten 2"), QStringLiteral("ok 2 tightenings by wrench 2210"));
    const QByteArray results = terminal.receiveLine() + terminal.receiveLine();
    QVERIFY2(results.startsWith("RE:F:1") && results.count("RE:F:") == 2, results.constData());
}

void TestSimulatorProcess::linkPointsToTheTerminalUntilTheEnd()
{
    const QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("port"));
    SimulatorProcess simulator;
    QVERIFY(simulator.start({QStringLiteral("--link"), link}));
    QCOMPARE(QFile::symLinkTarget(link), simulator.path());
    simulator.process().terminate();
    QVERIFY(simulator.process().waitForFinished());
    QCOMPARE(simulator.process().exitStatus(), QProcess::NormalExit);
    QCOMPARE(simulator.process().exitCode(), 0);
    QVERIFY(!QFileInfo(link).isSymLink());
}

void TestSimulatorProcess::staleLinkIsReplaced()
{
    const QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("port"));
    QVERIFY(QFile::link(folder.filePath(QStringLiteral("gone")), link));
    SimulatorProcess simulator;
    QVERIFY(simulator.start({QStringLiteral("--link"), link}));
    QCOMPARE(QFile::symLinkTarget(link), simulator.path());
}

void TestSimulatorProcess::linkOfSomebodyElseIsLeftAlone()
{
    const QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("port"));
    SimulatorProcess first;
    QVERIFY(first.start({QStringLiteral("--link"), link}));
    SimulatorProcess second;
    QVERIFY(second.start({QStringLiteral("--link"), link}));
    first.process().terminate();
    QVERIFY(first.process().waitForFinished());
    QCOMPARE(QFile::symLinkTarget(link), second.path());
}

void TestSimulatorProcess::unplugHangsUpAndReplugComesBack()
{
    const QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("port"));
    SimulatorProcess simulator;
    QVERIFY(simulator.start(quickly({QStringLiteral("--link"), link})));
    {
        OpenTerminal terminal(link);
        terminal.send("ATD 020000000001");
        QCOMPARE(terminal.receive(24), QByteArray("ATD 020000000001\r\nDATA\r\n"));
        QCOMPARE(simulator.command("unplug"), QStringLiteral("ok unplugged"));
        QVERIFY(terminal.waitForHangUp());
        QVERIFY(!QFileInfo(link).isSymLink());
        QVERIFY(simulator.command("unplug").startsWith(QStringLiteral("error")));
    }
    QVERIFY(simulator.command("replug").startsWith(QStringLiteral("ready /dev/pts/")));
    QCOMPARE(simulator.readLine(), QStringLiteral("ok replugged"));
    QVERIFY(simulator.command("replug").startsWith(QStringLiteral("error")));
    OpenTerminal terminal(link);
    terminal.send("DI:C");
    QCOMPARE(terminal.receive(6), QByteArray("OK:0\r\n"));
}

void TestSimulatorProcess::unplugFaultComesBackByItself()
{
    SimulatorProcess simulator;
    QVERIFY(simulator.start(quickly({QStringLiteral("--fault"), QStringLiteral("unplug:1@1")})));
    OpenTerminal terminal(simulator.path());
    terminal.send("ATS");
    QVERIFY(terminal.waitForHangUp());
    const QString line = simulator.readLine();
    QVERIFY(line.startsWith(QStringLiteral("ready ")));
    OpenTerminal again(line.mid(6));
    again.send("ATH");
    QCOMPARE(again.receive(5), QByteArray("ATH\r\n"));
}

void TestSimulatorProcess::closedTerminalCostsNothingAndKeepsNothing()
{
    SimulatorProcess simulator;
    QVERIFY(simulator.start(quickly()));
    {
        OpenTerminal terminal(simulator.path());
        terminal.send("ATD 020000000001");
        QCOMPARE(terminal.receive(24), QByteArray("ATD 020000000001\r\nDATA\r\n"));
        terminal.send("RE:1");
        QCOMPARE(terminal.receive(6), QByteArray("OK:1\r\n"));
        terminal.send("DT:1"); // sent, and closed at once: it must still arrive
    }
    QTRY_VERIFY(simulator.command("wrenches").contains(QStringLiteral(", locked,")));
    QVERIFY(isAtRest(simulator.process().processId()));

    OpenTerminal next(simulator.path());
    next.send("DI:C");
    QCOMPARE(next.receive(6), QByteArray("OK:1\r\n"));
}

void TestSimulatorProcess::unreadResultsAreNotLeftToTheNextOne()
{
    SimulatorProcess simulator;
    QVERIFY(simulator.start(quickly()));
    {
        OpenTerminal terminal(simulator.path());
        terminal.send("ATD 020000000001");
        QCOMPARE(terminal.receive(24), QByteArray("ATD 020000000001\r\nDATA\r\n"));
        terminal.send("RE:1");
        QCOMPARE(terminal.receive(6), QByteArray("OK:1\r\n"));
        // More than the terminal holds, so that the simulator waits in the middle of a line.
        QVERIFY(simulator.command("tighten 9000").startsWith(QStringLiteral("ok")));
    }
    // Two answers: between them the simulator has been through its event loop and has seen that the reader left.
    QVERIFY(simulator.command("wrenches").startsWith(QStringLiteral("ok")));
    QVERIFY(simulator.command("tighten").startsWith(QStringLiteral("ok")));
    OpenTerminal next(simulator.path());
    next.send("DI:C");
    QCOMPARE(next.receive(6), QByteArray("OK:0\r\n"));
}

void TestSimulatorProcess::whatIsStillToComeIsNotLeftToTheNextOne()
{
    SimulatorProcess simulator;
    QVERIFY(simulator.start(quickly()));
    {
        OpenTerminal terminal(simulator.path());
        terminal.send("ATD 020000000001");
        QCOMPARE(terminal.receive(24), QByteArray("ATD 020000000001\r\nDATA\r\n"));
        terminal.send("RE:1");
        QCOMPARE(terminal.receive(6), QByteArray("OK:1\r\n"));
        QVERIFY(simulator.command("fault split:1,2").startsWith(QStringLiteral("ok")));
        QVERIFY(simulator.command("tighten 100").startsWith(QStringLiteral("ok"))); // takes five seconds so
        QVERIFY(terminal.receive(3).startsWith("RE:"));
    }
    QVERIFY(simulator.command("wrenches").startsWith(QStringLiteral("ok")));
    QVERIFY(simulator.command("fault none").startsWith(QStringLiteral("ok")));
    OpenTerminal next(simulator.path());
    next.send("DI:C");
    QCOMPARE(next.receive(6), QByteArray("OK:0\r\n"));
}

void TestSimulatorProcess::stalledReaderCostsNothing()
{
    SimulatorProcess simulator;
    QVERIFY(simulator.start(quickly()));
    OpenTerminal terminal(simulator.path());
    terminal.send("ATD 020000000001");
    QCOMPARE(terminal.receive(24), QByteArray("ATD 020000000001\r\nDATA\r\n"));
    terminal.send("RE:1");
    QCOMPARE(terminal.receive(6), QByteArray("OK:1\r\n"));
    QVERIFY(simulator.command("tighten 9000").startsWith(QStringLiteral("ok")));
    QVERIFY(isAtRest(simulator.process().processId()));
}

void TestSimulatorProcess::exclusiveUseEndsWithItsOwner()
{
    SimulatorProcess simulator;
    QVERIFY(simulator.start(quickly()));
    {
        const OpenTerminal owner(simulator.path());
        QCOMPARE(::ioctl(owner.descriptor(), TIOCEXCL), 0);
    }
    QTRY_VERIFY(!isExclusive(OpenTerminal(simulator.path())));
}

void TestSimulatorProcess::exclusiveUseOutlivesAnotherUser()
{
    SimulatorProcess simulator;
    QVERIFY(simulator.start(quickly()));
    OpenTerminal owner(simulator.path());
    {
        const OpenTerminal other(simulator.path());
        QCOMPARE(::ioctl(owner.descriptor(), TIOCEXCL), 0);
    }
    owner.send("ATH"); // the answer shows that the other's leaving has been seen and the owner is still served
    QCOMPARE(owner.receive(5), QByteArray("ATH\r\n"));
    QVERIFY(isExclusive(owner));
}

void TestSimulatorProcess::terminalIsRawFromTheBeginning()
{
    SimulatorProcess simulator;
    QVERIFY(simulator.start({}));
    OpenTerminal terminal(simulator.path());
    termios settings{};
    QCOMPARE(::tcgetattr(terminal.descriptor(), &settings), 0);
    QCOMPARE(settings.c_lflag & static_cast<tcflag_t>(ECHO | ICANON | ISIG), 0U);
    QCOMPARE(settings.c_iflag & static_cast<tcflag_t>(ICRNL | IXON), 0U);
    QCOMPARE(settings.c_oflag & static_cast<tcflag_t>(OPOST), 0U);
}

void TestSimulatorProcess::anotherSpeedTurnsTheTalkIntoGarbage()
{
    SimulatorProcess simulator;
    QVERIFY(simulator.start(quickly({QStringLiteral("--baud"), QStringLiteral("57600")})));
    OpenTerminal terminal(simulator.path());
    QVERIFY(terminal.isOpen());
    const auto setSpeed = [&terminal](speed_t speed) {
        termios settings{};
        ::tcgetattr(terminal.descriptor(), &settings);
        ::cfsetspeed(&settings, speed);
        ::tcsetattr(terminal.descriptor(), TCSANOW, &settings);
    };
    setSpeed(B57600);
    terminal.send("ATH");
    QCOMPARE(terminal.receive(5), QByteArray("ATH\r\n"));

    setSpeed(B9600);
    terminal.send("ATH");
    // The second answer comes when what was there before the first question has been read.
    simulator.command("wrenches");
    simulator.command("wrenches");
    setSpeed(B57600);
    terminal.send("");
    QCOMPARE(terminal.receive(7), QByteArray("ERR:3\r\n")); // a frame that is not the dongle's, for no wrench

    terminal.send("ATD 020000000001");
    QVERIFY(terminal.receive(24).endsWith("DATA\r\n"));
    terminal.send("RE:1");
    QCOMPARE(terminal.receive(6), QByteArray("OK:1\r\n"));
    setSpeed(B9600);
    QVERIFY(simulator.command("tighten").startsWith(QStringLiteral("ok ")));
    const QByteArray garbage = terminal.receive(20);
    QVERIFY(garbage.size() >= 20);
    for (const char byte : garbage) {
        QVERIFY((byte & '\x80') != 0);
    }
}

void TestSimulatorProcess::unreadOutputIsBounded()
{
    SimulatorProcess simulator;
    QVERIFY(simulator.start(quickly()));
    OpenTerminal terminal(simulator.path());
    terminal.send("ATD 020000000001");
    QCOMPARE(terminal.receive(24), QByteArray("ATD 020000000001\r\nDATA\r\n"));
    terminal.send("RE:1");
    QCOMPARE(terminal.receive(6), QByteArray("OK:1\r\n"));
    for (int i = 0; i < 6; ++i) {
        QVERIFY(simulator.command("tighten 9000").startsWith(QStringLiteral("ok")));
    }
    // What was written stays a sequence of whole lines up to the gap, and the last result is the last line.
    QByteArray all;
    while (!all.contains(",54000,")) {
        const QByteArray next = terminal.receive(1);
        QVERIFY2(!next.isEmpty(), "the last result never came");
        all += next;
    }
    QVERIFY(all.size() < 1100 * 1000);
    QVERIFY(all.startsWith("RE:F:"));
}

void TestSimulatorProcess::userSignalTightens()
{
    SimulatorProcess simulator;
    QVERIFY(simulator.start(quickly()));
    QCOMPARE(::kill(static_cast<pid_t>(simulator.process().processId()), SIGUSR1), 0);
    QTRY_VERIFY(simulator.command("wrenches").endsWith(QStringLiteral(", 1 readings")));
}

void TestSimulatorProcess::servesASerialDevice()
{
    // A pseudo-terminal's slave stands for a serial device here, with the test at its other end.
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    QVERIFY(master >= 0 && ::grantpt(master) == 0 && ::unlockpt(master) == 0);
    const QString device = QString::fromLocal8Bit(::ptsname(master));
    SimulatorProcess simulator;
    QVERIFY(simulator.start({QStringLiteral("--device"), device}));
    QCOMPARE(simulator.path(), device);
    QCOMPARE(::write(master, "ATH\r\n", 5), ssize_t(5));
    QCOMPARE(receiveFrom(master, 5), QByteArray("ATH\r\n"));
    ::close(master);
    // Gone, and noticed: it is no longer "plugged in".
    QTRY_VERIFY(simulator.command("replug").contains(QStringLiteral("cannot open")));
}

void TestSimulatorProcess::endsWithItsParent()
{
    std::array<int, 2> pipe{};
    QCOMPARE(::pipe(pipe.data()), 0);
    const pid_t parent = ::fork();
    QVERIFY(parent >= 0);
    if (parent == 0) {
        // A parent that starts the simulator, with its output going to the test, and then waits for ever.
        if (::fork() == 0) {
            ::dup2(pipe[1], STDOUT_FILENO);
            ::close(pipe[0]);
            ::close(pipe[1]);
            ::execl(SIMULATOR, SIMULATOR, "--exit-with-parent", nullptr);
            ::_exit(127);
        }
        ::close(pipe[1]);
        for (;;) {
            ::pause();
        }
    }
    ::close(pipe[1]);
    std::array<char, 64> buffer{};
    QVERIFY(::read(pipe[0], buffer.data(), buffer.size()) > 0);
    QVERIFY(QByteArray(buffer.data()).startsWith("ready "));

    QCOMPARE(::kill(parent, SIGKILL), 0);
    QCOMPARE(::waitpid(parent, nullptr, 0), parent);
    QCOMPARE(::read(pipe[0], buffer.data(), buffer.size()), ssize_t(0)); // its output ends with the simulator
    ::close(pipe[0]);
}

void TestSimulatorProcess::endOfConsoleEndsIt()
{
    SimulatorProcess simulator;
    QVERIFY(simulator.start({}));
    const qint64 pid = simulator.process().processId();
    simulator.process().closeWriteChannel();
    QVERIFY(simulator.process().waitForFinished());
    QCOMPARE(simulator.process().exitCode(), 0);
    QVERIFY(!exists(pid));
}

void TestSimulatorProcess::simulatedTimeMayRunFaster()
{
    SimulatorProcess simulator;
    // A minute, which nobody here would wait for.
    QVERIFY(simulator.start(
        {QStringLiteral("--speed"), QStringLiteral("1000"), QStringLiteral("--fault"), QStringLiteral("late:60000")}));
    OpenTerminal terminal(simulator.path());
    terminal.send("ATH");
    QCOMPARE(terminal.receive(5), QByteArray("ATH\r\n"));
}

void TestSimulatorProcess::timeLineUnplugsAndReplugs()
{
    QTemporaryDir folder;
    QFile scenario(folder.filePath(QStringLiteral("scenario.json")));
    QVERIFY(scenario.open(QIODevice::WriteOnly));
    scenario.write(R"({"timeLineFrom": "first-frame", "timeLine": [{"atMs": 50, "do": "unplug 50"}]})");
    scenario.close();
    SimulatorProcess simulator;
    QVERIFY(simulator.start({QStringLiteral("--scenario"), scenario.fileName()}));
    OpenTerminal terminal(simulator.path());
    terminal.send("ATH");
    QVERIFY(terminal.waitForHangUp());
    QVERIFY(simulator.readLine().startsWith(QStringLiteral("ready ")));
}

void TestSimulatorProcess::controlCharactersAreNotSaid()
{
    QProcess process;
    process.start(QStringLiteral(SIMULATOR), {QStringLiteral("--rate"), QStringLiteral("\x1b[31mfast")});
    QVERIFY(process.waitForFinished());
    const QByteArray note = process.readAllStandardError();
    QVERIFY2(note.contains("\\x1b[31mfast") && !note.contains('\x1b'), note.constData());

    SimulatorProcess simulator;
    QVERIFY(simulator.start({}));
    QCOMPARE(simulator.command("\x1b[31m"), QStringLiteral("error \"\\x1b[31m\" is no command: \"help\" lists them"));
}

void TestSimulatorProcess::wrongOptionEndsWithStatusTwo()
{
    QProcess process;
    process.start(QStringLiteral(SIMULATOR), {QStringLiteral("--rate"), QStringLiteral("fast")});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 2);
    QCOMPARE(process.readAllStandardOutput(), QByteArray());
    QVERIFY(process.readAllStandardError().contains("--rate \"fast\""));
}

void TestSimulatorProcess::unusableLineEndsWithStatusThree()
{
    const QTemporaryDir folder;
    for (const char* option : {"--link", "--device"}) {
        QProcess process;
        process.start(QStringLiteral(SIMULATOR), {QLatin1String(option), folder.path()});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 3);
        QVERIFY(process.readAllStandardError().contains(QFile::encodeName(folder.path())));
    }
}

QTEST_GUILESS_MAIN(TestSimulatorProcess)
#include "tst_simulator_process.moc"
