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
    /// A port that had gone is back, and nothing has arrived from it yet. A command that listens has begun anew: what
    /// had arrived of a line is not the beginning of what comes now.
    void sigLineBack();
    void sigEnded();

private:
    void driverChanged(const QString& property, const QVariant& value);
    void makeOrder();
    void beginAnew();

    const LinkedDevice m_device;
    const QString m_command;
    const QMap<QString, QVariant> m_parameters;
    std::unique_ptr<DOrder> m_order;
    std::unique_ptr<DOrder> m_stop;
    int m_limitMs = 0; // 0: none
    qint64 m_startUs = 0;
    bool m_wasConnected;
    bool m_isLineCutOff = false; // its port went, and is not back
    QString m_lineFailure;       // why the run was ended; empty: it was not ended by the line
};
