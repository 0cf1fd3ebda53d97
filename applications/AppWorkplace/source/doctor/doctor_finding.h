#pragma once

#include <QString>

#include "../services/problem.h"

/// What one stage has come to.
struct DoctorFinding
{
    enum class Outcome { Passed, Failed, Skipped };

    Outcome outcome = Outcome::Skipped;
    QString text;    ///< what was found, or why it was skipped
    Problem problem; ///< of a stage that failed
};
