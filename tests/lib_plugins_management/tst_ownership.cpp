#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include "workbench.h"

/// Who may be destroyed when: plugin, driver, order, host, the command itself; outside of any call and in the middle of
/// one. Run under the address sanitizer, it also shows that nothing is used or deleted twice.
class TstOwnership : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void heldCommandOutlivesItsPlugin_data();
    void heldCommandOutlivesItsPlugin();
    void heldCommandThatNeverRanOutlivesItsPlugin_data();
    void heldCommandThatNeverRanOutlivesItsPlugin();
    void heldCommandOutlivesItsOrder_data();
    void heldCommandOutlivesItsOrder();
    void prototypesGoWithTheirPlugin();

    void pluginFirst();
    void pluginFirstIsNotToldToFinish();
    void orderFirstLetsTheCommandFinish();
    void hostFirst();
    void hostFirstIsAnnounced();
    void endUnderWayIsAnnouncedWithoutTheHost();
    void commandDestroyedByItsOwner();
    void commandDestroyedByItsOwnerAnswersItsCaller();
    void driverWhileASubscriptionIsOpen();
    void deviceDestroysAnotherWhenItGoes();

    void destroyedInTheMiddle_data();
    void destroyedInTheMiddle();

private:
    void start();

    std::unique_ptr<Workbench> m_bench;
    ScriptPointer m_listen;
    ScriptPointer m_stream;
    std::unique_ptr<DOrder> m_order;
    QSharedPointer<ICommand> m_held;
};

namespace {

const QString c_listen = QStringLiteral("listen");
const QString c_stream = QStringLiteral("stream");
const QString c_stop = QStringLiteral("stopListening");
const QString c_driver = QStringLiteral("driver");
const QString c_value = QStringLiteral("value");

using Share = std::function<QSharedPointer<ICommand>(ScriptedCommand*)>;

QSharedPointer<ICommand> shareNaively(ScriptedCommand* command)
{
    return QSharedPointer<ScriptedCommand>(command);
}

QSharedPointer<ICommand> shareWithDeleter(ScriptedCommand* command)
{
    return QSharedPointer<ICommand>(command, [command](ICommand*) { delete command; });
}

void addDeleters()
{
    QTest::addColumn<Share>("share");
    QTest::newRow("guarded") << Share(&ScriptedCommand::shareGuarded);
    QTest::newRow("naive") << Share(shareNaively);
    QTest::newRow("naive of its own") << Share(shareWithDeleter);
}

} // namespace

Q_DECLARE_METATYPE(Share)

void TstOwnership::init()
{
    m_bench = std::make_unique<Workbench>();
    m_listen = m_bench->deviceRoot.addCommand(c_listen, c_stop);
    m_listen->execute = [](ScriptedCommand& command) { return command.subscribe(c_driver, c_stream) != 0; };
    m_stream = m_bench->driverRoot.addCommand(c_stream, c_stop);
    m_bench->set();
}

void TstOwnership::cleanup()
{
    Workbench::settle();
    m_held.reset();
    m_order.reset();
    m_bench.reset();
    Workbench::settle();
}

void TstOwnership::start()
{
    m_order = m_bench->start(c_listen);
    Workbench::settle();
}

void TstOwnership::heldCommandOutlivesItsPlugin_data()
{
    addDeleters();
}

void TstOwnership::heldCommandOutlivesItsPlugin()
{
    QFETCH(Share, share);
    m_listen->share = [&](ScriptedCommand* command) {
        m_held = share(command);
        return m_held;
    };
    start();
    m_listen->destroyed = 0;
    delete m_bench->device;
    const int prototypes = 1;
    QCOMPARE(m_listen->destroyed, prototypes);
    m_order.reset();
    QCOMPARE(m_listen->destroyed, prototypes);
    QCOMPARE(m_held->commandName(), c_listen);
    m_held.reset();
    QCOMPARE(m_listen->destroyed, prototypes + 1);
}

void TstOwnership::heldCommandThatNeverRanOutlivesItsPlugin_data()
{
    addDeleters();
}

