#pragma once

#include <QAbstractListModel>

#include <functional>
#include <memory>
#include <vector>

#include "../doctor/doctor.h"
#include "../services/settings.h"

/// The examination of a workplace, as the window shows it: one row for each stage, which is there before it begins. It
/// has a workplace of its own, and needs the port for itself. One examination at a time.
class DoctorTable : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY runningChanged)
    Q_PROPERTY(bool isEnding READ isEnding NOTIFY runningChanged)
    Q_PROPERTY(QString runningText READ runningText NOTIFY runningChanged)
    Q_PROPERTY(bool hasResult READ hasResult NOTIFY resultChanged)
    Q_PROPERTY(bool isGood READ isGood NOTIFY resultChanged)
    Q_PROPERTY(QString resultText READ resultText NOTIFY resultChanged)
    Q_PROPERTY(QString endText READ endText NOTIFY resultChanged)
    Q_PROPERTY(bool hasProblem READ hasProblem NOTIFY resultChanged)
    Q_PROPERTY(QString problemWhat READ problemWhat NOTIFY resultChanged)
    Q_PROPERTY(QString problemCause READ problemCause NOTIFY resultChanged)
    Q_PROPERTY(QString problemMend READ problemMend NOTIFY resultChanged)

public:
    enum Roles {
        Name = Qt::UserRole + 1, ///< for people
        Checks,                  ///< what it checks
        Sends,                   ///< what it sends, and what that changes; empty: nothing
        Outcome,                 ///< "waiting", "running", "passed", "failed" or "skipped"
        OutcomeText,             ///< the same for people
        Finding,                 ///< what was found, or why it was skipped; empty: nothing yet
        Cause,                   ///< of one that failed; may be empty
        Mend,                    ///< likewise: what to do
        Notes,                   ///< what a person should know; lines; may be empty
        Seconds                  ///< how long it took
    };

    /// What to examine: asked when an examination is prepared.
    using SettingsSource = std::function<Settings()>;

    explicit DoctorTable(SettingsSource settings, QObject* parent = nullptr);
    ~DoctorTable() override;

    bool isRunning() const { return m_isRunning; }
    bool isEnding() const { return m_isEnding; } ///< it was stopped, or is through, and puts things back
    QString runningText() const;                 ///< what runs; empty: nothing does
    bool hasResult() const { return !m_isRunning && m_hasSummary; }
    bool isGood() const { return hasResult() && m_summary.exitStatus == 0; }
    QString resultText() const;
    QString endText() const { return m_endText; } ///< what was put back at the end
    /// What could not be put back as it was found.
    bool hasProblem() const { return !m_problem.what.isEmpty(); }
    QString problemWhat() const { return m_problem.what; }
    QString problemCause() const { return m_problem.cause; }
    QString problemMend() const { return m_problem.mend; }

    /// Shows the stages as they are before an examination. Nothing while one runs.
    Q_INVOKABLE void prepare();
    /// waitResultSeconds: how long to wait for a tightening at the end; 0: none is asked for.
    Q_INVOKABLE void start(int waitResultSeconds);
    /// Ends it in good order: the wrench's lock is put back, the dongle hangs up.
    Q_INVOKABLE void stop();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
    /// The texts of the stages are made anew when the language changes.
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void runningChanged();
    void resultChanged();
    /// It has ended, and the port is free.
    void sigEnded();

private:
    enum class Progress { Waiting, Running, Passed, Failed, Skipped };
    struct Row
    {
        DoctorStageText stage;
        Progress progress = Progress::Waiting;
        DoctorFinding finding;
        QStringList notes;
        qint64 elapsedMs = 0;
    };
    struct Examination;

    void make(int waitResultMs);
    void stageStarted(const DoctorStageText& stage);
    void noticed(const QString& stage, const QString& text);
    void stageEnded(const DoctorStageText& stage, const DoctorFinding& finding, qint64 elapsedMs);
    void ended(const DoctorSummary& summary);
    Row* rowOf(const QString& stage);
    void tellChange(const Row& row);
    static QString shownProgress(Progress progress);

    const SettingsSource m_settings;
    std::unique_ptr<Examination> m_examination;
    std::vector<Row> m_rows;
    DoctorSummary m_summary;
    bool m_hasSummary = false;
    QString m_endText;
    Problem m_problem;
    bool m_isRunning = false;
    bool m_isEnding = false;
};
