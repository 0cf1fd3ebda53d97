#include <QMap>
#include <QRegularExpression>
#include <QTest>
#include <QVariant>
#include <QVector>

#include <functional>
#include <limits>

#include "driver_fixture.h"
#include "serial_line.h"

namespace {

const auto c_gone = QStringLiteral("It went away.");
const auto c_missing = QStringLiteral("It is missing.");

} // namespace

class TestDriverListen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensThePortForTheFirstListener();
    void publishesEachChunkAtOnceWithItsNumber();
    void passesBytesAsTheyAre();
    void givesAllListenersTheSameChunks();
    void acceptsAValidator();
    void hearsNothingAfterTheStop();
    void staysOpenUntilItIsStopped();
    void isEndedByStopListening();
    void dropsWhatArrivesWhileNobodyListens();
    void keepsTheAnswerToAFrameForAListenerThatComesWithin100Ms();
    void keepsWhatArrivesBeforeTheFrameIsSeenToHaveLeft();
    void dropsTheAnswerToAFrameAfter100Ms();
    void dropsTheAnswerToAFrameForTheNextFrame();
    void dropsTheAnswerToAFrameWhenThePortCloses();
    void givesKeptInputOnceTheListenerHasBegun();
    void givesKeptInputBeforeWhatArrivesLater();
    void keepsAtMostOneMebibyteAndLogsTheDrop();
    void staysAListenerWhenThePortCannotBeOpened();
    void staysAListenerWhenThePortGoesAway();
    void opensAgainAfterAQuarterSecondDoublingToFive();
    void startsWithAQuarterSecondAgainAfterTraffic();
    void startsWithAQuarterSecondAgainAfterAFrame();
    void doesNotOpenAgainWithoutListeners();
    void doesNotOpenAgainOnceTheLastListenerHasGone();
    void isNotServedAfterClosingUntilTheNextWrite();
    void closesOnlyAfterTheFramesAskedBefore();
    void opensForAFrameAskedAfterClosing();
    void closesBetweenTheFramesThoughThePortGoesAway();
    void closesAPortThatIsLost();
    void survivesAListenerThatStopsAnother();
    void survivesAListenerThatDestroysTheDriver();
    void countsEachInstanceForItself();
    void startsAtOneAgainAfterTheLargestNumber();
};

void TestDriverListen::opensThePortForTheFirstListener()
{
    const DriverFixture driver;
    const Run run = driver.listen();
    QVERIFY(run.started);
    QCOMPARE(driver.port->openings, 1);
}

void TestDriverListen::publishesEachChunkAtOnceWithItsNumber()
{
    const DriverFixture driver;
    const Run run = driver.listen();
    driver.port->arrive("RESP 1\r\nRE");
    QCOMPARE(run.order->published.size(), 1);
    driver.port->arrive("SP 2\r\n");
    QMap<QString, QVariant> first{{QStringLiteral("frame"), QByteArray("RESP 1\r\nRE")}, {QStringLiteral("number"), 1}};
    QMap<QString, QVariant> second{{QStringLiteral("frame"), QByteArray("SP 2\r\n")}, {QStringLiteral("number"), 2}};
    QCOMPARE(run.order->published, (QVector<QMap<QString, QVariant>>{first, second}));
}

void TestDriverListen::passesBytesAsTheyAre()
{
    const DriverFixture driver;
    const Run run = driver.listen();
    const QByteArray bytes = QByteArray::fromHex("00ff0d0a80");
    driver.port->arrive(bytes);
    QCOMPARE(run.order->last(QStringLiteral("frame")), QVariant(bytes));
}

void TestDriverListen::givesAllListenersTheSameChunks()
{
    const DriverFixture driver;
    const Run first = driver.listen();
    driver.port->arrive("1");
    const Run second = driver.listen();
    driver.port->arrive("2");
    QCOMPARE(heard(first), QByteArray("12"));
    QCOMPARE(heard(second), QByteArray("2"));
    QCOMPARE(first.order->published.last(), second.order->published.last());
}

