#include "supervisor.h"

#include <QFileInfo>

#include <utility>

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/d_host.h>

#include "line_observer.h"
#include "set_up.h"

namespace {

constexpr int c_millisecondsPerSecond = 1000;
constexpr qint64 c_microsecondsPerMillisecond = 1000;

// What the dongle says, unasked or to the keep-alive, when there is no wrench behind it.
const QString c_unreachable = QStringLiteral("ERR:1");
const QString c_noLink = QStringLiteral("ERR:3");
const QString c_noLinkState = QStringLiteral("no link");

// Properties of the driver, and their values.
constexpr char c_connected[] = "connected";
constexpr char c_lineState[] = "lineState";
constexpr char c_lineError[] = "lineError";
const QString c_lostState = QStringLiteral("lost");
const QString c_silentState = QStringLiteral("no answer");

/// 0: any.
quint32 seedOf(const SessionOrder& order)
{
    return order.pauseSeed != 0 ? order.pauseSeed : QRandomGenerator::global()->generate();
}

} // namespace

Supervisor::Supervisor(const LinkedDevice& wrench, const SessionOrder& order, SetUp& setUp, LineObserver& observer,
                       QObject* parent)
    : QObject(parent)
    , m_wrench(wrench)
    , m_order(order)
    , m_setUp(setUp)
    , m_pause(c_firstPauseMs, c_longestPauseMs, seedOf(order))
{
    connect(&m_wrench.host, &DHost::sigPropertyChanged, this, [this](const DAbstractPlugin* plugin) {
        if (plugin == &m_wrench.driver && m_state != State::Off) {
            driverChanged();
        }
    });
    connect(&observer, &LineObserver::sigLineHeard, this, [this](const QByteArray& line) {
        if (m_state == State::Watching) {
            lineHeard(QString::fromUtf8(line).trimmed());
        }
    });
    connect(&m_setUp, &SetUp::sigDone, this, [this] {
        if (m_state == State::Restoring) {
            restored();
        }
    });
    connect(&m_setUp, &SetUp::sigFailed, this, [this](const Problem& problem) {
        if (m_state == State::Restoring) {
            attemptFailed(problem);
        }
    });
}

Supervisor::~Supervisor()
{
    cancelTimers();
}

void Supervisor::start()
{
    m_state = State::Watching;
    driverChanged(); // it may have changed since the set-up's last command
}

void Supervisor::stop()
{
    m_state = State::Off;
    cancelTimers();
    closeExtraListener();
    m_setUp.stop();
}

// ---- Noticing

// The driver tells of its three properties one after the other; each time they are looked at together.
void Supervisor::driverChanged()
{
    const QString state = driverText(c_lineState);
    const QString error = driverText(c_lineError);
    if (state == c_lostState && !error.isEmpty()) {
        portLost(error);
    } else if (state == c_silentState && m_state == State::Watching) {
        lose(LinkReport::Cause::Silence, state, error);
    } else if (m_state == State::Away && isPortOpen()) {
        callAfter(0, &Supervisor::attempt); // not from inside what has opened it
    }
}

void Supervisor::lineHeard(const QString& line)
{
    if (line == c_unreachable) {
        lose(LinkReport::Cause::Range, c_noLinkState,
             tr("the dongle cannot reach the wrench %1 (\"%2\"): bring it near and check that it is switched on")
                 .arg(m_order.serialId, line));
    } else if (line == c_noLink) {
        lose(LinkReport::Cause::Link, c_noLinkState,
             tr("the dongle has lost its link to the wrench %1 (\"%2\")").arg(m_order.serialId, line));
    }
}

void Supervisor::lose(LinkReport::Cause cause, const QString& state, const QString& message)
{
    m_setUp.stop();
    if (m_state == State::Watching) {
        m_lostUs = m_wrench.clock.nowUs();
        m_attempt = 0;
        m_pause.reset();
        m_limitTimer = m_wrench.clock.callAfter(limitMs(), [this] {
            m_limitTimer = 0;
            giveUp(tr("the link to the wrench %1 was not restored within %2 s")
                       .arg(m_order.serialId)
                       .arg(double(limitMs()) / c_millisecondsPerSecond),
                   m_cause == LinkReport::Cause::Port ? QString() : textOf(SessionStep::Connect).mend);
        });
    }
    m_cause = cause;
    m_message = message;
    m_state = State::Pausing;
    report(LinkReport::Kind::Lost, state, message);
    if (m_state != State::Pausing) {
        return; // whoever heard of it has stopped us
    }
    if (!m_order.reconnects) {
        giveUp(tr("the link to the wrench %1 is lost").arg(m_order.serialId),
               tr("mend that and start again; without --no-reconnect a session restores its link itself"));
        return;
    }
    callAfter(c_settleMs, &Supervisor::attempt);
}

// ---- The port

