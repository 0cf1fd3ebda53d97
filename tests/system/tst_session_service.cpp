#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonObject>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "simulator_run.h"
#include "workplace_run.h"

namespace {

constexpr int c_watchdogMs = 400;
const QString c_unlocking = QStringLiteral("DT:0"); // the last step before a session listens
const QString c_torque = QStringLiteral("convertedTorque");

/// The service manager's end: a socket that hears what a service tells.
class Manager
{
public:
    Manager()
    {
        const QByteArray path = QFile::encodeName(m_folder.filePath(QStringLiteral("notify")));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.constData(), sizeof(address.sun_path) - 1);
        m_socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        m_isOpen = ::bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
        qputenv("NOTIFY_SOCKET", path);
        qputenv("WATCHDOG_USEC", QByteArray::number(c_watchdogMs * 1000));
    }
    ~Manager()
    {
        qunsetenv("NOTIFY_SOCKET");
        qunsetenv("WATCHDOG_USEC");
        ::close(m_socket);
    }
    Q_DISABLE_COPY(Manager)

    bool isOpen() const { return m_isOpen; }
    /// All that was told until now.
    const QList<QByteArray>& told()
    {
        char buffer[4096];
        for (;;) {
            const ssize_t size = ::recv(m_socket, buffer, sizeof(buffer), 0);
            if (size < 0) {
                return m_told;
            }
            m_told.append(QByteArray(buffer, int(size)));
        }
    }
    int count(const char* state) { return int(told().count(state)); }
    bool waitFor(const char* state, int count_ = 1)
    {
        return waitUntil([&] { return count(state) >= count_; });
    }
    bool waitForStatus(const char* text)
    {
        return waitUntil([&] { return status().contains(text); });
    }
    QByteArray status()
    {
        QByteArray all;
        for (const QByteArray& each : told()) {
            all += each.startsWith("STATUS=") ? each + '\n' : QByteArray();
        }
        return all;
    }
    void forget()
    {
        told();
        m_told.clear();
    }

private:
    QTemporaryDir m_folder;
    int m_socket = -1;
    bool m_isOpen = false;
    QList<QByteArray> m_told;
};

QStringList rate(const char* perSecond)
{
    return {QStringLiteral("--rate"), QLatin1String(perSecond)};
}

QByteArray contents(const QString& file)
{
    QFile input(file);
    return input.open(QIODevice::ReadOnly) ? input.readAll() : QByteArray();
}

} // namespace

class TestSessionService : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isReadyOnceItListens();
    void isNotReadyBeforeItListens();
    void isNeverReadyWithoutAWrench();
    void tellsWhatItDoes();
    void feedsTheWatchdog();
    void starvesTheWatchdogWhileItHangs();
    void tellsThatItStops();
    void keepsEverythingAcrossARestart();
};

void TestSessionService::isReadyOnceItListens()
{
    Manager manager;
    QVERIFY(manager.isOpen());
    SimulatorRun simulator;
    QVERIFY(simulator.start({}));
    WorkplaceRun session;
    QVERIFY(session.startSession(simulator));
    QVERIFY2(manager.waitFor("READY=1"), session.report());
    QVERIFY2(session.trace().sent().contains(c_unlocking), "unlocked, the last step before it listens");
    QCOMPARE(manager.count("READY=1"), 1);
}

void TestSessionService::isNotReadyBeforeItListens()
{
    Manager manager;
    SimulatorRun simulator;
    QVERIFY(simulator.start({QStringLiteral("--fault"), QStringLiteral("silence@14")})); // the unlocking
    WorkplaceRun session;
    QVERIFY(session.startSession(simulator));
    QVERIFY2(waitUntil([&] { return session.trace().sent().contains(c_unlocking); }), session.report());
    session.sendSignal(SIGINT);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.trace().sent().indexOf(c_unlocking), 13);
    QCOMPARE(manager.count("READY=1"), 0);
    QVERIFY2(manager.status().contains("STATUS=unlock"), manager.status().constData());
}

void TestSessionService::isNeverReadyWithoutAWrench()
{
    Manager manager;
    SimulatorRun simulator;
    QVERIFY(simulator.start({}));
    WorkplaceRun session;
    QVERIFY(session.startSession(simulator, {QStringLiteral("--serial-id"), QStringLiteral("9"),
                                             QStringLiteral("--limit"), QStringLiteral("1")}));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 1);
    QCOMPARE(manager.count("READY=1"), 0);
    QCOMPARE(manager.count("STOPPING=1"), 1);
    QVERIFY2(manager.status().contains("the wrench could not be connected"), manager.status().constData());
}

