#include "console.h"
#include "talk.h"

#include <QStringList>
#include <QTest>

namespace {
class NotedLine : public LineSwitch
{
public:
    QString unplug(int, qint64) override
    {
        calls.append(QStringLiteral("unplug"));
        return refusal;
    }
    QString replug(qint64) override
    {
        calls.append(QStringLiteral("replug"));
        return refusal;
    }
    void quit() override { calls.append(QStringLiteral("quit")); }

    QStringList calls;
    QString refusal;
};

constexpr const char* c_reporting = R"(
    > ATD 020000000002
    < ATD 020000000002
    < DATA
    > RE:1
    < OK:1
)";
} // namespace

class TestConsole : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tightenTakesTheLinkedWrench();
    void tightenTakesTheFirstWrenchWithoutALink();
    void tightenTakesTheNamedWrench();
    void tightenSaysThatTheWrenchIsLocked();
    void wrenchesAreDescribedInOneLine();
    void rangeIsSwitched();
    void faultIsSetAndTakenAway();
    void faultsAreCleared_data();
    void faultsAreCleared();
    void powerIsSwitched();
    void linkIsLost();
    void lineIsUnpluggedAndReplugged();
    void lineThatRefusesIsAnError();
    void quitEnds();
    void helpIsOneLine();
    void wrongCommandsAreRefused_data();
    void wrongCommandsAreRefused();

private:
    QString execute(Talk& talk, const char* command)
    {
        return Console(talk.dongle, m_line).execute(QLatin1String(command), talk.nowUs);
    }

    NotedLine m_line;
};

void TestConsole::tightenTakesTheLinkedWrench()
{
    Talk talk;
    QCOMPARE(talk.play(c_reporting), QString());
    QCOMPARE(execute(talk, "tighten 2"), QStringLiteral("ok 2 tightenings by wrench 2211"));
    QCOMPARE(talk.play("+ 200\n< RE:F:*\n< RE:F:*"), QString());
}

void TestConsole::tightenTakesTheFirstWrenchWithoutALink()
{
    Talk talk;
    QCOMPARE(execute(talk, "tighten"), QStringLiteral("ok 1 tightenings by wrench 2210"));
    QCOMPARE(talk.dongle.wrench(0).readings(), 1);
}

void TestConsole::tightenTakesTheNamedWrench()
{
    Talk talk;
    QCOMPARE(execute(talk, "tighten 1 2211"), QStringLiteral("ok 1 tightenings by wrench 2211"));
    QCOMPARE(talk.dongle.wrench(1).readings(), 1);
}

void TestConsole::tightenSaysThatTheWrenchIsLocked()
{
    Talk talk;
    QCOMPARE(talk.play(c_reporting), QString());
    QCOMPARE(talk.play("> DT:1\n< OK:1"), QString());
    QVERIFY(execute(talk, "tighten").startsWith(QStringLiteral("error wrench 2211 is locked")));
}

void TestConsole::wrenchesAreDescribedInOneLine()
{
    Talk talk;
    QCOMPARE(talk.play(c_reporting), QString());
    QCOMPARE(talk.play("> DT:1\n< OK:1\n> TR:N\n< OK"), QString());
    talk.dongle.setInRange(0, false, talk.nowUs);
    QCOMPARE(
        execute(talk, "wrenches"),
        QStringLiteral("ok 2210 02:00:00:00:00:01 TW60 -60 dBm, out of range, not linked, unlocked, not reporting, "
                       "program 1 of 2, 0 readings; 2211 02:00:00:00:00:02 TW60 -60 dBm, in range, linked, locked, "
                       "reporting, program 2 of 2, 0 readings"));
}

void TestConsole::rangeIsSwitched()
{
    Talk talk;
    QCOMPARE(execute(talk, "range 2211 off"), QStringLiteral("ok wrench 2211 range off"));
    QVERIFY(!talk.dongle.isInRange(1));
    QCOMPARE(execute(talk, "range 2211 on"), QStringLiteral("ok wrench 2211 range on"));
    QVERIFY(talk.dongle.isInRange(1));
}

