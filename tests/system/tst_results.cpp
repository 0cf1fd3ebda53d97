#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

#include "processes.h"
#include "simulator_run.h"
#include "workplace_run.h"

namespace {

const QString c_results = QStringLiteral("results");
const QString c_json = QStringLiteral("--json");
const QString c_stored = QStringLiteral("stored");

QString readingOf(const QJsonObject& object)
{
    const QJsonObject entry =
        object.contains(QLatin1String("entry")) ? object.value(QLatin1String("entry")).toObject() : object;
    return entry.value(QLatin1String("eventData")).toObject().value(QLatin1String("readingNumber")).toString();
}

QStringList readingsOf(const QList<QJsonObject>& events)
{
    QStringList readings;
    for (const QJsonObject& event : events) {
        readings.append(readingOf(event));
    }
    return readings;
}

/// A simulator and a folder with what one session of it has stored.
class Workshop
{
public:
    explicit Workshop(const QStringList& options = {QStringLiteral("--rate"), QStringLiteral("20")})
    {
        m_isReady = simulator.start(options);
    }

    /// True: a session has stored so many results.
    bool store(int count, const QStringList& options = {})
    {
        WorkplaceRun session;
        session.keepStoreIn(folder());
        m_isReady =
            m_isReady &&
            session.startSession(simulator, QStringList{QStringLiteral("--count"), QString::number(count)} + options) &&
            session.waitForEnd() && session.exitStatus() == 0;
        return m_isReady;
    }
    QString folder() const { return m_folder.path(); }
    QString file() const { return m_folder.filePath(QStringLiteral("history.sqlite")); }
    QString exportFile(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    SimulatorRun simulator;

private:
    QTemporaryDir m_folder;
    bool m_isReady = false;
};

/// `results` with these options, over.
class Listing : public WorkplaceRun
{
public:
    Listing(const Workshop& workshop, const QStringList& options, bool isJson = true)
    {
        keepStoreIn(workshop.folder());
        isOver =
            start(QStringList{c_results} + (isJson ? QStringList{c_json} : QStringList{}) + options) && waitForEnd();
    }
    bool isOver = false;
};

} // namespace

class TestResults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void saysThatNothingIsStoredYet();
    void saysWhyAHistoryCannotBeLookedAt_data();
    void saysWhyAHistoryCannotBeLookedAt();
    void listsForPeople();
    void filters();
    void exportsBothFormats();
    void replacesAnExportOnlyWhole();
    void refusesWrongUse_data();
    void refusesWrongUse();
    void followsARunningSession();
    void followsFromBeforeTheFirstSession();
    void takesNoProcessorTimeWhileNothingIsStored();
    void tellsAGapAfterASessionThatWasKilled();

    void storesWhatAPluginsListenerShows();
    void noSessionBeginsOnADamagedHistory();
    void aSessionEndsWhenTheDiskRefuses();
    void aSessionEndsWhenTheHistoryIsLocked();
};

void TestResults::saysThatNothingIsStoredYet()
{
    const QTemporaryDir folder;
    WorkplaceRun results;
    results.keepStoreIn(folder.path());
    QVERIFY(results.start({c_results}));
    QVERIFY(results.waitForEnd());
    QCOMPARE(results.exitStatus(), 0);
    QVERIFY2(results.messages().contains(QLatin1String("Nothing is stored yet")), results.report());
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("history.sqlite"))));
}

void TestResults::saysWhyAHistoryCannotBeLookedAt_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("list") << QStringList{};
    QTest::newRow("JSON") << QStringList{c_json};
    QTest::newRow("watch") << QStringList{QStringLiteral("--watch")};
    QTest::newRow("export") << QStringList{QStringLiteral("--export"), QStringLiteral("/dev/null/no.csv")};
}

void TestResults::saysWhyAHistoryCannotBeLookedAt()
{
    QFETCH(QStringList, options);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("no-folder")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    WorkplaceRun results;
    results.keepStoreIn(file.fileName());
    QVERIFY(results.start(QStringList{c_results} + options));
    QVERIFY(results.waitForEnd());
    QCOMPARE(results.exitStatus(), 3);
    QVERIFY2(results.messages().contains(QLatin1String("Not a directory")), results.report());
    QVERIFY2(!results.messages().contains(QLatin1String("Nothing is stored yet")), results.report());
}

