#pragma once

#include <QByteArray>
#include <QVariant>

#include <deque>

/// The result lines that were seen on the line and that no record has been made from yet. A record says which chunk
/// its line came with and what its fields are, so that the line behind it can be found.
class ObservedResults
{
public:
    /// Records come right behind their lines; of more lines than this the oldest are forgotten.
    static constexpr int c_mostLines = 256;

    /// line: without its line end; what is no result is left out. chunk: the driver's number of the chunk that ended
    /// the line.
    void add(const QByteArray& line, int chunk);
    /// How many are known that no record was made from.
    int count() const { return int(m_seen.size()); }
    /// The line that the record was made from; empty when it was not seen. It and all before it are forgotten.
    QByteArray take(const QVariantMap& eventData);

private:
    struct Seen
    {
        QByteArray line;
        int chunk;
    };
    std::deque<Seen> m_seen;
};
