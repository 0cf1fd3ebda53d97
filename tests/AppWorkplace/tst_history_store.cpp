#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QVariant>
#include <QVector>

#include <csignal>
#include <cstring>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "history_fixture.h"

namespace {

/// Acts as a user without special rights for as long as it lives; root is stopped by no permission.
class OrdinaryUser
{
public:
    OrdinaryUser() { m_isRoot = ::geteuid() == 0 && ::seteuid(c_nobody) == 0; }
    ~OrdinaryUser()
    {
        if (m_isRoot && ::seteuid(0) != 0) {
            qFatal("the rights of root do not come back");
        }
    }

private:
    Q_DISABLE_COPY(OrdinaryUser)
    static constexpr uid_t c_nobody = 65534;
    bool m_isRoot = false;
};

QVector<history_schema::Migration> withAFutureStep()
{
    QVector<history_schema::Migration> migrations = history_schema::migrations();
    migrations.append({history_schema::c_version, {QStringLiteral("ALTER TABLE entries ADD COLUMN colour TEXT")}});
    return migrations;
}

QString whatOf(const std::optional<Problem>& problem)
{
    return problem ? problem->what + QStringLiteral(": ") + problem->cause : QString();
}

} // namespace

class TestHistoryStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void makesTheFolderAndTheFile();
    void saysWhatKeepsItFromLooking_data();
    void saysWhatKeepsItFromLooking();
    void storesARecordAsItIs();
    void tellsTextsIntegersAndAbsentEntriesApart();
    void keepsRawLinesByteForByte();
    void keepsEntriesOfTwoSessions();
    void numbersEntriesInTheOrderOfStoring();
    void storesAllOrNone();
    void findsTheResultThatARepeatRepeats();
    void syncsEveryCommit();

    void refusesADamagedFile_data();
    void refusesADamagedFile();
    void refusesAFileOfAnotherProgram();
    void refusesANewerFile();
    void bringsAnOlderFileUpToDate();
    void leavesAnOlderFileWhenAStepFails();
    void readsNoFileWithoutAVersion();
    void hasAStepFromEveryVersion();

    void refusesALockedFile();
    void saysThatStoringIsLocked();
    void refusesAReadOnlyFolder();
    void refusesAFileThatMayOnlyBeRead();
    void refusesAFolderThatCannotBeMade();
    void saysThatTheDiskIsFull();
    void storesAgainWhenThereIsRoom();
    void saysThatTheDiskRefuses();
    void twoSessionsStoreSideBySide();

    void knowsTheLastReadingOfTheWrench();
    void knowsNoReadingOfASimulatedWrench();
};

void TestHistoryStore::makesTheFolderAndTheFile()
{
    const QTemporaryDir folder;
    HistoryStore store(folder.filePath(QStringLiteral("a/b")));
    QVERIFY(!store.exists());
    QCOMPARE(whatOf(store.openToWrite()), QString());
    QVERIFY(store.exists());
    QCOMPARE(QDir(folder.filePath(QStringLiteral("a/b"))).entryList({QStringLiteral("*.new-*")}, QDir::Files),
             QStringList());
}

void TestHistoryStore::saysWhatKeepsItFromLooking_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("link");
    QTest::addColumn<QString>("cause");
    QTest::newRow("a file instead of the folder") << "file"
                                                  << ""
                                                  << "Not a directory";
    QTest::newRow("a link to no file") << "folder"
                                       << "folder/history.sqlite"
                                       << "No such file or directory";
    QTest::newRow("a link to no folder") << "gone/data"
                                         << "gone"
                                         << "No such file or directory";
    QTest::newRow("no right to look") << "closed"
                                      << ""
                                      << "Permission denied";
}

