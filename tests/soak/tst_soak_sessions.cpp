#include "dongle_port.h"
#include "services/command_run.h"
#include "session_checks.h"
#include "session_watch.h"
#include "simulated_workplace.h"
#include "weather.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QMap>
#include <QStringList>
#include <QTest>

#include <algorithm>

namespace {
constexpr int c_shortSoak = 25;
constexpr int c_nextLineMs = 100;    // of a slow line
constexpr int c_patienceMs = 600000; // simulated: all steps with their limits, and the longest listening

/// "7" or "1-200", from the environment: which seeds.
struct Seeds
{
    Seeds()
    {
        const QStringList ends = qEnvironmentVariable("SOAK_SEEDS").split(QLatin1Char('-'), Qt::SkipEmptyParts);
        if (!ends.isEmpty()) {
            first = ends.constFirst().toUInt();
            last = ends.constLast().toUInt();
        }
    }

    quint32 first = 1;
    quint32 last = c_shortSoak;
};

/// A result every 100 ms, its bytes 2 ms apart.
QStringList slowLine()
{
    return {QStringLiteral("--rate"),        QStringLiteral("10"),
            QStringLiteral("--fault"),       QStringLiteral("split:1,2"),
            QStringLiteral("--scan-period"), QStringLiteral("100")};
}
} // namespace

/// Sessions in seed-drawn weathers: however it goes, each ends, in good order, and says truly how.
class TestSoakSessions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void session_data();
    void session();
    void lineCutOffByAPulledAdapterIsNoResult();
    void lineCutOffIsNoResultOfACommandEither();
    void cleanupTestCase();

private:
    int m_succeeded = 0;
    int m_results = 0;
    QMap<QString, int> m_failures; // by step
};

void TestSoakSessions::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
}

void TestSoakSessions::session_data()
{
    QTest::addColumn<quint32>("seed");
    const Seeds seeds;
    for (quint32 seed = seeds.first; seed <= seeds.last; ++seed) {
        QTest::addRow("seed %u", seed) << seed;
    }
}

void TestSoakSessions::session()
{
    QFETCH(quint32, seed);
    const Weather weather(seed);
    const Seeds seeds;
    QJsonObject driverSettings;
    if (seeds.first == seeds.last) {
        driverSettings.insert(QStringLiteral("trace"), QStringLiteral("-"));
    }
    SimulatedWorkplace workplace(weather.options, driverSettings);
    for (const Weather::Event& event : weather.events) {
        workplace.commandLater(event.atMs, event.command);
    }
    Session session(workplace.linked(), weather.order);
    SessionWatch watch(workplace, session);
    session.start();
    if (weather.interruptMs) {
        workplace.runUntil([&] { return watch.isFinished(); }, *weather.interruptMs);
        if (!watch.isFinished()) {
            watch.ended = watch.now();
            session.interrupt();
        }
    }
    const auto told = [&](const QString& text) {
        const QString program = QCoreApplication::applicationFilePath();
        return QStringLiteral("%1\n  SOAK_SEEDS=%2 %3\n  %4")
            .arg(text, QString::number(seed), program, weather.text())
            .toLocal8Bit();
    };
    QVERIFY2(workplace.runUntil([&] { return watch.isFinished(); }, c_patienceMs),
             told(QStringLiteral("it does not end; the step is %1").arg(textOf(watch.step).name)).constData());
    QString complaint = wrongEnd(workplace, watch, weather.order);
    if (complaint.isEmpty()) {
        complaint = wrongResults(workplace, watch, weather.order);
    }
    if (complaint.isEmpty()) {
        // What was still to happen to the simulator happens now, to a line that nobody uses.
        workplace.run(c_patienceMs);
        complaint = disorder(workplace, watch);
    }
    QVERIFY2(complaint.isEmpty(), told(complaint).constData());
    m_results += watch.results.size();
    if (watch.succeeded()) {
        ++m_succeeded;
    } else {
        ++m_failures[watch.problem->step];
    }
}

