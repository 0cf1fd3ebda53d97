#pragma once

#include <QObject>

#include <memory>

#include <lib_plugins_management/host/d_order.h>
#include <lib_utilities/clock.h>

#include "growing_pause.h"
#include "link_report.h"
#include "linked_device.h"
#include "problem.h"
#include "session_order.h"

class LineObserver;
class SetUp;

/// Keeps a session's link to its wrench alive: notices its loss, says why, and restores the wrench as it was.
///
///     Watching --port gone--> Away --port open again--> Restoring --done--> Watching
///        \                                               |      ^
///         \--keep-alive unanswered, or the dongle        v      |
///             says that the wrench is gone-----------> Pausing--/
///
/// In every state but Off a port that goes leads to Away, and when the gap has lasted too long the supervisor gives up.
/// It sends nothing while it watches, and while a port is away only looks whether its file is back; then it makes the
/// driver open the port at once, whatever pause the driver has come to.
class Supervisor : public QObject
{
    Q_OBJECT

public:
    static constexpr int c_settleMs = 100; ///< from a loss to the first attempt: what was on its way comes before it
    static constexpr int c_firstPauseMs = 250;
    static constexpr int c_longestPauseMs = 10000;
    static constexpr int c_lookMs = 200;             ///< how often the port's file is looked for
    static constexpr int c_defaultLimitMs = 3600000; ///< how long a gap may last

    /// The set-up and the observer work on the same wrench and outlive the object. The set-up has been through its
    /// first time when the supervisor starts.
    Supervisor(const LinkedDevice& wrench, const SessionOrder& order, SetUp& setUp, LineObserver& observer,
               QObject* parent = nullptr);
    ~Supervisor() override;

    /// Watches from now on.
    void start();
    /// Nothing more is sent or told.
    void stop();

Q_SIGNALS:
    void sigLink(const LinkReport& report);
    /// The link is lost and is not going to be restored. Nothing more is told.
    void sigGaveUp(const Problem& problem);

private:
    enum class State { Off, Watching, Away, Pausing, Restoring };

    void driverChanged();
    void lineHeard(const QString& line);

    /// state: as in LinkReport.
    void lose(LinkReport::Cause cause, const QString& state, const QString& message);
    void portLost(const QString& error);
    void look();
    void openPort();
    void portStaysClosed();
    void closeExtraListener();
    void attempt();
    void attemptFailed(const Problem& problem);
    void restored();
    void giveUp(const QString& what, const QString& mend);

    void report(LinkReport::Kind kind, const QString& state = {}, const QString& message = {}, int pauseMs = 0);
    void callAfter(int delayMs, void (Supervisor::*then)());
    void cancelTimers();
    bool isPortOpen() const;
    bool isPortThere() const;
    qint64 gapMs() const;
    int limitMs() const;
    QString driverText(const char* property) const;

    const LinkedDevice m_wrench;
    const SessionOrder m_order;
    SetUp& m_setUp;
    State m_state = State::Off;
    LinkReport::Cause m_cause = LinkReport::Cause::None;
    QString m_message; // what was said last about the loss
    int m_attempt = 0;
    qint64 m_lostUs = 0;
    GrowingPause m_pause;
    bool m_portWasThere = true;
    qint64 m_openAgainUs = 0;                // when the port is to be tried again while its file is there
    std::unique_ptr<DOrder> m_extraListener; // a new listener makes the driver open the port
    Clock::TimerId m_timer = 0;
    Clock::TimerId m_limitTimer = 0;
};
