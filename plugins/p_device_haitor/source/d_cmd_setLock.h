#pragma once

#include <lib_plugins_management/d_abstract_command.h>

class PDeviceHaitor;

/// "setLock": locks or unlocks the tool. It ends with the driver's word that the frame has left, not with the wrench's
/// answer.
class DCmdSetLock : public DAbstractCommand
{
    Q_OBJECT

public:
    DCmdSetLock(const QMap<QString, QVariant>& parameters, QObject* parent);
    explicit DCmdSetLock(QObject* parent);

    bool commandExecute() override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private:
    bool onReply(quint64 instructionId, const QMap<QString, QVariant>& reply);

    PDeviceHaitor* m_plugin = nullptr;
};
