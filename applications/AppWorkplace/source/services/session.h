#pragma once

#include <QObject>
#include <QVariant>

#include <memory>

#include <lib_plugins_management/host/d_order.h>
#include <lib_utilities/clock.h>

#include "heard_wrenches.h"
#include "line_end.h"
#include "line_observer.h"
#include "linked_device.h"
#include "observed_results.h"
#include "problem.h"
#include "session_order.h"
#include "session_step.h"
#include "session_summary.h"
#include "tightening_result.h"

/// The main job: connect to a wrench, configure it, list its programs, select one, unlock it, and take its tightening
/// results until a count, a time or an interruption. Whatever happens, it ends in an orderly way: what listens is
/// stopped, the dongle hangs up, the port is closed. One session is for one run.
///
/// A line that is lost before the listening fails the step that needs it; while listening the driver has the time it
/// needs to open it again.
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
    /// From inside sigResult: it is a reading that was told before, and does not count.
    void discount(const TighteningResult& result);

Q_SIGNALS:
    void sigStepStarted(Session::Step step);
    void sigStepDone(Session::Step step, qint64 elapsedMs);
    /// Maps of "mac", "sn", "rssi", the strongest signal first.
    void sigWrenchesHeard(const QVariantList& wrenches);
    /// The programs as the device plugin lists them, each with its "presetData" added.
    void sigPrograms(const QVariantList& programs);
    void sigSelected(int program, const QVariantMap& preset);
    void sigResult(const TighteningResult& result);
    /// A chunk of input, by the driver's number, while the session listens and runs no command of its own.
    void sigChunk(int number);
    /// The line's state while it is in use. message: what is wrong; empty: nothing.
    void sigLink(bool isConnected, const QString& state, const QString& message);
    /// A session that does not listen itself has come to where it would.
    void sigReady();
    void sigFailed(const Problem& problem);
    void sigFinished(const SessionSummary& summary);

private:
    using Results = QMap<QString, QVariant>;
    using Continuation = void (Session::*)(const Results& results);

    void begin(Step step);
    void done();
    /// Runs a command of the device and goes on when it has ended.
    void run(const QString& command, const Results& parameters, Continuation then);

    void lineIsOpen();
    void connected(const Results& results);
    void configured(const Results& results);
    void programsListed(const Results& results);
    void askNextPreset();
    void presetRead(const Results& results);
    void programsKnown();
    void programSelected(const Results& results);
    void unlock();
    void unlocked(const Results& results);
    void keepAliveSet(const Results& results);
    bool subscribe();
    void listen();
    void resultArrived(const QVariantMap& eventData);
    void takeResult(const TighteningResult& result);
    QVariantMap presetOf(int program) const;

    void driverChanged(const QString& property);
    void lineChanged(bool isConnected);
    void openLimitReached();
    void durationIsOver();
    void lineStaysLost();

    /// The step has failed, by what the device said or did.
    void failStep(const QString& cause);
    /// The step has failed, by what the workplace is made of. mend: empty when the cause says it.
    void failSetUp(const QString& cause, const QString& mend);
    void end(SessionSummary::End how);
    void finish();

    void callAfter(int delayMs, void (Session::*then)());
    void cancelTimer();
    int limitMs() const;
    QString driverText(const char* property) const;
    /// What the line said against it in this step, else the other text.
    QString refusalOr(const QString& otherwise) const;

    const LinkedDevice m_wrench;
    const SessionOrder m_order;
    LineObserver m_observer;
    LineEnd m_lineEnd;
    HeardWrenches m_heard;
    std::unique_ptr<DOrder> m_run; // the command that the session waits for
    std::unique_ptr<DOrder> m_listener;
    ObservedResults m_observed;
    QList<TighteningResult> m_early; // results that came before the session listens
    Clock::TimerId m_timer = 0;      // of opening the line, of a lost line, and of listening
    QVariantList m_programs;
    int m_presetsRead = 0;
    Step m_step = Step::Open;
    qint64 m_stepStartUs = 0;
    qint64 m_startUs = 0;
    SessionSummary m_summary;
    bool m_isEnding = false;
    bool m_isLineInTrouble = false;
    bool m_isReconnected = false; // since the last result
};
