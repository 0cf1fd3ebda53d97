#pragma once

#include "doctor_stage.h"

/// The dongle opens the radio link to the wrench. It is hung up again, as a session does, too.
class LinkStage : public DoctorStage
{
    Q_OBJECT

public:
    explicit LinkStage(DoctorBench& bench);

    void start() override;

private:
    void hangUp();
    void failUnopened(LineTalk::End end);
};
