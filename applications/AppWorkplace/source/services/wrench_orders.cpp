#include "wrench_orders.h"

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/d_host.h>

#include <algorithm>
#include <utility>

#include "line_observer.h"
#include "set_up.h"

namespace {

constexpr qint64 c_microsecondsPerMillisecond = 1000;
constexpr double c_millisecondsPerSecond = 1000;
const QString c_refusalPrefix = QStringLiteral("ERR");
const QString c_busyRefusal = QStringLiteral("ERR:5"); // a tightening is going on
const QString c_lockedAnswer = QStringLiteral("OK:1");
const QString c_unlockedAnswer = QStringLiteral("OK:0");
const QString c_setProgram = QStringLiteral("setProgram");
const QString c_setLock = QStringLiteral("setLock");
const QString c_lock = QStringLiteral("lock");
const QString c_progId = QStringLiteral("progId");
const QString c_presetData = QStringLiteral("presetData");
const QString c_success = QStringLiteral("cmd_success");

bool isListed(const QVariantList& programs, int program)
{
    return std::any_of(programs.cbegin(), programs.cend(),
                       [program](const QVariant& each) { return each.toMap().value(c_progId).toInt() == program; });
}

} // namespace

WrenchOrders::WrenchOrders(const LinkedDevice& wrench, const SessionOrder& order, SetUp& setUp, LineObserver& observer,
                           QObject* parent)
    : QObject(parent)
    , m_wrench(wrench)
    , m_order(order)
    , m_setUp(setUp)
    , m_observer(observer)
    , m_run(wrench, observer)
    , m_selection(wrench, observer)
    , m_toldProgram(order.program.value_or(0))
{
    const auto failStep = [this](const QString& cause) { fail({cause, tr("try again")}); };
    const auto failUnusable = [this](const QString& cause) {
        fail({cause, tr("check the folder of the plugins with --plugins"), Problem::Kind::SetUp});
    };
    connect(&m_run, &DeviceRun::sigFailed, this, failStep);
    connect(&m_run, &DeviceRun::sigUnusable, this, failUnusable);
    connect(&m_selection, &ProgramSelection::sigDone, this, [this](int program, const QVariantMap& preset) {
        m_setUp.chooseProgram(program);
        end();
        selected(program, preset);
    });
    connect(&m_selection, &ProgramSelection::sigNoSuchProgram, this,
            [failStep] { failStep(tr("the device plugin does not know it")); });
    connect(&m_selection, &ProgramSelection::sigFailed, this, failStep);
    connect(&m_selection, &ProgramSelection::sigUnusable, this, failUnusable);
    connect(&observer, &LineObserver::sigLineHeard, this,
            [this](const QByteArray& line) { lineHeard(QString::fromUtf8(line).trimmed()); });
    connect(&setUp, &SetUp::sigSelected, this, [this](int program, const QVariantMap& preset) {
        if (m_state == State::Away && program != m_toldProgram) {
            selected(program, preset);
        }
    });
    connect(&wrench.host, &DHost::sigTreatmentStarted, this, [this](const DAbstractPlugin* device) {
        if (device == &m_wrench.device && m_state != State::Off) {
            ++m_treatments;
            m_lockWord.clear();
            Q_EMIT sigStarted();
        }
    });
    connect(&wrench.host, &DHost::sigTreated, this,
            [this](const DAbstractPlugin* device, const QString& treatment, const QVariantMap& parameters,
                   const QVariantMap& reply) {
                if (device == &m_wrench.device && m_treatments > 0) {
                    treated(treatment, parameters, reply);
                }
            });
}

WrenchOrders::~WrenchOrders()
{
    cancelTimer();
    m_wrench.clock.cancel(m_panelTimer);
}

void WrenchOrders::start()
{
    m_state = State::Ready;
    locked(m_setUp.isLockChosen());
}

void WrenchOrders::stop()
{
    m_state = State::Off;
    m_treatments = 0;
    m_panelLock.reset();
    m_wrench.clock.cancel(std::exchange(m_panelTimer, 0));
    m_isRunning = false;
    cancelTimer();
    m_run.stop();
    m_selection.stop();
}

