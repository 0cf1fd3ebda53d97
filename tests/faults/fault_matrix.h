#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "fault_trial.h"

/// The matrix as it stands in its document: for each trial a table with a row for each fault and a column for each
/// frame of its exchange, and a list of the failures that the cells refer to.
///
///     | fault | 15 `DT:1` | 16 `SC:TL:2` | 17 `RE:1` |
///     |---|---|---|---|
///     | `silence` | [3] 3.0 s | [3] 3.0 s | [3] 3.0 s |
class FaultMatrix
{
public:
    /// A frame of the exchange: which one since the line was opened, counted from 1, and its text. The last column of a
    /// command that sends none is "from here on".
    struct Step
    {
        int frame = 1;
        QString text;

        /// As the simulator counts.
        QString triggerOf(const QString& fault) const;
    };

    struct Table
    {
        QString trial; ///< its name
        QList<Step> steps;
        QList<QStringList> cells; ///< by fault, in the order of matrixFaults(), and by step
    };

    /// The number by which cells refer to that failure; the same for the same text.
    QString failureNumber(const QString& text);
    /// The text behind "[7]…"; empty: the cell is no failure.
    QString failureOf(const QString& cell) const;

    QString toMarkdown() const;
    static FaultMatrix fromMarkdown(const QString& document);
    /// One line for each cell that is not the same in both; empty: the matrices are equal.
    static QStringList changes(const FaultMatrix& from, const FaultMatrix& to);

    QList<Table> tables;

private:
    QString expanded(const QString& cell) const;

    QStringList m_failures;
};
