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

void SessionJsonReport::link(bool isConnected, const QString& state, const QString& message)
{
    write(QStringLiteral("link"), {{QStringLiteral("connected"), isConnected},
                                   {QStringLiteral("state"), state},
                                   {QStringLiteral("message"), message}});
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