void Supervisor::portLost(const QString& error)
{
    const bool isNews = m_state != State::Away || (error != m_message && isPortThere());
    if (!isNews) {
        return;
    }
    if (m_state == State::Away) { // it is back and cannot be opened
        m_message = error;
        report(LinkReport::Kind::Lost, c_lostState, error);
        return;
    }
    lose(LinkReport::Cause::Port, c_lostState, error);
    if (m_state == State::Pausing) {
        m_state = State::Away;
        m_portWasThere = true; // an attempt at once would meet a file that is about to go
        m_openAgainUs = m_wrench.clock.nowUs() + m_pause.next() * c_microsecondsPerMillisecond;
        callAfter(c_lookMs, &Supervisor::look);
    }
}

void Supervisor::look()
{
    const bool isThere = isPortThere();
    const bool hasCome = isThere && !std::exchange(m_portWasThere, isThere);
    if (hasCome) {
        m_pause.reset();
    }
    if (hasCome || (isThere && m_wrench.clock.nowUs() >= m_openAgainUs)) {
        openPort();
    } else {
        callAfter(c_lookMs, &Supervisor::look);
    }
}

// A listener that is new makes the driver open the port, and puts no byte on the line.
void Supervisor::openPort()
{
    closeExtraListener();
    callAfter(c_settleMs, &Supervisor::portStaysClosed);
    m_extraListener = m_wrench.host.createOrder(m_wrench.driver, QStringLiteral("listenEventsData"),
                                                {{QStringLiteral("subscription"), true}});
    if (m_extraListener != nullptr) {
        m_extraListener->start();
    }
}

void Supervisor::portStaysClosed()
{
    closeExtraListener();
    const int pauseMs = m_pause.next();
    m_openAgainUs = m_wrench.clock.nowUs() + pauseMs * c_microsecondsPerMillisecond;
    callAfter(c_lookMs, &Supervisor::look);
    ++m_attempt;
    report(LinkReport::Kind::Waiting, {}, driverText(c_lineError), pauseMs);
}

void Supervisor::closeExtraListener()
{
    if (DOrder* listener = m_extraListener.release()) {
        listener->stop();
        listener->deleteLater();
    }
}

// ---- Restoring

void Supervisor::attempt()
{
    closeExtraListener();
    if (m_state == State::Away && !isPortOpen()) { // not for long
        callAfter(c_lookMs, &Supervisor::look);
        return;
    }
    m_state = State::Restoring;
    ++m_attempt;
    report(LinkReport::Kind::Restoring);
    if (m_state == State::Restoring) {
        m_setUp.start(SetUp::Mode::Restoring);
    }
}

void Supervisor::attemptFailed(const Problem& problem)
{
    m_state = State::Pausing;
    m_message = tr("%1: %2").arg(problem.what, problem.cause);
    const int pauseMs = m_pause.next();
    callAfter(pauseMs, &Supervisor::attempt);
    report(LinkReport::Kind::Waiting, {}, m_message, pauseMs);
}

void Supervisor::restored()
{
    cancelTimers();
    m_state = State::Watching;
    report(LinkReport::Kind::Restored);
    m_cause = LinkReport::Cause::None;
}

void Supervisor::giveUp(const QString& what, const QString& mend)
{
    const bool isPort = m_cause == LinkReport::Cause::Port;
    stop();
    Q_EMIT sigGaveUp({isPort ? Problem::Kind::SetUp : Problem::Kind::Device, textOf(SessionStep::Listen).name, what,
                      m_message, mend});
}

// ---- Helpers

void Supervisor::report(LinkReport::Kind kind, const QString& state, const QString& message, int pauseMs)
{
    LinkReport told;
    told.kind = kind;
    told.cause = m_cause;
    told.state = state;
    told.message = message;
    told.attempt = kind == LinkReport::Kind::Waiting ? m_attempt + 1 : m_attempt;
    told.pauseMs = pauseMs;
    told.gapMs = kind == LinkReport::Kind::Restored ? gapMs() : 0;
    Q_EMIT sigLink(told);
}

void Supervisor::callAfter(int delayMs, void (Supervisor::*then)())
{
    m_wrench.clock.cancel(m_timer);
    m_timer = m_wrench.clock.callAfter(delayMs, [this, then] {
        m_timer = 0;
        (this->*then)();
    });
}

void Supervisor::cancelTimers()
{
    m_wrench.clock.cancel(std::exchange(m_timer, 0));
    m_wrench.clock.cancel(std::exchange(m_limitTimer, 0));
}

bool Supervisor::isPortOpen() const
{
    return m_wrench.driver.getProperty(QLatin1String(c_connected), QVariant(false)).toBool();
}

bool Supervisor::isPortThere() const
{
    return !m_wrench.port.isEmpty() && QFileInfo::exists(m_wrench.port);
}

qint64 Supervisor::gapMs() const
{
    return (m_wrench.clock.nowUs() - m_lostUs) / c_microsecondsPerMillisecond;
}

int Supervisor::limitMs() const
{
    return m_order.reconnectLimitMs > 0 ? m_order.reconnectLimitMs : c_defaultLimitMs;
}

QString Supervisor::driverText(const char* property) const
{
    return m_wrench.driver.getProperty(QLatin1String(property), QVariant()).toString();
}
