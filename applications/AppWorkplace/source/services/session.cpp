#include "session.h"

#include <iterator>

#include <lib_plugins_management/d_abstract_plugin.h>

#include "verdict.h"

namespace {

struct StepText
{
    Session::Step step;
    const char* name;
    int limitMs; // how long the step may take, 0: no limit
    const char* failure;
    const char* mend;
};

// In the order of the steps. The scan inside "connect" has a limit of its own, 10 s; dialling has none.
constexpr StepText c_steps[] = {
    {Session::Step::Open, "open", 5000, "the line could not be opened",
     "check the port and the cable; \"app_workplace ports\" lists the ports"},
    {Session::Step::Connect, "connect", 20000, "the wrench could not be connected",
     "switch the wrench on, bring it near, and check the serial number; \"app_workplace scan\" lists what is in range"},
    {Session::Step::Configure, "configure", 5000, "the wrench could not be configured",
     "bring the wrench nearer and try again"},
    {Session::Step::Programs, "programs", 60000, "the wrench's programs could not be read",
     "finish the tightening that is going on, and try again"},
    {Session::Step::Select, "select", 30000, "the program could not be selected",
     "choose one of the listed programs with --program"},
    {Session::Step::Unlock, "unlock", 5000, "the wrench could not be unlocked", "try again"},
    {Session::Step::Listen, "listen", 0, "the results could not be listened to", "try again"},
};

constexpr int c_endingLimitMs = 2000; // of each command that ends the session
constexpr int c_writeTimeoutMs = 500;
constexpr int c_millisecondsPerSecond = 1000;

const QByteArray c_hangUpFrame = QByteArrayLiteral("ATH\r\n");
const QString c_keepAliveFrame = QStringLiteral("DI:C\r\n");
const QString c_keepAliveAnswer = QStringLiteral("OK:");

const QString c_success = QStringLiteral("cmd_success");
const QString c_progId = QStringLiteral("progId");
const QString c_presetData = QStringLiteral("presetData");
const QString c_eventData = QStringLiteral("eventData");
const QString c_listenCommand = QStringLiteral("listenEventsData");
const QString c_currentProgram = QStringLiteral("currentProgId");

// Properties of the driver.
constexpr char c_connected[] = "connected";
constexpr char c_lineState[] = "lineState";
constexpr char c_lineError[] = "lineError";

const StepText& textOf(Session::Step step)
{
    return c_steps[int(step)];
}

} // namespace

Session::Session(Workplace& workplace, const SessionOrder& order, QObject* parent)
    : QObject(parent), m_workplace(workplace), m_order(order)
{
    m_limit.setSingleShot(true);
    connect(&m_observer, &LineObserver::sigWrenchHeard, this,
            [this](const QString& address, const QString& serialId, const QString& signalStrength) {
                if (m_heard.add(address, serialId, signalStrength)) {
                    Q_EMIT sigWrenchesHeard(m_heard.strongestFirst());
                }
            });
    connect(&workplace.host(), &DHost::sigPropertyChanged, this,
            [this](const DAbstractPlugin* plugin, const QString& name) {
                if (plugin == &m_workplace.driver()) {
                    driverChanged(name);
                }
            });
}

Session::~Session() = default;

QString Session::nameOf(Step step)
{
    return QLatin1String(textOf(step).name);
}

void Session::start()
{
    m_sessionTime.start();
    begin(Step::Open);
    m_device = m_workplace.deviceWith(c_listenCommand);
    if (m_device == nullptr) {
        fail(QStringLiteral("no loaded plugin has the command \"%1\"").arg(c_listenCommand), Problem::Kind::SetUp);
        return;
    }
    connect(&m_limit, &QTimer::timeout, this, [this] {
        if (m_step == Step::Open) {
            fail(QStringLiteral("the driver did not say why"), Problem::Kind::SetUp);
        } else {
            end(SessionSummary::End::Duration);
        }
    });
    m_limit.start(limitMs());
    m_observer.start(m_workplace.host(), m_workplace.driver());
}

void Session::interrupt()
{
    end(SessionSummary::End::Interrupt);
}

void Session::begin(Step step)
{
    m_step = step;
    m_stepTime.start();
    m_observer.forgetRefusal();
    Q_EMIT sigStepStarted(step);
}

void Session::done()
{
    Q_EMIT sigStepDone(m_step, m_stepTime.elapsed());
}

void Session::run(const QString& command, const Results& parameters, Continuation then)
{
    m_run = m_workplace.host().createOrder(*m_device, command, parameters);
    if (m_run == nullptr) {
        fail(QStringLiteral("the plugin has no command \"%1\"").arg(command), Problem::Kind::SetUp);
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
            fail(refusalOr(QStringLiteral("no answer within the time limit of %1 s")
                               .arg(double(limitMs()) / c_millisecondsPerSecond)));
            break;
        case DOrder::Outcome::Stopped:
            break;
        case DOrder::Outcome::None:
        case DOrder::Outcome::Refused:
        case DOrder::Outcome::Gone:
            fail(QStringLiteral("the device plugin refused \"%1\"").arg(ended->commandName()));
            break;
        }
    });
    m_run->start(limitMs());
}

