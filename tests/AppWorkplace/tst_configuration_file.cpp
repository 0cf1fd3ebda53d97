#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include "services/configuration_file.h"

namespace {

/// A command "dance" with one setting of each kind.
configuration::Sections sections()
{
    return {{QStringLiteral("dance"),
             {{QStringLiteral("steps"), configuration::Value::WholeNumber},
              {QStringLiteral("speed"), configuration::Value::Number},
              {QStringLiteral("alone"), configuration::Value::Switch},
              {QStringLiteral("tune"), configuration::Value::Text},
              {QStringLiteral("with"), configuration::Value::TextList}}}};
}

} // namespace

class TestConfigurationFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEachKey();
    void leavesAloneWhatIsNotSaid();
    void refusesWithTheLine_data();
    void refusesWithTheLine();
    void takesCommentsEverywhere();
    void changesNothingWhenItRefuses();
    void refusesAFileThatCannotBeRead();
    void refusesAHugeFileByItsSize();
    void refusesADeviceThatNeverEnds();
    void readsTheExample();
};

void TestConfigurationFile::readsEachKey()
{
    Settings settings;
    const auto problem = configuration::read(R"({"port": "/dev/x", "serialId": "7", "plugins": "p", "data": "d",
        "trace": "t", "language": "de", "json": true, "quiet": true, "verbose": true, "driver": {"baudRate": 9600},
        "dance": {"steps": 2, "speed": 1.5, "alone": true, "tune": "t", "with": ["a", "b"]}})",
                                             QStringLiteral("f"), sections(), settings);
    QVERIFY(!problem);
    QCOMPARE(
        (QStringList{settings.port, settings.serialId, settings.pluginFolder, settings.dataFolder, settings.traceFile}),
        (QStringList{QStringLiteral("/dev/x"), QStringLiteral("7"), QStringLiteral("p"), QStringLiteral("d"),
                     QStringLiteral("t")}));
    QCOMPARE(settings.language, QStringLiteral("de"));
    QVERIFY(settings.isJson && settings.isQuiet && settings.isVerbose);
    QCOMPARE(settings.commands.value(QStringLiteral("dance")).toObject().keys(),
             (QStringList{QStringLiteral("alone"), QStringLiteral("speed"), QStringLiteral("steps"),
                          QStringLiteral("tune"), QStringLiteral("with")}));
    QCOMPARE(settings.commands.value(QStringLiteral("dance")).toObject().value(QLatin1String("with")).toArray(),
             (QJsonArray{QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(settings.driver, (QJsonObject{{QStringLiteral("baudRate"), 9600}}));
}

void TestConfigurationFile::leavesAloneWhatIsNotSaid()
{
    Settings settings;
    settings.serialId = QStringLiteral("2210");
    QVERIFY(!configuration::read("{}", QStringLiteral("f"), sections(), settings));
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
    QTest::newRow("a text for a switch") << QByteArray("{\"json\": \"yes\"}") << 1
                                         << "\"json\" is neither true nor false";
    QTest::newRow("unknown key of a command")
        << QByteArray("{\"dance\":\n{\"stepz\": 1}}") << 2 << "\"stepz\" is not known";
    QTest::newRow("a fraction for a whole number")
        << QByteArray("{\"dance\":\n{\"steps\": 1.5}}") << 2 << "\"steps\" is not a whole number";
    QTest::newRow("a text for a number") << QByteArray("{\"dance\":\n{\"speed\": \"1\"}}") << 2
                                         << "\"speed\" is not a number";
    QTest::newRow("a text for a list") << QByteArray("{\"dance\":\n{\"with\": \"a\"}}") << 2
                                       << "\"with\" is not a list of texts";
    QTest::newRow("a number in a list") << QByteArray("{\"dance\":\n{\"with\": [\"a\", 1]}}") << 2
                                        << "\"with\" is not a list of texts";
    QTest::newRow("a text for a command") << QByteArray("{\"dance\": \"x\"}") << 1 << "\"dance\" is not an object";
    QTest::newRow("a comment that is no text") << QByteArray("{\n\"//port\": 5}") << 2 << "\"//port\" is not known";
    QTest::newRow("a key with an escape") << QByteArray("{\n\"pr\\u006ft\": \"x\"}") << 2 << "\"prot\" is not known";
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
    const auto problem = configuration::read(text, QStringLiteral("my.json"), sections(), settings);
    QVERIFY(problem);
    QCOMPARE(problem->what, QStringLiteral("the configuration my.json is not used, line %1").arg(line));
    QVERIFY2(cause.isEmpty() || problem->cause == cause, qPrintable(problem->cause));
    QVERIFY(!problem->cause.isEmpty());
    QVERIFY(!problem->mend.isEmpty());
    QCOMPARE(problem->exitStatus(), 3);
}

void TestConfigurationFile::takesCommentsEverywhere()
{
    Settings settings;
    QVERIFY(!configuration::read(R"({"//": "a", "//port": "b", "driver": {"//": "c"}, "dance": {"//steps": "d"}})",
                                 QStringLiteral("f"), sections(), settings));
    QVERIFY(settings.driver.isEmpty());
    QVERIFY(settings.commands.value(QStringLiteral("dance")).toObject().isEmpty());
}

void TestConfigurationFile::changesNothingWhenItRefuses()
{
    Settings settings;
    QVERIFY(configuration::read(R"({"port": "x", "serialId": 5})", QStringLiteral("f"), sections(), settings));
    QCOMPARE(settings.port, QStringLiteral("simulated"));
}

void TestConfigurationFile::refusesAFileThatCannotBeRead()
{
    const QTemporaryDir folder;
    Settings settings;
    const QString file = folder.filePath(QStringLiteral("none.json"));
    const auto problem = configuration::readFile(file, sections(), settings);
    QVERIFY(problem);
    QVERIFY2(problem->what.contains(file), qPrintable(problem->what));
    QVERIFY(!problem->cause.isEmpty());
    QCOMPARE(problem->exitStatus(), 3);
}

void TestConfigurationFile::refusesAHugeFileByItsSize()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("huge.json")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(qint64{2} * 1024 * 1024 * 1024)); // without a block on the disk
    file.close();
    Settings settings;
    const auto problem = configuration::readFile(file.fileName(), sections(), settings);
    QVERIFY(problem);
    QVERIFY2(problem->what.contains(file.fileName()), qPrintable(problem->what));
    QVERIFY2(problem->cause.contains(QString::number(configuration::c_maxFileBytes)), qPrintable(problem->cause));
    QCOMPARE(problem->exitStatus(), 3);
}

void TestConfigurationFile::refusesADeviceThatNeverEnds()
{
    Settings settings;
    const auto problem = configuration::readFile(QStringLiteral("/dev/zero"), sections(), settings);
    QVERIFY(problem);
    QVERIFY2(problem->cause.contains(QString::number(configuration::c_maxFileBytes)), qPrintable(problem->cause));
}

void TestConfigurationFile::readsTheExample()
{
    Settings settings;
    const auto problem =
        configuration::readFile(QStringLiteral(SOURCE_FOLDER "/examples/configuration.json"), sections(), settings);
    QVERIFY2(!problem, problem ? qPrintable(problem->cause) : "");
    QVERIFY(!settings.isSimulated());
    QVERIFY(!settings.serialId.isEmpty());
}

QTEST_GUILESS_MAIN(TestConfigurationFile)
#include "tst_configuration_file.moc"
