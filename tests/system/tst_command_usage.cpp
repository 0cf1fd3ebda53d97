#include <QDir>
#include <QFile>
#include <QJsonObject>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include "workplace_run.h"

namespace {

constexpr int c_usage = 2;
constexpr int c_setUpProblem = 3;

/// "run setLock lock=true" as arguments; what stands in quotes may hold no blank.
QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class TestCommandUsage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusesAWrongCommandLine_data();
    void refusesAWrongCommandLine();
    void takesOptionsBeforeAndBehindTheCommand_data();
    void takesOptionsBeforeAndBehindTheCommand();
    void showsItsHelp_data();
    void showsItsHelp();
    void listsTheElevenCommands();
    void tellsOfACommandOfTheDriver();
    void listsThePorts();
    void saysWhenItsResultsCannotBeWritten_data();
    void saysWhenItsResultsCannotBeWritten();
    void saysWhatTheSimulatorRefuses();
    void refusesAPortOfTheConfigurationThatNamesNoFile();
    void refusesAFolderWithoutPlugins_data();
    void refusesAFolderWithoutPlugins();
    void loadsTheGoodPluginsBesideABadFile();
    void runsWithoutAPluginThatIsNotNeeded();
    void refusesAWrongConfiguration_data();
    void refusesAWrongConfiguration();
    void refusesAConfigurationThatIsNotThere();
    void takesThePortFromTheConfiguration();
    void tellsOnlyResultsWhenQuiet();
    void tellsErrorsWhenQuiet();
    void tellsWhatIsInUseWhenVerbose();
    void speaksTheLanguageOfTheEnvironment();
    void speaksTheLanguageThatIsNamed();
    void speaksTheLanguageOfTheConfiguration();
    void letsTheDriverSpeakTheLanguage();
    void keepsWhatIsForPrograms();

private:
    static bool write(const QString& file, const QByteArray& text);
    static bool linkPlugins(const QTemporaryDir& folder, const QStringList& names);
};

bool TestCommandUsage::write(const QString& file, const QByteArray& text)
{
    QFile output(file);
    return output.open(QIODevice::WriteOnly) && output.write(text) == text.size();
}

bool TestCommandUsage::linkPlugins(const QTemporaryDir& folder, const QStringList& names)
{
    bool isDone = true;
    for (const QString& name : names) {
        isDone = QFile::link(QDir(QStringLiteral(PLUGINS)).filePath(name), folder.filePath(name)) && isDone;
    }
    return isDone;
}

void TestCommandUsage::refusesAWrongCommandLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    const auto row = [](const char* arguments, const char* named) {
        QTest::newRow(*arguments != '\0' ? arguments : "nothing") << words(arguments) << QString::fromUtf8(named);
    };
    row("", "no command is given");
    row("frobnicate", "\"frobnicate\"");
    row("session --frobnicate", "frobnicate");
    row("--frobnicate session", "frobnicate");
    row("session --count none", "--count takes a whole number from 1 to 1000000, not \"none\"");
    row("session --count 0", "--count");
    row("session --count -1", "--count");
    row("session --duration long", "--duration");
    row("session --limit nan", "--limit");
    row("session --program two", "--program");
    row("session more", "\"more\"");
    row("session --port /dev/no-such-port", "--serial-id");
    row("scan more", "\"more\"");
    row("scan --duration long", "--duration");
    row("ports more", "\"more\"");
    row("commands setLock setProgram", "one command");
    row("commands frobnicate", "\"frobnicate\"");
    row("commands driver/setLock", "\"driver/setLock\"");
    row("commands elsewhere/write", "\"elsewhere/write\"");
    row("ports --port simulated:", "the port \"simulated:\" names no file");
    row("run", "no command of a plugin is named");
    row("run frobnicate", "\"frobnicate\"");
    row("run elsewhere/setLock lock=true", "\"setLock\"");
    row("run setLock", "needs the parameter \"lock\"");
    row("run setLock lock", "\"lock\" is not of the form name=value");
    row("run setLock lock=maybe", "takes true or false, not \"maybe\"");
    row("run setLock lock=true lock=false", "given twice");
    row("run setLock key=true", "has no parameter \"key\"");
    row("run setProgram progId=two", "takes a whole number, not \"two\"");
    row("run setProgram progId=1.5", "takes a whole number, not \"1.5\"");
    row("run setProgram progId=99999999999", "takes a whole number");
    row("run setLock lock=true --limit soon", "--limit");
}