void TstOwnership::heldCommandThatNeverRanOutlivesItsPlugin()
{
    QFETCH(Share, share);
    m_listen->share = share;
    const ScriptedCommand maker(m_listen, {}, m_bench->device);
    m_held = maker.createCommand({});
    m_listen->destroyed = 0;
    delete m_bench->device;
    QCOMPARE(m_held->commandName(), c_listen);
    m_held.reset();
    QCOMPARE(m_listen->destroyed, 2); // the prototype and the held one
}

void TstOwnership::heldCommandOutlivesItsOrder_data()
{
    addDeleters();
}

void TstOwnership::heldCommandOutlivesItsOrder()
{
    QFETCH(Share, share);
    m_listen->share = [&](ScriptedCommand* command) {
        m_held = share(command);
        return m_held;
    };
    start();
    m_order.reset();
    QCOMPARE(m_listen->destroyed, 0);
    QCOMPARE(m_held->getOrderId(), quint64(0));
    m_held.reset();
    QCOMPARE(m_listen->destroyed, 1);
}

void TstOwnership::prototypesGoWithTheirPlugin()
{
    m_listen->destroyed = 0;
    delete m_bench->device;
    QCOMPARE(m_listen->destroyed, 1);
}

void TstOwnership::pluginFirst()
{
    start();
    const QSignalSpy spy(m_order.get(), &DOrder::sigFinished);
    delete m_bench->device;
    QCOMPARE(m_order->outcome(), DOrder::Outcome::Gone);
    QVERIFY(m_order->plugin() == nullptr);
    Workbench::settle();
    QCOMPARE(spy.size(), 1);
    QCOMPARE(m_stream->finished, 1); // its subscription is closed
}

void TstOwnership::pluginFirstIsNotToldToFinish()
{
    start();
    delete m_bench->device;
    Workbench::settle();
    QCOMPARE(m_listen->finished, 0);
}

void TstOwnership::orderFirstLetsTheCommandFinish()
{
    start();
    m_order.reset();
    QCOMPARE(m_listen->finished, 1);
    QCOMPARE(m_listen->destroyed, 1);
    Workbench::settle();
    QCOMPARE(m_stream->finished, 1);
}

void TstOwnership::hostFirst()
{
    start();
    m_bench->host.reset();
    QVERIFY(m_bench->device.isNull());
    QCOMPARE(m_order->outcome(), DOrder::Outcome::Gone);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("\"listen\" cannot send")));
    QCOMPARE(m_listen->last->subscribe(c_driver, c_stream), quint64(0));
    m_order->stop();
    m_order->start();
    m_order.reset();
}

void TstOwnership::hostFirstIsAnnounced()
{
    start();
    const QSignalSpy spy(m_order.get(), &DOrder::sigFinished);
    m_bench->host.reset();
    QCOMPARE(spy.size(), 0);
    Workbench::settle();
    QCOMPARE(spy.size(), 1);
}

void TstOwnership::endUnderWayIsAnnouncedWithoutTheHost()
{
    start();
    const QSignalSpy spy(m_order.get(), &DOrder::sigFinished);
    m_order->stop();
    m_bench->host.reset();
    Workbench::settle();
    QCOMPARE(spy.size(), 1);
    QCOMPARE(m_order->outcome(), DOrder::Outcome::Stopped);
}

void TstOwnership::commandDestroyedByItsOwner()
{
    start();
    const QSignalSpy spy(m_order.get(), &DOrder::sigFinished);
    delete m_listen->last;
    QCOMPARE(m_order->outcome(), DOrder::Outcome::Gone);
    m_order->stop();
    Workbench::settle();
    QCOMPARE(spy.size(), 1);
}

void TstOwnership::commandDestroyedByItsOwnerAnswersItsCaller()
{
    m_listen->execute = [](ScriptedCommand& command) { return command.ask(c_driver, c_stream) != 0; };
    start();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("is over: its target is gone")));
    delete m_stream->last;
    Workbench::settle();
    QCOMPARE(m_listen->replies, QList<Values>({{{QStringLiteral("cmd_success"), false}}}));
}