/// At each byte of a result line.
void TestSoakSessions::lineCutOffByAPulledAdapterIsNoResult()
{
    constexpr int c_listeningMs = 3000;
    for (int ms = 0; ms <= c_nextLineMs; ms += 2) {
        SimulatedWorkplace workplace(slowLine());
        SessionOrder order;
        order.serialId = QStringLiteral("2210");
        order.durationMs = c_listeningMs;
        order.pauseSeed = 1;
        Session session(workplace.linked(), order);
        SessionWatch watch(workplace, session);
        session.start();
        QVERIFY(workplace.runUntil([&] { return watch.results.size() == 3; }, c_patienceMs));
        workplace.commandLater(ms, QStringLiteral("unplug"));
        workplace.commandLater(ms + c_listeningMs / 6, QStringLiteral("replug"));
        QVERIFY(workplace.runUntil([&] { return watch.isFinished(); }, c_patienceMs));
        QVERIFY(watch.succeeded());
        QVERIFY(watch.results.size() > 5);
        const QString wrong = wrongResults(workplace, watch, order);
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("after %1 ms: %2").arg(ms).arg(wrong)));
    }
}

/// The same for a command that is run by its name.
void TestSoakSessions::lineCutOffIsNoResultOfACommandEither()
{
    for (int ms = 0; ms <= c_nextLineMs; ms += 2) {
        SimulatedWorkplace workplace(slowLine());
        SessionOrder order;
        order.serialId = QStringLiteral("2210");
        order.listens = false;
        Session session(workplace.linked(), order);
        bool isReady = false;
        QObject::connect(&session, &Session::sigReady, [&] { isReady = true; });
        session.start();
        QVERIFY(workplace.runUntil([&] { return isReady; }, c_patienceMs));
        const int from = workplace.record.size();
        QList<QStringList> told;
        CommandRun run(workplace.linked(), QStringLiteral("listenEventsData"), {});
        QObject::connect(&run, &CommandRun::sigResults, [&](const QVariantMap& values) {
            if (values.contains(QStringLiteral("eventData"))) {
                told.append(fieldsOf(values.value(QStringLiteral("eventData")).toMap()));
            }
        });
        run.start(0);
        QVERIFY(workplace.runUntil([&] { return told.size() >= 3; }, c_patienceMs));
        workplace.commandLater(ms, QStringLiteral("unplug"));
        workplace.commandLater(ms + c_nextLineMs, QStringLiteral("replug"));
        // The wrench is linked anew by the next question of the driver.
        QVERIFY(workplace.runUntil([&] { return told.size() >= 6; }, c_patienceMs));
        const QList<QStringList> arrived = resultsOnTheLine(workplace.record, from, workplace.record.size());
        QVERIFY2(told == arrived.mid(arrived.size() - told.size()),
                 qPrintable(
                     QStringLiteral("after %1 ms: %2 told, %3 arrived").arg(ms).arg(told.size()).arg(arrived.size())));
    }
}

/// A soak in which nothing fails, or nothing succeeds, proves little.
void TestSoakSessions::cleanupTestCase()
{
    QStringList failures;
    for (auto each = m_failures.cbegin(); each != m_failures.cend(); ++each) {
        failures.append(QStringLiteral("%1 in %2").arg(QString::number(each.value()), each.key()));
    }
    qInfo("%d sessions succeeded, %d results; failures: %s", m_succeeded, m_results,
          qPrintable(failures.join(QStringLiteral(", "))));
    const Seeds seeds;
    if (seeds.last >= seeds.first + c_shortSoak - 1) {
        QVERIFY(m_succeeded > 0);
        QVERIFY(m_results > 0);
        QVERIFY(!m_failures.isEmpty());
    }
}

int main(int argc, char* argv[])
{
    qSetGlobalQHashSeed(0); // the same seed, the same run
    QCoreApplication application(argc, argv);
    TestSoakSessions test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_soak_sessions.moc"
