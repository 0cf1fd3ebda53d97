#pragma once

#include <lib_plugins_management/d_abstract_command.h>

/// "getPresetData": the preset record of one program of the stored list. It speaks with no device.
///
/// Without such a program: a critical line in the log, "cmd_success" false and an empty record.
/// Kept on purpose: the run is not finished here; the host ends it once the results are published.
class DCmdGetPresetData : public DAbstractCommand
{
    Q_OBJECT

public:
    DCmdGetPresetData(const QMap<QString, QVariant>& parameters, QObject* parent);
    explicit DCmdGetPresetData(QObject* parent);

    bool commandExecute() override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;
};
