#include "device_store.h"

#include <QDir>
#include <QUrl>

namespace {

QString fileOf(const QString& folder, const QString& device)
{
    if (folder.isEmpty()) {
        return {};
    }
    // A serial number may hold anything that a wrench prints; a file name may not.
    const QString name = QString::fromLatin1(QUrl::toPercentEncoding(device, {}, QByteArrayLiteral(".~")));
    return QDir(folder).absoluteFilePath(QStringLiteral("devices/%1.json").arg(name));
}

} // namespace

DeviceStore::DeviceStore(const QString& folder, const QString& device)
    : m_file(fileOf(folder, device)), m_configuration(QSharedPointer<QJsonObject>::create())
{}
