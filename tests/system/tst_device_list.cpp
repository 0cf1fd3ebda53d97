#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMap>
#include <QSet>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include "device_bench.h"
#include "gui/device_list.h"
#include "processes.h"
#include "services/device_settings.h"
#include "simulator_run.h"

using State = DeviceModel::State;

namespace {

constexpr int c_devices = 16;

/// A line of the process's own status, in kB.
qint64 statusOf(const char* name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        const QByteArrayList lines = status.readAll().split('\n');
        for (const QByteArray& line : lines) {
            if (line.startsWith(name)) {
                return line.mid(int(qstrlen(name))).simplified().split(' ').value(0).toLongLong();
            }
        }
    }
    return -1;
}

qint64 memoryKb()
{
    return statusOf("VmRSS:");
}

} // namespace

/// Several devices in one process.
class TestDeviceList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void isAListOfDevices();
    void endsWithoutADevice();
    void keepsSixteenApart();
    void endsAllWhateverTheyDo();
    void playsAScenarioOnEach();

private:
    QList<Settings> settingsOf(const QStringList& names) const;
    bool waitForEnd(DeviceList& list) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestDeviceList::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

QList<Settings> TestDeviceList::settingsOf(const QStringList& names) const
{
    Settings common = DeviceBench::settingsFor({}, m_folder->path());
    QList<Settings> devices;
    const std::optional<Problem> problem = readDevices(names, common, &devices);
    return problem ? QList<Settings>() : devices;
}

bool TestDeviceList::waitForEnd(DeviceList& list) const
{
    bool haveEnded = false;
    const auto connection = connect(&list, &DeviceList::sigAllEnded, this, [&] { haveEnded = true; });
    list.endAll();
    const bool isInTime = waitUntil([&] { return haveEnded; });
    disconnect(connection);
    return isInTime;
}

void TestDeviceList::isAListOfDevices()
{
    DeviceList list(settingsOf({QStringLiteral("/dev/none1"), QStringLiteral("/dev/none2,4711")}));
    const QAbstractItemModelTester tester(&list, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(list.rowCount(), 2);
    QCOMPARE(list.roleNames().value(DeviceList::DeviceRole), QByteArray("device"));
    QCOMPARE(list.data(list.index(1), DeviceList::DeviceRole).value<DeviceModel*>(), list.at(1));
    QCOMPARE(list.at(1)->serialId(), QStringLiteral("4711"));
    QCOMPARE(list.at(2), nullptr);
    QCOMPARE(list.at(-1), nullptr);
}

void TestDeviceList::endsWithoutADevice()
{
    DeviceList list({});
    QVERIFY(waitForEnd(list));
}

void TestDeviceList::keepsSixteenApart()
{
    QStringList names;
    for (int i = 0; i < c_devices; ++i) {
        names.append(QStringLiteral("simulated"));
    }
    const qint64 pid = QCoreApplication::applicationPid();
    const qint64 before = memoryKb();
    auto list = std::make_unique<DeviceList>(settingsOf(names));
    const qint64 atRest = memoryKb();
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < c_devices; ++i) {
        list->at(i)->work(list->at(i)->serialId());
    }
    const auto all = [&](const std::function<bool(const DeviceModel&)>& holds) {
        for (int i = 0; i < c_devices; ++i) {
            if (!holds(*list->at(i))) {
                return false;
            }
        }
        return true;
    };
    const auto problems = [&] {
        QStringList told;
        for (int i = 0; i < c_devices; ++i) {
            told.append(QStringLiteral("%1 %2: %3 %4")
                            .arg(i)
                            .arg(list->at(i)->stateText(), list->at(i)->problemWhat(), list->at(i)->problemCause()));
        }
        return told.join(QLatin1Char('\n')).toUtf8();
    };
    QVERIFY2(waitUntil([&] { return all([](const DeviceModel& each) { return each.state() == State::Working; }); }),
             problems());
    const qint64 startedMs = timer.elapsed();
    constexpr int c_results = 3;
    const qint64 processorMs = processes::processorMsOf(pid);
    timer.restart();
    QVERIFY2(waitUntil([&] {
                 return all([](const DeviceModel& each) { return each.good() + each.notGood() >= c_results; });
             }),
             problems());
    const qint64 workedMs = timer.elapsed();
    const qint64 takenMs = processes::processorMsOf(pid) - processorMs;
    const qint64 working = memoryKb();
    qInfo(
        "%d devices: listening after %lld ms; %lld kB at rest, %lld kB working (before: %lld kB); %lld ms of processor "
        "time in %lld ms with two results a second each",
        c_devices, startedMs, atRest, working, before, takenMs, workedMs);

    // An order to one of them is nothing to the others.
    list->at(4)->selectProgram(3);
    QVERIFY(waitUntil([&] { return list->at(4)->program() == 3; }));
    QCOMPARE(list->at(5)->program(), 0);
    list->at(5)->setLock(true);
    QVERIFY(waitUntil([&] { return list->at(5)->isLocked(); }));
    QVERIFY(!list->at(4)->isLocked());

    QVERIFY2(waitForEnd(*list), problems());
    QMap<QString, int> shown;
    for (int i = 0; i < c_devices; ++i) {
        shown.insert(list->at(i)->serialId(), list->at(i)->good() + list->at(i)->notGood());
        QVERIFY2(!list->at(i)->hasProblem(), problems());
    }
    QCOMPARE(shown.size(), c_devices);
    list.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(processes::childrenOf(pid), QList<qint64>());

    HistoryStore store(m_folder->path());
    QVERIFY(!store.openToRead());
    QMap<QString, int> stored;
    QSqlQuery query = store.database().prepared(
        QStringLiteral("SELECT serial_id, count(*) FROM entries WHERE kind = 0 GROUP BY serial_id"));
    QVERIFY(query.exec());
    while (query.next()) {
        stored.insert(query.value(0).toString(), query.value(1).toInt());
    }
    QCOMPARE(stored, shown);
    QCOMPARE(store.database().value(QStringLiteral("SELECT count(*) FROM entries WHERE kind <> 0")).toInt(), 0);
    for (int i = 1; i <= c_devices; ++i) {
        const QString trace = i == 1 ? QStringLiteral("trace") : QStringLiteral("trace.%1").arg(i);
        QCOMPARE(LineTrace::fromFile(m_folder->filePath(trace)).sent().constLast(), QStringLiteral("ATH"));
    }
}

