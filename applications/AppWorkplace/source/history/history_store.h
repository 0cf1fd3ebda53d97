#pragma once

#include <QHash>
#include <QString>
#include <QVector>

#include <memory>
#include <optional>

#include "../services/problem.h"
#include "history_database.h"
#include "history_record.h"
#include "history_schema.h"

/// The history in its file, "history.sqlite" of the data folder. What append() has taken survives the end of the
/// program and of the power. A file that is damaged, of another program or of a newer version is left as it is.
class HistoryStore
{
public:
    static constexpr int c_busyLimitMs = 2000;

    explicit HistoryStore(const QString& folder, int busyLimitMs = c_busyLimitMs);
    ~HistoryStore();

    static QString fileIn(const QString& folder);
    const QString& file() const { return m_file; }
    /// False: there is none. What may not be looked at counts as there; openToRead() says why it cannot be read.
    bool exists() const;

    /// For a session: makes the folder and the file where there are none, checks what is there, and brings an older
    /// layout up to date. With the problem the file is as it was.
    std::optional<Problem>
    openToWrite(const QVector<history_schema::Migration>& migrations = history_schema::migrations());
    /// For whoever looks at it: the file has to be there. Its pages are not checked; damage shows when it is read.
    std::optional<Problem> openToRead();

    /// Stores all of them or, with the problem, none, and gives them their ids. When it returns they are on the disk.
    std::optional<Problem> append(QVector<HistoryRecord>& records);

    /// The number of the last reading of that wrench on a real line, as it was received; null: none is stored.
    QString lastReadingNumber(const QString& serialId, std::optional<Problem>* failure);

    /// Open, after openToWrite() or openToRead().
    HistoryDatabase& database() { return *m_database; }

private:
    Q_DISABLE_COPY(HistoryStore)

    std::optional<Problem> create(const QVector<history_schema::Migration>& migrations);
    /// The version of the file that is there.
    std::optional<Problem> check(HistoryDatabase& database, int newest, bool isThorough, int* version) const;
    bool appendRecord(HistoryRecord& record);
    /// Looks for the result that a repeat repeats.
    bool findRepeated(HistoryRecord& record);
    /// The id of a text, or texts, that many entries share; none: the database's error says why.
    std::optional<qint64> idOf(QHash<QString, qint64>& known, const QStringList& key, const QString& addition,
                               const QString& question);
    Problem problem(const QString& what) const;

    const QString m_file;
    const int m_busyLimitMs;
    std::unique_ptr<HistoryDatabase> m_database;
    std::unique_ptr<QSqlQuery> m_insertion;
    QHash<QString, qint64> m_presets; // ids by their texts, some of them
    QHash<QString, qint64> m_origins;
};
