#include "history_note.h"

#include <QCoreApplication>

#include "history_record.h"

QString historyNoteText(const HistoryRecord& record)
{
    if (record.kind == HistoryRecord::Kind::Repeat) {
        return QCoreApplication::translate("ResultsReport", "repeated after a reconnection, stored once (entry %1)")
            .arg(record.repeatOf);
    }
    const bool isOfReadings = record.counter == QLatin1String("readingNumber");
    if (record.missing() == 0) {
        return QCoreApplication::translate("ResultsReport", "gap: the count of readings fell back from %1 to %2; how "
                                                            "many are missing cannot be told")
            .arg(record.countBefore)
            .arg(record.countAfter);
    }
    const qint64 first = record.countBefore + 1;
    const qint64 last = record.countAfter - 1;
    if (!isOfReadings) {
        return QCoreApplication::translate(
                   "ResultsReport", "gap: of the input, the chunks %1 to %2 were not heard; results may be missing")
            .arg(first)
            .arg(last);
    }
    return first == last ? QCoreApplication::translate("ResultsReport", "gap: reading %1 is missing").arg(first)
                         : QCoreApplication::translate("ResultsReport", "gap: %1 readings are missing, %2 to %3")
                               .arg(record.missing())
                               .arg(first)
                               .arg(last);
}
