#include <QJsonValue>
#include <QStringList>
#include <QTest>
#include <QVector>

#include "doctor_fixture.h"

namespace {

/// A stage that ends as it is told.
class ToldStage : public DoctorStage
{
    Q_OBJECT

public:
    enum class End { Pass, Fail, FailSetUp, Skip, None };

    ToldStage(const char* name, End end, DoctorFixture& fixture, bool standsLineErrors = false)
        : DoctorStage({QLatin1String(name), {}, {}}, Problem::Kind::Device, fixture.bench)
        , m_end(end)
        , m_standsLineErrors(standsLineErrors)
        , m_fixture(fixture)
    {}

    void start() override
    {
        m_fixture.events.append(QStringLiteral("works ") + text().name);
        switch (m_end) {
        case End::Pass:
            pass({});
            break;
        case End::Fail:
            fail(QStringLiteral("it is broken"), {}, {});
            break;
        case End::FailSetUp:
            failSetUp(QStringLiteral("it is not set up"), {}, {});
            break;
        case End::Skip:
            skip({});
            break;
        case End::None:
            break;
        }
    }
    bool standsALineError() const override { return m_standsLineErrors; }

private:
    const End m_end;
    const bool m_standsLineErrors;
    DoctorFixture& m_fixture;
};

Doctor::Stages stagesOf(DoctorFixture& fixture, const QVector<ToldStage::End>& ends)
{
    static const char* const names[] = {"one", "two", "three"};
    Doctor::Stages stages;
    for (int i = 0; i < ends.size(); ++i) {
        stages.push_back(std::make_unique<ToldStage>(names[i], ends.at(i), fixture));
    }
    return stages;
}

QStringList list(const char* text)
{
    return QString(QLatin1String(text)).split(QStringLiteral(", "));
}

using End = ToldStage::End;

} // namespace

class TestDoctor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsOfEachStageBeforeItWorks();
    void goesOnBehindAStageThatIsSkipped();
    void skipsWhatIsBehindAFailure();
    void endsWithTheStatusOfTheFailure();
    void skipsTheRestWhenInterrupted();
    void failsTheStageThatGoesOn_data();
    void failsTheStageThatGoesOn();
    void letsAStageStandALineError();
    void hasTheStagesInTheirOrder();
    void saysWhenResultsHaveComeMeanwhile_data();
    void saysWhenResultsHaveComeMeanwhile();
    void closesTheLineWithoutAWordWhenNoneWasSaid();

    void namesAnotherDeviceThatRepeatsWhatIsSent_data();
    void namesAnotherDeviceThatRepeatsWhatIsSent();

    void knowsALateWordOfTheWrench_data();
    void knowsALateWordOfTheWrench();

    void knowsARefusedSearch();
    void asksALinkedWrenchTwiceForItsLock();

    void leavesTheLockAloneUnlessAResultIsAskedFor();
    void putsTheLockBack_data();
    void putsTheLockBack();
    void triesTwiceToPutTheLockBack();
    void namesTheCommandWhenTheLockIsNotPutBack();
    void stopsWhatAFailedStageHasLeftRunning();
    void takesTheConfiguredSpeedAgainBehindTheTrial();
    void findsTheSpeedBehindGarbageOfAnother();
};

void TestDoctor::tellsOfEachStageBeforeItWorks()
{
    DoctorFixture fixture;
    fixture.start(stagesOf(fixture, {End::Pass, End::Pass}));
    QCOMPARE(fixture.events, list("started one, works one, passed one, started two, works two, passed two"));
    QCOMPARE(fixture.ends, 1);
    QCOMPARE(fixture.summary.passed, 2);
    QCOMPARE(fixture.summary.exitStatus, 0);
}

void TestDoctor::goesOnBehindAStageThatIsSkipped()
{
    DoctorFixture fixture;
    fixture.start(stagesOf(fixture, {End::Skip, End::Pass}));
    QCOMPARE(fixture.events.constLast(), QStringLiteral("passed two"));
    QCOMPARE(fixture.summary.skipped, 1);
    QCOMPARE(fixture.summary.exitStatus, 0);
}

