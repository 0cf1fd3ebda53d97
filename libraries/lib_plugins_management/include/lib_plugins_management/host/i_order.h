#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

#include <lib_plugins_management/export.h>

/// One instruction as a command has sent it.
struct DInstruction
{
    QString target;  ///< "driver", "myself" or the name of an instance
    QString command; ///< the command of the target that is to run
    QMap<QString, QVariant> parameters;
    int limitMs = 0;         ///< > 0
    bool wantsReply = false; ///< the sender gave a delegate

    /// A lasting stream of replies is asked for instead of one.
    bool isSubscription() const { return parameters.value(QStringLiteral("subscription")).toBool(); }
};

/// What a running command asks of the order that runs it. An order is a QObject that also implements this; it is given
/// to the command with ICommand::linkWithItsOrder(). Nothing here calls back into the command.
class LIB_PLUGINS_MANAGEMENT_EXPORT IOrder
{
public:
    virtual ~IOrder();

    virtual quint64 orderId() const = 0;
    /// A run may begin.
    virtual bool acceptsRun() const = 0;
    /// The new instruction's id, or 0 when it is refused.
    virtual quint64 addInstruction(const DInstruction& instruction) = 0;
    /// False when the run has no such instruction.
    virtual bool stopInstruction(quint64 instructionId) = 0;
    /// values: the results published by one call.
    virtual void resultsPublished(const QMap<QString, QVariant>& values) = 0;
    virtual void runFinished(bool ok) = 0;
};
