#include "simulator.h"

#include "make_terminal.h"
#include "say.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <limits>

#include <unistd.h>

namespace {
constexpr double c_nsPerUs = 1000.0;
constexpr double c_usPerMs = 1000.0;
} // namespace

Simulator::Simulator(const Options& options, QObject* parent)
    : QObject(parent)
    , m_speed(options.speed)
    , m_port(makeTerminal(options), LineSpeed(options.baud))
    , m_simulation(options.scenario, *this, sayNote)
{
    m_clock.start();
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &Simulator::pump);
    connect(&m_port, &LinePort::received, this, &Simulator::onReceived);
    connect(&m_port, &LinePort::writable, this, &Simulator::pump);
    connect(&m_port, &LinePort::unread, this, [this] { m_simulation.dongle().output().clear(); });
    connect(&m_port, &LinePort::hungUp, this, &Simulator::onHungUp);
    if (options.hasConsole) {
        m_consoleNotifier = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
        connect(m_consoleNotifier.get(), &QSocketNotifier::activated, this, &Simulator::onConsoleReadable);
    }
}

Simulator::~Simulator() = default;

bool Simulator::start(QString* error)
{
    *error = open();
    if (!error->isEmpty()) {
        return false;
    }
    pump();
    return true;
}

void Simulator::tightenOnce()
{
    sayNote(m_simulation.command(QStringLiteral("tighten"), nowUs()));
    pump();
}

QString Simulator::open()
{
    QString error;
    if (m_port.open(&error)) {
        sayLine(QStringLiteral("ready ") + m_port.path());
    }
    return error;
}

void Simulator::write(const QByteArray& chunk, qint64)
{
    m_port.write(chunk);
}

void Simulator::quit()
{
    QCoreApplication::quit();
}

qint64 Simulator::nowUs() const
{
    return static_cast<qint64>(static_cast<double>(m_clock.nsecsElapsed()) / c_nsPerUs * m_speed);
}

void Simulator::onReceived(const QByteArray& bytes)
{
    m_simulation.receive(bytes, nowUs());
    pump();
}

void Simulator::onHungUp()
{
    m_simulation.lineLost(nowUs());
    sayNote(
        QStringLiteral("the line %1 has gone away; the console command \"replug\" opens it again").arg(m_port.path()));
}

void Simulator::onConsoleReadable()
{
    std::array<char, 4096> buffer{};
    const ssize_t size = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (size < 0 && (errno == EINTR || errno == EAGAIN)) {
        return;
    }
    if (size <= 0) {
        m_consoleNotifier->setEnabled(false);
        quit();
        return;
    }
    const QByteArrayList lines = m_consoleCutter.feed(QByteArray(buffer.data(), static_cast<int>(size)));
    if (m_consoleCutter.takeDroppedBytes() > 0) {
        sayLine(QStringLiteral("error the line is longer than %1 bytes").arg(LineCutter::c_maxLineBytes));
    }
    for (const QByteArray& line : lines) {
        // Whoever reads the answer finds the line as the command left it.
        sayLine(m_simulation.command(QString::fromUtf8(line), nowUs()));
    }
    pump();
}

void Simulator::pump()
{
    const qint64 now = nowUs();
    m_simulation.advance(now);
    if (const std::optional<qint64> dueUs = m_simulation.nextDueUs()) {
        const double waitMs = std::ceil(static_cast<double>(std::max<qint64>(*dueUs - now, 0)) / c_usPerMs / m_speed);
        m_timer.start(static_cast<int>(std::min<double>(waitMs, std::numeric_limits<int>::max())));
    } else {
        m_timer.stop();
    }
}