void TestDoctor::skipsWhatIsBehindAFailure()
{
    DoctorFixture fixture;
    fixture.start(stagesOf(fixture, {End::Fail, End::Pass, End::Pass}));
    QCOMPARE(fixture.events, list("started one, works one, failed one, skipped two, skipped three"));
    QCOMPARE(fixture.problem.step, QStringLiteral("one"));
    QCOMPARE(fixture.ends, 1);
}

void TestDoctor::endsWithTheStatusOfTheFailure()
{
    DoctorFixture ofDevice;
    ofDevice.start(stagesOf(ofDevice, {End::Pass, End::Fail}));
    QCOMPARE(ofDevice.summary.exitStatus, 1);
    DoctorFixture ofSetUp;
    ofSetUp.start(stagesOf(ofSetUp, {End::FailSetUp}));
    QCOMPARE(ofSetUp.summary.exitStatus, 3);
}

void TestDoctor::skipsTheRestWhenInterrupted()
{
    DoctorFixture fixture;
    fixture.start(stagesOf(fixture, {End::Pass, End::None, End::Pass}));
    fixture.doctor->interrupt();
    fixture.doctor->interrupt();
    DoctorFixture::turn();
    QCOMPARE(fixture.events.mid(fixture.events.size() - 3), list("works two, skipped two, skipped three"));
    QVERIFY(fixture.summary.isInterrupted);
    QCOMPARE(fixture.summary.exitStatus, 1);
    QCOMPARE(fixture.ends, 1);
}

void TestDoctor::failsTheStageThatGoesOn_data()
{
    QTest::addColumn<bool>("isOfTheLine");
    QTest::newRow("by the line") << true;
    QTest::newRow("from outside") << false;
}

void TestDoctor::failsTheStageThatGoesOn()
{
    QFETCH(bool, isOfTheLine);
    DoctorFixture fixture;
    fixture.start(stagesOf(fixture, {End::Pass, End::None, End::Pass}));
    if (isOfTheLine) {
        fixture.setLine(QStringLiteral("The port went away: plug it in."), false);
    } else {
        fixture.doctor->fail({Problem::Kind::SetUp, QStringLiteral("open"), QStringLiteral("it has gone"), {}, {}});
    }
    DoctorFixture::turn();
    QCOMPARE(fixture.events.mid(fixture.events.size() - 2), list("failed two, skipped three"));
    QCOMPARE(fixture.problem.step, QStringLiteral("two"));
    QCOMPARE(fixture.summary.exitStatus, 3);
}

void TestDoctor::letsAStageStandALineError()
{
    DoctorFixture fixture;
    Doctor::Stages stages;
    stages.push_back(std::make_unique<ToldStage>("one", End::None, fixture, true));
    fixture.start(std::move(stages));
    fixture.setLine(QStringLiteral("The port does not have that speed."), false);
    DoctorFixture::turn();
    QCOMPARE(fixture.events.constLast(), QStringLiteral("works one"));
    QCOMPARE(fixture.ends, 0);
}

void TestDoctor::hasTheStagesInTheirOrder()
{
    DoctorFixture fixture;
    fixture.start();
    QVERIFY(fixture.runTo(QStringLiteral("notice results")));
    fixture.tighten();
    QCOMPARE(fixture.events.filter(QStringLiteral("passed")),
             list("passed port, passed line, passed dongle, passed range, passed link, passed wrench, passed programs, "
                  "passed results"));
    QCOMPARE(fixture.summary.exitStatus, 0);
    QCOMPARE(fixture.frames(), list("ATH, ATS, ATH, ATD 020000000001, ATH, DI:C, DT:0, DI:C, DT:0, ATH"));
    QCOMPARE(fixture.talk.constLast(), QStringLiteral("driver closeConnection"));
}

