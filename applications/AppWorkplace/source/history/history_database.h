#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QVariant>

/// One connection to the history's file. Queries made on it go before it does.
class HistoryDatabase
{
public:
    enum class Access {
        Read, ///< the file is left as it is, whatever is found in it
        Write ///< every commit is on the disk before it returns
    };

    /// Waiting for a lock of somebody else blocks the caller, at most for busyLimitMs.
    HistoryDatabase(const QString& file, Access access, int busyLimitMs);
    ~HistoryDatabase();

    /// False: error() says why.
    bool open();
    bool run(const QString& statement);
    bool run(QSqlQuery& query);
    /// Takes the lock that writing needs, and writes nothing that lasts.
    bool tryToWrite();
    /// All of them or none.
    bool runTogether(const QStringList& statements);
    /// The first value that the statement yields; invalid: none, or error() says why.
    QVariant value(const QString& statement);

    /// A prepared query that reads forwards only; inactive when the statement is wrong.
    QSqlQuery prepared(const QString& statement);

    const QSqlError& error() const { return m_error; }
    const QString& file() const { return m_file; }

private:
    Q_DISABLE_COPY(HistoryDatabase)

    const QString m_file;
    const Access m_access;
    const QString m_name;
    QSqlDatabase m_database;
    QSqlError m_error;
};
