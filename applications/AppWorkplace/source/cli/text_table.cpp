#include "text_table.h"

#include <algorithm>

#include "console.h"

namespace {
const QString c_gap = QStringLiteral("  ");
}

TextTable::TextTable(const QVector<Column>& columns) : m_columns(columns)
{
    for (Column& column : m_columns) {
        column.leastWidth = std::max(column.leastWidth, column.title.size());
    }
}

void TextTable::addRow(const QStringList& cells)
{
    m_rows.append(cells);
    for (int i = 0; i < m_columns.size(); ++i) {
        m_columns[i].leastWidth = std::max(m_columns.at(i).leastWidth, Console::visible(cells.value(i)).size());
    }
}

QStringList TextTable::lines() const
{
    QStringList lines{titleLine()};
    for (const QStringList& row : m_rows) {
        lines.append(rowLine(row));
    }
    return lines;
}

QString TextTable::titleLine() const
{
    QStringList titles;
    for (const Column& column : m_columns) {
        titles.append(column.title);
    }
    return rowLine(titles);
}

QString TextTable::rowLine(const QStringList& cells) const
{
    QStringList padded;
    for (int i = 0; i < m_columns.size(); ++i) {
        const Column& column = m_columns.at(i);
        const QString cell = Console::visible(cells.value(i));
        padded.append(column.isNumber ? cell.rightJustified(column.leastWidth) : cell.leftJustified(column.leastWidth));
    }
    QString line = padded.join(c_gap);
    while (line.endsWith(QLatin1Char(' '))) {
        line.chop(1);
    }
    return line;
}
