#pragma once

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

/// Work for the thread that this object lives in: done there, from its event loop, in the order of posting. What was
/// not done when it is destroyed is forgotten. What is handed over is guarded by a lock of its own, for that of Qt's
/// event queue is not seen by the thread sanitizer.
class Mailbox : public QObject
{
    Q_OBJECT

public:
    using Work = std::function<void()>;

    explicit Mailbox(QObject* parent = nullptr);
    ~Mailbox() override;

    /// From any thread, while it is there.
    void post(Work work);

private Q_SLOTS:
    void deliver();

private:
    std::mutex m_mutex;
    std::deque<Work> m_posted;
};
