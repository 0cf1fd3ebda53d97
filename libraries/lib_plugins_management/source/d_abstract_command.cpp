#include <lib_plugins_management/d_abstract_command.h>

#include <QJsonArray>
#include <QStringList>
#include <QThread>

#include <algorithm>

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/i_order.h>

#include "d_abstract_command_p.h"
#include "logging.h"

namespace {

using Declaration = DAbstractCommandPrivate::Declaration;

const QString c_orderIdParameter = QStringLiteral("orderId");

bool hasKnownType(const Declaration& declaration)
{
    static const QStringList types = {QStringLiteral("bool"), QStringLiteral("int"),  QStringLiteral("uint"),
                                      QStringLiteral("strg"), QStringLiteral("varM"), QStringLiteral("varL")};
    return types.contains(declaration.type);
}

QJsonArray describe(const QVector<Declaration>& declarations)
{
    QJsonArray list;
    for (const Declaration& declaration : declarations) {
        QJsonObject entry{{QStringLiteral("name"), declaration.name},
                          {QStringLiteral("type"), declaration.type},
                          {QStringLiteral("description"), declaration.description}};
        if (declaration.defaultValue.isValid()) {
            entry.insert(QStringLiteral("default"), QJsonValue::fromVariant(declaration.defaultValue));
        }
        list.append(entry);
    }
    return list;
}

/// Who has the command, for the log.
QString deviceOf(const DAbstractCommand& command)
{
    const auto* plugin = qobject_cast<const DAbstractPlugin*>(command.parent());
    return plugin == nullptr ? QStringLiteral("no device") : plugin->getDebugIdentification();
}

} // namespace

void DAbstractCommandPrivate::abandon()
{
    running = false;
    delegates.clear();
    orderObject = nullptr;
    linkedOrder = nullptr;
}

DAbstractCommand::DAbstractCommand(const QString& name, const QMap<QString, QVariant>& parameters, QObject* parent)
    : DAbstractCommand(name, QString(), parameters, parent)
{}

DAbstractCommand::DAbstractCommand(const QString& name, const QString& stopName,
                                   const QMap<QString, QVariant>& parameters, QObject* parent)
    : QObject(parent), d_ptr(new DAbstractCommandPrivate)
{
    d_ptr->name = name;
    d_ptr->stopName = stopName;
    d_ptr->arguments = parameters;
}

DAbstractCommand::~DAbstractCommand() = default;

void DAbstractCommand::linkWithItsOrder(QObject* order)
{
    d_ptr->orderObject = order;
    d_ptr->linkedOrder = dynamic_cast<IOrder*>(order);
}

QString DAbstractCommand::commandName() const
{
    return d_ptr->name;
}

QString DAbstractCommand::stopCommandName() const
{
    return d_ptr->stopName;
}

quint64 DAbstractCommand::getOrderId() const
{
    const IOrder* order = d_ptr->order();
    return order == nullptr ? 0 : order->orderId();
}

QString DAbstractCommand::getParameterOrderId() const
{
    return d_ptr->arguments.value(c_orderIdParameter).toString();
}

bool DAbstractCommand::isRecurrent() const
{
    return !d_ptr->stopName.isEmpty();
}

bool DAbstractCommand::isValid() const
{
    return !d_ptr->name.isEmpty() && std::all_of(d_ptr->parameters.cbegin(), d_ptr->parameters.cend(), hasKnownType) &&
           std::all_of(d_ptr->results.cbegin(), d_ptr->results.cend(), hasKnownType);
}

QString DAbstractCommand::description() const
{
    return d_ptr->description;
}

QJsonObject DAbstractCommand::fullDescription() const
{
    return {{QStringLiteral("name"), d_ptr->name},
            {QStringLiteral("stopName"), d_ptr->stopName},
            {QStringLiteral("description"), d_ptr->description},
            {QStringLiteral("parameters"), describe(d_ptr->parameters)},
            {QStringLiteral("results"), describe(d_ptr->results)}};
}

QMap<QString, QVariant> DAbstractCommand::commandArguments() const
{
    return d_ptr->arguments;
}

bool DAbstractCommand::commandExecute()
{
    const IOrder* order = d_ptr->order();
    if (order == nullptr || !order->acceptsRun()) {
        qCWarning(lcPluginsManagement).noquote()
            << QStringLiteral("%1: the command \"%2\" is not run: %3")
                   .arg(deviceOf(*this), d_ptr->name,
                        order == nullptr ? QStringLiteral("it has no order; run it through the host")
                                         : QStringLiteral("its order has ended; make a new one"));
        return false;
    }
    d_ptr->resultValues.clear();
    for (const Declaration& result : qAsConst(d_ptr->results)) {
        if (result.defaultValue.isValid()) {
            d_ptr->resultValues.insert(result.name, result.defaultValue);
        }
    }
    d_ptr->running = true;
    return true;
}

