#pragma once

#include <memory>

#include "doctor_stage.h"

class SpeedTrial;

/// The line takes frames, and what comes back is text. When it is not, or nothing comes, other speeds are tried.
class LineStage : public DoctorStage
{
    Q_OBJECT

public:
    explicit LineStage(DoctorBench& bench);
    ~LineStage() override;

    void start() override;
    void stop() override;
    /// A port need not have each of the speeds that are tried.
    bool standsALineError() const override { return m_trial != nullptr; }

private:
    void call(const QString& frame, void (LineStage::*otherwise)());
    void callAgain();
    void tryOtherSpeeds();
    void trialEnded(int baud, const QStringList& lines);

    std::unique_ptr<SpeedTrial> m_trial;
    bool m_hasHeardGarbage = false;
};
