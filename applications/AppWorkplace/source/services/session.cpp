#include "session.h"

#include <algorithm>
#include <utility>

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/d_host.h>

#include "verdict.h"

namespace {

constexpr int c_lostLimitMs = 500; // a loose contact is not a lost line, and who knows more of it tells first
constexpr int c_millisecondsPerSecond = 1000;
constexpr qint64 c_microsecondsPerMillisecond = 1000;

const QString c_keepAliveFrame = QStringLiteral("DI:C\r\n");
const QString c_keepAliveAnswer = QStringLiteral("OK:");

const QString c_success = QStringLiteral("cmd_success");
const QString c_progId = QStringLiteral("progId");
const QString c_presetData = QStringLiteral("presetData");
const QString c_eventData = QStringLiteral("eventData");
const QString c_listenCommand = QStringLiteral("listenEventsData");
const QString c_currentProgram = QStringLiteral("currentProgId");

const QString c_pluginMend = QStringLiteral("check the folder of the plugins with --plugins");

// Properties of the driver.
constexpr char c_connected[] = "connected";
constexpr char c_lineState[] = "lineState";
constexpr char c_lineError[] = "lineError";

} // namespace

Session::Session(const LinkedDevice& wrench, const SessionOrder& order, QObject* parent)
    : QObject(parent), m_wrench(wrench), m_order(order), m_lineEnd(wrench)
{
    connect(&m_lineEnd, &LineEnd::sigClosed, this, &Session::finish);
    connect(&m_observer, &LineObserver::sigWrenchHeard, this,
            [this](const QString& address, const QString& serialId, const QString& signalStrength) {
                if (m_heard.add(address, serialId, signalStrength)) {
                    Q_EMIT sigWrenchesHeard(m_heard.strongestFirst());
                }
            });
    connect(&m_observer, &LineObserver::sigLineHeard, this,
            [this](const QByteArray& line, int chunk) { m_observed.add(line, chunk); });
    connect(&m_observer, &LineObserver::sigChunkHeard, this, [this](int chunk) {
        if (m_step == Step::Listen && !m_isEnding) {
            Q_EMIT sigChunk(chunk);
        }
    });
    connect(&m_wrench.host, &DHost::sigPropertyChanged, this,
            [this](const DAbstractPlugin* plugin, const QString& name) {
                if (plugin == &m_wrench.driver) {
                    driverChanged(name);
                }
            });
}

Session::~Session()
{
    cancelTimer();
}

