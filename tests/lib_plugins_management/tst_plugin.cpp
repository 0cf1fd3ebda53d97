#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <stdexcept>

#include "workbench.h"

/// A plugin instance: identity, configuration, properties and the table of commands.
class TstPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void identityIsWhatItWasMadeWith();
    void nameIsTheOneInTheConfiguration();
    void debugIdentificationNamesTheInstance();
    void configurationIsSharedWithTheHost();
    void missingConfigurationIsAnEmptyOne();
    void pluginSectionIsItsOwn();
    void writingTheConfigurationIsAnnounced();

    void unknownPropertyIsNotOk();
    void unknownPropertyHasTheGivenDefault();
    void propertyIsStored();
    void propertyNeedsAName();
    void propertyIsAnnouncedOnChangeOnly();
    void propertyMayBeReadWhenItIsAnnounced();
    void persistentPropertySurvives();
    void otherPropertyDoesNotSurvive();
    void persistentPropertyIsWrittenOnChangeOnly();
    void propertyThatBecomesPersistentIsWritten();
    void propertiesOfOtherPluginsStayInTheirSection();

    void commandsAreInTheOrderOfDeclaration();
    void functionsMayIncludeStopCommands();
    void descriptionOfACommand();
    void unknownCommandHasNoDescription();
    void noCommandIsDeclared();
    void commandDeclaredTwiceIsStillThere();
    void secondCommandOfAnExistingNameIsRefused();
    void commandThatIsNotValidIsRefused();
    void initialisingTwiceKeepsTheCommands();
    void initialisingTellsTheCommands();
    void hostWithoutInstanceMakesNone();
    void hostSurvivesAnInstanceThatThrows();

private:
    std::unique_ptr<Workbench> m_bench;
};

namespace {

const QString c_lock = QStringLiteral("lock");
const QString c_work = QStringLiteral("work");

class BarrenPlugin : public ScriptedPlugin
{
    Q_OBJECT

public:
    BarrenPlugin() : ScriptedPlugin("Barren") {}
    IPlugin* createInstance(const QUuid&) const override { return nullptr; }
};

class ThrowingPlugin : public ScriptedPlugin
{
    Q_OBJECT

public:
    ThrowingPlugin() : ScriptedPlugin("Throwing") {}
    void initPluginCommands() override { throw std::runtime_error("no such model"); }
    IPlugin* createInstance(const QUuid&) const override { return new ThrowingPlugin; }
};

} // namespace

void TstPlugin::init()
{
    m_bench = std::make_unique<Workbench>();
    const ScriptPointer work = m_bench->deviceRoot.addCommand(c_work);
    work->declare = [](ScriptedCommand& command) {
        command.setDescription(QStringLiteral("Works"));
        command.declareAParameter(QStringLiteral("count"), QStringLiteral("int"), QStringLiteral("How often"), 3);
        command.declareAParameter(QStringLiteral("text"), QStringLiteral("strg"), QStringLiteral("What"), QVariant());
        command.declareAResult(QStringLiteral("cmd_success"), QStringLiteral("bool"), QStringLiteral("Done"), false);
    };
    m_bench->deviceRoot.addCommand(QStringLiteral("listen"), QStringLiteral("stopListening"));
    m_bench->deviceRoot.addCommand(QStringLiteral("scan"), QStringLiteral("stopListening"));
    m_bench->set();
}

void TstPlugin::identityIsWhatItWasMadeWith()
{
    const QUuid uuid = QUuid::createUuid();
    const DAbstractPlugin* instance = m_bench->host->createInstance(m_bench->deviceRoot, uuid);
    QCOMPARE(instance->objectUuid(), uuid);
    QCOMPARE(instance->pluginUuid(), m_bench->deviceRoot.pluginUuid());
    QCOMPARE(instance->pluginName(), "Device");
    QCOMPARE(instance->pluginVersion(), Q_UINT64_C(0x0001000000000000));
    QCOMPARE(instance->pluginType(), quint32(0x54657374));
    QCOMPARE(instance->compatiblePlugins(), QList<QUuid>({m_bench->deviceRoot.pluginUuid()}));
    QVERIFY(m_bench->deviceRoot.objectUuid().isNull());
}

void TstPlugin::nameIsTheOneInTheConfiguration()
{
    QCOMPARE(m_bench->device->getName(), QStringLiteral("Device"));
    m_bench->device->setInMainConfig(QStringLiteral("name"), QStringLiteral("Wrench 1"));
    QCOMPARE(m_bench->device->getName(), QStringLiteral("Wrench 1"));
}

