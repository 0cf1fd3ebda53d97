#include "device_store.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>
#include <QUrl>

DeviceStore::DeviceStore(const QString& folder, const QString& device)
    : m_configuration(QSharedPointer<QJsonObject>::create())
{
    if (!folder.isEmpty()) {
        // A serial number may hold anything that a wrench prints; a file name may not.
        const QString name = QString::fromLatin1(QUrl::toPercentEncoding(device, {}, QByteArrayLiteral(".~")));
        m_file = QDir(folder).absoluteFilePath(QStringLiteral("devices/%1.json").arg(name));
    }
}

bool DeviceStore::load(QString* cause)
{
    QFile input(m_file);
    if (m_file.isEmpty() || !input.exists()) {
        return true;
    }
    if (!input.open(QIODevice::ReadOnly)) {
        *cause = input.errorString();
        return false;
    }
    QJsonParseError error{};
    const QByteArray text = input.read(c_maxFileBytes + 1);
    if (text.size() > c_maxFileBytes) {
        *cause = QCoreApplication::translate("DeviceStore", "it is longer than %1 bytes").arg(c_maxFileBytes);
        return false;
    }
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (!document.isObject()) {
        *cause = error.error == QJsonParseError::NoError
                     ? QCoreApplication::translate("DeviceStore", "it holds no JSON object")
                     : error.errorString();
        return false;
    }
    *m_configuration = document.object();
    return true;
}

bool DeviceStore::save(QString* cause) const
{
    if (m_file.isEmpty()) {
        return true;
    }
    QDir().mkpath(QFileInfo(m_file).absolutePath());
    QSaveFile output(m_file);
    if (!output.open(QIODevice::WriteOnly) || output.write(QJsonDocument(*m_configuration).toJson()) < 0 ||
        !output.commit()) {
        *cause = output.errorString();
        return false;
    }
    return true;
}
