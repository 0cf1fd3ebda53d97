#pragma once

#include <QObject>
#include <QPointer>
#include <QSharedPointer>

#include <lib_plugins_management/host/i_order.h>
#include <lib_plugins_management/i_command.h>
#include <lib_utilities/clock.h>

class DAbstractCommand;
class DAbstractPlugin;
class DRouter;

/// One run of one command, from start() to its end. Destroying an order ends its run; nothing of it is delivered any
/// more.
///
///     Waiting --start()--> Queued --a later turn--> Running --> Ended
///
/// A run ends by the command itself, by stop(), by its time limit, by the host when the command has published its
/// results and has nothing left to do, or because the device, the command or the host is gone. The signals come from
/// later turns of the event loop. The order may be destroyed at any time, also by what its command calls.
class LIB_PLUGINS_MANAGEMENT_EXPORT DOrder : public QObject, public IOrder
{
    Q_OBJECT

public:
    enum class State { Waiting, Queued, Running, Ended };
    enum class Outcome {
        None,     ///< not ended yet
        Finished, ///< by the command, or by the host after its results
        Refused,  ///< the command would not start
        Stopped,  ///< by stop() or by its stop command
        TimedOut, ///< its time limit ended it
        Gone      ///< the device, the command or the host was destroyed
    };
    Q_ENUM(State)
    Q_ENUM(Outcome)

    /// Made by DRouter::createOrder().
    DOrder(DRouter& router, DAbstractPlugin& plugin, QSharedPointer<ICommand> command, QObject* parent = nullptr);
    ~DOrder() override;

    /// limitMs: the run is ended when it has lasted that long, in milliseconds; 0: no limit.
    void start(int limitMs = 0);
    void stop();

    State state() const { return m_state; }
    Outcome outcome() const { return m_outcome; }
    /// The ok flag that the run ended with; it says nothing about "cmd_success".
    bool endedOk() const { return m_endedOk; }
    /// Declared defaults, overlaid with what the run has published.
    QMap<QString, QVariant> results() const;
    QString commandName() const { return m_commandName; }
    QString stopCommandName() const { return m_stopCommandName; }
    /// Null when the device is gone.
    DAbstractPlugin* plugin() const { return m_plugin; }

    quint64 orderId() const override { return m_id; }
    bool acceptsRun() const override { return m_state == State::Running; }
    quint64 addInstruction(const DInstruction& instruction) override;
    bool stopInstruction(quint64 instructionId) override;
    void resultsPublished(const QMap<QString, QVariant>& values) override;
    void runFinished(bool ok) override;

Q_SIGNALS:
    /// The results that one call of the command published.
    void sigResultsPublished(const QMap<QString, QVariant>& values);
    void sigFinished();

private:
    friend class DRouter;

    void execute();
    /// Ends the run through the command, so that it can close what it has open.
    void end(Outcome outcome);
    /// Ends the run without another word to the command.
    void drop(Outcome outcome);
    void markEnded(Outcome outcome, bool ok);
    DAbstractCommand* runningCommand() const;
    bool reply(quint64 instructionId, const QMap<QString, QVariant>& values);

    QPointer<DRouter> m_router;
    DAbstractPlugin* m_plugin; // the router clears it before the plugin is gone
    QSharedPointer<ICommand> m_command;
    QPointer<QObject> m_commandObject;
    QString m_commandName;
    QString m_stopCommandName;
    quint64 m_id;
    State m_state = State::Waiting;
    Outcome m_outcome = Outcome::None;
    Outcome m_endsAs = Outcome::Finished;
    bool m_isEnding = false;
    bool m_endIsAnnounced = false;
    bool m_endedOk = false;
    bool m_hasPublished = false;
    QMap<QString, QVariant> m_finalResults;
    Clock::TimerId m_limit = 0;
};
