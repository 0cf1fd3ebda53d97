#pragma once

#include <QJsonObject>
#include <QMap>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

#include <lib_plugins_management/export.h>

class QObject;

/// What the host knows of a command. The order of the members is part of the interface. It has no destructor in that
/// table: a command is deleted as a QObject.
class LIB_PLUGINS_MANAGEMENT_EXPORT ICommand
{
public:
    /// A fresh command of the same class for one run, with the run's parameters.
    virtual QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const = 0;
    /// The order that runs the command from now on; null for none.
    virtual void linkWithItsOrder(QObject* order) = 0;
    virtual QString commandName() const = 0;
    /// The name that ends a running command of this kind; empty: none.
    virtual QString stopCommandName() const = 0;
    /// 0: not linked with an order.
    virtual quint64 getOrderId() const = 0;
    /// The order that the caller named in the parameter "orderId"; empty: none.
    virtual QString getParameterOrderId() const = 0;
    /// It has a stop command.
    virtual bool isRecurrent() const = 0;
    /// It has a name, and each of its declarations has a known type text.
    virtual bool isValid() const = 0;
    virtual QString description() const = 0;
    /// {"name", "stopName", "description", "parameters": […], "results": […]}; each declaration has "name", "type",
    /// "description" and, where there is one, "default".
    virtual QJsonObject fullDescription() const = 0;
    /// The parameters of this run.
    virtual QMap<QString, QVariant> commandArguments() const = 0;
    /// Starts a run. False: refused, nothing was started.
    virtual bool commandExecute() = 0;
    /// Hands a reply to the delegate of that instruction and returns what it returns; false when nobody waits for it.
    virtual bool setReply(quint64 instructionId, const QMap<QString, QVariant>& reply) = 0;
    /// Ends the run. ok: the caller's opinion of how; an override may replace it.
    virtual bool finishTheCommand(bool& ok) = 0;
    /// Signal: the run has ended.
    virtual void sigCommandFinished(bool ok) = 0;

protected:
    ~ICommand() = default;
};
