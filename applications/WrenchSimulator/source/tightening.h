#pragma once

#include <QByteArray>
#include <QByteArrayList>

class RandomSource;
struct Program;

/// How a value, or a whole reading, stands to its limits. The numbers are the codes on the line.
enum class TighteningStatus { Ok = 0, Low = 1, High = 2 };

/// Which way the wrench turned. The numbers are the codes on the line.
enum class TighteningDirection { Clockwise = 0, CounterClockwise = 1 };

/// What is within limits: the torque within c_torqueTolerance of the program's target torque, the angle within
/// c_angleToleranceDeg of its target angle. Both limits are still good; an angle target of 0 is not watched.
constexpr double c_torqueTolerance = 0.05;
constexpr double c_angleToleranceDeg = 5.0;

/// One reading of the wrench.
struct TighteningResult
{
    double torque = 0.0; ///< in the program's unit, two decimals
    TighteningDirection direction = TighteningDirection::Clockwise;
    TighteningStatus torqueStatus = TighteningStatus::Ok;
    int snugAngleDeg = 0; ///< turned from the snug torque on
    TighteningStatus angleStatus = TighteningStatus::Ok;
    int readingNumber = 0; ///< counts the wrench's readings from 1

    /// The torque's status unless that is good, then the angle's: a reading is good when both are.
    TighteningStatus readingStatus() const;

    /// RE:F:<torque>,<direction>,<torque status>,<snug angle>,<angle status>,<reading number>,<reading status>
    QByteArray toLine() const;
};

/// One tightening by the program: near its target, and one in eight clearly out of limits, as chance has it. The
/// statuses are taken from the numbers as they will be written, so that the two always agree.
TighteningResult tighten(const Program& program, int readingNumber, RandomSource& random);
