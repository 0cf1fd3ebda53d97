#include "device_model.h"

#include <QLocale>

#include <lib_plugins_management/d_abstract_plugin.h>

#include <cmath>
#include <utility>

#include "../history/history_note.h"
#include "panel_document.h"
#include "wrench_entries.h"

namespace {

const QString c_listenCommand = QStringLiteral("listenEventsData");
const QString c_closeCommand = QStringLiteral("closeConnection"); // of the driver
const QString c_progId = QStringLiteral("progId");
constexpr double c_millisecondsPerSecond = 1000;

Problem noPlugin(const QString& command)
{
    return {Problem::Kind::SetUp,
            QStringLiteral("open"),
            DeviceModel::tr("no loaded plugin has the command \"%1\"").arg(command),
            {},
            DeviceModel::tr("name the folder of the plugins with --plugins")};
}

/// What has to go, from a later turn: it is telling us of something.
template <typename Service>
void dismiss(std::unique_ptr<Service>& service)
{
    if (Service* gone = service.release()) {
        gone->deleteLater();
    }
}

} // namespace

DeviceModel::DeviceModel(const Settings& settings, std::shared_ptr<SharedHistory> history, QObject* parent)
    : QObject(parent)
    , m_settings(settings)
    , m_history(std::move(history))
    , m_serialId(settings.wrench())
    , m_trace(Workplace::dataFolder(settings) + QStringLiteral("/traces"))
{
    connect(this, &DeviceModel::workplaceChanged, &m_trace, [this] {
        m_trace.setLine(m_isOpen ? &m_workplace->host() : nullptr, m_isOpen ? &m_workplace->driver() : nullptr);
    });
}

DeviceModel::~DeviceModel()
{
    // What works in the workplace goes before it does.
    m_scan.reset();
    m_session.reset();
    m_recording.reset();
}

// ---- What is asked for

void DeviceModel::scan()
{
    if (m_state == Idle && !m_isEnding) {
        forgetProblem();
        setWrenches({});
        setState(Scanning);
        openThen([this] { startScan(); });
    }
}

void DeviceModel::work(const QString& serialId)
{
    if (m_scan != nullptr && !m_isEnding) {
        stop();
        m_workAfterScan = serialId;
        return;
    }
    if (m_state != Idle || m_isEnding) {
        return;
    }
    forgetProblem();
    if (serialId.isEmpty()) {
        tell({Problem::Kind::Usage,
              QStringLiteral("connect"),
              tr("which wrench is not said"),
              {},
              tr("pick one that is in range, or type its serial number")});
        return;
    }
    if (serialId != m_serialId && !isSimulated()) {
        closeWorkplace(); // what is kept of a device is kept by its number
    }
    setSerialId(serialId);
    m_step = Session::Step::Open;
    setState(Starting);
    openThen([this] { startSession(); });
}

void DeviceModel::stop()
{
    m_workAfterScan.clear();
    if (m_scan != nullptr) {
        setState(Ending);
        m_scan->stop();
    } else if (m_session != nullptr) {
        setState(Ending);
        m_session->session().interrupt();
    } else if (m_state != Idle) { // the workplace is still being opened
        closeWorkplace();
        setState(Idle);
    }
}

void DeviceModel::selectProgram(int program)
{
    if (prepareOrder(tr("going to program %1").arg(program))) {
        m_session->session().selectProgram(program);
    }
}

void DeviceModel::setLock(bool isLocked)
{
    if (prepareOrder(isLocked ? tr("locking") : tr("unlocking"))) {
        m_session->session().setLock(isLocked);
    }
}

bool DeviceModel::prepareOrder(const QString& text)
{
    if (m_session == nullptr) {
        tell({Problem::Kind::Usage,
              QStringLiteral("connect"),
              tr("no wrench is connected"),
              {},
              tr("connect one first")});
        return false;
    }
    if (!m_isOrderRunning) { // else it is going to be refused
        forgetProblem();
        m_orderText = text;
    }
    return true;
}

void DeviceModel::forgetProblem()
{
    if (hasProblem()) {
        m_problem = {};
        Q_EMIT problemChanged();
    }
}

void DeviceModel::freeLine()
{
    if (m_state == Idle && m_isOpen) {
        m_closing = m_workplace->host().createOrder(m_workplace->driver(), c_closeCommand);
        m_closing->start();
    }
}

