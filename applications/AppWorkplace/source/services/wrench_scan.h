#pragma once

#include <QObject>
#include <QVariant>

#include <memory>
#include <optional>

#include <lib_plugins_management/host/d_order.h>

#include "line_end.h"
#include "linked_device.h"
#include "problem.h"

/// Looks which wrenches are in range, until it is stopped. Whatever happens, it ends in an orderly way: the dongle
/// hangs up, the port is closed. One scan is for one run.
class WrenchScan : public QObject
{
    Q_OBJECT

public:
    /// The command of a device plugin that can scan.
    static QString commandName();

    /// The device has that command.
    explicit WrenchScan(const LinkedDevice& dongle, QObject* parent = nullptr);

    void start();
    /// Answers with sigFinished. A second call changes nothing.
    void stop();

    /// Maps of "mac", "sn", "rssi", the strongest signal first.
    const QVariantList& wrenches() const { return m_wrenches; }
    /// Of a scan that has ended: why it has found nothing, or was ended by the line.
    std::optional<Problem> problem() const;

Q_SIGNALS:
    /// As wrenches(); told only when there is something new.
    void sigHeard(const QVariantList& wrenches);
    void sigFinished();

private:
    void driverChanged(const QString& property);
    void take(const QMap<QString, QVariant>& results);

    const LinkedDevice m_dongle;
    LineEnd m_lineEnd;
    std::unique_ptr<DOrder> m_detection;
    QVariantList m_wrenches;
    QString m_lineError; // why the scan was ended; empty: it was not ended by the line
};
