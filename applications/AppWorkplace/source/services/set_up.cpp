#include "set_up.h"

#include <utility>

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/d_host.h>

#include "line_observer.h"

namespace {

constexpr int c_millisecondsPerSecond = 1000;
constexpr qint64 c_microsecondsPerMillisecond = 1000;
constexpr int c_noProgram = 0; // wrenches count theirs from 1

const QString c_keepAliveFrame = QStringLiteral("DI:C\r\n");
const QString c_keepAliveAnswer = QStringLiteral("OK:");
const QString c_dialledPrefix = QStringLiteral("ATD ");
const QString c_refusalPrefix = QStringLiteral("ERR");
const QString c_atRest = QStringLiteral("OK");         // the answer to the frame with which a list begins
const QString c_busyRefusal = QStringLiteral("ERR:5"); // a tightening is going on

const QString c_success = QStringLiteral("cmd_success");
const QString c_progId = QStringLiteral("progId");
const QString c_presetData = QStringLiteral("presetData");
const QString c_currentProgram = QStringLiteral("currentProgId");
const QString c_setProgram = QStringLiteral("setProgram");
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
    : QObject(parent), m_wrench(wrench), m_order(order), m_observer(observer)
{
    connect(&observer, &LineObserver::sigWrenchHeard, this, &SetUp::wrenchHeard);
    connect(&observer, &LineObserver::sigLineHeard, this,
            [this](const QByteArray& line) { lineHeard(QString::fromUtf8(line).trimmed()); });
}

SetUp::~SetUp()
{
    m_wrench.clock.cancel(m_retry);
}

void SetUp::start(Mode mode)
{
    m_mode = mode;
    m_isRunning = true;
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
    m_wrench.clock.cancel(std::exchange(m_retry, 0));
    drop(m_run);
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
    if (!m_isRunning) {
        return; // likewise
    }
    m_run = m_wrench.host.createOrder(m_wrench.device, command, parameters);
    if (m_run == nullptr) {
        failSetUp(tr("the device plugin has no command \"%1\"").arg(command));
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
            failStep(tr("the time limit of %1 s ended it, %2")
                         .arg(double(limitMs()) / c_millisecondsPerSecond)
                         .arg(refusalOr(tr("there was no answer"))));
            break;
        case DOrder::Outcome::Stopped:
            break;
        case DOrder::Outcome::None:
        case DOrder::Outcome::Refused:
        case DOrder::Outcome::Gone:
            failSetUp(tr("the device plugin refused \"%1\"").arg(ended->commandName()));
            break;
        }
    });
    m_run->start(limitMs());
}

/// From a later turn: it may be telling us of its end.
void SetUp::drop(std::unique_ptr<DOrder>& order)
{
    if (DOrder* running = order.release()) {
        running->disconnect(this);
        running->stop();
        running->deleteLater();
    }
}

// ---- The steps

void SetUp::search(const Results& results)
{
    Q_UNUSED(results)
    m_heard = {};
    m_dialled.clear();
    run(QStringLiteral("searchAndConnect"),
        {{QStringLiteral("serialId"), m_order.serialId}, {QStringLiteral("name"), m_wrench.device.getName()}},
        &SetUp::connected);
}

void SetUp::connected(const Results& results)
{
    tellNamesakes();
    if (!results.value(c_success).toBool()) {
        failStep(refusalOr(m_heard.whyNot(m_order.serialId)));
        return;
    }
    done();
    begin(Step::Configure);
    run(QStringLiteral("sendInitConfig"), {}, &SetUp::configured);
}

void SetUp::configured(const Results& results)
{
    if (!results.value(c_success).toBool()) {
        failStep(refusalOr(tr("it refused")));
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
        failStep(refusalOr(tr("it named none")));
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
    if (!m_order.program) {
        unlock();
        return;
    }
    begin(Step::Select);
    goToProgram();
}

// Asked for the program that it believes current, the plugin leaves the wrench alone. What it believes is what was
// asked for last, or the end of its walk through the list, and the wrench may stand elsewhere: at its first program
// after that walk, at any after it was switched off and on. Asked for a program that no wrench has, the plugin says no,
// sends nothing, and believes nothing any more; so the next one it goes to.
void SetUp::goToProgram()
{
    if (m_wrench.device.getProperty(c_currentProgram, QVariant(c_noProgram)).toInt() == *m_order.program) {
        run(c_setProgram, {{c_progId, c_noProgram}}, &SetUp::goToProgramForSure);
    } else {
        goToProgramForSure({});
    }
}

void SetUp::goToProgramForSure(const Results& results)
{
    Q_UNUSED(results)
    run(c_setProgram, {{c_progId, *m_order.program}}, &SetUp::programSelected);
}

void SetUp::programSelected(const Results& results)
{
    if (!results.value(c_success).toBool()) {
        failStep(refusalOr(tr("the wrench has the programs 1 to %1, and %2 was asked for")
                               .arg(m_programs.size())
                               .arg(*m_order.program)));
        return;
    }
    Q_EMIT sigSelected(*m_order.program, results.value(c_presetData).toMap());
    done();
    unlock();
}

// The configuration leaves the wrench locked, and a locked wrench does not tighten.
void SetUp::unlock()
{
    begin(Step::Unlock);
    run(QStringLiteral("setLock"), {{QStringLiteral("lock"), false}}, &SetUp::unlocked);
}

void SetUp::unlocked(const Results& results)
{
    if (!results.value(c_success).toBool()) {
        failStep(refusalOr(tr("the frame could not be written")));
        return;
    }
    done();
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
    } else if (m_isRunning && m_step == Step::Programs) {
        // The plugin gives what it has read until then as the whole list.
        m_isListBegun = m_isListBegun || line == c_atRest;
        m_isListCutShort = m_isListCutShort || (m_isListBegun && line.startsWith(c_refusalPrefix));
    } else if (m_isRunning && m_step == Step::Select && m_run != nullptr && line.startsWith(c_refusalPrefix)) {
        selectionRefused(line);
    }
}

void SetUp::tellNamesakes()
{
    const QVariantList wrenches = m_namesakes.strongestFirst();
    QString taken;
    for (const QVariant& wrench : wrenches) {
        const QString address = wrench.toMap().value(c_address).toString();
        if (QString(address).remove(QLatin1Char(':')) == m_dialled) {
            taken = address;
        }
    }
    if (wrenches.size() > 1 && (wrenches.size() != m_namesakesTold || taken != m_takenTold)) {
        m_namesakesTold = wrenches.size();
        m_takenTold = taken;
        Q_EMIT sigNamesakes(wrenches, taken);
    }
}

// The plugin takes no notice of a refusal there and would wait for its time limit.
void SetUp::selectionRefused(const QString& line)
{
    if (line == c_busyRefusal && elapsedMs() + c_busyPauseMs < limitMs()) {
        drop(m_run);
        m_retry = m_wrench.clock.callAfter(c_busyPauseMs, [this] {
            m_retry = 0;
            goToProgram();
        });
    } else {
        drop(m_run);
        failStep(refusalOr(line));
    }
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

QString SetUp::refusalOr(const QString& otherwise) const
{
    const QString refusal = m_observer.lastRefusal();
    return refusal.isEmpty() ? otherwise : tr("the line said \"%1\"").arg(refusal);
}
