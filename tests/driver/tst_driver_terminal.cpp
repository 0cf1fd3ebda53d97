#include <QFile>
#include <QSignalSpy>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QVector>

#include <csignal>
#include <fcntl.h>
#include <grp.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>

#include <lib_utilities/system_clock.h>

#include "line_settings.h"
#include "port_problem.h"
#include "pseudo_terminal.h"
#include "qt_serial_port.h"
#include "serial_line.h"

namespace {

class Listener : public ILineListener
{
public:
    QByteArray bytes;
    std::function<void()> onChunk;

    void chunkArrived(const QByteArray& chunk, int number) override
    {
        Q_UNUSED(number)
        bytes += chunk;
        if (onChunk) {
            onChunk();
        }
    }
};

qint64 processorTimeMs()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000 +
           (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1000;
}

} // namespace

/// The line on QSerialPort and a pseudo-terminal, in real time.
class TestDriverTerminal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void writesBytesAsTheyAre();
    void hearsBytesAsTheyAre();
    void answersFalseWhenTheOtherEndTakesNothing();
    void waitsForALineThatIsHeldUp();
    void answersEachOfSeveralFramesAskedAtOnce();
    void answersOnlyWhenTheLastByteHasLeft();
    void sendsNothingMoreOfAFrameThatMissedItsLimit();
    void costsNoProcessorTimeAfterAHangUp();
    void comesBackUnderTheSameName();
    void refusesAPortThatThisProgramHasOpen();
    void refusesAPortByItsOtherName();
    void locksThePortByItsRealName();
    void namesTheProgramThatHoldsThePort();
    void opensAPortWhoseHolderWasKilled();
    void namesAMissingPort();
    void refusesAFileThatIsNoPort();
    void saysWhatToDoWhenThePortIsNotPermitted_data();
    void saysWhatToDoWhenThePortIsNotPermitted();
    void saysHowToLearnWhoHoldsAPortWhenOnlyRootCanSee();
    void saysHowToRemoveAStaleLockOfAnotherUser();
    void refusesSettingsThatThePortDoesNotHave();
    void opensAgainForAWriteAfterClosing();
    void mayBeClosedByAListener();
    void mayBeDestroyedByAListener();

private:
    std::unique_ptr<SerialLine> makeLine();
    bool write(SerialLine& line, const QByteArray& frame, int limitMs = 2000);
    QString link() const { return m_folder->filePath(QStringLiteral("port")); }
    QString lockFile() const;
    bool leaveStaleLock() const;
    void pointLinkTo(const PseudoTerminal& terminal) const;

    std::unique_ptr<SystemClock> m_clock;
    std::unique_ptr<PseudoTerminal> m_terminal;
    std::unique_ptr<QTemporaryDir> m_folder;
    LineSettings m_settings;
    std::unique_ptr<SerialLine> m_line;
};

void TestDriverTerminal::init()
{
    m_clock = std::make_unique<SystemClock>();
    m_terminal = std::make_unique<PseudoTerminal>();
    m_folder = std::make_unique<QTemporaryDir>();
    m_settings = LineSettings();
    m_settings.port = m_terminal->path();
    m_line = makeLine();
}

void TestDriverTerminal::cleanup()
{
    m_line.reset();
    m_terminal.reset();
    m_clock.reset();
}

std::unique_ptr<SerialLine> TestDriverTerminal::makeLine()
{
    return std::make_unique<SerialLine>(std::make_unique<QtSerialPort>(), *m_clock, [this] {
        return LineSettingsResult{m_settings, {}};
    });
}

bool TestDriverTerminal::write(SerialLine& line, const QByteArray& frame, int limitMs)
{
    bool answered = false;
    bool left = false;
    const WriteQueue::Id id = line.write(frame, limitMs, [&](bool ok, const QString&) {
        answered = true;
        left = ok;
    });
    const bool came = id != 0 && QTest::qWaitFor([&] { return answered; }, limitMs + 3000);
    line.forgetDone(id);
    return came && left;
}

void TestDriverTerminal::pointLinkTo(const PseudoTerminal& terminal) const
{
    QFile::remove(link());
    QVERIFY(QFile::link(terminal.path(), link()));
}

void TestDriverTerminal::writesBytesAsTheyAre()
{
    const QByteArray bytes = QByteArray::fromHex("000a0d03ff1113") + "ATS\r\n";
    QVERIFY(write(*m_line, bytes));
    QCOMPARE(m_terminal->received(), bytes);
}

void TestDriverTerminal::hearsBytesAsTheyAre()
{
    Listener listener;
    m_line->addListener(&listener);
    const QByteArray bytes = QByteArray::fromHex("000a0d03ff111304") + "RE:F:1\r\n";
    m_terminal->send(bytes);
    QTRY_COMPARE(listener.bytes, bytes);
}

