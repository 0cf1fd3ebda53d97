#pragma once

#include <QObject>
#include <QThread>

#include <optional>

#include "../history/export_run.h"

/// Exports the history in a thread of its own, see ExportRun. One at a time.
class HistoryExporter : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY sigChanged)
    Q_PROPERTY(double progress READ progress NOTIFY sigChanged) ///< 0 to 1
    /// The file that was written last; empty: none, or another try has been made since.
    Q_PROPERTY(QString writtenFile READ writtenFile NOTIFY sigChanged)
    Q_PROPERTY(bool wasStopped READ wasStopped NOTIFY sigChanged)     ///< the last one
    Q_PROPERTY(bool wouldReplace READ wouldReplace NOTIFY sigChanged) ///< it was refused, for the file is there
    Q_PROPERTY(bool hasProblem READ hasProblem NOTIFY sigChanged)
    Q_PROPERTY(QString problemWhat READ problemWhat NOTIFY sigChanged)
    Q_PROPERTY(QString problemCause READ problemCause NOTIFY sigChanged)
    Q_PROPERTY(QString problemMend READ problemMend NOTIFY sigChanged)

public:
    /// folder: of the history.
    explicit HistoryExporter(const QString& folder, QObject* parent = nullptr);
    ~HistoryExporter() override;

    /// What the next one writes.
    void setFilter(const HistoryFilter& filter) { m_filter = filter; }

    /// A name for a file in this user's folder of documents that is not there yet. ending: "csv" or "jsonl".
    Q_INVOKABLE QString freeName(const QString& ending) const;
    Q_INVOKABLE void start(const QString& file, bool mayReplace);
    Q_INVOKABLE void stop();
    /// What came of the last one is forgotten.
    Q_INVOKABLE void forget();

    bool isRunning() const { return m_run != nullptr; }
    double progress() const { return m_progress; }
    QString writtenFile() const { return m_writtenFile; }
    bool wasStopped() const { return m_wasStopped; }
    bool wouldReplace() const { return m_problem && ExportRun::isAboutReplacing(*m_problem); }
    bool hasProblem() const { return m_problem.has_value(); }
    QString problemWhat() const { return m_problem ? m_problem->what : QString(); }
    QString problemCause() const { return m_problem ? m_problem->cause : QString(); }
    QString problemMend() const { return m_problem ? m_problem->mend : QString(); }

Q_SIGNALS:
    void sigChanged();

private:
    void end();

    const QString m_folder;
    HistoryFilter m_filter;
    QThread m_thread;
    ExportRun* m_run = nullptr; // lives in the thread
    double m_progress = 0;
    QString m_writtenFile;
    bool m_wasStopped = false;
    std::optional<Problem> m_problem;
};