void TestResults::listsForPeople()
{
    Workshop workshop;
    QVERIFY(workshop.store(2));
    const Listing list(workshop, {}, false);
    QCOMPARE(list.exitStatus(), 0);
    const QStringList lines = list.outputLines();
    QCOMPARE(lines.size(), 4);
    QVERIFY2(lines.at(0).startsWith(QLatin1String("time")), list.report());
    QVERIFY2(lines.at(1).contains(QLatin1String("2210")), list.report());
    QVERIFY2(lines.at(3).startsWith(QLatin1String("Results: 2, ")), list.report());
}

void TestResults::filters()
{
    const QString serialId = QStringLiteral("--serial-id");
    Workshop workshop({QStringLiteral("--rate"), QStringLiteral("20"), QStringLiteral("--wrench"),
                       QStringLiteral("2210"), QStringLiteral("--wrench"), QStringLiteral("2211")});
    QVERIFY(workshop.store(4, {QStringLiteral("--program"), QStringLiteral("1")}));
    QVERIFY(workshop.store(3, {QStringLiteral("--program"), QStringLiteral("2"), serialId, QStringLiteral("2211")}));
    const Listing all(workshop, {});
    const QStringList readings = readingsOf(all.events(c_stored));
    QVERIFY2(readings.size() >= 7, all.report()); // more may come until the dongle has hung up
    QCOMPARE(all.event(QStringLiteral("totals")).value(c_results).toInt(), readings.size());
    const QStringList ofSecond =
        readingsOf(Listing(workshop, {QStringLiteral("--program"), QStringLiteral("2")}).events(c_stored));
    QVERIFY2(ofSecond.size() >= 3 && ofSecond.size() <= readings.size() - 4, all.report());
    QCOMPARE(ofSecond, readings.mid(readings.size() - ofSecond.size()));
    QCOMPARE(readingsOf(Listing(workshop, {QStringLiteral("--last"), QStringLiteral("2")}).events(c_stored)),
             readings.mid(readings.size() - 2));
    QCOMPARE(Listing(workshop, {serialId, QStringLiteral("1")}).events(c_stored).size(), 0);
    QCOMPARE(readingsOf(Listing(workshop, {serialId, QStringLiteral("2211")}).events(c_stored)), ofSecond);
    const QString third =
        all.events(c_stored).at(2).value(QLatin1String("entry")).toObject().value(QLatin1String("arrived")).toString();
    QCOMPARE(readingsOf(Listing(workshop, {QStringLiteral("--since"), third}).events(c_stored)), readings.mid(2));
    QCOMPARE(readingsOf(Listing(workshop, {QStringLiteral("--until"), third}).events(c_stored)), readings.mid(0, 2));
    const int ok = Listing(workshop, {QStringLiteral("--status"), QStringLiteral("ok")}).events(c_stored).size();
    const int nok = Listing(workshop, {QStringLiteral("--status"), QStringLiteral("nok")}).events(c_stored).size();
    QCOMPARE(ok + nok, readings.size());
    QCOMPARE(all.event(QStringLiteral("totals")).value(QLatin1String("good")).toInt(), ok);
}

void TestResults::exportsBothFormats()
{
    Workshop workshop;
    QVERIFY(workshop.store(3));
    const QString csv = workshop.exportFile("out.csv");
    const QString lines = workshop.exportFile("out.jsonl");
    QCOMPARE(Listing(workshop, {QStringLiteral("--export"), csv}).exitStatus(), 0);
    QCOMPARE(Listing(workshop, {QStringLiteral("--export"), lines}).exitStatus(), 0);
    QFile csvFile(csv);
    QVERIFY(csvFile.open(QIODevice::ReadOnly));
    QCOMPARE(csvFile.readAll().count("\r\n"), 4);
    QFile lineFile(lines);
    QVERIFY(lineFile.open(QIODevice::ReadOnly));
    QList<QJsonObject> exported;
    while (!lineFile.atEnd()) {
        exported.append(QJsonDocument::fromJson(lineFile.readLine()).object());
    }
    QCOMPARE(readingsOf(exported), readingsOf(Listing(workshop, {}).events(c_stored)));
}

void TestResults::replacesAnExportOnlyWhole()
{
    Workshop workshop;
    QVERIFY(workshop.store(1));
    const Listing refused(workshop, {QStringLiteral("--export"), workshop.exportFile("none/out.csv")});
    QCOMPARE(refused.exitStatus(), 3);
    QVERIFY2(refused.messages().contains(QLatin1String("out.csv")), refused.report());
}

