#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <QTest>

#include <csignal>

#include "simulator_run.h"
#include "workplace_run.h"

namespace {

const QString c_link = QStringLiteral("link");
const QString c_result = QStringLiteral("result");

QStringList withoutDelays()
{
    return {
        QStringLiteral("--link-delay"), QStringLiteral("0"),  QStringLiteral("--answer-delay"), QStringLiteral("0"),
        QStringLiteral("--rate"),       QStringLiteral("20"), QStringLiteral("--scan-period"),  QStringLiteral("100")};
}

/// The keep-alive asks early, so that a loss is noticed while a test waits for it.
QStringList askingOften()
{
    return {QStringLiteral("--program"), QStringLiteral("2"), QStringLiteral("--config"),
            QStringLiteral(CONFIGURATIONS "/keep_alive_often.json")};
}

/// The first report of the link with that state after so many reports; empty: there is none.
QJsonObject linkWith(const WorkplaceRun& session, const char* state, int after = 0)
{
    const QList<QJsonObject> links = session.events(c_link).mid(after);
    for (const QJsonObject& link : links) {
        if (link.value(QLatin1String("state")).toString() == QLatin1String(state)) {
            return link;
        }
    }
    return {};
}

bool waitForLink(WorkplaceRun& session, const char* state, int after = 0)
{
    const auto isThere = [&] { return !linkWith(session, state, after).isEmpty(); };
    return waitUntil([&] { return isThere() || !session.isRunning(); }) && isThere();
}

/// Empty: each reading of the wrench was told, once and in order.
QString disorderOfReadings(const WorkplaceRun& session)
{
    const QList<QJsonObject> results = session.events(c_result);
    int expected = 1;
    for (const QJsonObject& result : results) {
        const QJsonObject record = result.value(QLatin1String("eventData")).toObject();
        const QString reading = record.value(QLatin1String("readingNumber")).toString();
        if (reading.toInt() != expected++) {
            return QStringLiteral("reading %1 where %2 was to come").arg(reading).arg(expected - 1);
        }
    }
    return results.isEmpty() ? QStringLiteral("no result") : QString();
}

/// Reconnects a running session, and leaves it listening.
class Reconnection
{
public:
    SimulatorRun simulator;
    WorkplaceRun session;

    bool listens(const QStringList& simulation, const QStringList& options)
    {
        return simulator.start(simulation) && session.startSession(simulator, options) &&
               session.waitForEvents(c_result);
    }
    bool interrupt()
    {
        session.sendSignal(SIGINT);
        return session.waitForEnd() && session.exitStatus() == 0;
    }
    /// The frames to the wrench and the dongle after that many frames.
    QStringList sentAfter(int frames) const { return session.trace().sent().mid(frames); }
};

} // namespace

class TestSessionReconnected : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void restoresTheWrenchAfterAPulledAdapter_data();
    void restoresTheWrenchAfterAPulledAdapter();
    void restoresTheWrenchAfterALongAbsence();
    void restoresTheWrenchWhenItIsBackInRange();
    void restoresTheLinkThatTheDongleHasLost();
    void restoresTheWrenchAfterASilence();
    void waitsAndTriesAgainWhenAnAttemptFails();
    void waitsForATighteningThatIsGoingOn();
    void canBeInterruptedInAPause();
    void givesUpAtTheLimit();
    void endsWithoutReconnection();
    void refusesOptionsThatDoNotGoTogether();
    void goesToTheLastProgramOfTheList();
    void tellsOfWrenchesWithTheSameSerialNumber();
};

void TestSessionReconnected::restoresTheWrenchAfterAPulledAdapter_data()
{
    QTest::addColumn<QString>("mode");
    QTest::newRow("a dongle that dials again") << "redial";
    QTest::newRow("a dongle that keeps its link") << "transparent";
}

