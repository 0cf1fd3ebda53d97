#include "set_up.h"

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_utilities/clock.h>

#include <utility>

#include "line_observer.h"

namespace {

constexpr qint64 c_microsecondsPerMillisecond = 1000;

const QString c_keepAliveFrame = QStringLiteral("DI:C\r\n");
const QString c_keepAliveAnswer = QStringLiteral("OK:");
const QString c_linkOpen = QStringLiteral("DATA");
const QString c_dialledPrefix = QStringLiteral("ATD ");
const QString c_refusalPrefix = QStringLiteral("ERR");
const QString c_unlocked = QStringLiteral("OK:0");
const QString c_atRest = QStringLiteral("OK"); // the answer to the frame with which a list begins

const QString c_success = QStringLiteral("cmd_success");
const QString c_progId = QStringLiteral("progId");
const QString c_presetData = QStringLiteral("presetData");
const QString c_setKeepAlive = QStringLiteral("setKeepAliveFonction");
const QString c_frame = QStringLiteral("frame");
const QString c_responseFrame = QStringLiteral("responseFrame");
const QString c_address = QStringLiteral("mac");
// Properties of the driver, and a value.
const QString c_lineState = QStringLiteral("lineState");
const QString c_lineError = QStringLiteral("lineError");
const QString c_lostState = QStringLiteral("lost");

} // namespace

SetUp::SetUp(const LinkedDevice& wrench, const SessionOrder& order, LineObserver& observer, QObject* parent)
    : QObject(parent)
    , m_wrench(wrench)
    , m_order(order)
    , m_observer(observer)
    , m_run(wrench, observer)
    , m_selection(wrench, observer)
    , m_program(order.program)
{
    connect(&observer, &LineObserver::sigWrenchHeard, this, &SetUp::wrenchHeard);
    connect(&observer, &LineObserver::sigLineHeard, this,
            [this](const QByteArray& line) { lineHeard(QString::fromUtf8(line).trimmed()); });
    connect(&m_run, &DeviceRun::sigFailed, this, &SetUp::failStep);
    connect(&m_run, &DeviceRun::sigUnusable, this, &SetUp::failSetUp);
    connect(&m_selection, &ProgramSelection::sigDone, this, &SetUp::programSelected);
    connect(&m_selection, &ProgramSelection::sigNoSuchProgram, this, [this] {
        failStep(m_observer.refusalOr(
            tr("the wrench has the programs 1 to %1, and %2 was asked for").arg(m_programs.size()).arg(*m_program)));
    });
    connect(&m_selection, &ProgramSelection::sigFailed, this, &SetUp::failStep);
    connect(&m_selection, &ProgramSelection::sigUnusable, this, &SetUp::failSetUp);
}

SetUp::~SetUp()
{
    m_wrench.clock.cancel(m_answerLimit);
}

void SetUp::start(Mode mode)
{
    m_mode = mode;
    m_isRunning = true;
    m_isSearchedAgain = false;
    begin(Step::Connect);
    if (mode == Mode::Restoring) {
        run(c_setKeepAlive, {{c_frame, QString()}, {c_responseFrame, QString()}}, &SetUp::search);
    } else {
        search({});
    }
}

void SetUp::stop()
{
    m_isRunning = false;
    m_wrench.clock.cancel(std::exchange(m_answerLimit, 0));
    m_run.stop();
    m_selection.stop();
}

void SetUp::begin(Step step)
{
    if (!m_isRunning) {
        return; // whoever heard of the step before has stopped it
    }
    m_step = step;
    m_stepStartUs = m_wrench.clock.nowUs();
    m_observer.forgetRefusal();
    Q_EMIT sigStepStarted(step);
}

void SetUp::done()
{
    Q_EMIT sigStepDone(m_step, elapsedMs());
}

void SetUp::run(const QString& command, const Results& parameters, Continuation then)
{
    if (m_isRunning) { // else likewise
        m_run.start(command, parameters, limitMs(), [this, then](const Results& results) { (this->*then)(results); });
    }
}