void TestSessionService::tellsWhatItDoes()
{
    Manager manager;
    SimulatorRun simulator;
    QVERIFY(simulator.start(rate("5")));
    WorkplaceRun session;
    QVERIFY(session.startSession(simulator));
    QVERIFY2(manager.waitForStatus("STATUS=connect"), session.report());
    QVERIFY2(manager.waitForStatus("results so far: 2"), session.report());
}

void TestSessionService::feedsTheWatchdog()
{
    Manager manager;
    SimulatorRun simulator;
    QVERIFY(simulator.start({}));
    WorkplaceRun session;
    QVERIFY(session.startSession(simulator));
    QVERIFY(manager.waitFor("READY=1"));
    manager.forget();
    QElapsedTimer elapsed;
    elapsed.start();
    QVERIFY2(manager.waitFor("WATCHDOG=1", 10), session.report());
    QVERIFY2(elapsed.elapsed() >= 10 * c_watchdogMs / 2 - c_watchdogMs, "half the interval, no oftener");
}

void TestSessionService::starvesTheWatchdogWhileItHangs()
{
    Manager manager;
    SimulatorRun simulator;
    QVERIFY(simulator.start({}));
    WorkplaceRun session;
    QVERIFY(session.startSession(simulator));
    QVERIFY(manager.waitFor("WATCHDOG=1", 3));
    session.sendSignal(SIGSTOP);
    QVERIFY(waitUntil([&] { // it has stopped, and what it had told before is read
        manager.forget();
        const QByteArray state = contents(QStringLiteral("/proc/%1/stat").arg(session.pid()));
        return state.contains(") T ");
    }));
    manager.forget();
    QVERIFY2(!waitUntil([&] { return !manager.told().isEmpty(); }, 3 * c_watchdogMs), "nobody is there to tell");
    session.sendSignal(SIGCONT);
    QVERIFY2(manager.waitFor("WATCHDOG=1"), session.report());
}

void TestSessionService::tellsThatItStops()
{
    Manager manager;
    SimulatorRun simulator;
    QVERIFY(simulator.start({}));
    WorkplaceRun session;
    QVERIFY(session.startSession(simulator));
    QVERIFY(manager.waitFor("READY=1"));
    session.sendSignal(SIGTERM);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
    const int stopping = manager.told().indexOf("STOPPING=1");
    QVERIFY(stopping >= 0);
    QVERIFY2(manager.told().indexOf("WATCHDOG=1", stopping) < 0, "what is ending has no claim to live on");
}

void TestSessionService::keepsEverythingAcrossARestart()
{
    Manager manager;
    const QTemporaryDir folder;
    SimulatorRun simulator;
    QVERIFY(simulator.start(rate("10")));
    QStringList told;
    QByteArray stored;
    for (int start = 1; start <= 2; ++start) {
        WorkplaceRun session;
        session.keepStoreIn(folder.path());
        QVERIFY(session.startSession(simulator, {QStringLiteral("--program"), QStringLiteral("2")}));
        QVERIFY2(session.waitForEvents(QStringLiteral("result"), 3), session.report());
        session.sendSignal(SIGTERM);
        QVERIFY2(session.waitForEnd(), session.report());
        QCOMPARE(session.exitStatus(), 0);
        const QList<QJsonObject> results = session.events(QStringLiteral("result"));
        for (const QJsonObject& result : results) {
            told.append(result.value(QLatin1String("eventData")).toObject().value(c_torque).toString());
        }
        const QByteArray device = contents(folder.filePath(QStringLiteral("devices/2210.json")));
        QVERIFY(!device.isEmpty());
        QVERIFY(start == 1 || device == stored);
        stored = device;
    }
    WorkplaceRun results;
    results.keepStoreIn(folder.path());
    QVERIFY(results.start({QStringLiteral("results"), QStringLiteral("--json")}));
    QVERIFY2(results.waitForEnd(), results.report());
    QStringList kept;
    const QList<QJsonObject> records = results.events(QStringLiteral("stored"));
    for (const QJsonObject& record : records) {
        const QJsonObject entry = record.value(QLatin1String("entry")).toObject();
        if (entry.value(QLatin1String("kind")).toString() == QLatin1String("result")) { // between the two: a gap
            kept.append(entry.value(QLatin1String("eventData")).toObject().value(c_torque).toString());
        }
    }
    std::sort(kept.begin(), kept.end());
    std::sort(told.begin(), told.end());
    QCOMPARE(kept, told);
}

QTEST_GUILESS_MAIN(TestSessionService)

#include "tst_session_service.moc"
