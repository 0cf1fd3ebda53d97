#pragma once

#include <QObject>
#include <QVector>

#include <functional>

#include <lib_plugins_management/host/i_order.h>

/// One thing that a command did to its order.
struct OrderEvent
{
    enum class Kind { Instruction, Stop, Results, End };

    Kind kind;
    quint64 instructionId = 0;        // Instruction (0: refused), Stop
    DInstruction instruction = {};    // Instruction
    QMap<QString, QVariant> values{}; // Results: of one call
    bool ok = false;                  // Stop: what the command was told; End: what it told
};

/// An order that runs nothing: it notes what the command does, in order. Link it with ICommand::linkWithItsOrder().
class RecordingOrder : public QObject, public IOrder
{
public:
    // Switches.
    bool accepts = true;              // acceptsRun()
    bool refusesInstructions = false; // addInstruction() gives 0, and notes the instruction with that id
    bool stopsSucceed = true;         // stopInstruction() of an open instruction gives true
    /// Called before each event is noted; empty: nobody is.
    std::function<void()> beforeEvent;

    const QVector<OrderEvent>& events() const { return m_events; }
    QVector<OrderEvent> events(OrderEvent::Kind kind) const;

    /// Instructions in the order sent, the refused ones too.
    QVector<DInstruction> instructions() const;
    /// Id of the index-th instruction; negative: from the end.
    quint64 instructionId(int index) const;
    /// Id of the subscription opened last and still open; 0: none.
    quint64 openSubscription() const;
    /// Ids of all subscriptions still open, in the order of opening.
    QVector<quint64> openSubscriptions() const;
    /// What each call published, in order.
    QVector<QMap<QString, QVariant>> published() const;
    /// The last value published under a name; invalid: none.
    QVariant lastResult(const QString& name) const;
    /// The ok flag of each end of a run.
    QVector<bool> ends() const;
    void forgetEvents() { m_events.clear(); }

    quint64 orderId() const override { return 1; }
    bool acceptsRun() const override { return accepts; }
    quint64 addInstruction(const DInstruction& instruction) override;
    bool stopInstruction(quint64 instructionId) override;
    void resultsPublished(const QMap<QString, QVariant>& values) override;
    void runFinished(bool ok) override;

private:
    void note(const OrderEvent& event);

    QVector<OrderEvent> m_events;
    QVector<quint64> m_openSubscriptions;
    quint64 m_lastId = 0;
};