void TestResults::refusesWrongUse_data()
{
    QTest::addColumn<QStringList>("options");
    const auto row = [](const char* options) {
        QTest::newRow(options) << QString(QLatin1String(options)).split(QLatin1Char(' '));
    };
    row("--since yesterday");
    row("--until 2026-13-01");
    row("--status good");
    row("--last 0");
    row("--program x");
    row("--export out.txt");
    row("--export out.csv --watch");
    row("surplus");
}

void TestResults::refusesWrongUse()
{
    QFETCH(QStringList, options);
    const QTemporaryDir folder;
    WorkplaceRun results;
    results.keepStoreIn(folder.path());
    QVERIFY(results.start(QStringList{c_results} + options));
    QVERIFY(results.waitForEnd());
    QCOMPARE(results.exitStatus(), 2);
    QVERIFY2(results.messages().startsWith(QLatin1String("command line: ")), results.report());
}

void TestResults::followsARunningSession()
{
    Workshop workshop;
    QVERIFY(workshop.store(2));
    WorkplaceRun watching;
    watching.keepStoreIn(workshop.folder());
    QVERIFY(watching.start({c_results, c_json, QStringLiteral("--watch")}));
    QVERIFY2(watching.waitForEvents(c_stored, 2), watching.report());
    QVERIFY(workshop.store(5));
    QVERIFY2(waitUntil([&] { return watching.events(c_stored).size() >= 7; }), watching.report());
    watching.sendSignal(SIGINT);
    QVERIFY(watching.waitForEnd());
    QCOMPARE(watching.exitStatus(), 0);
    QCOMPARE(readingsOf(watching.events(c_stored)), readingsOf(Listing(workshop, {}).events(c_stored)));
}

void TestResults::followsFromBeforeTheFirstSession()
{
    Workshop workshop;
    WorkplaceRun watching;
    watching.keepStoreIn(workshop.folder());
    QVERIFY(watching.start({c_results, c_json, QStringLiteral("--watch")}));
    QVERIFY(waitUntil([&] { return watching.messages().contains(QLatin1String("Nothing is stored yet")); }));
    QVERIFY(workshop.store(3));
    QVERIFY2(watching.waitForEvents(c_stored, 3), watching.report());
    watching.sendSignal(SIGINT);
    QVERIFY(watching.waitForEnd());
    QCOMPARE(watching.exitStatus(), 0);
}

void TestResults::takesNoProcessorTimeWhileNothingIsStored()
{
    Workshop workshop;
    QVERIFY(workshop.store(1));
    WorkplaceRun watching;
    watching.keepStoreIn(workshop.folder());
    QVERIFY(watching.start({c_results, c_json, QStringLiteral("--watch")}));
    QVERIFY2(watching.waitForEvents(c_stored), watching.report());
    const qint64 before = processes::processorMsOf(watching.pid());
    constexpr int c_idleMs = 2000;
    QVERIFY(!watching.waitForEnd(c_idleMs));
    const qint64 taken = processes::processorMsOf(watching.pid()) - before;
    QVERIFY2(taken < 200, qPrintable(QStringLiteral("%1 ms").arg(taken)));
}

void TestResults::tellsAGapAfterASessionThatWasKilled()
{
    Workshop workshop;
    WorkplaceRun killed;
    killed.keepStoreIn(workshop.folder());
    QVERIFY(killed.startSession(workshop.simulator));
    QVERIFY2(killed.waitForEvents(QStringLiteral("result")), killed.report());
    killed.sendSignal(SIGKILL);
    QVERIFY(killed.waitForEnd());
    // The wrench goes on without us.
    const auto count = [&] {
        return workshop.simulator.say(QStringLiteral("wrenches"))
            .section(QLatin1String(" readings"), 0, 0)
            .section(QLatin1Char(' '), -1)
            .toInt();
    };
    const int before = count();
    QVERIFY(waitUntil([&] { return count() > before + 2; }));

    WorkplaceRun session;
    session.keepStoreIn(workshop.folder());
    QVERIFY(session.startSession(workshop.simulator, {QStringLiteral("--count"), QStringLiteral("2")}));
    QVERIFY2(session.waitForEnd(), session.report());
    const QList<QJsonObject> gaps = session.events(QStringLiteral("gap"));
    QVERIFY2(!gaps.isEmpty(), session.report());
    QCOMPARE(gaps.constFirst().value(QLatin1String("entry")).toObject().value(QLatin1String("counter")).toString(),
             QStringLiteral("readingNumber"));
    QVERIFY(Listing(workshop, {}).event(QStringLiteral("totals")).value(QLatin1String("gaps")).toInt() > 0);
}