void TestDriverListen::acceptsAValidator()
{
    const DriverFixture driver;
    const Run run = driver.run("listenEventsData", {{QStringLiteral("subscription"), true},
                                                    {QStringLiteral("validator"), QByteArray::fromHex("0003")}});
    driver.port->arrive("1");
    QCOMPARE(heard(run), QByteArray("1"));
}

void TestDriverListen::hearsNothingAfterTheStop()
{
    const DriverFixture driver;
    const Run run = driver.listen();
    run.stop();
    QVERIFY(run.isFinished());
    driver.port->arrive("1");
    QVERIFY(run.order->published.isEmpty());
}

void TestDriverListen::staysOpenUntilItIsStopped()
{
    const DriverFixture driver;
    const Run run = driver.listen();
    driver.port->arrive("1");
    driver.clock->advance(3600000);
    driver.port->arrive("2");
    QVERIFY(!run.isFinished());
    QCOMPARE(heard(run), QByteArray("12"));
}

void TestDriverListen::isEndedByStopListening()
{
    const DriverFixture driver;
    QCOMPARE(driver.listen().command->stopCommandName(), QStringLiteral("stopListening"));
}

void TestDriverListen::dropsWhatArrivesWhileNobodyListens()
{
    const DriverFixture driver;
    driver.listen().stop();
    driver.port->arrive("stale");
    const Run run = driver.listen();
    driver.clock->advance(0);
    driver.port->arrive("new");
    QCOMPARE(heard(run), QByteArray("new"));
}

void TestDriverListen::keepsTheAnswerToAFrameForAListenerThatComesWithin100Ms()
{
    const DriverFixture driver;
    const Run write = driver.write("ATS\r\n");
    driver.port->leave();
    driver.clock->advance(50);
    driver.port->arrive("RESP\r\n");
    driver.clock->advance(49);
    const Run run = driver.listen();
    driver.clock->advance(0);
    QCOMPARE(heard(run), QByteArray("RESP\r\n"));
}

void TestDriverListen::keepsWhatArrivesBeforeTheFrameIsSeenToHaveLeft()
{
    const DriverFixture driver;
    const Run write = driver.write("ATS\r\n");
    driver.port->arrive("RESP\r\n");
    driver.port->leave();
    const Run run = driver.listen();
    driver.clock->advance(0);
    QCOMPARE(heard(run), QByteArray("RESP\r\n"));
}

void TestDriverListen::dropsTheAnswerToAFrameAfter100Ms()
{
    const DriverFixture driver;
    const Run write = driver.write("ATS\r\n");
    driver.port->leave();
    driver.port->arrive("RESP\r\n");
    driver.clock->advance(101);
    const Run run = driver.listen();
    driver.clock->advance(0);
    driver.port->arrive("new");
    QCOMPARE(heard(run), QByteArray("new"));
}

void TestDriverListen::dropsTheAnswerToAFrameForTheNextFrame()
{
    const DriverFixture driver;
    const Run first = driver.write("ATH\r\n");
    driver.port->leave();
    driver.port->arrive("ATH\r\n");
    const Run second = driver.write("ATS\r\n");
    driver.port->leave();
    const Run run = driver.listen();
    driver.clock->advance(0);
    QCOMPARE(heard(run), QByteArray());
}

void TestDriverListen::dropsTheAnswerToAFrameWhenThePortCloses()
{
    const DriverFixture driver;
    const Run write = driver.write("ATH\r\n");
    driver.port->leave();
    driver.port->arrive("ATH\r\n");
    const Run closing = driver.run("closeConnection");
    const Run run = driver.listen();
    driver.clock->advance(0);
    QCOMPARE(heard(run), QByteArray());
}

void TestDriverListen::givesKeptInputOnceTheListenerHasBegun()
{
    const DriverFixture driver;
    const Run write = driver.write("ATS\r\n");
    driver.port->leave();
    driver.port->arrive("RESP\r\n");
    const Run run = driver.listen();
    QVERIFY(run.order->published.isEmpty());
    driver.clock->advance(0);
    QCOMPARE(run.order->published.size(), 1);
}

