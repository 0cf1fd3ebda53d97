#pragma once

#include "doctor_stage.h"

/// The wrench is heard, is the only one of its serial number, and its signal is good enough.
class RangeStage : public DoctorStage
{
    Q_OBJECT

public:
    /// Weaker than this, in dBm, frames get lost.
    static constexpr int c_weakestGoodDbm = -80;

    explicit RangeStage(DoctorBench& bench);

    void start() override;

private:
    void endSearch();
    void judge();
    void judge(const QVariantMap& wrench);
    QVariantList heardOf(const QString& serialId) const;
};
