#pragma once

#include <memory>

#include "doctor_stage.h"

/// A tightening, which the person is asked for, arrives as a result. Only when it is asked for.
class ResultsStage : public DoctorStage
{
    Q_OBJECT

public:
    explicit ResultsStage(DoctorBench& bench);

    void start() override;
    void stop() override;

private:
    void configured(const DOrder& run);
    void listen();
    void unlock();
    void askForTheLock(void (ResultsStage::*whenUnlocked)());
    void waitForResult();
    void takeResult(const QVariantMap& eventData);
    void failWithoutResult();

    std::unique_ptr<DOrder> m_run;
    std::unique_ptr<DOrder> m_listener;
    bool m_hasEnded = false;
};
