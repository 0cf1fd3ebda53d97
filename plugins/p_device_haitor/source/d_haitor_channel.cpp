#include "d_haitor_channel.h"

namespace {

const QString c_id = QStringLiteral("id");
const QString c_name = QStringLiteral("name");
const QString c_value = QStringLiteral("value");
const QString c_type = QStringLiteral("type");
const QString c_direction = QStringLiteral("direction");

constexpr int c_fasteningCode = 0;

} // namespace

const QMap<QString, DHaitorChannel::EnChannelType> DHaitorChannel::c_channelTypesMap{
    {QStringLiteral("direction"), CeCtString},
    {QStringLiteral("motorRun"), CeCtBool},
    {QStringLiteral("currentPreset"), CeCtString},
};

const QStringList DHaitorChannel::c_directionCodeToString{QStringLiteral("Fastening"), QStringLiteral("Loosening"),
                                                          QString(), QString()};

DHaitorChannel::DHaitorChannel(QObject* parent) : DObject(QStringLiteral("DHaitorChannel"), parent) {}

QSharedPointer<DHaitorChannel> DHaitorChannel::create(const QMap<QString, QVariant>& info)
{
    auto channel = QSharedPointer<DHaitorChannel>::create();
    channel->setId(info.value(c_id).toString());
    channel->setName(info.value(c_name).toString());
    const QVariant attributes = info.value(c_value);
    if (attributes.userType() == QMetaType::QVariantList) {
        channel->setAttributes(attributes.toList());
    }
    return channel;
}

void DHaitorChannel::setAttributes(const QVariantList& attributes)
{
    for (const QVariant& each : attributes) {
        if (each.userType() != QMetaType::QVariantMap) {
            continue;
        }
        const QVariantMap attribute = each.toMap();
        const QString id = attribute.value(c_id).toString();
        m_attributes.insert(id, attribute.value(c_value));
        if (id == c_type) {
            // Kept on purpose: that it is there decides, not what it says.
            setType(c_channelTypesMap.value(m_id, CeCtUnknown));
        }
    }
}

void DHaitorChannel::setId(const QString& id)
{
    if (m_id != id) {
        m_id = id;
        Q_EMIT idChanged();
    }
}

void DHaitorChannel::setName(const QString& name)
{
    if (m_name != name) {
        m_name = name;
        Q_EMIT nameChanged();
    }
}

void DHaitorChannel::setLabel(const QString& label)
{
    if (m_label != label) {
        m_label = label;
        Q_EMIT labelChanged();
    }
}

void DHaitorChannel::setType(EnChannelType type)
{
    if (m_type != type) {
        m_type = type;
        Q_EMIT typeChanged();
    }
}

bool DHaitorChannel::setValue(const QVariant& value)
{
    QVariant shown;
    if (value.canConvert<QVariantList>()) {
        const QVariantList elements = value.toList();
        if (elements.size() == 1) {
            shown = elements.constFirst();
            if (m_id == c_direction) {
                shown = c_directionCodeToString.value(shown.toInt()); // an unknown code shows nothing
            }
        }
    } else if (value.canConvert<bool>()) {
        // Kept on purpose: a single value shows the first direction, whatever it is and whatever the channel.
        shown = c_directionCodeToString.at(c_fasteningCode);
    } else {
        return false;
    }
    if (m_value != shown) {
        m_value = shown;
        Q_EMIT valueChanged();
    }
    return true;
}
