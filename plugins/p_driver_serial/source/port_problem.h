#pragma once

#include <QString>

/// What keeps a port from being opened, as one sentence that names the port, the cause and what to do.
namespace port_problem {

/// name: as configured. systemText: what the system said, used when no cause is found.
QString cannotOpen(const QString& name, const QString& systemText);

/// Another program, or another device of this one, holds the port.
QString inUse(const QString& name);

/// The port is there but does not have what is configured. setting: its name in the configuration.
QString unsupported(const QString& name, const QString& setting);

/// The open port has gone away.
QString wentAway(const QString& name);

} // namespace port_problem
