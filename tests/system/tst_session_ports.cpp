#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <unistd.h>

#include "processes.h"
#include "simulator_run.h"
#include "workplace_run.h"

namespace {

constexpr int c_nobody = 65534;
constexpr int c_setUpProblem = 3;

QStringList sessionArguments()
{
    return {QStringLiteral("session"), QStringLiteral("--json"), QStringLiteral("--serial-id"), QStringLiteral("2210")};
}

QString reasonOf(const WorkplaceRun& session)
{
    return session.event(QStringLiteral("error")).value(QLatin1String("reason")).toString();
}

/// Takes the rights of everybody from the port, and gives them back.
class ForbiddenPort
{
public:
    explicit ForbiddenPort(const QString& path) : m_path(path), m_permissions(QFile::permissions(path))
    {
        QFile::setPermissions(m_path, {});
    }
    ~ForbiddenPort() { QFile::setPermissions(m_path, m_permissions); }

private:
    Q_DISABLE_COPY(ForbiddenPort)

    const QString m_path;
    const QFile::Permissions m_permissions;
};

} // namespace

class TestSessionPorts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusesWhatIsNoPort_data();
    void refusesWhatIsNoPort();
    void refusesAPortThatMayNotBeOpened();
    void refusesAPortThatAnotherProgramHolds();
    void refusesThePortOfAnotherWorkplaceAndLeavesThatInPeace();
    void opensAPortAgainThatSomebodyHeldBefore();
    void tellsPeopleWhatIsWrongWithThePort();
    void refusesABusyPortForEachCommand_data();
    void refusesABusyPortForEachCommand();
};

void TestSessionPorts::refusesWhatIsNoPort_data()
{
    QTest::addColumn<QString>("port");
    QTest::addColumn<QString>("cause");
    QTest::newRow("missing") << QStringLiteral("/dev/no-such-port") << QStringLiteral("does not exist");
    QTest::newRow("missing folder") << QStringLiteral("/no/such/port") << QStringLiteral("does not exist");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("no terminal") << QStringLiteral("/dev/null") << QStringLiteral("is no serial port");
    QTest::newRow("plain file") << QStringLiteral(TRACES "/typical_run.txt") << QStringLiteral("is no serial port");
    QTest::newRow("folder") << QStringLiteral(TRACES) << QStringLiteral("is no serial port");
}

void TestSessionPorts::refusesWhatIsNoPort()
{
    QFETCH(QString, port);
    QFETCH(QString, cause);
    WorkplaceRun session;
    QVERIFY(session.startOn(port, sessionArguments()));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), c_setUpProblem);
    QVERIFY2(reasonOf(session).contains(port) && reasonOf(session).contains(cause), session.report());
    QCOMPARE(session.event(QStringLiteral("error")).value(QLatin1String("step")).toString(), QStringLiteral("open"));
    QCOMPARE(session.trace().sent(), QStringList());
}

void TestSessionPorts::refusesAPortThatMayNotBeOpened()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(), simulator.report());
    const ForbiddenPort forbidden(QFile::symLinkTarget(simulator.port()));
    // Nothing is forbidden to root.
    const bool isRoot = ::geteuid() == 0;
    QStringList arguments{QStringLiteral(APP_WORKPLACE)};
    arguments += sessionArguments();
    const QTemporaryDir store; // for whoever it is
    QVERIFY(QFile::setPermissions(store.path(), QFile::Permissions(0x7777)));
    arguments << QStringLiteral("--port") << QFile::symLinkTarget(simulator.port()) << QStringLiteral("--data")
              << store.path();
    if (isRoot) {
        const QString nobody = QString::number(c_nobody);
        const QStringList asNobody{
            QStringLiteral("setpriv"),       QStringLiteral("--reuid"), nobody, QStringLiteral("--regid"), nobody,
            QStringLiteral("--clear-groups")};
        ProgramRun probe;
        QVERIFY(probe.start(QStringLiteral("env"), asNobody + QStringList{QStringLiteral("test"), QStringLiteral("-x"),
                                                                          QStringLiteral(APP_WORKPLACE)}));
        QVERIFY(probe.waitForEnd());
        if (probe.exitStatus() != 0) {
            QSKIP("an ordinary user may not run the built program in this folder, and root may open every port");
        }
        arguments = asNobody + arguments;
    }
    ProgramRun session;
    QVERIFY(session.start(QStringLiteral("env"), arguments));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), c_setUpProblem);
    QVERIFY2(session.messages().contains(QLatin1String("may not be opened by this user, nor by a group ")),
             session.report());
}

