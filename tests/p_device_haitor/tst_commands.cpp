#include <QJsonDocument>
#include <QMetaMethod>
#include <QPointer>
#include <QTest>

#include <lib_plugins_management/d_abstract_command.h>

#include <memory>

#include "p_device_haitor.h"
#include "recording_order.h"

namespace {

struct Row
{
    const char* className;
    const char* description; // as fullDescription() gives it
};

// The commands' published vocabulary, in the order of their declaration. A declaration without "default" has none.
const Row c_rows[] = {
    {"DCmdConnectToDevice", R"json({
        "name": "searchAndConnect", "stopName": "",
        "description": "Search and connect command to norbar device",
        "parameters": [],
        "results": [
            {"name": "cmd_success", "type": "bool", "description": "Device found", "default": false},
            {"name": "failed", "type": "bool", "description": "Discoverd failed", "default": false}]
    })json"},
    {"DCmdListen", R"json({
        "name": "listenEventsData", "stopName": "stopListening",
        "description": "Listen to tightening events from the device",
        "parameters": [],
        "results": [
            {"name": "eventData", "type": "varM", "description": "Parsed tightening data from RE:F: events"}]
    })json"},
    {"DCmdGetPresetData", R"json({
        "name": "getPresetData", "stopName": "",
        "description": "Get the configuration of a preset from the stored program list",
        "parameters": [
            {"name": "progId", "type": "uint", "description": "The id of the program", "default": 1}],
        "results": [
            {"name": "cmd_success", "type": "bool", "description": "Success of the command", "default": false},
            {"name": "presetData", "type": "varM", "description": "the presets data"}]
    })json"},
    {"DCmdStartDetection", R"json({
        "name": "startDetection", "stopName": "stopListening",
        "description": "Serial device scan",
        "parameters": [],
        "results": [
            {"name": "lastResults", "type": "varL", "description": "Found device list"}]
    })json"},
    {"DCmdSendInitConfig", R"json({
        "name": "sendInitConfig", "stopName": "",
        "description": "Send init commands (DT, SC, RE)",
        "parameters": [],
        "results": [
            {"name": "cmd_success", "type": "bool", "description": "Success", "default": false},
            {"name": "failed", "type": "bool", "description": "Failed", "default": false}]
    })json"},
    {"DCmdListPrograms", R"json({
        "name": "listProgram", "stopName": "",
        "description": "List all programs from haitor device",
        "parameters": [],
        "results": [
            {"name": "programList", "type": "varL", "description": "List of programs found on the device"},
            {"name": "cmd_success", "type": "bool", "description": "Command success status", "default": false},
            {"name": "failed", "type": "bool", "description": "Discoverd failed", "default": false}]
    })json"},
    {"DCmdSetProgram", R"json({
        "name": "setProgram", "stopName": "",
        "description": "Set current program by ID on haitor device",
        "parameters": [
            {"name": "progId", "type": "int", "description": "Program ID to select (starts at 1)"}],
        "results": [
            {"name": "cmd_success", "type": "bool", "description": "Command success status", "default": false},
            {"name": "presetData", "type": "varM", "description": "Program parameters map"}]
    })json"},
    {"DCmdSetLock", R"json({
        "name": "setLock", "stopName": "",
        "description": "Set tool lock state (Data Transmission mode)",
        "parameters": [
            {"name": "lock", "type": "bool", "description": "True to lock (DT:1), false to unlock (DT:0)"}],
        "results": [
            {"name": "cmd_success", "type": "bool", "description": "Command success status", "default": false}]
    })json"},
    {"DCmdKeepAlive", R"json({
        "name": "setKeepAlive", "stopName": "",
        "description": "set Keep alive command",
        "parameters": [],
        "results": [
            {"name": "cmd_success", "type": "bool", "description": "Success", "default": false}]
    })json"},
    {"DCmdSetKeepAliveFonction", R"json({
        "name": "setKeepAliveFonction", "stopName": "",
        "description": "Set keep alive function",
        "parameters": [
            {"name": "frame", "type": "strg", "description": "The frame to send"},
            {"name": "responseFrame", "type": "strg", "description": "Expected response Frame"}],
        "results": [
            {"name": "cmd_success", "type": "bool", "description": "Success", "default": false}]
    })json"},
    {"DCmdCheckSerialId", R"json({
        "name": "checkSerialId", "stopName": "",
        "description": "Check if serialId is provided and return it",
        "parameters": [],
        "results": [
            {"name": "serialId", "type": "strg", "description": "The provided serial ID", "default": ""},
            {"name": "cmd_success", "type": "bool", "description": "Success", "default": false}]
    })json"},
};

