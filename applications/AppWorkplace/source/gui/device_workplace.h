#pragma once

#include <QObject>

#include <functional>
#include <memory>

#include "../services/linked_device.h"
#include "../services/workplace.h"

/// The workplace of one device of the window: opened when it is first needed, and anew after it has failed. Who works
/// in it has ended before it is closed.
class DeviceWorkplace : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~DeviceWorkplace() override;

    /// then: called when it is open, at once when it is already; never when it cannot be (sigFailed says why) or is
    /// closed before.
    void openThen(const Settings& settings, std::function<void()> then);
    void close();
    /// Once who worked in it has ended: what has failed is not used again.
    void closeIfFailed();

    /// Null while it is not open.
    Workplace* get() const { return m_isOpen ? m_workplace.get() : nullptr; }
    /// While it is open: the plugin with the command and its driver. Nothing when no plugin has it.
    std::optional<LinkedDevice> deviceWith(const QString& command) const;

Q_SIGNALS:
    /// It was opened, or is closed.
    void sigChanged();
    void sigFailed(const Problem& problem);

private:
    void fail(const Problem& problem);

    std::unique_ptr<Workplace> m_workplace;
    std::function<void()> m_whenOpen;
    bool m_isOpen = false;
    bool m_hasFailed = false;
};