void TestSessionReconnected::restoresTheWrenchAfterAPulledAdapter()
{
    QFETCH(QString, mode);
    Reconnection run;
    QVERIFY2(run.listens(withoutDelays() + QStringList{QStringLiteral("--mode"), mode},
                         {QStringLiteral("--program"), QStringLiteral("2")}),
             run.session.report());
    QCOMPARE(run.simulator.say(QStringLiteral("unplug")), QStringLiteral("ok unplugged"));
    QVERIFY2(waitForLink(run.session, "lost"), run.session.report());

    const int frames = run.session.trace().sent().size();
    QVERIFY2(run.simulator.say(QStringLiteral("replug")).startsWith(QLatin1String("ok")), run.simulator.report());
    QVERIFY2(waitForLink(run.session, "restored"), run.session.report());
    const QJsonObject restored = linkWith(run.session, "restored");
    QCOMPARE(restored.value(QLatin1String("cause")).toString(), QStringLiteral("port"));
    QVERIFY(restored.value(QLatin1String("gapMs")).toInt() > 0);

    const int results = run.session.events(c_result).size();
    QVERIFY2(run.session.waitForEvents(c_result, results + 1), run.session.report());
    QCOMPARE(
        run.sentAfter(frames).mid(0, 10),
        (QStringList{QStringLiteral("ATS"), QStringLiteral("ATH"), QStringLiteral("ATD 020000000001"),
                     QStringLiteral("ATH"), QStringLiteral("DT:1"), QStringLiteral("SC:TL:2"), QStringLiteral("RE:1"),
                     QStringLiteral("IDLE"), QStringLiteral("TR:N"), QStringLiteral("TR:C")}));
    QCOMPARE(run.sentAfter(frames).value(10), QStringLiteral("DT:0"));
    QVERIFY2(run.interrupt(), run.session.report());
    QCOMPARE(disorderOfReadings(run.session), QString());
}

void TestSessionReconnected::restoresTheWrenchAfterALongAbsence()
{
    // Long enough for the driver's own pause to have grown; how soon it is restored then, the benchmark measures.
    constexpr int c_absenceMs = 4200;
    Reconnection run;
    QVERIFY2(run.listens(withoutDelays(), {}), run.session.report());
    QCOMPARE(run.simulator.say(QStringLiteral("unplug")), QStringLiteral("ok unplugged"));
    QVERIFY2(waitForLink(run.session, "lost"), run.session.report());
    const QDeadlineTimer absence(c_absenceMs);
    QVERIFY(waitUntil([&] { return absence.hasExpired(); }));
    QVERIFY2(run.simulator.say(QStringLiteral("replug")).startsWith(QLatin1String("ok")), run.simulator.report());
    QVERIFY2(waitForLink(run.session, "restored"), run.session.report());
    QVERIFY(linkWith(run.session, "restored").value(QLatin1String("gapMs")).toInt() >= c_absenceMs);
    const int results = run.session.events(c_result).size();
    QVERIFY2(run.session.waitForEvents(c_result, results + 1), run.session.report());
    QVERIFY2(run.interrupt(), run.session.report());
    QCOMPARE(disorderOfReadings(run.session), QString());
}

void TestSessionReconnected::restoresTheWrenchWhenItIsBackInRange()
{
    Reconnection run;
    QVERIFY2(run.listens(withoutDelays(), askingOften()), run.session.report());
    QCOMPARE(run.simulator.say(QStringLiteral("range 2210 off")), QStringLiteral("ok wrench 2210 range off"));
    QVERIFY2(waitForLink(run.session, "no link"), run.session.report());
    QCOMPARE(linkWith(run.session, "no link").value(QLatin1String("cause")).toString(), QStringLiteral("range"));
    QCOMPARE(run.simulator.say(QStringLiteral("range 2210 on")), QStringLiteral("ok wrench 2210 range on"));
    QVERIFY2(waitForLink(run.session, "restored"), run.session.report());
    const int results = run.session.events(c_result).size();
    QVERIFY2(run.session.waitForEvents(c_result, results + 1), run.session.report());
    QVERIFY2(run.interrupt(), run.session.report());
    QCOMPARE(disorderOfReadings(run.session), QString());
    QCOMPARE(disorderAfter(run.session, run.simulator), QString());
}

void TestSessionReconnected::restoresTheLinkThatTheDongleHasLost()
{
    // The wrench tightens on demand only: the keep-alive is the next to speak.
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start(), simulator.report());
    QVERIFY(session.startSession(simulator, askingOften()));
    QVERIFY2(session.waitForEvents(QStringLiteral("selected")), session.report());
    QVERIFY(session.waitForFrames(session.trace().sent().size() + 2)); // the unlocking, and the first question
    QVERIFY(simulator.say(QStringLiteral("fault err:3@1")).startsWith(QLatin1String("ok")));
    QVERIFY2(waitForLink(session, "restored"), session.report());
    QCOMPARE(linkWith(session, "no link").value(QLatin1String("cause")).toString(), QStringLiteral("link"));
    session.sendSignal(SIGINT);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
}

