#include <lib_plugins_management/host/d_plugin_loader.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>

#include <exception>
#include <memory>

#include <lib_plugins_management/d_abstract_plugin.h>

#include "plugin_rights.h"

namespace {

/// An interface id is the maker's prefix and the name of the class, joined by a dot.
bool namesItsClass(const QString& interfaceId, const QString& className)
{
    return !className.isEmpty() && interfaceId.endsWith(QLatin1Char('.') + className);
}

} // namespace

QString DPluginRefusal::message() const
{
    return QCoreApplication::translate("PluginLoader", "the plugin %1 is not used: %2; %3").arg(file, cause, mend);
}

void DPluginLoader::loadFolder(const QString& folder)
{
    const QDir dir(folder);
    if (!dir.exists()) {
        refuse(folder, QCoreApplication::translate("PluginLoader", "there is no such folder"),
               QCoreApplication::translate("PluginLoader", "name the folder that holds the plugins"));
        return;
    }
    // Of the folder once, not for each file in it.
    const PluginRights::Problem problem = PluginRights().problemOf(dir.absolutePath());
    if (!problem.isNone()) {
        refuse(folder, problem.cause, problem.mend);
        return;
    }
    const QStringList files = dir.entryList({QStringLiteral("*.so")}, QDir::Files, QDir::Name);
    if (files.isEmpty()) {
        refuse(folder, QCoreApplication::translate("PluginLoader", "it holds no library (*.so)"),
               QCoreApplication::translate("PluginLoader", "build or install the plugins, or name another folder"));
    }
    for (const QString& file : files) {
        loadFile(dir.filePath(file));
    }
}

DAbstractPlugin* DPluginLoader::loadFile(const QString& file)
{
    const QFileInfo info(file);
    const QString path = info.absoluteFilePath(); // QPluginLoader takes a relative one for something to search
    if (!info.isFile()) {
        return refuse(path, QCoreApplication::translate("PluginLoader", "there is no such file"),
                      QCoreApplication::translate("PluginLoader", "check the name"));
    }
    if (!info.isReadable()) {
        return refuse(path, QCoreApplication::translate("PluginLoader", "it may not be read"),
                      QCoreApplication::translate("PluginLoader", "give this user the right to read it"));
    }
    const PluginRights::Problem problem = PluginRights().problemOfFileAndFolder(path);
    if (!problem.isNone()) {
        return refuse(path, problem.cause, problem.mend);
    }
    QPluginLoader loader(path);
    // A function that is missing is found now, not when it is called and ends the process.
    loader.setLoadHints(loader.loadHints() | QLibrary::ResolveAllSymbolsHint);
    const QJsonObject metaData = loader.metaData();
    if (metaData.isEmpty()) {
        return refuse(
            path, QCoreApplication::translate("PluginLoader", "it is no Qt plugin (%1)").arg(loader.errorString()),
            QCoreApplication::translate("PluginLoader", "put only plugin libraries for this machine into the folder"));
    }
    const QString interfaceId = metaData.value(QLatin1String("IID")).toString();
    if (!namesItsClass(interfaceId, metaData.value(QLatin1String("className")).toString())) {
        return refuse(path,
                      QCoreApplication::translate("PluginLoader", "its interface id \"%1\" is not one of this host's")
                          .arg(interfaceId),
                      QCoreApplication::translate("PluginLoader", "use a plugin made for this host"));
    }
    try {
        QObject* instance = loader.instance();
        if (instance == nullptr) {
            return refuse(
                path, QCoreApplication::translate("PluginLoader", "it does not load (%1)").arg(loader.errorString()),
                QCoreApplication::translate("PluginLoader",
                                            "build it against this machine's Qt %1 and this host's libraries")
                    .arg(QLatin1String(qVersion())));
        }
        auto* root = qobject_cast<DAbstractPlugin*>(instance);
        if (root == nullptr) {
            return refuse(
                path, QCoreApplication::translate("PluginLoader", "its object is not a plugin of this host"),
                QCoreApplication::translate(
                    "PluginLoader", "derive it from DAbstractPlugin and build it against this host's libraries"));
        }
        if (m_roots.contains(root)) {
            return root;
        }
        std::unique_ptr<DAbstractPlugin> unusable(root); // until it is known to be usable
        if (root->commandNames().isEmpty()) {
            root->initPluginCommands();
        }
        if (root->commandNames().isEmpty()) {
            return refuse(
                path, QCoreApplication::translate("PluginLoader", "it declares no command"),
                QCoreApplication::translate("PluginLoader", "let its initPluginCommands() declare at least one"));
        }
        m_roots.append(unusable.release());
        return root;
    } catch (const std::exception& error) {
        return refuse(path,
                      QCoreApplication::translate("PluginLoader", "it failed while it was loaded (%1)")
                          .arg(QString::fromUtf8(error.what())),
                      QCoreApplication::translate("PluginLoader", "ask its maker for a mended one"));
    } catch (...) {
        return refuse(path, QCoreApplication::translate("PluginLoader", "it failed while it was loaded"),
                      QCoreApplication::translate("PluginLoader", "ask its maker for a mended one"));
    }
}

DAbstractPlugin* DPluginLoader::refuse(const QString& file, const QString& cause, const QString& mend)
{
    m_refusals.append({file, cause, mend});
    return nullptr;
}
