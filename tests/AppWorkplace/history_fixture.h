#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QVector>

#include "history/history_query.h"
#include "history/history_store.h"

/// A folder for one history, and what tests put into it.
class HistoryFixture
{
public:
    QString folder() const { return m_folder.path(); }
    QString file() const { return HistoryStore::fileIn(folder()); }

    QByteArray bytes() const { return bytesOf(file()); }
    static QByteArray bytesOf(const QString& name)
    {
        QFile input(name);
        return input.open(QIODevice::ReadOnly) ? input.readAll() : QByteArray();
    }
    bool put(const QByteArray& bytes) const
    {
        QFile output(file());
        return output.open(QIODevice::WriteOnly) && output.write(bytes) == bytes.size();
    }

    /// A whole result with that reading number, arrived so many seconds after the beginning of time.
    static HistoryRecord result(int number, qint64 second = 0, bool isGood = true, int program = 2,
                                const QString& serialId = QStringLiteral("2210"))
    {
        HistoryRecord record;
        record.arrivedUs = second * c_usPerSecond;
        record.serialId = serialId;
        record.device = QStringLiteral("/dev/ttyUSB0");
        record.plugin = QStringLiteral("scripted");
        record.isGood = isGood;
        const QString status = isGood ? QStringLiteral("0") : QStringLiteral("2");
        record.entries = {QStringLiteral("12.05"), QStringLiteral("0"), status,
                          QStringLiteral("90"),    QStringLiteral("0"), QString::number(number),
                          QStringLiteral("0"),     number + 20,         program};
        record.preset = QStringLiteral("{\"unit\":\"N.m\"}");
        record.rawLine = "RE:F:12.05,0,0,90,0,1,0";
        return record;
    }
    static HistoryRecord gap(int before, int after, qint64 second = 0)
    {
        HistoryRecord record = result(0, second);
        record.kind = HistoryRecord::Kind::Gap;
        record.counter = QStringLiteral("readingNumber");
        record.countBefore = before;
        record.countAfter = after;
        return record;
    }

    /// Makes the file with these entries. False: it could not.
    bool fill(QVector<HistoryRecord> records) const
    {
        HistoryStore store(folder());
        return !store.openToWrite() && !store.append(records);
    }
    /// All that is stored, as numbers of readings, gaps as "gap".
    QStringList readings(const HistoryFilter& filter = {}) const
    {
        HistoryStore store(folder());
        QVector<HistoryRecord> records;
        if (store.openToRead() || HistoryQuery(store.database(), filter).page({}, c_all, &records)) {
            return {QStringLiteral("unreadable")};
        }
        return readingsOf(records);
    }
    static QStringList readingsOf(const QVector<HistoryRecord>& records)
    {
        QStringList numbers;
        for (const HistoryRecord& record : records) {
            numbers.append(record.kind == HistoryRecord::Kind::Gap      ? QStringLiteral("gap")
                           : record.kind == HistoryRecord::Kind::Repeat ? QStringLiteral("repeat")
                                                                        : record.entries.at(5).toString());
        }
        return numbers;
    }

    static constexpr qint64 c_usPerSecond = 1000000;
    static constexpr int c_all = 1000000;

private:
    QTemporaryDir m_folder;
};
