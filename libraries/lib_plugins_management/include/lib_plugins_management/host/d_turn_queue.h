#pragma once

#include <QObject>
#include <QPointer>

#include <deque>
#include <functional>

#include <lib_plugins_management/export.h>

/// Actions for a later turn of the event loop, done in the order in which they were posted. Everything that the host
/// delivers goes through one such queue, so nothing is ever called back from inside a call.
///
/// What is posted while a turn runs waits for the next one, and a turn that has lasted 8 ms gives way to the rest of
/// the event loop: half a frame of a 60 Hz display. An event loop inside an action goes on with the rest of the turn.
/// An action may destroy the queue; what is left is then forgotten.
class LIB_PLUGINS_MANAGEMENT_EXPORT DTurnQueue : public QObject
{
    Q_OBJECT

public:
    using Action = std::function<void()>;

    explicit DTurnQueue(QObject* parent = nullptr);

    void post(Action action);
    /// Forgotten when the receiver is gone by then.
    void post(QObject& receiver, Action action);

protected:
    bool event(QEvent* event) override;

private:
    struct Entry
    {
        Action action;
        bool hasReceiver;
        QPointer<QObject> receiver;
    };

    void append(Entry entry);
    void wakeUp();

    std::deque<Entry> m_entries;
    bool m_isWoken = false;
};
