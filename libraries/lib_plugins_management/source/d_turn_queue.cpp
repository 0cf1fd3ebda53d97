#include <lib_plugins_management/host/d_turn_queue.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QPointer>

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
    m_actions.push_back(std::move(action));
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
    for (std::size_t due = m_actions.size(); due > 0 && !m_actions.empty(); --due) {
        // Taken out first: the action may post others, run a loop of its own, or destroy the queue.
        const Action action = std::move(m_actions.front());
        m_actions.pop_front();
        if (!m_actions.empty()) {
            wakeUp(); // an event loop inside the action goes on with the rest
        }
        action();
        if (self.isNull()) {
            return true;
        }
        if (turn.elapsed() >= c_turnBudgetMs) {
            break;
        }
    }
    if (!m_actions.empty()) {
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
