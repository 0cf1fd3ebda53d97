#include "fault_matrix.h"

#include <QMap>
#include <QRegularExpression>

namespace {

const char* const c_introduction = R"(# The fault matrix

Generated: `cmake --build build/release --target fault_matrix` writes this file, and `tst_fault_matrix` fails when a
cell is no longer what it says here. What it is for, and how it is made: [reliability](reliability.md#the-fault-matrix).

Each table is about one command of the device plugin, as `app_workplace run` runs it, or about a session. A column is a
frame of the exchange, with its number since the line was opened; a row is a fault of the
[simulator](../applications/WrenchSimulator/README.md#faults) that strikes at this frame, and with a `+` at all behind it,
too. The other frames are answered as they should be.

| A cell says | It means |
|---|---|
| ok | done; with a time: done, later than undisturbed by more than 0.1 s |
| ok, … | the command said yes, and … is not as after an undisturbed run: there is no checksum on the line, and "setLock", "setKeepAlive" and "setKeepAliveFonction" do not wait for the wrench's answer |
| [7] 3.0 s | failed after that time, with the message 7 at the [end](#messages) |
| mended 1.2 s | a session that lost its link for so long, restored it, and went on |
)";

QStringList cellsOf(const QString& row)
{
    QStringList cells = row.split(QLatin1Char('|'));
    cells = cells.mid(1, cells.size() - 2);
    for (QString& cell : cells) {
        cell = cell.trimmed();
    }
    return cells;
}

QString rowOf(const QStringList& cells)
{
    return QStringLiteral("| %1 |\n").arg(cells.join(QStringLiteral(" | ")));
}

QString quoted(const QString& text)
{
    return QLatin1Char('`') + text + QLatin1Char('`');
}

} // namespace

QString FaultMatrix::Step::triggerOf(const QString& fault) const
{
    const bool isLasting = text.isEmpty() || fault.endsWith(QLatin1Char('+'));
    const QString kind = fault.endsWith(QLatin1Char('+')) ? fault.chopped(1) : fault;
    return kind + QLatin1Char('@') + QString::number(frame) + (isLasting ? QStringLiteral("+") : QString());
}

QString FaultMatrix::failureNumber(const QString& text)
{
    if (!m_failures.contains(text)) {
        m_failures.append(text);
    }
    return QString::number(m_failures.indexOf(text) + 1);
}

QString FaultMatrix::failureOf(const QString& cell) const
{
    static const QRegularExpression number(QStringLiteral("^\\[([0-9]+)\\]"));
    return m_failures.value(number.match(cell).captured(1).toInt() - 1);
}

QString FaultMatrix::toMarkdown() const
{
    QString document = QString::fromUtf8(c_introduction);
    for (const Table& table : tables) {
        document += QStringLiteral("\n## %1\n\n").arg(table.trial);
        QStringList header{QStringLiteral("fault")};
        for (const Step& step : table.steps) {
            header.append(step.text.isEmpty()
                              ? QStringLiteral("%1 and all behind").arg(step.frame)
                              : QStringLiteral("%1 %2").arg(QString::number(step.frame), quoted(step.text)));
        }
        document +=
            rowOf(header) + QLatin1Char('|') + QStringLiteral("---|").repeated(header.size()) + QLatin1Char('\n');
        const QStringList faults = matrixFaults();
        for (int i = 0; i < faults.size(); ++i) {
            document += rowOf(QStringList(quoted(faults.at(i))) + table.cells.at(i));
        }
    }
    document += QStringLiteral("\n## Messages\n\n");
    for (int i = 0; i < m_failures.size(); ++i) {
        document += QStringLiteral("%1. %2\n").arg(QString::number(i + 1), m_failures.at(i));
    }
    return document;
}

FaultMatrix FaultMatrix::fromMarkdown(const QString& document)
{
    static const QRegularExpression heading(QStringLiteral("^## (.*)$"));
    static const QRegularExpression message(QStringLiteral("^[0-9]+\\. (.*)$"));
    static const QRegularExpression step(QStringLiteral("^([0-9]+) (?:`(.*)`|and all behind)$"));
    FaultMatrix matrix;
    const QStringList lines = document.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (const QRegularExpressionMatch found = heading.match(line); found.hasMatch()) {
            matrix.tables.append({found.captured(1), {}, {}});
        } else if (const QRegularExpressionMatch told = message.match(line); told.hasMatch()) {
            matrix.m_failures.append(told.captured(1));
        } else if (line.startsWith(QLatin1String("| fault |"))) {
            const QStringList header = cellsOf(line).mid(1);
            for (const QString& cell : header) {
                const QRegularExpressionMatch match = step.match(cell);
                matrix.tables.last().steps.append({match.captured(1).toInt(), match.captured(2)});
            }
        } else if (line.startsWith(QLatin1String("| `"))) {
            matrix.tables.last().cells.append(cellsOf(line).mid(1));
        }
    }
    if (!matrix.tables.isEmpty()) {
        matrix.tables.removeLast(); // that was the heading of the messages
    }
    return matrix;
}

QStringList FaultMatrix::changes(const FaultMatrix& from, const FaultMatrix& to)
{
    const auto cellsByName = [](const FaultMatrix& matrix) {
        QMap<QString, QString> cells;
        const QStringList faults = matrixFaults();
        for (const Table& table : matrix.tables) {
            for (int fault = 0; fault < table.cells.size(); ++fault) {
                for (int step = 0; step < table.cells.at(fault).size(); ++step) {
                    const QString name =
                        QStringLiteral("%1, %2 at %3 \"%4\"")
                            .arg(table.trial, faults.value(fault), QString::number(table.steps.at(step).frame),
                                 table.steps.at(step).text);
                    cells.insert(name, matrix.expanded(table.cells.at(fault).at(step)));
                }
            }
        }
        return cells;
    };
    const QMap<QString, QString> before = cellsByName(from);
    QMap<QString, QString> after = cellsByName(to);
    QStringList changes;
    for (auto cell = before.cbegin(); cell != before.cend(); ++cell) {
        const QString now = after.take(cell.key());
        if (now != cell.value()) {
            changes.append(QStringLiteral("%1:\n    was %2\n    is  %3")
                               .arg(cell.key(), cell.value(), now.isEmpty() ? QStringLiteral("gone") : now));
        }
    }
    for (auto cell = after.cbegin(); cell != after.cend(); ++cell) {
        changes.append(QStringLiteral("%1:\n    is new: %2").arg(cell.key(), cell.value()));
    }
    return changes;
}

QString FaultMatrix::expanded(const QString& cell) const
{
    const QString failure = failureOf(cell);
    return failure.isEmpty() ? cell : cell + QStringLiteral(" (%1)").arg(failure);
}
