#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include "processes.h"
#include "workplace_run.h"

namespace {

constexpr int c_setUpProblem = 3;

/// The workplace in a folder of its own, with another program where it looks for its simulator.
class WorkplaceFolder
{
public:
    /// script: a shell's, of the program beside it; empty: there is none.
    bool make(const QByteArray& script) const
    {
        if (!QFile::copy(QStringLiteral(APP_WORKPLACE), program())) {
            return false;
        }
        if (script.isEmpty()) {
            return true;
        }
        QFile simulator(m_folder.filePath(QStringLiteral("wrench_simulator")));
        return simulator.open(QIODevice::WriteOnly) && simulator.write("#!/bin/sh\n" + script) > 0 &&
               simulator.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    bool startSession(ProgramRun& run) const
    {
        return run.start(program(), {QStringLiteral("session"), QStringLiteral("--plugins"), QStringLiteral(PLUGINS),
                                     QStringLiteral("--data"), m_folder.path()});
    }

private:
    QString program() const { return m_folder.filePath(QStringLiteral("app_workplace")); }

    const QTemporaryDir m_folder;
};

} // namespace

class TestSimulatorStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void failsWithoutASimulator();
    void failsWhenTheSimulatorEndsAtOnce();
    void failsWhenTheSimulatorIsNeverReady();
    void canBeInterruptedBeforeTheSimulatorIsReady_data();
    void canBeInterruptedBeforeTheSimulatorIsReady();
};

void TestSimulatorStart::failsWithoutASimulator()
{
    const WorkplaceFolder folder;
    ProgramRun run;
    QVERIFY(folder.make({}));
    QVERIFY(folder.startSession(run));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), c_setUpProblem);
    QVERIFY2(run.messages().contains(QLatin1String("wrench_simulator does not start")), run.report());
}

void TestSimulatorStart::failsWhenTheSimulatorEndsAtOnce()
{
    const WorkplaceFolder folder;
    ProgramRun run;
    QVERIFY(folder.make("echo no terminal is left >&2\nexit 3\n"));
    QVERIFY(folder.startSession(run));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), c_setUpProblem);
    QVERIFY2(run.messages().contains(QLatin1String("no terminal is left")), run.report());
}

void TestSimulatorStart::failsWhenTheSimulatorIsNeverReady()
{
    const WorkplaceFolder folder;
    ProgramRun run;
    QVERIFY(folder.make("exec sleep 600\n"));
    QVERIFY(folder.startSession(run));
    QTRY_VERIFY_WITH_TIMEOUT(!processes::childrenOf(run.pid()).isEmpty(), c_patienceMs);
    const qint64 simulator = processes::childrenOf(run.pid()).constFirst();
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), c_setUpProblem);
    QVERIFY2(run.messages().contains(QLatin1String("has not said within 10 s that it is ready")), run.report());
    QVERIFY(!processes::isRunning(simulator));
}

void TestSimulatorStart::canBeInterruptedBeforeTheSimulatorIsReady_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
}

void TestSimulatorStart::canBeInterruptedBeforeTheSimulatorIsReady()
{
    QFETCH(int, signal);
    const WorkplaceFolder folder;
    ProgramRun run;
    QVERIFY(folder.make("exec sleep 600\n"));
    QVERIFY(folder.startSession(run));
    QTRY_VERIFY_WITH_TIMEOUT(!processes::childrenOf(run.pid()).isEmpty(), c_patienceMs);
    const qint64 simulator = processes::childrenOf(run.pid()).constFirst();
    run.sendSignal(signal);
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 1);
    QVERIFY(!processes::isRunning(simulator));
}

QTEST_GUILESS_MAIN(TestSimulatorStart)

#include "tst_simulator_start.moc"
