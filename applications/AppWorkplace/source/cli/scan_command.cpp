#include "scan_command.h"

#include <QJsonArray>

#include <lib_plugins_management/d_abstract_plugin.h>

#include "../services/heard_wrenches.h"
#include "number_options.h"
#include "text_table.h"

namespace {

const QString c_detectionCommand = QStringLiteral("startDetection");
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
    m_root = m_workplace.rootWith(c_detectionCommand, Workplace::Role::Device);
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
    DAbstractPlugin& device = *m_workplace.instanceOf(*m_root);
    m_lineEnd =
        std::make_unique<LineEnd>(LinkedDevice{m_workplace.host(), m_workplace.clock(), device, m_workplace.driver()});
    connect(m_lineEnd.get(), &LineEnd::sigClosed, this, &ScanCommand::tellEnd);
    connect(&m_workplace.host(), &DHost::sigPropertyChanged, this,
            [this](const DAbstractPlugin* plugin, const QString& name) {
                if (plugin == &m_workplace.driver() && name == QLatin1String("lineError") && !lineError().isEmpty()) {
                    m_lineFailure = lineError();
                    end();
                }
            });
    m_console.progress(tr("searching …"));
    m_detection = m_workplace.host().createOrder(device, c_detectionCommand);
    connect(m_detection.get(), &DOrder::sigResultsPublished, this, [this](const QMap<QString, QVariant>& values) {
        show(HeardWrenches::strongestFirst(values.value(QStringLiteral("lastResults")).toList()));
        if (!m_console.isOpen()) { // nobody reads any more; from a later turn, for the scan is telling us just now
            QMetaObject::invokeMethod(this, &ScanCommand::interrupt, Qt::QueuedConnection);
        }
    });
    // The plugin has hung up itself; closing waits until that has left.
    connect(m_detection.get(), &DOrder::sigFinished, m_lineEnd.get(), &LineEnd::close);
    m_detection->start();
    if (m_duration.interval() > 0) {
        m_duration.start();
    }
}

void ScanCommand::tellEnd()
{
    m_console.progress({});
    if (!m_lineFailure.isEmpty()) {
        fail({Problem::Kind::SetUp, QStringLiteral("scan"), tr("the line is not usable"), m_lineFailure, {}});
    } else if (m_shown.isEmpty()) {
        fail({Problem::Kind::Device,
              QStringLiteral("scan"),
              tr("no wrench was heard"),
              {},
              tr("switch the wrench on, bring it near, and check the port")});
    } else {
        if (!m_console.isJson() && !m_console.isTerminal()) {
            m_shownLines = -1; // the one list that is shown where lines cannot be taken back
            show(m_shown);
        }
        Q_EMIT sigDone(0);
    }
}

void ScanCommand::show(const QVariantList& wrenches)
{
    const bool isLast = m_shownLines < 0;
    if (wrenches == m_shown && !isLast) {
        return;
    }
    m_shown = wrenches;
    if (m_console.isJson()) {
        m_console.object({{QStringLiteral("event"), QStringLiteral("scan")},
                          {QStringLiteral("wrenches"), QJsonArray::fromVariantList(wrenches)}});
        return;
    }
    if (!m_console.isTerminal() && !isLast) {
        return;
    }
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
    if (m_detection == nullptr) {
        Q_EMIT sigDone(int(Problem::Kind::Device));
    } else {
        m_detection->stop();
    }
}
