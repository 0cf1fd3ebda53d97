#include <lib_plugins_management/host/d_router.h>

#include <algorithm>
#include <exception>

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/d_instance_registry.h>
#include <lib_plugins_management/host/d_order.h>

#include "d_abstract_command_p.h"
#include "d_abstract_plugin_p.h"
#include "logging.h"
#include "stop_runs_command.h"

namespace {

const QMap<QString, QVariant>& failure()
{
    static const QMap<QString, QVariant> reply{{QStringLiteral("cmd_success"), false}};
    return reply;
}

/// Null, with a line in the log, when the plugin fails to make the command.
QSharedPointer<ICommand> makeRun(const DAbstractCommand& prototype, const QMap<QString, QVariant>& parameters,
                                 const DAbstractPlugin& plugin, RepeatedWarnings& warnings)
{
    QString cause = QStringLiteral("its createCommand() returns none");
    try {
        QSharedPointer<ICommand> run = prototype.createCommand(parameters);
        if (dynamic_cast<DAbstractCommand*>(run.data()) != nullptr) {
            return run;
        }
    } catch (const std::exception& error) {
        cause = QString::fromUtf8(error.what());
    }
    warnings.warn(QStringLiteral("%1 makes no command \"%2\" (%3); ask the plugin's maker for a mended one")
                      .arg(plugin.getDebugIdentification(), prototype.commandName(), cause));
    return {};
}

} // namespace

QString DRouter::Instruction::describe() const
{
    return QStringLiteral("%1: the instruction \"%2\" to \"%3\", sent by \"%4\"")
        .arg(senderDevice, instruction.command, instruction.target, senderName);
}

DRouter::DRouter(Clock& clock, const DInstanceRegistry& registry, QObject* parent)
    : QObject(parent), m_clock(clock), m_registry(registry), m_warnings(clock, lcPluginsManagement)
{}

DRouter::~DRouter()
{
    // Without the host no run goes on, whoever holds its order.
    const QList<DOrder*> orders = m_orders;
    for (DOrder* order : orders) {
        order->drop(DOrder::Outcome::Gone);
        order->m_plugin = nullptr;
        if (!order->m_endIsAnnounced) {
            QMetaObject::invokeMethod(order, &DOrder::sigFinished, Qt::QueuedConnection);
        }
    }
    for (const Instruction& instruction : qAsConst(m_instructions)) {
        m_clock.cancel(instruction.limit);
    }
}

std::unique_ptr<DOrder> DRouter::createOrder(DAbstractPlugin& plugin, const QString& command,
                                             const QMap<QString, QVariant>& parameters)
{
    const DAbstractPluginPrivate& table = *DAbstractPluginPrivate::get(plugin);
    QSharedPointer<ICommand> run;
    if (const DAbstractCommand* prototype = table.prototype(command)) {
        run = makeRun(*prototype, parameters, plugin, m_warnings);
    } else if (table.isStopCommand(command)) {
        run = StopRunsCommand::create(command, *this, plugin);
    }
    return run.isNull() ? nullptr : std::make_unique<DOrder>(*this, plugin, std::move(run));
}

int DRouter::stopRuns(const DAbstractPlugin& plugin, const QString& stopCommand)
{
    QList<QPointer<DOrder>> stopped; // guarded: the end of one run may delete the order of another
    for (DOrder* order : qAsConst(m_orders)) {
        if (order->plugin() == &plugin && order->stopCommandName() == stopCommand &&
            order->state() != DOrder::State::Waiting && order->state() != DOrder::State::Ended) {
            stopped.append(order);
        }
    }
    for (const QPointer<DOrder>& order : qAsConst(stopped)) {
        if (!order.isNull()) {
            order->stop();
        }
    }
    return stopped.size();
}

void DRouter::pluginDestroyed(const DAbstractPlugin& plugin)
{
    const QList<DOrder*> orders = m_orders;
    for (DOrder* order : orders) {
        if (order->m_plugin == &plugin) {
            order->drop(DOrder::Outcome::Gone);
            order->m_plugin = nullptr;
        }
    }
    const QList<quint64> ids = m_instructions.keys();
    for (const quint64 id : ids) {
        const auto found = m_instructions.find(id);
        if (found == m_instructions.end() || found->target != &plugin) {
            continue;
        }
        found->target = nullptr;
        if (found->run.isNull()) {
            m_turns.post([this, id] { targetGone(id); }); // otherwise the end of its run tells
        }
    }
}

quint64 DRouter::enterOrder(DOrder& order)
{
    m_orders.append(&order);
    return ++m_lastOrderId;
}

void DRouter::leaveOrder(DOrder& order)
{
    m_orders.removeAll(&order);
}

void DRouter::later(DOrder& order, DTurnQueue::Action action)
{
    m_turns.post(order, std::move(action));
}

