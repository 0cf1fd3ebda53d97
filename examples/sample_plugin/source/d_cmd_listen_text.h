#pragma once

#include <lib_plugins_management/d_abstract_command.h>

/// "listenText": publishes what the device says, as it comes, until "stopListening".
class DCmdListenText : public DAbstractCommand
{
    Q_OBJECT

public:
    DCmdListenText(const QMap<QString, QVariant>& parameters, QObject* parent);

    bool commandExecute() override;
    bool finishTheCommand(bool& ok) override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private:
    bool onHeard(quint64 instructionId, const QMap<QString, QVariant>& reply);

    quint64 m_subscription = 0; // 0: none
};