void TestDriverTerminal::answersFalseWhenTheOtherEndTakesNothing()
{
    QVERIFY(!write(*m_line, QByteArray(1024 * 1024, 'x'), 200));
    QCOMPARE(m_line->state(), SerialLine::State::Open);
}

// Flow control is no pulled adapter.
void TestDriverTerminal::waitsForALineThatIsHeldUp()
{
    constexpr char c_hold[] = "\x13";
    constexpr char c_goOn[] = "\x11";
    m_settings.flowControl = QSerialPort::SoftwareControl;
    QVERIFY(write(*m_line, "first"));
    m_terminal->send(c_hold);
    QVERIFY(!write(*m_line, "held", 100));
    QCOMPARE(m_line->state(), SerialLine::State::Open);
    m_terminal->send(c_goOn);
    QVERIFY(write(*m_line, "next"));
    QCOMPARE(m_terminal->received(), QByteArray("firstnext"));
}

void TestDriverTerminal::answersEachOfSeveralFramesAskedAtOnce()
{
    QVector<bool> answers;
    for (const char* frame : {"ATH\r\n", "ATH\r\n", "DI:C\r\n"}) {
        m_line->write(frame, 1000, [&answers](bool ok, const QString&) { answers.append(ok); });
    }
    QTRY_COMPARE(answers, (QVector<bool>{true, true, true}));
}

void TestDriverTerminal::answersOnlyWhenTheLastByteHasLeft()
{
    const QByteArray frame(256 * 1024, 'x'); // more than a terminal takes at once
    QByteArray received;
    bool left = false;
    m_line->write(frame, 5000, [&](bool ok, const QString&) { left = ok; });
    QVERIFY(QTest::qWaitFor([&] {
        if (!left) {
            received += m_terminal->received();
        }
        return left;
    }));
    // From here on the event loop does not run: what comes has left before.
    received += m_terminal->received();
    QCOMPARE(received.size(), frame.size());
}

void TestDriverTerminal::sendsNothingMoreOfAFrameThatMissedItsLimit()
{
    QVERIFY(!write(*m_line, QByteArray(1024 * 1024, 'x'), 100));
    QByteArray received = m_terminal->received();
    QVERIFY(write(*m_line, "next"));
    received += m_terminal->received();
    QVERIFY(received.endsWith("next"));
    QVERIFY2(received.size() < 512 * 1024, qPrintable(QString::number(received.size())));
}

void TestDriverTerminal::costsNoProcessorTimeAfterAHangUp()
{
    Listener listener;
    m_line->addListener(&listener);
    QSignalSpy changes(m_line.get(), &SerialLine::changed);
    m_terminal->hangUp();
    QTRY_COMPARE(m_line->state(), SerialLine::State::Lost);
    QVERIFY2(m_line->error().contains(QStringLiteral("went away")), qPrintable(m_line->error()));
    changes.clear();
    const qint64 beforeMs = processorTimeMs();
    QTest::qWait(300);
    const qint64 usedMs = processorTimeMs() - beforeMs;
    QVERIFY2(usedMs < 100, qPrintable(QString::number(usedMs)));
    QVERIFY(changes.size() <= 1); // now it is missing
}

void TestDriverTerminal::comesBackUnderTheSameName()
{
    pointLinkTo(*m_terminal);
    m_settings.port = link();
    Listener listener;
    m_line->addListener(&listener);
    QCOMPARE(m_line->state(), SerialLine::State::Open);
    m_terminal->hangUp();
    QTRY_COMPARE(m_line->state(), SerialLine::State::Lost);

    const PseudoTerminal replugged;
    pointLinkTo(replugged);
    QTRY_COMPARE(m_line->state(), SerialLine::State::Open);
    QCOMPARE(m_line->error(), QString());
    replugged.send("OK\r\n");
    QTRY_COMPARE(listener.bytes, QByteArray("OK\r\n"));
}

void TestDriverTerminal::refusesAPortThatThisProgramHasOpen()
{
    QVERIFY(write(*m_line, "1"));
    const auto second = makeLine();
    QVERIFY(!write(*second, "2"));
    QVERIFY2(second->error().contains(m_terminal->path()), qPrintable(second->error()));
    QVERIFY2(second->error().contains(QStringLiteral("in use by another device of this program")),
             qPrintable(second->error()));
    QCOMPARE(m_terminal->received(), QByteArray("1"));
}

void TestDriverTerminal::refusesAPortByItsOtherName()
{
    QVERIFY(write(*m_line, "1"));
    pointLinkTo(*m_terminal);
    m_settings.port = link();
    const auto second = makeLine();
    QVERIFY(!write(*second, "2"));
    QVERIFY2(second->error().contains(link()), qPrintable(second->error()));
}

