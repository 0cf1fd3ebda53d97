#pragma once

#include <lib_plugins_management/d_abstract_command.h>

#include "frame_sender.h"
#include "line_receiver.h"
#include "subscription.h"

class PDeviceHaitor;

/// "sendInitConfig": brings a freshly linked wrench into its working state, frame by frame, each only after the wrench
/// has acknowledged the one before. The plugin's property "lock" follows the wrench on the way.
///
///     idle --execute, lock := false, DT:1--> locking --OK:1, lock := true, SC:TL:2--> configuring
///          --OK:2, RE:1--> enabling results --OK:1--> succeeded
///
/// Any line with ERR in it leads to failed; every other line is ignored. No timer: a silent wrench is waited for until
/// the host ends the run.
class DCmdSendInitConfig : public DAbstractCommand
{
    Q_OBJECT

public:
    DCmdSendInitConfig(const QMap<QString, QVariant>& parameters, QObject* parent);
    explicit DCmdSendInitConfig(QObject* parent);

    bool commandExecute() override;
    bool finishTheCommand(bool& ok) override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private:
    bool onReply(quint64 instructionId, const QMap<QString, QVariant>& reply);
    bool onLine(const QString& line);
    bool finish();

    FrameSender m_sender{*this};
    Subscription m_subscription;
    LineReceiver m_receiver{LineReceiver::Repeats::Dropped, LineReceiver::Content::Text};
    PDeviceHaitor* m_plugin = nullptr; // the parent
};
