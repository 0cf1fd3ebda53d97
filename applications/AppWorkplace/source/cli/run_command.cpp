#include "run_command.h"

#include <utility>

#include <lib_plugins_management/d_abstract_plugin.h>

#include "../history/history_note.h"
#include "../services/step_name.h"
#include "number_options.h"
#include "parameters.h"

namespace {

const QString c_driver = QStringLiteral("driver");
const QString c_serialId = QStringLiteral("serialId");
const QString c_connectOption = QStringLiteral("connect");
const QString c_eventData = QStringLiteral("eventData");
const QString c_listenCommand = QStringLiteral("listenEventsData"); // of a plugin for wrenches

Problem wrongUse(const QString& what, const QString& mend)
{
    return {Problem::Kind::Usage, QStringLiteral("run"), what, {}, mend};
}

std::unique_ptr<CliCommand> make(const CliContext& context, Problem* problem)
{
    if (context.arguments.isEmpty()) {
        *problem = wrongUse(RunCommand::tr("no command of a plugin is named"),
                            RunCommand::tr("\"app_workplace commands\" lists them"));
        return nullptr;
    }
    if (context.options.isSet(c_connectOption) && context.settings.wrench().isEmpty()) {
        *problem = wrongUse(RunCommand::tr("which wrench is to be connected is not said"),
                            RunCommand::tr("give its serial number with --serial-id"));
        return nullptr;
    }
    const int limitMs = secondsOption(context.options, QStringLiteral("limit"), 1, problem);
    return std::make_unique<RunCommand>(context, limitMs);
}

} // namespace

CliEntry RunCommand::entry()
{
    return {QStringLiteral("run"),
            tr("[driver/]COMMAND [name=value …]"),
            tr("Runs one command of a plugin; \"app_workplace commands COMMAND\" tells its parameters."),
            {{c_connectOption, tr("First connects to the wrench and gets it ready, as a session does.")},
             {QStringLiteral("limit"),
              tr("Ends the run after so long (30 when not said; none for a command that runs until stopped)."),
              QStringLiteral("SECONDS")}},
            &make,
            true};
}

RunCommand::RunCommand(const CliContext& context, int limitMs)
    : WorkplaceCommand(context)
    , m_command(context.arguments.first())
    , m_parameters(context.arguments.mid(1))
    , m_limitMs(limitMs)
    , m_connects(context.options.isSet(c_connectOption))
{
    const int slash = m_command.indexOf(QLatin1Char('/'));
    if (slash >= 0) {
        m_target = m_command.left(slash);
        m_command = m_command.mid(slash + 1);
    }
}

void RunCommand::interrupt()
{
    if (m_run == nullptr) {
        if (m_session != nullptr) {
            finish(int(Problem::Kind::Device));
        } else {
            Q_EMIT sigDone(int(Problem::Kind::Device));
        }
    } else {
        m_run->stop();
    }
}

std::optional<Problem> RunCommand::check()
{
    if (!m_target.isEmpty() && m_target != c_driver) {
        return wrongUse(tr("\"%1/\" names nobody that runs commands").arg(m_target),
                        tr("write \"driver/%1\" or only \"%1\"").arg(m_command));
    }
    m_root = m_target.isEmpty() ? m_workplace.rootWith(m_command, Workplace::Role::Device) : nullptr;
    if (m_root == nullptr) {
        m_root = m_workplace.rootWith(m_command, Workplace::Role::Driver);
    }
    if (m_root == nullptr) {
        return wrongUse(tr("no loaded plugin has the command \"%1\"").arg(m_command),
                        tr("\"app_workplace commands\" lists what there is"));
    }
    const ParameterReading reading = readParameters(m_root->getFunctionDescription(m_command), m_parameters);
    if (!reading.error.isEmpty()) {
        return wrongUse(reading.error, tr("\"app_workplace commands %1\" tells more").arg(m_command));
    }
    m_values = reading.values;
    // Some commands read the serial number without declaring it.
    const bool declaresNone = m_root->getCommandParameters(m_command).isEmpty();
    if (declaresNone && !m_settings.wrench().isEmpty() && !m_values.contains(c_serialId)) {
        m_values.insert(c_serialId, m_settings.wrench());
    }
    if (m_command != c_listenCommand || m_root != m_workplace.rootWith(m_command, Workplace::Role::Device)) {
        return std::nullopt;
    }
    m_recording = std::make_unique<Recording>(m_settings);
    return m_recording->open(m_settings.wrench(), QLatin1String(m_root->pluginName()));
}

