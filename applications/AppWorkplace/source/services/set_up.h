#pragma once

#include <QObject>
#include <QVariant>

#include <optional>

#include <lib_utilities/clock.h>

#include "device_run.h"
#include "heard_wrenches.h"
#include "linked_device.h"
#include "problem.h"
#include "program_selection.h"
#include "session_order.h"
#include "session_step.h"

class LineObserver;

/// Gets the wrench on an open line ready, step by step, each with commands of the device plugin. The same steps bring a
/// wrench back to where it was after its link was lost:
///
///     First:      connect, configure, programs, select (where a program is asked for), unlock
///     Restoring:  connect, configure, select (where one was chosen), unlock (unless it was locked)
///
/// The keep-alive is off while it restores, so that no question of the driver gets between the steps, and on at the
/// end. The wrench stays locked until it stands at its program: nobody tightens with another one.
class SetUp : public QObject
{
    Q_OBJECT

public:
    using Step = SessionStep;
    enum class Mode { First, Restoring };

    /// The observer listens to the same line, and outlives the object.
    SetUp(const LinkedDevice& wrench, const SessionOrder& order, LineObserver& observer, QObject* parent = nullptr);
    ~SetUp() override;

    /// Answers with sigDone or sigFailed. It does not run yet.
    void start(Mode mode);
    /// Nothing more is sent or told.
    void stop();

    /// What a restoring brings the wrench back to; at first the program of the order, and unlocked.
    void chooseProgram(int program) { m_program = program; }
    void chooseLock(bool isLocked) { m_isToBeLocked = isLocked; }
    std::optional<int> chosenProgram() const { return m_program; } ///< none: the selection is left alone
    bool isLockChosen() const { return m_isToBeLocked; }

    /// The wrench that was asked for has been dialled and has answered: what the line says from now on is of that one.
    bool isLinked() const { return m_isLinked; }

    /// The programs as read at the first time, each with its "presetData"; empty before.
    const QVariantList& programs() const { return m_programs; }

Q_SIGNALS:
    void sigStepStarted(SessionStep step);
    void sigStepDone(SessionStep step, qint64 elapsedMs);
    /// Maps of "mac", "sn", "rssi", the strongest signal first.
    void sigWrenchesHeard(const QVariantList& wrenches);
    /// More than one wrench answers to the serial number. wrenches: as above. taken: the "mac" of the one that was
    /// dialled; empty: none was, the dongle held a link already.
    void sigNamesakes(const QVariantList& wrenches, const QString& taken);
    /// The dongle has held a link from before and does not let go of it: which wrench that is to is not known.
    void sigUnverified();
    void sigProgramsRead(const QVariantList& programs);
    void sigSelected(int program, const QVariantMap& preset);
    void sigDone();
    void sigFailed(const Problem& problem);

private:
    using Results = DeviceRun::Results;
    using Continuation = void (SetUp::*)(const Results& results);

    void begin(Step step);
    void done();
    /// Runs a command of the device and goes on when it has ended.
    void run(const QString& command, const Results& parameters, Continuation then);

    void search(const Results& results);
    void connected(const Results& results);
    void configured(const Results& results);
    void programsListed(const Results& results);
    void askNextPreset();
    void presetRead(const Results& results);
    void select();
    void programSelected(int program, const QVariantMap& preset);
    void unlock();
    void unlocked(const Results& results);
    void unlockAnswered();
    void setKeepAlive();
    void keepAliveSet(const Results& results);

    void wrenchHeard(const QString& address, const QString& serialId, const QString& signalStrength);
    void lineHeard(const QString& line);
    void tellNamesakes();
    /// The "mac" of the session's wrench that was dialled; empty: it was none of them.
    QString dialledWrench() const;

    /// The step has failed, by what the device said or did.
    void failStep(const QString& cause);
    /// The step has failed, by what the workplace is made of.
    void failSetUp(const QString& cause);
    void fail(const Problem& problem);

    int limitMs() const;
    qint64 elapsedMs() const;

    const LinkedDevice m_wrench;
    const SessionOrder m_order;
    LineObserver& m_observer;
    HeardWrenches m_heard;     // in this search
    HeardWrenches m_namesakes; // with the session's serial number, since the beginning
    int m_namesakesTold = 0;
    QString m_takenTold;
    QString m_dialled; // the address without colons, as the dongle says it
    bool m_isLinked = false;
    bool m_isSearchedAgain = false;
    DeviceRun m_run;
    ProgramSelection m_selection;
    std::optional<int> m_program;
    bool m_isToBeLocked = false;
    QVariantList m_programs;
    int m_presetsRead = 0;
    bool m_isUnlockAnswered = false;
    Clock::TimerId m_answerLimit = 0; // of the answer to the unlocking; 0: it is not waited for
    bool m_isListBegun = false;       // the wrench has come to rest for it
    bool m_isListCutShort = false;    // it refused to tell all
    Mode m_mode = Mode::First;
    Step m_step = Step::Connect;
    qint64 m_stepStartUs = 0;
    bool m_isRunning = false;
};