void TestDriverTerminal::locksThePortByItsRealName()
{
    pointLinkTo(*m_terminal);
    m_settings.port = link();
    QVERIFY(write(*m_line, "1"));
    QVERIFY2(QFile::exists(lockFile()), qPrintable(lockFile()));
}

namespace {

/// Another program that has the port open, alone, until it is killed. It runs nothing of Qt.
class Holder
{
public:
    explicit Holder(const QString& path)
    {
        int ready[2] = {};
        if (::pipe(ready) != 0) {
            return;
        }
        const QByteArray name = path.toLocal8Bit();
        m_process = ::fork();
        if (m_process == 0) {
            const int port = ::open(name.constData(), O_RDWR | O_NOCTTY);
            if (port >= 0 && ::flock(port, LOCK_EX) == 0 && ::ioctl(port, TIOCEXCL) == 0 &&
                ::write(ready[1], "", 1) == 1) {
                ::pause(); // until it is killed
            }
            ::_exit(1);
        }
        ::close(ready[1]); // so that reading ends when the child does
        char byte = 0;
        m_isHolding = ::read(ready[0], &byte, 1) == 1;
        ::close(ready[0]);
    }
    ~Holder() { kill(); }

    pid_t process() const { return m_process; }
    bool isHolding() const { return m_isHolding; }
    void kill()
    {
        if (m_process > 0) {
            ::kill(m_process, SIGKILL);
            ::waitpid(m_process, nullptr, 0);
            m_process = 0;
        }
    }

private:
    Q_DISABLE_COPY(Holder)

    pid_t m_process = 0;
    bool m_isHolding = false;
};

} // namespace

void TestDriverTerminal::namesTheProgramThatHoldsThePort()
{
    const Holder holder(m_terminal->path());
    QVERIFY(holder.isHolding());
    QVERIFY(!write(*m_line, "1"));
    const QString named = QStringLiteral("Another program holds the port %1: %2 tst_driver_term; ")
                              .arg(m_terminal->path(), QString::number(holder.process()));
    QVERIFY2(m_line->error().contains(named), qPrintable(m_line->error()));
}

QString TestDriverTerminal::lockFile() const
{
    return QStringLiteral("/var/lock/LCK..") + m_terminal->path().mid(5).replace(QLatin1Char('/'), QLatin1Char('_'));
}

/// The lock file of a process that is gone.
bool TestDriverTerminal::leaveStaleLock() const
{
    const pid_t gone = ::fork();
    if (gone == 0) {
        ::_exit(0);
    }
    ::waitpid(gone, nullptr, 0);
    QFile file(lockFile());
    return file.open(QIODevice::WriteOnly) &&
           file.write(QByteArray::number(gone) + "\ntst\n" + QSysInfo::machineHostName().toLocal8Bit() + '\n') > 0;
}

void TestDriverTerminal::opensAPortWhoseHolderWasKilled()
{
    QVERIFY(leaveStaleLock());
    QVERIFY2(write(*m_line, "1"), qPrintable(m_line->error()));
}

void TestDriverTerminal::namesAMissingPort()
{
    m_settings.port = m_folder->filePath(QStringLiteral("nothing"));
    QVERIFY(!write(*m_line, "1"));
    QVERIFY2(m_line->error().contains(m_settings.port + QStringLiteral(" does not exist")),
             qPrintable(m_line->error()));
}

void TestDriverTerminal::refusesAFileThatIsNoPort()
{
    QFile file(link());
    QVERIFY(file.open(QIODevice::WriteOnly));
    m_settings.port = link();
    QVERIFY(!write(*m_line, "1"));
    QVERIFY2(m_line->error().contains(QStringLiteral("is no serial port")), qPrintable(m_line->error()));
}