void TestSessionReconnected::restoresTheWrenchAfterASilence()
{
    Reconnection run;
    QVERIFY2(run.listens(withoutDelays() + QStringList{QStringLiteral("--rate"), QStringLiteral("0.9")}, askingOften()),
             run.session.report());
    // The results would break the silence.
    QCOMPARE(run.simulator.say(QStringLiteral("range 2210 off")), QStringLiteral("ok wrench 2210 range off"));
    QVERIFY(run.simulator.say(QStringLiteral("fault silence")).startsWith(QLatin1String("ok")));
    QVERIFY2(waitForLink(run.session, "no answer"), run.session.report());
    QCOMPARE(linkWith(run.session, "no answer").value(QLatin1String("cause")).toString(), QStringLiteral("silence"));
    QVERIFY(run.simulator.say(QStringLiteral("fault none")).startsWith(QLatin1String("ok")));
    QVERIFY(run.simulator.say(QStringLiteral("range 2210 on")).startsWith(QLatin1String("ok")));
    QVERIFY2(waitForLink(run.session, "restored"), run.session.report());
    QVERIFY2(run.interrupt(), run.session.report());
    QCOMPARE(disorderOfReadings(run.session), QString());
}

void TestSessionReconnected::waitsAndTriesAgainWhenAnAttemptFails()
{
    Reconnection run;
    QVERIFY2(run.listens(withoutDelays(), {}), run.session.report());
    QCOMPARE(run.simulator.say(QStringLiteral("unplug")), QStringLiteral("ok unplugged"));
    QVERIFY2(waitForLink(run.session, "lost"), run.session.report());
    QVERIFY(run.simulator.say(QStringLiteral("fault err:4@1")).startsWith(QLatin1String("ok")));
    QVERIFY2(run.simulator.say(QStringLiteral("replug")).startsWith(QLatin1String("ok")), run.simulator.report());
    QVERIFY2(waitForLink(run.session, "restored"), run.session.report());
    const QJsonObject waiting = linkWith(run.session, "waiting");
    QCOMPARE(waiting.value(QLatin1String("attempt")).toInt(), 2);
    QVERIFY(waiting.value(QLatin1String("pauseMs")).toInt() > 0);
    QVERIFY2(waiting.value(QLatin1String("message")).toString().contains(QLatin1String("ERR:4")), run.session.report());
    QCOMPARE(linkWith(run.session, "restored").value(QLatin1String("attempt")).toInt(), 2);
    QVERIFY2(run.interrupt(), run.session.report());
}

void TestSessionReconnected::waitsForATighteningThatIsGoingOn()
{
    SimulatorRun simulator;
    WorkplaceRun session;
    QVERIFY2(simulator.start({QStringLiteral("--tightening-time"), QStringLiteral("6000")}), simulator.report());
    QVERIFY(session.startSession(simulator, askingOften()));
    QVERIFY2(session.waitForEvents(QStringLiteral("selected")), session.report());
    QVERIFY(session.waitForFrames(session.trace().sent().size() + 2));
    QVERIFY(simulator.say(QStringLiteral("tighten")).startsWith(QLatin1String("ok")));
    QCOMPARE(simulator.say(QStringLiteral("unplug")), QStringLiteral("ok unplugged"));
    QVERIFY2(simulator.say(QStringLiteral("replug")).startsWith(QLatin1String("ok")), simulator.report());
    QVERIFY2(waitForLink(session, "restored"), session.report());
    QVERIFY(session.trace().arrived().contains(QStringLiteral("ERR:5")));
    QCOMPARE(linkWith(session, "restored").value(QLatin1String("attempt")).toInt(), 1);
    QCOMPARE(session.events(c_result).size(), 1);
    session.sendSignal(SIGINT);
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 0);
}

void TestSessionReconnected::canBeInterruptedInAPause()
{
    Reconnection run;
    QVERIFY2(run.listens(withoutDelays(), {}), run.session.report());
    QCOMPARE(run.simulator.say(QStringLiteral("unplug")), QStringLiteral("ok unplugged"));
    QVERIFY2(waitForLink(run.session, "lost"), run.session.report());
    QVERIFY(run.simulator.say(QStringLiteral("fault err:4")).startsWith(QLatin1String("ok")));
    QVERIFY2(run.simulator.say(QStringLiteral("replug")).startsWith(QLatin1String("ok")), run.simulator.report());
    QVERIFY2(waitForLink(run.session, "waiting"), run.session.report());
    QVERIFY2(run.interrupt(), run.session.report());
    QCOMPARE(run.session.event(QStringLiteral("summary")).value(QLatin1String("endedBy")).toString(),
             QStringLiteral("interrupt"));
    QCOMPARE(run.session.trace().lastEntry(), QStringLiteral("! closed"));
}

