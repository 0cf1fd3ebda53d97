#include <QStringList>
#include <QTest>
#include <QVariant>

#include "driver_fixture.h"
#include "serial_line.h"

class TestDriverWrite : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensThePortOnTheFirstWrite();
    void putsTheBytesOfAByteArrayOnTheLineAsTheyAre();
    void putsATextOnTheLineAsUtf8();
    void answersOnceTheBytesHaveLeft();
    void doesNotAnswerBeforeTheBytesHaveLeft();
    void writesTheNextFrameOnlyWhenTheOneBeforeHasLeft();
    void answersFalseAtTheLimitAndNotOneMillisecondBefore();
    void discardsWhatIsLeftOfAFrameThatMissedItsLimit();
    void writesTheNextFrameAfterOneThatMissedItsLimit();
    void neverWritesAFrameThatMissedItsLimitInTheQueue();
    void takes500MsWithoutTimeout();
    void answersFalseAtOnceWhenThePortCannotBeOpened();
    void answersAllQueuedFramesFalseWhenThePortGoesAway();
    void opensAgainForAWriteAfterAFailure();
    void writesAFrameAskedForInAnswerToAFailure();
    void refusesABadFrame_data();
    void refusesABadFrame();
    void refusesABadTimeout_data();
    void refusesABadTimeout();
    void writesAFrameWhoseRunWasStopped();
    void staysSilentTowardsACommandThatIsGone();
    void survivesTheDriverGoingFirst();
    void runsTwiceWithOneCommandObject();
};

void TestDriverWrite::opensThePortOnTheFirstWrite()
{
    const DriverFixture driver;
    QCOMPARE(driver.port->openings, 0);
    const Run run = driver.write("ATS\r\n");
    QCOMPARE(driver.port->openings, 1);
}

void TestDriverWrite::putsTheBytesOfAByteArrayOnTheLineAsTheyAre()
{
    const DriverFixture driver;
    const QByteArray frame = QByteArray::fromHex("000d0aff80");
    const Run run = driver.write(frame);
    QCOMPARE(driver.port->written, QByteArrayList{frame});
}

void TestDriverWrite::putsATextOnTheLineAsUtf8()
{
    const DriverFixture driver;
    const Run run = driver.run("write", {{QStringLiteral("frame"), QStringLiteral("ATH \u00e9\r\n")}});
    QCOMPARE(driver.port->written, QByteArrayList{"ATH \xc3\xa9\r\n"});
}

void TestDriverWrite::answersOnceTheBytesHaveLeft()
{
    const DriverFixture driver;
    const Run run = driver.write("ATS\r\n");
    driver.port->leave();
    QVERIFY(run.succeeded());
    QCOMPARE(run.error(), QString());
    QCOMPARE(run.order->published.size(), 1);
    QCOMPARE(run.order->finished, 1);
    QVERIFY(run.order->finishedOk);
}

void TestDriverWrite::doesNotAnswerBeforeTheBytesHaveLeft()
{
    const DriverFixture driver;
    const Run run = driver.write("ATS\r\n");
    QVERIFY(run.started);
    driver.clock->advance(499);
    QVERIFY(run.order->published.isEmpty());
    QVERIFY(!run.isFinished());
}

void TestDriverWrite::writesTheNextFrameOnlyWhenTheOneBeforeHasLeft()
{
    const DriverFixture driver;
    const Run first = driver.write("1");
    const Run second = driver.write("2");
    const Run third = driver.write("3");
    QCOMPARE(driver.port->written, QByteArrayList({"1"}));
    driver.port->leave();
    QCOMPARE(driver.port->written, QByteArrayList({"1", "2"}));
    QVERIFY(first.isFinished());
    QVERIFY(!second.isFinished());
    driver.port->leave();
    driver.port->leave();
    QCOMPARE(driver.port->written, QByteArrayList({"1", "2", "3"}));
    QVERIFY(third.succeeded());
}

void TestDriverWrite::answersFalseAtTheLimitAndNotOneMillisecondBefore()
{
    const DriverFixture driver;
    const Run run = driver.write("ATS\r\n", 200);
    driver.clock->advance(199);
    QVERIFY(!run.isFinished());
    driver.clock->advance(1);
    QCOMPARE(run.result("cmd_success"), QVariant(false));
    QVERIFY2(run.error().contains(QStringLiteral("/dev/fake did not take a frame of 5 bytes within 200 ms")),
             qPrintable(run.error()));
}

void TestDriverWrite::discardsWhatIsLeftOfAFrameThatMissedItsLimit()
{
    const DriverFixture driver;
    const Run run = driver.write("ATS\r\n", 200);
    driver.clock->advance(200);
    QCOMPARE(driver.port->discards, 1);
}

void TestDriverWrite::writesTheNextFrameAfterOneThatMissedItsLimit()
{
    const DriverFixture driver;
    const Run first = driver.write("1", 200);
    const Run second = driver.write("2", 500);
    driver.clock->advance(200);
    driver.port->leave();
    QVERIFY(!first.succeeded());
    QCOMPARE(driver.port->written, QByteArrayList({"1", "2"}));
    QVERIFY(second.succeeded());
}

void TestDriverWrite::neverWritesAFrameThatMissedItsLimitInTheQueue()
{
    const DriverFixture driver;
    const Run first = driver.write("1", 500);
    const Run second = driver.write("2", 200);
    driver.clock->advance(200);
    QCOMPARE(second.result("cmd_success"), QVariant(false));
    QCOMPARE(driver.port->discards, 0);
    driver.port->leave();
    QVERIFY(first.succeeded());
    QCOMPARE(driver.port->written, QByteArrayList({"1"}));
}