void TestCommandUsage::refusesAWrongCommandLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    WorkplaceRun run;
    QVERIFY(run.start(arguments));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), c_usage);
    QVERIFY2(run.messages().contains(named), run.report());
    QCOMPARE(run.output(), QString());
}

void TestCommandUsage::takesOptionsBeforeAndBehindTheCommand_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("before") << words("--json commands setLock");
    QTest::newRow("between") << words("commands --json setLock");
    QTest::newRow("behind") << words("commands setLock --json");
}

void TestCommandUsage::takesOptionsBeforeAndBehindTheCommand()
{
    QFETCH(QStringList, arguments);
    WorkplaceRun run;
    QVERIFY(run.start(arguments));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    QCOMPARE(run.events(QStringLiteral("command")).size(), 1);
}

void TestCommandUsage::showsItsHelp_data()
{
    QTest::addColumn<QStringList>("arguments");
    for (const char* arguments : {"--help", "-h", "session --help", "scan --help", "run --help", "commands --help",
                                  "ports --help", "--help session"}) {
        QTest::newRow(arguments) << words(arguments);
    }
}

void TestCommandUsage::showsItsHelp()
{
    QFETCH(QStringList, arguments);
    WorkplaceRun run;
    QVERIFY(run.start(arguments));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    QVERIFY2(run.output().startsWith(QLatin1String("Usage: app_workplace ")), run.report());
    QVERIFY2(run.output().contains(QLatin1String("--port PATH|simulated")), run.report());
    QCOMPARE(run.messages(), QString());
}

void TestCommandUsage::listsTheElevenCommands()
{
    WorkplaceRun run;
    QVERIFY(run.start(words("commands --json")));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    QStringList names;
    const QList<QJsonObject> commands = run.events(QStringLiteral("command"));
    for (const QJsonObject& command : commands) {
        if (command.value(QLatin1String("plugin")).toString() == QLatin1String("Plugin Device Haitor")) {
            names.append(command.value(QLatin1String("command")).toObject().value(QLatin1String("name")).toString());
        }
    }
    std::sort(names.begin(), names.end());
    QCOMPARE(names, words("checkSerialId getPresetData listProgram listenEventsData searchAndConnect sendInitConfig "
                          "setKeepAlive setKeepAliveFonction setLock setProgram startDetection"));
}

void TestCommandUsage::tellsOfACommandOfTheDriver()
{
    WorkplaceRun run;
    QVERIFY(run.start(words("commands --json driver/listenEventsData")));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    const QList<QJsonObject> commands = run.events(QStringLiteral("command"));
    QCOMPARE(commands.size(), 1); // the device has one of that name, too
    QCOMPARE(commands.first().value(QLatin1String("plugin")).toString(), QStringLiteral("Plugin Driver Serial"));
}

void TestCommandUsage::saysWhenItsResultsCannotBeWritten_data()
{
    QTest::addColumn<QString>("arguments");
    for (const char* arguments : {"--help", "--version", "ports", "doctor", "session --count 1"}) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments);
    }
}

void TestCommandUsage::saysWhenItsResultsCannotBeWritten()
{
    QFETCH(QString, arguments);
    const QTemporaryDir folder;
    ProgramRun run;
    QVERIFY(run.start(QStringLiteral("sh"),
                      {QStringLiteral("-c"), QStringLiteral("exec \"%1\" --verbose --data \"%2\" %3 > /dev/full")
                                                 .arg(QStringLiteral(APP_WORKPLACE), folder.path(), arguments)}));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), c_setUpProblem);
    QVERIFY2(run.messages().contains(QLatin1String("The results cannot be written")), run.report());
    QVERIFY2(!run.messages().contains(QLatin1String("exit status 0")), run.report());
}

void TestCommandUsage::saysWhatTheSimulatorRefuses()
{
    WorkplaceRun run;
    QVERIFY(run.start({QStringLiteral("session"), QStringLiteral("--serial-id"), QStringLiteral("a b")}));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), c_setUpProblem);
    QVERIFY2(run.messages().contains(QLatin1String("the serial number must be one word")), run.report());
    QVERIFY2(run.messages().contains(QLatin1String("name another one with --serial-id")), run.report());
    QVERIFY2(!run.messages().contains(QLatin1String("install")), run.report());
}

void TestCommandUsage::refusesAPortOfTheConfigurationThatNamesNoFile()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("configuration.json"));
    QVERIFY(write(file, "{\n  \"port\": \"simulated:\"\n}"));
    WorkplaceRun run;
    QVERIFY(run.start(words("session --config") << file));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), c_setUpProblem);
    QVERIFY2(run.messages().contains(file + QLatin1String(" is not used, line 2")), run.report());
    QVERIFY2(!run.messages().contains(QLatin1String("QFSFileEngine")), run.report());
}