void TestSessionReconnected::givesUpAtTheLimit()
{
    Reconnection run;
    QVERIFY2(run.listens(withoutDelays(), {QStringLiteral("--reconnect-limit"), QStringLiteral("0.7")}),
             run.session.report());
    QCOMPARE(run.simulator.say(QStringLiteral("unplug")), QStringLiteral("ok unplugged"));
    QVERIFY2(run.session.waitForEnd(), run.session.report());
    QCOMPARE(run.session.exitStatus(), 3);
    const QJsonObject error = run.session.event(QStringLiteral("error"));
    QCOMPARE(error.value(QLatin1String("message")).toString(),
             QStringLiteral("the link to the wrench 2210 was not restored within 0.7 s"));
    QVERIFY2(error.value(QLatin1String("reason")).toString().contains(QLatin1String("plug its adapter in again")),
             run.session.report());
}

void TestSessionReconnected::endsWithoutReconnection()
{
    Reconnection run;
    QVERIFY2(run.listens(withoutDelays(), askingOften() + QStringList{QStringLiteral("--no-reconnect")}),
             run.session.report());
    QCOMPARE(run.simulator.say(QStringLiteral("range 2210 off")), QStringLiteral("ok wrench 2210 range off"));
    QVERIFY2(run.session.waitForEnd(), run.session.report());
    QCOMPARE(run.session.exitStatus(), 1);
    QCOMPARE(run.session.event(QStringLiteral("error")).value(QLatin1String("message")).toString(),
             QStringLiteral("the link to the wrench 2210 is lost"));
    QCOMPARE(disorderAfter(run.session, run.simulator), QString());
}

void TestSessionReconnected::refusesOptionsThatDoNotGoTogether()
{
    WorkplaceRun session;
    QVERIFY(session.start({QStringLiteral("session"), QStringLiteral("--no-reconnect"),
                           QStringLiteral("--reconnect-limit"), QStringLiteral("5")}));
    QVERIFY2(session.waitForEnd(), session.report());
    QCOMPARE(session.exitStatus(), 2);
}

void TestSessionReconnected::goesToTheLastProgramOfTheList()
{
    // The walk through the list ends at its last program as the plugin counts, and at the first one in the wrench.
    Reconnection run;
    QVERIFY2(run.listens(withoutDelays(), {QStringLiteral("--program"), QStringLiteral("2")}), run.session.report());
    QVERIFY(run.simulator.say(QStringLiteral("wrenches")).contains(QLatin1String("program 2")));
    QVERIFY2(run.interrupt(), run.session.report());
}

void TestSessionReconnected::tellsOfWrenchesWithTheSameSerialNumber()
{
    Reconnection run;
    QVERIFY2(run.listens(withoutDelays() + QStringList{QStringLiteral("--wrench"),
                                                       QStringLiteral("2210,mac=AA:00:00:00:00:01,rssi=-50"),
                                                       QStringLiteral("--wrench"),
                                                       QStringLiteral("2210,mac=AA:00:00:00:00:02,rssi=-70")},
                         {}),
             run.session.report());
    const QJsonObject told = run.session.event(QStringLiteral("namesakes"));
    const QJsonArray wrenches = told.value(QLatin1String("wrenches")).toArray();
    QCOMPARE(wrenches.size(), 2);
    QCOMPARE(wrenches.at(0).toObject().value(QLatin1String("mac")).toString(), QStringLiteral("AA:00:00:00:00:01"));
    const QString taken = told.value(QLatin1String("taken")).toString();
    const QStringList dialled = run.session.trace().sent().filter(QStringLiteral("ATD "));
    QCOMPARE(dialled.constLast(), QStringLiteral("ATD ") + QString(taken).remove(QLatin1Char(':')));
    QVERIFY2(run.interrupt(), run.session.report());
}

QTEST_GUILESS_MAIN(TestSessionReconnected)

#include "tst_session_reconnected.moc"
