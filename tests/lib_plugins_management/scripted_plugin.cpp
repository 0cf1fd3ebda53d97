#include "scripted_plugin.h"

namespace {
constexpr quint32 c_type = 0x54657374; // "Test"
constexpr quint64 c_version = 0x0001000000000000;
} // namespace

ScriptedPlugin::ScriptedPlugin(const char* name, const QUuid& instance, QObject* parent)
    : DAbstractPlugin(QUuid::createUuidV5(QUuid(), QString::fromUtf8(name)), name, c_type, c_version, instance, parent,
                      false)
{}

ScriptedPlugin::~ScriptedPlugin()
{
    if (onDestruction) {
        onDestruction();
    }
}

ScriptPointer ScriptedPlugin::addCommand(const QString& name, const QString& stopName)
{
    m_scripts.push_back(std::make_shared<Script>(name, stopName));
    return m_scripts.back();
}

void ScriptedPlugin::initPluginCommands()
{
    for (const ScriptPointer& script : m_scripts) {
        declareInstructionCommand(new ScriptedCommand(script, {}, this));
    }
    Q_EMIT sigCommandsInitDone(objectUuid(), commandNames());
}

IPlugin* ScriptedPlugin::createInstance(const QUuid& uuid) const
{
    auto* instance = new ScriptedPlugin(pluginName(), uuid);
    instance->m_scripts = m_scripts;
    return instance;
}

const char* ScriptedPlugin::pluginSubTypeName() const
{
    return "Scripted";
}
