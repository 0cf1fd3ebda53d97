#pragma once

#include <lib_plugins_management/d_abstract_command.h>

/// "checkSerialId": hands the serial id that the caller gives back as a result.
class DCmdCheckSerialId : public DAbstractCommand
{
    Q_OBJECT

public:
    DCmdCheckSerialId(const QMap<QString, QVariant>& parameters, QObject* parent);
    explicit DCmdCheckSerialId(QObject* parent);

    bool commandExecute() override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;
};