void TestDoctor::saysWhenResultsHaveComeMeanwhile_data()
{
    QTest::addColumn<QByteArray>("kept");
    QTest::addColumn<bool>("isSaid");
    QTest::newRow("none") << QByteArray() << false;
    QTest::newRow("with the link") << QByteArray("RE:F:12.05,0,0,90,0,17,0\r\n") << true;
}

void TestDoctor::saysWhenResultsHaveComeMeanwhile()
{
    QFETCH(QByteArray, kept);
    QFETCH(bool, isSaid);
    DoctorOrder order = DoctorFixture::defaultOrder();
    order.waitResultMs = 0;
    DoctorFixture fixture(order);
    fixture.answers[QStringLiteral("ATD 020000000001")].append(kept);
    fixture.start();
    fixture.runToTheEnd();
    QCOMPARE(fixture.summary.exitStatus, 0);
    QCOMPARE(fixture.events.contains(QStringLiteral("notice end")), isSaid);
}

void TestDoctor::closesTheLineWithoutAWordWhenNoneWasSaid()
{
    DoctorFixture fixture;
    fixture.driver->setReaction(
        QStringLiteral("listenEventsData"),
        {Reaction::Kind::Silence, {}, [&fixture] { fixture.setLine(QStringLiteral("The port is missing."), false); }});
    fixture.start();
    QCOMPARE(fixture.problem.cause, QStringLiteral("The port is missing."));
    QCOMPARE(fixture.frames(), QStringList());
    QCOMPARE(fixture.talk.constLast(), QStringLiteral("driver closeConnection"));
    QCOMPARE(fixture.ends, 1);
}

void TestDoctor::namesAnotherDeviceThatRepeatsWhatIsSent_data()
{
    QTest::addColumn<QByteArray>("toTheFirstFrame");
    QTest::addColumn<QByteArray>("toTheSecondFrame");
    QTest::addColumn<QString>("cause");
    QTest::newRow("its answers at once") << QByteArray("ATH\r\n\r\nOK\r\n") << QByteArray("ATS\r\n\r\nERROR\r\n")
                                         << "it said \"OK\", \"ERROR\"";
    QTest::newRow("its first answer late")
        << QByteArray("ATH\r\n") << QByteArray("OK\r\nATS\r\n\r\nERROR\r\n") << "it said \"OK\", \"ERROR\"";
    QTest::newRow("the same answer to all")
        << QByteArray("ATH\r\nOK\r\n") << QByteArray("ATS\r\nOK\r\n") << "it said \"OK\", \"OK\"";
}

void TestDoctor::namesAnotherDeviceThatRepeatsWhatIsSent()
{
    QFETCH(QByteArray, toTheFirstFrame);
    QFETCH(QByteArray, toTheSecondFrame);
    QFETCH(QString, cause);
    DoctorFixture fixture;
    fixture.answers = {{QStringLiteral("ATH"), toTheFirstFrame}, {QStringLiteral("ATS"), toTheSecondFrame}};
    fixture.start();
    fixture.runToTheEnd();
    QCOMPARE(fixture.problem.what, QStringLiteral("another device than a dongle answers"));
    QCOMPARE(fixture.problem.cause, cause);
}

void TestDoctor::knowsALateWordOfTheWrench_data()
{
    QTest::addColumn<QString>("frame");
    QTest::addColumn<QByteArray>("late");
    for (const char* frame : {"ATH", "ATS"}) {
        for (const char* late : {"OK:1", "OK", "OK:UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1", "RE:F:12.05,1", "ERR:5"}) {
            QTest::addRow("%s before the answer to %s", late, frame)
                << QString(QLatin1String(frame)) << QByteArray(late) + "\r\n";
        }
    }
}

