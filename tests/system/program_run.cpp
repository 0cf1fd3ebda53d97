#include "program_run.h"

#include <csignal>

namespace {
constexpr int c_killedBySignal = 128;
}

ProgramRun::ProgramRun()
{
    QObject::connect(&m_process, &QProcess::readyReadStandardOutput, &m_process, [this] {
        m_output += m_process.readAllStandardOutput();
        if (m_fatalTimes > 0 && m_output.count(m_fatalText) >= m_fatalTimes) {
            sendSignal(SIGKILL);
        }
    });
    QObject::connect(&m_process, &QProcess::readyReadStandardError, &m_process,
                     [this] { m_messages += m_process.readAllStandardError(); });
}

ProgramRun::~ProgramRun()
{
    m_process.disconnect();
    if (isRunning()) {
        m_process.kill();
        m_process.waitForFinished(c_patienceMs);
    }
}

bool ProgramRun::start(const QString& program, const QStringList& arguments)
{
    m_process.start(program, arguments);
    const bool isStarted = m_process.waitForStarted(c_patienceMs);
    m_pid = m_process.processId();
    return isStarted;
}

void ProgramRun::type(const QString& line)
{
    m_process.write(line.toUtf8() + '\n');
}

void ProgramRun::sendSignal(int number) const
{
    if (isRunning()) {
        ::kill(pid_t(m_pid), number);
    }
}

void ProgramRun::killWhenPrinted(const QByteArray& text, int times)
{
    m_fatalText = text;
    m_fatalTimes = times;
}

bool ProgramRun::waitForEnd(int limitMs)
{
    return waitUntil([this] { return !isRunning(); }, limitMs);
}

int ProgramRun::exitStatus() const
{
    if (isRunning()) {
        return -1;
    }
    return m_process.exitStatus() == QProcess::CrashExit ? c_killedBySignal + m_process.exitCode()
                                                         : m_process.exitCode();
}

QStringList ProgramRun::outputLines() const
{
    const QByteArray whole = m_output.left(m_output.lastIndexOf('\n') + 1);
    return QString::fromUtf8(whole).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

bool ProgramRun::waitForOutput(const QString& text)
{
    return waitUntil([&] { return output().contains(text) || !isRunning(); }) && output().contains(text);
}

QByteArray ProgramRun::report() const
{
    // What is behind 1,024 bytes of a message is not shown by the test library.
    constexpr int c_mostPrinted = 450;
    constexpr int c_mostSaid = 300;
    return "exit status " + QByteArray::number(exitStatus()) + "\nprinted at the end:\n" +
           m_output.right(c_mostPrinted) + "\nsaid at the end:\n" + m_messages.right(c_mostSaid);
}
