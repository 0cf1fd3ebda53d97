#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QPluginLoader>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>
#include <QUuid>
#include <QVariant>

#include "driver_fixture.h"

class TestPDriverSerial : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void saysWhoItIs();
    void makesInstancesOfTheirOwn();
    void offersItsCommands();
    void describesItsCommands_data();
    void describesItsCommands();
    void loadsAsAPlugin();
    void beginsClosed();
    void showsAnOpenLine();
    void showsWhyTheLineIsLost();
    void showsAClosedLine();
    void refusesAWrongSetting();
    void readsTheConfigurationAtEachOpening();
    void handsTheSettingsToThePort();
    void mayBeDestroyedWhileCommandsRun();
    void letsCommandsRunIntoNothingOnceItIsGone();
};

void TestPDriverSerial::saysWhoItIs()
{
    const PDriverSerial plugin;
    QCOMPARE(plugin.pluginUuid(), PDriverSerial::getPluginId());
    QVERIFY(!plugin.pluginUuid().isNull());
    QCOMPARE(plugin.pluginName(), "Plugin Driver Serial");
    QCOMPARE(plugin.pluginType(), IPlugin::Type('D' << 24 | 'r' << 16 | 'i' << 8 | 'v'));
    QCOMPARE(plugin.pluginVersion(), quint64(1) << 48);
    QCOMPARE(plugin.pluginSubTypeName(), "");
}

void TestPDriverSerial::makesInstancesOfTheirOwn()
{
    const PDriverSerial root;
    const QUuid uuid = QUuid::createUuid();
    const std::unique_ptr<IPlugin> instance(root.createInstance(uuid));
    QCOMPARE(instance->objectUuid(), uuid);
    QCOMPARE(instance->pluginUuid(), PDriverSerial::getPluginId());
    QVERIFY(root.objectUuid().isNull());
}

void TestPDriverSerial::offersItsCommands()
{
    PDriverSerial plugin;
    QSignalSpy done(&plugin, &PDriverSerial::sigCommandsInitDone);
    plugin.initPluginCommands();
    QCOMPARE(
        plugin.getFunctions(true),
        QStringList({QStringLiteral("write"), QStringLiteral("listenEventsData"), QStringLiteral("closeConnection"),
                     QStringLiteral("setKeepAliveFonction"), QStringLiteral("setTrace"), QStringLiteral("listenTrace"),
                     QStringLiteral("stopListening"), QStringLiteral("stopListeningTrace")}));
    QCOMPARE(done.size(), 1);
}

void TestPDriverSerial::describesItsCommands_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QStringList>("parameters");
    QTest::addColumn<QStringList>("results");
    const QStringList answer{QStringLiteral("cmd_success bool"), QStringLiteral("error strg")};
    QTest::newRow("write") << QStringLiteral("write")
                           << QStringList{QStringLiteral("frame strg"), QStringLiteral("timeout int")} << answer;
    QTest::newRow("listen") << QStringLiteral("listenEventsData")
                            << QStringList{QStringLiteral("subscription bool"), QStringLiteral("validator strg")}
                            << QStringList{QStringLiteral("frame strg"), QStringLiteral("number int")};
    QTest::newRow("close") << QStringLiteral("closeConnection") << QStringList() << answer;
    QTest::newRow("keep-alive") << QStringLiteral("setKeepAliveFonction")
                                << QStringList{QStringLiteral("frame strg"), QStringLiteral("responseFrame strg")}
                                << answer;
    QTest::newRow("trace") << QStringLiteral("setTrace") << QStringList{QStringLiteral("file strg")} << answer;
    QTest::newRow("live trace") << QStringLiteral("listenTrace") << QStringList()
                                << QStringList{QStringLiteral("entry strg")};
}

void TestPDriverSerial::describesItsCommands()
{
    QFETCH(const QString, command);
    QFETCH(const QStringList, parameters);
    QFETCH(const QStringList, results);
    PDriverSerial plugin;
    plugin.initPluginCommands();
    const QJsonObject description = plugin.getFunctionDescription(command);
    const auto declared = [&description](const char* kind) {
        QStringList names;
        const QJsonArray list = description.value(QLatin1String(kind)).toArray();
        for (const QJsonValue& each : list) {
            names.append(each[QStringLiteral("name")].toString() + QLatin1Char(' ') +
                         each[QStringLiteral("type")].toString());
        }
        return names;
    };
    QCOMPARE(declared("parameters"), parameters);
    QCOMPARE(declared("results"), results);
    QVERIFY(!description.value(QStringLiteral("description")).toString().isEmpty());
}

