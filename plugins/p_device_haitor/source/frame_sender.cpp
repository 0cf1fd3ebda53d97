#include "frame_sender.h"

#include "frames.h"

void FrameSender::send(const QString& text)
{
    m_lastSent = text;
    write(frames::bytesOf(text));
}

void FrameSender::write(const QByteArray& frame, ReplyDelegate onReply) const
{
    write(QVariant(frame), onReply);
}

void FrameSender::hangUp() const
{
    // Kept on purpose: the hang-up goes out as a text, every other frame as bytes.
    write(QVariant(frames::c_hangUp + QLatin1String(frames::c_lineEnd)), {});
}

void FrameSender::write(const QVariant& frame, ReplyDelegate onReply) const
{
    m_command.addInstruction(frames::c_driver, frames::c_write, frames::writeParameters(frame), frames::c_driverLimitMs,
                             onReply);
}
