#include "wrench_scan.h"

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/d_host.h>

#include "heard_wrenches.h"

namespace {

constexpr char c_lineError[] = "lineError"; // a property of the driver: a whole sentence, empty when nothing is wrong

} // namespace

QString WrenchScan::commandName()
{
    return QStringLiteral("startDetection");
}

WrenchScan::WrenchScan(const LinkedDevice& dongle, QObject* parent)
    : QObject(parent), m_dongle(dongle), m_lineEnd(dongle)
{
    connect(&m_lineEnd, &LineEnd::sigClosed, this, &WrenchScan::sigFinished);
    connect(&m_dongle.host, &DHost::sigPropertyChanged, this,
            [this](const DAbstractPlugin* plugin, const QString& name) {
                if (plugin == &m_dongle.driver) {
                    driverChanged(name);
                }
            });
}

void WrenchScan::start()
{
    m_detection = m_dongle.host.createOrder(m_dongle.device, commandName());
    connect(m_detection.get(), &DOrder::sigResultsPublished, this, &WrenchScan::take);
    // The plugin has hung up itself; closing waits until that has left.
    connect(m_detection.get(), &DOrder::sigFinished, &m_lineEnd, &LineEnd::close);
    m_detection->start();
}

void WrenchScan::stop()
{
    if (m_detection != nullptr) {
        m_detection->stop();
    }
}

std::optional<Problem> WrenchScan::problem() const
{
    if (!m_lineError.isEmpty()) {
        return Problem{Problem::Kind::SetUp, QStringLiteral("scan"), tr("the line is not usable"), m_lineError, {}};
    }
    if (m_wrenches.isEmpty()) {
        return Problem{Problem::Kind::Device,
                       QStringLiteral("scan"),
                       tr("no wrench was heard"),
                       {},
                       tr("switch the wrench on, bring it near, and check the port")};
    }
    return std::nullopt;
}

void WrenchScan::driverChanged(const QString& property)
{
    const QString error = m_dongle.driver.getProperty(QLatin1String(c_lineError), QVariant()).toString();
    if (m_detection != nullptr && property == QLatin1String(c_lineError) && !error.isEmpty()) {
        m_lineError = error;
        stop();
    }
}

void WrenchScan::take(const QMap<QString, QVariant>& results)
{
    const QVariantList heard = HeardWrenches::strongestFirst(results.value(QStringLiteral("lastResults")).toList());
    if (heard != m_wrenches) {
        m_wrenches = heard;
        Q_EMIT sigHeard(m_wrenches);
    }
}