void Session::lineIsOpen()
{
    m_limit.stop();
    done();
    begin(Step::Connect);
    run(QStringLiteral("searchAndConnect"),
        {{QStringLiteral("serialId"), m_order.serialId}, {QStringLiteral("name"), m_device->getName()}},
        &Session::connected);
}

void Session::connected(const Results& results)
{
    if (!results.value(c_success).toBool()) {
        fail(refusalOr(m_heard.inWords()));
        return;
    }
    done();
    begin(Step::Configure);
    run(QStringLiteral("sendInitConfig"), {}, &Session::configured);
}

void Session::configured(const Results& results)
{
    if (!results.value(c_success).toBool()) {
        fail(refusalOr(QStringLiteral("it refused")));
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
        fail(refusalOr(QStringLiteral("it named none")));
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
        fail(refusalOr(QStringLiteral("the wrench has the programs 1 to %1, and %2 was asked for")
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
    run(QStringLiteral("setLock"), {{QStringLiteral("lock"), false}}, &Session::unlocked);
}

void Session::unlocked(const Results& results)
{
    if (!results.value(c_success).toBool()) {
        fail(refusalOr(QStringLiteral("the frame could not be written")));
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
        fail(QStringLiteral("the driver does not keep the link alive"), Problem::Kind::SetUp);
        return;
    }
    listen();
}

void Session::listen()
{
    begin(Step::Listen);
    m_listener = m_workplace.host().createOrder(*m_device, c_listenCommand);
    connect(m_listener.get(), &DOrder::sigResultsPublished, this, [this](const QMap<QString, QVariant>& values) {
        if (values.contains(c_eventData)) {
            takeResult(values.value(c_eventData).toMap());
        }
    });
    connect(m_listener.get(), &DOrder::sigFinished, this, [this] { fail(QStringLiteral("the listener has ended")); });
    m_listener->start();
    if (m_order.durationMs > 0) {
        m_limit.start(m_order.durationMs);
    }
}

void Session::takeResult(const QVariantMap& eventData)
{
    if (m_isEnding) {
        return;
    }
    ++(isGood(eventData) ? m_summary.good : m_summary.notGood);
    Q_EMIT sigResult(eventData);
    if (m_order.results > 0 && m_summary.good + m_summary.notGood >= m_order.results) {
        end(SessionSummary::End::Count);
    }
}

void Session::driverChanged(const QString& property)
{
    if (m_isEnding || (property != QLatin1String(c_connected) && property != QLatin1String(c_lineError))) {
        return;
    }
    const bool isConnected = m_workplace.driver().getProperty(QLatin1String(c_connected), QVariant(false)).toBool();
    const QString error = driverText(c_lineError);
    if (m_step == Step::Open) {
        if (isConnected) {
            m_wasConnected = true;
            Q_EMIT sigLink(true, driverText(c_lineState), QString());
            lineIsOpen();
        } else if (!error.isEmpty()) {
            fail(error, Problem::Kind::SetUp);
        }
    } else if (isConnected != m_wasConnected) {
        m_wasConnected = isConnected;
        Q_EMIT sigLink(isConnected, driverText(c_lineState), isConnected ? QString() : error);
    }
}

void Session::fail(const QString& cause, Problem::Kind kind)
{
    if (m_isEnding) {
        return;
    }
    const StepText& text = textOf(m_step);
    Q_EMIT sigFailed(
        {kind, QLatin1String(text.name), QString::fromUtf8(text.failure), cause, QString::fromUtf8(text.mend)});
    end(SessionSummary::End::Failure);
}

void Session::end(SessionSummary::End how)
{
    if (m_isEnding) {
        return;
    }
    m_isEnding = true;
    m_summary.end = how;
    m_limit.stop();
    if (m_device != nullptr) {
        m_summary.program = m_device->getProperty(c_currentProgram, QVariant(0)).toInt();
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
    hangUp();
}

void Session::hangUp()
{
    if (m_step == Step::Open) {
        closePort(); // nobody was called yet
        return;
    }
    m_run = m_workplace.host().createOrder(
        m_workplace.driver(), QStringLiteral("write"),
        {{QStringLiteral("frame"), c_hangUpFrame}, {QStringLiteral("timeout"), c_writeTimeoutMs}});
    connect(m_run.get(), &DOrder::sigFinished, this, [this] {
        m_run.release()->deleteLater();
        closePort();
    });
    m_run->start(c_endingLimitMs);
}

void Session::closePort()
{
    m_run = m_workplace.host().createOrder(m_workplace.driver(), QStringLiteral("closeConnection"));
    connect(m_run.get(), &DOrder::sigFinished, this, [this] {
        m_run.release()->deleteLater();
        finish();
    });
    m_run->start(c_endingLimitMs);
}

void Session::finish()
{
    m_summary.elapsedMs = m_sessionTime.elapsed();
    Q_EMIT sigFinished(m_summary);
}

int Session::limitMs() const
{
    return m_order.stepLimitMs > 0 ? m_order.stepLimitMs : textOf(m_step).limitMs;
}

QString Session::driverText(const char* property) const
{
    return m_workplace.driver().getProperty(QLatin1String(property), QVariant()).toString();
}

QString Session::refusalOr(const QString& otherwise) const
{
    const QString refusal = m_observer.lastRefusal();
    return refusal.isEmpty() ? otherwise : QStringLiteral("the line said \"%1\"").arg(refusal);
}
