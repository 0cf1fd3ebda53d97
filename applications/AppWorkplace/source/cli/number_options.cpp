#include "number_options.h"

#include <QCoreApplication>
#include <cmath>

namespace {

constexpr int c_most = 1000000;
constexpr double c_millisecondsPerSecond = 1000;

Problem refusal(const QString& name, const QString& allowed, const QString& given)
{
    return {Problem::Kind::Usage,
            QStringLiteral("command line"),
            QCoreApplication::translate("NumberOptions", "--%1 takes %2, not \"%3\"").arg(name, allowed, given),
            {},
            {}};
}

} // namespace

int wholeNumberOption(const QCommandLineParser& options, const QString& name, int least, Problem* problem)
{
    if (!options.isSet(name)) {
        return 0;
    }
    bool isNumber = false;
    const int number = options.value(name).toInt(&isNumber);
    if (!isNumber || number < least || number > c_most) {
        *problem = refusal(
            name, QCoreApplication::translate("NumberOptions", "a whole number from %1 to %2").arg(least).arg(c_most),
            options.value(name));
        return 0;
    }
    return number;
}

int secondsOption(const QCommandLineParser& options, const QString& name, int leastMs, Problem* problem)
{
    if (!options.isSet(name)) {
        return 0;
    }
    bool isNumber = false;
    const double seconds = options.value(name).toDouble(&isNumber);
    const double leastSeconds = leastMs / c_millisecondsPerSecond;
    if (!isNumber || !std::isfinite(seconds) || seconds < leastSeconds || seconds > c_most) {
        *problem = refusal(
            name, QCoreApplication::translate("NumberOptions", "seconds from %1 to %2").arg(leastSeconds).arg(c_most),
            options.value(name));
        return 0;
    }
    return int(std::lround(seconds * c_millisecondsPerSecond));
}
