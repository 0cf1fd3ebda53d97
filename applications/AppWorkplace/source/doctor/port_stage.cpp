#include "port_stage.h"

#include <utility>

#include <lib_plugins_management/host/d_host.h>

namespace {
constexpr int c_openLimitMs = 5000;
constexpr char c_connected[] = "connected"; // a property of the driver
} // namespace

PortStage::PortStage(DoctorBench& bench)
    : DoctorStage({QStringLiteral("port"), tr("the port exists, is permitted and is free"), {}}, Problem::Kind::SetUp,
                  bench)
{}

PortStage::~PortStage()
{
    m_bench.clock.cancel(m_timer);
}

void PortStage::start()
{
    connect(&m_bench.host, &DHost::sigPropertyChanged, this,
            [this](const DAbstractPlugin* plugin, const QString& name, const QVariant& value) {
                if (plugin == m_bench.driver && name == QLatin1String(c_connected) && value.toBool()) {
                    opened();
                }
            });
    m_timer = m_bench.clock.callAfter(limitMs(c_openLimitMs), [this] {
        m_timer = 0;
        stop();
        fail(tr("the port could not be opened"), tr("the driver did not say why"),
             tr("check the port and the cable; \"app_workplace ports\" lists the ports"));
    });
    m_bench.talk.open(*m_bench.driver);
}

void PortStage::stop()
{
    m_bench.host.disconnect(this);
    m_bench.clock.cancel(std::exchange(m_timer, 0));
}

void PortStage::opened()
{
    stop();
    pass(tr("%1 is open, for this program alone").arg(m_bench.order.port));
}
