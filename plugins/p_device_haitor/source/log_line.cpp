#include "log_line.h"

#include <QThread>

#include <lib_utilities/utilities.h>

QDebug criticalLogLine(const QObject* object, const char* sourcePath, int line)
{
    constexpr char c_separator[] = ";\t";
    return qCritical().noquote() << "\n"
                                 << getDate() << c_separator << "Thread =" << QThread::currentThread() << c_separator
                                 << "This =" << object << c_separator << sourcePath << c_separator << line
                                 << c_separator;
}
