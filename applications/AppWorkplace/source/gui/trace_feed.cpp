#include "trace_feed.h"

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/d_order.h>

namespace {

const QString c_command = QStringLiteral("listenTrace"); // of the driver
const QString c_entry = QStringLiteral("entry");         // its result

} // namespace

TraceFeed::TraceFeed(QObject* parent) : QObject(parent) {}

TraceFeed::~TraceFeed() = default;

void TraceFeed::setLine(DHost* host, DAbstractPlugin* driver)
{
    if (host == m_host.data() && driver == m_driver.data()) {
        return;
    }
    m_host = host;
    m_driver = driver;
    const bool wasHearing = isHearing();
    m_order.reset();
    update();
    if (isHearing() != wasHearing) {
        Q_EMIT sigHearingChanged();
    }
}

void TraceFeed::setOn(bool isOn)
{
    if (isOn == m_isOn) {
        return;
    }
    m_isOn = isOn;
    const bool wasHearing = isHearing();
    update();
    if (isHearing() != wasHearing) {
        Q_EMIT sigHearingChanged();
    }
}

void TraceFeed::update()
{
    if (!m_isOn || m_host.isNull() || m_driver.isNull()) {
        m_order.reset();
        return;
    }
    if (m_order != nullptr || !m_driver->commandNames().contains(c_command)) {
        return;
    }
    m_order = m_host->createOrder(*m_driver, c_command);
    connect(m_order.get(), &DOrder::sigResultsPublished, this,
            [this](const QMap<QString, QVariant>& values) { hear(values.value(c_entry).toString()); });
    connect(m_order.get(), &DOrder::sigFinished, this, [this] { // the driver has gone
        m_order.release()->deleteLater();                       // it is telling us
        Q_EMIT sigHearingChanged();
    });
    m_order->start();
}

void TraceFeed::hear(const QString& line)
{
    if (line.startsWith(QLatin1Char('#'))) {
        Q_EMIT sigBegan(line.toUtf8());
    } else {
        Q_EMIT sigEntry(line.toUtf8());
    }
}
