#include "session_checks.h"

#include "dongle_port.h"
#include "session_watch.h"
#include "simulated_workplace.h"

#include <QRegularExpression>

#include <algorithm>

namespace {
constexpr qint64 c_usPerMs = 1000;
constexpr double c_usPerSecond = 1e6;
constexpr int c_afterwardsMs = 30000;
constexpr int c_fieldsOfAResult = 7;
constexpr int c_fieldsNeeded = 6;
const QString c_resultMark = QStringLiteral("RE:F:");
constexpr int c_questionsInVain = 3;
constexpr int c_serialWord = 3; // of a RESP
const QByteArray c_dial = QByteArrayLiteral("ATD ");
const QByteArray c_keepAlive = QByteArrayLiteral("DI:C\r\n");
const QByteArray c_hangUp = QByteArrayLiteral("ATH\r\n");

using Kind = LineRecord::Kind;

QString told(const Problem& problem)
{
    return problem.lines().join(QStringLiteral("\n  "));
}

/// From which of the lines on what is said is of the session's wrench: it has been dialled, and has answered.
int linkedFrom(const QByteArrayList& lines, const QString& serialId)
{
    QByteArrayList addresses;
    bool isDialled = false;
    for (int i = 0; i < lines.size(); ++i) {
        const QByteArray& line = lines.at(i);
        const QByteArrayList words = line.simplified().split(' ');
        if (line.startsWith("RESP") && words.value(c_serialWord) == serialId.toUtf8()) {
            addresses.append(words.value(1).replace(':', QByteArray()));
        } else if (line.startsWith(c_dial)) {
            isDialled = addresses.contains(line.mid(c_dial.size()).trimmed());
        } else if (isDialled && line == "DATA") {
            return i + 1;
        }
    }
    return lines.size();
}

/// The seven fields of a result line as texts; fewer: it is none. What is behind them does not count.
QStringList fieldsOf(const QByteArray& line)
{
    // UTF-8 up to a zero byte, as everywhere in the system; what is broken shows as a replacement character.
    QString text = QString::fromUtf8(line.constData()).trimmed();
    if (!text.startsWith(c_resultMark)) {
        return {};
    }
    // An answer to the driver's keep-alive is taken out, also behind a line that was cut off; its line end stays.
    static const QRegularExpression answer(QStringLiteral("OK:[01]$"));
    QStringList fields = text.remove(answer).mid(c_resultMark.size()).split(QLatin1Char(','));
    if (fields.size() < c_fieldsNeeded) {
        return {};
    }
    fields.append(QString()); // the seventh may be missing
    return fields.mid(0, c_fieldsOfAResult);
}

/// What the session has to tell: all from there until the line is closed.
QList<QStringList> resultsOfTheWrench(const LineRecord& record, const SessionWatch& watch, const QString& serialId)
{
    if (watch.unverified) { // whichever wrench it is
        return resultsOnTheLine(record, watch.unverified->entries, record.size());
    }
    const QByteArrayList lines = record.lines(0, record.size());
    QList<QStringList> results;
    for (int i = linkedFrom(lines, serialId); i < lines.size(); ++i) {
        const QStringList fields = fieldsOf(lines.at(i));
        if (!fields.isEmpty()) {
            results.append(fields);
        }
    }
    return results;
}

QString shown(const QStringList& fields)
{
    return fields.join(QLatin1Char(','));
}

/// The step's failure says why; here is what that must mean.
bool isTrue(const QString& cause, const SimulatedWorkplace& workplace, const SessionWatch& watch,
            const SessionOrder& order)
{
    const LineRecord& record = workplace.record;
    const int from = watch.stepStart.entries;
    const int to = watch.ended->entries;
    static const QRegularExpression limit(QStringLiteral("^the time limit of ([0-9.]+) s ended it"));
    static const QRegularExpression refusal(QStringLiteral("the line said \"(.*)\"$"));
    static const QRegularExpression count(QStringLiteral("^the wrench has the programs 1 to ([0-9]+), and"));
    if (const QRegularExpressionMatch match = refusal.match(cause); match.hasMatch()) {
        // It may have begun before the step.
        if (!record.lines(0, to).contains(match.captured(1).toUtf8())) {
            return false;
        }
    }
    if (const QRegularExpressionMatch match = limit.match(cause); match.hasMatch()) {
        // Of a command; a step may have several.
        return double(watch.ended->atUs - watch.stepStart.atUs) / c_usPerSecond >= match.captured(1).toDouble();
    }
    if (refusal.match(cause).hasMatch()) {
        return true;
    }
    if (cause == QStringLiteral("it refused")) {
        const QByteArrayList lines = record.lines(0, to);
        return std::any_of(lines.cbegin(), lines.cend(), [](const QByteArray& line) { return line.contains("ERR"); });
    }
    if (cause.startsWith(QStringLiteral("The simulated port"))) {
        return record.has(Kind::Pulled, from, to) || !workplace.port().isPlugged() ||
               (from > 0 && record.entries.at(from - 1).kind == Kind::Pulled);
    }
    if (const QRegularExpressionMatch match = count.match(cause); match.hasMatch()) {
        return order.program && *order.program > match.captured(1).toInt();
    }
    const QByteArrayList lines = record.lines(0, to);
    const bool wasHeard = std::any_of(lines.cbegin(), lines.cend(), [&order](const QByteArray& line) {
        return line.startsWith("RESP ") && line.simplified().split(' ').value(3) == order.serialId.toUtf8();
    });
    if (cause == QStringLiteral("no wrench was heard")) {
        return std::none_of(lines.cbegin(), lines.cend(),
                            [](const QByteArray& line) { return line.startsWith("RESP "); });
    }
    if (cause.startsWith(QStringLiteral("the wrench %1 was not heard, only ").arg(order.serialId))) {
        return !wasHeard;
    }
    if (cause.startsWith(QStringLiteral("the wrench %1 was heard, but").arg(order.serialId))) {
        return wasHeard;
    }
    return false;
}
/// Whether the frames sent last are keep-alive frames, as many as it takes.
bool wasAskedInVain(const LineRecord& record, int to)
{
    int asked = 0;
    for (int i = to; i > 0 && asked < c_questionsInVain; --i) {
        const LineRecord::Entry& entry = record.entries.at(i - 1);
        if (entry.kind == Kind::Sent && entry.bytes != c_keepAlive) {
            return false;
        }
        asked += entry.kind == Kind::Sent ? 1 : 0;
    }
    return asked == c_questionsInVain;
}

/// What is wrong with the end of a session that had come to listen and then lost its link.
QString wrongLoss(const SimulatedWorkplace& workplace, const SessionWatch& watch, const SessionOrder& order)
{
    if (!watch.loss) {
        return QStringLiteral("no link was lost");
    }
    const qint64 gapUs = watch.ended->atUs - watch.lossSince.atUs;
    const bool isInTime = order.reconnects ? gapUs >= order.reconnectLimitMs * c_usPerMs : gapUs == 0;
    if (!isInTime) {
        return QStringLiteral("it gave up after %1 ms").arg(gapUs / c_usPerMs);
    }
    const LineRecord& record = workplace.record;
    const QByteArrayList lines = record.lines(0, watch.ended->entries);
    switch (watch.loss->cause) {
    case LinkReport::Cause::Port:
        return record.has(Kind::Pulled, 0, watch.ended->entries) ? QString() : QStringLiteral("no port was pulled");
    case LinkReport::Cause::Link:
        return lines.contains("ERR:3") ? QString() : QStringLiteral("no link was refused");
    case LinkReport::Cause::Range:
        return lines.contains("ERR:1") ? QString() : QStringLiteral("no wrench was out of reach");
    case LinkReport::Cause::Silence:
        return wasAskedInVain(record, watch.lossSince.entries) ? QString()
                                                               : QStringLiteral("the wrench was not asked in vain");
    case LinkReport::Cause::None:
        break;
    }
    return QStringLiteral("no cause was told");
}
} // namespace