void TestResults::storesWhatAPluginsListenerShows()
{
    Workshop workshop;
    WorkplaceRun run;
    run.keepStoreIn(workshop.folder());
    QVERIFY(run.startOn(workshop.simulator.port(),
                        {QStringLiteral("run"), c_json, QStringLiteral("--connect"), QStringLiteral("--serial-id"),
                         QStringLiteral("2210"), QStringLiteral("listenEventsData")}));
    QVERIFY2(run.waitForEvents(c_results, 3), run.report());
    run.sendSignal(SIGINT);
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    QStringList shown;
    const QList<QJsonObject> events = run.events(c_results);
    for (const QJsonObject& event : events) {
        shown.append(readingOf(event.value(c_results).toObject()));
    }
    QCOMPARE(readingsOf(Listing(workshop, {}).events(c_stored)), shown);
}

void TestResults::noSessionBeginsOnADamagedHistory()
{
    Workshop workshop;
    QFile damaged(workshop.file());
    QVERIFY(damaged.open(QIODevice::WriteOnly));
    const QByteArray bytes("SQLite format 3\0 and then nothing of use", 41);
    QCOMPARE(damaged.write(bytes), qint64(bytes.size()));
    damaged.close();
    WorkplaceRun session;
    session.keepStoreIn(workshop.folder());
    QVERIFY(session.startSession(workshop.simulator));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 3);
    QCOMPARE(session.event(QStringLiteral("error")).value(QLatin1String("step")).toString(), QStringLiteral("history"));
    QVERIFY2(session.messages().contains(workshop.file()), session.report());
    QCOMPARE(session.trace().sent(), QStringList());
    QVERIFY(damaged.open(QIODevice::ReadOnly));
    QCOMPARE(damaged.readAll(), bytes);
}

void TestResults::aSessionEndsWhenTheDiskRefuses()
{
    Workshop workshop;
    QVERIFY(workshop.store(1));
    WorkplaceRun session;
    session.keepStoreIn(workshop.folder());
    QVERIFY(session.startSession(workshop.simulator));
    QVERIFY2(session.waitForEvents(QStringLiteral("result")), session.report());
    // From now on the kernel lets none of its files grow.
    const rlimit none{0, 0};
    QCOMPARE(::prlimit(pid_t(session.pid()), RLIMIT_FSIZE, &none, nullptr), 0);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 3);
    QVERIFY2(session.messages().contains(QLatin1String("the result cannot be stored")), session.report());
    const QList<QJsonObject> shown = session.events(QStringLiteral("result"));
    QCOMPARE(session.event(QStringLiteral("summary")).value(c_results).toInt(), shown.size());
    QCOMPARE(session.event(QStringLiteral("summary")).value(QLatin1String("endedBy")).toString(),
             QStringLiteral("failure"));
    const QStringList stored =
        readingsOf(Listing(workshop, {QStringLiteral("--status"), QStringLiteral("ok")}).events(c_stored)) +
        readingsOf(Listing(workshop, {QStringLiteral("--status"), QStringLiteral("nok")}).events(c_stored));
    const QStringList readings = readingsOf(shown);
    for (const QString& reading : readings) {
        QCOMPARE(stored.count(reading), 1);
    }
}

void TestResults::aSessionEndsWhenTheHistoryIsLocked()
{
    Workshop workshop;
    QVERIFY(workshop.store(1));
    WorkplaceRun session;
    session.keepStoreIn(workshop.folder());
    QVERIFY(session.startSession(workshop.simulator));
    QVERIFY2(session.waitForEvents(QStringLiteral("result")), session.report());
    ProgramRun other;
    QVERIFY(other.start(QStringLiteral("sqlite3"), {workshop.file()}));
    other.type(QStringLiteral(".timeout 5000"));
    other.type(QStringLiteral("BEGIN IMMEDIATE;"));
    other.type(QStringLiteral("SELECT 'locked';"));
    QVERIFY2(other.waitForOutput(QStringLiteral("locked")), other.report());
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 3);
    QVERIFY2(session.messages().contains(QLatin1String("another program keeps")), session.report());
}

QTEST_GUILESS_MAIN(TestResults)
#include "tst_results.moc"