bool DAbstractCommand::setReply(quint64 instructionId, const QMap<QString, QVariant>& reply)
{
    const auto found = d_ptr->delegates.constFind(instructionId);
    if (!d_ptr->running || found == d_ptr->delegates.constEnd()) {
        return false;
    }
    const ReplyDelegate onReply = found->onReply;
    if (!found->lasting) {
        d_ptr->delegates.erase(found);
    }
    return onReply(instructionId, reply); // may delete the command
}

bool DAbstractCommand::finishTheCommand(bool& ok)
{
    return commandFinish(ok);
}

quint64 DAbstractCommand::addInstruction(const QString& target, const QString& instruction,
                                         const QMap<QString, QVariant>& params, int timeoutMs, ReplyDelegate onReply)
{
    // The thread first: nothing else may be looked at from another one.
    const bool isOwnThread = QThread::currentThread() == thread();
    IOrder* order = isOwnThread ? d_ptr->order() : nullptr;
    QString refusal;
    if (!isOwnThread) {
        refusal = QStringLiteral("it comes from another thread; send it from the host's");
    } else if (order == nullptr) {
        refusal = QStringLiteral("the command has no order; run it through the host");
    } else if (timeoutMs <= 0) {
        refusal = QStringLiteral("its limit of %1 ms is not above 0").arg(timeoutMs);
    }
    if (order == nullptr || !refusal.isEmpty()) {
        qCWarning(lcPluginsManagement).noquote()
            << QStringLiteral("%1: the command \"%2\" cannot send \"%3\" to \"%4\": %5")
                   .arg(isOwnThread ? deviceOf(*this) : QStringLiteral("a device"), d_ptr->name, instruction, target,
                        refusal);
        return 0;
    }
    const DInstruction added{target, instruction, params, timeoutMs, !onReply.empty()};
    const quint64 instructionId = order->addInstruction(added);
    // In time: a reply comes from a later turn of the event loop at the earliest.
    if (instructionId != 0 && !onReply.empty()) {
        d_ptr->delegates.insert(instructionId, {onReply, added.isSubscription()});
    }
    return instructionId;
}

void DAbstractCommand::setDescription(const QString& description)
{
    d_ptr->description = description;
}

void DAbstractCommand::declareAParameter(const QString& name, const QString& type, const QString& description,
                                         const QVariant& defaultValue)
{
    d_ptr->parameters.append({name, type, description, defaultValue});
}

void DAbstractCommand::declareAResult(const QString& name, const QString& type, const QString& description,
                                      const QVariant& defaultValue)
{
    d_ptr->results.append({name, type, description, defaultValue});
}

QVariant DAbstractCommand::getParameterValue(const QString& name, const QVariant& defaultValue) const
{
    const auto given = d_ptr->arguments.constFind(name);
    if (given != d_ptr->arguments.constEnd()) {
        return *given;
    }
    const auto declared = std::find_if(d_ptr->parameters.cbegin(), d_ptr->parameters.cend(),
                                       [&](const Declaration& each) { return each.name == name; });
    const bool hasDefault = declared != d_ptr->parameters.cend() && declared->defaultValue.isValid();
    return hasDefault ? declared->defaultValue : defaultValue;
}

bool DAbstractCommand::stopTheInstruction(quint64 instructionId)
{
    d_ptr->delegates.remove(instructionId);
    IOrder* order = d_ptr->order();
    return order != nullptr && order->stopInstruction(instructionId);
}

bool DAbstractCommand::commandUpdateResult(const QString& name, const QVariant& value)
{
    return commandUpdateResults({{name, value}});
}

bool DAbstractCommand::commandUpdateResults(const QMap<QString, QVariant>& values)
{
    IOrder* order = d_ptr->order();
    if (!d_ptr->running || order == nullptr) {
        return false;
    }
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        d_ptr->resultValues.insert(value.key(), value.value());
    }
    order->resultsPublished(values);
    return true;
}

bool DAbstractCommand::commandFinish(bool& ok)
{
    IOrder* order = d_ptr->order();
    if (!d_ptr->running || order == nullptr) {
        return false;
    }
    d_ptr->running = false;
    d_ptr->delegates.clear();
    const bool endedOk = ok;
    order->runFinished(endedOk);
    Q_EMIT sigCommandFinished(endedOk); // may delete the command
    return true;
}
