#include "d_cmd_get_info.h"

#include <lib_plugins_management/d_abstract_plugin.h>

DCmdGetInfo::DCmdGetInfo(const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(QStringLiteral("getInfo"), parameters, parent)
{
    setDescription(QStringLiteral("Say who the device is"));
    declareAResult(QStringLiteral("name"), QStringLiteral("strg"), QStringLiteral("Name of the device"), QString());
}

bool DCmdGetInfo::commandExecute()
{
    if (!DAbstractCommand::commandExecute()) {
        return false;
    }
    const auto* plugin = qobject_cast<DAbstractPlugin*>(parent());
    if (plugin == nullptr) {
        return false;
    }
    commandUpdateResult(QStringLiteral("name"), plugin->getName());
    bool ok = true;
    return commandFinish(ok);
}

QSharedPointer<ICommand> DCmdGetInfo::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return QSharedPointer<DCmdGetInfo>(new DCmdGetInfo(parameters, parent()));
}
