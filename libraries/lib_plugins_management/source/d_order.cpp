#include <lib_plugins_management/host/d_order.h>

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/d_router.h>

#include "d_abstract_command_p.h"
#include "logging.h"

IOrder::~IOrder() = default;

DOrder::DOrder(DRouter& router, DAbstractPlugin& plugin, QSharedPointer<ICommand> command, QObject* parent)
    : QObject(parent)
    , m_router(&router)
    , m_plugin(&plugin)
    , m_command(std::move(command))
    , m_commandObject(dynamic_cast<QObject*>(m_command.data()))
    , m_commandName(m_command->commandName())
    , m_stopCommandName(m_command->stopCommandName())
    , m_id(router.enterOrder(*this))
{
    m_command->linkWithItsOrder(this);
    connect(m_commandObject, &QObject::destroyed, this, [this] { drop(Outcome::Gone); });
}

DOrder::~DOrder()
{
    end(Outcome::Stopped);
    drop(Outcome::Stopped); // when it is destroyed while the command is at its end
    if (!m_commandObject.isNull()) {
        disconnect(m_commandObject, nullptr, this, nullptr);
        m_command->linkWithItsOrder(nullptr);
    }
    if (!m_router.isNull()) {
        m_router->leaveOrder(*this);
    }
}

void DOrder::start(int limitMs)
{
    if (m_state != State::Waiting || m_router.isNull()) {
        return;
    }
    m_state = State::Queued;
    m_router->later(*this, [this] { execute(); });
    if (limitMs > 0) {
        // Through the router: what was produced before the limit is delivered before it.
        m_limit = m_router->clock().callAfter(limitMs,
                                              [this] { m_router->later(*this, [this] { end(Outcome::TimedOut); }); });
    }
}

void DOrder::stop()
{
    end(Outcome::Stopped);
}

QMap<QString, QVariant> DOrder::results() const
{
    const DAbstractCommand* running = runningCommand();
    return m_state == State::Ended || running == nullptr ? m_finalResults
                                                         : DAbstractCommandPrivate::get(*running)->resultValues;
}

quint64 DOrder::addInstruction(const DInstruction& instruction)
{
    if (m_state != State::Running || m_router.isNull()) {
        const QString device =
            m_plugin == nullptr ? QStringLiteral("a device that is gone") : m_plugin->getDebugIdentification();
        qCWarning(lcPluginsManagement).noquote()
            << QStringLiteral("%1: the command \"%2\" cannot send \"%3\" to \"%4\": its run is not open")
                   .arg(device, m_commandName, instruction.command, instruction.target);
        return 0;
    }
    return m_router->addInstruction(*this, instruction);
}

bool DOrder::stopInstruction(quint64 instructionId)
{
    return !m_router.isNull() && m_router->stopInstruction(*this, instructionId);
}

void DOrder::resultsPublished(const QMap<QString, QVariant>& values)
{
    m_hasPublished = true;
    if (!m_router.isNull()) {
        m_router->later(*this, [this, values] { Q_EMIT sigResultsPublished(values); });
    }
}

void DOrder::runFinished(bool ok)
{
    markEnded(m_endsAs, ok);
}

void DOrder::execute()
{
    if (m_state != State::Queued) {
        return;
    }
    m_state = State::Running;
    const QPointer<DOrder> self(this);
    const QSharedPointer<ICommand> command = m_command; // whoever destroys the order in here leaves it its command
    const bool accepted = command->commandExecute();
    if (self.isNull() || m_state != State::Running) {
        return;
    }
    if (!accepted) {
        drop(Outcome::Refused);
        return;
    }
    // A command that has said all it has to say and waits for nothing has no other end than this one.
    if (m_hasPublished && m_stopCommandName.isEmpty() && !m_router->hasInstructions(*this)) {
        end(Outcome::Finished);
    }
}

void DOrder::end(Outcome outcome)
{
    if (m_isEnding) {
        return; // the command is at it
    }
    if (m_state != State::Running || m_commandObject.isNull()) {
        drop(outcome);
        return;
    }
    m_isEnding = true;
    m_endsAs = outcome;
    bool ok = outcome == Outcome::Finished || outcome == Outcome::Stopped;
    const QPointer<DOrder> self(this);
    const QSharedPointer<ICommand> command = m_command;
    command->finishTheCommand(ok);
    if (!self.isNull()) {
        drop(outcome); // in case the command did not end its run
    }
}

void DOrder::drop(Outcome outcome)
{
    if (m_state == State::Ended) {
        return;
    }
    markEnded(outcome, false);
    if (DAbstractCommand* dropped = runningCommand()) {
        DAbstractCommandPrivate::get(*dropped)->abandon();
    }
}

void DOrder::markEnded(Outcome outcome, bool ok)
{
    if (m_state == State::Ended) {
        return;
    }
    m_finalResults = results();
    m_state = State::Ended;
    m_outcome = outcome;
    m_endedOk = ok;
    if (!m_router.isNull()) {
        m_router->clock().cancel(m_limit);
        m_router->closeInstructions(*this);
        m_router->later(*this, [this] {
            m_endIsAnnounced = true;
            Q_EMIT sigFinished();
        });
    }
}

DAbstractCommand* DOrder::runningCommand() const
{
    return qobject_cast<DAbstractCommand*>(m_commandObject.data());
}

bool DOrder::reply(quint64 instructionId, const QMap<QString, QVariant>& values)
{
    const QSharedPointer<ICommand> command = m_command;
    return m_state == State::Running && !m_commandObject.isNull() && command->setReply(instructionId, values);
}