void TestConsole::faultIsSetAndTakenAway()
{
    Talk talk;
    QCOMPARE(execute(talk, "fault err:8"), QStringLiteral("ok fault err:8"));
    QCOMPARE(talk.play("> ATH\n< ERR:8"), QString());
    QCOMPARE(execute(talk, "fault list"), QStringLiteral("ok err:8 (struck 1 times)"));
    QCOMPARE(execute(talk, "fault off err:8"), QStringLiteral("ok fault off err:8"));
    QCOMPARE(talk.play("> ATH\n< ATH"), QString());
    QCOMPARE(execute(talk, "fault list"), QStringLiteral("ok no faults"));
}

void TestConsole::faultsAreCleared_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("clear") << QByteArray("fault clear");
    QTest::newRow("none") << QByteArray("fault none");
}

void TestConsole::faultsAreCleared()
{
    QFETCH(QByteArray, command);
    Talk talk;
    execute(talk, "fault err:8");
    execute(talk, "fault silence%5");
    QCOMPARE(execute(talk, command.constData()), QStringLiteral("ok no faults"));
    QCOMPARE(talk.play("> ATH\n< ATH"), QString());
}

void TestConsole::powerIsSwitched()
{
    Talk talk;
    QCOMPARE(execute(talk, "power 2211 off"), QStringLiteral("ok wrench 2211 power off"));
    QVERIFY(execute(talk, "wrenches").contains(QStringLiteral("switched off")));
    QVERIFY(execute(talk, "tighten 1 2211").startsWith(QStringLiteral("error")));
    QCOMPARE(execute(talk, "power 2211 on"), QStringLiteral("ok wrench 2211 power on"));
    QVERIFY(!execute(talk, "wrenches").contains(QStringLiteral("switched off")));
}

void TestConsole::linkIsLost()
{
    Talk talk;
    QVERIFY(execute(talk, "lose-link").startsWith(QStringLiteral("error")));
    QCOMPARE(talk.play(c_reporting), QString());
    QCOMPARE(execute(talk, "lose-link"), QStringLiteral("ok link lost"));
    QVERIFY(!talk.dongle.linkedWrench());
}

void TestConsole::lineIsUnpluggedAndReplugged()
{
    Talk talk;
    m_line.calls.clear();
    QCOMPARE(execute(talk, "unplug"), QStringLiteral("ok unplugged"));
    QCOMPARE(execute(talk, "replug"), QStringLiteral("ok replugged"));
    QCOMPARE(m_line.calls, QStringList({QStringLiteral("unplug"), QStringLiteral("replug")}));
}

void TestConsole::lineThatRefusesIsAnError()
{
    Talk talk;
    m_line.refusal = QStringLiteral("not now");
    QCOMPARE(execute(talk, "unplug"), QStringLiteral("error not now"));
    QCOMPARE(execute(talk, "replug"), QStringLiteral("error not now"));
    m_line.refusal.clear();
}

void TestConsole::quitEnds()
{
    Talk talk;
    m_line.calls.clear();
    QVERIFY(execute(talk, "quit").startsWith(QStringLiteral("ok")));
    QCOMPARE(m_line.calls, QStringList({QStringLiteral("quit")}));
}

void TestConsole::helpIsOneLine()
{
    Talk talk;
    const QString help = execute(talk, "help");
    QVERIFY(help.startsWith(QStringLiteral("ok ")));
    QVERIFY(!help.contains(QLatin1Char('\n')));
    QVERIFY(help.contains(QStringLiteral("replug")));
}

void TestConsole::wrongCommandsAreRefused_data()
{
    QTest::addColumn<QByteArray>("command");
    for (const char* command : {"",
                                "dance",
                                "tighten x",
                                "tighten 0",
                                "tighten 1 9999",
                                "tighten 1 2210 2211",
                                "range",
                                "range 2210",
                                "range 2210 up",
                                "range 9999 off",
                                "fault",
                                "fault quiet",
                                "fault late:1 echo",
                                "unplug now",
                                "unplug 0",
                                "unplug 1 2",
                                "fault off flip",
                                "power 2210",
                                "power 9999 on",
                                "fault flip%0",
                                "wrenches all"}) {
        QTest::newRow(*command != '\0' ? command : "empty") << QByteArray(command);
    }
}

void TestConsole::wrongCommandsAreRefused()
{
    QFETCH(QByteArray, command);
    Talk talk;
    m_line.calls.clear();
    QVERIFY2(execute(talk, command.constData()).startsWith(QStringLiteral("error ")), command.constData());
    QVERIFY(m_line.calls.isEmpty());
}

QTEST_GUILESS_MAIN(TestConsole)
#include "tst_console.moc"