QList<QStringList> resultsOnTheLine(const LineRecord& record, int from, int to)
{
    QList<QStringList> results;
    const QByteArrayList lines = record.lines(from, to);
    for (const QByteArray& line : lines) {
        const QStringList fields = fieldsOf(line);
        if (!fields.isEmpty()) {
            results.append(fields);
        }
    }
    return results;
}

QStringList fieldsOf(const QVariantMap& eventData)
{
    QStringList fields;
    for (const char* key : {"convertedTorque", "direction", "torqueStatus", "snugTorqueAngle", "angleStatus",
                            "readingNumber", "readingStatus"}) {
        fields.append(eventData.value(QLatin1String(key)).toString());
    }
    return fields;
}

QString wrongEnd(const SimulatedWorkplace& workplace, const SessionWatch& watch, const SessionOrder& order)
{
    const bool isFailure = watch.summary.end == SessionSummary::End::Failure;
    if (watch.finished != 1 || watch.problems != (isFailure ? 1 : 0)) {
        return QStringLiteral("it ended %1 times, with %2 problems").arg(watch.finished).arg(watch.problems);
    }
    if (!isFailure) {
        const int taken = watch.results.size();
        if (watch.summary.good + watch.summary.notGood != taken) {
            return QStringLiteral("the summary has %1 results, and %2 were told")
                .arg(watch.summary.good + watch.summary.notGood)
                .arg(taken);
        }
        const bool isCount = watch.summary.end == SessionSummary::End::Count;
        return !isCount || (order.results > 0 && taken >= order.results) // others may come until the dongle has hung up
                   ? QString()
                   : QStringLiteral("%1 results were told, and it did not end as it should").arg(taken);
    }
    const SessionStepText step = textOf(watch.step);
    const Problem& problem = *watch.problem;
    if (watch.step == SessionStep::Listen) {
        const QString wrong = wrongLoss(workplace, watch, order);
        return wrong.isEmpty() && problem.step == step.name && !problem.cause.isEmpty()
                   ? QString()
                   : QStringLiteral("%1:\n  %2").arg(wrong, told(problem));
    }
    if (problem.step != step.name || problem.what != step.failure) {
        return QStringLiteral("it ended in step %1 and named another:\n  %2").arg(step.name, told(problem));
    }
    // What is wrong with the port says itself what to do.
    if (problem.cause.isEmpty() || (problem.mend.isEmpty() && problem.kind != Problem::Kind::SetUp)) {
        return QStringLiteral("no cause, or nothing to do:\n  %1").arg(told(problem));
    }
    return isTrue(problem.cause, workplace, watch, order)
               ? QString()
               : QStringLiteral("the cause is not what happened:\n  %1").arg(told(problem));
}