void TestDriverListen::givesKeptInputBeforeWhatArrivesLater()
{
    const DriverFixture driver;
    const Run write = driver.write("ATS\r\n");
    driver.port->leave();
    driver.port->arrive("RE");
    const Run run = driver.listen();
    driver.port->arrive("SP\r\n");
    driver.clock->advance(0);
    QCOMPARE(heard(run), QByteArray("RESP\r\n"));
    QCOMPARE(run.result("number"), QVariant(2));
}

void TestDriverListen::keepsAtMostOneMebibyteAndLogsTheDrop()
{
    const DriverFixture driver;
    const Run write = driver.write("ATS\r\n");
    driver.port->leave();
    constexpr int c_mebibyte = 1024 * 1024;
    driver.port->arrive(QByteArray("xxxxxx\r\n").repeated(c_mebibyte / 8));
    driver.port->arrive("newest");
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^/dev/fake: 524294 bytes from the line are dropped")));
    const Run run = driver.listen();
    driver.clock->advance(0);
    QCOMPARE(heard(run).size(), c_mebibyte / 2);
    QVERIFY(heard(run).endsWith("x\r\nnewest"));
}

void TestDriverListen::staysAListenerWhenThePortCannotBeOpened()
{
    const DriverFixture driver;
    driver.port->openProblem = c_missing;
    const Run run = driver.listen();
    QVERIFY(run.started);
    QVERIFY(!run.isFinished());
    driver.port->openProblem.clear();
    driver.clock->advance(250);
    driver.port->arrive("1");
    QCOMPARE(heard(run), QByteArray("1"));
}

void TestDriverListen::staysAListenerWhenThePortGoesAway()
{
    const DriverFixture driver;
    const Run run = driver.listen();
    driver.port->fail(c_gone);
    driver.clock->advance(250);
    QCOMPARE(driver.port->openings, 2);
    driver.port->arrive("1");
    QCOMPARE(heard(run), QByteArray("1"));
}

void TestDriverListen::opensAgainAfterAQuarterSecondDoublingToFive()
{
    const DriverFixture driver;
    driver.port->openProblem = c_missing;
    const Run run = driver.listen();
    int expected = 1;
    for (const int delayMs : {250, 500, 1000, 2000, 4000, 5000, 5000}) {
        driver.clock->advance(delayMs - 1);
        QCOMPARE(driver.port->openings, expected);
        driver.clock->advance(1);
        QCOMPARE(driver.port->openings, ++expected);
    }
}

void TestDriverListen::startsWithAQuarterSecondAgainAfterTraffic()
{
    const DriverFixture driver;
    driver.port->openProblem = c_missing;
    const Run run = driver.listen();
    driver.clock->advance(250 + 500 + 999);
    driver.port->openProblem.clear();
    driver.clock->advance(1);
    driver.port->arrive("1");
    driver.port->fail(c_gone);
    QVERIFY(!driver.port->isOpen());
    driver.clock->advance(250);
    QVERIFY(driver.port->isOpen());
}

void TestDriverListen::startsWithAQuarterSecondAgainAfterAFrame()
{
    const DriverFixture driver;
    driver.port->openProblem = c_missing;
    const Run run = driver.listen();
    driver.clock->advance(250 + 500 + 999);
    driver.port->openProblem.clear();
    driver.clock->advance(1);
    const Run write = driver.write("1");
    driver.port->leave();
    driver.port->fail(c_gone);
    driver.clock->advance(250);
    QVERIFY(driver.port->isOpen());
}

void TestDriverListen::doesNotOpenAgainWithoutListeners()
{
    const DriverFixture driver;
    const Run write = driver.write("1");
    driver.port->leave();
    driver.port->fail(c_gone);
    QCOMPARE(driver.clock->waiting(), 0);
}

void TestDriverListen::doesNotOpenAgainOnceTheLastListenerHasGone()
{
    const DriverFixture driver;
    const Run run = driver.listen();
    driver.port->fail(c_gone);
    run.stop();
    QCOMPARE(driver.clock->waiting(), 0);
}

