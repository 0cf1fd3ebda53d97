#include "processes.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int c_takeLimitMs = 5000;

struct Status
{
    char state = 'X'; // gone
    qint64 parent = 0;
    qint64 processorTicks = 0;
};

Status statusOf(const QString& pid)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    // pid (name) state parent …, and a name may hold anything, also brackets and blanks
    const QByteArray text = file.readAll();
    const QList<QByteArray> fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    constexpr int c_userTicks = 11;
    constexpr int c_systemTicks = 12;
    if (fields.size() <= c_systemTicks) {
        return {};
    }
    return {fields.at(0).at(0), fields.at(1).toLongLong(),
            fields.at(c_userTicks).toLongLong() + fields.at(c_systemTicks).toLongLong()};
}

bool isOver(const Status& status)
{
    return status.state == 'X' || status.state == 'Z';
}

int openAndLock(const char* path)
{
    const int file = ::open(path, O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (file >= 0 && ::flock(file, LOCK_EX | LOCK_NB) == 0) {
        return file;
    }
    ::close(file);
    return -1;
}

} // namespace

QList<qint64> processes::childrenOf(qint64 pid)
{
    QList<qint64> children;
    const QStringList entries = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& entry : entries) {
        bool isProcess = false;
        const qint64 candidate = entry.toLongLong(&isProcess);
        if (isProcess) {
            const Status status = statusOf(entry);
            if (status.parent == pid && !isOver(status)) {
                children.append(candidate);
            }
        }
    }
    return children;
}

bool processes::isRunning(qint64 pid)
{
    return !isOver(statusOf(QString::number(pid)));
}

qint64 processes::processorMsOf(qint64 pid)
{
    constexpr qint64 c_msPerSecond = 1000;
    return statusOf(QString::number(pid)).processorTicks * c_msPerSecond / ::sysconf(_SC_CLK_TCK);
}

HeldPort::HeldPort(const QString& path)
{
    int ready[2] = {-1, -1};
    if (::pipe2(ready, O_CLOEXEC) != 0) {
        return;
    }
    const QByteArray name = QFile::encodeName(path);
    const pid_t pid = ::fork();
    if (pid == 0) {
        // Nothing but system calls between here and the end.
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        const char word = openAndLock(name.constData()) >= 0 ? 'y' : 'n';
        while (::write(ready[1], &word, 1) == 1 && word == 'y') {
            ::pause();
        }
        ::_exit(0);
    }
    ::close(ready[1]);
    pollfd answer{ready[0], POLLIN, 0};
    char word = 'n';
    const bool isTaken =
        pid > 0 && ::poll(&answer, 1, c_takeLimitMs) == 1 && ::read(ready[0], &word, 1) == 1 && word == 'y';
    ::close(ready[0]);
    m_pid = pid;
    if (!isTaken) {
        letGo();
    }
}

HeldPort::~HeldPort()
{
    letGo();
}

void HeldPort::letGo()
{
    if (m_pid > 0) {
        ::kill(pid_t(m_pid), SIGKILL);
        ::waitpid(pid_t(m_pid), nullptr, 0);
        m_pid = 0;
    }
}

bool HeldPort::isFree(const QString& path)
{
    const int file = openAndLock(QFile::encodeName(path).constData());
    ::close(file);
    return file >= 0;
}
