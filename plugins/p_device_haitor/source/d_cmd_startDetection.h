#pragma once

#include <lib_plugins_management/d_abstract_command.h>

#include "found_devices.h"
#include "frame_sender.h"
#include "line_receiver.h"
#include "subscription.h"

/// "startDetection": lets the dongle scan and publishes the wrenches heard so far, until "stopListening" ends it.
///
///     idle --execute, ATS--> scanning --the driver has written ATS, subscribe--> listening --finish, ATH--> idle
///
/// There is no failure: an absent dongle gives no list that grows.
class DCmdStartDetection : public DAbstractCommand
{
    Q_OBJECT

public:
    DCmdStartDetection(const QMap<QString, QVariant>& parameters, QObject* parent);
    explicit DCmdStartDetection(QObject* parent);

    bool commandExecute() override;
    bool finishTheCommand(bool& ok) override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private:
    bool onScanWritten(quint64 instructionId, const QMap<QString, QVariant>& reply);
    bool onReply(quint64 instructionId, const QMap<QString, QVariant>& reply);

    FrameSender m_sender{*this};
    Subscription m_subscription;
    LineReceiver m_receiver{LineReceiver::Repeats::Accepted, LineReceiver::Content::Text};
    FoundDevices m_found;
};