// With these every command goes as far as it can.
QMap<QString, QVariant> runParameters()
{
    return {{QStringLiteral("serialId"), QStringLiteral("2210")},
            {QStringLiteral("lock"), true},
            {QStringLiteral("progId"), 1},
            {QStringLiteral("frame"), QStringLiteral("DI:C")},
            {QStringLiteral("responseFrame"), QStringLiteral("OK")}};
}

QJsonObject descriptionOf(const Row& row)
{
    return QJsonDocument::fromJson(row.description).object();
}

} // namespace

/// What all commands have in common, each command a row.
class TestCommands : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<PDeviceHaitor> m_plugin;

    static void addCommands()
    {
        QTest::addColumn<int>("row");
        for (int i = 0; i < int(std::size(c_rows)); ++i) {
            QTest::newRow(c_rows[i].className) << i;
        }
    }

    // The prototype that the plugin has declared for the current data row.
    const DAbstractCommand* prototype() const
    {
        QFETCH(int, row);
        const QString name = descriptionOf(c_rows[row]).value(QLatin1String("name")).toString();
        const auto commands = m_plugin->findChildren<DAbstractCommand*>(QString(), Qt::FindDirectChildrenOnly);
        for (const DAbstractCommand* command : commands) {
            if (command->commandName() == name) {
                return command;
            }
        }
        qFatal("the plugin has no command \"%s\"", qPrintable(name));
    }

