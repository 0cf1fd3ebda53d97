#include "session_text_report.h"

#include <QCoreApplication>
#include <QLocale>

#include <utility>

#include "../history/history_note.h"
#include "../services/step_name.h"
#include "../services/verdict.h"

namespace {

constexpr int c_nameWidth = 10;
constexpr int c_textWidth = 46;
constexpr int c_timeWidth = 10;
constexpr double c_millisecondsPerSecond = 1000;

QString seconds(qint64 milliseconds)
{
    return QStringLiteral("%1 s").arg(QLocale().toString(double(milliseconds) / c_millisecondsPerSecond, 'f', 2));
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
                 {tr("torque"), true, 8},
                 {tr("status"), true},
                 {tr("direction"), true},
                 {tr("angle"), true},
                 {tr("status"), true},
                 {tr("reading"), true},
                 {tr("status"), true},
                 {tr("program"), true},
                 {QString()}})
{}

void SessionTextReport::opened(const QString& port, bool isSimulated)
{
    m_console.detail(
        (isSimulated ? tr("Session with the wrench %1 on %2 (simulated)") : tr("Session with the wrench %1 on %2"))
            .arg(Console::visible(m_serialId), Console::visible(port)));
}

void SessionTextReport::stepStarted(Session::Step started)
{
    static const QMap<Session::Step, QString> texts = {
        {Session::Step::Connect, tr("searching …")},
        {Session::Step::Programs, tr("reading …")},
        {Session::Step::Select, tr("going to the program …")},
    };
    if (started == Session::Step::Listen) {
        step(shownStep(textOf(started).name), tr("waiting for results; Ctrl-C ends the session"));
    } else {
        m_console.progress(stepLine(shownStep(textOf(started).name), texts.value(started, QStringLiteral("…"))));
    }
}

void SessionTextReport::stepDone(Session::Step done, qint64 elapsedMs)
{
    static const QMap<Session::Step, QString> texts = {
        {Session::Step::Open, tr("the line is open")},
        {Session::Step::Connect, tr("the wrench answers")},
        {Session::Step::Configure, tr("locked, results switched on")},
        {Session::Step::Unlock, tr("ready to tighten")},
    };
    const QString said = m_stepText.isEmpty() ? texts.value(done) : m_stepText;
    m_stepText.clear();
    m_console.progress({});
    step(shownStep(textOf(done).name),
         said.leftJustified(c_textWidth) + seconds(elapsedMs).rightJustified(c_timeWidth));
}

void SessionTextReport::wrenchesHeard(const QVariantList& wrenches)
{
    for (const QVariant& wrench : wrenches) {
        const QVariantMap fields = wrench.toMap();
        const QString serialId = text(fields, "sn");
        const QString address = text(fields, "mac");
        if (!m_heard.contains({serialId, address})) { // a wandering signal strength is no news
            m_heard.append({serialId, address});
            step(QString(), tr("heard %1 (%2, %3 dBm)").arg(serialId, address, text(fields, "rssi")));
        }
    }
}

void SessionTextReport::programs(const QVariantList& programs)
{
    m_stepText = programs.size() == 1 ? tr("1 program") : tr("%1 programs").arg(programs.size());
    TextTable table({{tr("program"), true}, {tr("unit")}, {tr("target torque"), true}, {tr("angle"), true}});
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
    m_stepText = tr("program %1").arg(program);
}

void SessionTextReport::result(const QVariantMap& eventData)
{
    if (m_shown == 0) {
        m_console.detail({});
        m_console.line(m_console.strong(m_results.titleLine()));
    }
    ++m_shown;
    const bool good = isGood(eventData);
    const QString line = m_results.rowLine({QString::number(m_shown), text(eventData, "convertedTorque"),
                                            text(eventData, "torqueStatus"), text(eventData, "direction"),
                                            text(eventData, "snugTorqueAngle"), text(eventData, "angleStatus"),
                                            text(eventData, "readingNumber"), text(eventData, "readingStatus"),
                                            text(eventData, "progId"), good ? tr("good") : tr("NOT GOOD")});
    m_console.line(good ? line : m_console.alarming(line));
}

void SessionTextReport::note(const HistoryRecord& note)
{
    m_console.line(m_console.alarming(stepLine(shownStep(QStringLiteral("history")), historyNoteText(note))));
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

void SessionTextReport::unverified()
{
    alarm(tr("warning"),
          tr("the dongle holds a link from before and does not say to which wrench: when it may be another "
             "one than %1, unplug the dongle, plug it in again and start anew")
              .arg(m_serialId));
}

void SessionTextReport::link(const LinkReport& report)
{
    const QString name = shownStep(QStringLiteral("link"));
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
        alarm(name, tr("%1: %2").arg(shownLineState(report.state), report.message));
        break;
    case LinkReport::Kind::Waiting:
        step(name, tr("attempt %1 in %2 s; %3")
                       .arg(report.attempt)
                       .arg(QLocale().toString(pauseSeconds, 'f', 1), report.message));
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
    QString line = tr("No result");
    if (results == 1) {
        line = tr("1 result: %1 good, %2 not good").arg(summary.good).arg(summary.notGood);
    } else if (results > 1) {
        line = tr("%1 results: %2 good, %3 not good").arg(results).arg(summary.good).arg(summary.notGood);
    }
    line = tr("%1; %2").arg(line, seconds(summary.elapsedMs));
    if (summary.program > 0) {
        // There the wrench stands when its list has been read.
        line = (m_isSelected ? tr("%1; program %2") : tr("%1; program %2 (the first one listed; none was selected)"))
                   .arg(line)
                   .arg(summary.program);
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
