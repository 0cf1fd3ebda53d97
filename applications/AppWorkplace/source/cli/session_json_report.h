#pragma once

#include "session_report.h"

/// A session for programs: one object a line, described by docs/output.schema.json.
class SessionJsonReport : public SessionReport
{
public:
    SessionJsonReport(Console& console, const QString& serialId);

    void opened(const QString& port, bool isSimulated) override;
    void stepStarted(Session::Step step) override;
    void stepDone(Session::Step step, qint64 elapsedMs) override;
    void wrenchesHeard(const QVariantList& wrenches) override;
    void programs(const QVariantList& programs) override;
    void selected(int program, const QVariantMap& preset) override;
    void result(const QVariantMap& eventData) override;
    void note(const HistoryRecord& note) override;
    void namesakes(const QVariantList& wrenches, const QString& taken) override;
    void unverified() override;
    void link(const LinkReport& report) override;
    void failed() override;
    void summary(const SessionSummary& summary) override;

private:
    void write(const QString& event, QJsonObject fields);

    Console& m_console;
    const QString m_serialId;
    QJsonObject m_pending; // what the current step has found, told when it is done
};
