#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTest>

/// How long a test waits for what has to happen; far more than it takes, for a machine that is busy.
constexpr int c_patienceMs = 30000;

/// Waits until the condition holds. False: it did not within the time.
template <class Condition>
bool waitUntil(Condition condition, int limitMs = c_patienceMs)
{
    return QTest::qWaitFor(condition, limitMs);
}

/// One of the built programs at work. What it prints is kept; it is killed when the object goes.
class ProgramRun
{
public:
    ProgramRun();
    virtual ~ProgramRun();

    /// True: it runs. Once for each object.
    bool start(const QString& program, const QStringList& arguments);
    void type(const QString& line);
    void sendSignal(int number) const;
    /// Kills it (SIGKILL) the moment it has printed the text so often.
    void killWhenPrinted(const QByteArray& text, int times);

    qint64 pid() const { return m_pid; }
    bool isRunning() const { return m_process.state() != QProcess::NotRunning; }
    /// False: it still runs. limitMs: from now.
    bool waitForEnd(int limitMs = c_patienceMs);
    /// As a shell says it: 128 + n after the signal n; -1 while it runs.
    int exitStatus() const;

    /// Standard output and standard error until now.
    QString output() const { return QString::fromUtf8(m_output); }
    QStringList outputLines() const; ///< the whole ones
    QString messages() const { return QString::fromUtf8(m_messages); }
    bool waitForOutput(const QString& text);

    /// How it ended and the last that it wrote, for the message of a test that fails.
    QByteArray report() const;

private:
    Q_DISABLE_COPY(ProgramRun)

    QProcess m_process;
    qint64 m_pid = 0;
    QByteArray m_output;
    QByteArray m_messages;
    QByteArray m_fatalText;
    int m_fatalTimes = 0; // 0: it is not killed
};
