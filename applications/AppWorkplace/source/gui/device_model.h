#pragma once

#include <QObject>
#include <QVariant>

#include <functional>
#include <memory>

#include "../history/recorded_session.h"
#include "../history/recording.h"
#include "../services/wrench_scan.h"
#include "device_workplace.h"
#include "recent_results.h"
#include "trace_table.h"

class SharedHistory;

/// One device of the window: a line with its wrench, what runs on it, and what has come of it. It has a workplace of
/// its own, which it opens with the first scan or session. What is shown of a result is stored. Nothing waits: what is
/// asked for answers by changes of the properties. On the thread of the host.
class DeviceModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name NOTIFY serialIdChanged)
    Q_PROPERTY(QString port READ port CONSTANT)
    Q_PROPERTY(QString serialId READ serialId NOTIFY serialIdChanged)
    Q_PROPERTY(bool isSimulated READ isSimulated CONSTANT)
    Q_PROPERTY(State state READ state NOTIFY stateChanged)
    Q_PROPERTY(QString stateText READ stateText NOTIFY stateTextChanged)
    Q_PROPERTY(QString busyText READ busyText NOTIFY busyTextChanged)
    Q_PROPERTY(bool hasProblem READ hasProblem NOTIFY problemChanged)
    Q_PROPERTY(QString problemWhat READ problemWhat NOTIFY problemChanged)
    Q_PROPERTY(QString problemCause READ problemCause NOTIFY problemChanged)
    Q_PROPERTY(QString problemMend READ problemMend NOTIFY problemChanged)
    Q_PROPERTY(QVariantList wrenches READ wrenches NOTIFY wrenchesChanged)
    Q_PROPERTY(QVariantList programs READ programs NOTIFY programsChanged)
    Q_PROPERTY(int program READ program NOTIFY programChanged)
    Q_PROPERTY(bool hasTarget READ hasTarget NOTIFY programChanged)
    Q_PROPERTY(qreal target READ target NOTIFY programChanged)
    Q_PROPERTY(bool isLocked READ isLocked NOTIFY lockChanged)
    Q_PROPERTY(bool isLockKnown READ isLockKnown NOTIFY lockChanged)
    Q_PROPERTY(QVariantMap result READ result NOTIFY resultChanged)
    Q_PROPERTY(RecentResults* recent READ recent CONSTANT)
    Q_PROPERTY(int good READ good NOTIFY resultChanged)
    Q_PROPERTY(int notGood READ notGood NOTIFY resultChanged)
    Q_PROPERTY(QString notes READ notes NOTIFY notesChanged)
    Q_PROPERTY(TraceTable* trace READ trace CONSTANT)
    Q_PROPERTY(QString pluginUuid READ pluginUuid NOTIFY workplaceChanged)
    Q_PROPERTY(QString objectId READ objectId NOTIFY workplaceChanged)
    Q_PROPERTY(QVariantList panels READ panels NOTIFY workplaceChanged)
    Q_PROPERTY(QString reference READ reference NOTIFY workplaceChanged)

