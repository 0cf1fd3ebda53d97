#pragma once

#include "../services/problem.h"

class QSqlError;

/// Why the history cannot be used, from what SQLite says, and what to do about it. Always the set-up's business.
/// what: a whole sentence part, "the result cannot be stored". file: the history's.
Problem historyProblem(const QString& what, const QString& file, const QSqlError& error);

/// The file is left as it is, for that cause.
Problem historyRefusal(const QString& file, const QString& cause, const QString& mend);
QString damageMend(const QString& file);
