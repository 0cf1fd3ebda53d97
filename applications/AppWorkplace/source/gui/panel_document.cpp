#include "panel_document.h"

#include <QFile>

namespace {

/// The text as it stands inside the quotes of a QML text; everything but plain letters and digits as a code.
QByteArray quoted(const QString& text)
{
    constexpr int c_hexadecimal = 16;
    constexpr int c_codeLength = 4;
    QString result;
    for (const QChar character : text) {
        const bool isPlain =
            character.unicode() < 0x80 && (character.isLetterOrNumber() || character == QLatin1Char(' '));
        result += isPlain ? QString(character)
                          : QStringLiteral("\\u%1").arg(ushort(character.unicode()), c_codeLength, c_hexadecimal,
                                                        QLatin1Char('0'));
    }
    return result.toLatin1();
}

} // namespace

std::optional<PanelDocument> PanelDocument::ofPlugin(const QString& pluginUuid, const PanelDevice& device)
{
    QFile file(QStringLiteral(":/%1/maintenance_panel.qml").arg(pluginUuid));
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    QByteArray qml = file.readAll();
    qml.replace("{OBJECT_NAME}", quoted(device.name));
    qml.replace("{OBJECT_ID}", quoted(device.objectId));
    qml.replace("{OBJECT_REFERENCE}", quoted(device.reference));
    // Its imports climb three folders, from where its source stands; so that is where it is said to stand.
    QUrl url;
    url.setScheme(QStringLiteral("qrc"));
    url.setPath(QStringLiteral("/plugins/%1/resources/maintenance_panel.qml").arg(pluginUuid));
    return PanelDocument(qml, url);
}
