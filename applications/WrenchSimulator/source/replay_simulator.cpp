#include "replay_simulator.h"

#include "make_terminal.h"
#include "say.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace {
constexpr qint64 c_nsPerUs = 1000;
constexpr qint64 c_usPerMs = 1000;
constexpr int c_exitDifferent = 1;
} // namespace

ReplaySimulator::ReplaySimulator(const Options& options, TraceReader& trace, QObject* parent)
    : QObject(parent)
    , m_replayer(trace, options.replay.pace, sayNote)
    , m_port(makeTerminal(options), LineSpeed(options.baud))
{
    m_clock.start();
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &ReplaySimulator::pump);
    connect(&m_port, &LinePort::received, this, &ReplaySimulator::onReceived);
    connect(&m_port, &LinePort::writable, this, &ReplaySimulator::pump);
    connect(&m_port, &LinePort::heard, this, &ReplaySimulator::pump);
    connect(&m_port, &LinePort::unread, this, &ReplaySimulator::pump);
    connect(&m_port, &LinePort::hungUp, this, [] { QCoreApplication::quit(); });
}

ReplaySimulator::~ReplaySimulator() = default;

bool ReplaySimulator::start(QString* error)
{
    if (!m_port.open(error)) {
        return false;
    }
    sayLine(QStringLiteral("ready ") + m_port.path());
    pump();
    return true;
}

int ReplaySimulator::finish()
{
    sayNote(m_replayer.summary());
    return m_replayer.isOver() && !m_replayer.hasDifferences() ? 0 : c_exitDifferent;
}

qint64 ReplaySimulator::nowUs() const
{
    return m_clock.nsecsElapsed() / c_nsPerUs;
}

void ReplaySimulator::onReceived(const QByteArray& bytes)
{
    m_replayer.receive(bytes, nowUs());
    pump();
}

/// True: somebody is there to hear.
bool ReplaySimulator::checkReader()
{
    const bool isHeard = m_port.isOpen() && m_port.hasReader();
    m_replayer.setHeard(isHeard, nowUs());
    return isHeard;
}

void ReplaySimulator::pump()
{
    const qint64 now = nowUs();
    // Each time, for a chunk that is written while nobody is there would be lost.
    while (checkReader() && m_port.isWritable()) {
        const std::optional<QByteArray> chunk = m_replayer.takeChunk(now);
        if (!chunk) {
            break;
        }
        m_port.write(*chunk);
    }
    // What the other side had written before it closed the line may come after that.
    if (m_replayer.isOver() && !checkReader()) {
        QCoreApplication::quit();
    }
    const std::optional<qint64> dueUs = m_replayer.nextDueUs();
    // While the line takes nothing its own signal calls, and a timer would only spin.
    if (dueUs && m_port.isWritable()) {
        const qint64 waitMs = (std::max<qint64>(*dueUs - now, 0) + c_usPerMs - 1) / c_usPerMs;
        m_timer.start(static_cast<int>(std::min<qint64>(waitMs, std::numeric_limits<int>::max())));
    } else {
        m_timer.stop();
    }
}
