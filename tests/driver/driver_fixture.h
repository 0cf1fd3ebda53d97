#pragma once

#include <QCoreApplication>
#include <QJsonObject>

#include <memory>

#include <lib_plugins_management/d_abstract_command.h>

#include "fake_port.h"
#include "manual_clock.h"
#include "p_driver_serial.h"
#include "recording_order.h"

/// A run of one of the driver's commands: the command and its order.
struct Run
{
    std::unique_ptr<RecordingOrder> order;
    QSharedPointer<ICommand> command;
    bool started = false;

    QVariant result(const char* name) const { return order->last(QLatin1String(name)); }
    bool succeeded() const { return result("cmd_success").toBool(); }
    QString error() const { return result("error").toString(); }
    bool isFinished() const { return order->finished > 0; }
    void stop() const
    {
        bool ok = true;
        command->finishTheCommand(ok);
    }
};

/// A driver instance on a fake port and a clock that is turned by hand.
class DriverFixture
{
public:
    DriverFixture()
    {
        auto ownedPort = std::make_unique<FakePort>();
        auto ownedClock = std::make_unique<ManualClock>();
        port = ownedPort.get();
        clock = ownedClock.get();
        plugin =
            std::make_unique<PDriverSerial>(QUuid::createUuid(), std::move(ownedPort), std::move(ownedClock), nullptr);
        configure("port", QStringLiteral("/dev/fake"));
        plugin->initPluginCommands();
    }

    void configure(const char* key, const QJsonValue& value) const
    {
        plugin->setInPluginConfig(QLatin1String(key), value);
    }

    Run run(const char* command, const QMap<QString, QVariant>& parameters = {}) const
    {
        Run run{std::make_unique<RecordingOrder>(), {}};
        const auto prototypes = plugin->findChildren<DAbstractCommand*>(QString(), Qt::FindDirectChildrenOnly);
        for (const DAbstractCommand* prototype : prototypes) {
            if (prototype->commandName() == QLatin1String(command)) {
                run.command = prototype->createCommand(parameters);
                break;
            }
        }
        run.command->linkWithItsOrder(run.order.get());
        run.started = run.command->commandExecute();
        return run;
    }
    Run write(const QByteArray& frame, int timeoutMs = 500) const
    {
        return run("write", {{QStringLiteral("frame"), frame}, {QStringLiteral("timeout"), timeoutMs}});
    }
    Run listen() const { return run("listenEventsData", {{QStringLiteral("subscription"), true}}); }
    Run keepAlive(const QString& frame, const QString& response) const
    {
        return run("setKeepAliveFonction",
                   {{QStringLiteral("frame"), frame}, {QStringLiteral("responseFrame"), response}});
    }

    QVariant property(const char* name) const { return plugin->getProperty(QLatin1String(name), nullptr); }

    // Owned by the plugin.
    FakePort* port = nullptr;
    ManualClock* clock = nullptr;
    std::unique_ptr<PDriverSerial> plugin;
};

/// All bytes that a listening run was given.
inline QByteArray heard(const Run& run)
{
    QByteArray bytes;
    for (const QMap<QString, QVariant>& each : qAsConst(run.order->published)) {
        bytes += each.value(QStringLiteral("frame")).toByteArray();
    }
    return bytes;
}
