#include "doctor_command.h"

#include <QLoggingCategory>

#include "../doctor/doctor_stages.h"
#include "doctor_json_report.h"
#include "doctor_text_report.h"
#include "number_options.h"

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("DoctorCommand", text);
}

std::unique_ptr<CliCommand> make(const CliContext& context, Problem* problem)
{
    if (!context.arguments.isEmpty()) {
        *problem = {Problem::Kind::Usage,
                    QStringLiteral("command line"),
                    translated(QT_TRANSLATE_NOOP("DoctorCommand", "the doctor takes no argument \"%1\""))
                        .arg(context.arguments.first()),
                    {},
                    translated(QT_TRANSLATE_NOOP("DoctorCommand", "see app_workplace doctor --help"))};
        return nullptr;
    }
    const QCommandLineParser& options = context.options;
    DoctorOrder order;
    order.port = context.settings.port;
    order.serialId = context.settings.wrench();
    if (options.isSet(QStringLiteral("scan"))) {
        order.scanMs = secondsOption(options, QStringLiteral("scan"), 1, problem);
    }
    order.stageLimitMs = secondsOption(options, QStringLiteral("limit"), 1, problem);
    order.waitResultMs = secondsOption(options, QStringLiteral("wait-result"), 1, problem);
    return std::make_unique<DoctorCommand>(context, order);
}

} // namespace

std::unique_ptr<DoctorReport> DoctorReport::make(Console& console)
{
    if (console.isJson()) {
        return std::make_unique<DoctorJsonReport>(console);
    }
    return std::make_unique<DoctorTextReport>(console);
}

CliEntry DoctorCommand::entry()
{
    const QString seconds = QStringLiteral("SECONDS");
    return {QStringLiteral("doctor"),
            {},
            translated(QT_TRANSLATE_NOOP("DoctorCommand",
                                         "Looks at the workplace step by step, and says how to mend what fails.")),
            {{QStringLiteral("wait-result"),
              translated(QT_TRANSLATE_NOOP(
                  "DoctorCommand", "Asks you to tighten once, and waits so long for the result; not done otherwise.")),
              seconds},
             {QStringLiteral("scan"),
              translated(QT_TRANSLATE_NOOP("DoctorCommand", "Listens so long for wrenches, instead of 5.")), seconds},
             {QStringLiteral("limit"),
              translated(
                  QT_TRANSLATE_NOOP("DoctorCommand", "Limit of each wait for an answer, instead of each one's own.")),
              seconds}},
            &make};
}

DoctorCommand::DoctorCommand(const CliContext& context, const DoctorOrder& order)
    : CliCommand(context)
    , m_workplace(context.settings)
    , m_bench(m_workplace.host(), m_workplace.clock(), order)
    , m_report(DoctorReport::make(context.console))
    , m_doctor(m_bench, doctor_stages::all(m_bench, m_workplace))
{
    // The doctor says itself what is wrong with the line.
    QLoggingCategory::setFilterRules(QStringLiteral("workplace.driver_serial.line.warning=false"));
    connect(&m_workplace, &Workplace::sigNotice, this, [this](const QString& text) { m_console.message(text); });
    connect(&m_workplace, &Workplace::sigFailed, &m_doctor, &Doctor::fail);
    connect(&m_doctor, &Doctor::sigStageStarted, this,
            [this](const DoctorStageText& stage) { m_report->stageStarted(stage); });
    connect(&m_doctor, &Doctor::sigNotice, this,
            [this](const QString& stage, const QString& text) { m_report->notice(stage, text); });
    connect(&m_doctor, &Doctor::sigStageEnded, this,
            [this](const DoctorStageText& stage, const DoctorFinding& finding, qint64 elapsedMs) {
                m_report->stageEnded(stage, finding, elapsedMs);
                if (finding.outcome == DoctorFinding::Outcome::Failed) {
                    tell(finding.problem);
                }
                if (!m_console.isOpen()) { // nobody reads any more; from a later turn, for it is telling us just now
                    QMetaObject::invokeMethod(&m_doctor, &Doctor::interrupt, Qt::QueuedConnection);
                }
            });
    connect(&m_doctor, &Doctor::sigFailed, this, [this](const Problem& problem) { tell(problem); });
    connect(&m_doctor, &Doctor::sigFinished, this, [this](const DoctorSummary& summary) {
        m_report->summary(summary);
        // It was interrupted because its findings cannot be written; the device has no part in that.
        const bool isLost = summary.isInterrupted && m_console.hasLost();
        Q_EMIT sigDone(isLost ? int(Problem::Kind::SetUp) : summary.exitStatus);
    });
}

void DoctorCommand::start()
{
    m_doctor.start();
}

void DoctorCommand::interrupt()
{
    m_doctor.interrupt();
}
