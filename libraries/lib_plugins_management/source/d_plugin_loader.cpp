#include <lib_plugins_management/host/d_plugin_loader.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>

#include <exception>
#include <memory>

#include <lib_plugins_management/d_abstract_plugin.h>

namespace {

/// An interface id is the maker's prefix and the name of the class, joined by a dot.
bool namesItsClass(const QString& interfaceId, const QString& className)
{
    return !className.isEmpty() && interfaceId.endsWith(QLatin1Char('.') + className);
}

} // namespace

QString DPluginRefusal::message() const
{
    return QStringLiteral("the plugin %1 is not used: %2; %3").arg(file, cause, mend);
}

void DPluginLoader::loadFolder(const QString& folder)
{
    const QDir dir(folder);
    if (!dir.exists()) {
        refuse(folder, QStringLiteral("there is no such folder"),
               QStringLiteral("name the folder that holds the plugins"));
        return;
    }
    const QStringList files = dir.entryList({QStringLiteral("*.so")}, QDir::Files, QDir::Name);
    if (files.isEmpty()) {
        refuse(folder, QStringLiteral("it holds no library (*.so)"),
               QStringLiteral("build or install the plugins, or name another folder"));
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
        return refuse(path, QStringLiteral("there is no such file"), QStringLiteral("check the name"));
    }
    if (!info.isReadable()) {
        return refuse(path, QStringLiteral("it may not be read"),
                      QStringLiteral("give this user the right to read it"));
    }
    QPluginLoader loader(path);
    // A function that is missing is found now, not when it is called and ends the process.
    loader.setLoadHints(loader.loadHints() | QLibrary::ResolveAllSymbolsHint);
    const QJsonObject metaData = loader.metaData();
    if (metaData.isEmpty()) {
        return refuse(path, QStringLiteral("it is no Qt plugin (%1)").arg(loader.errorString()),
                      QStringLiteral("put only plugin libraries for this machine into the folder"));
    }
    const QString interfaceId = metaData.value(QLatin1String("IID")).toString();
    if (!namesItsClass(interfaceId, metaData.value(QLatin1String("className")).toString())) {
        return refuse(path, QStringLiteral("its interface id \"%1\" is not one of this host's").arg(interfaceId),
                      QStringLiteral("use a plugin made for this host"));
    }
    try {
        QObject* instance = loader.instance();
        if (instance == nullptr) {
            return refuse(path, QStringLiteral("it does not load (%1)").arg(loader.errorString()),
                          QStringLiteral("build it against this machine's Qt %1 and this host's libraries")
                              .arg(QLatin1String(qVersion())));
        }
        auto* root = qobject_cast<DAbstractPlugin*>(instance);
        if (root == nullptr) {
            return refuse(path, QStringLiteral("its object is not a plugin of this host"),
                          QStringLiteral("derive it from DAbstractPlugin and build it against this host's libraries"));
        }
        if (m_roots.contains(root)) {
            return root;
        }
        std::unique_ptr<DAbstractPlugin> unusable(root); // until it is known to be usable
        if (root->commandNames().isEmpty()) {
            root->initPluginCommands();
        }
        if (root->commandNames().isEmpty()) {
            return refuse(path, QStringLiteral("it declares no command"),
                          QStringLiteral("let its initPluginCommands() declare at least one"));
        }
        m_roots.append(unusable.release());
        return root;
    } catch (const std::exception& error) {
        return refuse(path, QStringLiteral("it failed while it was loaded (%1)").arg(QString::fromUtf8(error.what())),
                      QStringLiteral("ask its maker for a mended one"));
    } catch (...) {
        return refuse(path, QStringLiteral("it failed while it was loaded"),
                      QStringLiteral("ask its maker for a mended one"));
    }
}

DAbstractPlugin* DPluginLoader::refuse(const QString& file, const QString& cause, const QString& mend)
{
    m_refusals.append({file, cause, mend});
    return nullptr;
}
