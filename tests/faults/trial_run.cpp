#include "trial_run.h"

#include "cli/parameters.h"
#include "dongle_port.h"
#include "services/command_run.h"
#include "services/line_end.h"
#include "services/session.h"
#include "session_checks.h"
#include "session_watch.h"
#include "simulated_workplace.h"

#include <lib_plugins_management/d_abstract_plugin.h>

namespace {

constexpr int c_patienceMs = 200000; // simulated: all limits one after the other
constexpr int c_lastFrameMs = 50;    // a command's last frame leaves behind its end
constexpr qint64 c_usPerMs = 1000;
const QString c_events = QStringLiteral("eventData");

QJsonObject driverSettings(const FaultTrial& trial)
{
    return trial.keepAliveMs == 0 ? QJsonObject()
                                  : QJsonObject{{QStringLiteral("keepAliveSilenceMs"), trial.keepAliveMs}};
}

QByteArrayList framesFrom(const LineRecord& record, int entry)
{
    QByteArrayList frames;
    for (int i = entry; i < record.size(); ++i) {
        if (record.entries.at(i).kind == LineRecord::Kind::Sent) {
            frames.append(record.entries.at(i).bytes.trimmed());
        }
    }
    return frames;
}

CellOutcome failure(const Problem& problem, qint64 us)
{
    CellOutcome outcome;
    outcome.kind = CellOutcome::Kind::Failed;
    outcome.text = QStringLiteral("%1: %2").arg(problem.step, problem.cause);
    outcome.ms = int(us / c_usPerMs);
    return outcome;
}

/// One command, the way of `app_workplace run`.
class CommandTrial
{
public:
    CommandTrial(const FaultTrial& trial, const QString& fault)
        : m_trial(trial), m_workplace(trial.simulatorOptions(fault), driverSettings(trial))
    {}

    TrialRun run()
    {
        if (!m_trial.connects || connectWrench()) {
            execute();
            end();
        }
        return m_result;
    }

private:
    bool connectWrench()
    {
        SessionOrder order;
        order.serialId = c_serialId;
        order.listens = false;
        m_session = std::make_unique<Session>(m_workplace.linked(), order);
        QObject::connect(m_session.get(), &Session::sigReady, m_session.get(), [this] { m_isReady = true; });
        m_session->start();
        if (!m_workplace.runUntil([this] { return m_isReady; }, c_patienceMs)) {
            m_result.complaint = QStringLiteral("the wrench is not connected");
        }
        return m_isReady;
    }

    void execute()
    {
        const LineRecord& record = m_workplace.record;
        const int firstEntry = record.size();
        m_result.framesBefore = framesFrom(record, 0).size();
        QStringList parameters = m_trial.parameters;
        if (parameters.isEmpty()) {
            parameters.append(QStringLiteral("serialId=") + c_serialId);
        }
        const ParameterReading reading =
            readParameters(m_workplace.device->getFunctionDescription(m_trial.command), parameters);
        if (!reading.error.isEmpty()) {
            m_result.complaint = reading.error;
            return;
        }
        CommandRun run(m_workplace.linked(), m_trial.command, reading.values);
        bool hasEnded = false;
        QList<QStringList> events;
        QVariantMap results;
        QObject::connect(&run, &CommandRun::sigEnded, [&] { hasEnded = true; });
        QObject::connect(&run, &CommandRun::sigResults, [&](const QVariantMap& values) {
            if (values.contains(c_events)) {
                events.append(fieldsOf(values.value(c_events).toMap()));
            }
            for (auto value = values.cbegin(); value != values.cend(); ++value) {
                results.insert(value.key(), value.value());
            }
        });
        const qint64 startUs = m_workplace.clock.nowUs();
        run.start(m_trial.limitMs);
        if (!m_workplace.runUntil([&] { return hasEnded; }, m_trial.limitMs + c_lastFrameMs)) {
            m_result.complaint = QStringLiteral("it does not end");
            return;
        }
        const int heardUntil = record.size();
        m_result.outcome.ms = int((m_workplace.clock.nowUs() - startUs) / c_usPerMs);
        const std::optional<Problem> problem = run.problem();
        // That a listening command has come to its limit is no failure.
        const bool isEnd = m_trial.isEndless() && run.order().outcome() == DOrder::Outcome::TimedOut;
        const bool isLine = problem && problem->kind == Problem::Kind::SetUp;
        if (problem && (!isEnd || isLine)) {
            m_result.outcome = failure(*problem, m_workplace.clock.nowUs() - startUs);
        }
        m_workplace.run(c_lastFrameMs);
        m_result.frames = framesFrom(record, firstEntry);
        m_result.traces.wrench = stateOf(m_workplace.port().command(QStringLiteral("wrenches")));
        if (m_trial.command == QLatin1String("listenEventsData")) {
            results.insert(c_events, events.size());
            if (events != resultsOnTheLine(record, firstEntry, heardUntil)) {
                m_result.complaint = QStringLiteral("the results told are not those that arrived");
            }
        }
        m_result.traces.results = QJsonObject::fromVariantMap(results);
        const bool wasPulled = record.has(LineRecord::Kind::Pulled, firstEntry, record.size());
        if (isLine && !wasPulled) {
            m_result.complaint = QStringLiteral("the line is blamed, and was not pulled");
        }
    }

