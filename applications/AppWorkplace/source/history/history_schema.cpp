#include "history_schema.h"

#include <algorithm>

namespace {

// Columns without a type keep what they are given: a text stays a text, an integer an integer. Every filter of a query
// has an index that ends with the time, so that a page costs what it shows, whatever is stored.
QStringList version1()
{
    return {
        QStringLiteral("CREATE TABLE presets ("
                       "id INTEGER PRIMARY KEY, "
                       "preset TEXT NOT NULL UNIQUE)"),
        QStringLiteral("CREATE TABLE origins ("
                       "id INTEGER PRIMARY KEY, "
                       "device TEXT NOT NULL, "
                       "plugin TEXT NOT NULL, "
                       "UNIQUE (device, plugin))"),
        QStringLiteral("CREATE TABLE entries ("
                       "id INTEGER PRIMARY KEY AUTOINCREMENT, "
                       "kind INTEGER NOT NULL CHECK (kind IN (0, 1, 2)), "
                       "arrived_us INTEGER NOT NULL, "
                       "utc_offset_s INTEGER NOT NULL, "
                       "serial_id TEXT NOT NULL, "
                       "origin INTEGER NOT NULL REFERENCES origins (id), "
                       "good INTEGER CHECK ((good IS NULL) = (kind <> 0)), "
                       "convertedTorque, direction, torqueStatus, snugTorqueAngle, angleStatus, readingNumber, "
                       "readingStatus, eventCountNo, progId, "
                       "other_entries TEXT, "
                       "raw_line TEXT, "
                       "preset INTEGER REFERENCES presets (id), "
                       "after_reconnection INTEGER NOT NULL, "
                       "counter TEXT, "
                       "count_before INTEGER, "
                       "count_after INTEGER, "
                       "repeat_of INTEGER REFERENCES entries (id))"),
        QStringLiteral("CREATE INDEX entries_of_all ON entries (good, arrived_us)"),
        QStringLiteral("CREATE INDEX entries_of_wrench ON entries (serial_id, good, arrived_us)"),
        QStringLiteral("CREATE INDEX entries_of_program ON entries (progId, good, arrived_us)"),
        QStringLiteral("CREATE INDEX entries_of_wrench_and_program "
                       "ON entries (serial_id, progId, good, arrived_us)"),
    };
}

} // namespace

QVector<history_schema::Migration> history_schema::migrations()
{
    return {{0, version1()}};
}

QStringList history_schema::statementsFrom(int version, const QVector<Migration>& known)
{
    QStringList statements;
    for (int from = version;; ++from) {
        const auto step =
            std::find_if(known.cbegin(), known.cend(), [from](const Migration& each) { return each.from == from; });
        if (step == known.cend()) {
            return statements;
        }
        statements += step->statements;
        statements.append(QStringLiteral("PRAGMA user_version = %1").arg(from + 1));
    }
}
