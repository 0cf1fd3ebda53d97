#pragma once

#include "console.h"
#include "scenario.h"

#include <optional>
#include <vector>

/// The serial line as a simulation needs it: a terminal, or what a test makes of it.
class SimulatedLine
{
public:
    SimulatedLine() = default;
    virtual ~SimulatedLine() = default;

    virtual bool isOpen() const = 0;
    virtual QString open() = 0; ///< why it cannot; empty when done
    virtual void close() = 0;

    /// While this is false nothing is written; who owns the line calls advance() when it is true again.
    virtual bool isWritable() const = 0;
    virtual void write(const QByteArray& chunk, qint64 atUs) = 0;

    /// The scenario or the console wants the simulator to end.
    virtual void quit() = 0;

private:
    Q_DISABLE_COPY(SimulatedLine)
};

/// A scenario as it goes on: the dongle, its time line, the console, and the line that is plugged in or not. Everything
/// happens at its own simulated time, in the order of these times, however seldom advance() is called: the same
/// scenario and the same input at the same times make the same bytes at the same times, while the line takes them.
///
/// Times are microseconds from the beginning. The line is not owned. One thread.
class Simulation : private LineSwitch
{
public:
    Simulation(const Scenario& scenario, SimulatedLine& line, NoteSink note);

    /// What has come over the line.
    void receive(const QByteArray& bytes, qint64 nowUs);

    /// Lets the time pass, up to and including nowUs, and writes what is due.
    void advance(qint64 nowUs);

    /// When advance() has something to do again, if ever without new input.
    std::optional<qint64> nextDueUs() const;

    /// A command of the operator: the answer to it. What it makes due at once has been written by then.
    QString command(const QString& commandLine, qint64 nowUs);

    /// The line is closed, and not by the simulation.
    void lineLost(qint64 nowUs);

    Dongle& dongle() { return m_dongle; }

private:
    QString unplug(int backMs, qint64 nowUs) override;
    QString replug(qint64 nowUs) override;
    void quit() override { m_line.quit(); }

    std::optional<qint64> nextEventUs() const;
    void step(qint64 atUs);
    void carryOut(const Event& event, qint64 atUs);
    void writeDue(qint64 atUs);

    NoteSink m_note;
    SimulatedLine& m_line;
    Dongle m_dongle;
    Console m_console;
    std::vector<Event> m_events;
    size_t m_nextEvent = 0;
    Scenario::TimeLineFrom m_timeLineFrom;
    qint64 m_nowUs = 0;
    std::optional<qint64> m_replugUs;
};