QString wrongResults(const SimulatedWorkplace& workplace, const SessionWatch& watch, const SessionOrder& order)
{
    const QList<QStringList> expected = resultsOfTheWrench(workplace.record, watch, order.serialId);
    const int common = qMin(expected.size(), watch.results.size());
    for (int i = 0; i < common; ++i) {
        const TighteningResult& result = watch.results.at(i);
        if (fieldsOf(result.eventData) != expected.at(i) || fieldsOf(result.rawLine) != expected.at(i)) {
            return QStringLiteral("result %1 is \"%2\", from the line \"%3\"; the one that arrived is \"%4\"")
                .arg(QString::number(i + 1), shown(fieldsOf(result.eventData)), QString::fromUtf8(result.rawLine),
                     shown(expected.at(i)));
        }
    }
    if (expected.size() == watch.results.size()) {
        return {};
    }
    return QStringLiteral("%1 result lines arrived, and %2 results were told; the first of the difference is %3")
        .arg(QString::number(expected.size()), QString::number(watch.results.size()),
             shown(expected.size() > common ? expected.at(common) : fieldsOf(watch.results.at(common).eventData)));
}

QString disorder(SimulatedWorkplace& workplace, const SessionWatch& watch)
{
    const LineRecord& record = workplace.record;
    const bool wasCalled = record.has(Kind::Sent, 0, record.size());
    // A line that was away at the end takes no frame; it was closed without one when it never came back.
    if (wasCalled && record.last(Kind::Opened) > record.last(Kind::Pulled) && record.lastSent() != c_hangUp) {
        return QStringLiteral("the last frame is not the hang-up but ") + QString::fromLatin1(record.lastSent());
    }
    QString left = leftovers(workplace);
    if (!left.isEmpty()) {
        return left;
    }
    return watch.toldAfterTheEnd == 0 ? QString()
                                      : QStringLiteral("%1 signals after the end").arg(watch.toldAfterTheEnd);
}

QString leftovers(SimulatedWorkplace& workplace)
{
    const LineRecord& record = workplace.record;
    if (workplace.port().isOpen()) {
        return QStringLiteral("the port is still open");
    }
    const int entries = record.size();
    workplace.run(c_afterwardsMs);
    if (record.size() != entries) {
        return QStringLiteral("after the end the port was used again");
    }
    if (workplace.runningCommands() != 0) {
        return QStringLiteral("%1 commands still run").arg(workplace.runningCommands());
    }
    if (workplace.clock.waiting() != 0) {
        return QStringLiteral("%1 timers are still set").arg(workplace.clock.waiting());
    }
    return {};
}
