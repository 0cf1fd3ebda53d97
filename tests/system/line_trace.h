#pragma once

#include <QString>
#include <QStringList>

/// What the driver has written down of the line: who said what, in its order.
class LineTrace
{
public:
    /// Of the file as it is now; a missing file is an empty trace.
    static LineTrace fromFile(const QString& file);

    /// The frames that the workplace has written, without their line ends.
    QStringList sent() const { return m_sent; }
    /// The lines that have arrived whole, without their line ends, however they were cut into chunks.
    QStringList arrived() const { return m_arrived; }
    /// "opened", "closed", "lost" and the like.
    QStringList remarks() const { return m_remarks; }
    /// The last entry as it stands in the file, without its time.
    QString lastEntry() const { return m_lastEntry; }

private:
    QStringList m_sent;
    QStringList m_arrived;
    QStringList m_remarks;
    QString m_lastEntry;
};
