#pragma once

#include <functional>

#include <lib_plugins_management/d_abstract_command.h>
#include <lib_plugins_management/d_abstract_plugin.h>

/// A device plugin whose one command subscribes to the driver and calls a function from its reply delegate.
class ProbeCommand : public DAbstractCommand
{
    Q_OBJECT

public:
    explicit ProbeCommand(QObject* parent);

    bool commandExecute() override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

    /// Of all probes.
    static std::function<void(const QByteArray& chunk)>& onChunk();

private:
    bool onReply(quint64 instruction, const QMap<QString, QVariant>& reply);
};

class ProbePlugin : public DAbstractPlugin
{
    Q_OBJECT

public:
    explicit ProbePlugin(const QUuid& uuid);

    void initPluginCommands() override;
    IPlugin* createInstance(const QUuid& uuid) const override;
    const char* pluginSubTypeName() const override;
};
