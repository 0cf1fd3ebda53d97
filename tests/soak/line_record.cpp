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
    QByteArray text;
    for (int i = from; i < to; ++i) {
        if (entries.at(i).kind == Kind::Arrived) {
            text += entries.at(i).bytes;
        }
    }
    QByteArrayList lines;
    int begin = 0;
    for (int end = text.indexOf("\r\n"); end >= 0; end = text.indexOf("\r\n", begin)) {
        lines.append(text.mid(begin, end - begin).trimmed());
        begin = end + 2;
    }
    return lines;
}
