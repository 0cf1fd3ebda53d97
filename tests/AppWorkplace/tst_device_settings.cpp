#include <QStringList>
#include <QTest>

#include "services/device_settings.h"

namespace {

QList<Settings> read(const QStringList& names, const Settings& common = {})
{
    QList<Settings> devices;
    const std::optional<Problem> problem = readDevices(names, common, &devices);
    return problem ? QList<Settings>() : devices;
}

} // namespace

/// The devices that a window is named.
class TestDeviceSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isTheOneOfTheSettingsWithoutNames();
    void readsEachName_data();
    void readsEachName();
    void givesEachTheCommonSettings();
    void givesEachAFileForItsTrace();
    void givesEachSimulatedLineAWrench();
    void refuses_data();
    void refuses();
};

void TestDeviceSettings::isTheOneOfTheSettingsWithoutNames()
{
    Settings common;
    common.port = QStringLiteral("/dev/x");
    common.serialId = QStringLiteral("7");
    const QList<Settings> devices = read({}, common);
    QCOMPARE(devices.size(), 1);
    QCOMPARE(devices.first().port, QStringLiteral("/dev/x"));
    QCOMPARE(devices.first().serialId, QStringLiteral("7"));
}

void TestDeviceSettings::readsEachName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("port");
    QTest::addColumn<QString>("wrench");
    QTest::newRow("port") << "/dev/x"
                          << "/dev/x"
                          << "";
    QTest::newRow("port and number") << "/dev/x,2210"
                                     << "/dev/x"
                                     << "2210";
    QTest::newRow("number with letters") << "/dev/x,A-7"
                                         << "/dev/x"
                                         << "A-7";
    QTest::newRow("comma in the port") << "/dev/a,b,2210"
                                       << "/dev/a,b"
                                       << "2210";
    QTest::newRow("nothing behind the comma") << "/dev/x,"
                                              << "/dev/x"
                                              << "";
    QTest::newRow("simulated with a number") << "simulated,4711"
                                             << "simulated"
                                             << "4711";
    QTest::newRow("scenario") << "simulated:bench.json"
                              << "simulated:bench.json"
                              << "";
    QTest::newRow("scenario with a number") << "simulated:bench.json,31"
                                            << "simulated:bench.json"
                                            << "31";
}

void TestDeviceSettings::readsEachName()
{
    QFETCH(QString, name);
    Settings common;
    common.serialId = QStringLiteral("99"); // is that of another one
    const QList<Settings> devices = read({name}, common);
    QCOMPARE(devices.size(), 1);
    QTEST(devices.first().port, "port");
    QTEST(devices.first().wrench(), "wrench");
}

void TestDeviceSettings::givesEachTheCommonSettings()
{
    Settings common;
    common.dataFolder = QStringLiteral("/data");
    common.driver.insert(QStringLiteral("baudRate"), 9600);
    const QList<Settings> devices = read({QStringLiteral("/dev/x"), QStringLiteral("/dev/y")}, common);
    QCOMPARE(devices.size(), 2);
    for (const Settings& device : devices) {
        QCOMPARE(device.dataFolder, common.dataFolder);
        QCOMPARE(device.driver, common.driver);
    }
    QCOMPARE(devices.at(1).deviceNumber, 2);
}

void TestDeviceSettings::givesEachAFileForItsTrace()
{
    Settings common;
    common.traceFile = QStringLiteral("t");
    QList<Settings> devices = read({QStringLiteral("/dev/x"), QStringLiteral("/dev/y")}, common);
    QCOMPARE(devices.at(0).traceFile, QStringLiteral("t"));
    QCOMPARE(devices.at(1).traceFile, QStringLiteral("t.2"));
    common.traceFile = QStringLiteral("-");
    devices = read({QStringLiteral("/dev/x"), QStringLiteral("/dev/y")}, common);
    QCOMPARE(devices.at(1).traceFile, QStringLiteral("-"));
}

void TestDeviceSettings::givesEachSimulatedLineAWrench()
{
    const QString simulated = QStringLiteral("simulated");
    const QList<Settings> devices = read({simulated, QStringLiteral("/dev/x"), simulated});
    QCOMPARE(devices.at(0).wrench(), QStringLiteral("2210"));
    QCOMPARE(devices.at(2).wrench(), QStringLiteral("2212"));
    QCOMPARE(devices.at(2).serialId, QStringLiteral("2212")); // that is what the simulator is told
}

void TestDeviceSettings::refuses_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("what");
    QTest::newRow("empty") << QStringList{QString()} << "the device \"\" has no port";
    QTest::newRow("only a number") << QStringList{QStringLiteral(",2210")} << "the device \",2210\" has no port";
    QTest::newRow("no scenario") << QStringList{QStringLiteral("simulated:,1")}
                                 << "the device \"simulated:,1\" names no scenario";
    QTest::newRow("a port twice") << QStringList{QStringLiteral("/dev/x,1"), QStringLiteral("/dev/x,2")}
                                  << "two devices have the port /dev/x";
}

void TestDeviceSettings::refuses()
{
    QFETCH(QStringList, names);
    QList<Settings> devices;
    const std::optional<Problem> problem = readDevices(names, {}, &devices);
    QVERIFY(problem);
    QTEST(problem->what, "what");
    QCOMPARE(problem->exitStatus(), 2);
    QCOMPARE(problem->mend, QStringLiteral("name each as PORT or PORT,NUMBER, each port once"));
}

QTEST_GUILESS_MAIN(TestDeviceSettings)

#include "tst_device_settings.moc"
