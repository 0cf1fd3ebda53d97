#include "scan_command.h"

#include <QJsonArray>

#include <lib_plugins_management/d_abstract_plugin.h>

#include "number_options.h"
#include "text_table.h"

namespace {

constexpr int c_defaultDurationMs = 5000;

std::unique_ptr<CliCommand> make(const CliContext& context, Problem* problem)
{
    if (!context.arguments.isEmpty()) {
        *problem = {Problem::Kind::Usage,
                    QStringLiteral("command line"),
                    ScanCommand::tr("a scan takes no argument \"%1\"").arg(context.arguments.first()),
                    {},
                    ScanCommand::tr("see app_workplace scan --help")};
        return nullptr;
    }
    const int durationMs = secondsOption(context.options, QStringLiteral("duration"), 0, problem);
    const bool isSet = context.options.isSet(QStringLiteral("duration"));
    return std::make_unique<ScanCommand>(context, isSet ? durationMs : c_defaultDurationMs);
}

} // namespace

CliEntry ScanCommand::entry()
{
    return {QStringLiteral("scan"),
            {},
            tr("Lists the wrenches in range, the strongest signal first."),
            {{QStringLiteral("duration"), tr("Ends after so long (5 when not said); 0: goes on until Ctrl-C."),
              QStringLiteral("SECONDS")}},
            &make,
            true};
}

ScanCommand::ScanCommand(const CliContext& context, int durationMs) : WorkplaceCommand(context)
{
    m_duration.setSingleShot(true);
    m_duration.setInterval(durationMs);
    connect(&m_duration, &QTimer::timeout, this, &ScanCommand::end);
}

void ScanCommand::interrupt()
{
    end();
}

std::optional<Problem> ScanCommand::check()
{
    m_root = m_workplace.rootWith(WrenchScan::commandName(), Workplace::Role::Device);
    if (m_root != nullptr) {
        return std::nullopt;
    }
    return Problem{Problem::Kind::SetUp,
                   QStringLiteral("scan"),
                   tr("no loaded plugin can scan"),
                   {},
                   tr("name the folder of the plugins with --plugins")};
}

void ScanCommand::begin()
{
    m_scan = std::make_unique<WrenchScan>(
        LinkedDevice{m_workplace.host(), m_workplace.clock(), *m_workplace.instanceOf(*m_root), m_workplace.driver()});
    connect(m_scan.get(), &WrenchScan::sigHeard, this, [this](const QVariantList& wrenches) {
        show(wrenches);
        if (!m_console.isOpen()) { // nobody reads any more; from a later turn, for the scan is telling us just now
            QMetaObject::invokeMethod(this, &ScanCommand::interrupt, Qt::QueuedConnection);
        }
    });
    connect(m_scan.get(), &WrenchScan::sigFinished, this, &ScanCommand::tellEnd);
    m_console.progress(tr("searching …"));
    m_scan->start();
    if (m_duration.interval() > 0) {
        m_duration.start();
    }
}

void ScanCommand::tellEnd()
{
    m_console.progress({});
    if (const std::optional<Problem> problem = m_scan->problem()) {
        fail(*problem);
        return;
    }
    if (!m_console.isJson() && !m_console.isTerminal()) {
        showTable(m_scan->wrenches()); // the one list that is shown where lines cannot be taken back
    }
    Q_EMIT sigDone(0);
}

void ScanCommand::show(const QVariantList& wrenches)
{
    if (m_console.isJson()) {
        m_console.object({{QStringLiteral("event"), QStringLiteral("scan")},
                          {QStringLiteral("wrenches"), QJsonArray::fromVariantList(wrenches)}});
    } else if (m_console.isTerminal()) {
        showTable(wrenches);
    }
}

void ScanCommand::showTable(const QVariantList& wrenches)
{
    TextTable table({{tr("serial number")}, {tr("address")}, {tr("signal (dBm)"), true}});
    for (const QVariant& wrench : wrenches) {
        const QVariantMap fields = wrench.toMap();
        table.addRow({fields.value(QStringLiteral("sn")).toString(), fields.value(QStringLiteral("mac")).toString(),
                      fields.value(QStringLiteral("rssi")).toString()});
    }
    const QStringList lines = table.lines();
    m_console.takeBack(m_shownLines);
    m_shownLines = lines.size();
    for (const QString& line : lines) {
        m_console.line(line);
    }
}

void ScanCommand::end()
{
    if (m_scan == nullptr) {
        Q_EMIT sigDone(int(Problem::Kind::Device));
    } else {
        m_scan->stop();
    }
}