quint64 DRouter::addInstruction(DOrder& sender, const DInstruction& instruction)
{
    DAbstractPlugin* plugin = sender.plugin();
    DAbstractPlugin* target = plugin == nullptr ? nullptr : m_registry.resolve(*plugin, instruction.target);
    const QString device = plugin == nullptr ? QString() : plugin->getDebugIdentification();
    Instruction added{instruction, &sender, target, nullptr, 0, device, sender.commandName()};
    if (target == nullptr) {
        m_warnings.warn(QStringLiteral("%1 is refused: there is no such target; load it, or link the driver")
                            .arg(added.describe()));
        return 0;
    }
    const DAbstractPluginPrivate& table = *DAbstractPluginPrivate::get(*target);
    if (table.prototype(instruction.command) == nullptr && !table.isStopCommand(instruction.command)) {
        m_warnings.warn(QStringLiteral("%1 is refused: %2 has no such command, it has: %3")
                            .arg(added.describe(), target->getDebugIdentification(),
                                 target->getFunctions(true).join(QStringLiteral(", "))));
        return 0;
    }
    const quint64 id = ++m_lastInstructionId;
    added.limit =
        m_clock.callAfter(instruction.limitMs, [this, id] { m_turns.post([this, id] { limitReached(id); }); });
    m_instructions.insert(id, added);
    m_turns.post([this, id] { startInstruction(id); });
    return id;
}

bool DRouter::stopInstruction(const DOrder& sender, quint64 id)
{
    const auto found = m_instructions.constFind(id);
    if (found == m_instructions.constEnd() || found->sender != &sender) {
        return false;
    }
    close(id);
    return true;
}

void DRouter::closeInstructions(const DOrder& sender)
{
    const QList<quint64> ids = m_instructions.keys();
    for (const quint64 id : ids) {
        const auto found = m_instructions.find(id);
        if (found == m_instructions.end() || found->sender != &sender) {
            continue;
        }
        if (found->instruction.isSubscription()) {
            close(id);
        } else {
            found->sender = nullptr; // still done, but nobody hears of it
        }
    }
}

bool DRouter::hasInstructions(const DOrder& sender) const
{
    return std::any_of(m_instructions.cbegin(), m_instructions.cend(),
                       [&](const Instruction& each) { return each.sender == &sender; });
}

void DRouter::startInstruction(quint64 id)
{
    const auto found = m_instructions.find(id);
    if (found == m_instructions.end() || found->target == nullptr) {
        return; // stopped before it began, or about to be answered
    }
    std::unique_ptr<DOrder> created =
        createOrder(*found->target, found->instruction.command, found->instruction.parameters);
    if (created == nullptr) {
        fail(id);
        return;
    }
    DOrder* run = created.release();
    run->setParent(this);
    found->run = run;
    const bool lasting = found->instruction.isSubscription();
    connect(run, &DOrder::sigFinished, this, [this, id, run] {
        run->deleteLater();
        runFinished(id);
    });
    if (lasting) {
        connect(run, &DOrder::sigResultsPublished, this, [this, id](const QMap<QString, QVariant>& values) {
            const auto open = m_instructions.constFind(id);
            if (open != m_instructions.constEnd() && !open->sender.isNull()) {
                open->sender->reply(id, values); // may change the map
            }
        });
    }
    const QPointer<DRouter> self(this);
    run->m_state = DOrder::State::Queued;
    run->execute();
    if (lasting && !self.isNull()) {
        subscriptionOpened(id);
    }
}

void DRouter::subscriptionOpened(quint64 id)
{
    const auto opened = m_instructions.find(id); // the run may have closed it
    if (opened != m_instructions.end() && opened->run->outcome() != DOrder::Outcome::Refused) {
        m_clock.cancel(opened->limit);
        opened->limit = 0; // from now on silence is no error
    }
}

void DRouter::runFinished(quint64 id)
{
    const auto found = m_instructions.constFind(id);
    if (found == m_instructions.constEnd()) {
        return; // stopped, or answered by its limit: nobody's
    }
    const DOrder& run = *found->run;
    if (run.outcome() == DOrder::Outcome::Refused) {
        fail(id);
        return;
    }
    if (run.outcome() == DOrder::Outcome::Gone) {
        targetGone(id);
        return;
    }
    const QMap<QString, QVariant> results = run.results();
    const Instruction ended = close(id);
    if (!ended.instruction.isSubscription() && !ended.sender.isNull()) {
        ended.sender->reply(id, results);
    }
}

void DRouter::limitReached(quint64 id)
{
    const auto found = m_instructions.constFind(id);
    if (found != m_instructions.constEnd() && found->limit != 0) {
        m_warnings.warn(QStringLiteral("%1 had no answer within its limit of %2 ms")
                            .arg(found->describe(), QString::number(found->instruction.limitMs)));
        fail(id);
    }
}

void DRouter::targetGone(quint64 id)
{
    const auto found = m_instructions.constFind(id);
    if (found == m_instructions.constEnd()) {
        return;
    }
    m_warnings.warn(QStringLiteral("%1 is over: its target is gone").arg(found->describe()));
    const bool isOpen = found->limit == 0;
    if (isOpen) {
        close(id); // an open subscription just falls silent: it only ever carries what was published
    } else {
        fail(id);
    }
}

void DRouter::fail(quint64 id)
{
    if (!m_instructions.contains(id)) {
        return;
    }
    const Instruction failed = close(id);
    if (!failed.sender.isNull()) {
        failed.sender->reply(id, failure());
    }
}

DRouter::Instruction DRouter::close(quint64 id)
{
    Instruction closed = m_instructions.take(id);
    m_clock.cancel(closed.limit);
    if (!closed.run.isNull() && closed.run->state() != DOrder::State::Ended) {
        later(*closed.run, [run = closed.run] { run->stop(); });
    }
    return closed;
}
