#pragma once

#include <memory>

#include "../services/session.h"
#include "command_line.h"
#include "session_report.h"
#include "workplace_command.h"

/// `session`: the main job.
class SessionCommand : public WorkplaceCommand
{
    Q_OBJECT

public:
    SessionCommand(const CliContext& context, const SessionOrder& order);

    static CliEntry entry();

    void interrupt() override;

protected:
    std::optional<Problem> check() override;
    void begin() override;
    void workplaceFailed(const Problem& problem) override;

private:
    void interruptWhenUnread();

    SessionOrder m_order;
    const DAbstractPlugin* m_device = nullptr;
    std::unique_ptr<SessionReport> m_report;
    std::unique_ptr<Session> m_session;
    bool m_hasListened = false;
    int m_exitStatus = 0;
};
