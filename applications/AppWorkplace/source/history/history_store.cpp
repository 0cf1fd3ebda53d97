#include "history_store.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cerrno>

#include <sys/stat.h>

#include "file_sync.h"
#include "history_problem.h"

namespace {

constexpr int c_mostKnown = 256;
const QByteArray c_fileStart = QByteArrayLiteral("SQLite format 3\0");

QString insertion()
{
    QStringList columns{QStringLiteral("kind"),          QStringLiteral("arrived_us"),
                        QStringLiteral("utc_offset_s"),  QStringLiteral("serial_id"),
                        QStringLiteral("origin"),        QStringLiteral("good"),
                        QStringLiteral("other_entries"), QStringLiteral("raw_line"),
                        QStringLiteral("preset"),        QStringLiteral("after_reconnection"),
                        QStringLiteral("counter"),       QStringLiteral("count_before"),
                        QStringLiteral("count_after"),   QStringLiteral("repeat_of")};
    for (const char* entry : HistoryRecord::c_entryNames) {
        columns.append(QLatin1String(entry));
    }
    QStringList places;
    for (int i = 0; i < columns.size(); ++i) {
        places.append(QStringLiteral("?"));
    }
    return QStringLiteral("INSERT INTO entries (%1) VALUES (%2)")
        .arg(columns.join(QStringLiteral(", ")), places.join(QStringLiteral(", ")));
}

QVariant null()
{
    return QVariant(QVariant::String);
}

/// Empty where there is none; SQLite takes a null text for no value.
QVariant textOf(const QString& text)
{
    return text.isNull() ? QVariant(QString(QLatin1String(""))) : QVariant(text);
}

/// A text without characters is a text, not an absent one.
QVariant entryValue(const QVariant& entry)
{
    if (!entry.isValid()) {
        return null();
    }
    return entry.type() == QVariant::String ? textOf(entry.toString()) : entry;
}

} // namespace

HistoryStore::HistoryStore(const QString& folder, int busyLimitMs) : m_file(fileIn(folder)), m_busyLimitMs(busyLimitMs)
{}

HistoryStore::~HistoryStore() = default;

QString HistoryStore::fileIn(const QString& folder)
{
    return QDir(folder).absoluteFilePath(QStringLiteral("history.sqlite"));
}

bool HistoryStore::exists() const
{
    struct stat found
    {
    };
    QString path = m_file;
    while (::lstat(QFile::encodeName(path).constData(), &found) != 0) {
        if (errno != ENOENT) {
            return true;
        }
        path = QFileInfo(path).path();
    }
    // A link to a folder that is not there now, of a disk that is not mounted say, is no folder without a history.
    return path == m_file || !QFileInfo(path).isDir();
}

std::optional<Problem> HistoryStore::openToWrite(const QVector<history_schema::Migration>& migrations)
{
    if (!QFileInfo::exists(m_file)) {
        if (std::optional<Problem> problem = create(migrations)) {
            return problem;
        }
    }
    const int newest = migrations.constLast().from + 1;
    int version = 0;
    {
        HistoryDatabase looked(m_file, HistoryDatabase::Access::Read, m_busyLimitMs);
        if (std::optional<Problem> problem = check(looked, newest, true, &version)) {
            return problem;
        }
    }
    m_database = std::make_unique<HistoryDatabase>(m_file, HistoryDatabase::Access::Write, m_busyLimitMs);
    const QString what = QCoreApplication::translate("History", "the history cannot be written");
    if (!m_database->open()) {
        return problem(what);
    }
    if (m_database->value(QStringLiteral("PRAGMA journal_mode = WAL")).toString() != QLatin1String("wal")) {
        return m_database->error().isValid()
                   ? problem(what)
                   : historyRefusal(
                         m_file, QCoreApplication::translate("History", "its disk has no shared memory"),
                         QCoreApplication::translate("History", "name a folder on a local disk with --data"));
    }
    if (version < newest && !m_database->runTogether(history_schema::statementsFrom(version, migrations))) {
        return problem(QCoreApplication::translate("History", "the history cannot be brought up to date"));
    }
    // Whoever may not write is told now, not at the first result.
    if (!m_database->tryToWrite()) {
        return problem(what);
    }
    m_insertion = std::make_unique<QSqlQuery>(m_database->prepared(insertion()));
    return std::nullopt;
}

std::optional<Problem> HistoryStore::openToRead()
{
    m_database = std::make_unique<HistoryDatabase>(m_file, HistoryDatabase::Access::Read, m_busyLimitMs);
    int version = 0;
    return check(*m_database, history_schema::c_version, false, &version);
}

