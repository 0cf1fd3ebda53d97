#include "probe_plugin.h"

#include <QPointer>

namespace {
const QString c_probe = QStringLiteral("probe");
constexpr int c_limitMs = 2000;
} // namespace

ProbeCommand::ProbeCommand(QObject* parent) : DAbstractCommand(c_probe, {}, parent) {}

bool ProbeCommand::commandExecute()
{
    return DAbstractCommand::commandExecute() &&
           addInstruction(QStringLiteral("driver"), QStringLiteral("listenEventsData"),
                          {{QStringLiteral("subscription"), true}}, c_limitMs,
                          fastdelegate::MakeDelegate(this, &ProbeCommand::onReply)) != 0;
}

QSharedPointer<ICommand> ProbeCommand::createCommand(const QMap<QString, QVariant>& parameters) const
{
    Q_UNUSED(parameters)
    auto* command = new ProbeCommand(parent());
    return QSharedPointer<ICommand>(command, [guard = QPointer<QObject>(command)](ICommand*) { delete guard.data(); });
}

std::function<void(const QByteArray&)>& ProbeCommand::onChunk()
{
    static std::function<void(const QByteArray&)> function;
    return function;
}

bool ProbeCommand::onReply(quint64 instruction, const QMap<QString, QVariant>& reply)
{
    Q_UNUSED(instruction)
    onChunk()(reply.value(QStringLiteral("frame")).toByteArray());
    return true;
}

ProbePlugin::ProbePlugin(const QUuid& uuid)
    : DAbstractPlugin(QUuid(QStringLiteral("{7d0f1c1e-3a55-4be6-9a7e-0c9b4e1a2f10}")), "Probe", 0x44657669, 0, uuid,
                      nullptr, false)
{}

void ProbePlugin::initPluginCommands()
{
    declareInstructionCommand(new ProbeCommand(this));
    Q_EMIT sigCommandsInitDone(objectUuid(), commandNames());
}

IPlugin* ProbePlugin::createInstance(const QUuid& uuid) const
{
    return new ProbePlugin(uuid);
}

const char* ProbePlugin::pluginSubTypeName() const
{
    return "";
}
