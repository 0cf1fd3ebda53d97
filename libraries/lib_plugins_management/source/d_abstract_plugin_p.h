#pragma once

#include <QList>
#include <QMap>
#include <QSharedPointer>

#include <lib_plugins_management/d_abstract_plugin.h>

class IPluginHost;

/// The fields of a plugin instance, and the door by which the host's own classes reach them.
class DAbstractPluginPrivate
{
public:
    static DAbstractPluginPrivate* get(const DAbstractPlugin& plugin) { return plugin.d_ptr.data(); }

    /// Null when the plugin has no such command.
    const DAbstractCommand* prototype(const QString& command) const;
    /// One of the plugin's commands is ended by that name.
    bool isStopCommand(const QString& name) const;

    void restoreProperties();

    QUuid pluginUuid;
    const char* pluginName = "";
    IPlugin::Type type = 0;
    quint64 version = 0;
    QUuid objectUuid;
    QMap<QString, QVariant> properties;
    QSharedPointer<QJsonObject> config;
    QList<DAbstractCommand*> prototypes; // children of the plugin, in the order of declaration
    IPluginHost* host = nullptr;
};
