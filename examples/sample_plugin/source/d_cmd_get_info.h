#pragma once

#include <lib_plugins_management/d_abstract_command.h>

/// "getInfo": says who the device is; answers at once.
class DCmdGetInfo : public DAbstractCommand
{
    Q_OBJECT

public:
    DCmdGetInfo(const QMap<QString, QVariant>& parameters, QObject* parent);

    bool commandExecute() override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;
};
