#include "device_list.h"

#include <algorithm>

#include "../history/shared_history.h"

DeviceList::DeviceList(const QList<Settings>& devices, QObject* parent) : QAbstractListModel(parent)
{
    const auto history = std::make_shared<SharedHistory>(Workplace::dataFolder(devices.value(0)));
    for (const Settings& settings : devices) {
        auto* device = new DeviceModel(settings, history, this);
        connect(device, &DeviceModel::sigEnded, this, &DeviceList::tellWhenAllHaveEnded);
        m_devices.append(device);
    }
}

DeviceList::~DeviceList() = default;

DeviceModel* DeviceList::at(int row) const
{
    return m_devices.value(row, nullptr);
}

void DeviceList::endAll()
{
    if (m_isEnding) {
        return;
    }
    m_isEnding = true;
    for (DeviceModel* device : qAsConst(m_devices)) {
        device->end();
    }
    QMetaObject::invokeMethod(this, &DeviceList::tellWhenAllHaveEnded, Qt::QueuedConnection); // there may be none
}

void DeviceList::setLanguage(const QString& language)
{
    for (DeviceModel* device : qAsConst(m_devices)) {
        device->setLanguage(language);
    }
}

int DeviceList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_devices.size();
}

QVariant DeviceList::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != DeviceRole) {
        return {};
    }
    return QVariant::fromValue(m_devices.at(index.row()));
}

QHash<int, QByteArray> DeviceList::roleNames() const
{
    return {{DeviceRole, QByteArrayLiteral("device")}};
}

void DeviceList::tellWhenAllHaveEnded()
{
    const bool haveAllEnded =
        std::all_of(m_devices.cbegin(), m_devices.cend(), [](const DeviceModel* device) { return device->hasEnded(); });
    if (haveAllEnded && !m_hasEnded) {
        m_hasEnded = true;
        Q_EMIT sigAllEnded();
    }
}