// Beside its place, so that a file of that name is always whole.
std::optional<Problem> HistoryStore::create(const QVector<history_schema::Migration>& migrations)
{
    const QString what = QCoreApplication::translate("History", "the history cannot be begun");
    const QString folder = QFileInfo(m_file).absolutePath();
    const QString mend =
        QCoreApplication::translate("History", "make room and give this user the right to write in the folder %1, or "
                                               "name another folder with --data")
            .arg(folder);
    const auto refused = [&](const QString& cause) {
        return Problem{Problem::Kind::SetUp, QStringLiteral("history"), what, cause, mend};
    };
    if (!QDir().mkpath(folder)) {
        return refused(QCoreApplication::translate("History", "the folder %1 cannot be made").arg(folder));
    }
    QTemporaryFile place(m_file + QStringLiteral(".new-XXXXXX"));
    if (!place.open()) {
        return refused(place.errorString());
    }
    place.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    {
        HistoryDatabase made(place.fileName(), HistoryDatabase::Access::Write, m_busyLimitMs);
        const QStringList statements =
            QStringList{QStringLiteral("PRAGMA application_id = %1").arg(history_schema::c_applicationId)} +
            history_schema::statementsFrom(0, migrations);
        if (!made.open() || !made.run(QStringLiteral("PRAGMA journal_mode = WAL")) || !made.runTogether(statements)) {
            return historyProblem(what, m_file, made.error());
        }
    }
    QString cause;
    if (!syncFile(place.handle(), &cause)) {
        return refused(cause);
    }
    if (!linkFile(place.fileName(), m_file, &cause)) {   // never over a file that is there
        const bool isFaster = QFileInfo::exists(m_file); // another session
        return isFaster ? std::nullopt : std::optional<Problem>(refused(cause));
    }
    if (!syncFolder(folder, &cause) || !syncFolder(QFileInfo(folder).absolutePath(), &cause)) {
        return refused(cause);
    }
    return std::nullopt;
}

std::optional<Problem> HistoryStore::check(HistoryDatabase& database, int newest, bool isThorough, int* version) const
{
    // By the bytes first: SQLite takes an empty file for a new one.
    QFile input(m_file);
    if (!input.open(QIODevice::ReadOnly)) {
        return Problem{Problem::Kind::SetUp, QStringLiteral("history"),
                       QCoreApplication::translate("History", "the history %1 cannot be read").arg(m_file),
                       input.errorString(),
                       QCoreApplication::translate("History", "check the file, its folder and the rights of both, or "
                                                              "name another folder with --data")};
    }
    if (input.read(c_fileStart.size()) != c_fileStart) {
        return historyRefusal(m_file, QCoreApplication::translate("History", "its beginning is damaged"),
                              damageMend(m_file));
    }
    input.close();
    const QString what = QCoreApplication::translate("History", "the history cannot be read");
    if (!database.open()) {
        return historyProblem(what, m_file, database.error());
    }
    const QVariant application = database.value(QStringLiteral("PRAGMA application_id"));
    const QVariant found = database.value(QStringLiteral("PRAGMA user_version"));
    if (!application.isValid() || !found.isValid()) {
        return historyProblem(what, m_file, database.error());
    }
    if (application.toInt() != history_schema::c_applicationId || found.toInt() < 1) {
        return historyRefusal(m_file, QCoreApplication::translate("History", "another program has made it"),
                              QCoreApplication::translate("History", "name another folder with --data"));
    }
    if (found.toInt() > newest) {
        return historyRefusal(
            m_file,
            QCoreApplication::translate("History", "a newer program has written it (version %1; this one knows %2)")
                .arg(found.toInt())
                .arg(newest),
            QCoreApplication::translate("History", "use the newer program, or name another folder with --data"));
    }
    if (!isThorough && found.toInt() < newest) {
        return historyRefusal(
            m_file,
            QCoreApplication::translate("History", "an older program has written it (version %1)").arg(found.toInt()),
            QCoreApplication::translate("History", "begin a session once; it brings the file up to date"));
    }
    *version = found.toInt();
    if (isThorough) {
        const QVariant verdict = database.value(QStringLiteral("PRAGMA quick_check(1)"));
        if (!verdict.isValid()) {
            return historyProblem(what, m_file, database.error());
        }
        if (verdict.toString() != QLatin1String("ok")) {
            return historyRefusal(m_file,
                                  QCoreApplication::translate("History", "it is damaged: %1").arg(verdict.toString()),
                                  damageMend(m_file));
        }
    }
    return std::nullopt;
}

std::optional<Problem> HistoryStore::append(QVector<HistoryRecord>& records)
{
    const QString what = QCoreApplication::translate("History", "the result cannot be stored");
    bool isStored = m_database->run(QStringLiteral("BEGIN IMMEDIATE"));
    std::optional<Problem> failure;
    for (HistoryRecord& record : records) {
        isStored = isStored && appendRecord(record);
    }
    isStored = isStored && m_database->run(QStringLiteral("COMMIT"));
    if (isStored) {
        return std::nullopt;
    }
    failure = problem(what);
    m_database->run(QStringLiteral("ROLLBACK"));
    m_presets.clear(); // what was added there is gone, too
    m_origins.clear();
    for (HistoryRecord& record : records) {
        record.id = 0;
    }
    return failure;
}

