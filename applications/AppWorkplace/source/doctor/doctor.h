#pragma once

#include <QObject>

#include <memory>
#include <vector>

#include "doctor_stage.h"
#include "doctor_summary.h"

class LineEnd;

/// An examination of the workplace: it runs its stages in their order, each told as it begins and ends. Behind one that
/// has failed the rest is skipped. Whatever happens, it ends in an orderly way: the wrench's lock is put back as it was
/// found, the dongle hangs up, the port is closed. One doctor is for one examination.
class Doctor : public QObject
{
    Q_OBJECT

public:
    using Stages = std::vector<std::unique_ptr<DoctorStage>>;

    /// The bench outlives the doctor.
    Doctor(DoctorBench& bench, Stages stages, QObject* parent = nullptr);
    ~Doctor() override;

    void start();
    /// Ends the examination in an orderly way. A second call changes nothing.
    void interrupt();
    /// The same, because of something outside the examination: the stage that goes on has failed.
    void fail(const Problem& problem);

Q_SIGNALS:
    /// Told before the stage does anything.
    void sigStageStarted(const DoctorStageText& stage);
    /// stage: the one that goes on, or "end" behind the last.
    void sigNotice(const QString& stage, const QString& text);
    void sigStageEnded(const DoctorStageText& stage, const DoctorFinding& finding, qint64 elapsedMs);
    /// What could not be put back as it was found.
    void sigFailed(const Problem& problem);
    void sigFinished(const DoctorSummary& summary);

private:
    void startNext();
    void stageEnded(const DoctorFinding& finding);
    void tell(const DoctorFinding& finding);
    void driverChanged(const QString& property);
    void skipRest(const QString& reason);
    void end();
    void putLockBack();
    void closeLine();
    DoctorStage& current() { return *m_stages.at(m_current); }

    DoctorBench& m_bench;
    const Stages m_stages;
    std::unique_ptr<LineEnd> m_lineEnd;
    std::size_t m_current = 0;
    bool m_isRunning = false; // the current stage has been started and has not ended
    bool m_isEnding = false;
    qint64 m_stageStartUs = 0;
    DoctorSummary m_summary;
};
