#pragma once

#include <QHash>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QVariant>

#include <memory>

#include <lib_plugins_management/export.h>
#include <lib_plugins_management/host/d_turn_queue.h>
#include <lib_plugins_management/host/i_order.h>
#include <lib_utilities/clock.h>
#include <lib_utilities/repeated_warnings.h>

class DAbstractPlugin;
class DInstanceRegistry;
class DOrder;

/// Takes instructions from running commands to their targets and the replies back.
///
/// - Nothing is delivered from inside a call: targets run, and replies come, in later turns of the event loop, in the
///   order in which they were produced.
/// - Without "subscription" an instruction has exactly one reply: the results of the target's run when it ends, or
///   {"cmd_success": false} when the target refuses, is gone, or has not answered within the limit. With it, one reply
///   for each result that the target publishes; the limit covers the opening only.
/// - An answer that nobody waits for any more is dropped: ids are never used twice.
/// - When a run ends, its subscriptions are closed; what it has only asked to be done (a last frame) is still done.
class LIB_PLUGINS_MANAGEMENT_EXPORT DRouter : public QObject
{
    Q_OBJECT

public:
    /// Clock and registry outlive the router.
    DRouter(Clock& clock, const DInstanceRegistry& registry, QObject* parent = nullptr);
    ~DRouter() override;

    /// An order for a command of the plugin, or for a stop command; null when it has none of that name.
    std::unique_ptr<DOrder> createOrder(DAbstractPlugin& plugin, const QString& command,
                                        const QMap<QString, QVariant>& parameters);
    /// Stops the running commands of the plugin that name that stop command. Returns how many.
    int stopRuns(const DAbstractPlugin& plugin, const QString& stopCommand);
    /// The plugin is being destroyed: its runs end, and who waits for it is answered.
    void pluginDestroyed(const DAbstractPlugin& plugin);

    Clock& clock() const { return m_clock; }

private:
    friend class DOrder;

    struct Instruction
    {
        DInstruction instruction;
        QPointer<DOrder> sender;           // null: the sender's run has ended, nobody wants the reply
        DAbstractPlugin* target = nullptr; // null: gone
        QPointer<DOrder> run;              // of the target's command; null: not started
        Clock::TimerId limit = 0;          // 0: an open subscription, which has none
        QString senderDevice;
        QString senderName;

        QString describe() const;
    };

    quint64 enterOrder(DOrder& order);
    void leaveOrder(DOrder& order);
    /// Does the action in a later turn, unless the order is gone by then.
    void later(DOrder& order, DTurnQueue::Action action);

    quint64 addInstruction(DOrder& sender, const DInstruction& instruction);
    bool stopInstruction(const DOrder& sender, quint64 id);
    void closeInstructions(const DOrder& sender);
    bool hasInstructions(const DOrder& sender) const;

    void startInstruction(quint64 id);
    void subscriptionOpened(quint64 id);
    void runFinished(quint64 id);
    void limitReached(quint64 id);
    void targetGone(quint64 id);
    /// Answers {"cmd_success": false}.
    void fail(quint64 id);
    /// Forgets the instruction, ends the target's run, and hands back what there was.
    Instruction close(quint64 id);

    Clock& m_clock;
    const DInstanceRegistry& m_registry;
    RepeatedWarnings m_warnings;
    DTurnQueue m_turns;
    QList<DOrder*> m_orders;
    QMap<quint64, Instruction> m_instructions; // by id: ascending, so in the order in which they were added
    quint64 m_lastOrderId = 0;
    quint64 m_lastInstructionId = 0;
};
