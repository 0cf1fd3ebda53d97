#include "session_command.h"

#include <QCoreApplication>

#include "number_options.h"
#include "session_json_report.h"
#include "session_text_report.h"

namespace {

constexpr int c_millisecondsPerSecond = 1000;
const QString c_listenCommand = QStringLiteral("listenEventsData");
const QString c_noReconnect = QStringLiteral("no-reconnect");
const QString c_reconnectLimit = QStringLiteral("reconnect-limit");

std::unique_ptr<CliCommand> make(const CliContext& context, Problem* problem)
{
    const QCommandLineParser& options = context.options;
    SessionOrder order;
    order.serialId = context.settings.wrench();
    if (order.serialId.isEmpty()) {
        *problem = {Problem::Kind::Usage,
                    QStringLiteral("command line"),
                    SessionCommand::tr("which wrench is not said"),
                    {},
                    SessionCommand::tr(
                        "give its serial number with --serial-id; \"app_workplace scan\" lists what is in range")};
        return nullptr;
    }
    if (!context.arguments.isEmpty()) {
        *problem = {Problem::Kind::Usage,
                    QStringLiteral("command line"),
                    SessionCommand::tr("a session takes no argument \"%1\"").arg(context.arguments.first()),
                    {},
                    SessionCommand::tr("see app_workplace session --help")};
        return nullptr;
    }
    if (options.isSet(QStringLiteral("program"))) {
        order.program = wholeNumberOption(options, QStringLiteral("program"), 1, problem);
    }
    order.results = wholeNumberOption(options, QStringLiteral("count"), 1, problem);
    order.durationMs = secondsOption(options, QStringLiteral("duration"), 1, problem);
    order.reconnects = !options.isSet(c_noReconnect);
    order.reconnectLimitMs = secondsOption(options, c_reconnectLimit, 0, problem);
    if (!order.reconnects && options.isSet(c_reconnectLimit)) {
        *problem = {Problem::Kind::Usage,
                    QStringLiteral("command line"),
                    SessionCommand::tr("--%1 and --%2 do not go together").arg(c_noReconnect, c_reconnectLimit),
                    {},
                    SessionCommand::tr("see app_workplace session --help")};
    }
    order.stepLimitMs = secondsOption(options, QStringLiteral("limit"), 1, problem);
    return std::make_unique<SessionCommand>(context, order);
}

} // namespace

std::unique_ptr<SessionReport> SessionReport::make(Console& console, const QString& serialId)
{
    if (console.isJson()) {
        return std::make_unique<SessionJsonReport>(console, serialId);
    }
    return std::make_unique<SessionTextReport>(console, serialId);
}

CliEntry SessionCommand::entry()
{
    return {QStringLiteral("session"),
            {},
            tr("Connects to a wrench and takes its tightening results."),
            {{QStringLiteral("program"), tr("Selects this program; without it the selection is left alone."),
              QStringLiteral("N")},
             {QStringLiteral("count"), tr("Ends after so many results."), QStringLiteral("N")},
             {QStringLiteral("duration"), tr("Ends after listening so long."), QStringLiteral("SECONDS")},
             {QStringLiteral("limit"), tr("Time limit of each step, instead of its own."), QStringLiteral("SECONDS")},
             {c_noReconnect, tr("Ends when the link to the wrench is lost, instead of restoring it.")},
             {c_reconnectLimit,
              tr("Ends when the link was away so long (%1 when not said, or 0).")
                  .arg(Supervisor::c_defaultLimitMs / c_millisecondsPerSecond),
              QStringLiteral("SECONDS")}},
            &make,
            true};
}

SessionCommand::SessionCommand(const CliContext& context, const SessionOrder& order)
    : WorkplaceCommand(context)
    , m_order(order)
    , m_report(SessionReport::make(context.console, order.serialId))
    , m_recording(context.settings)
{}

void SessionCommand::interrupt()
{
    if (m_session == nullptr) {
        Q_EMIT sigDone(int(Problem::Kind::Device)); // before anything was begun
    } else {
        m_exitStatus = m_hasListened ? 0 : int(Problem::Kind::Device);
        m_service->tellStopping();
        m_session->session().interrupt();
    }
}

void SessionCommand::workplaceFailed(const Problem& problem)
{
    if (m_session == nullptr) {
        fail(problem);
    } else {
        m_session->session().fail(problem);
    }
}

void SessionCommand::interruptWhenUnread()
{
    if (!m_console.isOpen()) {
        // From a later turn: the session is in the middle of something. It is no failure of the device.
        QMetaObject::invokeMethod(&m_session->session(), &Session::interrupt, Qt::QueuedConnection);
    }
}

std::optional<Problem> SessionCommand::check()
{
    m_device = m_workplace.rootWith(c_listenCommand, Workplace::Role::Device);
    if (m_device != nullptr) {
        return m_recording.open(m_order.serialId, QLatin1String(m_device->pluginName()));
    }
    return Problem{Problem::Kind::SetUp,
                   QStringLiteral("session"),
                   tr("no loaded plugin has the command \"%1\"").arg(c_listenCommand),
                   {},
                   tr("name the folder of the plugins with --plugins")};
}

void SessionCommand::begin()
{
    m_session = std::make_unique<RecordedSession>(LinkedDevice{m_workplace.host(), m_workplace.clock(),
                                                               *m_workplace.instanceOf(*m_device), m_workplace.driver(),
                                                               m_workplace.portInUse()},
                                                  m_order, m_recording.recorder());
    Session* session = &m_session->session();
    m_service = std::make_unique<SessionService>(*session);
    m_report->opened(m_workplace.portInUse(), m_settings.isSimulated());
    connect(session, &Session::sigStepStarted, this, [this](Session::Step step) {
        m_hasListened = step == Session::Step::Listen;
        m_report->stepStarted(step);
    });
    connect(session, &Session::sigStepDone, this, [this](Session::Step step, qint64 elapsedMs) {
        m_report->stepDone(step, elapsedMs);
        interruptWhenUnread();
    });
    connect(session, &Session::sigWrenchesHeard, this,
            [this](const QVariantList& wrenches) { m_report->wrenchesHeard(wrenches); });
    connect(session, &Session::sigPrograms, this,
            [this](const QVariantList& programs) { m_report->programs(programs); });
    connect(session, &Session::sigSelected, this,
            [this](int program, const QVariantMap& preset) { m_report->selected(program, preset); });
    connect(session, &Session::sigNamesakes, this,
            [this](const QVariantList& wrenches, const QString& taken) { m_report->namesakes(wrenches, taken); });
    connect(session, &Session::sigUnverified, this, [this] { m_report->unverified(); });
    connect(session, &Session::sigLink, this, [this](const LinkReport& report) {
        m_report->link(report);
        interruptWhenUnread();
    });
    connectResults();
    session->start();
}

void SessionCommand::connectResults()
{
    const RecordedSession* session = m_session.get();
    connect(session, &RecordedSession::sigResult, this, [this](const QVariantMap& eventData) {
        m_report->result(eventData);
        interruptWhenUnread();
    });
    connect(session, &RecordedSession::sigNote, this, [this](const HistoryRecord& note) { m_report->note(note); });
    connect(session, &RecordedSession::sigFailed, this, [this](const Problem& problem) {
        m_exitStatus = problem.exitStatus();
        m_report->failed();
        tell(problem);
    });
    connect(session, &RecordedSession::sigFinished, this, &SessionCommand::finish);
}

void SessionCommand::finish(const SessionSummary& summary)
{
    m_report->summary(summary);
    Q_EMIT sigDone(m_exitStatus);
}
