#include "session.h"

#include <algorithm>
#include <utility>

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/d_host.h>

#include "verdict.h"

namespace {

constexpr int c_lostLimitMs = 500; // a loose contact is not a lost line, and who knows more of it tells first
constexpr qint64 c_microsecondsPerMillisecond = 1000;

const QString c_progId = QStringLiteral("progId");
const QString c_presetData = QStringLiteral("presetData");
const QString c_eventData = QStringLiteral("eventData");
const QString c_listenCommand = QStringLiteral("listenEventsData");

// Properties of the driver.
constexpr char c_connected[] = "connected";
constexpr char c_lineState[] = "lineState";
constexpr char c_lineError[] = "lineError";
const QString c_lostState = QStringLiteral("lost");
const QString c_openState = QStringLiteral("open");

} // namespace

Session::Session(const LinkedDevice& wrench, const SessionOrder& order, QObject* parent)
    : QObject(parent)
    , m_wrench(wrench)
    , m_order(order)
    , m_setUp(wrench, order, m_observer)
    , m_supervisor(wrench, order, m_setUp, m_observer)
    , m_orders(wrench, order, m_setUp, m_observer)
    , m_lineEnd(wrench, &m_observer)
{
    connect(&m_lineEnd, &LineEnd::sigClosed, this, &Session::finish);
    connect(&m_observer, &LineObserver::sigLineHeard, this, [this](const QByteArray& line, int chunk) {
        if (m_step != Step::Connect || m_setUp.isLinked()) {
            m_observed.add(line, chunk);
        }
    });
    connect(&m_observer, &LineObserver::sigChunkHeard, this, [this](int chunk) {
        if (m_step == Step::Listen && !m_isRestoring && !m_orders.isRunning() && !m_isEnding) {
            Q_EMIT sigChunk(chunk);
        }
    });
    connect(&m_wrench.host, &DHost::sigPropertyChanged, this,
            [this](const DAbstractPlugin* plugin, const QString& name) {
                if (plugin == &m_wrench.driver) {
                    driverChanged(name);
                }
            });
    connectSetUp();
    connectOrders();
    connect(&m_supervisor, &Supervisor::sigGaveUp, this, &Session::fail);
    connect(&m_supervisor, &Supervisor::sigLink, this, [this](const LinkReport& report) {
        // Whatever comes from now on comes over a new link.
        m_isReconnected = m_isReconnected || report.kind == LinkReport::Kind::Restoring;
        m_isRestoring = report.kind != LinkReport::Kind::Restored;
        Q_EMIT sigLink(report);
        if (report.kind == LinkReport::Kind::Lost) {
            m_orders.linkLost(report.message);
        } else if (report.kind == LinkReport::Kind::Restored) {
            m_orders.linkRestored();
        }
    });
}

/// The steps are told the first time; what the supervisor does with them it tells itself.
void Session::connectSetUp()
{
    const auto isFirst = [this] { return m_step != Step::Listen; };
    connect(&m_setUp, &SetUp::sigWrenchesHeard, this, &Session::sigWrenchesHeard);
    connect(&m_setUp, &SetUp::sigNamesakes, this, &Session::sigNamesakes);
    connect(&m_setUp, &SetUp::sigUnverified, this, &Session::sigUnverified);
    connect(&m_setUp, &SetUp::sigProgramsRead, this, [this](const QVariantList& programs) {
        m_program =
            programs.constFirst().toMap().value(c_progId).toInt(); // the walk through the list ends where it began
        Q_EMIT sigPrograms(programs);
    });
    connect(&m_setUp, &SetUp::sigStepStarted, this, [this, isFirst](Step step) {
        if (isFirst()) {
            begin(step);
        }
    });
    connect(&m_setUp, &SetUp::sigStepDone, this, [this, isFirst](Step step, qint64 elapsedMs) {
        if (isFirst()) {
            Q_EMIT sigStepDone(step, elapsedMs);
        }
    });
    connect(&m_setUp, &SetUp::sigSelected, this, [this, isFirst](int program, const QVariantMap& preset) {
        m_program = program;
        if (isFirst()) {
            Q_EMIT sigSelected(program, preset);
        }
    });
    connect(&m_setUp, &SetUp::sigDone, this, [this, isFirst] {
        if (isFirst()) {
            listen();
        }
    });
    connect(&m_setUp, &SetUp::sigFailed, this, [this, isFirst](const Problem& problem) {
        if (isFirst()) {
            fail(problem);
        }
    });
}