void RunCommand::begin()
{
    const DAbstractPlugin* device = m_workplace.rootWith(c_listenCommand, Workplace::Role::Device);
    m_lineEnd = std::make_unique<LineEnd>(wrench(*m_root));
    connect(m_lineEnd.get(), &LineEnd::sigClosed, this, [this] { Q_EMIT sigDone(m_exitStatus); });
    if (!m_connects) {
        execute();
    } else if (device == nullptr) {
        fail({Problem::Kind::SetUp,
              QStringLiteral("run"),
              tr("no loaded plugin can connect to a wrench"),
              {},
              tr("name the folder of the plugins with --plugins")});
    } else {
        connectWrench(*device);
    }
}

void RunCommand::connectWrench(const DAbstractPlugin& device)
{
    SessionOrder order;
    order.serialId = m_settings.wrench();
    order.listens = false;
    m_session = std::make_unique<Session>(wrench(device), order);
    connect(m_session.get(), &Session::sigStepStarted, this, [this](Session::Step step) {
        m_console.progress(QStringLiteral("%1 …").arg(shownStep(textOf(step).name)));
    });
    connect(m_session.get(), &Session::sigReady, this, [this] {
        if (const int results = m_session->unheardResults()) { // the wrench does not tell them again
            m_console.message(tr("%1 tightening results came with the link, and are not stored; a session stores what "
                                 "comes")
                                  .arg(results));
        }
        execute();
    });
    connect(m_session.get(), &Session::sigFailed, this, [this](const Problem& problem) {
        m_exitStatus = problem.exitStatus();
        m_console.progress({});
        tell(problem);
    });
    connect(m_session.get(), &Session::sigFinished, this, [this] { Q_EMIT sigDone(m_exitStatus); });
    m_session->start();
}

LinkedDevice RunCommand::wrench(const DAbstractPlugin& root)
{
    return {m_workplace.host(), m_workplace.clock(), *m_workplace.instanceOf(root), m_workplace.driver()};
}

void RunCommand::execute()
{
    m_console.progress(QStringLiteral("%1 …").arg(m_command));
    m_run = std::make_unique<CommandRun>(wrench(*m_root), m_command, m_values);
    connect(m_run.get(), &CommandRun::sigResults, this, &RunCommand::take);
    connect(m_run.get(), &CommandRun::sigLineTrouble, this, [this](const QString& message) {
        m_console.message(QStringLiteral("%1: %2").arg(shownStep(QStringLiteral("link")), message));
    });
    connect(m_run.get(), &CommandRun::sigLineBack, this, [this] { m_isReconnected = true; });
    if (m_recording != nullptr) {
        connect(&m_recording->recorder(), &ResultRecorder::sigResult, this, [this](const QVariantMap& eventData) {
            show({{c_eventData, eventData}});
        });
        connect(&m_recording->recorder(), &ResultRecorder::sigNote, this,
                [this](const HistoryRecord& note) { m_console.message(historyNoteText(note)); });
        connect(&m_recording->recorder(), &ResultRecorder::sigFailed, m_run.get(), &CommandRun::abort);
    }
    connect(m_run.get(), &CommandRun::sigEnded, this, &RunCommand::ended);
    m_run->start(m_limitMs);
}

void RunCommand::finish(int exitStatus)
{
    m_exitStatus = exitStatus;
    m_console.progress({});
    if (m_session != nullptr) {
        m_session->interrupt();
    } else {
        m_lineEnd->close(); // the last frames leave before the port is closed
    }
}

// A tightening result is shown once it is stored.
void RunCommand::take(const QMap<QString, QVariant>& values)
{
    if (m_recording == nullptr || !values.contains(c_eventData)) {
        show(values);
        return;
    }
    TighteningResult result;
    result.eventData = values.value(c_eventData).toMap();
    result.arrival = QDateTime::currentDateTimeUtc();
    result.isFirstAfterReconnection = std::exchange(m_isReconnected, false);
    m_recording->recorder().take(result);
}

void RunCommand::show(const QMap<QString, QVariant>& values)
{
    if (m_console.isJson()) {
        m_console.object({{QStringLiteral("event"), QStringLiteral("results")},
                          {QStringLiteral("command"), m_command},
                          {QStringLiteral("results"), QJsonObject::fromVariantMap(values)}});
    } else {
        for (auto value = values.cbegin(); value != values.cend(); ++value) {
            const QStringList lines = shownResult(value.key(), value.value());
            for (const QString& line : lines) {
                m_console.line(line);
            }
        }
    }
    if (!m_console.isOpen()) { // nobody reads any more; from a later turn, for the run is telling us just now
        QMetaObject::invokeMethod(this, &RunCommand::interrupt, Qt::QueuedConnection);
    }
}

void RunCommand::ended()
{
    if (m_recording != nullptr) {
        m_recording->recorder().flush();
    }
    std::optional<Problem> problem = m_run->problem();
    if (m_recording != nullptr && m_recording->recorder().failure()) {
        problem = m_recording->recorder().failure();
    }
    if (problem) {
        m_console.progress({});
        tell(*problem);
    }
    finish(problem ? problem->exitStatus() : 0);
}
