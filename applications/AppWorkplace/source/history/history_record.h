#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

#include <array>

/// One entry of the history, as it is stored.
struct HistoryRecord
{
    enum class Kind {
        Result, ///< a tightening
        Gap,    ///< a counter has skipped: something was not heard
        Repeat  ///< a reading that was told again after a reconnection and is stored once
    };

    /// The entries of "eventData", in the order of the columns.
    static constexpr int c_entries = 9;
    static constexpr std::array<const char*, c_entries> c_entryNames = {
        "convertedTorque", "direction",     "torqueStatus", "snugTorqueAngle", "angleStatus",
        "readingNumber",   "readingStatus", "eventCountNo", "progId"};
    enum Entry {
        ConvertedTorque,
        Direction,
        TorqueStatus,
        SnugTorqueAngle,
        AngleStatus,
        ReadingNumber,
        ReadingStatus,
        EventCountNo,
        ProgId
    };

    qint64 id = 0; ///< from 1, in the order of storing, never used twice; 0: not stored yet
    Kind kind = Kind::Result;
    qint64 arrivedUs = 0; ///< when it arrived: microseconds since 1970-01-01 UTC
    int utcOffsetS = 0;   ///< what local time was ahead of UTC then, in seconds
    QString serialId;     ///< of the wrench
    QString device;       ///< the port, or "simulated"
    QString plugin;       ///< name of the plugin that delivered it

    /// As received: a text, an integer, or invalid where there was none.
    std::array<QVariant, c_entries> entries;
    QString otherEntries;             ///< what "eventData" held beside those, as a JSON object; empty: nothing
    bool isGood = false;              ///< the verdict that was shown; of a result only
    QByteArray rawLine;               ///< the line that it was read from, without its line end; empty: not known
    QString preset;                   ///< the program's preset as it was then, as a JSON object; empty: not known
    bool isAfterReconnection = false; ///< the first result since the line or the link was lost

    QString counter;        ///< of a gap: the entry that counts, "readingNumber" or "eventCountNo"
    qint64 countBefore = 0; ///< of a gap: the last number heard
    qint64 countAfter = 0;  ///< of a gap: the number that came instead of the next one
    qint64 repeatOf = 0;    ///< of a repeat: the id of the result

    /// Of a gap: how many numbers were not heard; 0: not known, for the counter fell back.
    qint64 missing() const
    {
        qint64 step = 0; // numbers of a damaged file may be too far from each other
        return !__builtin_sub_overflow(countAfter, countBefore, &step) && step > 0 ? step - 1 : 0;
    }

    /// The entries by their names; absent ones are not in it.
    QVariantMap eventData() const
    {
        QVariantMap map;
        for (int i = 0; i < c_entries; ++i) {
            const QVariant& entry = entries.at(std::size_t(i));
            if (entry.isValid()) {
                map.insert(QLatin1String(c_entryNames.at(std::size_t(i))), entry);
            }
        }
        return map;
    }
};