void TestDriverWrite::takes500MsWithoutTimeout()
{
    const DriverFixture driver;
    const Run run = driver.run("write", {{QStringLiteral("frame"), QByteArray("1")}});
    driver.clock->advance(499);
    QVERIFY(!run.isFinished());
    driver.clock->advance(1);
    QVERIFY(run.isFinished());
}

void TestDriverWrite::answersFalseAtOnceWhenThePortCannotBeOpened()
{
    const DriverFixture driver;
    driver.port->openProblem = QStringLiteral("The port is not there.");
    const Run run = driver.write("ATS\r\n");
    QVERIFY(run.started);
    QCOMPARE(run.result("cmd_success"), QVariant(false));
    QCOMPARE(run.error(), QStringLiteral("The port is not there."));
    QCOMPARE(run.order->finished, 1);
    QCOMPARE(driver.clock->waiting(), 0);
}

void TestDriverWrite::answersAllQueuedFramesFalseWhenThePortGoesAway()
{
    const DriverFixture driver;
    const Run first = driver.write("1");
    const Run second = driver.write("2");
    driver.port->openProblem = QStringLiteral("Gone.");
    driver.port->fail(QStringLiteral("It went away."));
    QCOMPARE(first.error(), QStringLiteral("It went away."));
    QCOMPARE(second.error(), QStringLiteral("It went away."));
    QCOMPARE(driver.clock->waiting(), 0);
}

void TestDriverWrite::opensAgainForAWriteAfterAFailure()
{
    const DriverFixture driver;
    const Run first = driver.write("1");
    driver.port->fail(QStringLiteral("It went away."));
    const Run second = driver.write("2");
    driver.port->leave();
    QVERIFY(second.succeeded());
    QCOMPARE(driver.port->openings, 2);
    QCOMPARE(driver.port->written, QByteArrayList({"1", "2"}));
}

void TestDriverWrite::writesAFrameAskedForInAnswerToAFailure()
{
    const DriverFixture driver;
    SerialLine* line = driver.plugin->line();
    QStringList errors;
    line->write("1", 500, [&](bool, const QString& error) {
        errors.append(error);
        line->write("2", 500, [&](bool, const QString& again) { errors.append(again); });
    });
    driver.port->fail(QStringLiteral("It went away."));
    driver.port->leave();
    QCOMPARE(driver.port->written, QByteArrayList({"1", "2"}));
    QCOMPARE(errors, QStringList({QStringLiteral("It went away."), QString()}));
}

void TestDriverWrite::refusesABadFrame_data()
{
    QTest::addColumn<QVariant>("frame");
    QTest::newRow("none") << QVariant();
    QTest::newRow("empty bytes") << QVariant(QByteArray());
    QTest::newRow("empty text") << QVariant(QString());
    QTest::newRow("number") << QVariant(5);
}

void TestDriverWrite::refusesABadFrame()
{
    QFETCH(const QVariant, frame);
    const DriverFixture driver;
    const Run run = driver.run("write", {{QStringLiteral("frame"), frame}});
    QCOMPARE(run.result("cmd_success"), QVariant(false));
    QVERIFY2(run.error().contains(QStringLiteral("\"frame\"")), qPrintable(run.error()));
    QVERIFY(run.isFinished());
    QCOMPARE(driver.port->openings, 0);
}

void TestDriverWrite::refusesABadTimeout_data()
{
    QTest::addColumn<QVariant>("timeout");
    QTest::newRow("zero") << QVariant(0);
    QTest::newRow("negative") << QVariant(-1);
    QTest::newRow("text") << QVariant(QStringLiteral("soon"));
}

void TestDriverWrite::refusesABadTimeout()
{
    QFETCH(const QVariant, timeout);
    const DriverFixture driver;
    const Run run =
        driver.run("write", {{QStringLiteral("frame"), QByteArray("1")}, {QStringLiteral("timeout"), timeout}});
    QCOMPARE(run.result("cmd_success"), QVariant(false));
    QVERIFY2(run.error().contains(QLatin1Char('"') + timeout.toString() + QLatin1Char('"')), qPrintable(run.error()));
    QCOMPARE(driver.port->openings, 0);
}

void TestDriverWrite::writesAFrameWhoseRunWasStopped()
{
    const DriverFixture driver;
    const Run first = driver.write("1");
    const Run second = driver.write("2");
    second.stop();
    driver.port->leave();
    driver.port->leave();
    QCOMPARE(driver.port->written, QByteArrayList({"1", "2"}));
    QVERIFY(second.order->published.isEmpty());
}

void TestDriverWrite::staysSilentTowardsACommandThatIsGone()
{
    const DriverFixture driver;
    Run run = driver.write("1");
    run.command.reset();
    driver.port->leave();
    QVERIFY(run.order->published.isEmpty());
}

void TestDriverWrite::survivesTheDriverGoingFirst()
{
    DriverFixture driver;
    Run run = driver.write("1");
    driver.plugin.reset();
    QVERIFY(run.order->published.isEmpty());
    run.stop();
    run.command.reset();
}

void TestDriverWrite::runsTwiceWithOneCommandObject()
{
    const DriverFixture driver;
    const Run run = driver.write("1");
    driver.port->leave();
    QVERIFY(run.command->commandExecute());
    driver.port->leave();
    QCOMPARE(run.order->finished, 2);
    QCOMPARE(driver.port->written, QByteArrayList({"1", "1"}));
}

QTEST_GUILESS_MAIN(TestDriverWrite)
#include "tst_driver_write.moc"
