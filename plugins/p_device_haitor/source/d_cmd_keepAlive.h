#pragma once

#include <lib_plugins_management/d_abstract_command.h>

/// "setKeepAlive": probes the wrench once, without waiting for its answer, when the caller names a serial id.
class DCmdKeepAlive : public DAbstractCommand
{
    Q_OBJECT

public:
    DCmdKeepAlive(const QMap<QString, QVariant>& parameters, QObject* parent);
    explicit DCmdKeepAlive(QObject* parent);

    bool commandExecute() override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;
};
