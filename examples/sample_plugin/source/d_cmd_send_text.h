#pragma once

#include <lib_plugins_management/d_abstract_command.h>

/// "sendText": sends one line of text through the driver and waits until it has left.
class DCmdSendText : public DAbstractCommand
{
    Q_OBJECT

public:
    DCmdSendText(const QMap<QString, QVariant>& parameters, QObject* parent);

    bool commandExecute() override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private:
    bool onWritten(quint64 instructionId, const QMap<QString, QVariant>& reply);
};
