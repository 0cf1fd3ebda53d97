#include <QtTest>

#include <QTemporaryDir>

#include "services/configuration_file.h"

class TestConfigurationFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEachKey();
    void leavesAloneWhatIsNotSaid();
    void refusesWithTheLine_data();
    void refusesWithTheLine();
    void changesNothingWhenItRefuses();
    void refusesAFileThatCannotBeRead();
    void readsTheExample();
};

void TestConfigurationFile::readsEachKey()
{
    Settings settings;
    const auto problem = readConfiguration(R"({"port": "/dev/x", "serialId": "7", "plugins": "p", "data": "d",
        "trace": "t", "driver": {"baudRate": 9600}})",
                                           QStringLiteral("f"), settings);
    QVERIFY(!problem);
    QCOMPARE(
        (QStringList{settings.port, settings.serialId, settings.pluginFolder, settings.dataFolder, settings.traceFile}),
        (QStringList{QStringLiteral("/dev/x"), QStringLiteral("7"), QStringLiteral("p"), QStringLiteral("d"),
                     QStringLiteral("t")}));
    QCOMPARE(settings.driver, (QJsonObject{{QStringLiteral("baudRate"), 9600}}));
}

void TestConfigurationFile::leavesAloneWhatIsNotSaid()
{
    Settings settings;
    settings.serialId = QStringLiteral("2210");
    QVERIFY(!readConfiguration("{}", QStringLiteral("f"), settings));
    QCOMPARE(settings.serialId, QStringLiteral("2210"));
    QCOMPARE(settings.port, QStringLiteral("simulated"));
}

void TestConfigurationFile::refusesWithTheLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("cause");
    QTest::newRow("unknown key") << QByteArray("{\n\"port\": \"x\",\n\"prot\": \"y\"\n}") << 3
                                 << "\"prot\" is not known";
    QTest::newRow("a number for a text") << QByteArray("{\n\n\"serialId\": 2210}") << 3 << "\"serialId\" is not a text";
    QTest::newRow("a text for an object")
        << QByteArray("{\n\"driver\": \"fast\"}") << 2 << "\"driver\" is not an object";
    QTest::newRow("null") << QByteArray("{\"data\": null}") << 1 << "\"data\" is not a text";
    QTest::newRow("a value that looks like the key")
        << QByteArray("{\n\"port\": \"prot:\",\n\"prot\": \"y\"}") << 3 << "\"prot\" is not known";
    QTest::newRow("a key of the driver's")
        << QByteArray("{\"driver\": {\n\"trace\": 1},\n\"trace\": 2}") << 3 << "\"trace\" is not a text";
    QTest::newRow("broken") << QByteArray("{\n\"port\": \"x\"\n\"data\": \"y\"\n}") << 3 << "";
    QTest::newRow("cut off") << QByteArray("{\n\"port\": \"x\"\n") << 3 << "";
    QTest::newRow("empty") << QByteArray() << 1 << "";
    QTest::newRow("an array") << QByteArray("[]") << 1 << "it is not a JSON object";
}

void TestConfigurationFile::refusesWithTheLine()
{
    QFETCH(QByteArray, text);
    QFETCH(int, line);
    QFETCH(QString, cause);
    Settings settings;
    const auto problem = readConfiguration(text, QStringLiteral("my.json"), settings);
    QVERIFY(problem);
    QCOMPARE(problem->what, QStringLiteral("the configuration my.json is not used, line %1").arg(line));
    QVERIFY2(cause.isEmpty() || problem->cause == cause, qPrintable(problem->cause));
    QVERIFY(!problem->cause.isEmpty());
    QVERIFY(!problem->mend.isEmpty());
    QCOMPARE(problem->exitStatus(), 3);
}

void TestConfigurationFile::changesNothingWhenItRefuses()
{
    Settings settings;
    QVERIFY(readConfiguration(R"({"port": "x", "serialId": 5})", QStringLiteral("f"), settings));
    QCOMPARE(settings.port, QStringLiteral("simulated"));
}

void TestConfigurationFile::refusesAFileThatCannotBeRead()
{
    const QTemporaryDir folder;
    Settings settings;
    const QString file = folder.filePath(QStringLiteral("none.json"));
    const auto problem = readConfigurationFile(file, settings);
    QVERIFY(problem);
    QVERIFY2(problem->what.contains(file), qPrintable(problem->what));
    QVERIFY(!problem->cause.isEmpty());
    QCOMPARE(problem->exitStatus(), 3);
}

void TestConfigurationFile::readsTheExample()
{
    Settings settings;
    const auto problem = readConfigurationFile(QStringLiteral(SOURCE_FOLDER "/examples/configuration.json"), settings);
    QVERIFY2(!problem, problem ? qPrintable(problem->cause) : "");
    QVERIFY(!settings.isSimulated());
    QVERIFY(!settings.serialId.isEmpty());
}

QTEST_GUILESS_MAIN(TestConfigurationFile)
#include "tst_configuration_file.moc"
