#include "trace_items.h"

#include <QFile>

#include "trace_reader.h"

namespace {
const QByteArray c_lineEnd = QByteArrayLiteral("\r\n");
}

QString TraceItems::read(const QString& file)
{
    TraceReader trace(file);
    if (!trace.check()) {
        return trace.error();
    }
    QFile head(file);
    if (head.open(QIODevice::ReadOnly)) {
        subject = QString::fromUtf8(head.readLine()).section(QLatin1Char(','), 1).trimmed();
    }
    QByteArray rest;
    TraceEntry entry;
    while (trace.next(&entry)) {
        if (entry.kind == TraceEntry::Kind::FromHost) {
            const bool hasEnd = entry.bytes.endsWith(c_lineEnd);
            const QByteArray frame = hasEnd ? entry.bytes.chopped(c_lineEnd.size()) : entry.bytes;
            items.append({true, frame, !hasEnd, entry.momentUs, entry.line});
        } else if (entry.kind == TraceEntry::Kind::ToHost) {
            rest += entry.bytes;
            int begin = 0;
            for (int end = rest.indexOf(c_lineEnd); end >= 0; end = rest.indexOf(c_lineEnd, begin)) {
                items.append({false, rest.mid(begin, end - begin), false, entry.momentUs, entry.line});
                begin = end + c_lineEnd.size();
            }
            rest.remove(0, begin);
        }
    }
    if (!rest.isEmpty()) {
        items.append({false, rest, true, entry.momentUs, entry.line});
    }
    return {};
}