void TestCommandUsage::listsThePorts()
{
    WorkplaceRun run;
    QVERIFY(run.start(words("ports")));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    const QString all = run.output() + run.messages();
    QVERIFY2(all.contains(QLatin1String("usable")) || all.contains(QLatin1String("has no serial port")), run.report());
}

void TestCommandUsage::refusesAFolderWithoutPlugins_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::addColumn<QString>("cause");
    QTest::newRow("missing") << false << QStringLiteral("there is no such folder");
    QTest::newRow("empty") << true << QStringLiteral("it holds no library");
}

void TestCommandUsage::refusesAFolderWithoutPlugins()
{
    QFETCH(bool, isThere);
    QFETCH(QString, cause);
    const QTemporaryDir folder;
    const QString path = isThere ? folder.path() : folder.filePath(QStringLiteral("missing"));
    for (const char* command : {"session", "scan", "run setLock lock=true", "commands"}) {
        WorkplaceRun run;
        QVERIFY(run.start(words(command) + QStringList{QStringLiteral("--plugins"), path}));
        QVERIFY2(run.waitForEnd(), run.report());
        QCOMPARE(run.exitStatus(), c_setUpProblem);
        QVERIFY2(run.messages().contains(path) && run.messages().contains(cause), run.report());
    }
}

void TestCommandUsage::loadsTheGoodPluginsBesideABadFile()
{
    const QTemporaryDir folder;
    QVERIFY(linkPlugins(folder, words("p_device_haitor.so p_driver_serial.so")));
    const QString bad = folder.filePath(QStringLiteral("a_bad_one.so"));
    QVERIFY(write(bad, "no library\n"));
    WorkplaceRun run;
    QVERIFY(run.start(words("session --json --count 1 --plugins") << folder.path()));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    QCOMPARE(run.events(QStringLiteral("result")).size(), 1);
    QVERIFY2(run.messages().contains(bad) && run.messages().contains(QLatin1String("is no Qt plugin")), run.report());
}

void TestCommandUsage::runsWithoutAPluginThatIsNotNeeded()
{
    const QTemporaryDir folder;
    QVERIFY(linkPlugins(folder, words("p_device_haitor.so")));
    WorkplaceRun listing;
    QVERIFY(listing.start(words("commands --plugins") << folder.path()));
    QVERIFY2(listing.waitForEnd(), listing.report());
    QCOMPARE(listing.exitStatus(), 0);

    WorkplaceRun session;
    QVERIFY(session.start(words("session --plugins") << folder.path()));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), c_setUpProblem);
    QVERIFY2(session.messages().contains(QLatin1String("there is no driver plugin")), session.report());
}

void TestCommandUsage::refusesAWrongConfiguration_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("named");
    const auto row = [](const char* name, const char* text, const char* named) {
        QTest::newRow(name) << QByteArray(text) << QString::fromUtf8(named);
    };
    row("empty", "", "line 1");
    row("no JSON", "{\n  \"port\":\n", "line 3\n");
    row("no object", "[]", "it is not a JSON object");
    row("unknown entry", "{\n  \"prot\": \"/dev/x\"\n}", "line 2\n  why: \"prot\" is not known\n");
    row("wrong type", "{ \"port\": 7 }", "\"port\" is not a text");
    row("driver of a wrong type", "{ \"driver\": \"fast\" }", "\"driver\" is not an object");
    row("driver's setting out of range", "{ \"driver\": { \"baudRate\": -1 } }", "baudRate");
    row("driver's setting of a wrong type", "{ \"driver\": { \"parity\": true } }", "parity");
}

void TestCommandUsage::refusesAWrongConfiguration()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, named);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("configuration.json"));
    QVERIFY(write(file, text));
    WorkplaceRun run;
    QVERIFY(run.start(words("session --config") << file));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), c_setUpProblem);
    QVERIFY2(run.messages().contains(named), run.report());
}

void TestCommandUsage::refusesAConfigurationThatIsNotThere()
{
    WorkplaceRun run;
    QVERIFY(run.start(words("session --config /no/such/file")));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), c_setUpProblem);
    QVERIFY2(run.messages().contains(QLatin1String("/no/such/file")), run.report());
}