    /// As the program does.
    void end()
    {
        LineEnd lineEnd(m_workplace.linked());
        if (m_session != nullptr) {
            QObject::connect(m_session.get(), &Session::sigFinished, m_session.get(), [this] { m_isClosed = true; });
            m_session->interrupt();
        } else {
            QObject::connect(&lineEnd, &LineEnd::sigClosed, &lineEnd, [this] { m_isClosed = true; });
            lineEnd.close();
        }
        if (!m_workplace.runUntil([this] { return m_isClosed; }, c_patienceMs)) {
            m_result.complaint = QStringLiteral("the line is not closed");
            return;
        }
        const QString left = leftovers(m_workplace);
        m_result.complaint = m_result.complaint.isEmpty() ? left : m_result.complaint;
    }

    const FaultTrial& m_trial;
    SimulatedWorkplace m_workplace;
    std::unique_ptr<Session> m_session; // null: the command has the line to itself
    TrialRun m_result;
    bool m_isReady = false;
    bool m_isClosed = false;
};

TrialRun runSession(const FaultTrial& trial, const QString& fault)
{
    TrialRun result;
    SimulatedWorkplace workplace(trial.simulatorOptions(fault), driverSettings(trial));
    SessionOrder order;
    order.serialId = c_serialId;
    order.program = FaultTrial::c_program;
    order.durationMs = trial.limitMs;
    order.reconnectLimitMs = FaultTrial::c_reconnectLimitMs;
    order.pauseSeed = 1;
    Session session(workplace.linked(), order);
    SessionWatch watch(workplace, session);
    QObject::connect(&session, &Session::sigLink, [&result](const LinkReport& report) {
        if (report.kind == LinkReport::Kind::Restored) {
            result.outcome.kind = CellOutcome::Kind::Mended;
            result.outcome.ms += int(report.gapMs);
        }
    });
    session.start();
    if (!workplace.runUntil([&watch] { return watch.isFinished(); }, c_patienceMs)) {
        result.complaint = QStringLiteral("it does not end");
        return result;
    }
    result.frames = framesFrom(workplace.record, 0);
    const qint64 endUs = watch.ended ? watch.ended->atUs : workplace.clock.nowUs();
    if (watch.problem) {
        result.outcome = failure(*watch.problem, endUs);
    } else if (result.outcome.kind == CellOutcome::Kind::Done) {
        result.outcome.ms = int(watch.listenUs / c_usPerMs); // how long it took to get ready
    }
    result.traces.wrench = stateOf(workplace.port().command(QStringLiteral("wrenches")));
    result.isLinkAway = watch.loss.has_value();
    for (const QString& complaint :
         {wrongEnd(workplace, watch, order), wrongResults(workplace, watch, order), disorder(workplace, watch)}) {
        result.complaint = result.complaint.isEmpty() ? complaint : result.complaint;
    }
    return result;
}

} // namespace

TrialRun runTrial(const FaultTrial& trial, const QString& fault)
{
    return trial.isSession() ? runSession(trial, fault) : CommandTrial(trial, fault).run();
}
