#pragma once

#include <QStringList>
#include <QVector>

/// How the history is laid out in its file, and how older layouts become this one. The number of a layout is the
/// file's user_version. docs/history.md describes it for readers.
namespace history_schema {

/// Says whose file it is: SQLite's application_id.
constexpr int c_applicationId = 0x48774869;
constexpr int c_version = 1;

/// Statements that lead from one version to the next.
struct Migration
{
    int from; ///< to from + 1
    QStringList statements;
};

/// From an empty file (version 0) to c_version, one migration for each step.
QVector<Migration> migrations();

/// The statements from a version to the last of the given migrations, in order; empty when a step is not known.
QStringList statementsFrom(int version, const QVector<Migration>& known);

} // namespace history_schema