void TestHistoryStore::saysWhatKeepsItFromLooking()
{
    QFETCH(QString, folder);
    QFETCH(QString, link);
    QFETCH(QString, cause);
    const QTemporaryDir place;
    QFile file(place.filePath(QStringLiteral("file")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(QDir(place.path()).mkdir(QStringLiteral("folder")));
    QVERIFY(QDir(place.path()).mkdir(QStringLiteral("closed")));
    QVERIFY(QFile::setPermissions(place.filePath(QStringLiteral("closed")), QFile::Permissions()));
    QVERIFY(link.isEmpty() || QFile::link(place.filePath(QStringLiteral("nowhere")), place.filePath(link)));
    HistoryStore store(place.filePath(folder));
    std::optional<OrdinaryUser> user;
    if (folder == QLatin1String("closed")) {
        user.emplace();
    }
    QVERIFY(store.exists());
    const std::optional<Problem> problem = store.openToRead();
    QVERIFY(problem);
    QCOMPARE(problem->kind, Problem::Kind::SetUp);
    QCOMPARE(problem->cause, cause);
}

void TestHistoryStore::storesARecordAsItIs()
{
    const HistoryFixture history;
    HistoryRecord stored = HistoryFixture::result(7, 100, false);
    stored.utcOffsetS = 3600;
    stored.isAfterReconnection = true;
    stored.otherEntries = QStringLiteral("{\"colour\":\"red\"}");
    QVERIFY(history.fill({stored}));

    HistoryStore store(history.folder());
    QVector<HistoryRecord> records;
    QCOMPARE(whatOf(store.openToRead()), QString());
    QCOMPARE(whatOf(HistoryQuery(store.database(), {}).page({}, 10, &records)), QString());
    QCOMPARE(records.size(), 1);
    const HistoryRecord& read = records.constFirst();
    QCOMPARE(read.id, 1);
    QCOMPARE(read.kind, stored.kind);
    QCOMPARE(read.arrivedUs, stored.arrivedUs);
    QCOMPARE(read.utcOffsetS, stored.utcOffsetS);
    QCOMPARE(read.serialId, stored.serialId);
    QCOMPARE(read.device, stored.device);
    QCOMPARE(read.plugin, stored.plugin);
    QCOMPARE(read.eventData(), stored.eventData());
    QCOMPARE(read.otherEntries, stored.otherEntries);
    QCOMPARE(read.isGood, false);
    QCOMPARE(read.preset, stored.preset);
    QCOMPARE(read.isAfterReconnection, true);
}

void TestHistoryStore::tellsTextsIntegersAndAbsentEntriesApart()
{
    const HistoryFixture history;
    HistoryRecord stored = HistoryFixture::result(1);
    stored.entries = {QStringLiteral(" 012.50 "),
                      QString(QLatin1String("")),
                      QVariant(QString()), // a text, though Qt calls it null
                      QVariant(),
                      QString::fromUtf8("\xc3\xa9\xf0\x9f\x94\xa7"),
                      QString(QChar(u'\0')) + QStringLiteral("7"),
                      QStringLiteral("12e3"),
                      17,
                      Q_INT64_C(9007199254740993)};
    QVERIFY(history.fill({stored}));
    HistoryStore store(history.folder());
    QVector<HistoryRecord> records;
    QCOMPARE(whatOf(store.openToRead()), QString());
    QCOMPARE(whatOf(HistoryQuery(store.database(), {}).page({}, 10, &records)), QString());
    const auto& read = records.constFirst().entries;
    for (const std::size_t i : {0U, 1U, 2U, 4U, 5U, 6U}) {
        QCOMPARE(int(read.at(i).type()), int(QVariant::String));
        QCOMPARE(read.at(i).toString(), stored.entries.at(i).toString());
    }
    QVERIFY(!read.at(3).isValid());
    for (const std::size_t i : {7U, 8U}) {
        QCOMPARE(int(read.at(i).type()), int(QVariant::LongLong));
        QCOMPARE(read.at(i).toLongLong(), stored.entries.at(i).toLongLong());
    }
}

void TestHistoryStore::keepsRawLinesByteForByte()
{
    const HistoryFixture history;
    HistoryRecord stored = HistoryFixture::result(1);
    stored.rawLine = QByteArray("RE:F:\xff\x00\x80,\"", 10);
    QVERIFY(history.fill({stored}));
    HistoryStore store(history.folder());
    QVector<HistoryRecord> records;
    QVERIFY(!store.openToRead());
    QVERIFY(!HistoryQuery(store.database(), {}).page({}, 10, &records));
    QCOMPARE(records.constFirst().rawLine, stored.rawLine);
}

void TestHistoryStore::keepsEntriesOfTwoSessions()
{
    const HistoryFixture history;
    QVERIFY(history.fill({HistoryFixture::result(1, 1)}));
    QVERIFY(history.fill({HistoryFixture::result(2, 2)}));
    QCOMPARE(history.readings(), (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
}

void TestHistoryStore::numbersEntriesInTheOrderOfStoring()
{
    const HistoryFixture history;
    HistoryStore store(history.folder());
    QVERIFY(!store.openToWrite());
    QVector<HistoryRecord> records{HistoryFixture::result(1, 5), HistoryFixture::result(2, 4)};
    QVERIFY(!store.append(records));
    QCOMPARE(records.at(0).id, 1);
    QCOMPARE(records.at(1).id, 2);
}

void TestHistoryStore::storesAllOrNone()
{
    const HistoryFixture history;
    HistoryStore store(history.folder());
    QVERIFY(!store.openToWrite());
    HistoryRecord wrong = HistoryFixture::result(2);
    wrong.kind = HistoryRecord::Kind(7);
    QVector<HistoryRecord> records{HistoryFixture::result(1), wrong};
    QVERIFY(store.append(records));
    QCOMPARE(records.at(0).id, 0);
    QCOMPARE(history.readings(), QStringList());
    records = {HistoryFixture::result(3)};
    QCOMPARE(whatOf(store.append(records)), QString());
    QCOMPARE(history.readings(), QStringList{QStringLiteral("3")});
}

void TestHistoryStore::findsTheResultThatARepeatRepeats()
{
    const HistoryFixture history;
    HistoryStore store(history.folder());
    QVERIFY(!store.openToWrite());
    HistoryRecord other = HistoryFixture::result(1, 2, true, 2, QStringLiteral("9"));
    HistoryRecord repeat = HistoryFixture::result(1, 3);
    repeat.kind = HistoryRecord::Kind::Repeat;
    QVector<HistoryRecord> records{HistoryFixture::result(1, 1), other, HistoryFixture::result(2, 2), repeat};
    QCOMPARE(whatOf(store.append(records)), QString());
    QCOMPARE(records.constLast().repeatOf, 1);
}

void TestHistoryStore::syncsEveryCommit()
{
    const HistoryFixture history;
    HistoryStore store(history.folder());
    QVERIFY(!store.openToWrite());
    QCOMPARE(store.database().value(QStringLiteral("PRAGMA synchronous")).toInt(), 2); // FULL
    QCOMPARE(store.database().value(QStringLiteral("PRAGMA journal_mode")).toString(), QStringLiteral("wal"));
}

void TestHistoryStore::refusesADamagedFile_data()
{
    QTest::addColumn<int>("offset"); // of the damage; -1: the file is cut there
    QTest::addColumn<int>("size");
    QTest::newRow("empty") << -1 << 0;
    QTest::newRow("cut in the header") << -1 << 50;
    QTest::newRow("cut in the middle") << -1 << 20000;
    QTest::newRow("first bytes") << 0 << 16;
    QTest::newRow("header") << 16 << 80;
    QTest::newRow("a page of a table or an index") << 4096 << 4096;
}

void TestHistoryStore::refusesADamagedFile()
{
    QFETCH(int, offset);
    QFETCH(int, size);
    const HistoryFixture history;
    QVector<HistoryRecord> many;
    for (int i = 0; i < 200; ++i) {
        many.append(HistoryFixture::result(i, i));
    }
    QVERIFY(history.fill(many));
    QByteArray bytes = history.bytes();
    if (offset < 0) {
        bytes.truncate(size);
    } else {
        bytes.replace(offset, size, QByteArray(size, '\x5a'));
    }
    QVERIFY(history.put(bytes));

    HistoryStore store(history.folder());
    const std::optional<Problem> problem = store.openToWrite();
    QVERIFY(problem);
    QCOMPARE(problem->kind, Problem::Kind::SetUp);
    QVERIFY2(problem->what.contains(history.file()), qPrintable(problem->what));
    QVERIFY2(problem->what.contains(QLatin1String("left as it is")) ||
                 problem->what.contains(QLatin1String("was left as it is")),
             qPrintable(problem->what));
    QVERIFY(!problem->mend.isEmpty());
    QCOMPARE(history.bytes(), bytes);
}

void TestHistoryStore::refusesAFileOfAnotherProgram()
{
    const HistoryFixture history;
    {
        HistoryDatabase other(history.file(), HistoryDatabase::Access::Write, 0);
        QVERIFY(other.open() && other.run(QStringLiteral("CREATE TABLE cats (name)")));
    }
    const QByteArray bytes = history.bytes();
    HistoryStore store(history.folder());
    QVERIFY2(whatOf(store.openToWrite()).contains(QLatin1String("another program")), "not refused");
    QCOMPARE(history.bytes(), bytes);
}

void TestHistoryStore::refusesANewerFile()
{
    const HistoryFixture history;
    {
        HistoryStore newer(history.folder());
        QCOMPARE(whatOf(newer.openToWrite(withAFutureStep())), QString());
    }
    const QByteArray bytes = history.bytes();
    for (const bool isReading : {false, true}) {
        HistoryStore store(history.folder());
        const std::optional<Problem> problem = isReading ? store.openToRead() : store.openToWrite();
        QVERIFY2(whatOf(problem).contains(QLatin1String("newer program")), qPrintable(whatOf(problem)));
    }
    QCOMPARE(history.bytes(), bytes);
}

void TestHistoryStore::bringsAnOlderFileUpToDate()
{
    const HistoryFixture history;
    QVERIFY(history.fill({HistoryFixture::result(1)}));
    HistoryStore store(history.folder());
    QCOMPARE(whatOf(store.openToWrite(withAFutureStep())), QString());
    QCOMPARE(store.database().value(QStringLiteral("PRAGMA user_version")).toInt(), history_schema::c_version + 1);
    QCOMPARE(store.database().value(QStringLiteral("SELECT COUNT(*) FROM entries WHERE colour IS NULL")).toInt(), 1);
}

void TestHistoryStore::leavesAnOlderFileWhenAStepFails()
{
    const HistoryFixture history;
    QVERIFY(history.fill({HistoryFixture::result(1)}));
    QVector<history_schema::Migration> migrations = withAFutureStep();
    migrations.last().statements.append(QStringLiteral("ALTER TABLE nothing ADD COLUMN colour"));
    {
        HistoryStore store(history.folder());
        QVERIFY2(whatOf(store.openToWrite(migrations)).contains(QLatin1String("up to date")), "not refused");
    }
    HistoryStore store(history.folder());
    QCOMPARE(whatOf(store.openToWrite()), QString());
    QCOMPARE(history.readings(), QStringList{QStringLiteral("1")});
}

void TestHistoryStore::readsNoFileWithoutAVersion()
{
    const HistoryFixture history;
    QVERIFY(history.fill({HistoryFixture::result(1)}));
    {
        HistoryDatabase older(history.file(), HistoryDatabase::Access::Write, 0);
        QVERIFY(older.open() && older.run(QStringLiteral("PRAGMA user_version = 0")));
    }
    HistoryStore store(history.folder());
    QVERIFY(store.openToRead());
}

void TestHistoryStore::hasAStepFromEveryVersion()
{
    QVector<int> steps;
    const QVector<history_schema::Migration> migrations = history_schema::migrations();
    for (const history_schema::Migration& migration : migrations) {
        QCOMPARE(migration.from, steps.size());
        QVERIFY(!migration.statements.isEmpty());
        steps.append(migration.from);
    }
    QCOMPARE(steps.size(), history_schema::c_version);
}

void TestHistoryStore::refusesALockedFile()
{
    const HistoryFixture history;
    QVERIFY(history.fill({HistoryFixture::result(1)}));
    HistoryDatabase other(history.file(), HistoryDatabase::Access::Write, 0);
    QVERIFY(other.open() && other.run(QStringLiteral("BEGIN IMMEDIATE")));
    HistoryStore store(history.folder(), 20);
    const std::optional<Problem> problem = store.openToWrite();
    QVERIFY2(whatOf(problem).contains(QLatin1String("another program keeps")), qPrintable(whatOf(problem)));
}

void TestHistoryStore::saysThatStoringIsLocked()
{
    const HistoryFixture history;
    HistoryStore store(history.folder(), 20);
    QVERIFY(!store.openToWrite());
    HistoryDatabase other(history.file(), HistoryDatabase::Access::Write, 0);
    QVERIFY(other.open() && other.run(QStringLiteral("BEGIN IMMEDIATE")));
    QVector<HistoryRecord> records{HistoryFixture::result(1)};
    const std::optional<Problem> problem = store.append(records);
    QVERIFY2(whatOf(problem).contains(QLatin1String("another program keeps")), qPrintable(whatOf(problem)));
    QCOMPARE(history.readings(), QStringList());
}

void TestHistoryStore::refusesAReadOnlyFolder()
{
    const HistoryFixture history;
    QVERIFY(history.fill({HistoryFixture::result(1)}));
    QFile::remove(history.file() + QStringLiteral("-shm"));
    QFile::remove(history.file() + QStringLiteral("-wal"));
    ::chmod(QFile::encodeName(history.folder()).constData(), 0555);
    ::chmod(QFile::encodeName(history.file()).constData(), 0444);
    std::optional<Problem> problem;
    std::optional<Problem> beginning;
    {
        const OrdinaryUser user;
        HistoryStore store(history.folder());
        problem = store.openToWrite();
        HistoryStore fresh(history.folder() + QStringLiteral("/new"));
        beginning = fresh.openToWrite();
    }
    ::chmod(QFile::encodeName(history.folder()).constData(), 0755);
    QVERIFY2(problem && problem->mend.contains(QLatin1String("right to write")), qPrintable(whatOf(problem)));
    QVERIFY2(beginning && beginning->mend.contains(QLatin1String("right to write")), qPrintable(whatOf(beginning)));
}

// With the files that a reader needs beside it SQLite opens it all the same, for reading.
void TestHistoryStore::refusesAFileThatMayOnlyBeRead()
{
    const HistoryFixture history;
    QVERIFY(history.fill({HistoryFixture::result(1)}));
    HistoryStore reader(history.folder());
    QVERIFY(!reader.openToRead());
    ::chmod(QFile::encodeName(history.folder()).constData(), 0755);
    for (const char* end : {"", "-wal", "-shm"}) {
        const QString file = history.file() + QLatin1String(end);
        QVERIFY2(QFile::exists(file), qPrintable(file));
        ::chmod(QFile::encodeName(file).constData(), 0444);
    }
    std::optional<Problem> problem;
    {
        const OrdinaryUser user;
        HistoryStore store(history.folder());
        problem = store.openToWrite();
    }
    QVERIFY2(problem && problem->mend.contains(QLatin1String("right to write")), qPrintable(whatOf(problem)));
}

// A file in the place of the folder.
void TestHistoryStore::refusesAFolderThatCannotBeMade()
{
    const HistoryFixture history;
    QVERIFY(history.put("in the way"));
    HistoryStore store(history.file());
    QVERIFY2(whatOf(store.openToWrite()).contains(QLatin1String("cannot be made")), "not refused");
}

void TestHistoryStore::saysThatTheDiskIsFull()
{
    const HistoryFixture history;
    HistoryStore store(history.folder());
    QVERIFY(!store.openToWrite());
    // SQLite's own limit gives what a disk without room gives.
    const int pages = store.database().value(QStringLiteral("PRAGMA page_count")).toInt();
    QVERIFY(store.database().run(QStringLiteral("PRAGMA max_page_count = %1").arg(pages)));
    std::optional<Problem> problem;
    int stored = 0;
    for (; !problem && stored < 10000; ++stored) {
        QVector<HistoryRecord> records{HistoryFixture::result(stored, stored)};
        problem = store.append(records);
    }
    QVERIFY2(whatOf(problem).contains(QLatin1String("no room")), qPrintable(whatOf(problem)));
    QCOMPARE(history.readings().size(), stored - 1);
}

void TestHistoryStore::storesAgainWhenThereIsRoom()
{
    const HistoryFixture history;
    HistoryStore store(history.folder());
    QVERIFY(!store.openToWrite());
    const int pages = store.database().value(QStringLiteral("PRAGMA page_count")).toInt();
    QVERIFY(store.database().run(QStringLiteral("PRAGMA max_page_count = %1").arg(pages)));
    HistoryRecord record = HistoryFixture::result(1);
    record.preset = QString(100000, QLatin1Char('x')); // new with it, and gone with it
    QVector<HistoryRecord> records{record};
    QVERIFY(store.append(records));
    QVERIFY(store.database().run(QStringLiteral("PRAGMA max_page_count = 100000")));
    QCOMPARE(whatOf(store.append(records)), QString());
    QCOMPARE(store.database().value(QStringLiteral("SELECT COUNT(*) FROM presets")).toInt(), 1);
}

// The kernel refuses to let the file grow.
void TestHistoryStore::saysThatTheDiskRefuses()
{
    const HistoryFixture history;
    HistoryStore store(history.folder());
    QVERIFY(!store.openToWrite());
    QVector<HistoryRecord> records{HistoryFixture::result(1)};
    QVERIFY(!store.append(records));
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    ::getrlimit(RLIMIT_FSIZE, &old);
    rlimit limit = old;
    limit.rlim_cur = rlim_t(QFileInfo(history.file() + QStringLiteral("-wal")).size());
    ::setrlimit(RLIMIT_FSIZE, &limit);
    const std::optional<Problem> problem = store.append(records);
    ::setrlimit(RLIMIT_FSIZE, &old);
    QVERIFY2(whatOf(problem).contains(QLatin1String("the disk refuses")), qPrintable(whatOf(problem)));
    QCOMPARE(history.readings(), QStringList{QStringLiteral("1")});
}

void TestHistoryStore::twoSessionsStoreSideBySide()
{
    const HistoryFixture history;
    HistoryStore one(history.folder());
    HistoryStore two(history.folder());
    QVERIFY(!one.openToWrite());
    QVERIFY(!two.openToWrite());
    for (int i = 0; i < 10; ++i) {
        QVector<HistoryRecord> records{HistoryFixture::result(i, i)};
        QCOMPARE(whatOf((i % 2 == 0 ? one : two).append(records)), QString());
    }
    QCOMPARE(history.readings().size(), 10);
}

void TestHistoryStore::knowsTheLastReadingOfTheWrench()
{
    const HistoryFixture history;
    HistoryStore store(history.folder());
    QVERIFY(!store.openToWrite());
    std::optional<Problem> problem;
    QVERIFY(store.lastReadingNumber(QStringLiteral("2210"), &problem).isNull());
    QVector<HistoryRecord> records{HistoryFixture::result(4, 1), HistoryFixture::result(5, 2, false),
                                   HistoryFixture::result(9, 3, true, 2, QStringLiteral("1"))};
    QVERIFY(!store.append(records));
    QCOMPARE(store.lastReadingNumber(QStringLiteral("2210"), &problem), QStringLiteral("5"));
    QCOMPARE(whatOf(problem), QString());
}

void TestHistoryStore::knowsNoReadingOfASimulatedWrench()
{
    const HistoryFixture history;
    HistoryStore store(history.folder());
    QVERIFY(!store.openToWrite());
    HistoryRecord simulated = HistoryFixture::result(4);
    simulated.device = QStringLiteral("simulated");
    QVector<HistoryRecord> records{simulated};
    QVERIFY(!store.append(records));
    std::optional<Problem> problem;
    QVERIFY(store.lastReadingNumber(QStringLiteral("2210"), &problem).isNull());
}

QTEST_GUILESS_MAIN(TestHistoryStore)
#include "tst_history_store.moc"
