#include <QTest>

#include <lib_plugins_management/d_abstract_command.h>

#include <cstring>

#include "p_device_haitor.h"

namespace {

// Where a virtual member stands in the table of its class. A pointer to a virtual member is 1 + its offset in the table
// (Itanium C++ ABI, which GCC and Clang follow on every Linux).
template <class Member>
int slotOf(Member member)
{
    std::size_t words[2] = {};
    static_assert(sizeof(member) == sizeof(words), "a pointer to a member is two words");
    std::memcpy(words, &member, sizeof(member));
    return words[0] % 2 == 1 ? int((words[0] - 1) / sizeof(void*)) : -1;
}

struct Slot
{
    const char* name;
    int slot;
};

constexpr int c_firstAfterQObject = 12; // meta-object (3), destructors (2), events (5), connect notifications (2)

using GetPropertyOk = QVariant (IPlugin::*)(const QString&, bool*) const;
using GetPropertyDefault = QVariant (IPlugin::*)(const QString&, const QVariant&) const;
using OwnGetPropertyOk = QVariant (DAbstractPlugin::*)(const QString&, bool*) const;
using OwnGetPropertyDefault = QVariant (DAbstractPlugin::*)(const QString&, const QVariant&) const;

} // namespace

#define SLOT_OF(Class, member)                                                                                         \
    {                                                                                                                  \
#member, slotOf(&Class::member)                                                                                \
    }

/// The order of the virtual members is what a plugin binary and its host agree on.
class TestClassTables : public QObject
{
    Q_OBJECT

private:
    static void compare(const QVector<Slot>& members, int first)
    {
        for (int i = 0; i < members.size(); ++i) {
            QVERIFY2(members.at(i).slot == first + i, qPrintable(QStringLiteral("%1 is in slot %2 instead of %3")
                                                                     .arg(QString::fromUtf8(members.at(i).name))
                                                                     .arg(members.at(i).slot)
                                                                     .arg(first + i)));
        }
    }

private Q_SLOTS:
    void interfaceOfPlugins()
    {
        const QVector<Slot> members = {
            SLOT_OF(IPlugin, objectUuid),
            SLOT_OF(IPlugin, getName),
            SLOT_OF(IPlugin, pluginUuid),
            SLOT_OF(IPlugin, pluginName),
            SLOT_OF(IPlugin, pluginVersion),
            SLOT_OF(IPlugin, pluginType),
            SLOT_OF(IPlugin, compatiblePlugins),
            SLOT_OF(IPlugin, compatibilityString),
            {"getProperty(ok)", slotOf(GetPropertyOk(&IPlugin::getProperty))},
            {"getProperty(default)", slotOf(GetPropertyDefault(&IPlugin::getProperty))},
            SLOT_OF(IPlugin, setMainConfig),
            SLOT_OF(IPlugin, getInMainConfig),
            SLOT_OF(IPlugin, getInPluginConfig),
            SLOT_OF(IPlugin, getDebugIdentification),
            SLOT_OF(IPlugin, createInstance),
            SLOT_OF(IPlugin, pluginSubTypeName),
            SLOT_OF(IPlugin, getFunctions),
            SLOT_OF(IPlugin, getFunctionDescription),
            SLOT_OF(IPlugin, getCommandParameters),
            SLOT_OF(IPlugin, getMainConfig),
            SLOT_OF(IPlugin, setInPluginConfig),
            SLOT_OF(IPlugin, setInMainConfig),
        };
        compare(members, 2); // behind the two destructors
    }

    void baseOfPlugins()
    {
        const QVector<Slot> members = {
            SLOT_OF(DAbstractPlugin, objectUuid),
            SLOT_OF(DAbstractPlugin, getName),
            SLOT_OF(DAbstractPlugin, pluginUuid),
            SLOT_OF(DAbstractPlugin, pluginName),
            SLOT_OF(DAbstractPlugin, pluginVersion),
            SLOT_OF(DAbstractPlugin, pluginType),
            SLOT_OF(DAbstractPlugin, compatiblePlugins),
            SLOT_OF(DAbstractPlugin, compatibilityString),
            {"getProperty(ok)", slotOf(OwnGetPropertyOk(&DAbstractPlugin::getProperty))},
            {"getProperty(default)", slotOf(OwnGetPropertyDefault(&DAbstractPlugin::getProperty))},
            SLOT_OF(DAbstractPlugin, getFunctions),
            SLOT_OF(DAbstractPlugin, getFunctionDescription),
            SLOT_OF(DAbstractPlugin, getCommandParameters),
            SLOT_OF(DAbstractPlugin, setMainConfig),
            SLOT_OF(DAbstractPlugin, getInMainConfig),
            SLOT_OF(DAbstractPlugin, getInPluginConfig),
            SLOT_OF(DAbstractPlugin, getDebugIdentification),
            SLOT_OF(DAbstractPlugin, getMainConfig),
            SLOT_OF(DAbstractPlugin, setInPluginConfig),
            SLOT_OF(DAbstractPlugin, setInMainConfig),
            SLOT_OF(DAbstractPlugin, initPluginCommands),
            SLOT_OF(DAbstractPlugin, createInstance),
            SLOT_OF(DAbstractPlugin, pluginSubTypeName),
        };
        compare(members, c_firstAfterQObject);
    }

    void interfaceOfCommands()
    {
        const QVector<Slot> members = {
            SLOT_OF(ICommand, createCommand),      SLOT_OF(ICommand, linkWithItsOrder),
            SLOT_OF(ICommand, commandName),        SLOT_OF(ICommand, stopCommandName),
            SLOT_OF(ICommand, getOrderId),         SLOT_OF(ICommand, getParameterOrderId),
            SLOT_OF(ICommand, isRecurrent),        SLOT_OF(ICommand, isValid),
            SLOT_OF(ICommand, description),        SLOT_OF(ICommand, fullDescription),
            SLOT_OF(ICommand, commandArguments),   SLOT_OF(ICommand, commandExecute),
            SLOT_OF(ICommand, setReply),           SLOT_OF(ICommand, finishTheCommand),
            SLOT_OF(ICommand, sigCommandFinished),
        };
        compare(members, 0);
    }

    void baseOfCommands()
    {
        const QVector<Slot> members = {
            SLOT_OF(DAbstractCommand, linkWithItsOrder),
            SLOT_OF(DAbstractCommand, commandName),
            SLOT_OF(DAbstractCommand, stopCommandName),
            SLOT_OF(DAbstractCommand, getOrderId),
            SLOT_OF(DAbstractCommand, getParameterOrderId),
            SLOT_OF(DAbstractCommand, isRecurrent),
            SLOT_OF(DAbstractCommand, isValid),
            SLOT_OF(DAbstractCommand, description),
            SLOT_OF(DAbstractCommand, fullDescription),
            SLOT_OF(DAbstractCommand, commandArguments),
            SLOT_OF(DAbstractCommand, commandExecute),
            SLOT_OF(DAbstractCommand, setReply),
            SLOT_OF(DAbstractCommand, finishTheCommand),
            SLOT_OF(DAbstractCommand, sigCommandFinished),
            SLOT_OF(DAbstractCommand, addInstruction),
            SLOT_OF(DAbstractCommand, createCommand),
        };
        compare(members, c_firstAfterQObject);
    }
};

QTEST_APPLESS_MAIN(TestClassTables)
#include "tst_class_tables.moc"
