#include "bounds.h"
#include "options.h"
#include "scenario_reader.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

namespace {
std::optional<Scenario> read(const QByteArray& text, QString* error)
{
    return readScenario(text, QStringLiteral("f.json"), error);
}
} // namespace

class TestScenario : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyOneIsAsWithoutAny();
    void eachMemberIsRead();
    void timeLineIsSorted();
    void refusesWithTheLine_data();
    void refusesWithTheLine();
    void refusesAFileThatCannotBeRead_data();
    void refusesAFileThatCannotBeRead();
    void refusesAFileWithoutAnEnd();
    void optionsGoBeforeIt();
    void whatNoOptionSaysIsLeftAlone();

private:
    QString write(const QByteArray& text);
    static ParsedOptions parse(const QStringList& arguments)
    {
        return parseOptions(QStringList(QStringLiteral("wrench_simulator")) + arguments);
    }

    QTemporaryDir m_folder;
};

void TestScenario::emptyOneIsAsWithoutAny()
{
    QString error;
    const std::optional<Scenario> scenario = read("{}", &error);
    QVERIFY2(scenario, qPrintable(error));
    const Scenario preset = parse({}).options.scenario;
    QCOMPARE(scenario->seed, preset.seed);
    QCOMPARE(scenario->dongle.linkDelayUs, preset.dongle.linkDelayUs);
    QCOMPARE(scenario->wrenches.size(), size_t(1));
    QCOMPARE(scenario->wrenches[0].serial, preset.wrenches[0].serial);
    QCOMPARE(scenario->wrenches[0].mac, preset.wrenches[0].mac);
}

void TestScenario::eachMemberIsRead()
{
    QString error;
    const std::optional<Scenario> scenario = read(R"({
        "$schema": "s", "description": "d", "seed": 77,
        "dongle": {"mode": "drop", "linkDelayMs": 1, "answerDelayMs": 2, "scanPeriodMs": 3},
        "wrenches": [
            {"serial": "A", "model": "M", "mac": "aa:bb:cc:dd:ee:ff", "rssiDbm": -80, "inRange": false,
             "programs": ["UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1", "UNT1,ANG0,TRQ7,SNG3,ADT0,NUM0"],
             "ratePerSecond": 2.5, "tighteningMs": 4},
            {"serial": "B", "programs": 9}
        ],
        "faults": ["flip%5", "out-of-range:B,100@3"],
        "timeLineFrom": "first-frame",
        "timeLine": [{"atMs": 5, "do": "fault off flip"}, {"atMs": 6, "do": "range A on"}]
    })",
                                                  &error);
    QVERIFY2(scenario, qPrintable(error));
    QCOMPARE(scenario->seed, quint32(77));
    QVERIFY(scenario->dongle.mode == Dongle::Mode::Drop);
    QCOMPARE(scenario->dongle.linkDelayUs, qint64(1000));
    QCOMPARE(scenario->dongle.answerDelayUs, qint64(2000));
    QCOMPARE(scenario->dongle.scanPeriodUs, qint64(3000));
    const Wrench::Settings& first = scenario->wrenches.at(0);
    QCOMPARE(first.serial, QByteArray("A"));
    QCOMPARE(first.model, QByteArray("M"));
    QCOMPARE(first.mac, QByteArray("AA:BB:CC:DD:EE:FF"));
    QCOMPARE(first.rssiDbm, -80);
    QCOMPARE(first.programs.size(), size_t(2));
    QCOMPARE(first.ratePerSecond, 2.5);
    QCOMPARE(first.tighteningUs, qint64(4000));
    QVERIFY(scenario->outOfRange == std::vector<QByteArray>{first.mac});
    QCOMPARE(scenario->wrenches.at(1).mac, QByteArray("02:00:00:00:00:02"));
    QCOMPARE(scenario->wrenches.at(1).programs.size(), size_t(9));
    QCOMPARE(scenario->faults.size(), size_t(2));
    QVERIFY(scenario->timeLineFrom == Scenario::TimeLineFrom::FirstFrame);
    QCOMPARE(scenario->events.at(1).atUs, qint64(6000));
    QVERIFY(scenario->events.at(1).command.kind == Command::Kind::Range);
}

void TestScenario::timeLineIsSorted()
{
    QString error;
    const std::optional<Scenario> scenario = read(R"({"timeLine": [
        {"atMs": 9, "do": "unplug"}, {"atMs": 3, "do": "lose-link"}, {"atMs": 9, "do": "replug"}]})",
                                                  &error);
    QVERIFY2(scenario, qPrintable(error));
    QCOMPARE(scenario->events.at(0).text, QStringLiteral("lose-link"));
    QCOMPARE(scenario->events.at(1).text, QStringLiteral("unplug"));
    QCOMPARE(scenario->events.at(2).text, QStringLiteral("replug"));
}

