#include "log_line.h"

#include <QThread>

#include <lib_utilities/utilities.h>

QDebug criticalLogLine(const QObject* object, const char* sourcePath, int line)
{
    constexpr char c_separator[] = ";\t";
    // The date is a QString and stands in double quotes, as the stream prints one.
    return qCritical() << "\n"
                       << getDate() << c_separator << "Thread =" << QThread::currentThread() << c_separator
                       << "This =" << object << c_separator << sourcePath << c_separator << line << c_separator;
}
