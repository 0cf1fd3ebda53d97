#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// Lines of columns, as wide as their widest cell, two blanks apart. Cells that people compare as numbers stand to the
/// right. Control characters in cells are made visible.
class TextTable
{
public:
    struct Column
    {
        QString title;
        bool isNumber = false;
        int leastWidth = 0;
    };

    explicit TextTable(const QVector<Column>& columns);

    /// As many cells as there are columns.
    void addRow(const QStringList& cells);

    /// The titles, then the rows.
    QStringList lines() const;
    QString titleLine() const;
    /// One row laid out with the widths so far; for tables that grow while they are shown.
    QString rowLine(const QStringList& cells) const;

private:
    QVector<Column> m_columns;
    QVector<QStringList> m_rows;
};
