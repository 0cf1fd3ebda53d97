#pragma once

#include <QSaveFile>
#include <QString>
#include <QVector>

#include <optional>

#include "../services/problem.h"
#include "history_record.h"

/// Writes entries into a file of their own, CSV or JSON Lines. The file appears whole, with commit(), or not at all;
/// one of that name is replaced. What is written is not kept in memory.
class HistoryExport
{
public:
    enum class Format { Csv, JsonLines };

    /// By the end of the name, ".csv" or ".jsonl"; none: another one.
    static std::optional<Format> formatOf(const QString& file);

    HistoryExport(const QString& file, Format format);

    std::optional<Problem> begin();
    std::optional<Problem> write(const QVector<HistoryRecord>& records);
    /// The file is there, and on the disk.
    std::optional<Problem> commit();

    QString file() const { return m_output.fileName(); }

private:
    Problem problem(const QString& cause) const;
    std::optional<Problem> put(const QByteArray& bytes);

    QSaveFile m_output;
    const Format m_format;
};
