#pragma once

#include "line_record.h"
#include "manual_clock.h"

#include <QJsonObject>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>

#include <lib_plugins_management/host/d_host.h>

#include "services/linked_device.h"

class DonglePort;
class QTimer;

/// A whole workplace in one process and in simulated time: host, device plugin, driver plugin, and a simulated dongle
/// in the place of the serial port. The same options and the same calls give the same run, and a minute of it takes
/// milliseconds.
///
///     SimulatedWorkplace workplace({QStringLiteral("--rate"), QStringLiteral("2")});
///     Session session(workplace.linked(), order);
///     session.start();
///     workplace.runUntil([&] { return isFinished; }, 60000);
class SimulatedWorkplace
{
public:
    /// options: of wrench_simulator. driverSettings: of the driver's configuration, beside the port.
    explicit SimulatedWorkplace(const QStringList& options, QJsonObject driverSettings = {});
    ~SimulatedWorkplace();

    LinkedDevice linked();
    DonglePort& port() const { return *m_port; }

    /// Lets the time pass until the condition holds, or so many ms are over. Whether it holds.
    bool runUntil(const std::function<bool()>& condition, int limitMs);
    void run(int ms);
    /// Everything that waits for a turn of the event loop is done.
    static void turn();

    /// A command of the simulator's console, so many ms from now.
    void commandLater(int delayMs, const QString& text);

    /// Commands that run now in the plugins: of the application, and of instructions and subscriptions.
    int runningCommands() const;

    ManualClock clock;
    LineRecord record;
    DHost host;
    DAbstractPlugin* device = nullptr; // owned by the host
    DAbstractPlugin* driver = nullptr; // owned by the host

private:
    /// A timer of Qt's own, which the commands of the device plugin use.
    struct PlainTimer
    {
        QTimer* timer;
        int id;
        qint64 dueUs;
    };

    qint64 nextDueUs(qint64 untilUs) const;
    void runDue();
    void watchTimers();
    int commandCount() const;

    DonglePort* m_port = nullptr; // owned by the driver
    int m_prototypes = 0;
    QVector<PlainTimer> m_timers; // the active ones
};