void TestPDriverSerial::loadsAsAPlugin()
{
    QPluginLoader loader(QStringLiteral(DRIVER_PLUGIN_FILE));
    QCOMPARE(loader.metaData().value(QStringLiteral("IID")).toString(), QStringLiteral("workplace.PDriverSerial"));
    QObject* root = loader.instance();
    QVERIFY2(root != nullptr, qPrintable(loader.errorString()));
    const auto* plugin = dynamic_cast<IPlugin*>(root);
    QVERIFY(plugin != nullptr);
    QCOMPARE(plugin->pluginUuid(), PDriverSerial::getPluginId());
}

void TestPDriverSerial::beginsClosed()
{
    const DriverFixture driver;
    QCOMPARE(driver.property("connected"), QVariant(false));
    QCOMPARE(driver.property("lineState"), QVariant(QStringLiteral("closed")));
    QCOMPARE(driver.property("lineError"), QVariant(QString()));
}

void TestPDriverSerial::showsAnOpenLine()
{
    const DriverFixture driver;
    const Run run = driver.listen();
    QCOMPARE(driver.property("connected"), QVariant(true));
    QCOMPARE(driver.property("lineState"), QVariant(QStringLiteral("open")));
}

void TestPDriverSerial::showsWhyTheLineIsLost()
{
    const DriverFixture driver;
    const Run run = driver.listen();
    driver.port->fail(QStringLiteral("It went away."));
    QCOMPARE(driver.property("connected"), QVariant(false));
    QCOMPARE(driver.property("lineState"), QVariant(QStringLiteral("lost")));
    QCOMPARE(driver.property("lineError"), QVariant(QStringLiteral("It went away.")));
    driver.clock->advance(250);
    QCOMPARE(driver.property("connected"), QVariant(true));
    QCOMPARE(driver.property("lineError"), QVariant(QString()));
}

void TestPDriverSerial::showsAClosedLine()
{
    const DriverFixture driver;
    const Run run = driver.listen();
    const Run closing = driver.run("closeConnection");
    QCOMPARE(driver.property("connected"), QVariant(false));
    QCOMPARE(driver.property("lineState"), QVariant(QStringLiteral("closed")));
}

void TestPDriverSerial::refusesAWrongSetting()
{
    const DriverFixture driver;
    driver.configure("parity", QStringLiteral("some"));
    const Run run = driver.write("1");
    QCOMPARE(run.result("cmd_success"), QVariant(false));
    QVERIFY2(run.error().contains(QStringLiteral("\"parity\"")), qPrintable(run.error()));
    QCOMPARE(driver.property("lineError").toString(), run.error());
    QCOMPARE(driver.port->openings, 0);
}

void TestPDriverSerial::readsTheConfigurationAtEachOpening()
{
    const DriverFixture driver;
    driver.configure("parity", QStringLiteral("some"));
    const Run refused = driver.write("1");
    driver.configure("parity", QStringLiteral("odd"));
    const Run run = driver.write("1");
    driver.port->leave();
    QVERIFY(run.succeeded());
    QCOMPARE(driver.port->settings.parity, QSerialPort::OddParity);
}

void TestPDriverSerial::handsTheSettingsToThePort()
{
    const DriverFixture driver;
    driver.configure("baudRate", 250000);
    const Run run = driver.listen();
    QCOMPARE(driver.port->settings.port, QStringLiteral("/dev/fake"));
    QCOMPARE(driver.port->settings.baudRate, 250000);
}

void TestPDriverSerial::mayBeDestroyedWhileCommandsRun()
{
    DriverFixture driver;
    const Run listener = driver.listen();
    const Run trace = driver.run("listenTrace");
    const Run write = driver.write("1");
    const Run waiting = driver.write("2");
    driver.plugin.reset();
    QVERIFY(write.order->published.isEmpty());
    QVERIFY(waiting.order->published.isEmpty());
}

void TestPDriverSerial::letsCommandsRunIntoNothingOnceItIsGone()
{
    DriverFixture driver;
    const Run listener = driver.listen();
    const Run trace = driver.run("listenTrace");
    const Run write = driver.write("1");
    driver.plugin.reset();
    RecordingOrder order;
    write.command->linkWithItsOrder(&order);
    listener.command->linkWithItsOrder(&order);
    trace.command->linkWithItsOrder(&order);
    QVERIFY(!listener.command->commandExecute());
    QVERIFY(!trace.command->commandExecute());
    QVERIFY(write.command->commandExecute());
    QCOMPARE(order.last(QStringLiteral("cmd_success")), QVariant(false));
    QVERIFY(!order.last(QStringLiteral("error")).toString().isEmpty());
}

QTEST_GUILESS_MAIN(TestPDriverSerial)
#include "tst_p_driver_serial.moc"
