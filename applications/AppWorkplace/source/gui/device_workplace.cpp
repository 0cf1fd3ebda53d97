#include "device_workplace.h"

#include <utility>

DeviceWorkplace::~DeviceWorkplace() = default;

void DeviceWorkplace::openThen(const Settings& settings, std::function<void()> then)
{
    if (m_isOpen) {
        then();
        return;
    }
    m_workplace = std::make_unique<Workplace>(settings);
    m_whenOpen = std::move(then);
    if (const std::optional<Problem> problem = m_workplace->loadPlugins()) {
        fail(*problem);
        return;
    }
    connect(m_workplace.get(), &Workplace::sigOpened, this, [this] {
        m_isOpen = true;
        Q_EMIT sigChanged();
        std::exchange(m_whenOpen, {})();
    });
    connect(m_workplace.get(), &Workplace::sigFailed, this, &DeviceWorkplace::fail);
    m_workplace->open();
}

void DeviceWorkplace::close()
{
    m_isOpen = false;
    m_hasFailed = false;
    m_whenOpen = {};
    if (Workplace* gone = m_workplace.release()) {
        gone->disconnect(this);
        gone->deleteLater(); // it may be telling us of something
        Q_EMIT sigChanged();
    }
}

void DeviceWorkplace::closeIfFailed()
{
    if (m_hasFailed) {
        close();
    }
}

std::optional<LinkedDevice> DeviceWorkplace::deviceWith(const QString& command) const
{
    const DAbstractPlugin* root = m_isOpen ? m_workplace->rootWith(command, Workplace::Role::Device) : nullptr;
    if (root == nullptr) {
        return std::nullopt;
    }
    return LinkedDevice{m_workplace->host(), m_workplace->clock(), *m_workplace->instanceOf(*root),
                        m_workplace->driver(), m_workplace->portInUse()};
}

void DeviceWorkplace::fail(const Problem& problem)
{
    m_hasFailed = true;
    Q_EMIT sigFailed(problem);
}