void TstPlugin::debugIdentificationNamesTheInstance()
{
    const QString text = m_bench->device->getDebugIdentification();
    QVERIFY2(text.contains(QStringLiteral("Device")) && text.contains(m_bench->device->objectUuid().toString()),
             qPrintable(text));
}

void TstPlugin::configurationIsSharedWithTheHost()
{
    const auto config = QSharedPointer<QJsonObject>::create();
    config->insert(QStringLiteral("port"), QStringLiteral("ttyUSB0"));
    m_bench->device->setMainConfig(config);
    QCOMPARE(m_bench->device->getMainConfig(), config);
    QCOMPARE(m_bench->device->getInMainConfig(QStringLiteral("port")), QJsonValue(QStringLiteral("ttyUSB0")));
    m_bench->device->setInMainConfig(QStringLiteral("baud"), 9600);
    QCOMPARE(config->value(QStringLiteral("baud")), QJsonValue(9600));
}

void TstPlugin::missingConfigurationIsAnEmptyOne()
{
    m_bench->device->setMainConfig({});
    QVERIFY(!m_bench->device->getMainConfig().isNull());
    QVERIFY(m_bench->device->getInMainConfig(QStringLiteral("port")).isUndefined());
    QVERIFY(m_bench->device->getInPluginConfig(QStringLiteral("port")).isUndefined());
}

void TstPlugin::pluginSectionIsItsOwn()
{
    m_bench->device->setInPluginConfig(QStringLiteral("retries"), 2);
    m_bench->device->setInPluginConfig(QStringLiteral("pause"), 5);
    QCOMPARE(m_bench->device->getInPluginConfig(QStringLiteral("retries")), QJsonValue(2));
    QCOMPARE(m_bench->device->getInPluginConfig(QStringLiteral("pause")), QJsonValue(5));
    QVERIFY(m_bench->device->getInMainConfig(QStringLiteral("retries")).isUndefined());
}

void TstPlugin::writingTheConfigurationIsAnnounced()
{
    QList<DAbstractPlugin*> announced;
    connect(m_bench->host.get(), &DHost::sigConfigurationChanged, this,
            [&](DAbstractPlugin* plugin) { announced.append(plugin); });
    m_bench->device->setInMainConfig(QStringLiteral("port"), 1);
    m_bench->device->setInPluginConfig(QStringLiteral("port"), 1);
    QCOMPARE(announced, QList<DAbstractPlugin*>({m_bench->device, m_bench->device}));
}

void TstPlugin::unknownPropertyIsNotOk()
{
    bool ok = true;
    QVERIFY(!m_bench->device->getProperty(c_lock, &ok).isValid());
    QVERIFY(!ok);
    QVERIFY(!m_bench->device->getProperty(c_lock, nullptr).isValid());
}

void TstPlugin::unknownPropertyHasTheGivenDefault()
{
    QCOMPARE(m_bench->device->getProperty(c_lock, QVariant(5)), QVariant(5));
}

void TstPlugin::propertyIsStored()
{
    QVERIFY(m_bench->device->setProperty(c_lock, true, false));
    bool ok = false;
    QCOMPARE(m_bench->device->getProperty(c_lock, &ok), QVariant(true));
    QVERIFY(ok);
    QCOMPARE(m_bench->device->getProperty(c_lock, QVariant(false)), QVariant(true));
}

void TstPlugin::propertyNeedsAName()
{
    QVERIFY(!m_bench->device->setProperty(QString(), true, false));
}

void TstPlugin::propertyIsAnnouncedOnChangeOnly()
{
    QStringList announced;
    connect(m_bench->host.get(), &DHost::sigPropertyChanged, this,
            [&](const DAbstractPlugin* plugin, const QString& name, const QVariant& value) {
                announced.append(plugin->getName() + QLatin1Char(' ') + name + QLatin1Char(' ') + value.toString());
            });
    m_bench->device->setProperty(c_lock, false, false);
    m_bench->device->setProperty(c_lock, false, false);
    m_bench->device->setProperty(c_lock, true, false);
    QCOMPARE(announced, QStringList({QStringLiteral("Device lock false"), QStringLiteral("Device lock true")}));
}

