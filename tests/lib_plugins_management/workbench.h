#pragma once

#include <QPointer>

#include <memory>

#include <lib_plugins_management/host/d_host.h>
#include <support/manual_clock.h>

#include "scripted_plugin.h"

/// A host with a device and the driver that it is linked to, and a clock that is turned by hand. Scripts are added to
/// the two roots before set() makes the instances.
struct Workbench
{
    Workbench();
    ~Workbench();

    /// Makes the instances of what the scripts say.
    void set();

    /// A started order for a command of the device, owned by the workbench's user.
    std::unique_ptr<DOrder> start(const QString& command, const Values& parameters = {}, int limitMs = 0);

    /// One turn of the event loop: what is posted meanwhile waits for the next.
    static void turn();
    /// Turns until nothing is left to do but what the clock must bring.
    static void settle();

    ManualClock clock;
    std::unique_ptr<DHost> host;
    ScriptedPlugin deviceRoot{"Device"};
    ScriptedPlugin driverRoot{"Driver"};
    QPointer<ScriptedPlugin> device;
    QPointer<ScriptedPlugin> driver;
};
