#include "history_database.h"

#include <QCoreApplication>
#include <QUuid>

HistoryDatabase::HistoryDatabase(const QString& file, Access access, int busyLimitMs)
    : m_file(file)
    , m_access(access)
    , m_name(QUuid::createUuid().toString())
    , m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name))
{
    QString options = QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(busyLimitMs);
    if (access == Access::Read) {
        options += QStringLiteral(";QSQLITE_OPEN_READONLY");
    }
    m_database.setConnectOptions(options);
    m_database.setDatabaseName(file);
}

HistoryDatabase::~HistoryDatabase()
{
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

bool HistoryDatabase::open()
{
    if (!m_database.isValid()) {
        m_error = QSqlError(QCoreApplication::translate("History", "Qt's driver for SQLite is not installed (Debian: "
                                                                   "libqt5sql5-sqlite)"));
        return false;
    }
    if (!m_database.open()) {
        m_error = m_database.lastError();
        return false;
    }
    return m_access == Access::Read ||
           (run(QStringLiteral("PRAGMA synchronous = FULL")) && run(QStringLiteral("PRAGMA foreign_keys = ON")));
}

bool HistoryDatabase::run(const QString& statement)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (query.exec(statement)) {
        return true;
    }
    m_error = query.lastError();
    return false;
}

bool HistoryDatabase::run(QSqlQuery& query)
{
    if (query.exec()) {
        return true;
    }
    // A statement that could not be prepared has said so already.
    m_error = query.lastError().isValid() ? query.lastError() : m_error;
    return false;
}

// SQLite begins to read where it may not write, without a word.
bool HistoryDatabase::tryToWrite()
{
    if (!run(QStringLiteral("BEGIN IMMEDIATE"))) {
        return false;
    }
    const QString version = value(QStringLiteral("PRAGMA user_version")).toString();
    const bool isWritten = run(QStringLiteral("PRAGMA user_version = ") + version);
    const QSqlError error = m_error;
    run(QStringLiteral("ROLLBACK"));
    m_error = error;
    return isWritten;
}

bool HistoryDatabase::runTogether(const QStringList& statements)
{
    if (!run(QStringLiteral("BEGIN IMMEDIATE"))) {
        return false;
    }
    for (const QString& statement : statements) {
        if (!run(statement)) {
            const QSqlError error = m_error;
            run(QStringLiteral("ROLLBACK"));
            m_error = error;
            return false;
        }
    }
    if (run(QStringLiteral("COMMIT"))) {
        return true;
    }
    const QSqlError error = m_error;
    run(QStringLiteral("ROLLBACK"));
    m_error = error;
    return false;
}

QVariant HistoryDatabase::value(const QString& statement)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    m_error = {};
    if (query.exec(statement) && query.next()) {
        return query.value(0);
    }
    m_error = query.lastError();
    return {};
}

QSqlQuery HistoryDatabase::prepared(const QString& statement)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!query.prepare(statement)) {
        m_error = query.lastError();
    }
    return query;
}
