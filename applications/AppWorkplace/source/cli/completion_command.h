#pragma once

#include <QList>

#include "../services/workplace.h"
#include "command_line.h"

/// `completion`: prints the script with which a shell completes the program's command line.
class CompletionCommand : public CliCommand
{
    Q_OBJECT

public:
    explicit CompletionCommand(const CliContext& context);

    static CliEntry entry();

    void start() override;

private:
    const QList<CliEntry> m_entries;
    Workplace m_workplace;
    const bool m_isForZsh;
};