// ---- The steps

void SetUp::search(const Results& results)
{
    Q_UNUSED(results)
    m_heard = {};
    m_dialled.clear();
    m_isLinked = false;
    run(QStringLiteral("searchAndConnect"),
        {{QStringLiteral("serialId"), m_order.serialId}, {QStringLiteral("name"), m_wrench.device.getName()}},
        &SetUp::connected);
}

void SetUp::connected(const Results& results)
{
    tellNamesakes();
    if (!results.value(c_success).toBool()) {
        failStep(m_observer.refusalOr(m_heard.whyNot(m_order.serialId)));
        return;
    }
    if (m_mode == Mode::First && m_dialled.isEmpty()) {
        // A link that the dongle has held may be to any wrench. The device plugin has hung up by now.
        if (!std::exchange(m_isSearchedAgain, true)) {
            search({});
            return;
        }
        m_isLinked = true;
        Q_EMIT sigUnverified();
    }
    done();
    begin(Step::Configure);
    run(QStringLiteral("sendInitConfig"), {}, &SetUp::configured);
}

void SetUp::configured(const Results& results)
{
    if (!results.value(c_success).toBool()) {
        failStep(m_observer.refusalOr(tr("it refused")));
        return;
    }
    done();
    if (m_mode == Mode::Restoring) {
        select();
        return;
    }
    begin(Step::Programs);
    run(QStringLiteral("listProgram"), {}, &SetUp::programsListed);
}

void SetUp::programsListed(const Results& results)
{
    m_programs = results.value(QStringLiteral("programList")).toList();
    if (m_programs.isEmpty() || m_isListCutShort) {
        failStep(m_observer.refusalOr(tr("it named none")));
        return;
    }
    m_presetsRead = 0;
    askNextPreset();
}

void SetUp::askNextPreset()
{
    const QVariant program = m_programs.at(m_presetsRead).toMap().value(c_progId);
    run(QStringLiteral("getPresetData"), {{c_progId, program}}, &SetUp::presetRead);
}

void SetUp::presetRead(const Results& results)
{
    QVariantMap program = m_programs.at(m_presetsRead).toMap();
    program.insert(c_presetData, results.value(c_presetData));
    m_programs[m_presetsRead] = program;
    if (++m_presetsRead < m_programs.size()) {
        askNextPreset();
        return;
    }
    Q_EMIT sigProgramsRead(m_programs);
    done();
    select();
}

void SetUp::select()
{
    if (!m_program) {
        unlock();
        return;
    }
    begin(Step::Select);
    if (m_isRunning) { // likewise
        m_selection.start(*m_program, limitMs());
    }
}

void SetUp::programSelected(int program, const QVariantMap& preset)
{
    Q_EMIT sigSelected(program, preset);
    done();
    unlock();
}

// The configuration leaves the wrench locked, and a locked wrench does not tighten.
void SetUp::unlock()
{
    if (m_isToBeLocked) {
        setKeepAlive();
        return;
    }
    m_isUnlockAnswered = false;
    begin(Step::Unlock);
    run(QStringLiteral("setLock"), {{QStringLiteral("lock"), false}}, &SetUp::unlocked);
}

void SetUp::unlocked(const Results& results)
{
    if (!results.value(c_success).toBool()) {
        failStep(m_observer.refusalOr(tr("the frame could not be written")));
        return;
    }
    if (m_isUnlockAnswered) {
        unlockAnswered();
        return;
    }
    m_answerLimit = m_wrench.clock.callAfter(limitMs(), [this] {
        m_answerLimit = 0;
        failStep(m_run.limitReached(limitMs()));
    });
}

// The plugin is content when its frame has left; a wrench that has not heard it does not tighten.
void SetUp::unlockAnswered()
{
    m_wrench.clock.cancel(std::exchange(m_answerLimit, 0));
    if (m_observer.lastRefusal().isEmpty()) {
        done();
        setKeepAlive();
    } else {
        failStep(m_observer.refusalOr(QString()));
    }
}