void TestScenario::refusesWithTheLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("cause");
    const auto row = [](const char* name, const char* text, int line, const char* cause) {
        QTest::newRow(name) << QByteArray(text) << line << QString::fromLatin1(cause);
    };
    row("no JSON", "{\n\"seed\": 1\n\"faults\": []}", 3, "this is no JSON");
    row("empty", "", 1, "this is no JSON");
    row("no object", "[]", 1, "the file is no object");
    row("unknown member", "{\n\"sed\": 1}", 2, "\"sed\" is not known; known are: $schema, ");
    row("unknown member of a wrench", "{\"wrenches\": [\n{\"serial\": \"A\"},\n{\"serial\": \"B\",\n\"colour\": 1}]}",
        4, "\"colour\" is not known");
    row("member twice", "{\"seed\": 1,\n\"seed\": 2}", 2, "\"seed\" stands here a second time");
    row("seed", "{\"seed\": -1}", 1, "\"seed\" is no whole number from 0");
    row("half a seed", "{\"seed\": 0.5}", 1, "\"seed\" is no whole number");
    row("mode", "{\"dongle\":\n {\"mode\":\n \"loud\"}}", 2, "\"mode\" \"loud\" is not known; known are: redial");
    row("scan period", "{\"dongle\": {\"scanPeriodMs\": 0}}", 1, "\"scanPeriodMs\" is no whole number from 1");
    row("no wrench", "{\"wrenches\": []}", 1, "\"wrenches\" is no list of 1 to 250");
    row("wrench of text", "{\"wrenches\": [\n\"A\"]}", 2, "item 1 of \"wrenches\" is no object");
    row("no serial", "{\"wrenches\": [\n{}]}", 2, "\"serial\" is missing in item 1 of \"wrenches\"");
    row("serial of two words", "{\"wrenches\": [{\"serial\": \"A B\"}]}", 1, "\"A B\" is not one word");
    row("serial of a number", "{\"wrenches\": [{\"serial\": 2210}]}", 1, "\"serial\" is no text");
    row("address", "{\"wrenches\": [{\"serial\": \"A\",\n\"mac\": \"1\"}]}", 2, "\"1\" is no address");
    row("address twice", "{\"wrenches\": [{\"serial\": \"A\"},\n{\"serial\": \"B\", \"mac\": \"02:00:00:00:00:01\"}]}",
        2, "has the address 02:00:00:00:00:01 already");
    row("rssi", "{\"wrenches\": [{\"serial\": \"A\", \"rssiDbm\": 1}]}", 1, "\"rssiDbm\" is no whole number from -120");
    row("rate", "{\"wrenches\": [{\"serial\": \"A\", \"ratePerSecond\": 1001}]}", 1, "\"ratePerSecond\" is no number");
    row("range", "{\"wrenches\": [{\"serial\": \"A\", \"inRange\": 1}]}", 1, "\"inRange\" is neither true nor false");
    row("programs", "{\"wrenches\": [{\"serial\": \"A\", \"programs\": [\n\"UNT0\"]}]}", 2, "the program \"UNT0\"");
    row("fault", "{\"faults\": [\n\"flip\",\n\"flap\"]}", 3, "no fault is called \"flap\"");
    row("fault's wrench", "{\"faults\": [\"out-of-range:9\"]}", 1, "no wrench of this scenario has the serial number");
    row("start of the time line", "{\"timeLineFrom\": \"noon\"}", 1, "\"timeLineFrom\" \"noon\" is not known");
    row("no time", "{\"timeLine\": [\n{\"do\": \"unplug\"}]}", 2, "\"atMs\" is missing in item 1 of \"timeLine\"");
    row("no command", "{\"timeLine\": [{\"atMs\": 1}]}", 1, "\"do\" is missing");
    row("unknown command", "{\"timeLine\": [{\"atMs\": 1,\n\"do\": \"jump\"}]}", 2, "\"jump\" is no command");
    row("fault of an event", "{\"timeLine\": [{\"atMs\": 1,\n\"do\": \"fault flip%200\"}]}", 2, "\"200\" is no chance");
    row("wrench of an event", "{\"timeLine\": [{\"atMs\": 1,\n\"do\": \"range 9 off\"}]}", 2, "serial number \"9\"");
    row("question", "{\"timeLine\": [{\"atMs\": 1, \"do\": \"wrenches\"}]}", 1, "is for the console");
    row("escaped names and quotes", "{\"description\": \"a \\\"quoted\\\\\",\n\"s\\u0065ed\": -1}", 2, "\"seed\"");
}

