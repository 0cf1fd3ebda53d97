#pragma once

#include <QMap>
#include <QObject>
#include <QVariant>

#include <memory>

#include <lib_plugins_management/host/d_order.h>

#include "linked_device.h"

/// Ends the use of a line: the dongle hangs up, the port is closed. What the driver cannot do any more is given up
/// after two seconds, so that the end always comes.
class LineEnd : public QObject
{
    Q_OBJECT

public:
    explicit LineEnd(const LinkedDevice& device, QObject* parent = nullptr);

    void hangUpAndClose();
    /// For a line that nobody was called on.
    void close();

Q_SIGNALS:
    void sigClosed();

private:
    using Parameters = QMap<QString, QVariant>;
    void run(const QString& driverCommand, const Parameters& parameters, void (LineEnd::*then)());

    const LinkedDevice m_device;
    std::unique_ptr<DOrder> m_run;
};
