#include <lib_plugins_management/d_abstract_plugin.h>

#include <QPointer>

#include <algorithm>

#include <lib_plugins_management/d_abstract_command.h>
#include <lib_plugins_management/host/i_plugin_host.h>

#include "d_abstract_command_p.h"
#include "d_abstract_plugin_p.h"
#include "logging.h"

namespace {

// Keys of a device's configuration.
const QString c_nameKey = QStringLiteral("name");
const QString c_propertiesKey = QStringLiteral("properties"); // inside the plugin's section

} // namespace

IPlugin::~IPlugin() = default;

const DAbstractCommand* DAbstractPluginPrivate::prototype(const QString& command) const
{
    const auto found = std::find_if(prototypes.cbegin(), prototypes.cend(),
                                    [&](const DAbstractCommand* each) { return each->commandName() == command; });
    return found == prototypes.cend() ? nullptr : *found;
}

bool DAbstractPluginPrivate::isStopCommand(const QString& name) const
{
    return !name.isEmpty() && std::any_of(prototypes.cbegin(), prototypes.cend(), [&](const DAbstractCommand* each) {
        return each->stopCommandName() == name;
    });
}

void DAbstractPluginPrivate::restoreProperties()
{
    const QJsonObject section = config->value(pluginUuid.toString()).toObject();
    const QVariantMap stored = section.value(c_propertiesKey).toObject().toVariantMap();
    for (auto property = stored.cbegin(); property != stored.cend(); ++property) {
        properties.insert(property.key(), property.value());
    }
}

DAbstractPlugin::DAbstractPlugin(const QUuid& pluginUuid, const char* pluginName, IPlugin::Type type, quint64 version,
                                 const QUuid& instanceUuid, QObject* parent, bool reserved)
    : QObject(parent), d_ptr(new DAbstractPluginPrivate)
{
    Q_UNUSED(reserved)
    d_ptr->pluginUuid = pluginUuid;
    d_ptr->pluginName = pluginName;
    d_ptr->type = type;
    d_ptr->version = version;
    d_ptr->objectUuid = instanceUuid;
    d_ptr->config = QSharedPointer<QJsonObject>::create();
}

DAbstractPlugin::~DAbstractPlugin()
{
    if (d_ptr->host != nullptr) {
        d_ptr->host->pluginDestroyed(*this);
    }
    // A command made for a run belongs to its shared pointer from now on, whatever deleter that has: as a child it
    // would be deleted here and there once more.
    const auto commands = findChildren<DAbstractCommand*>(QString(), Qt::FindDirectChildrenOnly);
    for (DAbstractCommand* command : commands) {
        if (!d_ptr->prototypes.contains(command)) {
            DAbstractCommandPrivate::get(*command)->abandon();
            command->setParent(nullptr);
        }
    }
}

QUuid DAbstractPlugin::objectUuid() const
{
    return d_ptr->objectUuid;
}

QString DAbstractPlugin::getName() const
{
    return d_ptr->config->value(c_nameKey).toString(QString::fromUtf8(d_ptr->pluginName));
}

QUuid DAbstractPlugin::pluginUuid() const
{
    return d_ptr->pluginUuid;
}

const char* DAbstractPlugin::pluginName() const
{
    return d_ptr->pluginName;
}

quint64 DAbstractPlugin::pluginVersion() const
{
    return d_ptr->version;
}

IPlugin::Type DAbstractPlugin::pluginType() const
{
    return d_ptr->type;
}

QList<QUuid> DAbstractPlugin::compatiblePlugins() const
{
    return {d_ptr->pluginUuid};
}

QString DAbstractPlugin::compatibilityString() const
{
    return QStringLiteral("%1 %2")
        .arg(QString::fromUtf8(d_ptr->pluginName))
        .arg(d_ptr->version, 16, 16, QLatin1Char('0'));
}

QVariant DAbstractPlugin::getProperty(const QString& name, bool* ok) const
{
    const auto found = d_ptr->properties.constFind(name);
    const bool exists = found != d_ptr->properties.constEnd();
    if (ok != nullptr) {
        *ok = exists;
    }
    return exists ? *found : QVariant();
}

QVariant DAbstractPlugin::getProperty(const QString& name, const QVariant& defaultValue) const
{
    return d_ptr->properties.value(name, defaultValue);
}

