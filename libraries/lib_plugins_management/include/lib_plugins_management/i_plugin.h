#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QUuid>
#include <QVariant>

#include <lib_plugins_management/export.h>

/// What the host knows of a plugin instance. The order of the members is part of the interface: plugin binaries rely
/// on it. All of it is used on the host's thread.
class LIB_PLUGINS_MANAGEMENT_EXPORT IPlugin
{
public:
    using Type = quint32; ///< a four-character code, first character in the highest byte

    virtual ~IPlugin();

    /// Identity of this instance; null for the root instance of a library.
    virtual QUuid objectUuid() const = 0;
    /// The device's name, as the host gave it.
    virtual QString getName() const = 0;
    /// Identity of the plugin, the same for all its instances.
    virtual QUuid pluginUuid() const = 0;
    virtual const char* pluginName() const = 0;
    /// As versionFromString() makes it.
    virtual quint64 pluginVersion() const = 0;
    virtual Type pluginType() const = 0;
    virtual QList<QUuid> compatiblePlugins() const = 0;
    virtual QString compatibilityString() const = 0;
    /// ok (may be null): whether the property exists. Invalid when it does not.
    virtual QVariant getProperty(const QString& name, bool* ok) const = 0;
    virtual QVariant getProperty(const QString& name, const QVariant& defaultValue) const = 0;
    /// The device's whole configuration; the instance shares it with the host.
    virtual void setMainConfig(QSharedPointer<QJsonObject> config) = 0;
    /// Undefined when there is no such key.
    virtual QJsonValue getInMainConfig(const QString& key) const = 0;
    /// The same for the section that belongs to this plugin.
    virtual QJsonValue getInPluginConfig(const QString& key) const = 0;
    /// Names the instance in log lines.
    virtual QString getDebugIdentification() const = 0;
    /// A new instance with that identity; the caller owns it.
    virtual IPlugin* createInstance(const QUuid& uuid) const = 0;
    virtual const char* pluginSubTypeName() const = 0;
    /// Names of the commands, in the order of declaration; on request followed by the names that stop them.
    virtual QStringList getFunctions(bool withStopCommands) const = 0;
    /// ICommand::fullDescription() of the command, empty when there is none of that name.
    virtual QJsonObject getFunctionDescription(const QString& command) const = 0;
    /// The "parameters" of that description.
    virtual QJsonArray getCommandParameters(const QString& command) const = 0;
    virtual QSharedPointer<QJsonObject> getMainConfig() const = 0;
    virtual void setInPluginConfig(const QString& key, const QJsonValue& value) = 0;
    virtual void setInMainConfig(const QString& key, const QJsonValue& value) = 0;
};
