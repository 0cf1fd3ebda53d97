#include "p_device_haitor.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <qqml.h>

#include <lib_utilities/utilities.h>

#include <memory>

#include "log_capture.h"

// Qt's entry points, as the built module has them.
extern "C" QObject* qt_plugin_instance();
extern "C" const char* qt_plugin_query_metadata();

namespace {

QUuid pluginUuid()
{
    return QUuid(QStringLiteral("{b3b68306-268a-4bce-b400-9f7c133e4cef}"));
}

} // namespace

class TestPDeviceHaitor : public QObject
{
    Q_OBJECT

    /// Whether a panel can make an object of that type.
    static bool isKnownToPanels(const char* type) { return qmlTypeId("PlgLibDeviceHaitor", 1, 0, type) >= 0; }

private Q_SLOTS:
    // The first of this program's instances: what is registered stays so.
    void initTestCase()
    {
        QVERIFY(!isKnownToPanels("BeMaintenanceDeviceHaitor"));
        QVERIFY(!isKnownToPanels("DHaitorChannel"));
        QStringList atTheTrace;
        const LogCapture log([&](const LogMessage& message) {
            if (message.text.startsWith(QLatin1String("DONE"))) {
                for (const char* type : {"BeMaintenanceDeviceHaitor", "DHaitorChannel"}) {
                    if (isKnownToPanels(type)) {
                        atTheTrace.append(QString::fromUtf8(type));
                    }
                }
            }
        });
        const PDeviceHaitor plugin(QUuid::createUuid(), nullptr);
        // The backend before anything else, the channel as the last of the constructor.
        QCOMPARE(atTheTrace, QStringList(QStringLiteral("BeMaintenanceDeviceHaitor")));
        QVERIFY(isKnownToPanels("DHaitorChannel"));
    }

    void hasAFixedIdentity()
    {
        QCOMPARE(PDeviceHaitor::getPluginId(), pluginUuid());
        QCOMPARE(PDeviceHaitor::getPluginName(), "Plugin Device Haitor");
        QCOMPARE(PDeviceHaitor::getPluginType(), 0x44657669U);
        const PDeviceHaitor plugin(QUuid::createUuid(), nullptr);
        QCOMPARE(plugin.pluginUuid(), pluginUuid());
        QCOMPARE(plugin.pluginName(), "Plugin Device Haitor");
        QCOMPARE(plugin.pluginType(), 0x44657669U);
        QCOMPARE(plugin.pluginVersion(), versionFromString(QStringLiteral("1.0"), nullptr, QLatin1Char('.')));
    }

    void typeIsTheFourCharactersDevi()
    {
        const IPlugin::Type type = PDeviceHaitor::getPluginType();
        QByteArray characters;
        for (const int shift : {24, 16, 8, 0}) {
            characters.append(char((type >> shift) & 0xFFU));
        }
        QCOMPARE(characters, QByteArray("Devi"));
    }

    void subTypeNameIsEmptyAndNotNull()
    {
        const PDeviceHaitor plugin(QUuid::createUuid(), nullptr);
        QVERIFY(plugin.pluginSubTypeName() != nullptr);
        QCOMPARE(plugin.pluginSubTypeName(), "");
    }

    void typeNameIsTheEmptyTextAndNotPersistent()
    {
        const PDeviceHaitor plugin(QUuid::createUuid(), nullptr);
        bool exists = false;
        const QVariant typeName = plugin.getProperty(QStringLiteral("typeName"), &exists);
        QVERIFY(exists);
        QCOMPARE(typeName.userType(), int(QMetaType::QString));
        QCOMPARE(typeName.toString(), QString());
        QVERIFY(plugin.getMainConfig()->isEmpty());
    }

