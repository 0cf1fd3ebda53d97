#include "line_trace.h"

#include <QFile>

namespace {
const QString c_lineEnd = QStringLiteral("\\r\\n"); // as the trace shows it
}

LineTrace LineTrace::fromFile(const QString& file)
{
    LineTrace trace;
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly)) {
        return trace;
    }
    QString partialLine;
    const QStringList lines = QString::fromUtf8(input.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        // "0.011950 > ATS\r\n"
        const QString direction = line.section(QLatin1Char(' '), 1, 1);
        const QString text = line.section(QLatin1Char(' '), 2);
        if (line.startsWith(QLatin1Char('#'))) {
            continue;
        }
        trace.m_lastEntry = direction + QLatin1Char(' ') + text;
        if (direction == QLatin1String(">")) {
            trace.m_sent.append(QString(text).remove(c_lineEnd));
        } else if (direction == QLatin1String("!")) {
            trace.m_remarks.append(text);
        } else {
            QStringList arrived = (partialLine + text).split(c_lineEnd);
            partialLine = arrived.takeLast();
            trace.m_arrived += arrived;
        }
    }
    return trace;
}