void Session::connectOrders()
{
    connect(&m_orders, &WrenchOrders::sigStarted, this, &Session::sigOrderStarted);
    connect(&m_orders, &WrenchOrders::sigEnded, this, &Session::sigOrderEnded);
    connect(&m_orders, &WrenchOrders::sigSelected, this, [this](int program, const QVariantMap& preset) {
        m_program = program;
        Q_EMIT sigSelected(program, preset);
    });
    connect(&m_orders, &WrenchOrders::sigLocked, this, &Session::sigLocked);
    connect(&m_orders, &WrenchOrders::sigLockUnknown, this, &Session::sigLockUnknown);
    connect(&m_orders, &WrenchOrders::sigRefused, this, &Session::sigOrderRefused);
}

Session::~Session()
{
    cancelTimer();
}

void Session::start()
{
    m_startUs = m_wrench.clock.nowUs();
    begin(Step::Open);
    callAfter(m_order.stepLimitMs > 0 ? m_order.stepLimitMs : textOf(Step::Open).limitMs, &Session::openLimitReached);
    m_observer.start(m_wrench.host, m_wrench.driver);
}

void Session::interrupt()
{
    end(SessionSummary::End::Interrupt);
}

void Session::fail(const Problem& problem)
{
    if (!m_isEnding) {
        Q_EMIT sigFailed(problem);
        end(SessionSummary::End::Failure);
    }
}

void Session::discount(const TighteningResult& result)
{
    --(isGood(result.eventData) ? m_summary.good : m_summary.notGood);
}

void Session::selectProgram(int program)
{
    m_orders.selectProgram(program);
}

void Session::setLock(bool isLocked)
{
    m_orders.setLock(isLocked);
}

void Session::begin(Step step)
{
    m_step = step;
    Q_EMIT sigStepStarted(step);
    if (step == Step::Connect && m_order.listens) {
        subscribe();
    }
}

void Session::lineIsOpen()
{
    cancelTimer();
    Q_EMIT sigStepDone(m_step, elapsedMs(m_startUs));
    if (!m_isEnding) {
        m_setUp.start(SetUp::Mode::First);
    }
}

void Session::listen()
{
    begin(Step::Listen);
    cancelTimer();
    if (m_order.durationMs > 0) {
        callAfter(m_order.durationMs, &Session::durationIsOver);
    }
    if (!m_order.listens) {
        Q_EMIT sigReady();
        return;
    }
    const QList<TighteningResult> early = std::exchange(m_early, {});
    for (const TighteningResult& result : early) {
        takeResult(result);
    }
    if (!m_isEnding) {
        m_supervisor.start();
    }
    if (!m_isEnding) { // it may have found the link lost, for good
        m_orders.start();
    }
}

// Before the wrench is dialled: with its link come the results that it has kept, and none may go by.
void Session::subscribe()
{
    m_listener = m_wrench.host.createOrder(m_wrench.device, c_listenCommand);
    if (m_listener == nullptr) {
        failSetUp(tr("the device plugin has no command \"%1\"").arg(c_listenCommand),
                  tr("check the folder of the plugins with --plugins"));
        return;
    }
    connect(m_listener.get(), &DOrder::sigResultsPublished, this, [this](const QMap<QString, QVariant>& values) {
        if (values.contains(c_eventData)) {
            resultArrived(values.value(c_eventData).toMap());
        }
    });
    connect(m_listener.get(), &DOrder::sigFinished, this,
            [this] { failSetUp(tr("the listener has ended"), tr("check the folder of the plugins with --plugins")); });
    m_listener->start();
}

void Session::unsubscribe()
{
    if (DOrder* listener = m_listener.release()) {
        listener->disconnect(this);
        listener->stop();
        listener->deleteLater(); // it may be telling us of its end
    }
}

void Session::resultArrived(const QVariantMap& eventData)
{
    TighteningResult result;
    result.eventData = eventData;
    result.rawLine = m_observed.take(eventData);
    result.arrival = QDateTime::currentDateTimeUtc();
    result.program = m_program;
    result.preset = presetOf(m_program);
    if (isOfTheWrench(result)) {
        result.isFirstAfterReconnection = std::exchange(m_isReconnected, false);
        takeResult(result);
    }
}

// Before the wrench is dialled the dongle may still hold the link to another one.
bool Session::isOfTheWrench(const TighteningResult& result) const
{
    return m_step != Step::Connect || !result.rawLine.isEmpty();
}

void Session::takeResult(const TighteningResult& result)
{
    if (m_step != Step::Listen && !m_isEnding) {
        m_early.append(result);
        return;
    }
    tell(result);
    if (m_order.results > 0 && m_summary.good + m_summary.notGood >= m_order.results) {
        end(SessionSummary::End::Count);
    }
}

void Session::tell(const TighteningResult& result)
{
    ++(isGood(result.eventData) ? m_summary.good : m_summary.notGood);
    Q_EMIT sigResult(result);
}

