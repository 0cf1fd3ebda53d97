#pragma once

#include <lib_plugins_management/d_abstract_command.h>

/// "setKeepAliveFonction": hands the driver a frame to send on a silent line and the answer expected to it.
class DCmdSetKeepAliveFonction : public DAbstractCommand
{
    Q_OBJECT

public:
    DCmdSetKeepAliveFonction(const QMap<QString, QVariant>& parameters, QObject* parent);
    explicit DCmdSetKeepAliveFonction(QObject* parent);

    bool commandExecute() override;
    bool finishTheCommand(bool& ok) override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private:
    bool onReply(quint64 instructionId, const QMap<QString, QVariant>& reply);
};
