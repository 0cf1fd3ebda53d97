#pragma once

#include <QString>

class Clock;
class DAbstractPlugin;
class DHost;

/// A device, the driver of its line and the host that runs their commands. All of them outlive whoever works with them.
struct LinkedDevice
{
    DHost& host;
    Clock& clock;
    DAbstractPlugin& device;
    DAbstractPlugin& driver;
    QString port = {}; ///< the file of the line; empty: not known
};
