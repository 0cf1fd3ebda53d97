#pragma once

/// What an examination has come to.
struct DoctorSummary
{
    int passed = 0;
    int failed = 0;
    int skipped = 0;
    int exitStatus = 0; ///< 0: nothing that was looked at is wrong
    bool isInterrupted = false;
};
