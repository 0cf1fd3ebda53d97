#include "simulated_dongle.h"

#include "console.h"
#include "dongle.h"
#include "options.h"

#include <algorithm>

namespace {
constexpr qint64 c_usPerMs = 1000;

Options optionsOf(const QStringList& texts)
{
    const ParsedOptions parsed = parseOptions(QStringList(QStringLiteral("wrench_simulator")) + texts);
    if (parsed.outcome != ParsedOptions::Outcome::Run) {
        qFatal("%s", qPrintable(parsed.text));
    }
    return parsed.options;
}

void ignoreNote(const QString&) {}

Dongle makeDongle(const Options& options)
{
    const RandomSource random(options.seed);
    std::vector<Wrench> wrenches;
    for (const Wrench::Settings& settings : options.wrenches) {
        wrenches.emplace_back(settings, random.stream("tightening " + settings.mac), ignoreNote);
    }
    Dongle dongle(options.dongle, wrenches, random, ignoreNote);
    for (const Fault& fault : options.faults) {
        dongle.faults().add(fault);
    }
    return dongle;
}
} // namespace

class SimulatedDongle::Private : public LineSwitch
{
public:
    Private(const QStringList& options, Line& line)
        : m_line(line), m_dongle(makeDongle(optionsOf(options))), m_console(m_dongle, *this)
    {}

    void receive(const QByteArray& bytes, qint64 nowUs)
    {
        advance(nowUs);
        if (m_isPlugged) {
            m_dongle.receive(bytes, nowUs);
            advance(nowUs);
        }
    }

    void advance(qint64 nowUs)
    {
        m_nowUs = nowUs;
        m_dongle.advance(nowUs);
        if (const std::optional<int> backMs = m_dongle.takeUnplug()) {
            unplug();
            if (*backMs > 0) {
                m_replugUs = nowUs + *backMs * c_usPerMs;
            }
        }
        if (m_replugUs && *m_replugUs <= nowUs) {
            replug();
        }
        while (const std::optional<QByteArray> chunk = m_dongle.output().takeChunk(nowUs)) {
            if (m_isPlugged) {
                m_line.chunkArrived(*chunk);
            }
        }
    }

    std::optional<qint64> nextDueUs() const
    {
        std::optional<qint64> result;
        for (const std::optional<qint64>& dueUs : {m_dongle.nextDueUs(), m_dongle.output().nextDueUs(), m_replugUs}) {
            if (dueUs && (!result || *dueUs < *result)) {
                result = dueUs;
            }
        }
        return result;
    }

    bool isPlugged() const { return m_isPlugged; }

    QString command(const QString& text, qint64 nowUs)
    {
        advance(nowUs);
        const QString answer = m_console.execute(text, nowUs);
        advance(nowUs);
        return answer;
    }

private:
    QString unplug() override
    {
        m_replugUs.reset();
        m_dongle.powerOff(m_nowUs);
        if (std::exchange(m_isPlugged, false)) {
            m_line.pulled();
        }
        return {};
    }
    QString replug() override
    {
        m_replugUs.reset();
        m_isPlugged = true;
        return {};
    }
    void quit() override {}

    Line& m_line;
    Dongle m_dongle;
    Console m_console;
    bool m_isPlugged = true;
    qint64 m_nowUs = 0;
    std::optional<qint64> m_replugUs;
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
