#pragma once

#include <QString>

/// Why a device file may not be opened by this user, and what to do about it.
namespace port_rights {

/// One sentence that names the port. name: as configured. location: the device file itself, which exists.
QString notPermitted(const QString& name, const QString& location);

} // namespace port_rights
