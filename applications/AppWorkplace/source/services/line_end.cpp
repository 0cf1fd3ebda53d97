#include "line_end.h"

#include <lib_plugins_management/host/d_host.h>

namespace {

constexpr int c_limitMs = 2000; // of each command
constexpr int c_writeTimeoutMs = 500;
const QByteArray c_hangUpFrame = QByteArrayLiteral("ATH\r\n");

} // namespace

LineEnd::LineEnd(const LinkedDevice& device, QObject* parent) : QObject(parent), m_device(device) {}

void LineEnd::hangUpAndClose()
{
    run(QStringLiteral("write"),
        {{QStringLiteral("frame"), c_hangUpFrame}, {QStringLiteral("timeout"), c_writeTimeoutMs}}, &LineEnd::close);
}

void LineEnd::close()
{
    run(QStringLiteral("closeConnection"), {}, &LineEnd::sigClosed);
}

void LineEnd::run(const QString& driverCommand, const Parameters& parameters, void (LineEnd::*then)())
{
    m_run = m_device.host.createOrder(m_device.driver, driverCommand, parameters);
    if (m_run == nullptr) { // a driver without it has nothing to end there
        (this->*then)();
        return;
    }
    connect(m_run.get(), &DOrder::sigFinished, this, [this, then] {
        m_run.release()->deleteLater();
        (this->*then)();
    });
    m_run->start(c_limitMs);
}
