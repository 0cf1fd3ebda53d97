#include "tightening.h"

#include "program.h"
#include "random_source.h"

#include <cmath>

namespace {
constexpr int c_badOneIn = 8;
// Of the distance between target and limit: where good and bad readings fall.
constexpr double c_goodReach = 0.6;
constexpr double c_badFrom = 1.5;
constexpr double c_badTo = 3.0;

// An angle that no program watches.
constexpr double c_freeAngleFromDeg = 20.0;
constexpr double c_freeAngleToDeg = 60.0;

double deviation(bool isBad, RandomSource& random)
{
    if (!isBad) {
        return random.between(-c_goodReach, c_goodReach);
    }
    const double size = random.between(c_badFrom, c_badTo);
    return random.oneIn(2) ? size : -size;
}

TighteningStatus statusOf(double value, double target, double tolerance)
{
    if (value < target - tolerance) {
        return TighteningStatus::Low;
    }
    return value > target + tolerance ? TighteningStatus::High : TighteningStatus::Ok;
}
} // namespace

TighteningStatus TighteningResult::readingStatus() const
{
    return torqueStatus != TighteningStatus::Ok ? torqueStatus : angleStatus;
}

QByteArray TighteningResult::toLine() const
{
    const QByteArrayList fields = {QByteArray::number(torque, 'f', 2),
                                   QByteArray::number(static_cast<int>(direction)),
                                   QByteArray::number(static_cast<int>(torqueStatus)),
                                   QByteArray::number(snugAngleDeg),
                                   QByteArray::number(static_cast<int>(angleStatus)),
                                   QByteArray::number(readingNumber),
                                   QByteArray::number(static_cast<int>(readingStatus()))};
    return "RE:F:" + fields.join(',');
}

TighteningResult tighten(const Program& program, int readingNumber, RandomSource& random)
{
    const bool watchesAngle = program.targetAngleDeg > 0.0;
    const bool isBad = random.oneIn(c_badOneIn);
    const bool isBadAngle = isBad && watchesAngle && random.oneIn(2);
    const double torqueTolerance = program.targetTorque * c_torqueTolerance;

    TighteningResult result;
    result.readingNumber = readingNumber;
    const double torque = program.targetTorque + torqueTolerance * deviation(isBad && !isBadAngle, random);
    result.torque = std::round(torque * 100.0) / 100.0;
    result.torqueStatus = statusOf(result.torque, program.targetTorque, torqueTolerance);
    if (watchesAngle) {
        const double angle = program.targetAngleDeg + c_angleToleranceDeg * deviation(isBadAngle, random);
        result.snugAngleDeg = static_cast<int>(std::lround(std::fmax(angle, 0.0)));
        result.angleStatus = statusOf(result.snugAngleDeg, program.targetAngleDeg, c_angleToleranceDeg);
    } else {
        result.snugAngleDeg = static_cast<int>(std::lround(random.between(c_freeAngleFromDeg, c_freeAngleToDeg)));
    }
    return result;
}