QStringList DAbstractPlugin::getFunctions(bool withStopCommands) const
{
    QStringList names = commandNames();
    if (withStopCommands) {
        for (const DAbstractCommand* prototype : qAsConst(d_ptr->prototypes)) {
            const QString stopName = prototype->stopCommandName();
            if (!stopName.isEmpty() && !names.contains(stopName)) {
                names.append(stopName);
            }
        }
    }
    return names;
}

QJsonObject DAbstractPlugin::getFunctionDescription(const QString& command) const
{
    const DAbstractCommand* prototype = d_ptr->prototype(command);
    return prototype == nullptr ? QJsonObject() : prototype->fullDescription();
}

QJsonArray DAbstractPlugin::getCommandParameters(const QString& command) const
{
    return getFunctionDescription(command).value(QLatin1String("parameters")).toArray();
}

void DAbstractPlugin::setMainConfig(QSharedPointer<QJsonObject> config)
{
    d_ptr->config = config.isNull() ? QSharedPointer<QJsonObject>::create() : std::move(config);
    d_ptr->restoreProperties();
}

QJsonValue DAbstractPlugin::getInMainConfig(const QString& key) const
{
    return d_ptr->config->value(key);
}

QJsonValue DAbstractPlugin::getInPluginConfig(const QString& key) const
{
    return d_ptr->config->value(d_ptr->pluginUuid.toString()).toObject().value(key);
}

QString DAbstractPlugin::getDebugIdentification() const
{
    return QStringLiteral("%1 (%2 %3)")
        .arg(getName(), QString::fromUtf8(d_ptr->pluginName), d_ptr->objectUuid.toString());
}

QSharedPointer<QJsonObject> DAbstractPlugin::getMainConfig() const
{
    return d_ptr->config;
}

void DAbstractPlugin::setInPluginConfig(const QString& key, const QJsonValue& value)
{
    const QString sectionKey = d_ptr->pluginUuid.toString();
    QJsonObject section = d_ptr->config->value(sectionKey).toObject();
    section.insert(key, value);
    setInMainConfig(sectionKey, section);
}

void DAbstractPlugin::setInMainConfig(const QString& key, const QJsonValue& value)
{
    d_ptr->config->insert(key, value);
    if (d_ptr->host != nullptr) {
        d_ptr->host->configurationChanged(*this);
    }
}

bool DAbstractPlugin::setProperty(const QString& name, const QVariant& value, bool persistent)
{
    if (name.isEmpty()) {
        return false;
    }
    const auto found = d_ptr->properties.constFind(name);
    const bool changed = found == d_ptr->properties.constEnd() || *found != value;
    d_ptr->properties.insert(name, value);
    const QPointer<DAbstractPlugin> self(this); // who hears of it may destroy the instance
    if (persistent) {
        QJsonObject stored = getInPluginConfig(c_propertiesKey).toObject();
        const QJsonValue written = QJsonValue::fromVariant(value);
        if (stored.value(name) != written) {
            stored.insert(name, written);
            setInPluginConfig(c_propertiesKey, stored);
        }
    }
    if (changed && !self.isNull() && d_ptr->host != nullptr) {
        d_ptr->host->propertyChanged(*this, name, value);
    }
    return true;
}

void DAbstractPlugin::initAbstractCommands() {}

void DAbstractPlugin::declareInstructionCommand(DAbstractCommand* prototype)
{
    if (prototype == nullptr || d_ptr->prototypes.contains(prototype)) {
        return;
    }
    if (!prototype->isValid() || d_ptr->prototype(prototype->commandName()) != nullptr) {
        qCCritical(lcPluginsManagement).noquote()
            << QStringLiteral("%1: the command \"%2\" is refused: it is declared twice or is not valid; "
                              "give it a name of its own and known type texts")
                   .arg(getDebugIdentification(), prototype->commandName());
        delete prototype;
        return;
    }
    prototype->setParent(this);
    d_ptr->prototypes.append(prototype);
}

QStringList DAbstractPlugin::commandNames() const
{
    QStringList names;
    names.reserve(d_ptr->prototypes.size());
    for (const DAbstractCommand* prototype : qAsConst(d_ptr->prototypes)) {
        names.append(prototype->commandName());
    }
    return names;
}