void TstOwnership::driverWhileASubscriptionIsOpen()
{
    start();
    m_stream->last->commandUpdateResult(c_value, 1);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("is over: its target is gone")));
    delete m_bench->driver;
    Workbench::settle();
    QCOMPARE(m_listen->replies.size(), 1); // published before, so delivered
    QCOMPARE(m_order->state(), DOrder::State::Running);
    m_order->stop();
    QCOMPARE(m_order->outcome(), DOrder::Outcome::Stopped);
}

void TstOwnership::deviceDestroysAnotherWhenItGoes()
{
    ScriptedPlugin* other =
        static_cast<ScriptedPlugin*>(m_bench->host->createInstance(m_bench->deviceRoot, QUuid::createUuid()));
    other->onDestruction = [&] { delete m_bench->device; };
    m_bench->host.reset();
    QVERIFY(m_bench->device.isNull());
}

void TstOwnership::destroyedInTheMiddle_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<QString>("what");
    for (const char* where : {"execute", "reply", "finish", "sigCommandFinished", "sigFinished", "sigResultsPublished",
                              "sigPropertyChanged", "sigConfigurationChanged"}) {
        for (const char* what : {"order", "device", "driver", "host"}) {
            QTest::addRow("%s from %s", what, where) << QString::fromLatin1(where) << QString::fromLatin1(what);
        }
    }
}

void TstOwnership::destroyedInTheMiddle()
{
    QFETCH(QString, where);
    QFETCH(QString, what);
    bool destroyed = false;
    const auto destroy = [&] {
        destroyed = true;
        if (what == QLatin1String("order")) {
            m_order.reset();
        } else if (what == QLatin1String("device")) {
            delete m_bench->device;
        } else if (what == QLatin1String("driver")) {
            delete m_bench->driver;
        } else {
            m_bench->host.reset();
        }
    };
    const auto at = [&](const char* place) { return where == QLatin1String(place); };
    // The command is used after each blow, as a command does that does not know of it.
    const auto goOn = [](ScriptedCommand& command) {
        bool ok = true;
        command.commandUpdateResult(c_value, 1);
        command.commandFinish(ok);
    };
    m_listen->execute = [&](ScriptedCommand& command) {
        if (at("execute")) {
            command.subscribe(c_driver, c_stream);
            destroy();
            goOn(command);
            return true;
        }
        if (at("sigPropertyChanged") || at("sigConfigurationChanged")) {
            auto* plugin = static_cast<DAbstractPlugin*>(command.parent());
            plugin->setProperty(QStringLiteral("lock"), true, true);
            goOn(command);
            return true;
        }
        return command.subscribe(c_driver, c_stream) != 0;
    };
    m_listen->onReply = [&](ScriptedCommand& command, quint64 id) {
        if (at("reply")) {
            destroy();
            command.stopTheInstruction(id);
        }
        goOn(command);
    };
    m_listen->finish = [&](ScriptedCommand& command, bool& ok) {
        if (at("finish")) {
            destroy();
        }
        return command.commandFinish(ok);
    };
    m_order = m_bench->host->createOrder(*m_bench->device, c_listen);
    if (at("sigFinished")) {
        connect(m_order.get(), &DOrder::sigFinished, this, destroy);
    }
    if (at("sigResultsPublished")) {
        connect(m_order.get(), &DOrder::sigResultsPublished, this, destroy);
    }
    if (at("sigPropertyChanged")) {
        connect(m_bench->host.get(), &DHost::sigPropertyChanged, this, destroy);
    }
    if (at("sigConfigurationChanged")) {
        connect(m_bench->host.get(), &DHost::sigConfigurationChanged, this, destroy);
    }
    m_order->start();
    Workbench::settle();
    if (at("sigCommandFinished")) {
        connect(m_listen->last, &DAbstractCommand::sigCommandFinished, this, destroy);
    }
    if (m_stream->last != nullptr && at("finish")) {
        m_order->stop();
    } else if (m_stream->last != nullptr) {
        m_stream->last->commandUpdateResult(c_value, 1);
    }
    Workbench::settle();
    QVERIFY(destroyed);
    if (m_order != nullptr) {
        m_order->stop();
    }
    Workbench::settle();
}

QTEST_GUILESS_MAIN(TstOwnership)
#include "tst_ownership.moc"
