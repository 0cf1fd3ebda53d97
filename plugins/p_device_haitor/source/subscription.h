#pragma once

#include <utility>

#include <lib_plugins_management/d_abstract_command.h>

#include "frames.h"

/// The subscription that a command holds open to what arrives on the line. It is stopped once, at the command's end:
///
///     if (m_subscription.isOpen()) {
///         ok = stopTheInstruction(m_subscription.release());
///     }
class Subscription
{
public:
    /// Subscribes and keeps the id. onReply: the command's delegate for what arrives.
    /// An older id is forgotten, not stopped: the host closes at the run's end whatever the run has left open.
    void open(DAbstractCommand& command, ReplyDelegate onReply, const QByteArray& validator = {})
    {
        m_id = command.addInstruction(frames::c_driver, commands::c_listenEventsData,
                                      frames::subscriptionParameters(validator), frames::c_driverLimitMs, onReply);
    }

    bool isOpen() const { return m_id != 0; }

    /// The id, given away: 0 from now on.
    quint64 release() { return std::exchange(m_id, 0); }

private:
    quint64 m_id = 0; // 0: none
};
