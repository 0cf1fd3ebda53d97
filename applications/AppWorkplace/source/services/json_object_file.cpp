#include "json_object_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

bool JsonObjectFile::load(QJsonObject* object, QString* cause) const
{
    QFile input(m_path);
    if (m_path.isEmpty() || !input.exists()) {
        return true;
    }
    if (!input.open(QIODevice::ReadOnly)) {
        *cause = input.errorString();
        return false;
    }
    QJsonParseError error{};
    const QByteArray text = input.read(c_maxBytes + 1);
    if (text.size() > c_maxBytes) {
        *cause = QCoreApplication::translate("JsonObjectFile", "it is longer than %1 bytes").arg(c_maxBytes);
        return false;
    }
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (!document.isObject()) {
        *cause = error.error == QJsonParseError::NoError
                     ? QCoreApplication::translate("JsonObjectFile", "it holds no JSON object")
                     : error.errorString();
        return false;
    }
    *object = document.object();
    return true;
}

bool JsonObjectFile::save(const QJsonObject& object, QString* cause) const
{
    if (m_path.isEmpty()) {
        return true;
    }
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    QSaveFile output(m_path);
    if (!output.open(QIODevice::WriteOnly) || output.write(QJsonDocument(object).toJson()) < 0 || !output.commit()) {
        *cause = output.errorString();
        return false;
    }
    return true;
}
