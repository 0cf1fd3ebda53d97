#pragma once

#include <QJsonObject>
#include <QSharedPointer>
#include <QString>

#include "json_object_file.h"

/// Keeps the configuration of one device in a file of the data folder, so that what a plugin stores lastingly is there
/// again after a restart. Without a folder nothing is kept: a simulated wrench forgets everything, too.
class DeviceStore
{
public:
    /// folder: empty for none. device: names the file, "2210" for devices/2210.json.
    DeviceStore(const QString& folder, const QString& device);

    /// What is stored; empty when there is nothing. False, with the cause, when the file cannot be used; it is left
    /// alone then.
    bool load(QString* cause) { return m_file.load(m_configuration.data(), cause); }
    /// Replaces the file at once and whole. False, with the cause, when it cannot.
    bool save(QString* cause) const { return m_file.save(*m_configuration, cause); }

    const QString& file() const { return m_file.path(); }
    const QSharedPointer<QJsonObject>& configuration() const { return m_configuration; }

private:
    JsonObjectFile m_file;
    QSharedPointer<QJsonObject> m_configuration;
};
