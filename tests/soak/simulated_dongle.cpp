#include "simulated_dongle.h"

#include "options.h"
#include "simulation.h"

namespace {
Scenario scenarioOf(const QStringList& texts)
{
    const ParsedOptions parsed = parseOptions(QStringList(QStringLiteral("wrench_simulator")) + texts);
    if (parsed.outcome != ParsedOptions::Outcome::Run) {
        qFatal("%s", qPrintable(parsed.text));
    }
    return parsed.options.scenario;
}

void ignoreNote(const QString&) {}
} // namespace

class SimulatedDongle::Private : private SimulatedLine
{
public:
    Private(const QStringList& options, Line& line) : m_line(line), m_simulation(scenarioOf(options), *this, ignoreNote)
    {}

    void receive(const QByteArray& bytes, qint64 nowUs)
    {
        m_simulation.advance(nowUs);
        if (m_isPlugged) {
            m_simulation.receive(bytes, nowUs);
        }
    }

    void advance(qint64 nowUs) { m_simulation.advance(nowUs); }
    std::optional<qint64> nextDueUs() const { return m_simulation.nextDueUs(); }
    QString command(const QString& text, qint64 nowUs) { return m_simulation.command(text, nowUs); }
    bool isPlugged() const { return m_isPlugged; }

private:
    bool isOpen() const override { return m_isPlugged; }
    QString open() override
    {
        m_isPlugged = true;
        m_line.pluggedIn();
        return {};
    }
    void close() override
    {
        m_isPlugged = false;
        m_line.pulled();
    }
    bool isWritable() const override { return true; }
    void write(const QByteArray& chunk, qint64) override { m_line.chunkArrived(chunk); }
    void quit() override {}

    Line& m_line;
    bool m_isPlugged = true;
    Simulation m_simulation;
};

SimulatedDongle::SimulatedDongle(const QStringList& options, Line& line) : d(std::make_unique<Private>(options, line))
{}

SimulatedDongle::~SimulatedDongle() = default;

void SimulatedDongle::receive(const QByteArray& bytes, qint64 nowUs)
{
    d->receive(bytes, nowUs);
}

void SimulatedDongle::advance(qint64 nowUs)
{
    d->advance(nowUs);
}

std::optional<qint64> SimulatedDongle::nextDueUs() const
{
    return d->nextDueUs();
}

bool SimulatedDongle::isPlugged() const
{
    return d->isPlugged();
}

QString SimulatedDongle::command(const QString& text, qint64 nowUs)
{
    return d->command(text, nowUs);
}
