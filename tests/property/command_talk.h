#pragma once

#include <QSharedPointer>

#include "naive_talk.h"
#include "p_device_haitor.h"
#include "recording_order.h"

class ICommand;

/// A command of the plugin, run by an order that notes what it does, on replies that a test makes up. One plugin serves
/// for many talks, one after the other: each begins with the properties of its set-up, and with no others.
class CommandTalk
{
public:
    /// The plugin outlives the talk.
    CommandTalk(PDeviceHaitor& plugin, const TalkSetUp& setUp);

    void start();
    /// A reply of the driver; one that nobody listens to is dropped, as the host does it.
    void arrive(const QVariantMap& reply);

    bool isListening() const { return m_order.openSubscription() != 0; }
    /// The text of the frame written last; empty: none was.
    QString lastFrame() const { return m_lastFrame; }
    TalkOutcome outcome() const;

    /// The run that the set-up asks for, and the naive one, on the same replies.
    static TalkOutcome play(PDeviceHaitor& plugin, const TalkSetUp& setUp, const QVector<QVariantMap>& replies);
    static TalkOutcome playNaively(const TalkSetUp& setUp, const QVector<QVariantMap>& replies);

private:
    void noteFrames();

    RecordingOrder m_order;
    PDeviceHaitor& m_plugin;
    QSharedPointer<ICommand> m_command;
    QString m_lastFrame;
    int m_eventsSeen = 0;
};
