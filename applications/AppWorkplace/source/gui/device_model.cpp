#include "device_model.h"

#include <lib_plugins_management/d_abstract_plugin.h>

#include <cmath>
#include <utility>

#include "../history/history_note.h"
#include "device_texts.h"
#include "panel_document.h"
#include "wrench_entries.h"

namespace {

const QString c_listenCommand = QStringLiteral("listenEventsData");
const QString c_closeCommand = QStringLiteral("closeConnection"); // of the driver
const QString c_progId = QStringLiteral("progId");

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
    connect(&m_workplace, &DeviceWorkplace::sigFailed, this, &DeviceModel::workplaceFailed);
    connect(&m_workplace, &DeviceWorkplace::sigChanged, this, [this] {
        Workplace* open = m_workplace.get();
        m_trace.setLine(open != nullptr ? &open->host() : nullptr, open != nullptr ? &open->driver() : nullptr);
        Q_EMIT workplaceChanged();
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
        m_workplace.close(); // what is kept of a device is kept by its number
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
        m_workplace.close();
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
    Workplace* open = workplace();
    if (m_state == Idle && open != nullptr) {
        m_closing = open->host().createOrder(open->driver(), c_closeCommand);
        if (m_closing != nullptr) { // a driver without it has nothing to close
            m_closing->start();
        }
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
    Settings settings = m_settings;
    settings.serialId = m_serialId.isEmpty() ? m_settings.serialId : m_serialId;
    m_workplace.openThen(settings, std::move(then));
}

void DeviceModel::workplaceFailed(const Problem& problem)
{
    if (m_session != nullptr) {
        m_session->session().fail(problem);
        return;
    }
    tell(problem);
    if (m_scan != nullptr) {
        stop();
    } else {
        comeToRest();
    }
}

QString DeviceModel::pluginUuid() const
{
    const std::optional<LinkedDevice> wrench = m_workplace.deviceWith(c_listenCommand);
    return wrench ? wrench->device.pluginUuid().toString() : QString();
}

QString DeviceModel::objectId() const
{
    const std::optional<LinkedDevice> wrench = m_workplace.deviceWith(c_listenCommand);
    return wrench ? wrench->device.objectUuid().toString() : QString();
}

QVariantList DeviceModel::panels() const
{
    QVariantList panels;
    const Workplace* open = workplace();
    const QList<const DAbstractPlugin*> roots =
        open != nullptr ? open->rootsOf(Workplace::Role::Device) : QList<const DAbstractPlugin*>();
    const QString wrenchUuid = pluginUuid();
    for (const DAbstractPlugin* root : roots) {
        const QString uuid = root->pluginUuid().toString();
        const QVariantMap panel{{QStringLiteral("plugin"), QString::fromUtf8(root->pluginName())},
                                {QStringLiteral("pluginUuid"), uuid},
                                {QStringLiteral("objectId"), open->instanceOf(*root)->objectUuid().toString()}};
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
    const std::optional<LinkedDevice> dongle = m_workplace.deviceWith(WrenchScan::commandName());
    if (!dongle) {
        tell(noPlugin(WrenchScan::commandName()));
        comeToRest();
        return;
    }
    m_scan = std::make_unique<WrenchScan>(*dongle);
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
    const std::optional<LinkedDevice> wrench = m_workplace.deviceWith(c_listenCommand);
    std::optional<Problem> problem;
    if (!wrench) {
        problem = noPlugin(c_listenCommand);
    } else {
        m_recording = std::make_unique<Recording>(m_settings, m_history);
        problem = m_recording->open(m_serialId, QLatin1String(wrench->device.pluginName()));
    }
    if (problem) {
        m_recording.reset();
        tell(*problem);
        comeToRest();
        return;
    }
    SessionOrder order;
    order.serialId = m_serialId;
    m_session = std::make_unique<RecordedSession>(*wrench, order, m_recording->recorder());
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
        return device_texts::starting(m_step, m_serialId);
    case Working:
        return tr("ready: results are taken");
    case Restoring:
        return device_texts::lostLink(m_link);
    case Ending:
        return tr("ending: the dongle hangs up");
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
    m_workplace.closeIfFailed();
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