void TestDoctor::knowsALateWordOfTheWrench()
{
    QFETCH(QString, frame);
    QFETCH(QByteArray, late);
    DoctorFixture fixture;
    fixture.answers[frame].prepend(late);
    fixture.start();
    QVERIFY2(fixture.runTo(QStringLiteral("passed range")), qPrintable(fixture.problem.cause));
}

void TestDoctor::knowsARefusedSearch()
{
    DoctorFixture fixture;
    fixture.answers[QStringLiteral("ATS")] = "ERR:4\r\n";
    fixture.start();
    fixture.runToTheEnd();
    QCOMPARE(fixture.problem.what, QStringLiteral("the dongle refuses to search"));
    QCOMPARE(fixture.problem.cause, QStringLiteral("it said \"ERR:4\""));
}

// The first answer may be what the wrench said to whoever has left the link open.
void TestDoctor::asksALinkedWrenchTwiceForItsLock()
{
    DoctorFixture fixture;
    fixture.answers[QStringLiteral("ATS")] = "ERR:2\r\n";
    fixture.answers[QStringLiteral("DI:C")] = "OK:1\r\nOK:0\r\n";
    fixture.start();
    QVERIFY(fixture.runTo(QStringLiteral("passed wrench")));
    QVERIFY(!fixture.bench.lock.wasLocked());
}

void TestDoctor::leavesTheLockAloneUnlessAResultIsAskedFor()
{
    DoctorOrder order = DoctorFixture::defaultOrder();
    order.waitResultMs = 0;
    DoctorFixture fixture(order);
    fixture.answers[QStringLiteral("DI:C")] = "OK:1\r\n";
    fixture.start();
    fixture.runToTheEnd();
    QCOMPARE(fixture.events.constLast(), QStringLiteral("skipped results"));
    QCOMPARE(fixture.frames(QStringLiteral("DT:")), QStringList());
    QVERIFY(!fixture.talk.join(QLatin1Char(' ')).contains(QLatin1String("sendInitConfig")));
}

void TestDoctor::putsTheLockBack_data()
{
    QTest::addColumn<bool>("isLocked");
    QTest::addColumn<QString>("end");
    for (const bool isLocked : {true, false}) {
        for (const char* end :
             {"a result", "no result", "a refused configuration", "a silent configuration",
              "interrupted while configuring", "interrupted while waiting", "the line fails", "something outside"}) {
            QTest::addRow("%s, %s", isLocked ? "locked" : "unlocked", end) << isLocked << QString(QLatin1String(end));
        }
    }
}

void TestDoctor::putsTheLockBack()
{
    QFETCH(bool, isLocked);
    QFETCH(QString, end);
    DoctorFixture fixture;
    const QString configure = QStringLiteral("sendInitConfig");
    fixture.answers[QStringLiteral("DI:C")] = isLocked ? "OK:1\r\n" : "OK:0\r\n";
    const bool isConfiguring = end.contains(QLatin1String("configur"));
    if (end == QLatin1String("a refused configuration")) {
        fixture.device->setReaction(configure, {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), false}}, {}});
    } else if (isConfiguring) {
        fixture.device->setReaction(configure, {Reaction::Kind::Silence, {}, {}});
    }
    fixture.start();
    QVERIFY(fixture.runTo(QStringLiteral("passed programs")));
    if (!isConfiguring) {
        QVERIFY(fixture.runTo(QStringLiteral("notice results")));
    }
    if (end == QLatin1String("a result")) {
        fixture.tighten();
    } else if (end.startsWith(QLatin1String("interrupted"))) {
        fixture.doctor->interrupt();
    } else if (end == QLatin1String("the line fails")) {
        fixture.setLine(QStringLiteral("The device does not answer."), false);
    } else if (end == QLatin1String("something outside")) {
        fixture.doctor->fail({Problem::Kind::SetUp, {}, QStringLiteral("it has gone"), {}, {}});
    }
    fixture.runToTheEnd();
    QCOMPARE(fixture.ends, 1);
    const QStringList frames = fixture.frames();
    // Behind whatever else was said, and before the dongle hangs up.
    QCOMPARE(frames.mid(frames.size() - 2),
             (QStringList{isLocked ? QStringLiteral("DT:1") : QStringLiteral("DT:0"), QStringLiteral("ATH")}));
    QVERIFY(fixture.events.contains(QStringLiteral("notice end")));
    QCOMPARE(fixture.unrestored.what, QString());
}