namespace {

/// What is said of the port to a process without the rights of root, which may open everything.
QString problemForAnOrdinaryUser(const QString& port)
{
    constexpr uid_t c_nobody = 65534;
    int answer[2] = {};
    if (::pipe(answer) != 0) {
        return {};
    }
    const pid_t child = ::fork();
    if (child == 0) {
        // Its group is one that no user has been given, least of all this one.
        const bool isOrdinary =
            ::getuid() != 0 || (::setgroups(0, nullptr) == 0 && ::setgid(c_nobody - 1) == 0 && ::setuid(c_nobody) == 0);
        const QByteArray text = isOrdinary ? port_problem::cannotOpen(port, QString()).toUtf8() : QByteArray();
        const bool isTold = ::write(answer[1], text.constData(), static_cast<size_t>(text.size())) == text.size();
        ::_exit(isTold ? 0 : 1);
    }
    ::close(answer[1]);
    QFile reader;
    if (!reader.open(answer[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        return {};
    }
    QString told = QString::fromUtf8(reader.readAll());
    ::waitpid(child, nullptr, 0);
    return told;
}

} // namespace

void TestDriverTerminal::saysWhatToDoWhenThePortIsNotPermitted_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<int>("rights");
    QTest::addColumn<QString>("mend");
    QTest::newRow("the usual group") << "dialout" << 0660 << "run \"sudo usermod -aG dialout $USER\" and log in again";
    QTest::newRow("another group") << "tty" << 0660 << "run \"sudo usermod -aG tty $USER\" and log in again";
    QTest::newRow("a group without rights") << "dialout" << 0600 << "run \"sudo chown $USER ";
    QTest::newRow("a group that may only read") << "dialout" << 0640 << "run \"sudo chown $USER ";
    QTest::newRow("the group of root") << "root" << 0660 << "run \"sudo chown $USER ";
    QTest::newRow("a group since the last log-in") << "nogroup" << 0660 << "log out and in again";
}

void TestDriverTerminal::saysWhatToDoWhenThePortIsNotPermitted()
{
    QFETCH(QString, group);
    QFETCH(int, rights);
    QFETCH(QString, mend);
    if (::getuid() != 0) {
        QSKIP("only root can give a port to another group and become a user without rights");
    }
    const QByteArray path = m_terminal->path().toLocal8Bit();
    const struct group* entry = ::getgrnam(group.toLocal8Bit().constData());
    QVERIFY(entry != nullptr);
    QCOMPARE(::chown(path.constData(), 0, entry->gr_gid), 0);
    QCOMPARE(::chmod(path.constData(), mode_t(rights)), 0);
    const QString told = problemForAnOrdinaryUser(m_terminal->path());
    QVERIFY2(told.startsWith(QStringLiteral("The port %1 may not be opened").arg(m_terminal->path())),
             qPrintable(told));
    QVERIFY2(told.contains(mend), qPrintable(told));
}

void TestDriverTerminal::saysHowToLearnWhoHoldsAPortWhenOnlyRootCanSee()
{
    if (::getuid() != 0) {
        QSKIP("only root can be another user than the one who holds the port");
    }
    QVERIFY(::chmod(m_terminal->path().toLocal8Bit().constData(), 0666) == 0);
    const Holder holder(m_terminal->path());
    QVERIFY(holder.isHolding());
    const QString told = problemForAnOrdinaryUser(m_terminal->path());
    QVERIFY2(told.contains(QStringLiteral("run \"sudo lsof %1\"").arg(m_terminal->path())), qPrintable(told));
}

void TestDriverTerminal::saysHowToRemoveAStaleLockOfAnotherUser()
{
    if (::getuid() != 0) {
        QSKIP("only root can leave a lock behind that this user may not remove");
    }
    QVERIFY(::chmod(m_terminal->path().toLocal8Bit().constData(), 0666) == 0);
    QVERIFY(leaveStaleLock());
    const QString told = problemForAnOrdinaryUser(m_terminal->path());
    QFile::remove(lockFile());
    QVERIFY2(told.contains(QStringLiteral("run \"sudo rm %1\"").arg(lockFile())), qPrintable(told));
}

void TestDriverTerminal::refusesSettingsThatThePortDoesNotHave()
{
    m_settings.parity = QSerialPort::EvenParity; // no pseudo-terminal has it
    QVERIFY(!write(*m_line, "1"));
    QVERIFY2(m_line->error().contains(m_terminal->path()), qPrintable(m_line->error()));
    QVERIFY2(m_line->error().contains(QStringLiteral("\"parity\"")), qPrintable(m_line->error()));
}

void TestDriverTerminal::opensAgainForAWriteAfterClosing()
{
    QVERIFY(write(*m_line, "1"));
    m_line->closeConnection();
    QCOMPARE(m_line->state(), SerialLine::State::Closed);
    QVERIFY(write(*m_line, "2"));
    QCOMPARE(m_terminal->received(), QByteArray("12"));
}

void TestDriverTerminal::mayBeClosedByAListener()
{
    Listener listener;
    listener.onChunk = [this] { m_line->closeConnection(); };
    m_line->addListener(&listener);
    m_terminal->send("1");
    QTRY_COMPARE(m_line->state(), SerialLine::State::Closed);
}

void TestDriverTerminal::mayBeDestroyedByAListener()
{
    Listener listener;
    listener.onChunk = [this] { m_line.reset(); };
    m_line->addListener(&listener);
    m_terminal->send("1");
    QTRY_VERIFY(m_line == nullptr);
    QTest::qWait(1);                               // what is deleted later is deleted now
    QVERIFY(makeLine()->write("2", 500, {}) != 0); // the port is free
}

QTEST_GUILESS_MAIN(TestDriverTerminal)
#include "tst_driver_terminal.moc"
