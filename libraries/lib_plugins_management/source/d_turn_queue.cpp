#include <lib_plugins_management/host/d_turn_queue.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>

#include <utility>

namespace {

constexpr qint64 c_turnBudgetMs = 8;

QEvent::Type turnEvent()
{
    static const auto type = QEvent::Type(QEvent::registerEventType());
    return type;
}

} // namespace

DTurnQueue::DTurnQueue(QObject* parent) : QObject(parent) {}

void DTurnQueue::post(Action action)
{
    append({std::move(action), false, nullptr});
}

void DTurnQueue::post(QObject& receiver, Action action)
{
    append({std::move(action), true, &receiver});
}

void DTurnQueue::append(Entry entry)
{
    m_entries.push_back(std::move(entry));
    wakeUp();
}

bool DTurnQueue::event(QEvent* event)
{
    if (event->type() != turnEvent()) {
        return QObject::event(event);
    }
    m_isWoken = false;
    const QPointer<DTurnQueue> self(this);
    QElapsedTimer turn;
    turn.start();
    for (std::size_t due = m_entries.size(); due > 0 && !m_entries.empty(); --due) {
        // Taken out first: the action may post others, run a loop of its own, or destroy the queue.
        const Entry entry = std::move(m_entries.front());
        m_entries.pop_front();
        if (entry.hasReceiver && entry.receiver.isNull()) {
            continue;
        }
        if (!m_entries.empty()) {
            wakeUp(); // an event loop inside the action goes on with the rest
        }
        entry.action();
        if (self.isNull()) {
            return true;
        }
        if (turn.elapsed() >= c_turnBudgetMs) {
            break;
        }
    }
    if (!m_entries.empty()) {
        wakeUp();
    }
    return true;
}

void DTurnQueue::wakeUp()
{
    if (!m_isWoken) {
        m_isWoken = true;
        QCoreApplication::postEvent(this, new QEvent(turnEvent()));
    }
}