void TestDeviceList::endsAllWhateverTheyDo()
{
    SimulatorRun restoring;
    SimulatorRun ordering;
    SimulatorRun scanning;
    SimulatorRun starting;
    QVERIFY(restoring.start() && ordering.start() && scanning.start());
    QVERIFY(starting.start({QStringLiteral("--fault"), QStringLiteral("silence@1")}));
    DeviceList list(
        settingsOf({restoring.port(), ordering.port(), scanning.port(), starting.port(), QStringLiteral("/dev/none"),
                    QStringLiteral("simulated"), QStringLiteral("/dev/none2")}));
    const QString serial = QStringLiteral("2210");
    list.at(0)->work(serial);
    list.at(1)->work(serial);
    list.at(2)->scan();
    list.at(3)->work(serial);
    list.at(4)->work(serial);
    QVERIFY(waitUntil([&] {
        return list.at(0)->state() == State::Working && list.at(1)->state() == State::Working &&
               list.at(2)->wrenches().size() == 1 && list.at(4)->hasProblem();
    }));
    restoring.say(QStringLiteral("unplug"));
    ordering.say(QStringLiteral("fault silence"));
    QVERIFY(waitUntil([&] { return list.at(0)->state() == State::Restoring; }));
    list.at(1)->selectProgram(2);
    QVERIFY(!list.at(1)->busyText().isEmpty());
    QCOMPARE(list.at(2)->state(), State::Scanning);
    QCOMPARE(list.at(3)->state(), State::Starting);
    list.at(5)->work(serial); // its simulator is being started
    QVERIFY(waitForEnd(list));
    for (int i = 0; i < list.count(); ++i) {
        QCOMPARE(list.at(i)->state(), State::Idle);
    }
    for (const SimulatorRun* simulator : {&ordering, &scanning, &starting}) {
        QVERIFY(HeldPort::isFree(simulator->port()));
    }
    for (const char* trace : {"trace.2", "trace.3", "trace.4"}) {
        QCOMPARE(LineTrace::fromFile(m_folder->filePath(QLatin1String(trace))).lastEntry(), QStringLiteral("! closed"));
        QCOMPARE(LineTrace::fromFile(m_folder->filePath(QLatin1String(trace))).sent().constLast(),
                 QStringLiteral("ATH"));
    }
}

void TestDeviceList::playsAScenarioOnEach()
{
    QFile scenario(m_folder->filePath(QStringLiteral("bench.json")));
    QVERIFY(scenario.open(QIODevice::WriteOnly));
    scenario.write(R"({"wrenches": [{"serial": "31"}, {"serial": "32"}]})");
    scenario.close();
    const QString name = QStringLiteral("simulated:") + scenario.fileName();
    DeviceList list(settingsOf({name + QStringLiteral(",31"), name}));
    QCOMPARE(list.at(0)->serialId(), QStringLiteral("31"));
    QCOMPARE(list.at(1)->serialId(), QString());
    list.at(0)->work(list.at(0)->serialId());
    list.at(1)->scan();
    QVERIFY2(waitUntil([&] { return list.at(0)->state() == State::Working; }), qPrintable(list.at(0)->problemCause()));
    QVERIFY2(waitUntil([&] { return list.at(1)->wrenches().size() == 2; }), qPrintable(list.at(1)->problemCause()));
    const QString first = list.at(0)->workplace()->portInUse();
    QVERIFY(first != list.at(1)->workplace()->portInUse());
    list.at(1)->stop();
    QVERIFY(waitUntil([&] { return list.at(1)->state() == State::Idle; }));
    const QString second = list.at(1)->workplace()->portInUse();
    list.at(1)->work(QStringLiteral("32"));
    QVERIFY(waitUntil([&] { return list.at(1)->state() == State::Working; }));
    QCOMPARE(list.at(1)->workplace()->portInUse(), second); // on the same bench
    QVERIFY(waitForEnd(list));
}

QTEST_GUILESS_MAIN(TestDeviceList)

#include "tst_device_list.moc"
