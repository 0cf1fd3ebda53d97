#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <map>
#include <memory>

#include "workplace_run.h"

namespace {

constexpr int c_together = 6; // sessions that mostly wait for their simulator

/// Which of two calls wins is a matter of how the lines come: the session works with a wrench, or fails as told.
constexpr int c_doneOrRefused = -1;

/// A session in a weather of examples/weather, and what must become of it.
struct WeatherRow
{
    const char* name;
    const char* options;
    int exitStatus;
    int results; ///< at least, when it is done
    /// The step that fails, and a part of the message.
    const char* step = "";
    const char* message = "";
};

constexpr WeatherRow c_rows[] = {
    {"quiet_day", "--count 5", 0, 5},
    {"noisy_radio", "--count 12", 0, 12},
    {"sleepy_wrench", "--count 3", 0, 3},
    {"dying_adapter", "--count 8", 0, 8},
    {"crowded_hall", "--count 5", 0, 5},
    {"two_of_one_number", "--count 3 --limit 2", c_doneOrRefused, 3, "connect", "the wrench could not be connected"},
    {"chatterbox", "--count 8", 0, 8},
    {"stutterer", "--count 5", 0, 5},
    {"wanderer", "--count 12", 0, 12},
    {"shouting_neighbour", "--count 5", 0, 5},
    {"wrong_echo", "--limit 3", 1, 0, "connect", "the wrench could not be connected"},
    {"broken_firmware", "--limit 3", 1, 0, "configure", "the wrench could not be configured"},
    {"grumpy_wrench", "--limit 3", 1, 0, "configure", "ERR:7"},
    {"deaf_wrench", "--limit 3", 1, 0, "connect", "there was no answer"},
    {"empty_hall", "--limit 3", 1, 0, "connect", "the wrench could not be connected"},
    {"double_talk", "--count 6", 0, 6},
    {"stuck_line", "--count 12", 0, 12},
    {"flat_battery", "--duration 4", 0, 1},
};

QString file(const QString& name)
{
    return QStringLiteral(WEATHERS "/%1.json").arg(name);
}

} // namespace

/// A real session with a simulator that plays each weather.
class TestWeatherSessions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachWeatherHasASession();
    void endsAsItShould_data();
    void endsAsItShould();
    void worksWithTheFirstWrenchOfTheScenario();
    void worksWithTheNamedWrench();
    void refusesAMissingScenario_data();
    void refusesAMissingScenario();
    void refusesAWrongScenarioWithItsLine();

private:
    void startTogether(int first);

    std::map<int, std::unique_ptr<WorkplaceRun>> m_runs;
};

void TestWeatherSessions::eachWeatherHasASession()
{
    QStringList names;
    for (const WeatherRow& row : c_rows) {
        names.append(QLatin1String(row.name) + QStringLiteral(".json"));
    }
    names.sort();
    QCOMPARE(names, QDir(QStringLiteral(WEATHERS)).entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name));
}

void TestWeatherSessions::startTogether(int first)
{
    for (int i = first; i < qMin(first + c_together, int(std::size(c_rows))); ++i) {
        const WeatherRow& row = c_rows[i];
        auto run = std::make_unique<WorkplaceRun>();
        QStringList options = QString(QLatin1String(row.options)).split(QLatin1Char(' '));
        options << QStringLiteral("--json") << QStringLiteral("--config")
                << QStringLiteral(CONFIGURATIONS "/keep_alive_often.json");
        QVERIFY(run->startOn(QStringLiteral("simulated:") + file(QLatin1String(row.name)),
                             QStringList(QStringLiteral("session")) + options));
        m_runs[i] = std::move(run);
    }
}

void TestWeatherSessions::endsAsItShould_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(c_rows)); ++i) {
        QTest::newRow(c_rows[i].name) << i;
    }
}

void TestWeatherSessions::endsAsItShould()
{
    QFETCH(int, index);
    if (m_runs.count(index) == 0) {
        m_runs.clear();
        startTogether(index);
    }
    const WeatherRow& row = c_rows[index];
    WorkplaceRun& run = *m_runs.at(index);
    QVERIFY2(run.waitForEnd(), run.report());
    const bool isRefused = run.exitStatus() == 1;
    if (row.exitStatus == c_doneOrRefused) {
        QVERIFY2(isRefused || run.exitStatus() == 0, run.report());
    } else {
        QVERIFY2(run.exitStatus() == row.exitStatus, run.report());
    }
    QVERIFY2(isRefused || run.events(QStringLiteral("result")).size() >= row.results, run.report());
    // However it went, it ends in order: the dongle was told to hang up, then the port was closed.
    QCOMPARE(run.trace().sent().last(), QStringLiteral("ATH"));
    QCOMPARE(run.trace().lastEntry(), QStringLiteral("! closed"));
    if (isRefused) {
        QVERIFY2(run.messages().contains(QLatin1String(row.step)), run.report());
        QVERIFY2(run.messages().contains(QLatin1String(row.message)), run.report());
    }
}

void TestWeatherSessions::worksWithTheFirstWrenchOfTheScenario()
{
    QTemporaryDir folder;
    QFile scenario(folder.filePath(QStringLiteral("scenario.json")));
    QVERIFY(scenario.open(QIODevice::WriteOnly));
    scenario.write(R"({"wrenches": [{"serial": "7001", "ratePerSecond": 10}, {"serial": "2210"}]})");
    scenario.close();
    WorkplaceRun run;
    QVERIFY(run.startOn(QStringLiteral("simulated:") + scenario.fileName(),
                        {QStringLiteral("session"), QStringLiteral("--count"), QStringLiteral("1")}));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    QVERIFY2(run.output().contains(QLatin1String("Session with the wrench 7001 on ")), run.report());
}

void TestWeatherSessions::worksWithTheNamedWrench()
{
    WorkplaceRun run;
    QVERIFY(run.startOn(QStringLiteral("simulated:") + file(QStringLiteral("crowded_hall")),
                        {QStringLiteral("run"), QStringLiteral("--connect"), QStringLiteral("--serial-id"),
                         QStringLiteral("2230"), QStringLiteral("listProgram")}));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    QVERIFY2(run.trace().sent().contains(QStringLiteral("ATD 02000000001E")), run.report());
}

void TestWeatherSessions::refusesAMissingScenario_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("session") << QStringLiteral("session");
    QTest::newRow("scan") << QStringLiteral("scan");
}

void TestWeatherSessions::refusesAMissingScenario()
{
    QFETCH(QString, command);
    WorkplaceRun run;
    QVERIFY(run.startOn(QStringLiteral("simulated:/none/there.json"), {command}));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 3);
    QVERIFY2(run.messages().contains(QLatin1String("the scenario /none/there.json is not used")), run.report());
    QVERIFY2(run.messages().contains(QLatin1String("cannot be read: No such file")), run.report());
}

void TestWeatherSessions::refusesAWrongScenarioWithItsLine()
{
    QTemporaryDir folder;
    QFile scenario(folder.filePath(QStringLiteral("wrong.json")));
    QVERIFY(scenario.open(QIODevice::WriteOnly));
    scenario.write("{\n\"seed\": 1,\n\"faults\": [\"flap\"]}");
    scenario.close();
    WorkplaceRun run;
    QVERIFY(run.startOn(QStringLiteral("simulated:") + scenario.fileName(), {QStringLiteral("session")}));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 3);
    QVERIFY2(run.messages().contains(QLatin1String("wrong.json, line 3: fault \"flap\": no fault is called")),
             run.report());
}

QTEST_GUILESS_MAIN(TestWeatherSessions)

#include "tst_weather_sessions.moc"
