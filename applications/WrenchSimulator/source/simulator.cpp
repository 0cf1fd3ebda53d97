#include "simulator.h"

#include "make_terminal.h"
#include "say.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>

#include <unistd.h>

namespace {
constexpr qint64 c_nsPerUs = 1000;
constexpr qint64 c_usPerMs = 1000;

Dongle makeDongle(const Options& options)
{
    const RandomSource random(options.seed);
    std::vector<Wrench> wrenches;
    for (const Wrench::Settings& settings : options.wrenches) {
        wrenches.emplace_back(settings, random.stream("tightening " + settings.mac), sayNote);
    }
    Dongle dongle(options.dongle, wrenches, random, sayNote);
    for (const Fault& fault : options.faults) {
        dongle.faults().add(fault);
    }
    return dongle;
}
} // namespace

Simulator::Simulator(const Options& options, QObject* parent)
    : QObject(parent)
    , m_dongle(makeDongle(options))
    , m_console(m_dongle, *this)
    , m_port(makeTerminal(options), LineSpeed(options.baud))
{
    m_clock.start();
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_replugTimer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &Simulator::pump);
    connect(&m_replugTimer, &QTimer::timeout, this, &Simulator::onReplugDue);
    connect(&m_port, &LinePort::received, this, &Simulator::onReceived);
    connect(&m_port, &LinePort::writable, this, &Simulator::pump);
    connect(&m_port, &LinePort::unread, this, [this] { m_dongle.output().clear(); });
    connect(&m_port, &LinePort::hungUp, this, &Simulator::onHungUp);
    if (options.hasConsole) {
        m_consoleNotifier = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
        connect(m_consoleNotifier.get(), &QSocketNotifier::activated, this, &Simulator::onConsoleReadable);
    }
}

Simulator::~Simulator() = default;

bool Simulator::start(QString* error)
{
    if (!openLine(error)) {
        return false;
    }
    pump();
    return true;
}

void Simulator::tightenOnce()
{
    sayNote(m_console.execute(QStringLiteral("tighten"), nowUs()));
    pump();
}

QString Simulator::unplug()
{
    if (!m_port.isOpen()) {
        return QStringLiteral("the line is unplugged already: replug it first");
    }
    m_replugTimer.stop();
    m_port.close();
    m_dongle.powerOff(nowUs());
    return {};
}

QString Simulator::replug()
{
    if (m_port.isOpen()) {
        return QStringLiteral("the line is plugged in: unplug it first");
    }
    m_replugTimer.stop();
    QString error;
    openLine(&error);
    return error;
}

void Simulator::quit()
{
    QCoreApplication::quit();
}

qint64 Simulator::nowUs() const
{
    return m_clock.nsecsElapsed() / c_nsPerUs;
}

bool Simulator::openLine(QString* error)
{
    if (!m_port.open(error)) {
        return false;
    }
    sayLine(QStringLiteral("ready ") + m_port.path());
    return true;
}

void Simulator::onReceived(const QByteArray& bytes)
{
    m_dongle.receive(bytes, nowUs());
    pump();
}

void Simulator::onHungUp()
{
    m_dongle.powerOff(nowUs());
    sayNote(
        QStringLiteral("the line %1 has gone away; the console command \"replug\" opens it again").arg(m_port.path()));
}

void Simulator::onReplugDue()
{
    const QString error = replug();
    if (!error.isEmpty()) {
        sayNote(error);
    }
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
        const QString answer = m_console.execute(QString::fromUtf8(line), nowUs());
        pump(); // whoever reads the answer finds the line as the command left it
        sayLine(answer);
    }
}

void Simulator::pump()
{
    const qint64 now = nowUs();
    m_dongle.advance(now);
    if (const std::optional<int> backMs = m_dongle.takeUnplug(); backMs && m_port.isOpen()) {
        unplug();
        if (*backMs > 0) {
            m_replugTimer.start(*backMs);
        }
    }
    while (m_port.isOpen() && m_port.isWritable()) {
        const std::optional<QByteArray> chunk = m_dongle.output().takeChunk(now);
        if (!chunk) {
            break;
        }
        m_port.write(*chunk);
    }

    std::optional<qint64> dueUs = m_dongle.nextDueUs();
    const std::optional<qint64> chunkDueUs = m_dongle.output().nextDueUs();
    // While the line takes nothing its own signal calls, and a timer would only spin.
    if (chunkDueUs && m_port.isOpen() && m_port.isWritable()) {
        dueUs = dueUs ? std::min(*dueUs, *chunkDueUs) : *chunkDueUs;
    }
    if (dueUs) {
        const qint64 waitMs = (std::max<qint64>(*dueUs - now, 0) + c_usPerMs - 1) / c_usPerMs;
        m_timer.start(static_cast<int>(std::min<qint64>(waitMs, std::numeric_limits<int>::max())));
    } else {
        m_timer.stop();
    }
}
