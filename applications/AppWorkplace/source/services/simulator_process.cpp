#include "simulator_process.h"

#include <QCoreApplication>
#include <QDir>
#include <QTimer>

namespace {

constexpr int c_readyLimitMs = 10000;
constexpr int c_endLimitMs = 1000;
constexpr int c_wrongUsage = 2; // its exit status
const QByteArray c_readyPrefix = QByteArrayLiteral("ready ");

/// Twice a second: slow enough to be read, fast enough not to wait for.
const QString c_resultsPerSecond = QStringLiteral("2");

} // namespace

SimulatorProcess::SimulatorProcess(QObject* parent) : QObject(parent)
{
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &SimulatorProcess::readReady);
    connect(&m_process, &QProcess::readyReadStandardError, this, [this] {
        const QList<QByteArray> lines = m_process.readAllStandardError().trimmed().split('\n');
        m_lastWords = QString::fromUtf8(lines.last());
    });
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            Q_EMIT sigFailed(tr("%1 does not start: %2").arg(m_process.program(), m_process.errorString()));
        }
    });
    connect(&m_process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            [this](int exitStatus, QProcess::ExitStatus how) {
                const QString end = how == QProcess::CrashExit
                                        ? tr("its process crashed or was killed")
                                        : tr("its process ended with the exit status %1").arg(exitStatus);
                Q_EMIT sigFailed(m_lastWords.isEmpty() ? end : tr("%1 and the words: %2").arg(end, m_lastWords));
            });
}

SimulatorProcess::~SimulatorProcess()
{
    m_process.disconnect(this);
    if (m_process.state() != QProcess::NotRunning) {
        m_process.terminate();
        if (!m_process.waitForFinished(c_endLimitMs)) {
            m_process.kill();
            m_process.waitForFinished(c_endLimitMs);
        }
    }
}

QString SimulatorProcess::refusal() const
{
    const bool hasRefused = m_process.state() == QProcess::NotRunning &&
                            m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == c_wrongUsage;
    return hasRefused ? m_lastWords : QString();
}

QString SimulatorProcess::program()
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("wrench_simulator"));
}

void SimulatorProcess::start(const Settings& settings)
{
    QStringList arguments{QStringLiteral("--exit-with-parent")};
    if (settings.hasScenario()) {
        // A line that is unplugged and comes back is another terminal; under this name it is the same port.
        QString owner = QString::number(QCoreApplication::applicationPid());
        if (settings.deviceNumber > 1) {
            owner += QStringLiteral(".%1").arg(settings.deviceNumber);
        }
        m_link = QDir::temp().filePath(QStringLiteral("app_workplace.%1.wrench").arg(owner));
        arguments << QStringLiteral("--scenario") << settings.scenarioFile() << QStringLiteral("--link") << m_link;
    } else {
        arguments << QStringLiteral("--rate") << c_resultsPerSecond;
        if (!settings.serialId.isEmpty()) {
            arguments << QStringLiteral("--wrench") << settings.serialId;
        }
    }
    QTimer::singleShot(c_readyLimitMs, this, [this] {
        if (!m_isReady) {
            Q_EMIT sigFailed(
                tr("%1 has not said within %2 s that it is ready").arg(m_process.program()).arg(c_readyLimitMs / 1000));
        }
    });
    m_process.start(program(), arguments);
}

void SimulatorProcess::readReady()
{
    while (m_process.canReadLine()) {
        const QByteArray line = m_process.readLine().trimmed();
        if (!m_isReady && line.startsWith(c_readyPrefix)) {
            m_isReady = true;
            Q_EMIT sigReady(m_link.isEmpty() ? QString::fromLocal8Bit(line.mid(c_readyPrefix.size())) : m_link);
        }
    }
}
