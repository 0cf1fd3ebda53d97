#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMap>
#include <QStringList>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>

#include "cli/all_commands.h"
#include "cli/command_line.h"
#include "cli/number_options.h"

namespace {

const QList<CliEntry>& entries()
{
    static const QList<CliEntry> all = allCommands();
    return all;
}

/// A configuration file with that text.
class ConfigurationText
{
public:
    explicit ConfigurationText(const char* text)
    {
        m_file.open();
        m_file.write(text);
        m_file.close();
    }
    QString name() const { return m_file.fileName(); }

private:
    QTemporaryFile m_file;
};

/// words: behind the program's name, a blank apart.
Invocation read(const QString& words)
{
    return readCommandLine(
        QStringList{QStringLiteral("app_workplace")} + words.split(QLatin1Char(' '), Qt::SkipEmptyParts), entries());
}

/// What is wrong with the words, also when only the command itself finds it.
Problem problemOf(const QString& words)
{
    const Invocation invocation = read(words);
    Console console(stdout, stderr, false);
    Problem problem;
    invocation.make(console, entries(), &problem);
    return problem;
}

} // namespace

class TestCommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { qputenv("XDG_CONFIG_HOME", "/nowhere"); }

    void takesOptionsAnywhere_data();
    void takesOptionsAnywhere();
    void takesAValueThatLooksLikeACommand();
    void passesOnTheArguments();
    void refusesWrongUse_data();
    void refusesWrongUse();
    void acceptsGoodUse_data();
    void acceptsGoodUse();
    void showsTheHelp_data();
    void showsTheHelp();
    void showsTheVersion();
    void putsTheCommandLineBeforeTheConfiguration();
    void refusesAWrongConfiguration();
    void readsThisUsersOwnConfiguration();
    void takesACommandsOptionsFromTheConfiguration();
    void leavesTheOptionsOfOtherCommandsAlone();
    void namesTheFileForAnOptionThatTheCommandRefuses();
    void remembersWhereEachSettingComesFrom();
    void knowsTheSimulatorsWrench();
    void readsSecondsAsMilliseconds();
};

void TestCommandLine::takesOptionsAnywhere_data()
{
    QTest::addColumn<QString>("words");
    QTest::newRow("before") << "--port /dev/x --json --serial-id 7 session --count 2";
    QTest::newRow("behind") << "session --count 2 --port /dev/x --json --serial-id 7";
    QTest::newRow("both") << "--port /dev/x --count 2 session --serial-id 7 --json";
    QTest::newRow("with equals signs") << "--port=/dev/x session --count=2 --json --serial-id=7";
}

void TestCommandLine::takesOptionsAnywhere()
{
    QFETCH(QString, words);
    const Invocation invocation = read(words);
    QCOMPARE(invocation.problem.what, QString());
    QCOMPARE(invocation.entry->name, QStringLiteral("session"));
    QCOMPARE(invocation.settings.port, QStringLiteral("/dev/x"));
    QCOMPARE(invocation.settings.serialId, QStringLiteral("7"));
    QVERIFY(invocation.isJson);
    QCOMPARE(invocation.options->value(QStringLiteral("count")), QStringLiteral("2"));
    QCOMPARE(invocation.arguments, QStringList());
}

void TestCommandLine::takesAValueThatLooksLikeACommand()
{
    const Invocation invocation = read(QStringLiteral("--data scan --duration 5 scan --trace run"));
    QCOMPARE(invocation.entry->name, QStringLiteral("scan"));
    QCOMPARE(invocation.settings.dataFolder, QStringLiteral("scan"));
    QCOMPARE(invocation.settings.traceFile, QStringLiteral("run"));
}

void TestCommandLine::passesOnTheArguments()
{
    const Invocation invocation = read(QStringLiteral("run --plugins p setLock lock=true"));
    QCOMPARE(invocation.arguments, (QStringList{QStringLiteral("setLock"), QStringLiteral("lock=true")}));
    QCOMPARE(invocation.settings.pluginFolder, QStringLiteral("p"));
}