    void newInstanceHasNoneOfTheCommandsProperties_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"lock", "programList", "programListCount", "currentProgId"}) {
            QTest::newRow(name) << QString::fromUtf8(name);
        }
    }

    void newInstanceHasNoneOfTheCommandsProperties()
    {
        QFETCH(QString, name);
        PDeviceHaitor plugin(QUuid::createUuid(), nullptr);
        plugin.initPluginCommands();
        bool exists = true;
        QVERIFY(!plugin.getProperty(name, &exists).isValid());
        QVERIFY(!exists);
    }

    void hasNoCommandsBeforeTheyAreAskedFor()
    {
        const PDeviceHaitor plugin(QUuid::createUuid(), nullptr);
        QVERIFY(plugin.commandNames().isEmpty());
    }

    void constructorKeepsUuidAndParent()
    {
        QObject parent;
        const QUuid uuid = QUuid::createUuid();
        auto* plugin = new PDeviceHaitor(uuid, &parent);
        QCOMPARE(plugin->objectUuid(), uuid);
        QCOMPARE(plugin->parent(), &parent);
    }

    void createInstanceMakesAFreshPluginWithoutParent()
    {
        QObject parent;
        const PDeviceHaitor plugin(QUuid::createUuid(), &parent);
        const QUuid uuid = QUuid::createUuid();
        const std::unique_ptr<IPlugin> made(plugin.createInstance(uuid));
        QCOMPARE(made->objectUuid(), uuid);
        QCOMPARE(made->pluginUuid(), pluginUuid());
        QCOMPARE(made->pluginVersion(), plugin.pluginVersion());
        auto* object = dynamic_cast<PDeviceHaitor*>(made.get());
        QVERIFY(object != nullptr);
        QVERIFY(object->parent() == nullptr);
        QVERIFY(object->commandNames().isEmpty());
    }

    void bothViewsAnswerAlike()
    {
        PDeviceHaitor plugin(QUuid::createUuid(), nullptr);
        const IPlugin& view = plugin;
        QCOMPARE(view.objectUuid(), plugin.objectUuid());
        QCOMPARE(view.pluginSubTypeName(), plugin.pluginSubTypeName());
        plugin.initPluginCommands();
        QCOMPARE(view.getFunctions(false), plugin.commandNames());
    }

    void metaObjectHasNothingOfItsOwn()
    {
        const QMetaObject& meta = PDeviceHaitor::staticMetaObject;
        QCOMPARE(meta.className(), "PDeviceHaitor");
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void initPluginCommandsAnnouncesOnceWithUuidAndNames()
    {
        const QUuid uuid = QUuid::createUuid();
        PDeviceHaitor plugin(uuid, nullptr);
        QSignalSpy announced(&plugin, &DAbstractPlugin::sigCommandsInitDone);
        plugin.initPluginCommands();
        QCOMPARE(announced.count(), 1);
        QCOMPARE(announced.first().at(0).toUuid(), uuid);
        QCOMPARE(announced.first().at(1).toStringList(), plugin.commandNames());
        QVERIFY(!plugin.commandNames().isEmpty());
    }

    void tracesItsLifeToTheDebugStreamOnly()
    {
        const QUuid uuid = QUuid::createUuid();
        const LogCapture capture;
        quintptr address = 0;
        {
            const PDeviceHaitor plugin(uuid, nullptr);
            address = reinterpret_cast<quintptr>(&plugin);
        }
        QCOMPARE(capture.messages().size(), 2);
        QCOMPARE(capture.messages(QtDebugMsg).size(), 2);
        const QString pieces = QStringLiteral(" \"\" \"0x%1\" QUuid(\"%2\") Plugin Device Haitor")
                                   .arg(address, 8, 16, QLatin1Char('0'))
                                   .arg(uuid.toString());
        QCOMPARE(capture.messages().first().text, QStringLiteral("DONE") + pieces);
        QCOMPARE(capture.messages().last().text, QStringLiteral("END") + pieces);
    }

    void rootIsOneObjectUntilItIsDeleted()
    {
        QPointer<QObject> root = qt_plugin_instance();
        QCOMPARE(qt_plugin_instance(), root.data());
        auto* plugin = qobject_cast<PDeviceHaitor*>(root);
        QVERIFY(plugin != nullptr);
        QVERIFY(plugin->objectUuid().isNull());
        QVERIFY(plugin->parent() == nullptr);
        delete root;
        QVERIFY(root.isNull());
        const std::unique_ptr<QObject> next(qt_plugin_instance());
        QVERIFY(qobject_cast<PDeviceHaitor*>(next.get()) != nullptr);
        QCOMPARE(qt_plugin_instance(), next.get());
    }
};

QTEST_APPLESS_MAIN(TestPDeviceHaitor)
#include "tst_p_device_haitor.moc"
