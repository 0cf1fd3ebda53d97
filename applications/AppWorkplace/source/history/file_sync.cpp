#include "file_sync.h"

#include <QFile>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace {

bool isDone(int status, QString* cause)
{
    if (status != 0) {
        *cause = QString::fromLocal8Bit(std::strerror(errno));
    }
    return status == 0;
}

} // namespace

bool syncFile(int descriptor, QString* cause)
{
    return isDone(::fsync(descriptor), cause);
}

bool syncFolder(const QString& folder, QString* cause)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) {
        return isDone(descriptor, cause);
    }
    const bool isSynced = isDone(::fsync(descriptor), cause);
    ::close(descriptor);
    return isSynced;
}

bool linkFile(const QString& file, const QString& name, QString* cause)
{
    return isDone(::link(QFile::encodeName(file).constData(), QFile::encodeName(name).constData()), cause);
}
