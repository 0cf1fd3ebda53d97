#pragma once

#include <QByteArray>
#include <QString>

#include <lib_plugins_management/d_abstract_command.h>

/// Writes a command's frames and remembers which one the wrench has to answer.
class FrameSender
{
public:
    /// command: outlives the sender, which is a member of it.
    explicit FrameSender(DAbstractCommand& command) : m_command(command) {}

    /// Sends a frame to the wrench and remembers it. text: without CR LF.
    void send(const QString& text);
    /// The text of the frame last sent with send(), without CR LF; empty for none.
    const QString& lastSent() const { return m_lastSent; }

    /// Writes bytes as they are; the last sent frame stays. onReply: hears whether they have left; empty: nobody does.
    void write(const QByteArray& frame, ReplyDelegate onReply = {}) const;
    /// Stops the dongle's scan or drops its link; the last sent frame stays.
    void hangUp() const;

private:
    void write(const QVariant& frame, ReplyDelegate onReply) const;

    DAbstractCommand& m_command;
    QString m_lastSent;
};
