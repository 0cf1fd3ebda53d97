#pragma once

#include <memory>

#include "../history/recorded_session.h"
#include "../history/recording.h"
#include "../services/session_service.h"
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
    void connectResults();
    void finish(const SessionSummary& summary);

    SessionOrder m_order;
    const DAbstractPlugin* m_device = nullptr;
    std::unique_ptr<SessionReport> m_report;
    Recording m_recording;
    std::unique_ptr<RecordedSession> m_session;
    std::unique_ptr<SessionService> m_service;
    bool m_hasListened = false;
    int m_exitStatus = 0;
};
