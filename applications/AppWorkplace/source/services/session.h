#pragma once

#include <QObject>
#include <QVariant>

#include <memory>

#include <lib_plugins_management/host/d_order.h>
#include <lib_utilities/clock.h>

#include "line_end.h"
#include "line_observer.h"
#include "link_report.h"
#include "linked_device.h"
#include "observed_results.h"
#include "problem.h"
#include "session_order.h"
#include "session_step.h"
#include "session_summary.h"
#include "set_up.h"
#include "supervisor.h"
#include "tightening_result.h"
#include "wrench_orders.h"

/// The main job: connect to a wrench, configure it, list its programs, select one, unlock it, and take its tightening
/// results until a count, a time or an interruption. Whatever happens, it ends in an orderly way: the dongle hangs up,
/// what listens is stopped, the port is closed. One session is for one run.
///
/// A wrench tells what it has kept as soon as its link is open, and what it measures until the dongle has hung up. All
/// of it is told, whatever step the session is at, also beyond a count.
///
/// A line that is lost before the listening fails the step that needs it. While it listens, a supervisor restores what
/// is lost; results are taken whenever they come.
class Session : public QObject
{
    Q_OBJECT

public:
    using Step = SessionStep;

    /// The device has the commands of a wrench.
    Session(const LinkedDevice& wrench, const SessionOrder& order, QObject* parent = nullptr);
    ~Session() override;

    void start();
    /// Ends the session in an orderly way. A second call changes nothing.
    void interrupt();
    /// The same, because of something outside the session.
    void fail(const Problem& problem);
    /// Orders, while it listens. Each answers with sigSelected or sigLocked, or with sigOrderRefused, and changes what
    /// a restoring brings the wrench back to. program: from 1.
    void selectProgram(int program);
    void setLock(bool isLocked);
    /// How many results of the wrench were seen on the line that nobody has taken: all, in a session that does not
    /// listen itself. More than ObservedResults::c_mostLines are not counted.
    int unheardResults() const { return m_observed.count(); }
    /// From inside sigResult: it is a reading that was told before, and does not count.
    void discount(const TighteningResult& result);

Q_SIGNALS:
    void sigStepStarted(Session::Step step);
    void sigStepDone(Session::Step step, qint64 elapsedMs);
    /// As SetUp::sigWrenchesHeard() and sigNamesakes(), also while a link is being restored.
    void sigWrenchesHeard(const QVariantList& wrenches);
    void sigNamesakes(const QVariantList& wrenches, const QString& taken);
    void sigUnverified();
    /// The programs as the device plugin lists them, each with its "presetData" added.
    void sigPrograms(const QVariantList& programs);
    /// Of the steps, of an order and of a maintenance panel. program: 0 when an order has failed on its way and it is
    /// not known where the wrench stands.
    void sigSelected(int program, const QVariantMap& preset);
    /// Likewise, and when it begins to listen.
    void sigLocked(bool isLocked);
    /// An order has failed on its way.
    void sigLockUnknown();
    /// An order, or what a panel asks for, is being carried out from now on, or is not any more.
    void sigOrderStarted();
    void sigOrderEnded();
    /// It is not carried out, or has failed. The session goes on.
    void sigOrderRefused(const Problem& problem);
    void sigResult(const TighteningResult& result);
    /// A chunk of input, by the driver's number, while the session listens and runs no command of its own.
    void sigChunk(int number);
    void sigLink(const LinkReport& report);
    /// A session that does not listen itself has come to where it would.
    void sigReady();
    void sigFailed(const Problem& problem);
    void sigFinished(const SessionSummary& summary);

private:
    void connectSetUp();
    void connectOrders();
    void begin(Step step);
    void lineIsOpen();
    void subscribe();
    void unsubscribe();
    void listen();
    void resultArrived(const QVariantMap& eventData);
    void takeResult(const TighteningResult& result);
    void tell(const TighteningResult& result);
    QVariantMap presetOf(int program) const;
    bool isOfTheWrench(const TighteningResult& result) const;

    void driverChanged(const QString& property);
    void followLine(const QString& state);
    void lineChanged(bool isConnected);
    void openLimitReached();
    void durationIsOver();
    void lineStaysLost();

    /// The step has failed, by what the workplace is made of. mend: empty when the cause says it.
    void failSetUp(const QString& cause, const QString& mend);
    void end(SessionSummary::End how);
    void finish();

    void callAfter(int delayMs, void (Session::*then)());
    void cancelTimer();
    qint64 elapsedMs(qint64 sinceUs) const;
    QString driverText(const char* property) const;

    const LinkedDevice m_wrench;
    const SessionOrder m_order;
    LineObserver m_observer;
    SetUp m_setUp;
    Supervisor m_supervisor;
    WrenchOrders m_orders; // hears a line after the supervisor has
    LineEnd m_lineEnd;
    std::unique_ptr<DOrder> m_listener;
    ObservedResults m_observed;
    QList<TighteningResult> m_early; // results that came before the session listens
    int m_program = 0;               // the wrench stands at it; 0: that is not known
    Clock::TimerId m_timer = 0;      // of opening the line, of a lost line, and of listening
    Step m_step = Step::Open;
    qint64 m_startUs = 0;
    SessionSummary m_summary;
    bool m_isEnding = false;
    bool m_isLineInTrouble = false; // before it listens
    bool m_isLineCutOff = false;    // its port went, and is not back
    bool m_isReconnected = false;   // since the last result
    bool m_isRestoring = false;     // from a loss on
};