void Session::start()
{
    m_startUs = m_wrench.clock.nowUs();
    begin(Step::Open);
    callAfter(limitMs(), &Session::openLimitReached);
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

void Session::begin(Step step)
{
    m_step = step;
    m_stepStartUs = m_wrench.clock.nowUs();
    m_observer.forgetRefusal();
    Q_EMIT sigStepStarted(step);
}

void Session::done()
{
    Q_EMIT sigStepDone(m_step, (m_wrench.clock.nowUs() - m_stepStartUs) / c_microsecondsPerMillisecond);
}

void Session::run(const QString& command, const Results& parameters, Continuation then)
{
    m_run = m_wrench.host.createOrder(m_wrench.device, command, parameters);
    if (m_run == nullptr) {
        failSetUp(QStringLiteral("the device plugin has no command \"%1\"").arg(command), c_pluginMend);
        return;
    }
    connect(m_run.get(), &DOrder::sigFinished, this, [this, then] {
        const std::unique_ptr<DOrder, void (*)(DOrder*)> ended(m_run.release(),
                                                               [](DOrder* order) { order->deleteLater(); });
        switch (ended->outcome()) {
        case DOrder::Outcome::Finished:
            (this->*then)(ended->results());
            break;
        case DOrder::Outcome::TimedOut:
            failStep(QStringLiteral("the time limit of %1 s ended it, %2")
                         .arg(double(limitMs()) / c_millisecondsPerSecond)
                         .arg(refusalOr(QStringLiteral("there was no answer"))));
            break;
        case DOrder::Outcome::Stopped:
            break;
        case DOrder::Outcome::None:
        case DOrder::Outcome::Refused:
        case DOrder::Outcome::Gone:
            failSetUp(QStringLiteral("the device plugin refused \"%1\"").arg(ended->commandName()), c_pluginMend);
            break;
        }
    });
    m_run->start(limitMs());
}

void Session::lineIsOpen()
{
    cancelTimer();
    done();
    begin(Step::Connect);
    run(QStringLiteral("searchAndConnect"),
        {{QStringLiteral("serialId"), m_order.serialId}, {QStringLiteral("name"), m_wrench.device.getName()}},
        &Session::connected);
}

void Session::connected(const Results& results)
{
    if (!results.value(c_success).toBool()) {
        failStep(refusalOr(m_heard.whyNot(m_order.serialId)));
        return;
    }
    done();
    begin(Step::Configure);
    run(QStringLiteral("sendInitConfig"), {}, &Session::configured);
}

void Session::configured(const Results& results)
{
    if (!results.value(c_success).toBool()) {
        failStep(refusalOr(QStringLiteral("it refused")));
        return;
    }
    done();
    begin(Step::Programs);
    run(QStringLiteral("listProgram"), {}, &Session::programsListed);
}

void Session::programsListed(const Results& results)
{
    m_programs = results.value(QStringLiteral("programList")).toList();
    if (m_programs.isEmpty()) {
        failStep(refusalOr(QStringLiteral("it named none")));
        return;
    }
    m_presetsRead = 0;
    askNextPreset();
}

void Session::askNextPreset()
{
    const QVariant program = m_programs.at(m_presetsRead).toMap().value(c_progId);
    run(QStringLiteral("getPresetData"), {{c_progId, program}}, &Session::presetRead);
}

void Session::presetRead(const Results& results)
{
    QVariantMap program = m_programs.at(m_presetsRead).toMap();
    program.insert(c_presetData, results.value(c_presetData));
    m_programs[m_presetsRead] = program;
    if (++m_presetsRead < m_programs.size()) {
        askNextPreset();
    } else {
        programsKnown();
    }
}

void Session::programsKnown()
{
    Q_EMIT sigPrograms(m_programs);
    done();
    if (!m_order.program) {
        unlock();
        return;
    }
    begin(Step::Select);
    run(QStringLiteral("setProgram"), {{c_progId, *m_order.program}}, &Session::programSelected);
}

void Session::programSelected(const Results& results)
{
    if (!results.value(c_success).toBool()) {
        failStep(refusalOr(QStringLiteral("the wrench has the programs 1 to %1, and %2 was asked for")
                               .arg(m_programs.size())
                               .arg(*m_order.program)));
        return;
    }
    Q_EMIT sigSelected(*m_order.program, results.value(c_presetData).toMap());
    done();
    unlock();
}

// The configuration leaves the wrench locked, and a locked wrench does not tighten.
void Session::unlock()
{
    begin(Step::Unlock);
    if (m_order.listens && !subscribe()) {
        return;
    }
    run(QStringLiteral("setLock"), {{QStringLiteral("lock"), false}}, &Session::unlocked);
}

void Session::unlocked(const Results& results)
{
    if (!results.value(c_success).toBool()) {
        failStep(refusalOr(QStringLiteral("the frame could not be written")));
        return;
    }
    done();
    run(QStringLiteral("setKeepAliveFonction"),
        {{QStringLiteral("frame"), c_keepAliveFrame}, {QStringLiteral("responseFrame"), c_keepAliveAnswer}},
        &Session::keepAliveSet);
}

void Session::keepAliveSet(const Results& results)
{
    if (!results.value(c_success).toBool()) {
        failSetUp(QStringLiteral("the driver does not keep the link alive"), c_pluginMend);
        return;
    }
    listen();
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
}

// Before the wrench is unlocked: from then on it may tighten, and no result may go by.
bool Session::subscribe()
{
    m_listener = m_wrench.host.createOrder(m_wrench.device, c_listenCommand);
    if (m_listener == nullptr) {
        failSetUp(QStringLiteral("the device plugin has no command \"%1\"").arg(c_listenCommand), c_pluginMend);
        return false;
    }
    connect(m_listener.get(), &DOrder::sigResultsPublished, this, [this](const QMap<QString, QVariant>& values) {
        if (values.contains(c_eventData)) {
            resultArrived(values.value(c_eventData).toMap());
        }
    });
    connect(m_listener.get(), &DOrder::sigFinished, this,
            [this] { failSetUp(QStringLiteral("the listener has ended"), c_pluginMend); });
    m_listener->start();
    return true;
}

void Session::resultArrived(const QVariantMap& eventData)
{
    TighteningResult result;
    result.eventData = eventData;
    result.rawLine = m_observed.take(eventData);
    result.arrival = QDateTime::currentDateTimeUtc();
    result.program = eventData.value(c_progId).toInt();
    result.preset = presetOf(result.program);
    result.isFirstAfterReconnection = std::exchange(m_isReconnected, false);
    takeResult(result);
}

void Session::takeResult(const TighteningResult& result)
{
    if (m_isEnding) {
        return;
    }
    if (m_step != Step::Listen) {
        m_early.append(result);
        return;
    }
    ++(isGood(result.eventData) ? m_summary.good : m_summary.notGood);
    Q_EMIT sigResult(result);
    if (m_order.results > 0 && m_summary.good + m_summary.notGood >= m_order.results) {
        end(SessionSummary::End::Count);
    }
}

QVariantMap Session::presetOf(int program) const
{
    const auto found = std::find_if(m_programs.cbegin(), m_programs.cend(), [program](const QVariant& each) {
        return each.toMap().value(c_progId).toInt() == program;
    });
    return found == m_programs.cend() ? QVariantMap() : found->toMap().value(c_presetData).toMap();
}

void Session::driverChanged(const QString& property)
{
    if (m_isEnding) {
        return;
    }
    if (property == QLatin1String(c_connected)) {
        lineChanged(m_wrench.driver.getProperty(QLatin1String(c_connected), QVariant(false)).toBool());
    } else if (m_step == Step::Open && property == QLatin1String(c_lineError) && !driverText(c_lineError).isEmpty()) {
        failSetUp(driverText(c_lineError), QString());
    }
}

// A line that is closed without an error was closed on purpose: by the device plugin after a search in vain.
void Session::lineChanged(bool isConnected)
{
    const QString error = driverText(c_lineError);
    if (isConnected && m_step == Step::Open) {
        Q_EMIT sigLink(true, driverText(c_lineState), QString());
        lineIsOpen();
    } else if (isConnected && m_isLineInTrouble) {
        m_isLineInTrouble = false;
        m_isReconnected = true;
        Q_EMIT sigLink(true, driverText(c_lineState), QString());
        if (m_step != Step::Listen) {
            cancelTimer();
        }
    } else if (!isConnected && !error.isEmpty()) {
        m_isLineInTrouble = true;
        Q_EMIT sigLink(false, driverText(c_lineState), error);
        if (m_step != Step::Listen) {
            callAfter(c_lostLimitMs, &Session::lineStaysLost);
        }
    }
}

void Session::openLimitReached()
{
    failSetUp(QStringLiteral("the driver did not say why"), textOf(m_step).mend);
}

void Session::durationIsOver()
{
    end(SessionSummary::End::Duration);
}

void Session::lineStaysLost()
{
    failSetUp(driverText(c_lineError), QString());
}

void Session::failStep(const QString& cause)
{
    const SessionStepText text = textOf(m_step);
    fail({Problem::Kind::Device, text.name, text.failure, cause, text.mend});
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
    if (m_step == Step::Listen) { // before, it may be one that was asked for and refused
        m_summary.program = m_wrench.device.getProperty(c_currentProgram, QVariant(0)).toInt();
    }
    // Orders are let go from a later turn: one of them may be telling us of its end.
    for (std::unique_ptr<DOrder>* order : {&m_listener, &m_run}) {
        if (DOrder* running = order->release()) {
            running->disconnect(this);
            running->stop();
            running->deleteLater();
        }
    }
    m_observer.stop();
    if (m_step == Step::Open) {
        m_lineEnd.close(); // nobody was called yet
    } else {
        m_lineEnd.hangUpAndClose();
    }
}

void Session::finish()
{
    m_summary.elapsedMs = (m_wrench.clock.nowUs() - m_startUs) / c_microsecondsPerMillisecond;
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

int Session::limitMs() const
{
    return m_order.stepLimitMs > 0 ? m_order.stepLimitMs : textOf(m_step).limitMs;
}

QString Session::driverText(const char* property) const
{
    return m_wrench.driver.getProperty(QLatin1String(property), QVariant()).toString();
}

QString Session::refusalOr(const QString& otherwise) const
{
    const QString refusal = m_observer.lastRefusal();
    return refusal.isEmpty() ? otherwise : QStringLiteral("the line said \"%1\"").arg(refusal);
}
