#pragma once

#include <QMap>
#include <QObject>
#include <QVariant>

#include <memory>
#include <optional>

#include <lib_plugins_management/host/d_order.h>

#include "linked_device.h"
#include "problem.h"

/// One run of one command of a plugin, with an eye on its line. A command that listens outlives a line that is lost and
/// comes back; whatever else waits for the line waits in vain, and is ended. One object for each run.
class CommandRun : public QObject
{
    Q_OBJECT

public:
    static constexpr int c_defaultLimitMs = 30000; ///< of a command that has no stop command

    /// The device has a command of that name. device: may be the driver itself.
    CommandRun(const LinkedDevice& device, const QString& command, const QMap<QString, QVariant>& parameters,
               QObject* parent = nullptr);

    /// limitMs: 0: c_defaultLimitMs, and none for a command that runs until it is stopped.
    void start(int limitMs);
    /// By its stop command, where it has one. A second call changes nothing.
    void stop();
    /// Ends it without its stop command.
    void abort() { m_order->stop(); }

    /// It has a stop command and runs until then.
    bool isEndless() const { return !m_order->stopCommandName().isEmpty(); }
    const DOrder& order() const { return *m_order; }
    /// Why it did not do what was asked; nothing: it did, or has not ended yet.
    std::optional<Problem> problem() const;

Q_SIGNALS:
    /// As the command publishes them.
    void sigResults(const QMap<QString, QVariant>& values);
    /// The line is in trouble, and the run goes on.
    void sigLineTrouble(const QString& message);
    void sigEnded();

private:
    void driverChanged(const QString& property, const QVariant& value);

    const LinkedDevice m_device;
    std::unique_ptr<DOrder> m_order;
    std::unique_ptr<DOrder> m_stop;
    bool m_wasConnected;
    QString m_lineFailure; // why the run was ended; empty: it was not ended by the line
};
