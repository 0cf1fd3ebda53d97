#include "mailbox.h"

#include <QMetaObject>

#include <utility>

Mailbox::Mailbox(QObject* parent) : QObject(parent) {}

Mailbox::~Mailbox()
{
    // Whoever destroys it has waited for the other thread with means of Qt: the same holds as for the handing over.
    const std::lock_guard<std::mutex> lock(m_mutex);
}

void Mailbox::post(Work work)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_posted.push_back(std::move(work));
    }
    QMetaObject::invokeMethod(this, "deliver", Qt::QueuedConnection); // once for each
}

void Mailbox::deliver()
{
    Work work;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        work = std::move(m_posted.front());
        m_posted.pop_front();
    }
    work(); // it may destroy this
}