void SetUp::setKeepAlive()
{
    run(c_setKeepAlive, {{c_frame, c_keepAliveFrame}, {c_responseFrame, c_keepAliveAnswer}}, &SetUp::keepAliveSet);
}

void SetUp::keepAliveSet(const Results& results)
{
    if (!results.value(c_success).toBool()) {
        failSetUp(tr("the driver does not keep the link alive"));
        return;
    }
    m_isRunning = false;
    Q_EMIT sigDone();
}

// ---- What is heard beside the commands

void SetUp::wrenchHeard(const QString& address, const QString& serialId, const QString& signalStrength)
{
    if (serialId == m_order.serialId) {
        m_namesakes.add(address, serialId, signalStrength);
    }
    if (m_heard.add(address, serialId, signalStrength)) {
        Q_EMIT sigWrenchesHeard(m_heard.strongestFirst());
    }
}

void SetUp::lineHeard(const QString& line)
{
    if (line.startsWith(c_dialledPrefix)) {
        m_dialled = line.mid(c_dialledPrefix.size()).trimmed();
        m_isLinked = false;
    } else if (line == c_linkOpen) {
        m_isLinked = !dialledWrench().isEmpty();
    } else if (m_isRunning && m_step == Step::Programs) {
        // The plugin gives what it has read until then as the whole list.
        m_isListBegun = m_isListBegun || line == c_atRest;
        m_isListCutShort = m_isListCutShort || (m_isListBegun && line.startsWith(c_refusalPrefix));
    } else if (m_isRunning && m_step == Step::Unlock) {
        m_isUnlockAnswered = m_isUnlockAnswered || line == c_unlocked || line.startsWith(c_refusalPrefix);
        if (m_isUnlockAnswered && m_answerLimit != 0) {
            unlockAnswered();
        }
    }
}

void SetUp::tellNamesakes()
{
    const QVariantList wrenches = m_namesakes.strongestFirst();
    const QString taken = dialledWrench();
    if (wrenches.size() > 1 && (wrenches.size() != m_namesakesTold || taken != m_takenTold)) {
        m_namesakesTold = wrenches.size();
        m_takenTold = taken;
        Q_EMIT sigNamesakes(wrenches, taken);
    }
}

QString SetUp::dialledWrench() const
{
    const QVariantList wrenches = m_namesakes.strongestFirst();
    for (const QVariant& wrench : wrenches) {
        const QString address = wrench.toMap().value(c_address).toString();
        if (QString(address).remove(QLatin1Char(':')) == m_dialled) {
            return address;
        }
    }
    return {};
}

// ---- Failing

void SetUp::failStep(const QString& cause)
{
    const SessionStepText text = textOf(m_step);
    const auto driverText = [this](const QString& property) {
        return m_wrench.driver.getProperty(property, QVariant()).toString();
    };
    if (driverText(c_lineState) == c_lostState) { // whatever the device said of it
        fail({Problem::Kind::SetUp, text.name, text.failure, driverText(c_lineError), QString()});
        return;
    }
    fail({Problem::Kind::Device, text.name, text.failure, cause, text.mend});
}

void SetUp::failSetUp(const QString& cause)
{
    const SessionStepText text = textOf(m_step);
    fail({Problem::Kind::SetUp, text.name, text.failure, cause, tr("check the folder of the plugins with --plugins")});
}

void SetUp::fail(const Problem& problem)
{
    m_isRunning = false;
    Q_EMIT sigFailed(problem);
}

int SetUp::limitMs() const
{
    return m_order.stepLimitMs > 0 ? m_order.stepLimitMs : textOf(m_step).limitMs;
}

qint64 SetUp::elapsedMs() const
{
    return (m_wrench.clock.nowUs() - m_stepStartUs) / c_microsecondsPerMillisecond;
}
