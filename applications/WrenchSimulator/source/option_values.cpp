#include "option_values.h"

#include "bounds.h"

#include <QCommandLineParser>

#include <cmath>

namespace {
constexpr qint64 c_usPerMs = 1000;
}

int wholeNumber(const QCommandLineParser& parser, const char* name, int minimum, int maximum)
{
    bool isNumber = false;
    const QString text = parser.value(option(name));
    const int number = text.toInt(&isNumber);
    if (!isNumber || number < minimum || number > maximum) {
        throw OptionRefusal{QStringLiteral("--%1 \"%2\" is no whole number from %3 to %4")
                                .arg(option(name), text, QString::number(minimum), QString::number(maximum))};
    }
    return number;
}

double number(const QCommandLineParser& parser, const char* name, double minimum, double maximum, const QString& advice)
{
    bool isNumber = false;
    const QString text = parser.value(option(name));
    const double result = text.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(result) || result < minimum || result > maximum) {
        throw OptionRefusal{QStringLiteral("--%1 \"%2\" is no number from %3 to %4: %5")
                                .arg(option(name), text, QString::number(minimum), QString::number(maximum), advice)};
    }
    return result;
}

qint64 milliseconds(const QCommandLineParser& parser, const char* name, int minimum)
{
    return wholeNumber(parser, name, minimum, c_maxMs) * c_usPerMs;
}
