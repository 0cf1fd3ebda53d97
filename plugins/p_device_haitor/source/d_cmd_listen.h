#pragma once

#include <lib_plugins_management/d_abstract_command.h>

#include "line_receiver.h"
#include "subscription.h"

class PDeviceHaitor;

/// "listenEventsData": publishes every tightening result of the wrench as one "eventData", until "stopListening".
///
///     RE:F:12.5,1,0,30,1,3,2
///
/// gives the seven fields as texts, just as they stand between the commas; "eventCountNo" (int), the number of the
/// driver's reply in which the line ended; and "progId" (int), the device's current program, where there is a device.
/// All other lines are dropped without a word.
class DCmdListen : public DAbstractCommand
{
    Q_OBJECT

public:
    DCmdListen(const QMap<QString, QVariant>& parameters, QObject* parent);
    explicit DCmdListen(QObject* parent);

    bool commandExecute() override;
    bool finishTheCommand(bool& ok) override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private:
    bool onReply(quint64 instructionId, const QMap<QString, QVariant>& reply);
    void onLine(const QString& line);

    Subscription m_subscription;
    LineReceiver m_receiver{LineReceiver::Repeats::Dropped, LineReceiver::Content::Bytes};
    PDeviceHaitor* m_plugin = nullptr; // null: the command has no device
};