void TstPlugin::propertyMayBeReadWhenItIsAnnounced()
{
    QVariant read;
    connect(m_bench->host.get(), &DHost::sigPropertyChanged, this,
            [&](const DAbstractPlugin* plugin) { read = plugin->getProperty(c_lock, nullptr); });
    m_bench->device->setProperty(c_lock, 3, false);
    QCOMPARE(read, QVariant(3));
}

void TstPlugin::persistentPropertySurvives()
{
    const auto config = QSharedPointer<QJsonObject>::create();
    m_bench->device->setMainConfig(config);
    const QVariantMap program{{QStringLiteral("id"), 4}, {QStringLiteral("unit"), QStringLiteral("Nm")}};
    m_bench->device->setProperty(c_lock, true, true);
    m_bench->device->setProperty(QStringLiteral("program"), program, true);
    const auto stored = QSharedPointer<QJsonObject>::create(*config);
    const DAbstractPlugin* next = m_bench->host->createInstance(m_bench->deviceRoot, QUuid::createUuid(), stored);
    QCOMPARE(next->getProperty(c_lock, nullptr), QVariant(true));
    QCOMPARE(next->getProperty(QStringLiteral("program"), nullptr).toMap(), program);
}

void TstPlugin::otherPropertyDoesNotSurvive()
{
    const auto config = QSharedPointer<QJsonObject>::create();
    m_bench->device->setMainConfig(config);
    m_bench->device->setProperty(c_lock, true, false);
    QVERIFY(config->isEmpty());
}

void TstPlugin::persistentPropertyIsWrittenOnChangeOnly()
{
    const QSignalSpy spy(m_bench->host.get(), &DHost::sigConfigurationChanged);
    m_bench->device->setProperty(c_lock, 1, true);
    m_bench->device->setProperty(c_lock, 1, true);
    QCOMPARE(spy.size(), 1);
    m_bench->device->setProperty(c_lock, 2, true);
    QCOMPARE(spy.size(), 2);
}

void TstPlugin::propertyThatBecomesPersistentIsWritten()
{
    m_bench->device->setProperty(c_lock, 1, false);
    const QSignalSpy changed(m_bench->host.get(), &DHost::sigPropertyChanged);
    const QSignalSpy written(m_bench->host.get(), &DHost::sigConfigurationChanged);
    m_bench->device->setProperty(c_lock, 1, true);
    QCOMPARE(changed.size(), 0);
    QCOMPARE(written.size(), 1);
}

void TstPlugin::propertiesOfOtherPluginsStayInTheirSection()
{
    const auto config = QSharedPointer<QJsonObject>::create();
    m_bench->device->setMainConfig(config);
    m_bench->driver->setMainConfig(config);
    m_bench->device->setProperty(c_lock, 1, true);
    m_bench->driver->setProperty(c_lock, 2, true);
    m_bench->device->setMainConfig(config);
    QCOMPARE(m_bench->device->getProperty(c_lock, nullptr).toInt(), 1);
}

void TstPlugin::commandsAreInTheOrderOfDeclaration()
{
    const QStringList names{c_work, QStringLiteral("listen"), QStringLiteral("scan")};
    QCOMPARE(m_bench->device->commandNames(), names);
    QCOMPARE(m_bench->device->getFunctions(false), names);
}

void TstPlugin::functionsMayIncludeStopCommands()
{
    QCOMPARE(m_bench->device->getFunctions(true),
             QStringList({c_work, QStringLiteral("listen"), QStringLiteral("scan"), QStringLiteral("stopListening")}));
}

void TstPlugin::descriptionOfACommand()
{
    const QJsonObject count{{QStringLiteral("name"), QStringLiteral("count")},
                            {QStringLiteral("type"), QStringLiteral("int")},
                            {QStringLiteral("description"), QStringLiteral("How often")},
                            {QStringLiteral("default"), 3}};
    const QJsonObject text{{QStringLiteral("name"), QStringLiteral("text")},
                           {QStringLiteral("type"), QStringLiteral("strg")},
                           {QStringLiteral("description"), QStringLiteral("What")}};
    const QJsonObject success{{QStringLiteral("name"), QStringLiteral("cmd_success")},
                              {QStringLiteral("type"), QStringLiteral("bool")},
                              {QStringLiteral("description"), QStringLiteral("Done")},
                              {QStringLiteral("default"), false}};
    const QJsonObject expected{{QStringLiteral("name"), c_work},
                               {QStringLiteral("stopName"), QString()},
                               {QStringLiteral("description"), QStringLiteral("Works")},
                               {QStringLiteral("parameters"), QJsonArray({count, text})},
                               {QStringLiteral("results"), QJsonArray({success})}};
    QCOMPARE(m_bench->device->getFunctionDescription(c_work), expected);
    QCOMPARE(m_bench->device->getCommandParameters(c_work), QJsonArray({count, text}));
}

