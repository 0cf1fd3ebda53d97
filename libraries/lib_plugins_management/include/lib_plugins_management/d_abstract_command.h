#pragma once

#include <QObject>
#include <QScopedPointer>

#include <lib_plugins_management/fast_delegate.h>
#include <lib_plugins_management/i_command.h>

using ReplyDelegate = fastdelegate::FastDelegate2<quint64, const QMap<QString, QVariant>&, bool>;

class DAbstractCommandPrivate;

/// Base of every command: its declarations, the parameters and results of a run, and the instructions that the run has
/// sent. Prototypes are owned by their plugin; a command made for a run is held by a shared pointer and is also a child
/// of the plugin, whichever goes first. All of it happens on the host's thread.
class LIB_PLUGINS_MANAGEMENT_EXPORT DAbstractCommand : public QObject, public ICommand
{
    Q_OBJECT

public:
    DAbstractCommand(const QString& name, const QMap<QString, QVariant>& parameters, QObject* parent);
    /// stopName: the command that ends a run of this one.
    DAbstractCommand(const QString& name, const QString& stopName, const QMap<QString, QVariant>& parameters,
                     QObject* parent);
    ~DAbstractCommand() override;

    // The order of these is part of the interface.
    void linkWithItsOrder(QObject* order) override;
    QString commandName() const override;
    QString stopCommandName() const override;
    quint64 getOrderId() const override;
    QString getParameterOrderId() const override;
    bool isRecurrent() const override;
    bool isValid() const override;
    QString description() const override;
    QJsonObject fullDescription() const override;
    QMap<QString, QVariant> commandArguments() const override;
    /// Refuses (false, with a line in the log) when no order runs the command or its order has ended. Otherwise the run
    /// is open and its results are the declared defaults.
    bool commandExecute() override;
    bool setReply(quint64 instructionId, const QMap<QString, QVariant>& reply) override;
    /// Calls commandFinish().
    bool finishTheCommand(bool& ok) override;

Q_SIGNALS:
    void sigCommandFinished(bool ok) override;

public:
    /// Hands an instruction to the host and returns its id, or 0 when it is refused (the log says why).
    /// target: "driver", "myself" or the name of an instance. instruction: the name of one of its commands.
    /// timeoutMs: limit for the answer in milliseconds, > 0; for a subscription it covers the opening only.
    /// onReply: called from a later turn of the event loop, on this thread; empty: no answer wanted.
    virtual quint64 addInstruction(const QString& target, const QString& instruction,
                                   const QMap<QString, QVariant>& params, int timeoutMs, ReplyDelegate onReply);
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override = 0;

protected:
    void setDescription(const QString& description);
    /// type: "bool", "int", "uint", "strg" (text), "varM" (map) or "varL" (list). defaultValue: invalid for none.
    void declareAParameter(const QString& name, const QString& type, const QString& description,
                           const QVariant& defaultValue);
    void declareAResult(const QString& name, const QString& type, const QString& description,
                        const QVariant& defaultValue);

    /// The run's value, else the declared default when it is valid, else defaultValue.
    QVariant getParameterValue(const QString& name, const QVariant& defaultValue) const;

    /// Ends an instruction of this run: no reply of it arrives any more. False when there is no such instruction.
    bool stopTheInstruction(quint64 instructionId);

    /// Publishes results of the open run. False when no run is open; nothing is published then.
    bool commandUpdateResult(const QString& name, const QVariant& value);
    bool commandUpdateResults(const QMap<QString, QVariant>& values);

    /// Ends the open run and closes what it left open. False when no run is open. Whoever hears of the end may delete
    /// the command: touch nothing of it afterwards but the returned value.
    bool commandFinish(bool& ok);

private:
    friend class DAbstractCommandPrivate;
    QScopedPointer<DAbstractCommandPrivate> d_ptr;
};
