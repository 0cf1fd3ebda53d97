#pragma once

#include <QList>
#include <QString>

/// What the system says of processes and ports, read afresh at each call.
namespace processes {

/// The processes that this one has started and that have not ended. pid: one that is ours.
QList<qint64> childrenOf(qint64 pid);

/// False for one that has ended, also when nobody has asked for its exit status yet.
bool isRunning(qint64 pid);

/// The processor time that it has taken, in milliseconds; 0: it is gone.
qint64 processorMsOf(qint64 pid);

} // namespace processes

/// A port that somebody else uses: a process of its own holds it open and locked for as long as the object lives.
class HeldPort
{
public:
    explicit HeldPort(const QString& path);
    ~HeldPort();

    /// False: it could not be taken within some seconds.
    bool isHeld() const { return m_pid > 0; }
    qint64 holder() const { return m_pid; }

    /// Whether nobody holds the port: it can be opened and locked.
    static bool isFree(const QString& path);

private:
    Q_DISABLE_COPY(HeldPort)

    void letGo();

    qint64 m_pid = 0;
};
