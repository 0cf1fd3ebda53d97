#include "line_record.h"

#include <algorithm>

QByteArray LineRecord::lastSent() const
{
    const int at = last(Kind::Sent);
    return at < 0 ? QByteArray() : entries.at(at).bytes;
}

int LineRecord::last(Kind kind) const
{
    const auto found =
        std::find_if(entries.crbegin(), entries.crend(), [kind](const Entry& entry) { return entry.kind == kind; });
    return static_cast<int>(entries.crend() - found) - 1;
}

bool LineRecord::has(Kind kind, int from, int to) const
{
    return std::any_of(entries.cbegin() + from, entries.cbegin() + to,
                       [kind](const Entry& entry) { return entry.kind == kind; });
}

QByteArrayList LineRecord::lines(int from, int to) const
{
    QByteArrayList lines;
    QByteArray rest;
    for (int i = from; i < to; ++i) {
        const Entry& entry = entries.at(i);
        if (entry.kind == Kind::Pulled || entry.kind == Kind::Closed) {
            rest.clear(); // nothing that comes later belongs to it
        }
        if (entry.kind != Kind::Arrived) {
            continue;
        }
        rest += entry.bytes;
        int begin = 0;
        for (int end = rest.indexOf("\r\n"); end >= 0; end = rest.indexOf("\r\n", begin)) {
            lines.append(rest.mid(begin, end - begin).trimmed());
            begin = end + 2;
        }
        rest.remove(0, begin);
    }
    return lines;
}
