#include "workplace_run.h"

#include <QJsonDocument>

#include "processes.h"
#include "simulator_run.h"

namespace {
const QString c_eventKey = QStringLiteral("event");
}

bool WorkplaceRun::start(const QStringList& arguments)
{
    return ProgramRun::start(
        QStringLiteral(APP_WORKPLACE),
        arguments + QStringList{QStringLiteral("--data"), m_store, QStringLiteral("--trace"), traceFile()});
}

bool WorkplaceRun::startOn(const QString& port, const QStringList& arguments)
{
    return start(arguments + QStringList{QStringLiteral("--port"), port});
}

bool WorkplaceRun::startSession(const SimulatorRun& simulator, const QStringList& options)
{
    QStringList arguments{QStringLiteral("session"), QStringLiteral("--json")};
    if (!options.contains(QStringLiteral("--serial-id"))) {
        arguments << QStringLiteral("--serial-id") << QStringLiteral("2210");
    }
    return startOn(simulator.port(), arguments + options);
}

QList<QJsonObject> WorkplaceRun::events(const QString& event) const
{
    QList<QJsonObject> found;
    const QStringList lines = outputLines();
    for (const QString& line : lines) {
        const QJsonObject object = QJsonDocument::fromJson(line.toUtf8()).object();
        if (event.isEmpty() || object.value(c_eventKey).toString() == event) {
            found.append(object);
        }
    }
    return found;
}

QJsonObject WorkplaceRun::event(const QString& event) const
{
    return events(event).value(0);
}

bool WorkplaceRun::waitForEvents(const QString& event, int count)
{
    const auto hasThem = [&] { return events(event).size() >= count; };
    return waitUntil([&] { return hasThem() || !isRunning(); }) && hasThem();
}

LineTrace WorkplaceRun::trace() const
{
    return LineTrace::fromFile(traceFile());
}

bool WorkplaceRun::waitForFrames(int count)
{
    const auto hasThem = [&] { return trace().sent().size() >= count; };
    return waitUntil([&] { return hasThem() || !isRunning(); }) && hasThem();
}

bool waitForUnlock(WorkplaceRun& session, SimulatorRun& simulator)
{
    return waitUntil([&] {
        return session.trace().sent().contains(QStringLiteral("DT:0")) &&
               simulator.say(QStringLiteral("wrenches")).contains(QStringLiteral(", unlocked"));
    });
}

QString disorderAfter(WorkplaceRun& session, SimulatorRun& simulator)
{
    if (session.isRunning()) {
        return QStringLiteral("the session still runs");
    }
    const LineTrace trace = session.trace();
    const QStringList sent = trace.sent();
    if (sent.isEmpty() || sent.last() != QLatin1String("ATH")) {
        return QStringLiteral("the last frame was not ATH but \"%1\"").arg(sent.value(sent.size() - 1));
    }
    if (trace.lastEntry() != QLatin1String("! closed")) {
        return QStringLiteral("the line was not closed at the end; the trace ends with \"%1\"").arg(trace.lastEntry());
    }
    if (!HeldPort::isFree(simulator.port())) {
        return QStringLiteral("the port is still held");
    }
    // The frame is the simulator's to read, in its own time.
    QString wrenches;
    const bool isHungUp = waitUntil([&] {
        wrenches = simulator.say(QStringLiteral("wrenches"));
        return wrenches.contains(QLatin1String("not linked"));
    });
    return isHungUp ? QString() : QStringLiteral("the dongle is still linked: %1").arg(wrenches);
}