void WrenchOrders::linkLost(const QString& cause)
{
    if (m_state == State::Off) {
        return;
    }
    m_state = State::Away;
    if (m_isRunning) {
        fail({cause, tr("wait until the link is restored, and try again")});
    }
}

void WrenchOrders::linkRestored()
{
    if (m_state == State::Away) {
        m_state = State::Ready;
        if (m_toldLock != m_setUp.isLockChosen()) {
            locked(m_setUp.isLockChosen());
        }
    }
}

// ---- Carrying out

void WrenchOrders::selectProgram(int program)
{
    if (const std::optional<Obstacle> found = obstacle()) {
        refuse(std::nullopt, *found);
    } else if (!isListed(m_setUp.programs(), program)) {
        refuse(std::nullopt, {tr("the wrench has the programs 1 to %1, and %2 was asked for")
                                  .arg(m_setUp.programs().size())
                                  .arg(program),
                              tr("choose one of the listed programs")});
    } else {
        begin(std::nullopt);
        m_selection.start(program, limitMs());
    }
}

void WrenchOrders::setLock(bool isLocked)
{
    if (const std::optional<Obstacle> found = obstacle()) {
        refuse(isLocked, *found);
    } else {
        begin(isLocked);
        sendLock();
    }
}

std::optional<WrenchOrders::Obstacle> WrenchOrders::obstacle() const
{
    switch (m_state) {
    case State::Off:
        return Obstacle{tr("the session does not listen to the wrench"), tr("wait until it does")};
    case State::Away:
        return Obstacle{tr("the link to the wrench is being restored"), tr("wait until it is, and try again")};
    case State::Ready:
        break;
    }
    return isRunning()
               ? std::optional<Obstacle>({tr("another order is being carried out"), tr("wait until it is done")})
               : std::nullopt;
}

void WrenchOrders::begin(Lock order)
{
    m_isRunning = true;
    m_lock = order;
    m_startUs = m_wrench.clock.nowUs();
    m_observer.forgetRefusal();
    Q_EMIT sigStarted();
}

void WrenchOrders::end()
{
    m_isRunning = false;
    cancelTimer();
    m_run.stop();
    m_selection.stop();
    Q_EMIT sigEnded();
}

void WrenchOrders::sendLock()
{
    m_isLockSent = false;
    m_isLockAnswered = false;
    m_run.start(c_setLock, {{c_lock, *m_lock}}, limitMs(),
                [this](const DeviceRun::Results& results) { lockSent(results); });
}

// The plugin is content when the frame has left; what the wrench says to it may come before that is told.
void WrenchOrders::lockSent(const DeviceRun::Results& results)
{
    if (!results.value(c_success).toBool()) {
        fail({tr("the frame could not be written"), tr("try again")});
        return;
    }
    m_isLockSent = true;
    if (m_isLockAnswered) {
        finishLock();
    } else {
        callAfter(c_answerLimitMs, &WrenchOrders::answerStaysAway);
    }
}

void WrenchOrders::lineHeard(const QString& line)
{
    if (m_treatments > 0 && (line == c_lockedAnswer || line == c_unlockedAnswer || line.startsWith(c_refusalPrefix))) {
        m_lockWord = line;
        if (m_panelLock) {
            panelLockAnswered();
        }
    }
    if (!m_isRunning || !m_lock) {
        return;
    }
    if (line == (*m_lock ? c_lockedAnswer : c_unlockedAnswer)) {
        m_isLockAnswered = true;
        if (m_isLockSent) {
            finishLock();
        }
    } else if (line.startsWith(c_refusalPrefix)) {
        m_run.stop();
        cancelTimer();
        const qint64 elapsedMs = (m_wrench.clock.nowUs() - m_startUs) / c_microsecondsPerMillisecond;
        if (line == c_busyRefusal && elapsedMs + ProgramSelection::c_busyPauseMs < limitMs()) {
            callAfter(ProgramSelection::c_busyPauseMs, &WrenchOrders::sendLock);
        } else {
            end();
            refuse(m_lock, {m_observer.refusalOr(line), tr("try again")});
        }
    }
}

