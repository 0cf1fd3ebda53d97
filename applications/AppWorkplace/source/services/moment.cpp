#include "moment.h"

#include <QDateTime>
#include <QRegularExpression>

namespace {

constexpr qint64 c_usPerMs = 1000;
constexpr int c_fractionDigits = 6;
constexpr int c_usPerSecond = 1000000;

/// What was matched of the text, as a number; 0: nothing.
int number(const QRegularExpressionMatch& match, const char* name)
{
    return match.captured(QLatin1String(name)).toInt();
}

} // namespace

std::optional<qint64> momentOf(const QString& text, bool isEnd)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(?<year>\\d{4})-(?<month>\\d\\d)-(?<day>\\d\\d)"
                       "([T ](?<hour>\\d\\d):(?<minute>\\d\\d)(:(?<second>\\d\\d)(\\.(?<fraction>\\d{1,6}))?)?"
                       "(?<zone>Z|(?<sign>[+-])(?<zoneHour>\\d\\d):(?<zoneMinute>\\d\\d))?)?$"));
    const QRegularExpressionMatch match = pattern.match(text);
    const QDate date(number(match, "year"), number(match, "month"), number(match, "day"));
    if (!match.hasMatch() || !date.isValid()) {
        return std::nullopt;
    }
    if (match.captured(QStringLiteral("hour")).isEmpty()) {
        return (isEnd ? date.addDays(1) : date).startOfDay().toMSecsSinceEpoch() * c_usPerMs;
    }
    const QTime time(number(match, "hour"), number(match, "minute"), number(match, "second"));
    constexpr int c_mostZoneHours = 14;
    constexpr int c_minutesPerHour = 60;
    constexpr int c_secondsPerMinute = 60;
    if (!time.isValid() || number(match, "zoneHour") > c_mostZoneHours ||
        number(match, "zoneMinute") >= c_minutesPerHour) {
        return std::nullopt;
    }
    const int zoneS = (number(match, "zoneHour") * c_minutesPerHour + number(match, "zoneMinute")) * c_secondsPerMinute;
    const bool isWest = match.captured(QStringLiteral("sign")) == QLatin1String("-");
    const QDateTime moment = match.captured(QStringLiteral("zone")).isEmpty()
                                 ? QDateTime(date, time)
                                 : QDateTime(date, time, Qt::OffsetFromUTC, isWest ? -zoneS : zoneS);
    const QString fraction =
        match.captured(QStringLiteral("fraction")).leftJustified(c_fractionDigits, QLatin1Char('0'));
    return moment.toMSecsSinceEpoch() * c_usPerMs + fraction.toInt() % c_usPerSecond;
}
