#pragma once

#include <QFile>
#include <QTemporaryDir>

#include <unistd.h>

#include "history/history_store.h"

/// A history of so many entries: two wrenches, eight programs, one result in fifty not good, a gap in every thousand.
class FilledHistory
{
public:
    static constexpr int c_million = 1000000;
    static constexpr qint64 c_usBetween = 20000;

    explicit FilledHistory(int entries) : store(m_folder.path())
    {
        if (store.openToWrite()) {
            qFatal("the history cannot be made");
        }
        constexpr int c_together = 5000;
        for (int i = 0; i < entries;) {
            QVector<HistoryRecord> records;
            for (; records.size() < c_together && i < entries; ++i) {
                records.append(recordOf(i));
            }
            if (store.append(records)) {
                qFatal("the history cannot be filled");
            }
        }
    }

    QString folder() const { return m_folder.path(); }

    static HistoryRecord recordOf(int i)
    {
        HistoryRecord record;
        record.arrivedUs = i * c_usBetween;
        record.serialId = i % 2 == 0 ? QStringLiteral("2210") : QStringLiteral("2211");
        record.device = QStringLiteral("/dev/ttyUSB0");
        record.plugin = QStringLiteral("Plugin Device Haitor");
        record.isGood = i % 50 != 7;
        const QString status = record.isGood ? QStringLiteral("0") : QStringLiteral("2");
        record.entries = {QStringLiteral("12.%1").arg(i % 100),
                          QStringLiteral("0"),
                          status,
                          QStringLiteral("90"),
                          QStringLiteral("0"),
                          QString::number(i),
                          QStringLiteral("0"),
                          i,
                          1 + i % 8};
        record.rawLine = "RE:F:12.05,0,0,90,0,1,0";
        record.preset = QStringLiteral("{\"unit\":\"N.m\",\"program\":%1}").arg(1 + i % 8);
        if (i % 1000 == 500) {
            record.kind = HistoryRecord::Kind::Gap;
            record.counter = QStringLiteral("readingNumber");
            record.countBefore = i;
            record.countAfter = i + 2;
        }
        return record;
    }

private:
    QTemporaryDir m_folder;

public:
    HistoryStore store;
};

/// Bytes of this process in memory that are its own.
inline double residentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const QList<QByteArray> pages = file.readAll().split(' ');
    return double(pages.at(1).toLongLong() - pages.at(2).toLongLong()) * double(sysconf(_SC_PAGESIZE));
}
