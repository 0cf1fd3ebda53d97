#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

/// What a panel is told of its device: the texts that take the places of {OBJECT_NAME}, {OBJECT_ID} and
/// {OBJECT_REFERENCE} in its document.
struct PanelDevice
{
    QString name;
    QString objectId; ///< the instance's uuid
    QString reference;
};

/// The document of the maintenance panel that a plugin brings as a resource.
class PanelDocument
{
public:
    /// The plugin's panel, with the device's texts in place: whatever they hold, they stay texts. Nothing when the
    /// plugin is not loaded or has no panel.
    static std::optional<PanelDocument> ofPlugin(const QString& pluginUuid, const PanelDevice& device);

    const QByteArray& qml() const { return m_qml; }
    /// Where the document stands; what it imports is found from there.
    const QUrl& url() const { return m_url; }

private:
    PanelDocument(const QByteArray& qml, const QUrl& url) : m_qml(qml), m_url(url) {}

    QByteArray m_qml;
    QUrl m_url;
};
