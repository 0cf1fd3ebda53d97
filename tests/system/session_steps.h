#pragma once

#include <QTest>

/// The steps of a session in which it waits for an answer, each with the frame that can be held to hold the step. So
/// that there is a "select" with steps of its own, select program 1 of the two of a SimulatorRun.
struct SessionStep
{
    const char* name; ///< as a session names it
    int frame;        ///< from 1, as the dongle counts them; none is left out on the way
};

constexpr SessionStep c_sessionSteps[] = {
    {"connect", 1},   // ATS
    {"connect", 3},   // ATD, behind ATH
    {"configure", 5}, // DT:1, behind ATH
    {"configure", 7}, // RE:1
    {"programs", 8},  // IDLE
    {"programs", 9},  // TR:C
    {"select", 14},   // IDLE, behind the walk through two programs and back to the first
    {"select", 15},   // TR:C
};

/// One row for each step, with the columns "step" and "frame".
inline void addStepRows()
{
    QTest::addColumn<QString>("step");
    QTest::addColumn<int>("frame");
    for (const SessionStep& step : c_sessionSteps) {
        QTest::addRow("%s, frame %d", step.name, step.frame) << QString(QLatin1String(step.name)) << step.frame;
    }
}

/// "silence@5+", so that the frame and all behind it go unheard.
inline QString faultFrom(const char* fault, int frame)
{
    return QStringLiteral("%1@%2+").arg(QLatin1String(fault)).arg(frame);
}

/// "unplug@5": at this frame only.
inline QString faultAt(const char* fault, int frame)
{
    return QStringLiteral("%1@%2").arg(QLatin1String(fault)).arg(frame);
}