private Q_SLOTS:
    void init()
    {
        m_plugin = std::make_unique<PDeviceHaitor>(QUuid::createUuid(), nullptr);
        m_plugin->initPluginCommands();
    }
    void cleanup() { m_plugin.reset(); }

    void areElevenInThisOrder()
    {
        QStringList names;
        for (const Row& row : c_rows) {
            names.append(descriptionOf(row).value(QLatin1String("name")).toString());
        }
        QCOMPARE(names.size(), 11);
        QCOMPARE(m_plugin->commandNames(), names);
    }

    void isDeclaredWithItsTextsInOrder_data() { addCommands(); }
    void isDeclaredWithItsTextsInOrder()
    {
        QFETCH(int, row);
        QCOMPARE(prototype()->fullDescription(), descriptionOf(c_rows[row]));
    }

    void isWhatTheHostReadsOfThePlugin_data() { addCommands(); }
    void isWhatTheHostReadsOfThePlugin()
    {
        const DAbstractCommand* command = prototype();
        QCOMPARE(m_plugin->getFunctionDescription(command->commandName()), command->fullDescription());
    }

    void isRecurrentExactlyWithAStopCommand_data() { addCommands(); }
    void isRecurrentExactlyWithAStopCommand()
    {
        QCOMPARE(prototype()->isRecurrent(), !prototype()->stopCommandName().isEmpty());
        QVERIFY(prototype()->isValid());
    }

    void prototypeHasNoParametersOfARun_data() { addCommands(); }
    void prototypeHasNoParametersOfARun() { QVERIFY(prototype()->commandArguments().isEmpty()); }

    void prototypeIsOfItsClassAndOwnedByThePlugin_data() { addCommands(); }
    void prototypeIsOfItsClassAndOwnedByThePlugin()
    {
        QFETCH(int, row);
        QCOMPARE(prototype()->metaObject()->className(), c_rows[row].className);
        QCOMPARE(prototype()->parent(), m_plugin.get());
    }

    void addsNothingToItsMetaObjectButTheConnectSlot_data() { addCommands(); }
    void addsNothingToItsMetaObjectButTheConnectSlot()
    {
        const QMetaObject& meta = *prototype()->metaObject();
        QStringList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            methods.append(QString::fromUtf8(meta.method(i).methodSignature()));
            QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        }
        const bool isConnect = qstrcmp(meta.className(), "DCmdConnectToDevice") == 0;
        QCOMPARE(methods, isConnect ? QStringList(QStringLiteral("disconnectAndFail()")) : QStringList());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QCOMPARE(meta.superClass(), &DAbstractCommand::staticMetaObject);
    }

    void freshCommandIsOfTheSameClassAndPlugin_data() { addCommands(); }
    void freshCommandIsOfTheSameClassAndPlugin()
    {
        const QSharedPointer<ICommand> fresh = prototype()->createCommand(runParameters());
        const auto* object = dynamic_cast<const QObject*>(fresh.data());
        QVERIFY(object != prototype());
        QCOMPARE(object->metaObject(), prototype()->metaObject());
        QCOMPARE(object->parent(), m_plugin.get());
    }

    void freshCommandHasTheGivenParametersAndTheSameDeclarations_data() { addCommands(); }
    void freshCommandHasTheGivenParametersAndTheSameDeclarations()
    {
        const QSharedPointer<ICommand> fresh = prototype()->createCommand(runParameters());
        QCOMPARE(fresh->commandArguments(), runParameters());
        QCOMPARE(fresh->fullDescription(), prototype()->fullDescription());
    }

    void freshCommandGoesWithItsPointer_data() { addCommands(); }
    void freshCommandGoesWithItsPointer()
    {
        QSharedPointer<ICommand> fresh = prototype()->createCommand(runParameters());
        const QPointer<QObject> object(dynamic_cast<QObject*>(fresh.data()));
        fresh.reset();
        QVERIFY(object.isNull());
    }

    void pluginMayGoBeforeACommandThatNeverRan_data() { addCommands(); }
    void pluginMayGoBeforeACommandThatNeverRan()
    {
        QSharedPointer<ICommand> fresh = prototype()->createCommand(runParameters());
        const QPointer<QObject> object(dynamic_cast<QObject*>(fresh.data()));
        m_plugin.reset();
        fresh.reset();
        QVERIFY(object.isNull());
    }

    void pluginMayGoBeforeARunningCommand_data() { addCommands(); }
    void pluginMayGoBeforeARunningCommand()
    {
        RecordingOrder order;
        QSharedPointer<ICommand> fresh = prototype()->createCommand(runParameters());
        const QPointer<QObject> object(dynamic_cast<QObject*>(fresh.data()));
        fresh->linkWithItsOrder(&order);
        QVERIFY(fresh->commandExecute());
        m_plugin.reset();
        fresh.reset();
        QVERIFY(object.isNull());
    }

    void refusedRunReadsSendsAndPublishesNothing_data() { addCommands(); }
    void refusedRunReadsSendsAndPublishesNothing()
    {
        RecordingOrder order;
        order.accepts = false;
        const QSharedPointer<ICommand> fresh = prototype()->createCommand(runParameters());
        fresh->linkWithItsOrder(&order);
        QVERIFY(!fresh->commandExecute());
        QVERIFY(order.events().isEmpty());
    }

    void commandWithoutOrderIsRefused_data() { addCommands(); }
    void commandWithoutOrderIsRefused()
    {
        const QSharedPointer<ICommand> fresh = prototype()->createCommand(runParameters());
        QVERIFY(!fresh->commandExecute());
    }

    void finishWithoutARunEndsNothingAndKeepsOk_data() { addCommands(); }
    void finishWithoutARunEndsNothingAndKeepsOk()
    {
        for (const bool given : {true, false}) {
            RecordingOrder order;
            const QSharedPointer<ICommand> fresh = prototype()->createCommand(runParameters());
            fresh->linkWithItsOrder(&order);
            bool ok = given;
            QVERIFY(!fresh->finishTheCommand(ok));
            QCOMPARE(ok, given);
            QVERIFY(order.ends().isEmpty());
            QVERIFY(order.events(OrderEvent::Kind::Stop).isEmpty());
        }
    }

    void finishWithNothingOpenEndsTheRunWithTheGivenOk_data() { addCommands(); }
    void finishWithNothingOpenEndsTheRunWithTheGivenOk()
    {
        for (const bool given : {true, false}) {
            RecordingOrder order;
            order.refusesInstructions = true; // so that nothing is open
            const QSharedPointer<ICommand> fresh = prototype()->createCommand(runParameters());
            fresh->linkWithItsOrder(&order);
            fresh->commandExecute();
            if (!order.ends().isEmpty()) {
                continue; // it has ended by itself
            }
            bool ok = given;
            QVERIFY(fresh->finishTheCommand(ok));
            QCOMPARE(ok, given);
            QCOMPARE(order.ends(), QVector<bool>{given});
            QVERIFY(order.events(OrderEvent::Kind::Stop).isEmpty());
        }
    }
};

QTEST_GUILESS_MAIN(TestCommands)
#include "tst_commands.moc"
