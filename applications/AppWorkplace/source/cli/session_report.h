#pragma once

#include <memory>

#include "../history/history_record.h"
#include "../services/session.h"
#include "console.h"

/// Shows a session as it goes. One for people, one for programs.
class SessionReport
{
public:
    virtual ~SessionReport() = default;

    virtual void opened(const QString& port, bool isSimulated) = 0;
    virtual void stepStarted(Session::Step step) = 0;
    virtual void stepDone(Session::Step step, qint64 elapsedMs) = 0;
    virtual void wrenchesHeard(const QVariantList& wrenches) = 0;
    virtual void programs(const QVariantList& programs) = 0;
    virtual void selected(int program, const QVariantMap& preset) = 0;
    virtual void result(const QVariantMap& eventData) = 0;
    /// A gap or a repeat.
    virtual void note(const HistoryRecord& note) = 0;
    /// As Session::sigNamesakes().
    virtual void namesakes(const QVariantList& wrenches, const QString& taken) = 0;
    /// As Session::sigUnverified().
    virtual void unverified() = 0;
    virtual void link(const LinkReport& report) = 0;
    /// The problem itself is told beside the report.
    virtual void failed() = 0;
    virtual void summary(const SessionSummary& summary) = 0;

    /// The console outlives the report. serialId: of the session's wrench.
    static std::unique_ptr<SessionReport> make(Console& console, const QString& serialId);
};