void TestSessionPorts::refusesAPortThatAnotherProgramHolds()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(), simulator.report());
    const HeldPort held(simulator.port());
    QVERIFY(held.isHeld());
    WorkplaceRun session;
    QVERIFY(session.startOn(simulator.port(), sessionArguments()));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), c_setUpProblem);
    QVERIFY2(reasonOf(session).contains(simulator.port()), session.report());
    QVERIFY2(reasonOf(session).contains(QLatin1String("nother program holds the port ")), session.report());
    QVERIFY2(reasonOf(session).contains(QLatin1String("close that program or choose another port")), session.report());
}

void TestSessionPorts::refusesThePortOfAnotherWorkplaceAndLeavesThatInPeace()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start({QStringLiteral("--rate"), QStringLiteral("5")}), simulator.report());
    WorkplaceRun first;
    QVERIFY(first.startSession(simulator));
    QVERIFY2(first.waitForEvents(QStringLiteral("result")), first.report());

    WorkplaceRun second;
    QVERIFY(second.startSession(simulator));
    QVERIFY2(second.waitForEnd(), second.report());
    QCOMPARE(second.exitStatus(), c_setUpProblem);
    QVERIFY2(reasonOf(second).contains(QStringLiteral(": %1 app_workplace;").arg(first.pid())), second.report());

    const int results = first.events(QStringLiteral("result")).size();
    QVERIFY2(first.waitForEvents(QStringLiteral("result"), results + 2), first.report());
    first.sendSignal(SIGINT);
    QVERIFY2(first.waitForEnd(), first.report());
    QCOMPARE(first.exitStatus(), 0);
    QCOMPARE(first.events(QStringLiteral("link")).size(), 1);
    QCOMPARE(disorderAfter(first, simulator), QString());
}

void TestSessionPorts::opensAPortAgainThatSomebodyHeldBefore()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start({QStringLiteral("--rate"), QStringLiteral("5")}), simulator.report());
    {
        const HeldPort held(simulator.port());
        QVERIFY(held.isHeld());
    }
    WorkplaceRun session;
    QVERIFY(session.startSession(simulator, {QStringLiteral("--count"), QStringLiteral("1")}));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
}

void TestSessionPorts::tellsPeopleWhatIsWrongWithThePort()
{
    WorkplaceRun session;
    QVERIFY(session.startOn(QStringLiteral("/dev/no-such-port"),
                            {QStringLiteral("session"), QStringLiteral("--serial-id"), QStringLiteral("2210")}));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), c_setUpProblem);
    for (const char* said : {"open: the line could not be opened\n", "The port /dev/no-such-port does not exist"}) {
        QVERIFY2(session.messages().contains(QLatin1String(said)), session.report());
    }
}

void TestSessionPorts::refusesABusyPortForEachCommand_data()
{
    QTest::addColumn<QStringList>("command");
    QTest::newRow("scan") << QStringList{QStringLiteral("scan")};
    QTest::newRow("run, waiting for the line") << QStringList{QStringLiteral("run"), QStringLiteral("sendInitConfig"),
                                                              QStringLiteral("--limit"), QStringLiteral("2")};
    QTest::newRow("run, listening") << QStringList{QStringLiteral("run"), QStringLiteral("listenEventsData"),
                                                   QStringLiteral("--limit"), QStringLiteral("2")};
    QTest::newRow("run, only writing") << QStringList{QStringLiteral("run"), QStringLiteral("setLock"),
                                                      QStringLiteral("lock=true")};
}

void TestSessionPorts::refusesABusyPortForEachCommand()
{
    QFETCH(QStringList, command);
    SimulatorRun simulator;
    QVERIFY2(simulator.start(), simulator.report());
    const HeldPort held(simulator.port());
    QVERIFY(held.isHeld());
    WorkplaceRun run;
    QVERIFY(run.startOn(simulator.port(), command));
    QVERIFY2(run.waitForEnd(), run.report());
    QVERIFY2(run.messages().contains(QLatin1String("nother program holds the port ")), run.report());
    QCOMPARE(run.exitStatus(), c_setUpProblem);
}

QTEST_GUILESS_MAIN(TestSessionPorts)

#include "tst_session_ports.moc"
