#pragma once

#include <QObject>
#include <QVariant>

#include <optional>

#include "problem.h"
#include "program_selection.h"
#include "session_order.h"

class LineObserver;
class SetUp;

/// Orders to a wrench that is being listened to, one at a time: another program, locked or not. Each is answered with
/// what the wrench has come to, or with a refusal. What was done last is what a restoring brings the wrench back to. A
/// maintenance panel orders the same things on its own; what it has done is told likewise.
class WrenchOrders : public QObject
{
    Q_OBJECT

public:
    static constexpr int c_answerLimitMs = 2000; ///< from the sent lock on, for the wrench to answer

    /// The set-up and the observer work on the same wrench and outlive the object.
    WrenchOrders(const LinkedDevice& wrench, const SessionOrder& order, SetUp& setUp, LineObserver& observer,
                 QObject* parent = nullptr);
    ~WrenchOrders() override;

    /// The set-up has been through its first time: orders are taken.
    void start();
    /// Nothing more is sent or told.
    void stop();
    /// What is being carried out is refused, and so is what is asked for, until it is restored by the set-up.
    void linkLost(const QString& cause);
    void linkRestored();

    void selectProgram(int program); ///< from 1
    void setLock(bool isLocked);
    /// An order or a panel's treatment is being carried out.
    bool isRunning() const { return m_isRunning || m_treatments > 0; } // a lock is, until it is answered

Q_SIGNALS:
    void sigStarted();
    /// Also of one that has failed. The outcome is told next.
    void sigEnded();
    /// program: 0 when it is not known any more where the wrench stands.
    void sigSelected(int program, const QVariantMap& preset);
    void sigLocked(bool isLocked);
    void sigLockUnknown();
    void sigRefused(const Problem& problem);

private:
    enum class State { Off, Ready, Away };

    using Lock = std::optional<bool>; // what is ordered: to lock or to unlock; none: a program
    struct Obstacle
    {
        QString cause;
        QString mend;
        Problem::Kind kind = Problem::Kind::Device;
    };

    std::optional<Obstacle> obstacle() const;
    void begin(Lock order);
    void end();
    void sendLock();
    void lockSent(const DeviceRun::Results& results);
    void lineHeard(const QString& line);
    void answerStaysAway();
    void finishLock();
    void selected(int program, const QVariantMap& preset);
    void locked(bool isLocked);
    void treated(const QString& treatment, const QVariantMap& parameters, const QVariantMap& reply);
    void panelLockAnswered();

    void refuse(Lock order, const Obstacle& obstacle);
    /// What runs has failed on its way: the wrench may have followed it or not.
    void fail(const Obstacle& obstacle);
    void callAfter(int delayMs, void (WrenchOrders::*then)());
    void cancelTimer();
    int limitMs() const;

    const LinkedDevice m_wrench;
    const SessionOrder m_order;
    SetUp& m_setUp;
    LineObserver& m_observer;
    DeviceRun m_run;
    ProgramSelection m_selection;
    State m_state = State::Off;
    bool m_isRunning = false;
    int m_treatments = 0; // of panels, going on
    Lock m_panelLock;     // that a panel has sent and that is not answered yet
    QString m_lockWord;   // the wrench's last answer to a lock, since a treatment began
    Lock m_lock;          // of what runs
    bool m_isLockSent = false;
    bool m_isLockAnswered = false;
    qint64 m_startUs = 0;
    int m_toldProgram = 0;
    std::optional<bool> m_toldLock;
    Clock::TimerId m_timer = 0;      // of the answer, and of asking again
    Clock::TimerId m_panelTimer = 0; // of the answer to a panel's lock
};
