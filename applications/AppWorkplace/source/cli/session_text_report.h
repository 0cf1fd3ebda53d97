#pragma once

#include <QCoreApplication>

#include "session_report.h"
#include "text_table.h"

/// A session for people: a line for each step with its time, a table of programs, a line for each result.
class SessionTextReport : public SessionReport
{
    Q_DECLARE_TR_FUNCTIONS(SessionTextReport)

public:
    SessionTextReport(Console& console, const QString& serialId);

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
    void step(const QString& name, const QString& text);
    /// The same for what is told however little is asked for.
    void alarm(const QString& name, const QString& text);
    static QString stepLine(const QString& name, const QString& text);

    Console& m_console;
    const QString m_serialId;
    QList<QPair<QString, QString>> m_heard; // serial number and address of those that were shown
    QString m_stepText;                     // what the current step has to tell
    TextTable m_results;
    int m_shown = 0;
    bool m_isSelected = false;
    bool m_isLineInTrouble = false;
};
