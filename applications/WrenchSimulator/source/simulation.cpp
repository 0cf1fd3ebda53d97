#include "simulation.h"

#include <algorithm>
#include <utility>

namespace {
constexpr qint64 c_usPerMs = 1000;

Dongle makeDongle(const Scenario& scenario, const NoteSink& note)
{
    const RandomSource random(scenario.seed);
    std::vector<Wrench> wrenches;
    wrenches.reserve(scenario.wrenches.size());
    for (const Wrench::Settings& settings : scenario.wrenches) {
        wrenches.emplace_back(settings, random.stream("tightening " + settings.mac), note);
    }
    Dongle dongle(scenario.dongle, wrenches, random, note);
    for (int i = 0; i < dongle.wrenchCount(); ++i) {
        const auto& away = scenario.outOfRange;
        if (std::find(away.begin(), away.end(), dongle.wrench(i).settings().mac) != away.end()) {
            dongle.setInRange(i, false, 0);
        }
    }
    for (const Fault& fault : scenario.faults) {
        dongle.faults().add(fault);
    }
    return dongle;
}
} // namespace

Simulation::Simulation(const Scenario& scenario, SimulatedLine& line, NoteSink note)
    : m_note(std::move(note))
    , m_line(line)
    , m_dongle(makeDongle(scenario, m_note))
    , m_console(m_dongle, *this)
    , m_events(scenario.events)
    , m_timeLineFrom(scenario.timeLineFrom)
{}

void Simulation::receive(const QByteArray& bytes, qint64 nowUs)
{
    advance(nowUs);
    m_dongle.receive(bytes, nowUs);
    step(nowUs);
    advance(nowUs);
}

void Simulation::advance(qint64 nowUs)
{
    for (auto dueUs = nextDueUs(); dueUs && *dueUs <= nowUs; dueUs = nextDueUs()) {
        // What became due while something else was waited for happens now, not in the past.
        m_nowUs = std::max(m_nowUs, *dueUs);
        step(m_nowUs);
    }
    m_nowUs = std::max(m_nowUs, nowUs);
}

std::optional<qint64> Simulation::nextDueUs() const
{
    std::optional<qint64> result = m_dongle.nextDueUs();
    const auto consider = [&result](std::optional<qint64> dueUs) {
        if (dueUs && (!result || *dueUs < *result)) {
            result = dueUs;
        }
    };
    consider(nextEventUs());
    consider(m_replugUs);
    // While the line takes nothing, nothing is due on it.
    if (m_line.isOpen() && m_line.isWritable()) {
        consider(m_dongle.output().nextDueUs());
    }
    return result;
}

QString Simulation::command(const QString& commandLine, qint64 nowUs)
{
    advance(nowUs);
    QString answer = m_console.execute(commandLine, nowUs);
    advance(nowUs);
    return answer;
}

void Simulation::lineLost(qint64 nowUs)
{
    m_dongle.powerOff(nowUs);
}

QString Simulation::unplug(int backMs, qint64 nowUs)
{
    if (!m_line.isOpen()) {
        return QStringLiteral("the line is unplugged already: replug it first");
    }
    m_line.close();
    m_dongle.powerOff(nowUs);
    m_replugUs = backMs > 0 ? std::optional<qint64>(nowUs + backMs * c_usPerMs) : std::nullopt;
    return {};
}

QString Simulation::replug(qint64)
{
    if (m_line.isOpen()) {
        return QStringLiteral("the line is plugged in: unplug it first");
    }
    m_replugUs.reset();
    return m_line.open();
}

std::optional<qint64> Simulation::nextEventUs() const
{
    const std::optional<qint64> startUs =
        m_timeLineFrom == Scenario::TimeLineFrom::Start ? std::optional<qint64>(0) : m_dongle.firstFrameUs();
    return startUs && m_nextEvent < m_events.size() ? std::optional<qint64>(*startUs + m_events[m_nextEvent].atUs)
                                                    : std::nullopt;
}

void Simulation::step(qint64 atUs)
{
    m_dongle.advance(atUs);
    if (const std::optional<int> backMs = m_dongle.takeUnplug(); backMs && m_line.isOpen()) {
        unplug(*backMs, atUs);
    }
    if (m_replugUs && *m_replugUs <= atUs) {
        const QString refusal = replug(atUs);
        if (!refusal.isEmpty()) {
            m_note(refusal);
        }
    }
    for (auto dueUs = nextEventUs(); dueUs && *dueUs <= atUs; dueUs = nextEventUs()) {
        carryOut(m_events[m_nextEvent++], atUs);
    }
    writeDue(atUs);
}

void Simulation::carryOut(const Event& event, qint64 atUs)
{
    const QString answer = m_console.execute(event.command, atUs);
    if (answer.startsWith(QLatin1String("error"))) {
        m_note(QStringLiteral("time line, %1 ms, %2: %3")
                   .arg(QString::number(event.atUs / c_usPerMs), event.text, answer));
    }
}

void Simulation::writeDue(qint64 atUs)
{
    while (m_line.isOpen() && m_line.isWritable()) {
        const std::optional<QByteArray> chunk = m_dongle.output().takeChunk(atUs);
        if (!chunk) {
            break;
        }
        m_line.write(*chunk, atUs);
    }
}