void TstPlugin::unknownCommandHasNoDescription()
{
    QVERIFY(m_bench->device->getFunctionDescription(QStringLiteral("fly")).isEmpty());
    QVERIFY(m_bench->device->getCommandParameters(QStringLiteral("fly")).isEmpty());
}

void TstPlugin::noCommandIsDeclared()
{
    m_bench->device->declareInstructionCommand(nullptr);
    QCOMPARE(m_bench->device->commandNames().size(), 3);
}

void TstPlugin::commandDeclaredTwiceIsStillThere()
{
    const auto script = std::make_shared<Script>(QStringLiteral("again"));
    auto* command = new ScriptedCommand(script, {}, nullptr);
    m_bench->device->declareInstructionCommand(command);
    m_bench->device->declareInstructionCommand(command);
    QCOMPARE(script->destroyed, 0);
    QCOMPARE(m_bench->device->commandNames().count(QStringLiteral("again")), 1);
    QCOMPARE(m_bench->device->getFunctionDescription(QStringLiteral("again")).value(QStringLiteral("name")).toString(),
             QStringLiteral("again"));
}

void TstPlugin::secondCommandOfAnExistingNameIsRefused()
{
    const auto script = std::make_shared<Script>(c_work);
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("the command \"work\" is refused")));
    m_bench->device->declareInstructionCommand(new ScriptedCommand(script, {}, nullptr));
    QCOMPARE(script->destroyed, 1);
    QCOMPARE(m_bench->device->commandNames().count(c_work), 1);
}

void TstPlugin::commandThatIsNotValidIsRefused()
{
    const auto nameless = std::make_shared<Script>(QString());
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("the command \"\" is refused")));
    m_bench->device->declareInstructionCommand(new ScriptedCommand(nameless, {}, nullptr));
    const auto odd = std::make_shared<Script>(QStringLiteral("odd"));
    odd->declare = [](ScriptedCommand& command) {
        command.declareAResult(QStringLiteral("value"), QStringLiteral("float"), QString(), QVariant());
    };
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("the command \"odd\" is refused")));
    m_bench->device->declareInstructionCommand(new ScriptedCommand(odd, {}, nullptr));
    QCOMPARE(nameless->destroyed + odd->destroyed, 2);
    QCOMPARE(m_bench->device->commandNames().size(), 3);
}

void TstPlugin::initialisingTwiceKeepsTheCommands()
{
    for (int i = 0; i < 3; ++i) {
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("is refused: it is declared twice")));
    }
    m_bench->device->initPluginCommands();
    QCOMPARE(m_bench->device->commandNames().size(), 3);
    const auto order = m_bench->start(c_work);
    Workbench::settle();
    QCOMPARE(order->state(), DOrder::State::Running);
}

void TstPlugin::initialisingTellsTheCommands()
{
    ScriptedPlugin plugin("Teller");
    plugin.addCommand(c_work);
    const QSignalSpy spy(&plugin, &DAbstractPlugin::sigCommandsInitDone);
    plugin.initAbstractCommands();
    plugin.initPluginCommands();
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().at(0).toUuid(), plugin.objectUuid());
    QCOMPARE(spy.first().at(1).toStringList(), QStringList({c_work}));
}

void TstPlugin::hostWithoutInstanceMakesNone()
{
    const BarrenPlugin root;
    const int before = m_bench->host->instances().instances().size();
    QVERIFY(m_bench->host->createInstance(root, QUuid::createUuid()) == nullptr);
    QCOMPARE(m_bench->host->instances().instances().size(), before);
}

void TstPlugin::hostSurvivesAnInstanceThatThrows()
{
    const ThrowingPlugin root;
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("Throwing.*no instance.*no such model")));
    QVERIFY(m_bench->host->createInstance(root, QUuid::createUuid()) == nullptr);
    m_bench->host.reset();
}

QTEST_GUILESS_MAIN(TstPlugin)
#include "tst_plugin.moc"