void DeviceModel::end()
{
    m_isEnding = true;
    stop();
    tellEnd();
}

void DeviceModel::setLanguage(const QString& language)
{
    m_settings.language = language;
    tellNewTexts();
    Q_EMIT serialIdChanged(); // the name
}

// ---- The workplace

void DeviceModel::openThen(std::function<void()> then)
{
    if (m_isOpen) {
        then();
        return;
    }
    Settings settings = m_settings;
    settings.serialId = m_serialId.isEmpty() ? m_settings.serialId : m_serialId;
    m_workplace = std::make_unique<Workplace>(settings);
    m_whenOpen = std::move(then);
    if (const std::optional<Problem> problem = m_workplace->loadPlugins()) {
        workplaceFailed(*problem);
        return;
    }
    connect(m_workplace.get(), &Workplace::sigOpened, this, [this] {
        m_isOpen = true;
        Q_EMIT workplaceChanged();
        std::exchange(m_whenOpen, {})();
    });
    connect(m_workplace.get(), &Workplace::sigFailed, this, &DeviceModel::workplaceFailed);
    m_workplace->open();
}

void DeviceModel::workplaceFailed(const Problem& problem)
{
    m_isBroken = true;
    if (m_session != nullptr) {
        m_session->session().fail(problem);
        return;
    }
    tell(problem);
    if (m_scan != nullptr) {
        stop();
        return;
    }
    comeToRest();
}

void DeviceModel::closeWorkplace()
{
    m_isOpen = false;
    m_isBroken = false;
    m_whenOpen = {};
    if (m_workplace != nullptr) {
        m_workplace->disconnect(this);
        dismiss(m_workplace);
        Q_EMIT workplaceChanged();
    }
}

Workplace* DeviceModel::workplace() const
{
    return m_isOpen ? m_workplace.get() : nullptr;
}

LinkedDevice DeviceModel::wrench(const DAbstractPlugin& root) const
{
    return {m_workplace->host(), m_workplace->clock(), *m_workplace->instanceOf(root), m_workplace->driver(),
            m_workplace->portInUse()};
}

QString DeviceModel::pluginUuid() const
{
    const DAbstractPlugin* root = m_isOpen ? m_workplace->rootWith(c_listenCommand, Workplace::Role::Device) : nullptr;
    return root == nullptr ? QString() : root->pluginUuid().toString();
}

QString DeviceModel::objectId() const
{
    const DAbstractPlugin* root = m_isOpen ? m_workplace->rootWith(c_listenCommand, Workplace::Role::Device) : nullptr;
    return root == nullptr ? QString() : m_workplace->instanceOf(*root)->objectUuid().toString();
}

QVariantList DeviceModel::panels() const
{
    QVariantList panels;
    const QList<const DAbstractPlugin*> roots =
        m_isOpen ? m_workplace->rootsOf(Workplace::Role::Device) : QList<const DAbstractPlugin*>();
    const QString wrenchUuid = pluginUuid();
    for (const DAbstractPlugin* root : roots) {
        const QString uuid = root->pluginUuid().toString();
        const QVariantMap panel{{QStringLiteral("plugin"), QString::fromUtf8(root->pluginName())},
                                {QStringLiteral("pluginUuid"), uuid},
                                {QStringLiteral("objectId"), m_workplace->instanceOf(*root)->objectUuid().toString()}};
        if (uuid == wrenchUuid) {
            panels.prepend(panel); // also without a panel: then the page says so
        } else if (PanelDocument::ofPlugin(uuid, {})) {
            panels.append(panel);
        }
    }
    return panels;
}

// ---- Scanning

void DeviceModel::startScan()
{
    const DAbstractPlugin* root = m_workplace->rootWith(WrenchScan::commandName(), Workplace::Role::Device);
    if (root == nullptr) {
        tell(noPlugin(WrenchScan::commandName()));
        comeToRest();
        return;
    }
    m_scan = std::make_unique<WrenchScan>(wrench(*root));
    connect(m_scan.get(), &WrenchScan::sigHeard, this, &DeviceModel::setWrenches);
    connect(m_scan.get(), &WrenchScan::sigFinished, this, &DeviceModel::scanEnded);
    m_scan->start();
}

