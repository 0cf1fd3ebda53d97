#include "make_terminal.h"

#include "options.h"
#include "pseudo_terminal.h"
#include "serial_device.h"

std::unique_ptr<Terminal> makeTerminal(const Options& options)
{
    if (options.devicePath.isEmpty()) {
        return std::make_unique<PseudoTerminal>(options.linkPath);
    }
    return std::make_unique<SerialDevice>(options.devicePath);
}
