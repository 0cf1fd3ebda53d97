#include <QTest>

#include <cstring>

#include <lib_plugins_management/d_abstract_command.h>
#include <lib_plugins_management/d_abstract_plugin.h>

namespace {

/// The place of a virtual member in the table of its class, counted from 0; -1 when it is not virtual. A pointer to a
/// virtual member holds 1 plus its offset in the table.
template <class Member>
int slot(Member member)
{
    static_assert(sizeof(member) == 2 * sizeof(std::ptrdiff_t));
    std::ptrdiff_t fields[2] = {};
    std::memcpy(fields, &member, sizeof(member));
    const bool isVirtual = (fields[0] & 1) != 0;
    return isVirtual ? int(fields[0] / std::ptrdiff_t(sizeof(void*))) : -1;
}

constexpr int c_destructors = 2; // a virtual destructor takes two places
constexpr int c_qObject = 12;    // and QObject's members take twelve

using Get = QVariant (IPlugin::*)(const QString&, bool*) const;
using GetOr = QVariant (IPlugin::*)(const QString&, const QVariant&) const;
using AbstractGet = QVariant (DAbstractPlugin::*)(const QString&, bool*) const;
using AbstractGetOr = QVariant (DAbstractPlugin::*)(const QString&, const QVariant&) const;

/// The places that follow each other from the first one on.
QList<int> placesFollowing(int first, int count)
{
    QList<int> places;
    for (int i = 0; i < count; ++i) {
        places.append(first + i);
    }
    return places;
}

} // namespace

/// The order of the virtual members is part of the face: a plugin binary calls them by their places.
class TstVirtualMembers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void orderInIPlugin();
    void orderInDAbstractPlugin();
    void orderInICommand();
    void orderInDAbstractCommand();
    void setPropertyIsNotVirtual();
};

void TstVirtualMembers::orderInIPlugin()
{
    const QList<int> places{slot(&IPlugin::objectUuid),
                            slot(&IPlugin::getName),
                            slot(&IPlugin::pluginUuid),
                            slot(&IPlugin::pluginName),
                            slot(&IPlugin::pluginVersion),
                            slot(&IPlugin::pluginType),
                            slot(&IPlugin::compatiblePlugins),
                            slot(&IPlugin::compatibilityString),
                            slot(static_cast<Get>(&IPlugin::getProperty)),
                            slot(static_cast<GetOr>(&IPlugin::getProperty)),
                            slot(&IPlugin::setMainConfig),
                            slot(&IPlugin::getInMainConfig),
                            slot(&IPlugin::getInPluginConfig),
                            slot(&IPlugin::getDebugIdentification),
                            slot(&IPlugin::createInstance),
                            slot(&IPlugin::pluginSubTypeName),
                            slot(&IPlugin::getFunctions),
                            slot(&IPlugin::getFunctionDescription),
                            slot(&IPlugin::getCommandParameters),
                            slot(&IPlugin::getMainConfig),
                            slot(&IPlugin::setInPluginConfig),
                            slot(&IPlugin::setInMainConfig)};
    QCOMPARE(places, placesFollowing(c_destructors, 22));
}

void TstVirtualMembers::orderInDAbstractPlugin()
{
    const QList<int> places{slot(&DAbstractPlugin::objectUuid),
                            slot(&DAbstractPlugin::getName),
                            slot(&DAbstractPlugin::pluginUuid),
                            slot(&DAbstractPlugin::pluginName),
                            slot(&DAbstractPlugin::pluginVersion),
                            slot(&DAbstractPlugin::pluginType),
                            slot(&DAbstractPlugin::compatiblePlugins),
                            slot(&DAbstractPlugin::compatibilityString),
                            slot(static_cast<AbstractGet>(&DAbstractPlugin::getProperty)),
                            slot(static_cast<AbstractGetOr>(&DAbstractPlugin::getProperty)),
                            slot(&DAbstractPlugin::getFunctions),
                            slot(&DAbstractPlugin::getFunctionDescription),
                            slot(&DAbstractPlugin::getCommandParameters),
                            slot(&DAbstractPlugin::setMainConfig),
                            slot(&DAbstractPlugin::getInMainConfig),
                            slot(&DAbstractPlugin::getInPluginConfig),
                            slot(&DAbstractPlugin::getDebugIdentification),
                            slot(&DAbstractPlugin::getMainConfig),
                            slot(&DAbstractPlugin::setInPluginConfig),
                            slot(&DAbstractPlugin::setInMainConfig),
                            slot(&DAbstractPlugin::initPluginCommands),
                            slot(&DAbstractPlugin::createInstance),
                            slot(&DAbstractPlugin::pluginSubTypeName)};
    QCOMPARE(places, placesFollowing(c_qObject, 23));
}

void TstVirtualMembers::orderInICommand()
{
    const QList<int> places{
        slot(&ICommand::createCommand),   slot(&ICommand::linkWithItsOrder), slot(&ICommand::commandName),
        slot(&ICommand::stopCommandName), slot(&ICommand::getOrderId),       slot(&ICommand::getParameterOrderId),
        slot(&ICommand::isRecurrent),     slot(&ICommand::isValid),          slot(&ICommand::description),
        slot(&ICommand::fullDescription), slot(&ICommand::commandArguments), slot(&ICommand::commandExecute),
        slot(&ICommand::setReply),        slot(&ICommand::finishTheCommand), slot(&ICommand::sigCommandFinished)};
    QCOMPARE(places, placesFollowing(0, 15));
}

void TstVirtualMembers::orderInDAbstractCommand()
{
    const QList<int> places{slot(&DAbstractCommand::linkWithItsOrder),
                            slot(&DAbstractCommand::commandName),
                            slot(&DAbstractCommand::stopCommandName),
                            slot(&DAbstractCommand::getOrderId),
                            slot(&DAbstractCommand::getParameterOrderId),
                            slot(&DAbstractCommand::isRecurrent),
                            slot(&DAbstractCommand::isValid),
                            slot(&DAbstractCommand::description),
                            slot(&DAbstractCommand::fullDescription),
                            slot(&DAbstractCommand::commandArguments),
                            slot(&DAbstractCommand::commandExecute),
                            slot(&DAbstractCommand::setReply),
                            slot(&DAbstractCommand::finishTheCommand),
                            slot(&DAbstractCommand::sigCommandFinished),
                            slot(&DAbstractCommand::addInstruction),
                            slot(&DAbstractCommand::createCommand)};
    QCOMPARE(places, placesFollowing(c_qObject, 16));
}

void TstVirtualMembers::setPropertyIsNotVirtual()
{
    using Set = bool (DAbstractPlugin::*)(const QString&, const QVariant&, bool);
    QCOMPARE(slot(static_cast<Set>(&DAbstractPlugin::setProperty)), -1);
}

QTEST_GUILESS_MAIN(TstVirtualMembers)
#include "tst_virtual_members.moc"
