#pragma once

#include "../services/workplace.h"
#include "cli_command.h"

/// A command that works on an open workplace: it loads the plugins, opens the workplace and then begins.
class WorkplaceCommand : public CliCommand
{
    Q_OBJECT

public:
    explicit WorkplaceCommand(const CliContext& context);

    void start() override;

protected:
    /// The workplace is open.
    virtual void begin() = 0;
    /// Ends the command with a problem.
    void fail(const Problem& problem);

    Workplace m_workplace;
};