public:
    enum State {
        Idle,      ///< nothing runs
        Scanning,  ///< wrenches are being looked for
        Starting,  ///< a session is on its way to listening
        Working,   ///< a session listens
        Restoring, ///< a session's link was lost and is being restored
        Ending     ///< what ran is being ended: the dongle hangs up, the port is closed
    };
    Q_ENUM(State)

    DeviceModel(const Settings& settings, std::shared_ptr<SharedHistory> history, QObject* parent = nullptr);
    ~DeviceModel() override;

    QString name() const; ///< for people
    QString port() const { return m_settings.port; }
    QString serialId() const { return m_serialId; } ///< of the wrench to work with; empty: not said yet
    bool isSimulated() const { return m_settings.isSimulated(); }
    State state() const { return m_state; }
    QString stateText() const;
    QString busyText() const; ///< what runs; empty: nothing does
    bool hasProblem() const { return !m_problem.what.isEmpty(); }
    QString problemWhat() const { return m_problem.what; }
    QString problemCause() const { return m_problem.cause; }
    QString problemMend() const { return m_problem.mend; }
    /// Maps of "mac", "sn", "rssi" (texts), the strongest signal first: of the last scan, or what connecting has heard.
    QVariantList wrenches() const { return m_wrenches; }
    /// Maps of "progId" (from 1), "name", "target" (number), "unit", "angle", "snugTorque", "readings" (texts as read).
    QVariantList programs() const { return m_programs; }
    int program() const { return m_program; } ///< 0: not known
    bool hasTarget() const;
    qreal target() const; ///< of the program, in its unit
    bool isLocked() const { return m_isLocked; }
    bool isLockKnown() const { return m_isLockKnown; }
    /// A map of "torqueText" and "direction", "angle", "number" (as received), "torque" (number, NaN when the text is
    /// none), "unit", "program", "isGood", "arrived" (date with time); empty: none yet.
    QVariantMap result() const { return m_result; }
    RecentResults* recent() { return &m_recent; }
    int good() const { return m_good; } ///< of this session
    int notGood() const { return m_notGood; }
    QString notes() const { return m_notes; } ///< the last gap or repeat
    TraceTable* trace() { return &m_trace; }  ///< of the line; it hears it while it is on
    QString pluginUuid() const;               ///< of the device plugin; empty while the workplace is not open
    QString objectId() const;                 ///< of the plugin's working instance; likewise
    /// The maintenance panels on this line, maps of "plugin" (its name), "pluginUuid" and "objectId": that of the
    /// wrench, and those of other device plugins that were loaded. Empty while the workplace is not open.
    QVariantList panels() const;
    QString reference() const { return m_settings.port; }

    /// Null while it is not open.
    Workplace* workplace() const { return m_workplace.get(); }
    const Settings& settings() const { return m_settings; }

    Q_INVOKABLE void scan();
    /// Connects to that wrench and takes its results until it is stopped. A scan that runs is ended first.
    Q_INVOKABLE void work(const QString& serialId);
    /// Ends what runs.
    Q_INVOKABLE void stop();
    /// While it works; the outcome is told by program and isLocked, or by a problem.
    Q_INVOKABLE void selectProgram(int program);
    Q_INVOKABLE void setLock(bool isLocked);
    Q_INVOKABLE void forgetProblem();
    /// Closes the line when nothing runs: the panel may have opened it.
    Q_INVOKABLE void freeLine();

    /// Ends what runs, and tells sigEnded when nothing does; nothing is begun any more.
    void end();
    bool hasEnded() const { return m_isEnding && m_state == Idle; }
    /// The texts are to be in that language from now on: it is installed.
    void setLanguage(const QString& language);

Q_SIGNALS:
    void serialIdChanged();
    void stateChanged();
    void stateTextChanged();
    void busyTextChanged();
    void problemChanged();
    void wrenchesChanged();
    void programsChanged();
    void programChanged();
    void lockChanged();
    void resultChanged();
    void notesChanged();
    /// It was opened, or is closed.
    void workplaceChanged();
    /// A result has come and is shown.
    void resultShown();
    void sigEnded();

private:
    void openThen(std::function<void()> then);
    void workplaceFailed(const Problem& problem);
    void startScan();
    void scanEnded();
    void startSession();
    void connectSession();
    void stepStarted(Session::Step step);
    void linkReported(const LinkReport& report);
    void connectOrders();
    bool prepareOrder(const QString& text);
    void takeResult(const QVariantMap& eventData, const HistoryRecord& record);
    void sessionEnded();

    void setState(State state);
    void comeToRest();
    void tellEnd();
    void setSerialId(const QString& serialId);
    void setProgram(int program);
    void setLockState(bool isKnown, bool isLocked);
    void setWrenches(const QVariantList& wrenches);
    void tell(const Problem& problem);
    void tellNewTexts();

    Settings m_settings;
    const std::shared_ptr<SharedHistory> m_history;
    QString m_serialId;
    State m_state = Idle;
    Session::Step m_step = Session::Step::Open;
    LinkReport m_link;
    Problem m_problem;
    DeviceWorkplace m_workplace;
    std::unique_ptr<WrenchScan> m_scan;
    QString m_workAfterScan; // the wrench; empty: none
    std::unique_ptr<Recording> m_recording;
    std::unique_ptr<RecordedSession> m_session;
    QVariantList m_wrenches;
    QVariantList m_programs;
    int m_program = 0;
    bool m_isLocked = false;
    bool m_isLockKnown = false;
    QString m_orderText; // what is being carried out
    bool m_isOrderRunning = false;
    QVariantMap m_result;
    RecentResults m_recent;
    TraceTable m_trace;
    std::unique_ptr<DOrder> m_closing;
    int m_good = 0;
    int m_notGood = 0;
    QString m_notes;
    bool m_isEnding = false;
    bool m_isEndTold = false;
};
