#pragma once

#include <QObject>
#include <QScopedPointer>

#include <lib_plugins_management/i_plugin.h>

class DAbstractCommand;
class DAbstractPluginPrivate;

/// Base of every plugin object: identity, property store, configuration and the table of commands.
///
/// One object is made for the library itself (the root) and one for each device. Owned by whoever made it; it owns the
/// prototypes of its commands. Destroying it ends every run of its commands without calling them again.
class LIB_PLUGINS_MANAGEMENT_EXPORT DAbstractPlugin : public QObject, public IPlugin
{
    Q_OBJECT

public:
    /// pluginName: a text that outlives the plugin. version: as versionFromString() makes it.
    /// The last argument is reserved by the host; this one does not look at it.
    DAbstractPlugin(const QUuid& pluginUuid, const char* pluginName, IPlugin::Type type, quint64 version,
                    const QUuid& instanceUuid, QObject* parent, bool reserved);
    ~DAbstractPlugin() override;

    // The order of these is part of the interface.
    QUuid objectUuid() const override;
    QString getName() const override;
    QUuid pluginUuid() const override;
    const char* pluginName() const override;
    quint64 pluginVersion() const override;
    IPlugin::Type pluginType() const override;
    QList<QUuid> compatiblePlugins() const override;
    QString compatibilityString() const override;
    QVariant getProperty(const QString& name, bool* ok) const override;
    QVariant getProperty(const QString& name, const QVariant& defaultValue) const override;
    QStringList getFunctions(bool withStopCommands) const override;
    QJsonObject getFunctionDescription(const QString& command) const override;
    QJsonArray getCommandParameters(const QString& command) const override;
    void setMainConfig(QSharedPointer<QJsonObject> config) override;
    QJsonValue getInMainConfig(const QString& key) const override;
    QJsonValue getInPluginConfig(const QString& key) const override;
    QString getDebugIdentification() const override;
    QSharedPointer<QJsonObject> getMainConfig() const override;
    void setInPluginConfig(const QString& key, const QJsonValue& value) override;
    void setInMainConfig(const QString& key, const QJsonValue& value) override;
    /// Declares the plugin's commands and emits sigCommandsInitDone. The host calls it once.
    virtual void initPluginCommands() = 0;
    IPlugin* createInstance(const QUuid& uuid) const override = 0;
    const char* pluginSubTypeName() const override = 0;

    /// Stores a value that the plugin's commands share and the host may show; the host announces it when it differs
    /// from the one before. persistent: also written to the device's configuration, so that it survives a restart.
    /// Hides QObject's dynamic properties on purpose: the host's properties are these. Returns false for an empty name.
    bool setProperty(const QString& name, const QVariant& value, bool persistent);

    /// Declares the commands that every plugin has. This host has none.
    void initAbstractCommands();

    /// Registers a command under its name and takes ownership of it. A second command of the same name is refused with
    /// a line in the log, and deleted.
    void declareInstructionCommand(DAbstractCommand* prototype);

    /// Names of the declared commands, in the order of declaration.
    QStringList commandNames() const;

Q_SIGNALS:
    void sigCommandsInitDone(const QUuid& objectUuid, const QStringList& commandNames);

private:
    friend class DAbstractPluginPrivate;
    QScopedPointer<DAbstractPluginPrivate> d_ptr;
};
