#include "run_command.h"

#include <lib_plugins_management/d_abstract_plugin.h>

#include "parameters.h"

namespace {

constexpr double c_millisecondsPerSecond = 1000;
constexpr int c_defaultLimitMs = 30000; // for a command that has no stop command
const QString c_driver = QStringLiteral("driver");
const QString c_serialId = QStringLiteral("serialId");

Problem wrongUse(const QString& what, const QString& mend)
{
    return {Problem::Kind::Usage, QStringLiteral("run"), what, {}, mend};
}

std::unique_ptr<CliCommand> make(const CliContext& context, Problem* problem)
{
    if (context.arguments.isEmpty()) {
        *problem = wrongUse(QStringLiteral("no command of a plugin is named"),
                            QStringLiteral("\"app_workplace commands\" lists them"));
        return nullptr;
    }
    const double seconds = numberOption(context.options, QStringLiteral("limit"), 0, problem);
    return std::make_unique<RunCommand>(context, int(seconds * c_millisecondsPerSecond));
}

} // namespace

CliEntry RunCommand::entry()
{
    return {
        QStringLiteral("run"),
        QStringLiteral("[driver/]COMMAND [name=value …]"),
        QStringLiteral("Runs one command of a plugin; \"app_workplace commands COMMAND\" tells its parameters."),
        {{QStringLiteral("limit"),
          QStringLiteral("Ends the run after so long (30 when not said; none for a command that runs until stopped)."),
          QStringLiteral("SECONDS")}},
        &make};
}

RunCommand::RunCommand(const CliContext& context, int limitMs)
    : WorkplaceCommand(context)
    , m_command(context.arguments.first())
    , m_parameters(context.arguments.mid(1))
    , m_limitMs(limitMs)
{
    const int slash = m_command.indexOf(QLatin1Char('/'));
    if (slash >= 0) {
        m_target = m_command.left(slash);
        m_command = m_command.mid(slash + 1);
    }
}

void RunCommand::interrupt()
{
    m_isInterrupted = true;
    if (m_run == nullptr) {
        Q_EMIT sigDone(int(Problem::Kind::Device));
    } else if (m_run->stopCommandName().isEmpty()) {
        m_run->stop();
    } else if (m_stop == nullptr) {
        m_stop = m_workplace.host().createOrder(*m_run->plugin(), m_run->stopCommandName());
        m_stop->start();
    }
}

void RunCommand::begin()
{
    DAbstractPlugin* plugin = findPlugin();
    if (plugin == nullptr) {
        fail(wrongUse(QStringLiteral("no loaded plugin has the command \"%1\"").arg(m_command),
                      QStringLiteral("\"app_workplace commands\" lists what there is")));
        return;
    }
    ParameterReading reading = readParameters(plugin->getFunctionDescription(m_command), m_parameters);
    if (!reading.error.isEmpty()) {
        fail(wrongUse(reading.error, QStringLiteral("\"app_workplace commands %1\" tells more").arg(m_command)));
        return;
    }
    const bool declaresNone = plugin->getCommandParameters(m_command).isEmpty();
    if (declaresNone && !m_settings.serialId.isEmpty() && !reading.values.contains(c_serialId)) {
        reading.values.insert(c_serialId, m_settings.serialId);
    }
    m_run = m_workplace.host().createOrder(*plugin, m_command, reading.values);
    connect(m_run.get(), &DOrder::sigResultsPublished, this, &RunCommand::show);
    connect(m_run.get(), &DOrder::sigFinished, this, &RunCommand::ended);
    const bool isEndless = !m_run->stopCommandName().isEmpty();
    m_run->start(m_limitMs > 0 ? m_limitMs : isEndless ? 0 : c_defaultLimitMs);
}

DAbstractPlugin* RunCommand::findPlugin()
{
    DAbstractPlugin& driver = m_workplace.driver();
    if (m_target.isEmpty()) {
        if (DAbstractPlugin* device = m_workplace.deviceWith(m_command)) {
            return device;
        }
    } else if (m_target != c_driver) {
        return nullptr;
    }
    return driver.commandNames().contains(m_command) ? &driver : nullptr;
}

void RunCommand::show(const QMap<QString, QVariant>& values)
{
    if (m_console.isJson()) {
        QJsonObject object = QJsonObject::fromVariantMap(values);
        m_console.object({{QStringLiteral("event"), QStringLiteral("results")},
                          {QStringLiteral("command"), m_command},
                          {QStringLiteral("results"), object}});
    } else {
        for (auto value = values.cbegin(); value != values.cend(); ++value) {
            m_console.line(QStringLiteral("%1: %2").arg(value.key(), Console::visible(shownValue(value.value()))));
        }
    }
    if (!m_console.isOpen()) {
        interrupt(); // nobody reads any more
    }
}

void RunCommand::ended()
{
    const QVariantMap results = m_run->results();
    Problem problem{Problem::Kind::Device,
                    QStringLiteral("run"),
                    QStringLiteral("the command \"%1\" did not succeed").arg(m_command),
                    {},
                    {}};
    bool isDone = false;
    switch (m_run->outcome()) {
    case DOrder::Outcome::TimedOut:
        problem.cause = QStringLiteral("it was ended by the time limit");
        problem.mend = QStringLiteral("give more time with --limit, and check that the wrench is connected");
        break;
    case DOrder::Outcome::Stopped:
        isDone = !m_run->stopCommandName().isEmpty(); // that is how it ends
        problem.cause = QStringLiteral("it was interrupted");
        break;
    case DOrder::Outcome::Refused:
    case DOrder::Outcome::Gone:
    case DOrder::Outcome::None:
        problem.cause = QStringLiteral("the plugin refused it");
        break;
    case DOrder::Outcome::Finished:
        isDone = results.value(QStringLiteral("cmd_success"), true).toBool();
        problem.cause =
            results.value(QStringLiteral("error"), QStringLiteral("the device said no or did not answer")).toString();
        break;
    }
    if (isDone) {
        Q_EMIT sigDone(0);
    } else {
        fail(problem);
    }
}
