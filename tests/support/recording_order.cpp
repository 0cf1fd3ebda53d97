#include "recording_order.h"

#include <algorithm>

QVector<OrderEvent> RecordingOrder::events(OrderEvent::Kind kind) const
{
    QVector<OrderEvent> found;
    std::copy_if(m_events.cbegin(), m_events.cend(), std::back_inserter(found),
                 [kind](const OrderEvent& event) { return event.kind == kind; });
    return found;
}

QVector<DInstruction> RecordingOrder::instructions() const
{
    QVector<DInstruction> sent;
    const QVector<OrderEvent> found = events(OrderEvent::Kind::Instruction);
    for (const OrderEvent& event : found) {
        sent.append(event.instruction);
    }
    return sent;
}

quint64 RecordingOrder::instructionId(int index) const
{
    const QVector<OrderEvent> sent = events(OrderEvent::Kind::Instruction);
    return sent.at(index < 0 ? sent.size() + index : index).instructionId;
}

quint64 RecordingOrder::openSubscription() const
{
    return m_openSubscriptions.isEmpty() ? 0 : m_openSubscriptions.last();
}

QVector<quint64> RecordingOrder::openSubscriptions() const
{
    return m_openSubscriptions;
}

QVector<QMap<QString, QVariant>> RecordingOrder::published() const
{
    QVector<QMap<QString, QVariant>> all;
    const QVector<OrderEvent> found = events(OrderEvent::Kind::Results);
    for (const OrderEvent& event : found) {
        all.append(event.values);
    }
    return all;
}

QVariant RecordingOrder::lastResult(const QString& name) const
{
    QVariant last;
    const QVector<QMap<QString, QVariant>> all = published();
    for (const QMap<QString, QVariant>& values : all) {
        last = values.value(name, last);
    }
    return last;
}

QVector<bool> RecordingOrder::ends() const
{
    QVector<bool> all;
    const QVector<OrderEvent> found = events(OrderEvent::Kind::End);
    for (const OrderEvent& event : found) {
        all.append(event.ok);
    }
    return all;
}

quint64 RecordingOrder::addInstruction(const DInstruction& instruction)
{
    OrderEvent event{OrderEvent::Kind::Instruction};
    event.instruction = instruction;
    event.instructionId = refusesInstructions ? 0 : ++m_lastId;
    note(event);
    if (event.instructionId != 0 && instruction.isSubscription()) {
        m_openSubscriptions.append(event.instructionId);
    }
    return event.instructionId;
}

bool RecordingOrder::stopInstruction(quint64 instructionId)
{
    OrderEvent event{OrderEvent::Kind::Stop};
    event.instructionId = instructionId;
    event.ok = m_openSubscriptions.contains(instructionId) && stopsSucceed;
    note(event);
    m_openSubscriptions.removeAll(instructionId);
    return event.ok;
}

void RecordingOrder::resultsPublished(const QMap<QString, QVariant>& values)
{
    OrderEvent event{OrderEvent::Kind::Results};
    event.values = values;
    note(event);
}

void RecordingOrder::runFinished(bool ok)
{
    OrderEvent event{OrderEvent::Kind::End};
    event.ok = ok;
    note(event);
    m_openSubscriptions.clear(); // as the host does: an end closes what the run has left open
}

void RecordingOrder::note(const OrderEvent& event)
{
    if (beforeEvent) {
        beforeEvent();
    }
    m_events.append(event);
}
