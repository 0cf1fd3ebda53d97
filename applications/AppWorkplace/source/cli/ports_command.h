#pragma once

#include "command_line.h"

/// `ports`: the serial ports of this machine.
class PortsCommand : public CliCommand
{
    Q_OBJECT

public:
    explicit PortsCommand(const CliContext& context);

    static CliEntry entry();

    void start() override;
};
