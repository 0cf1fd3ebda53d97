#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include "simulator_run.h"
#include "workplace_run.h"

namespace {

const QString c_result = QStringLiteral("result");
const QString c_eventData = QStringLiteral("eventData");

/// How often a session is disturbed: a few times, or as often as is asked for by the environment.
int rounds()
{
    const int asked = qEnvironmentVariableIntValue("WORKPLACE_ROUNDS");
    constexpr int c_few = 8;
    return asked > 0 ? asked : c_few;
}

/// From the environment, to repeat a run.
quint32 seed()
{
    const quint32 asked = quint32(qEnvironmentVariableIntValue("WORKPLACE_SEED"));
    return asked != 0 ? asked : QRandomGenerator::global()->generate() | 1U;
}

/// Fifty results a second from a wrench that counts its readings on for as long as the simulator lives.
QStringList manyResults()
{
    return {QStringLiteral("--rate"),         QStringLiteral("50"), QStringLiteral("--link-delay"), QStringLiteral("0"),
            QStringLiteral("--answer-delay"), QStringLiteral("0")};
}

/// A result as a text that is the same wherever it was told.
QString textOf(const QJsonObject& object)
{
    return QString::fromUtf8(QJsonDocument(object.value(c_eventData).toObject()).toJson(QJsonDocument::Compact));
}

QStringList shownBy(const WorkplaceRun& session)
{
    QStringList shown;
    const QList<QJsonObject> results = session.events(c_result);
    for (const QJsonObject& result : results) {
        shown.append(textOf(result));
    }
    return shown;
}

/// What is stored, as `results` lists it.
class Stored
{
public:
    explicit Stored(const QString& folder)
    {
        m_run.keepStoreIn(folder);
        isRead = m_run.start({QStringLiteral("results"), QStringLiteral("--json")}) && m_run.waitForEnd() &&
                 m_run.exitStatus() == 0;
        const QList<QJsonObject> events = m_run.events(QStringLiteral("stored"));
        for (const QJsonObject& event : events) {
            const QJsonObject entry = event.value(QLatin1String("entry")).toObject();
            entries.append(entry);
            if (entry.value(QLatin1String("kind")).toString() == c_result) {
                results.append(textOf(entry));
            }
        }
    }
    QByteArray report() const { return m_run.report(); }

    /// Readings that are missing and that no gap tells of; empty: there are none.
    QString untold() const
    {
        qint64 expected = 0;
        for (const QJsonObject& entry : entries) {
            if (entry.value(QLatin1String("counter")).toString() == QLatin1String("readingNumber")) {
                expected = entry.value(QLatin1String("countAfter")).toVariant().toLongLong();
            } else if (entry.value(QLatin1String("kind")).toString() == c_result) {
                const qint64 number =
                    entry.value(c_eventData).toObject().value(QLatin1String("readingNumber")).toString().toLongLong();
                if (expected > 0 && number != expected) {
                    return QStringLiteral("reading %1 came instead of %2").arg(number).arg(expected);
                }
                expected = number + 1;
            }
        }
        return {};
    }

    bool isRead = false;
    QList<QJsonObject> entries;
    QStringList results;

private:
    WorkplaceRun m_run;
};

/// What is shown and not stored, or stored twice; empty: all is in order.
QString disorderIn(const QStringList& shown, const QStringList& stored)
{
    QHash<QString, int> times;
    for (const QString& result : stored) {
        if (++times[result] > 1) {
            return QStringLiteral("stored twice: %1").arg(result);
        }
    }
    for (const QString& result : shown) {
        if (!times.contains(result)) {
            return QStringLiteral("shown and not stored: %1").arg(result);
        }
    }
    return {};
}

} // namespace

class TestHistoryKilled : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsWhatWasShownWhenItIsKilled();
    void keepsWhatWasShownWhenItIsKilledWhileItWaitsForTheFile();
    void keepsWhatWasShownWhenTheAdapterIsPulled();
};

void TestHistoryKilled::keepsWhatWasShownWhenItIsKilled()
{
    const quint32 seedInUse = seed();
    qInfo("WORKPLACE_SEED=%u WORKPLACE_ROUNDS=%d", seedInUse, rounds());
    QRandomGenerator random(seedInUse);
    const QTemporaryDir folder;
    SimulatorRun simulator;
    QVERIFY2(simulator.start(manyResults()), simulator.report());
    QStringList shown;
    int interrupted = 0;
    for (int round = 0; round < rounds(); ++round) {
        WorkplaceRun session;
        session.keepStoreIn(folder.path());
        QVERIFY(session.startSession(simulator));
        // One in four while it begins, one in four at any time among the results, the others the moment one is shown.
        const quint32 kind = random.bounded(4U);
        if (kind == 0) {
            session.waitForEnd(random.bounded(300));
            session.sendSignal(SIGKILL);
        } else if (kind == 1) {
            QVERIFY2(session.waitForEvents(c_result), session.report());
            session.waitForEnd(random.bounded(500));
            session.sendSignal(SIGKILL);
        } else {
            session.killWhenPrinted(QByteArrayLiteral("\"event\":\"result\""), 1 + random.bounded(15));
        }
        QVERIFY2(session.waitForEnd(), session.report());
        QCOMPARE(session.exitStatus(), 128 + SIGKILL);
        const QStringList shownNow = shownBy(session);
        shown += shownNow;
        interrupted += shownNow.isEmpty() ? 0 : 1;
    }
    const Stored stored(folder.path());
    QVERIFY2(stored.isRead, stored.report());
    QCOMPARE(disorderIn(shown, stored.results), QString());
    QCOMPARE(stored.untold(), QString());
    QVERIFY2(interrupted > 0, "no session was killed among its results");
    qInfo("%d sessions killed, %d of them among results; %d results shown, %d stored", rounds(), interrupted,
          shown.size(), stored.results.size());
}

