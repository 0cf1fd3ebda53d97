#include "history_export.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "../services/json_lines.h"
#include "file_sync.h"
#include "history_format.h"

std::optional<HistoryExport::Format> HistoryExport::formatOf(const QString& file)
{
    if (file.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive)) {
        return Format::Csv;
    }
    if (file.endsWith(QLatin1String(".jsonl"), Qt::CaseInsensitive)) {
        return Format::JsonLines;
    }
    return std::nullopt;
}

HistoryExport::HistoryExport(const QString& file, Format format) : m_output(file), m_format(format) {}

std::optional<Problem> HistoryExport::begin()
{
    if (!m_output.open(QIODevice::WriteOnly)) {
        return problem(m_output.errorString());
    }
    return m_format == Format::Csv ? put(history_format::csvTitles()) : std::nullopt;
}

std::optional<Problem> HistoryExport::write(const QVector<HistoryRecord>& records)
{
    QByteArray bytes;
    for (const HistoryRecord& record : records) {
        bytes += m_format == Format::Csv ? history_format::toCsv(record) : jsonLine(history_format::toJson(record));
    }
    return put(bytes);
}

std::optional<Problem> HistoryExport::commit()
{
    QString cause;
    if (!m_output.flush()) {
        return problem(m_output.errorString());
    }
    if (!syncFile(m_output.handle(), &cause)) {
        return problem(cause);
    }
    if (!m_output.commit()) {
        return problem(m_output.errorString());
    }
    if (!syncFolder(QFileInfo(m_output.fileName()).absolutePath(), &cause)) {
        return problem(cause);
    }
    return std::nullopt;
}

std::optional<Problem> HistoryExport::put(const QByteArray& bytes)
{
    return m_output.write(bytes) == bytes.size() ? std::nullopt
                                                 : std::optional<Problem>(problem(m_output.errorString()));
}

Problem HistoryExport::problem(const QString& cause) const
{
    return {
        Problem::Kind::SetUp, QStringLiteral("export"),
        QCoreApplication::translate("History", "the file %1 is not written").arg(m_output.fileName()), cause,
        QCoreApplication::translate("History", "make room and check the rights of its folder, or name another file")};
}