void TestCommandLine::refusesWrongUse_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("what");
    const auto number = [](const char* option, const char* text) {
        return QStringLiteral("--%1 takes a whole number from 1 to 1000000, not \"%2\"")
            .arg(QLatin1String(option), QLatin1String(text));
    };
    const auto seconds = [](const char* option, const char* least, const char* text) {
        return QStringLiteral("--%1 takes seconds from %2 to 1000000, not \"%3\"")
            .arg(QLatin1String(option), QLatin1String(least), QLatin1String(text));
    };
    QTest::newRow("nothing") << ""
                             << "no command is given";
    QTest::newRow("only options") << "--json"
                                  << "no command is given";
    QTest::newRow("unknown command") << "dance"
                                     << "there is no command \"dance\"";
    QTest::newRow("unknown option") << "session --cuont 2"
                                    << "there is no option \"--cuont\"";
    QTest::newRow("unknown option without a command") << "--cuont"
                                                      << "there is no option \"--cuont\"";
    QTest::newRow("option of another command") << "scan --count 2"
                                               << "there is no option \"--count\"";
    QTest::newRow("option without its value") << "session --port"
                                              << "missing value after '--port'";
    QTest::newRow("switch with a value") << "session --json=1"
                                         << "unexpected value after '--json'";
    QTest::newRow("unknown language") << "session --language nl"
                                      << "there is no language \"nl\"";
    QTest::newRow("completion for no shell") << "completion fish"
                                             << "for which shell is not said, or for one that is not known";
    QTest::newRow("config with an argument") << "config now"
                                             << "the configuration takes no argument \"now\"";
    QTest::newRow("session with an argument") << "session now"
                                              << "a session takes no argument \"now\"";
    QTest::newRow("session without a wrench") << "session --port /dev/x"
                                              << "which wrench is not said";
    QTest::newRow("count 0") << "session --count 0" << number("count", "0");
    QTest::newRow("count with a fraction") << "session --count 2.5" << number("count", "2.5");
    QTest::newRow("count too great") << "session --count 1000001" << number("count", "1000001");
    QTest::newRow("count as a text") << "session --count two" << number("count", "two");
    QTest::newRow("program 0") << "session --program 0" << number("program", "0");
    QTest::newRow("negative duration") << "session --duration=-1" << seconds("duration", "0.001", "-1");
    QTest::newRow("no duration") << "session --duration 0" << seconds("duration", "0.001", "0");
    QTest::newRow("no number") << "session --duration nan" << seconds("duration", "0.001", "nan");
    QTest::newRow("endless") << "session --limit inf" << seconds("limit", "0.001", "inf");
    QTest::newRow("duration too great") << "scan --duration 1000001" << seconds("duration", "0", "1000001");
    QTest::newRow("scan with an argument") << "scan 2210"
                                           << "a scan takes no argument \"2210\"";
    QTest::newRow("run without a command") << "run"
                                           << "no command of a plugin is named";
    QTest::newRow("run with a wrong limit") << "run setLock --limit 0" << seconds("limit", "0.001", "0");
    QTest::newRow("run on an unnamed wrench") << "run --port /dev/x --connect listProgram"
                                              << "which wrench is to be connected is not said";
    QTest::newRow("two commands to tell about") << "commands a b"
                                                << "one command can be told about, not 2";
    QTest::newRow("ports with an argument") << "ports all"
                                            << "the list of ports takes no argument \"all\"";
}

void TestCommandLine::refusesWrongUse()
{
    QFETCH(QString, words);
    QFETCH(QString, what);
    const Problem problem = problemOf(words);
    QCOMPARE(problem.what, what);
    QCOMPARE(problem.exitStatus(), 2);
}

void TestCommandLine::acceptsGoodUse_data()
{
    QTest::addColumn<QString>("words");
    QTest::newRow("session") << "session";
    QTest::newRow("session with all") << "session --program 1 --count 1000000 --duration 0.001 --limit 1e3";
    QTest::newRow("endless scan") << "scan --duration 0";
    QTest::newRow("run") << "run driver/write frame=ATS --limit 2";
    QTest::newRow("run on the simulated wrench") << "run --connect listProgram";
    QTest::newRow("commands") << "commands";
    QTest::newRow("ports") << "ports";
}

void TestCommandLine::acceptsGoodUse()
{
    QFETCH(QString, words);
    QCOMPARE(problemOf(words).what, QString());
}

void TestCommandLine::showsTheHelp_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("program") << "--help"
                             << QStringList{QStringLiteral("session"), QStringLiteral("ports"),
                                            QStringLiteral("--serial-id"), QStringLiteral("Exit status")};
    QTest::newRow("short") << "-h" << QStringList{QStringLiteral("Exit status")};
    for (const CliEntry& entry : entries()) {
        QStringList expected{QStringLiteral("Usage: app_workplace [options] ") + entry.name, entry.summary,
                             QStringLiteral("--json")};
        for (const QCommandLineOption& option : entry.options) {
            expected.append(QStringLiteral("--") + option.names().constLast());
        }
        QTest::newRow(qPrintable(entry.name)) << entry.name + QStringLiteral(" --help") << expected;
        QTest::newRow(qPrintable(QStringLiteral("before ") + entry.name))
            << QStringLiteral("--help ") + entry.name << expected;
    }
}

void TestCommandLine::showsTheHelp()
{
    QFETCH(QString, words);
    QFETCH(QStringList, expected);
    const Invocation invocation = read(words);
    QCOMPARE(invocation.problem.what, QString());
    for (const QString& text : qAsConst(expected)) {
        QVERIFY2(invocation.help.contains(text), qPrintable(text));
    }
}

