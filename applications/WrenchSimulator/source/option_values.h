#pragma once

#include <QString>

class QCommandLineParser;

/// Thrown by whoever reads an option: what is wrong with it, and what would be right.
struct OptionRefusal
{
    QString text;
};

/// The name of an option.
inline QString option(const char* name)
{
    return QLatin1String(name);
}

int wholeNumber(const QCommandLineParser& parser, const char* name, int minimum, int maximum);

/// advice: what to give instead.
double number(const QCommandLineParser& parser, const char* name, double minimum, double maximum,
              const QString& advice);

/// From so many milliseconds to c_maxMs; the result is microseconds.
qint64 milliseconds(const QCommandLineParser& parser, const char* name, int minimum);