void WrenchOrders::answerStaysAway()
{
    fail({tr("the wrench has not answered within %1 s").arg(c_answerLimitMs / c_millisecondsPerSecond),
          tr("bring the wrench nearer and try again")});
}

void WrenchOrders::finishLock()
{
    const bool isLocked = *m_lock;
    m_setUp.chooseLock(isLocked);
    end();
    locked(isLocked);
}

void WrenchOrders::treated(const QString& treatment, const QVariantMap& parameters, const QVariantMap& reply)
{
    const bool isDone = reply.value(c_success).toBool();
    if (treatment == c_setLock && isDone) {
        // The plugin is content when its frame has left; the wrench may have answered by now, or not.
        m_panelLock = parameters.value(c_lock).toBool();
        if (m_lockWord.isEmpty()) {
            m_wrench.clock.cancel(m_panelTimer);
            m_panelTimer = m_wrench.clock.callAfter(c_answerLimitMs, [this] { panelLockAnswered(); });
        } else {
            panelLockAnswered();
        }
        return;
    }
    --m_treatments;
    Q_EMIT sigEnded();
    if (treatment == c_setProgram && isDone) {
        m_setUp.chooseProgram(parameters.value(c_progId).toInt());
        selected(*m_setUp.chosenProgram(), reply.value(c_presetData).toMap());
    } else if (treatment == c_setProgram) {
        selected(0, {});
    }
}

// Or not, within the time: then nobody knows.
void WrenchOrders::panelLockAnswered()
{
    m_wrench.clock.cancel(std::exchange(m_panelTimer, 0));
    const bool isLocked = *std::exchange(m_panelLock, std::nullopt);
    --m_treatments;
    Q_EMIT sigEnded();
    if (m_lockWord == (isLocked ? c_lockedAnswer : c_unlockedAnswer)) {
        m_setUp.chooseLock(isLocked);
        locked(isLocked);
    } else if (!m_lockWord.startsWith(c_refusalPrefix)) { // refused: it is as it was
        m_toldLock.reset();
        Q_EMIT sigLockUnknown();
    }
}

// ---- Telling

void WrenchOrders::selected(int program, const QVariantMap& preset)
{
    m_toldProgram = program;
    Q_EMIT sigSelected(program, preset);
}

void WrenchOrders::locked(bool isLocked)
{
    m_toldLock = isLocked;
    Q_EMIT sigLocked(isLocked);
}

void WrenchOrders::refuse(Lock order, const Obstacle& obstacle)
{
    const SessionStepText select = textOf(SessionStep::Select);
    const SessionStepText unlock = textOf(SessionStep::Unlock);
    Problem problem{obstacle.kind, select.name, select.failure, obstacle.cause, obstacle.mend};
    if (order) {
        problem.step = *order ? QStringLiteral("lock") : unlock.name;
        problem.what = *order ? tr("the wrench could not be locked") : unlock.failure;
    }
    Q_EMIT sigRefused(problem);
}

void WrenchOrders::fail(const Obstacle& obstacle)
{
    const Lock order = m_lock;
    end();
    if (order) {
        m_toldLock.reset();
        Q_EMIT sigLockUnknown();
    } else {
        selected(0, {});
    }
    refuse(order, obstacle);
}

void WrenchOrders::callAfter(int delayMs, void (WrenchOrders::*then)())
{
    cancelTimer();
    m_timer = m_wrench.clock.callAfter(delayMs, [this, then] {
        m_timer = 0;
        (this->*then)();
    });
}

void WrenchOrders::cancelTimer()
{
    m_wrench.clock.cancel(std::exchange(m_timer, 0));
}

int WrenchOrders::limitMs() const
{
    return m_order.stepLimitMs > 0 ? m_order.stepLimitMs
                                   : textOf(m_lock ? SessionStep::Unlock : SessionStep::Select).limitMs;
}