void DeviceModel::scanEnded()
{
    const std::optional<Problem> problem = m_scan->problem();
    dismiss(m_scan);
    if (problem && !hasProblem()) {
        tell(*problem);
    }
    comeToRest();
    const QString serialId = std::exchange(m_workAfterScan, {});
    if (!serialId.isEmpty()) {
        work(serialId);
    }
}

// ---- Working

void DeviceModel::startSession()
{
    const DAbstractPlugin* root = m_workplace->rootWith(c_listenCommand, Workplace::Role::Device);
    std::optional<Problem> problem;
    if (root == nullptr) {
        problem = noPlugin(c_listenCommand);
    } else {
        m_recording = std::make_unique<Recording>(m_settings, m_history);
        problem = m_recording->open(m_serialId, QLatin1String(root->pluginName()));
    }
    if (problem) {
        m_recording.reset();
        tell(*problem);
        comeToRest();
        return;
    }
    SessionOrder order;
    order.serialId = m_serialId;
    m_session = std::make_unique<RecordedSession>(wrench(*root), order, m_recording->recorder());
    m_good = 0;
    m_notGood = 0;
    Q_EMIT resultChanged();
    connectSession();
    m_session->session().start();
}

void DeviceModel::connectSession()
{
    const Session* session = &m_session->session();
    connect(session, &Session::sigStepStarted, this, &DeviceModel::stepStarted);
    connect(session, &Session::sigWrenchesHeard, this, &DeviceModel::setWrenches);
    connect(session, &Session::sigPrograms, this, [this](const QVariantList& programs) {
        m_programs = wrench_entries::programs(programs);
        Q_EMIT programsChanged();
    });
    connectOrders();
    connect(session, &Session::sigLink, this, &DeviceModel::linkReported);
    connect(m_session.get(), &RecordedSession::sigResult, this, &DeviceModel::takeResult);
    connect(m_session.get(), &RecordedSession::sigNote, this, [this](const HistoryRecord& note) {
        m_notes = historyNoteText(note);
        Q_EMIT notesChanged();
    });
    connect(m_session.get(), &RecordedSession::sigFailed, this, [this](const Problem& problem) {
        tell(problem);
        setState(Ending);
    });
    connect(m_session.get(), &RecordedSession::sigFinished, this, &DeviceModel::sessionEnded);
}

void DeviceModel::connectOrders()
{
    const Session* session = &m_session->session();
    connect(session, &Session::sigSelected, this, &DeviceModel::setProgram);
    connect(session, &Session::sigLocked, this, [this](bool isLocked) { setLockState(true, isLocked); });
    connect(session, &Session::sigLockUnknown, this, [this] { setLockState(false, false); });
    connect(session, &Session::sigOrderStarted, this, [this] {
        m_isOrderRunning = true;
        tellNewTexts();
    });
    connect(session, &Session::sigOrderEnded, this, [this] {
        m_isOrderRunning = false;
        m_orderText.clear();
        tellNewTexts();
    });
    connect(session, &Session::sigOrderRefused, this, &DeviceModel::tell);
}

void DeviceModel::stepStarted(Session::Step step)
{
    m_step = step;
    if (step == Session::Step::Listen) {
        setState(Working);
    }
    tellNewTexts();
}

void DeviceModel::linkReported(const LinkReport& report)
{
    m_link = report;
    if (m_state == Working && report.kind == LinkReport::Kind::Lost) {
        setState(Restoring);
    } else if (m_state == Restoring && report.kind == LinkReport::Kind::Restored) {
        setState(Working);
    }
    tellNewTexts();
}

void DeviceModel::takeResult(const QVariantMap& eventData, const HistoryRecord& record)
{
    Q_UNUSED(eventData)
    m_result = wrench_entries::result(record);
    m_recent.append({m_result.value(QStringLiteral("torque")).toDouble(), record.isGood,
                     m_result.value(QStringLiteral("arrived")).toDateTime()});
    ++(record.isGood ? m_good : m_notGood);
    Q_EMIT resultChanged();
    Q_EMIT resultShown();
}

void DeviceModel::sessionEnded()
{
    dismiss(m_session);
    m_recording.reset();
    m_isOrderRunning = false;
    m_orderText.clear();
    setLockState(false, false);
    setProgram(0);
    comeToRest();
}

// ---- The properties