void TestDoctor::triesTwiceToPutTheLockBack()
{
    DoctorFixture fixture;
    fixture.start();
    QVERIFY(fixture.runTo(QStringLiteral("notice results")));
    fixture.answers.remove(QStringLiteral("DT:0"));
    fixture.doctor->interrupt();
    DoctorFixture::turn();
    fixture.advance(2999);
    QCOMPARE(fixture.frames(QStringLiteral("DT:")).size(), 2);
    fixture.answers[QStringLiteral("DT:0")] = "OK:0\r\n";
    fixture.advance(1);
    QCOMPARE(fixture.frames(QStringLiteral("DT:")).size(), 3);
    QCOMPARE(fixture.ends, 1);
    QCOMPARE(fixture.unrestored.what, QString());
}

void TestDoctor::namesTheCommandWhenTheLockIsNotPutBack()
{
    DoctorFixture fixture;
    fixture.start();
    QVERIFY(fixture.runTo(QStringLiteral("notice results")));
    fixture.answers[QStringLiteral("DT:0")] = "ERR:1\r\n";
    fixture.tighten();
    fixture.runToTheEnd();
    QCOMPARE(fixture.unrestored.cause, QStringLiteral("it answered \"ERR:1\" to \"DT:0\""));
    QCOMPARE(fixture.unrestored.mend,
             QStringLiteral("app_workplace run --port /dev/port --serial-id 2210 --connect setLock lock=false"));
    QCOMPARE(fixture.summary.exitStatus, 1);
    QCOMPARE(fixture.ends, 1);
}

void TestDoctor::stopsWhatAFailedStageHasLeftRunning()
{
    DoctorFixture fixture;
    fixture.start();
    fixture.runToTheEnd();
    QCOMPARE(fixture.problem.what, QStringLiteral("no result has come within 60 s"));
    QVERIFY(!fixture.device->isRunning(QStringLiteral("listenEventsData")));
    QVERIFY(!fixture.driver->isRunning(QStringLiteral("listenEventsData")));
}

void TestDoctor::takesTheConfiguredSpeedAgainBehindTheTrial()
{
    DoctorFixture fixture;
    fixture.driver->setInPluginConfig(QStringLiteral("baudRate"), 19200);
    fixture.answers.clear();
    fixture.start();
    fixture.runToTheEnd();
    QCOMPARE(fixture.problem.what, QStringLiteral("nothing answers on the port"));
    QCOMPARE(fixture.driver->getInPluginConfig(QStringLiteral("baudRate")), QJsonValue(19200));
    // Six common speeds, of which one is the configured one.
    QCOMPARE(fixture.talk.filter(QStringLiteral("driver closeConnection")).size(), 5 + 1 + 1);
    QCOMPARE(fixture.summary.exitStatus, 3);
}

void TestDoctor::findsTheSpeedBehindGarbageOfAnother()
{
    DoctorFixture fixture;
    fixture.answers.clear();
    int closings = 0;
    fixture.driver->setReaction(QStringLiteral("closeConnection"),
                                {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), true}}, [&] {
                                     // 57600 is the fourth of the speeds. The call begins with a line end.
                                     fixture.answers[QString()] = ++closings == 4 ? "ATH\r\n" : "\x81\xfe";
                                 }});
    fixture.start();
    fixture.runToTheEnd();
    QCOMPARE(fixture.problem.what, QStringLiteral("the dongle answers at another speed: 57600"));
}

QTEST_GUILESS_MAIN(TestDoctor)

#include "tst_doctor.moc"
