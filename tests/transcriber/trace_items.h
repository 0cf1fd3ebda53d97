#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// A frame of the host or a line of the other side, as a trace has it.
struct TraceItem
{
    bool isFrame = false;
    QByteArray text;    ///< without CR LF
    bool isCut = false; ///< a line whose end is not in the trace
    qint64 momentUs = 0;
    qint64 line = 0; ///< in the trace, from 1
};

/// A whole trace as frames and lines, however its lines were cut into chunks; a line stands where its end arrived.
struct TraceItems
{
    QVector<TraceItem> items;
    QString subject; ///< what was traced, and when

    /// Empty, or why the file is not taken: file, line, reason.
    QString read(const QString& file);
};