// Storing takes a moment that is too short to be met by chance; here it lasts until the session is killed. A session
// waits two seconds for the file and then ends: where that came first, another one is killed.
void TestHistoryKilled::keepsWhatWasShownWhenItIsKilledWhileItWaitsForTheFile()
{
    constexpr int c_mostRounds = 10;
    const QTemporaryDir folder;
    SimulatorRun simulator;
    QVERIFY2(simulator.start(manyResults()), simulator.report());
    const auto readings = [&] {
        const QString wrenches = simulator.say(QStringLiteral("wrenches"));
        return wrenches.section(QLatin1String(" readings"), 0, 0).section(QLatin1Char(' '), -1).toInt();
    };
    QStringList shown;
    bool isKilled = false;
    for (int round = 0; round < c_mostRounds && !isKilled; ++round) {
        WorkplaceRun session;
        session.keepStoreIn(folder.path());
        QVERIFY(session.startSession(simulator));
        QVERIFY2(session.waitForEvents(c_result), session.report());
        ProgramRun other;
        QVERIFY(other.start(QStringLiteral("sqlite3"), {folder.filePath(QStringLiteral("history.sqlite"))}));
        other.type(QStringLiteral(".timeout 5000"));
        other.type(QStringLiteral("BEGIN IMMEDIATE;"));
        other.type(QStringLiteral("SELECT 'locked';"));
        QVERIFY2(other.waitForOutput(QStringLiteral("locked")), other.report());
        const int before = readings();
        QVERIFY(waitUntil([&] { return readings() >= before + 10; }));
        session.sendSignal(SIGKILL);
        QVERIFY(session.waitForEnd());
        isKilled = session.exitStatus() == 128 + SIGKILL;
        shown += shownBy(session);
    }
    QVERIFY2(isKilled, "each session had ended before it was killed");
    const Stored stored(folder.path());
    QVERIFY2(stored.isRead, stored.report());
    QCOMPARE(disorderIn(shown, stored.results), QString());
}

void TestHistoryKilled::keepsWhatWasShownWhenTheAdapterIsPulled()
{
    const quint32 seedInUse = seed();
    qInfo("WORKPLACE_SEED=%u WORKPLACE_ROUNDS=%d", seedInUse, rounds());
    QRandomGenerator random(seedInUse);
    const QTemporaryDir folder;
    SimulatorRun simulator;
    QVERIFY2(simulator.start(manyResults()), simulator.report());
    WorkplaceRun session;
    session.keepStoreIn(folder.path());
    QVERIFY(session.startSession(
        simulator, {QStringLiteral("--config"), QStringLiteral(CONFIGURATIONS "/keep_alive_often.json")}));
    for (int round = 0; round < rounds(); ++round) {
        const int before = session.events(c_result).size();
        QVERIFY2(session.waitForEvents(c_result, before + 1 + random.bounded(20)), session.report());
        QCOMPARE(simulator.say(QStringLiteral("unplug")), QStringLiteral("ok unplugged"));
        session.waitForEnd(random.bounded(100));
        QVERIFY2(simulator.say(QStringLiteral("replug")).startsWith(QLatin1String("ok")), simulator.report());
    }
    const int before = session.events(c_result).size();
    QVERIFY2(session.waitForEvents(c_result, before + 1), session.report());
    session.sendSignal(SIGINT);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);

    const Stored stored(folder.path());
    QVERIFY2(stored.isRead, stored.report());
    const QStringList shown = shownBy(session);
    QCOMPARE(disorderIn(shown, stored.results), QString());
    QCOMPARE(stored.results.size(), shown.size());
    QCOMPARE(stored.untold(), QString());
    QCOMPARE(session.event(QStringLiteral("summary")).value(QLatin1String("results")).toInt(), shown.size());
    qInfo("pulled %d times; %d results shown and stored, %d gaps told", rounds(), shown.size(),
          session.events(QStringLiteral("gap")).size());
}

QTEST_GUILESS_MAIN(TestHistoryKilled)
#include "tst_history_killed.moc"
