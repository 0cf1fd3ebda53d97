#include "session_json_report.h"

#include <QJsonArray>

#include "../history/history_format.h"
#include "../services/verdict.h"

namespace {

const QString c_serialId = QStringLiteral("serialId");
const QString c_elapsedMs = QStringLiteral("elapsedMs");

QString nameOf(SessionSummary::End end)
{
    switch (end) {
    case SessionSummary::End::Count:
        return QStringLiteral("count");
    case SessionSummary::End::Duration:
        return QStringLiteral("duration");
    case SessionSummary::End::Interrupt:
        return QStringLiteral("interrupt");
    case SessionSummary::End::Failure:
        return QStringLiteral("failure");
    }
    return {};
}

QString nameOf(LinkReport::Cause cause)
{
    switch (cause) {
    case LinkReport::Cause::None:
        return {};
    case LinkReport::Cause::Port:
        return QStringLiteral("port");
    case LinkReport::Cause::Link:
        return QStringLiteral("link");
    case LinkReport::Cause::Range:
        return QStringLiteral("range");
    case LinkReport::Cause::Silence:
        return QStringLiteral("silence");
    }
    return {};
}

QString stateOf(const LinkReport& report)
{
    switch (report.kind) {
    case LinkReport::Kind::Opened:
    case LinkReport::Kind::Lost:
        return report.state;
    case LinkReport::Kind::Waiting:
        return QStringLiteral("waiting");
    case LinkReport::Kind::Restoring:
        return QStringLiteral("restoring");
    case LinkReport::Kind::Restored:
        return QStringLiteral("restored");
    }
    return {};
}

} // namespace

SessionJsonReport::SessionJsonReport(Console& console, const QString& serialId)
    : m_console(console), m_serialId(serialId)
{}

void SessionJsonReport::opened(const QString&, bool) {}

void SessionJsonReport::stepStarted(Session::Step) {}

void SessionJsonReport::stepDone(Session::Step step, qint64 elapsedMs)
{
    static const QMap<Session::Step, QString> events = {
        {Session::Step::Connect, QStringLiteral("connected")},
        {Session::Step::Configure, QStringLiteral("configured")},
        {Session::Step::Programs, QStringLiteral("programs")},
        {Session::Step::Select, QStringLiteral("selected")},
    };
    const auto event = events.constFind(step);
    if (event != events.constEnd()) {
        m_pending.insert(c_elapsedMs, elapsedMs);
        write(*event, m_pending);
    }
    m_pending = {};
}

void SessionJsonReport::wrenchesHeard(const QVariantList& wrenches)
{
    write(QStringLiteral("scan"), {{QStringLiteral("wrenches"), QJsonArray::fromVariantList(wrenches)}});
}

void SessionJsonReport::programs(const QVariantList& programs)
{
    m_pending.insert(QStringLiteral("programs"), QJsonArray::fromVariantList(programs));
}

void SessionJsonReport::selected(int program, const QVariantMap& preset)
{
    m_pending.insert(QStringLiteral("progId"), program);
    m_pending.insert(QStringLiteral("presetData"), QJsonObject::fromVariantMap(preset));
}

void SessionJsonReport::result(const QVariantMap& eventData)
{
    write(QStringLiteral("result"), {{QStringLiteral("eventData"), QJsonObject::fromVariantMap(eventData)},
                                     {QStringLiteral("good"), isGood(eventData)}});
}

void SessionJsonReport::note(const HistoryRecord& note)
{
    write(history_format::nameOf(note.kind), {{QStringLiteral("entry"), history_format::toJson(note)}});
}

void SessionJsonReport::namesakes(const QVariantList& wrenches, const QString& taken)
{
    write(QStringLiteral("namesakes"),
          {{QStringLiteral("wrenches"), QJsonArray::fromVariantList(wrenches)}, {QStringLiteral("taken"), taken}});
}

void SessionJsonReport::unverified()
{
    write(QStringLiteral("unverified"), {});
}

void SessionJsonReport::link(const LinkReport& report)
{
    using Kind = LinkReport::Kind;
    const bool isConnected = report.kind == Kind::Opened || report.kind == Kind::Restored;
    QJsonObject fields{{QStringLiteral("connected"), isConnected},
                       {QStringLiteral("state"), stateOf(report)},
                       {QStringLiteral("message"), report.message}};
    if (report.kind != Kind::Opened) {
        fields.insert(QStringLiteral("cause"), nameOf(report.cause));
    }
    if (report.attempt > 0) {
        fields.insert(QStringLiteral("attempt"), report.attempt);
    }
    if (report.kind == Kind::Waiting) {
        fields.insert(QStringLiteral("pauseMs"), report.pauseMs);
    }
    if (report.kind == Kind::Restored) {
        fields.insert(QStringLiteral("gapMs"), report.gapMs);
    }
    write(QStringLiteral("link"), fields);
}

void SessionJsonReport::failed()
{
    m_pending = {};
}

void SessionJsonReport::summary(const SessionSummary& summary)
{
    QJsonObject fields{{QStringLiteral("results"), summary.good + summary.notGood},
                       {QStringLiteral("good"), summary.good},
                       {QStringLiteral("notGood"), summary.notGood},
                       {QStringLiteral("endedBy"), nameOf(summary.end)},
                       {c_elapsedMs, summary.elapsedMs}};
    if (summary.program > 0) {
        fields.insert(QStringLiteral("progId"), summary.program);
    }
    write(QStringLiteral("summary"), fields);
}

void SessionJsonReport::write(const QString& event, QJsonObject fields)
{
    fields.insert(QStringLiteral("event"), event);
    fields.insert(c_serialId, m_serialId);
    m_console.object(fields);
}