bool HistoryStore::appendRecord(HistoryRecord& record)
{
    const std::optional<qint64> origin =
        idOf(m_origins, {record.device, record.plugin},
             QStringLiteral("INSERT OR IGNORE INTO origins (device, plugin) VALUES (?, ?)"),
             QStringLiteral("SELECT id FROM origins WHERE device = ? AND plugin = ?"));
    std::optional<qint64> preset;
    if (!record.preset.isEmpty()) {
        preset = idOf(m_presets, {record.preset}, QStringLiteral("INSERT OR IGNORE INTO presets (preset) VALUES (?)"),
                      QStringLiteral("SELECT id FROM presets WHERE preset = ?"));
    }
    if (!origin || (!record.preset.isEmpty() && !preset)) {
        return false;
    }
    if (record.kind == HistoryRecord::Kind::Repeat && !findRepeated(record)) {
        return false;
    }
    const bool isResult = record.kind == HistoryRecord::Kind::Result;
    const bool isGap = record.kind == HistoryRecord::Kind::Gap;
    const bool isRepeat = record.kind == HistoryRecord::Kind::Repeat;
    QSqlQuery& query = *m_insertion;
    int place = 0;
    const auto bind = [&](const QVariant& value) { query.bindValue(place++, value); };
    bind(int(record.kind));
    bind(record.arrivedUs);
    bind(record.utcOffsetS);
    bind(textOf(record.serialId));
    bind(*origin);
    bind(isResult ? QVariant(int(record.isGood)) : null());
    bind(record.otherEntries.isEmpty() ? null() : QVariant(record.otherEntries));
    bind(record.rawLine.isEmpty() ? null() : QVariant(record.rawLine));
    bind(preset ? QVariant(*preset) : null());
    bind(int(record.isAfterReconnection));
    bind(isGap ? QVariant(record.counter) : null());
    bind(isGap ? QVariant(record.countBefore) : null());
    bind(isGap ? QVariant(record.countAfter) : null());
    bind(isRepeat ? QVariant(record.repeatOf) : null());
    for (std::size_t i = 0; i < record.entries.size(); ++i) {
        const bool isStored = isResult || (isRepeat && i == HistoryRecord::EventCountNo);
        bind(isStored ? entryValue(record.entries.at(i)) : null());
    }
    if (!m_database->run(query)) {
        return false;
    }
    record.id = query.lastInsertId().toLongLong();
    query.finish();
    return true;
}

// The latest, and so one of the last entries.
bool HistoryStore::findRepeated(HistoryRecord& record)
{
    QString statement = QStringLiteral("SELECT id FROM entries WHERE kind = 0 AND +serial_id = ?");
    for (int i = 0; i < HistoryRecord::EventCountNo; ++i) {
        statement += QStringLiteral(" AND %1 IS ?").arg(QLatin1String(HistoryRecord::c_entryNames.at(std::size_t(i))));
    }
    QSqlQuery query = m_database->prepared(statement + QStringLiteral(" ORDER BY id DESC LIMIT 1"));
    query.addBindValue(textOf(record.serialId));
    for (int i = 0; i < HistoryRecord::EventCountNo; ++i) {
        query.addBindValue(entryValue(record.entries.at(std::size_t(i))));
    }
    if (!m_database->run(query)) {
        return false;
    }
    record.repeatOf = query.next() ? query.value(0).toLongLong() : 0;
    return true;
}

std::optional<qint64> HistoryStore::idOf(QHash<QString, qint64>& known, const QStringList& key, const QString& addition,
                                         const QString& question)
{
    const QString joined = key.join(QLatin1Char('\n'));
    const auto found = known.constFind(joined);
    if (found != known.constEnd()) {
        return *found;
    }
    QSqlQuery add = m_database->prepared(addition);
    QSqlQuery ask = m_database->prepared(question);
    for (const QString& value : key) {
        add.addBindValue(textOf(value));
        ask.addBindValue(textOf(value));
    }
    if (!m_database->run(add) || !m_database->run(ask) || !ask.next()) {
        return std::nullopt;
    }
    if (known.size() == c_mostKnown) {
        known.clear();
    }
    const qint64 id = ask.value(0).toLongLong();
    known.insert(joined, id);
    return id;
}

QString HistoryStore::lastReadingNumber(const QString& serialId, std::optional<Problem>* failure)
{
    const auto lastOf = [](int good) {
        return QStringLiteral("SELECT * FROM (SELECT arrived_us, id, readingNumber FROM entries "
                              "WHERE serial_id = :serial AND good = %1 "
                              "AND origin NOT IN (SELECT id FROM origins WHERE device = 'simulated') "
                              "ORDER BY arrived_us DESC, id DESC LIMIT 1)")
            .arg(good);
    };
    QSqlQuery query = m_database->prepared(QStringLiteral("SELECT readingNumber FROM (%1 UNION ALL %2) "
                                                          "ORDER BY arrived_us DESC, id DESC LIMIT 1")
                                               .arg(lastOf(0), lastOf(1)));
    query.bindValue(QStringLiteral(":serial"), textOf(serialId));
    if (!m_database->run(query)) {
        *failure = problem(QCoreApplication::translate("History", "the history cannot be read"));
        return {};
    }
    return query.next() ? query.value(0).toString() : QString();
}

Problem HistoryStore::problem(const QString& what) const
{
    return historyProblem(what, m_file, m_database->error());
}
