#include "process_figures.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

namespace {

int entriesOf(const char* folder)
{
    return QDir(QLatin1String(folder)).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

} // namespace

ProcessFigures ProcessFigures::now()
{
    ProcessFigures figures;
    QFile memory(QStringLiteral("/proc/self/statm"));
    if (memory.open(QIODevice::ReadOnly)) {
        figures.residentKb = memory.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) / 1024;
    }
    memory.close();
    figures.descriptors = entriesOf("/proc/self/fd");
    figures.threads = entriesOf("/proc/self/task");
    return figures;
}

QString ProcessFigures::text() const
{
    return QStringLiteral("%1 kB resident, %2 descriptors, %3 threads, %4 timers, %5 commands")
        .arg(residentKb)
        .arg(descriptors)
        .arg(threads)
        .arg(timers)
        .arg(commands);
}
