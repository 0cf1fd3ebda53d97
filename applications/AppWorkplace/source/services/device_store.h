#pragma once

#include <QJsonObject>
#include <QSharedPointer>
#include <QString>

/// Keeps the configuration of one device in a file of the data folder, so that what a plugin stores lastingly is there
/// again after a restart. Without a folder nothing is kept: a simulated wrench forgets everything, too.
class DeviceStore
{
public:
    /// No device stores more bytes; a longer file is refused before it is read whole.
    static constexpr int c_maxFileBytes = 4 * 1024 * 1024;

    /// folder: empty for none. device: names the file, "2210" for devices/2210.json.
    DeviceStore(const QString& folder, const QString& device);

    /// What is stored; empty when there is nothing. False, with the cause, when the file cannot be used; it is left
    /// alone then.
    bool load(QString* cause);
    /// Replaces the file at once and whole. False, with the cause, when it cannot.
    bool save(QString* cause) const;

    QString file() const { return m_file; }
    const QSharedPointer<QJsonObject>& configuration() const { return m_configuration; }

private:
    QString m_file;
    QSharedPointer<QJsonObject> m_configuration;
};