void TestCommandUsage::takesThePortFromTheConfiguration()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("configuration.json"));
    QVERIFY(write(file, "{ \"port\": \"/dev/no-such-port\", \"serialId\": \"2210\" }"));
    WorkplaceRun run;
    QVERIFY(run.start(words("session --config") << file));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), c_setUpProblem);
    QVERIFY2(run.messages().contains(QLatin1String("/dev/no-such-port")), run.report());
}

void TestCommandUsage::tellsOnlyResultsWhenQuiet()
{
    WorkplaceRun run;
    QVERIFY(run.start(words("session --count 2 --quiet")));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    const QStringList lines = run.outputLines();
    QCOMPARE(lines.size(), 3); // the titles, and a line for each result
    QVERIFY2(lines.first().contains(QLatin1String("torque")), run.report());
    QCOMPARE(run.messages(), QString());
}

void TestCommandUsage::tellsErrorsWhenQuiet()
{
    WorkplaceRun run;
    QVERIFY(run.start(words("session --quiet --program 9")));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 1);
    QCOMPARE(run.output(), QString());
    QVERIFY2(run.messages().contains(QLatin1String("the program could not be selected")), run.report());
}

void TestCommandUsage::tellsWhatIsInUseWhenVerbose()
{
    WorkplaceRun run;
    QVERIFY(run.start(words("run checkSerialId --verbose")));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), 0);
    for (const char* told : {"app_workplace 0.", "no configuration file", "Plugin Device Haitor, Plugin Driver Serial",
                             "run ended after", "exit status 0"}) {
        QVERIFY2(run.messages().contains(QLatin1String(told)), run.report());
    }
    QVERIFY2(!run.output().contains(QLatin1String("app_workplace")), run.report());
}

void TestCommandUsage::speaksTheLanguageOfTheEnvironment()
{
    const QByteArray before = qgetenv("LC_ALL");
    qputenv("LC_ALL", "de_DE.UTF-8");
    WorkplaceRun run;
    const bool isStarted = run.start(words("session --help"));
    qputenv("LC_ALL", before);
    QVERIFY(isStarted);
    QVERIFY2(run.waitForEnd(), run.report());
    QVERIFY2(run.output().startsWith(QLatin1String("Aufruf: app_workplace ")), run.report());
    QVERIFY2(run.output().contains(QLatin1String("Optionen dieses Befehls")), run.report());
}

void TestCommandUsage::speaksTheLanguageThatIsNamed()
{
    WorkplaceRun run;
    QVERIFY(run.start(words("dance --language fr")));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), c_usage);
    QVERIFY2(run.messages().contains(QString::fromUtf8("la commande « dance » n’existe pas")), run.report());
}

void TestCommandUsage::speaksTheLanguageOfTheConfiguration()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("configuration.json"));
    QVERIFY(write(file, "{ \"language\": \"de\" }"));
    WorkplaceRun run;
    QVERIFY(run.start(words("run frobnicate --config") << file));
    QVERIFY2(run.waitForEnd(), run.report());
    QVERIFY2(run.messages().contains(QString::fromUtf8("kein geladenes Plugin hat den Befehl")), run.report());
}

void TestCommandUsage::letsTheDriverSpeakTheLanguage()
{
    WorkplaceRun run;
    QVERIFY(run.start(words("scan --language de --port /dev/no-such-port")));
    QVERIFY2(run.waitForEnd(), run.report());
    QCOMPARE(run.exitStatus(), c_setUpProblem);
    QVERIFY2(run.messages().contains(QString::fromUtf8("Den Anschluss /dev/no-such-port gibt es nicht")), run.report());
}

void TestCommandUsage::keepsWhatIsForPrograms()
{
    QList<QStringList> keys;
    for (const char* language : {"en", "de"}) {
        WorkplaceRun run;
        QVERIFY(run.start(words("session --json --program 9 --language") << QLatin1String(language)));
        QVERIFY2(run.waitForEnd(), run.report());
        QStringList all;
        const QList<QJsonObject> events = run.events();
        for (const QJsonObject& event : events) {
            const bool isScan =
                event.value(QLatin1String("event")) == QLatin1String("scan"); // as often as they are heard
            all += isScan ? QStringList()
                          : event.keys() + QStringList{event.value(QLatin1String("event")).toString(),
                                                       event.value(QLatin1String("step")).toString()};
        }
        QVERIFY2(all.contains(QLatin1String("select")), run.report());
        keys.append(all);
    }
    QCOMPARE(keys.first(), keys.last());
}

QTEST_GUILESS_MAIN(TestCommandUsage)

#include "tst_command_usage.moc"