void TestCommandLine::showsTheVersion()
{
    QCoreApplication::setApplicationVersion(QStringLiteral("7.8.9"));
    for (const char* words : {"--version", "session --version", "--version --port /dev/a"}) {
        const Invocation invocation = read(QLatin1String(words));
        QCOMPARE(invocation.problem.what, QString());
        QCOMPARE(invocation.help, QStringLiteral("app_workplace 7.8.9"));
    }
}

void TestCommandLine::putsTheCommandLineBeforeTheConfiguration()
{
    const ConfigurationText file(R"({"port": "/dev/a", "serialId": "1"})");
    const Invocation invocation = read(QStringLiteral("session --port /dev/b --config ") + file.name());
    QCOMPARE(invocation.settings.port, QStringLiteral("/dev/b"));
    QCOMPARE(invocation.settings.serialId, QStringLiteral("1"));
}

void TestCommandLine::refusesAWrongConfiguration()
{
    const Invocation invocation = read(QStringLiteral("session --config /does/not/exist"));
    QCOMPARE(invocation.problem.exitStatus(), 3);
    QVERIFY(invocation.entry == nullptr);
}

void TestCommandLine::readsThisUsersOwnConfiguration()
{
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("haitor-workplace")));
    QFile file(folder.filePath(QStringLiteral("haitor-workplace/configuration.json")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(R"({"serialId": "77"})") > 0);
    file.close();
    QCOMPARE(read(QStringLiteral("session")).settings.serialId, QStringLiteral("77"));
    QCOMPARE(read(QStringLiteral("session")).settings.configurationFile, file.fileName());

    const ConfigurationText other("{}");
    QCOMPARE(read(QStringLiteral("session --config ") + other.name()).settings.serialId, QString());
    QCOMPARE(read(QStringLiteral("session --config=")).settings.serialId, QString());
}

void TestCommandLine::takesACommandsOptionsFromTheConfiguration()
{
    const ConfigurationText file(R"({"session": {"count": 3, "duration": 1.5}, "run": {"connect": true}})");
    const Invocation session = read(QStringLiteral("session --duration 2 --config ") + file.name());
    QCOMPARE(session.options->value(QStringLiteral("count")), QStringLiteral("3"));
    QCOMPARE(session.options->value(QStringLiteral("duration")), QStringLiteral("2"));
    QVERIFY(read(QStringLiteral("run setLock --config ") + file.name()).options->isSet(QStringLiteral("connect")));
}

void TestCommandLine::leavesTheOptionsOfOtherCommandsAlone()
{
    const ConfigurationText file(R"({"session": {"duration": 3}, "run": {"connect": false}})");
    QVERIFY(!read(QStringLiteral("scan --config ") + file.name()).options->isSet(QStringLiteral("duration")));
    QVERIFY(!read(QStringLiteral("run setLock --config ") + file.name()).options->isSet(QStringLiteral("connect")));
}

void TestCommandLine::namesTheFileForAnOptionThatTheCommandRefuses()
{
    const ConfigurationText file("{\"session\": {\n\"count\": 0}}");
    const Problem problem = problemOf(QStringLiteral("session --config ") + file.name());
    QCOMPARE(problem.what, QStringLiteral("the configuration %1 is not used, line 2").arg(file.name()));
    QCOMPARE(problem.cause, QStringLiteral("--count takes a whole number from 1 to 1000000, not \"0\""));
    QCOMPARE(problem.exitStatus(), 3);
}

void TestCommandLine::remembersWhereEachSettingComesFrom()
{
    const ConfigurationText file("{\n\"port\": \"/dev/a\",\n\"driver\": {\n\"baudRate\": 9600}}");
    const Invocation invocation = read(QStringLiteral("session --serial-id 7 --config ") + file.name());
    const QMap<QString, SettingOrigin>& origins = invocation.settings.origins;
    QCOMPARE(origins.value(QStringLiteral("port")).source, file.name());
    QCOMPARE(origins.value(QStringLiteral("port")).line, 2);
    QCOMPARE(origins.value(QStringLiteral("driver.baudRate")).line, 4);
    QCOMPARE(origins.value(QStringLiteral("serialId")).kind, SettingOrigin::Kind::CommandLine);
    QCOMPARE(origins.value(QStringLiteral("data")).kind, SettingOrigin::Kind::Default);
}

void TestCommandLine::knowsTheSimulatorsWrench()
{
    QCOMPARE(read(QStringLiteral("session")).settings.wrench(), QStringLiteral("2210"));
    QCOMPARE(read(QStringLiteral("session --serial-id 5")).settings.wrench(), QStringLiteral("5"));
    QCOMPARE(read(QStringLiteral("session --port /dev/x")).settings.wrench(), QString());
}

void TestCommandLine::readsSecondsAsMilliseconds()
{
    const Invocation invocation = read(QStringLiteral("scan --duration 1.005"));
    Problem problem;
    QCOMPARE(secondsOption(*invocation.options, QStringLiteral("duration"), 0, &problem), 1005);
}

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_command_line.moc"
