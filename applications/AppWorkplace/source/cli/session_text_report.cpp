#include "session_text_report.h"

#include <QCoreApplication>

#include <utility>

#include "../services/verdict.h"
#include "results_report.h"

namespace {

constexpr int c_nameWidth = 10;
constexpr int c_textWidth = 46;
constexpr int c_timeWidth = 10;
constexpr double c_millisecondsPerSecond = 1000;

QString seconds(qint64 milliseconds)
{
    return QStringLiteral("%1 s").arg(double(milliseconds) / c_millisecondsPerSecond, 0, 'f', 2);
}

QString text(const QVariantMap& map, const char* key)
{
    return map.value(QLatin1String(key)).toString();
}

} // namespace

SessionTextReport::SessionTextReport(Console& console, const QString& serialId)
    : m_console(console)
    , m_serialId(serialId)
    , m_results({{QStringLiteral("#"), true, 4},
                 {QStringLiteral("torque"), true, 8},
                 {QStringLiteral("status"), true},
                 {QStringLiteral("direction"), true},
                 {QStringLiteral("angle"), true},
                 {QStringLiteral("status"), true},
                 {QStringLiteral("reading"), true},
                 {QStringLiteral("status"), true},
                 {QStringLiteral("program"), true},
                 {QString()}})
{}

void SessionTextReport::opened(const QString& port, bool isSimulated)
{
    m_console.detail(QStringLiteral("Session with the wrench %1 on %2%3")
                         .arg(Console::visible(m_serialId), Console::visible(port),
                              isSimulated ? QStringLiteral(" (simulated)") : QString()));
}

void SessionTextReport::stepStarted(Session::Step started)
{
    static const QMap<Session::Step, QString> texts = {
        {Session::Step::Connect, QStringLiteral("searching …")},
        {Session::Step::Programs, QStringLiteral("reading …")},
        {Session::Step::Select, QStringLiteral("going to the program …")},
    };
    if (started == Session::Step::Listen) {
        step(textOf(started).name, QStringLiteral("waiting for results; Ctrl-C ends the session"));
    } else {
        m_console.progress(stepLine(textOf(started).name, texts.value(started, QStringLiteral("…"))));
    }
}

void SessionTextReport::stepDone(Session::Step done, qint64 elapsedMs)
{
    static const QMap<Session::Step, QString> texts = {
        {Session::Step::Open, QStringLiteral("the line is open")},
        {Session::Step::Connect, QStringLiteral("the wrench answers")},
        {Session::Step::Configure, QStringLiteral("locked, results switched on")},
        {Session::Step::Unlock, QStringLiteral("ready to tighten")},
    };
    const QString said = m_stepText.isEmpty() ? texts.value(done) : m_stepText;
    m_stepText.clear();
    m_console.progress({});
    step(textOf(done).name, said.leftJustified(c_textWidth) + seconds(elapsedMs).rightJustified(c_timeWidth));
}

void SessionTextReport::wrenchesHeard(const QVariantList& wrenches)
{
    for (const QVariant& wrench : wrenches) {
        const QVariantMap fields = wrench.toMap();
        const QString serialId = text(fields, "sn");
        const QString address = text(fields, "mac");
        if (!m_heard.contains({serialId, address})) { // a wandering signal strength is no news
            m_heard.append({serialId, address});
            step(QString(), QStringLiteral("heard %1 (%2, %3 dBm)").arg(serialId, address, text(fields, "rssi")));
        }
    }
}

void SessionTextReport::programs(const QVariantList& programs)
{
    m_stepText =
        programs.size() == 1 ? QStringLiteral("1 program") : QStringLiteral("%1 programs").arg(programs.size());
    TextTable table({{QStringLiteral("program"), true},
                     {QStringLiteral("unit")},
                     {QStringLiteral("target torque"), true},
                     {QStringLiteral("angle"), true}});
    for (const QVariant& program : programs) {
        const QVariantMap fields = program.toMap();
        table.addRow({text(fields, "progId"), text(fields.value(QStringLiteral("presetData")).toMap(), "unit"),
                      text(fields, "TRQ"), text(fields, "ANG")});
    }
    const QStringList lines = table.lines();
    for (const QString& line : lines) {
        step(QString(), line);
    }
}

void SessionTextReport::selected(int program, const QVariantMap& preset)
{
    Q_UNUSED(preset)
    m_isSelected = true;
    m_stepText = QStringLiteral("program %1").arg(program);
}

