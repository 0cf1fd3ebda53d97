#include "fuzz_check.h"
#include "fuzz_targets.h"
#include "memory_file.h"
#include "trace_reader.h"

#include <vector>

namespace {

/// All entries, or nothing and why.
std::vector<TraceEntry> entriesOf(const MemoryFile& file, QString* error)
{
    std::vector<TraceEntry> entries;
    TraceReader reader(file.path());
    TraceEntry entry;
    if (reader.open()) {
        while (reader.next(&entry)) {
            entries.push_back(entry);
        }
    }
    *error = reader.error();
    TraceReader checked(file.path());
    FUZZ_CHECK(checked.check() == error->isEmpty());
    return entries;
}

/// The trace that tells of these entries.
QByteArray written(const std::vector<TraceEntry>& entries)
{
    constexpr qint64 c_usPerSecond = 1000000;
    QByteArray text = "# serial trace 1, somewhere, once\n";
    for (const TraceEntry& entry : entries) {
        const char direction = entry.kind == TraceEntry::Kind::FromHost ? '>'
                               : entry.kind == TraceEntry::Kind::ToHost ? '<'
                                                                        : '!';
        text += QByteArray::number(entry.momentUs / c_usPerSecond) + '.' +
                QByteArray::number(entry.momentUs % c_usPerSecond).rightJustified(6, '0') + ' ' + direction + ' ' +
                TraceReader::escaped(entry.bytes) + '\n';
    }
    return text;
}

} // namespace

/// The reader of traces: a refusal with file and line, or entries in the order of their moments; written again they
/// read the same. No byte comes out that was not written down.
void fuzz::trace_reader(const QByteArray& bytes)
{
    const MemoryFile file(bytes);
    QString error;
    const std::vector<TraceEntry> entries = entriesOf(file, &error);
    FUZZ_CHECK(error.isEmpty() || error.startsWith(file.path()));
    qint64 momentUs = 0;
    int size = 0;
    for (const TraceEntry& entry : entries) {
        FUZZ_CHECK(entry.momentUs >= momentUs);
        momentUs = entry.momentUs;
        size += entry.bytes.size();
    }
    FUZZ_CHECK(size <= bytes.size());

    const MemoryFile again(written(entries));
    QString errorAgain;
    const std::vector<TraceEntry> entriesAgain = entriesOf(again, &errorAgain);
    FUZZ_CHECK(errorAgain.isEmpty());
    FUZZ_CHECK(entriesAgain.size() == entries.size());
    for (size_t i = 0; i < entries.size(); ++i) {
        FUZZ_CHECK(entriesAgain[i].kind == entries[i].kind && entriesAgain[i].momentUs == entries[i].momentUs &&
                   entriesAgain[i].bytes == entries[i].bytes);
    }
}
