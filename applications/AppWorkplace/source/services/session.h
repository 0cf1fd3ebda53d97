#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QVariant>

#include <memory>
#include <optional>

#include "heard_wrenches.h"
#include "line_observer.h"
#include "problem.h"
#include "workplace.h"

/// What a session is asked to do.
struct SessionOrder
{
    QString serialId;
    std::optional<int> program; ///< none: the wrench's selection is left alone
    int results = 0;            ///< how many to take; 0: no end by count
    int durationMs = 0;         ///< how long to listen; 0: no end by time
    int stepLimitMs = 0;        ///< time limit of each step; 0: each step's own
};

struct SessionSummary
{
    enum class End { Count, Duration, Interrupt, Failure };

    End end = End::Failure;
    int good = 0;
    int notGood = 0;
    int program = 0; ///< the current one as the device plugin records it; 0: not known
    qint64 elapsedMs = 0;
};

/// The main job: connect to a wrench, configure it, list its programs, select one, unlock it, and take its tightening
/// results until a count, a time or an interruption. Whatever happens, it ends in an orderly way: what listens is
/// stopped, the dongle hangs up, the port is closed. One session is for one run.
class Session : public QObject
{
    Q_OBJECT

public:
    enum class Step { Open, Connect, Configure, Programs, Select, Unlock, Listen };
    Q_ENUM(Step)

    /// The workplace is open, and outlives the session.
    Session(Workplace& workplace, const SessionOrder& order, QObject* parent = nullptr);
    ~Session() override;

    void start();
    /// Ends the session in an orderly way. A second call changes nothing.
    void interrupt();

    static QString nameOf(Step step);

Q_SIGNALS:
    void sigStepStarted(Session::Step step);
    void sigStepDone(Session::Step step, qint64 elapsedMs);
    /// Maps of "mac", "sn", "rssi", the strongest signal first.
    void sigWrenchesHeard(const QVariantList& wrenches);
    /// The programs as the device plugin lists them, each with its "presetData" added.
    void sigPrograms(const QVariantList& programs);
    void sigSelected(int program, const QVariantMap& preset);
    void sigResult(const QVariantMap& eventData);
    /// The line's state while it is in use. message: what is wrong; empty: nothing.
    void sigLink(bool isConnected, const QString& state, const QString& message);
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
    void listen();
    void takeResult(const QVariantMap& eventData);

    void driverChanged(const QString& property);
    void fail(const QString& cause, Problem::Kind kind = Problem::Kind::Device);
    void end(SessionSummary::End how);
    void hangUp();
    void closePort();
    void finish();
    int limitMs() const;
    QString driverText(const char* property) const;
    QString refusalOr(const QString& otherwise) const;

    Workplace& m_workplace;
    const SessionOrder m_order;
    DAbstractPlugin* m_device = nullptr;
    LineObserver m_observer;
    HeardWrenches m_heard;
    std::unique_ptr<DOrder> m_run; // the command that the session waits for
    std::unique_ptr<DOrder> m_listener;
    QTimer m_limit; // of opening the line, and of listening
    QVariantList m_programs;
    int m_presetsRead = 0;
    Step m_step = Step::Open;
    QElapsedTimer m_stepTime;
    QElapsedTimer m_sessionTime;
    SessionSummary m_summary;
    bool m_isEnding = false;
    bool m_wasConnected = false;
};