void TestDriverListen::isNotServedAfterClosingUntilTheNextWrite()
{
    const DriverFixture driver;
    const Run run = driver.listen();
    const Run closing = driver.run("closeConnection");
    QVERIFY(closing.succeeded());
    QVERIFY(closing.isFinished());
    QVERIFY(!driver.port->isOpen());
    driver.clock->advance(10000);
    QVERIFY(!driver.port->isOpen());
    const Run write = driver.write("1");
    driver.port->arrive("2");
    QCOMPARE(heard(run), QByteArray("2"));
}

void TestDriverListen::closesOnlyAfterTheFramesAskedBefore()
{
    const DriverFixture driver;
    const Run write = driver.write("ATH\r\n");
    const Run closing = driver.run("closeConnection");
    QVERIFY(driver.port->isOpen());
    driver.port->leave();
    QVERIFY(write.succeeded());
    QVERIFY(!driver.port->isOpen());
}

void TestDriverListen::opensForAFrameAskedAfterClosing()
{
    const DriverFixture driver;
    const Run first = driver.write("1");
    const Run closing = driver.run("closeConnection");
    const Run second = driver.write("2");
    driver.port->leave();
    QCOMPARE(driver.port->openings, 2);
    driver.port->leave();
    QVERIFY(second.succeeded());
    QCOMPARE(driver.port->written, QByteArrayList({"1", "2"}));
}

void TestDriverListen::closesBetweenTheFramesThoughThePortGoesAway()
{
    const DriverFixture driver;
    const Run first = driver.write("1");
    const Run closing = driver.run("closeConnection");
    const Run second = driver.write("2");
    driver.port->fail(c_gone);
    QCOMPARE(first.error(), c_gone);
    driver.port->leave();
    QVERIFY(second.succeeded());
}

void TestDriverListen::closesAPortThatIsLost()
{
    const DriverFixture driver;
    const Run run = driver.listen();
    driver.port->fail(c_gone);
    const Run closing = driver.run("closeConnection");
    QCOMPARE(driver.property("lineState"), QVariant(QStringLiteral("closed")));
    QCOMPARE(driver.clock->waiting(), 0);
}

namespace {

class ActingListener : public ILineListener
{
public:
    std::function<void()> act = [] {};
    QVector<int> numbers;

    void chunkArrived(const QByteArray& bytes, int number) override
    {
        Q_UNUSED(bytes)
        numbers.append(number);
        act();
    }
};

} // namespace

void TestDriverListen::survivesAListenerThatStopsAnother()
{
    const DriverFixture driver;
    auto* line = driver.plugin->line();
    ActingListener first;
    ActingListener second;
    first.act = [&] { line->removeListener(&second); };
    line->addListener(&first);
    line->addListener(&second);
    driver.port->arrive("1");
    QCOMPARE(first.numbers, QVector<int>{1});
    QVERIFY(second.numbers.isEmpty());
}

void TestDriverListen::survivesAListenerThatDestroysTheDriver()
{
    DriverFixture driver;
    ActingListener first;
    ActingListener second;
    first.act = [&] { driver.plugin.reset(); };
    driver.plugin->line()->addListener(&first);
    driver.plugin->line()->addListener(&second);
    driver.port->arrive("1");
    QCOMPARE(first.numbers.size(), 1);
    QVERIFY(second.numbers.isEmpty());
}

void TestDriverListen::countsEachInstanceForItself()
{
    const DriverFixture first;
    const DriverFixture second;
    const Run firstRun = first.listen();
    const Run secondRun = second.listen();
    first.port->arrive("1");
    first.port->arrive("2");
    second.port->arrive("3");
    QCOMPARE(heard(firstRun), QByteArray("12"));
    QCOMPARE(heard(secondRun), QByteArray("3"));
    QCOMPARE(secondRun.result("number"), QVariant(1));
}

void TestDriverListen::startsAtOneAgainAfterTheLargestNumber()
{
    QCOMPARE(SerialLine::numberAfter(0), 1);
    QCOMPARE(SerialLine::numberAfter(std::numeric_limits<int>::max() - 1), std::numeric_limits<int>::max());
    QCOMPARE(SerialLine::numberAfter(std::numeric_limits<int>::max()), 1);
}

QTEST_GUILESS_MAIN(TestDriverListen)
#include "tst_driver_listen.moc"
