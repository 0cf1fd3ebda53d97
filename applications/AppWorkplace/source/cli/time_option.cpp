#include "time_option.h"

#include <QCoreApplication>

#include "../services/moment.h"

std::optional<qint64> timeOption(const QCommandLineParser& options, const QString& name, bool isEnd, Problem* problem)
{
    if (!options.isSet(name)) {
        return std::nullopt;
    }
    const std::optional<qint64> moment = momentOf(options.value(name), isEnd);
    if (!moment) {
        *problem = {Problem::Kind::Usage,
                    QStringLiteral("command line"),
                    QCoreApplication::translate("ResultsCommand", "--%1 takes a date or a date and a time, not \"%2\"")
                        .arg(name, options.value(name)),
                    {},
                    QCoreApplication::translate("ResultsCommand", "write 2026-11-21 or 2026-11-21T08:30:15; local time "
                                                                  "unless Z or +01:00 follows")};
    }
    return moment;
}
