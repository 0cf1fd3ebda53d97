#pragma once

#include <optional>

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
    /// What is wrong with what is asked for, as far as the loaded plugins tell. Nothing was started or opened yet.
    virtual std::optional<Problem> check();
    /// The workplace is open.
    virtual void begin() = 0;
    /// It could not be opened, or is no longer open.
    virtual void workplaceFailed(const Problem& problem);
    /// Ends the command with a problem.
    void fail(const Problem& problem);
    /// A whole sentence that says what to do; empty: nothing is wrong with the line.
    QString lineError() const;

    Workplace m_workplace;

private:
    QStringList pluginNames() const;
};