QVariantMap Session::presetOf(int program) const
{
    const QVariantList& programs = m_setUp.programs();
    const auto found = std::find_if(programs.cbegin(), programs.cend(), [program](const QVariant& each) {
        return each.toMap().value(c_progId).toInt() == program;
    });
    return found == programs.cend() ? QVariantMap() : found->toMap().value(c_presetData).toMap();
}

void Session::driverChanged(const QString& property)
{
    if (property == QLatin1String(c_lineState)) { // also while it ends, for it still takes results
        followLine(driverText(c_lineState));
    }
    if (m_isEnding || (m_step == Step::Listen && m_order.listens)) {
        return; // then it is the supervisor's
    }
    if (property == QLatin1String(c_connected)) {
        lineChanged(m_wrench.driver.getProperty(QLatin1String(c_connected), QVariant(false)).toBool());
    } else if (m_step == Step::Open && property == QLatin1String(c_lineError) && !driverText(c_lineError).isEmpty()) {
        failSetUp(driverText(c_lineError), QString());
    }
}

// What had arrived of a line when the port went is not the beginning of what comes when it is back: together they would
// be a result that no wrench has sent. So everybody who makes lines begins anew, before the first byte can come.
void Session::followLine(const QString& state)
{
    if (state == c_lostState) {
        m_isLineCutOff = true;
    } else if (state == c_openState && std::exchange(m_isLineCutOff, false)) {
        m_observer.forgetPartialLine();
        if (m_listener != nullptr) {
            unsubscribe();
            subscribe();
        }
    }
}

// A line that is closed without an error was closed on purpose: by the device plugin after a search in vain.
void Session::lineChanged(bool isConnected)
{
    LinkReport report;
    report.state = driverText(c_lineState);
    if (isConnected && (m_step == Step::Open || std::exchange(m_isLineInTrouble, false))) {
        report.kind = LinkReport::Kind::Opened;
        Q_EMIT sigLink(report);
        if (m_step == Step::Open) {
            lineIsOpen();
        } else if (m_step != Step::Listen) {
            cancelTimer();
        }
    } else if (!isConnected && !driverText(c_lineError).isEmpty()) {
        m_isLineInTrouble = true;
        report.kind = LinkReport::Kind::Lost;
        report.cause = LinkReport::Cause::Port;
        report.message = driverText(c_lineError);
        Q_EMIT sigLink(report);
        if (m_step != Step::Listen) {
            callAfter(c_lostLimitMs, &Session::lineStaysLost);
        }
    }
}

void Session::openLimitReached()
{
    failSetUp(tr("the driver did not say why"), textOf(m_step).mend);
}

void Session::durationIsOver()
{
    end(SessionSummary::End::Duration);
}

void Session::lineStaysLost()
{
    failSetUp(driverText(c_lineError), QString());
}

void Session::failSetUp(const QString& cause, const QString& mend)
{
    const SessionStepText text = textOf(m_step);
    fail({Problem::Kind::SetUp, text.name, text.failure, cause, mend});
}

void Session::end(SessionSummary::End how)
{
    if (m_isEnding) {
        return;
    }
    m_isEnding = true;
    m_summary.end = how;
    cancelTimer();
    // That the session fails does not make them undone.
    const QList<TighteningResult> early = std::exchange(m_early, {});
    for (const TighteningResult& result : early) {
        tell(result);
    }
    if (m_step == Step::Listen) { // before, it may be one that was asked for and refused
        m_summary.program = m_program;
    }
    m_orders.stop();
    m_supervisor.stop();
    m_setUp.stop();
    if (m_step == Step::Open) {
        m_lineEnd.close(); // nobody was called yet
    } else {
        m_lineEnd.hangUpAndClose();
    }
}

void Session::finish()
{
    unsubscribe();
    m_observer.stop();
    m_summary.elapsedMs = elapsedMs(m_startUs);
    Q_EMIT sigFinished(m_summary);
}

void Session::callAfter(int delayMs, void (Session::*then)())
{
    cancelTimer();
    m_timer = m_wrench.clock.callAfter(delayMs, [this, then] {
        m_timer = 0;
        (this->*then)();
    });
}

void Session::cancelTimer()
{
    m_wrench.clock.cancel(m_timer);
    m_timer = 0;
}

qint64 Session::elapsedMs(qint64 sinceUs) const
{
    return (m_wrench.clock.nowUs() - sinceUs) / c_microsecondsPerMillisecond;
}

QString Session::driverText(const char* property) const
{
    return m_wrench.driver.getProperty(QLatin1String(property), QVariant()).toString();
}
