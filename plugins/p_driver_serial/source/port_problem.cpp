#include "port_problem.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSerialPortInfo>
#include <QStringList>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "port_rights.h"

namespace {

const char c_portFolder[] = "/dev/";
const char c_namesFolder[] = "/dev/serial/by-id";

QString existingPorts()
{
    QStringList names;
    const QFileInfoList lasting = QDir(QLatin1String(c_namesFolder)).entryInfoList(QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo& each : lasting) {
        names.append(each.filePath());
    }
    if (names.isEmpty()) {
        const QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
        for (const QSerialPortInfo& each : ports) {
            names.append(each.systemLocation());
        }
    }
    return names.join(QStringLiteral(", "));
}

QString programName(qint64 processId)
{
    QFile name(QStringLiteral("/proc/%1/comm").arg(processId));
    return name.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(name.readAll()).trimmed() : QString();
}

/// 0: none is to be found, which says little of the processes of other users.
qint64 processWithOpenFile(const QString& location)
{
    const QStringList processes = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& process : processes) {
        bool isProcess = false;
        const qint64 processId = process.toLongLong(&isProcess);
        if (!isProcess) {
            continue;
        }
        const QDir files(QStringLiteral("/proc/%1/fd").arg(process));
        const QStringList numbers = files.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
        for (const QString& number : numbers) {
            if (QFile::symLinkTarget(files.filePath(number)) == location) {
                return processId;
            }
        }
    }
    return 0;
}

/// The lock that QSerialPort, like other programs, keeps for an open port.
QString lockFilePath(const QString& location)
{
    QString name = location;
    if (name.startsWith(QLatin1String(c_portFolder))) {
        name.remove(0, int(sizeof(c_portFolder)) - 1);
    }
    return QStringLiteral("/var/lock/LCK..") + name.replace(QLatin1Char('/'), QLatin1Char('_'));
}

/// 0: no lock, or none that can be read.
qint64 processInLockFile(const QString& location)
{
    qint64 processId = 0;
    QString host;
    QString program;
    QLockFile lock(lockFilePath(location));
    return lock.getLockInfo(&processId, &host, &program) ? processId : 0;
}

bool isAlive(qint64 processId)
{
    return QFileInfo::exists(QStringLiteral("/proc/%1").arg(processId));
}

QString missing(const QString& name)
{
    const QString existing = existingPorts();
    return existing.isEmpty()
               ? QCoreApplication::translate(
                     "SerialDriver",
                     "The port %1 does not exist and this machine has no serial port: plug the adapter in.")
                     .arg(name)
               : QCoreApplication::translate(
                     "SerialDriver",
                     "The port %1 does not exist: plug the adapter in, or set \"port\" to one that does: %2.")
                     .arg(name, existing);
}

QString noSerialPort(const QString& name)
{
    return QCoreApplication::translate("SerialDriver",
                                       "%1 is no serial port: set \"port\" to one, for example below %2/.")
        .arg(name, QLatin1String(c_namesFolder));
}

enum class Opening { Terminal, NoTerminal, Busy, Refused };

/// What comes of opening a character device that this user may open.
Opening tryToOpen(const QByteArray& path)
{
    const int file = ::open(path.constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) {
        return errno == EBUSY ? Opening::Busy : Opening::Refused;
    }
    const bool isTerminal = ::isatty(file) != 0;
    ::close(file);
    return isTerminal ? Opening::Terminal : Opening::NoTerminal;
}

QString heldBy(const QString& name, qint64 processId)
{
    if (processId == QCoreApplication::applicationPid()) {
        return QCoreApplication::translate(
                   "SerialDriver",
                   "The port %1 is in use by another device of this program (process %2): give each device "
                   "a port of its own.")
            .arg(name)
            .arg(processId);
    }
    return QCoreApplication::translate(
               "SerialDriver", "Another program holds the port %1: %2 %3; close that program or choose another port.")
        .arg(name, QString::number(processId), programName(processId));
}

/// Other users' processes show their open files to root only.
QString heldUnseen(const QString& name, const QString& location)
{
    return QCoreApplication::translate(
               "SerialDriver",
               "Another program holds the port %1, one of another user, which only root can see: run \"sudo "
               "lsof %2\" to learn which, and close it or choose another port.")
        .arg(name, location);
}

QString staleLock(const QString& name, const QString& lockFile, qint64 processId)
{
    return QCoreApplication::translate(
               "SerialDriver",
               "The port %1 is locked by the file %2 of another user's process %3, which has ended: run "
               "\"sudo rm %2\".")
        .arg(name, lockFile)
        .arg(processId);
}

} // namespace

QString port_problem::cannotOpen(const QString& name, const QString& systemText)
{
    const QString location = QFileInfo(name).canonicalFilePath();
    if (location.isEmpty()) {
        return missing(name);
    }
    const QByteArray path = QFile::encodeName(location);
    struct stat status = {};
    if (::stat(path.constData(), &status) == 0 && !S_ISCHR(status.st_mode)) {
        return noSerialPort(name);
    }
    if (::access(path.constData(), R_OK | W_OK) != 0) {
        return port_rights::notPermitted(name, location);
    }
    const Opening opening = tryToOpen(path);
    if (opening == Opening::NoTerminal) {
        return noSerialPort(name); // /dev/null, for one
    }
    const qint64 locker = processInLockFile(location);
    if (locker != 0) {
        return isAlive(locker) ? heldBy(name, locker) : staleLock(name, lockFilePath(location), locker);
    }
    const qint64 holder = processWithOpenFile(location);
    if (holder != 0) {
        return heldBy(name, holder);
    }
    if (opening == Opening::Busy) {
        return heldUnseen(name, location);
    }
    return QCoreApplication::translate("SerialDriver",
                                       "The port %1 cannot be opened (%2): check that it is a working serial port.")
        .arg(name, systemText);
}

QString port_problem::inUse(const QString& name)
{
    const QString location = QFileInfo(name).canonicalFilePath();
    const qint64 holder = processWithOpenFile(location);
    return holder != 0 ? heldBy(name, holder) : heldUnseen(name, location);
}

QString port_problem::unsupported(const QString& name, const QString& setting)
{
    return QCoreApplication::translate(
               "SerialDriver",
               "The port %1 does not support the configured \"%2\": set it to what the port and the device "
               "at its other end both have.")
        .arg(name, setting);
}

QString port_problem::wentAway(const QString& name)
{
    return QCoreApplication::translate("SerialDriver", "The port %1 went away while in use: plug its adapter in again.")
        .arg(name);
}
