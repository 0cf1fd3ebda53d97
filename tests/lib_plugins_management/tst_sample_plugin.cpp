#include <QSignalSpy>
#include <QTest>

#include <lib_plugins_management/host/d_plugin_loader.h>

#include "workbench.h"

/// The sample plugin of examples/, built against the installed packages, in a host with a scripted driver.
class TstSamplePlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void getInfoAnswersAtOnce();
    void sendTextWritesToTheDriver();
    void listenTextPublishesUntilItIsStopped();

private:
    std::unique_ptr<DOrder> start(const QString& command, const Values& parameters = {});

    DAbstractPlugin* m_root = nullptr;
    std::unique_ptr<Workbench> m_bench;
    ScriptPointer m_write;
    ScriptPointer m_listen;
    DAbstractPlugin* m_sample = nullptr;
};

namespace {
const QString c_success = QStringLiteral("cmd_success");
const QString c_stop = QStringLiteral("stopListening");
} // namespace

void TstSamplePlugin::initTestCase()
{
    DPluginLoader loader;
    m_root = loader.loadFile(QStringLiteral(SAMPLE_PLUGIN));
    QVERIFY2(m_root != nullptr,
             loader.refusals().isEmpty() ? "" : qPrintable(loader.refusals().constFirst().message()));
}

void TstSamplePlugin::init()
{
    m_bench = std::make_unique<Workbench>();
    m_write = m_bench->driverRoot.addCommand(QStringLiteral("write"));
    m_write->execute = [](ScriptedCommand& command) { return command.commandUpdateResult(c_success, true); };
    m_listen = m_bench->driverRoot.addCommand(QStringLiteral("listenEventsData"), c_stop);
    m_bench->set();
    const auto config = QSharedPointer<QJsonObject>::create();
    config->insert(QStringLiteral("name"), QStringLiteral("My sample"));
    m_sample = m_bench->host->createInstance(*m_root, QUuid::createUuid(), config);
    m_bench->host->linkDriver(*m_sample, *m_bench->driver);
}

std::unique_ptr<DOrder> TstSamplePlugin::start(const QString& command, const Values& parameters)
{
    std::unique_ptr<DOrder> order = m_bench->host->createOrder(*m_sample, command, parameters);
    order->start();
    Workbench::settle();
    return order;
}

void TstSamplePlugin::getInfoAnswersAtOnce()
{
    const auto order = start(QStringLiteral("getInfo"));
    QCOMPARE(order->outcome(), DOrder::Outcome::Finished);
    QCOMPARE(order->results(), Values({{QStringLiteral("name"), QStringLiteral("My sample")}}));
}

void TstSamplePlugin::sendTextWritesToTheDriver()
{
    const auto order = start(QStringLiteral("sendText"), {{QStringLiteral("text"), QStringLiteral("hello")}});
    QCOMPARE(m_write->arguments, QList<Values>({{{QStringLiteral("frame"), QByteArrayLiteral("hello\r\n")},
                                                 {QStringLiteral("timeout"), 500}}}));
    QCOMPARE(order->outcome(), DOrder::Outcome::Finished);
    QCOMPARE(order->results(), Values({{c_success, true}}));
}

void TstSamplePlugin::listenTextPublishesUntilItIsStopped()
{
    const auto order = start(QStringLiteral("listenText"));
    QStringList heard;
    connect(order.get(), &DOrder::sigResultsPublished, this,
            [&](const Values& values) { heard.append(values.value(QStringLiteral("text")).toString()); });
    for (const char* text : {"one", "two"}) {
        m_listen->last->commandUpdateResult(QStringLiteral("frame"), QByteArray(text));
    }
    Workbench::settle();
    QCOMPARE(heard, QStringList({QStringLiteral("one"), QStringLiteral("two")}));
    const auto stop = start(c_stop);
    QCOMPARE(order->outcome(), DOrder::Outcome::Stopped);
    QVERIFY(order->endedOk());
    QCOMPARE(m_listen->finished, 1);
}

QTEST_GUILESS_MAIN(TstSamplePlugin)
#include "tst_sample_plugin.moc"