QString DeviceModel::name() const
{
    if (!m_serialId.isEmpty()) {
        return tr("Wrench %1").arg(m_serialId);
    }
    return isSimulated() ? tr("Simulated line") : m_settings.port;
}

QString DeviceModel::stateText() const
{
    switch (m_state) {
    case Idle:
        return tr("not connected");
    case Scanning:
        return tr("looking for wrenches in range");
    case Starting:
        return startingText();
    case Working:
        return tr("ready: results are taken");
    case Restoring:
        return linkText();
    case Ending:
        return tr("ending: the dongle hangs up");
    }
    Q_UNREACHABLE();
}

QString DeviceModel::startingText() const
{
    switch (m_step) {
    case Session::Step::Open:
        return tr("opening the line");
    case Session::Step::Connect:
        return tr("looking for the wrench %1, and connecting").arg(m_serialId);
    case Session::Step::Configure:
        return tr("configuring the wrench");
    case Session::Step::Programs:
        return tr("reading the programs");
    case Session::Step::Select:
        return tr("selecting the program");
    case Session::Step::Unlock:
    case Session::Step::Listen:
        return tr("unlocking the wrench");
    }
    Q_UNREACHABLE();
}

QString DeviceModel::linkText() const
{
    switch (m_link.kind) {
    case LinkReport::Kind::Waiting:
        return tr("link lost; attempt %1 in %2 s: %3")
            .arg(m_link.attempt)
            .arg(QLocale().toString(m_link.pauseMs / c_millisecondsPerSecond, 'f', 1), m_link.message);
    case LinkReport::Kind::Restoring:
        return tr("link lost; attempt %1 to restore it").arg(m_link.attempt);
    case LinkReport::Kind::Opened:
    case LinkReport::Kind::Lost:
    case LinkReport::Kind::Restored:
        return tr("link lost: %1").arg(m_link.message);
    }
    Q_UNREACHABLE();
}

QString DeviceModel::busyText() const
{
    if (m_state == Working && m_isOrderRunning) {
        return m_orderText.isEmpty() ? tr("the maintenance panel is at work") : m_orderText;
    }
    return m_state == Idle || m_state == Working ? QString() : stateText();
}

bool DeviceModel::hasTarget() const
{
    return !std::isnan(target());
}

qreal DeviceModel::target() const
{
    for (const QVariant& program : m_programs) {
        if (program.toMap().value(c_progId).toInt() == m_program) {
            return program.toMap().value(QStringLiteral("target")).toDouble();
        }
    }
    return std::nan("");
}

void DeviceModel::setState(State state)
{
    if (m_state != state) {
        m_state = state;
        Q_EMIT stateChanged();
        tellNewTexts();
        tellEnd();
    }
}

void DeviceModel::comeToRest()
{
    if (m_isBroken) {
        closeWorkplace();
    }
    setState(Idle);
}

void DeviceModel::tellEnd()
{
    if (hasEnded() && !m_isEndTold) {
        m_isEndTold = true;
        QMetaObject::invokeMethod(this, &DeviceModel::sigEnded, Qt::QueuedConnection);
    }
}

void DeviceModel::setSerialId(const QString& serialId)
{
    if (m_serialId != serialId) {
        m_serialId = serialId;
        Q_EMIT serialIdChanged();
        m_programs.clear();
        Q_EMIT programsChanged();
        m_result.clear();
        m_recent.clear();
        Q_EMIT resultChanged();
        m_notes.clear();
        Q_EMIT notesChanged();
    }
}

void DeviceModel::setProgram(int program)
{
    if (m_program != program) {
        m_program = program;
        Q_EMIT programChanged();
    }
}

void DeviceModel::setLockState(bool isKnown, bool isLocked)
{
    if (m_isLockKnown != isKnown || m_isLocked != isLocked) {
        m_isLockKnown = isKnown;
        m_isLocked = isLocked;
        Q_EMIT lockChanged();
    }
}

void DeviceModel::setWrenches(const QVariantList& wrenches)
{
    if (m_wrenches != wrenches) {
        m_wrenches = wrenches;
        Q_EMIT wrenchesChanged();
    }
}

void DeviceModel::tell(const Problem& problem)
{
    m_problem = problem;
    Q_EMIT problemChanged();
}

void DeviceModel::tellNewTexts()
{
    Q_EMIT stateTextChanged();
    Q_EMIT busyTextChanged();
}