void TestScenario::refusesWithTheLine()
{
    QFETCH(QByteArray, text);
    QFETCH(int, line);
    QFETCH(QString, cause);
    QString error;
    QVERIFY(!read(text, &error));
    QVERIFY2(error.startsWith(QStringLiteral("scenario f.json, line %1: ").arg(line)), qPrintable(error));
    QVERIFY2(error.contains(cause), qPrintable(error));
}

void TestScenario::refusesAFileThatCannotBeRead_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("missing") << QStringLiteral("/none/there.json");
    QTest::newRow("folder") << QStringLiteral("/tmp");
}

void TestScenario::refusesAFileThatCannotBeRead()
{
    QFETCH(QString, file);
    const ParsedOptions parsed = parse({QStringLiteral("--scenario"), file});
    QVERIFY(parsed.outcome == ParsedOptions::Outcome::Refuse);
    QVERIFY2(parsed.text.startsWith(QStringLiteral("scenario %1: cannot be read: ").arg(file)),
             qPrintable(parsed.text));
}

void TestScenario::refusesAFileWithoutAnEnd()
{
    QString error;
    QVERIFY(!readScenarioFile(QStringLiteral("/dev/zero"), &error));
    QVERIFY2(error.contains(QStringLiteral("is longer than")), qPrintable(error));
}

void TestScenario::optionsGoBeforeIt()
{
    const QString file = write(R"({"seed": 3, "dongle": {"mode": "drop", "linkDelayMs": 7, "answerDelayMs": 8},
        "wrenches": [{"serial": "A", "ratePerSecond": 1}, {"serial": "B", "programs": 5}], "faults": ["echo"]})");
    ParsedOptions parsed = parse({QStringLiteral("--scenario"), file, QStringLiteral("--seed"), QStringLiteral("4"),
                                  QStringLiteral("--mode"), QStringLiteral("transparent"),
                                  QStringLiteral("--link-delay"), QStringLiteral("9"), QStringLiteral("--rate"),
                                  QStringLiteral("50"), QStringLiteral("--fault"), QStringLiteral("double")});
    QVERIFY2(parsed.outcome == ParsedOptions::Outcome::Run, qPrintable(parsed.text));
    const Scenario& scenario = parsed.options.scenario;
    QCOMPARE(scenario.seed, quint32(4));
    QVERIFY(scenario.dongle.mode == Dongle::Mode::Transparent);
    QCOMPARE(scenario.dongle.linkDelayUs, qint64(9000));
    QCOMPARE(scenario.wrenches.at(0).ratePerSecond, 50.0);
    QCOMPARE(scenario.wrenches.at(1).ratePerSecond, 50.0);
    QCOMPARE(scenario.faults.size(), size_t(2));

    parsed = parse({QStringLiteral("--scenario"), file, QStringLiteral("--wrench"), QStringLiteral("C")});
    QCOMPARE(parsed.options.scenario.wrenches.size(), size_t(1));
    QCOMPARE(parsed.options.scenario.wrenches.at(0).serial, QByteArray("C"));
}

void TestScenario::whatNoOptionSaysIsLeftAlone()
{
    const QString file = write(R"({"seed": 3, "dongle": {"mode": "drop", "linkDelayMs": 7, "answerDelayMs": 8},
        "wrenches": [{"serial": "A", "ratePerSecond": 1}, {"serial": "B", "programs": 5}]})");
    const ParsedOptions parsed = parse({QStringLiteral("--scenario"), file});
    const Scenario& scenario = parsed.options.scenario;
    QCOMPARE(scenario.seed, quint32(3));
    QVERIFY(scenario.dongle.mode == Dongle::Mode::Drop);
    QCOMPARE(scenario.dongle.answerDelayUs, qint64(8000));
    QCOMPARE(scenario.wrenches.at(0).ratePerSecond, 1.0);
    QCOMPARE(scenario.wrenches.at(1).programs.size(), size_t(5));
}

QString TestScenario::write(const QByteArray& text)
{
    const QString path = m_folder.filePath(QStringLiteral("scenario.json"));
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() ? path : QString();
}

QTEST_GUILESS_MAIN(TestScenario)
#include "tst_scenario.moc"