void SessionTextReport::result(const QVariantMap& eventData)
{
    if (m_shown == 0) {
        m_console.detail({});
        m_console.line(m_console.strong(m_results.titleLine()));
    }
    ++m_shown;
    const bool good = isGood(eventData);
    const QString line = m_results.rowLine(
        {QString::number(m_shown), text(eventData, "convertedTorque"), text(eventData, "torqueStatus"),
         text(eventData, "direction"), text(eventData, "snugTorqueAngle"), text(eventData, "angleStatus"),
         text(eventData, "readingNumber"), text(eventData, "readingStatus"), text(eventData, "progId"),
         good ? QStringLiteral("good") : QStringLiteral("NOT GOOD")});
    m_console.line(good ? line : m_console.alarming(line));
}

void SessionTextReport::note(const HistoryRecord& note)
{
    m_console.line(m_console.alarming(stepLine(QStringLiteral("history"), historyNoteText(note))));
}

void SessionTextReport::namesakes(const QVariantList& wrenches, const QString& taken)
{
    QStringList named;
    for (const QVariant& wrench : wrenches) {
        const QVariantMap fields = wrench.toMap();
        named.append(tr("%1 (%2 dBm)").arg(text(fields, "mac"), text(fields, "rssi")));
    }
    const QString who = taken.isEmpty() ? tr("which one has the link is not known") : tr("%1 was taken").arg(taken);
    alarm(tr("warning"), tr("%1 wrenches answer to the serial number %2: %3; %4: switch the others off, or give each a "
                            "number of its own")
                             .arg(wrenches.size())
                             .arg(m_serialId, named.join(QStringLiteral(", ")), who));
}

void SessionTextReport::link(const LinkReport& report)
{
    const QString name = tr("link");
    const double pauseSeconds = report.pauseMs / c_millisecondsPerSecond;
    m_console.progress({});
    switch (report.kind) {
    case LinkReport::Kind::Opened:
        if (std::exchange(m_isLineInTrouble, false)) { // the first time it is a step of its own
            step(name, tr("the line is open again"));
        }
        break;
    case LinkReport::Kind::Lost:
        m_isLineInTrouble = true;
        alarm(name, tr("%1: %2").arg(report.state, report.message));
        break;
    case LinkReport::Kind::Waiting:
        step(name, tr("attempt %1 in %2 s; %3").arg(report.attempt).arg(pauseSeconds, 0, 'f', 1).arg(report.message));
        break;
    case LinkReport::Kind::Restoring:
        m_console.progress(stepLine(name, tr("attempt %1 …").arg(report.attempt)));
        break;
    case LinkReport::Kind::Restored:
        m_isLineInTrouble = false;
        step(name, tr("restored after %1 (attempt %2)").arg(seconds(report.gapMs)).arg(report.attempt));
        break;
    }
}

void SessionTextReport::failed()
{
    m_console.progress({});
}

void SessionTextReport::summary(const SessionSummary& summary)
{
    m_console.progress({});
    const int results = summary.good + summary.notGood;
    QString line = results == 0 ? QStringLiteral("No result")
                                : QStringLiteral("%1 %2: %3 good, %4 not good")
                                      .arg(results)
                                      .arg(results == 1 ? QStringLiteral("result") : QStringLiteral("results"))
                                      .arg(summary.good)
                                      .arg(summary.notGood);
    line += QStringLiteral("; %1").arg(seconds(summary.elapsedMs));
    if (summary.program > 0) {
        line += QStringLiteral("; program %1").arg(summary.program);
        // What the plugin records without a selection is the end of its walk through the list.
        line += m_isSelected ? QString() : QStringLiteral(" (the last one listed; none was selected)");
    }
    m_console.detail(m_console.strong(line));
}

void SessionTextReport::step(const QString& name, const QString& text)
{
    m_console.detail(stepLine(name, text));
}

void SessionTextReport::alarm(const QString& name, const QString& text)
{
    if (m_console.isQuiet()) {
        m_console.message(stepLine(name, text).trimmed());
    } else {
        m_console.line(m_console.alarming(stepLine(name, text)));
    }
}

QString SessionTextReport::stepLine(const QString& name, const QString& text)
{
    return QStringLiteral("  %1 %2").arg(name, -c_nameWidth).arg(Console::visible(text));
}
