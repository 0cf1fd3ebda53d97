#pragma once

#include <QMap>
#include <QStringList>
#include <QVariant>

#include <functional>

#include <lib_plugins_management/d_abstract_plugin.h>

class ScriptedCommand;

/// What a command of a scripted plugin does when it is run.
struct Reaction
{
    enum class Kind { Answer, Silence, Refusal };

    Kind kind = Kind::Silence;
    QMap<QString, QVariant> results = {};  // of an answer
    std::function<void()> beforehand = {}; // empty: nothing
};

/// A plugin whose commands do what the test says; what it is asked for is written down as a talk:
/// "device setLock lock=false", and "device stopped listenEventsData" when a run is ended by somebody else.
class ScriptedPlugin : public DAbstractPlugin
{
    Q_OBJECT

public:
    /// talk: outlives the plugin; shared, so that the order among plugins is seen.
    ScriptedPlugin(const QString& name, const QMap<QString, Reaction>& reactions, QStringList* talk);

    void setReaction(const QString& command, const Reaction& reaction) { m_reactions[command] = reaction; }
    Reaction reaction(const QString& command) const { return m_reactions.value(command); }
    void write(const QString& line) { m_talk->append(m_name + QLatin1Char(' ') + line); }

    /// The running command publishes. False when it does not run.
    bool publish(const QString& command, const QMap<QString, QVariant>& values);
    bool isRunning(const QString& command) const;
    /// The running command ends by itself.
    void finish(const QString& command);

    void initPluginCommands() override;
    IPlugin* createInstance(const QUuid& uuid) const override;
    const char* pluginSubTypeName() const override { return ""; }

private:
    ScriptedCommand* running(const QString& command) const;

    QString m_name;
    QMap<QString, Reaction> m_reactions; // by command; its keys are the plugin's commands
    QStringList* m_talk;
};
