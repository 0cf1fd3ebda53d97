#include "ports_command.h"

#include <QDir>
#include <QFileInfo>
#include <QSerialPortInfo>

#include "text_table.h"

namespace {

const QString c_byIdFolder = QStringLiteral("/dev/serial/by-id");

std::unique_ptr<CliCommand> make(const CliContext& context, Problem* problem)
{
    if (!context.arguments.isEmpty()) {
        *problem = {Problem::Kind::Usage,
                    QStringLiteral("command line"),
                    PortsCommand::tr("the list of ports takes no argument \"%1\"").arg(context.arguments.first()),
                    {},
                    PortsCommand::tr("see app_workplace ports --help")};
        return nullptr;
    }
    return std::make_unique<PortsCommand>(context);
}

/// The name that stays when the adapter is plugged in elsewhere; empty: it has none.
QString lastingName(const QString& port)
{
    const QFileInfoList links = QDir(c_byIdFolder).entryInfoList(QDir::Files | QDir::System);
    for (const QFileInfo& link : links) {
        if (link.canonicalFilePath() == port) {
            return link.absoluteFilePath();
        }
    }
    return {};
}

} // namespace

CliEntry PortsCommand::entry()
{
    return {QStringLiteral("ports"), {}, tr("Lists the serial ports of this machine."), {}, &make};
}

PortsCommand::PortsCommand(const CliContext& context) : CliCommand(context) {}

void PortsCommand::start()
{
    TextTable table({{tr("port")}, {tr("usable")}, {tr("lasting name")}, {tr("description")}});
    const QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo& port : ports) {
        const QFileInfo file(port.systemLocation());
        const bool isUsable = file.isReadable() && file.isWritable();
        const QString name = lastingName(port.systemLocation());
        if (m_console.isJson()) {
            m_console.object({{QStringLiteral("event"), QStringLiteral("port")},
                              {QStringLiteral("port"), port.systemLocation()},
                              {QStringLiteral("usable"), isUsable},
                              {QStringLiteral("lastingName"), name},
                              {QStringLiteral("description"), port.description()}});
        } else {
            table.addRow({port.systemLocation(), isUsable ? tr("yes") : tr("no right"),
                          name.isEmpty() ? QStringLiteral("-") : name, port.description()});
        }
    }
    if (ports.isEmpty()) {
        m_console.notice(tr("This machine has no serial port; plug the adapter in and call this again."));
    } else if (!m_console.isJson()) {
        const QStringList lines = table.lines();
        for (const QString& line : lines) {
            m_console.line(line);
        }
    }
    Q_EMIT sigDone(0);
}
