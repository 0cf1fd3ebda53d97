#include <QTest>
#include <QVector>

#include "driver_fixture.h"
#include "serial_line.h"

// A command writes a frame and begins to listen when that is answered; what comes in between must not be lost to it.
class TestDriverHandOver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesTheEarlyAnswerToTheListenerThatComesAfterTheFrame();
    void givesItAlsoWhileAnotherListens();
    void givesItToEachThatComesInTime();
    void givesItOnceToWhoListenedBefore();
    void givesItBeforeWhatArrivesNext();
    void givesTwoNumbersToTheEarlyAnswerAndTheNext();
    void givesNothingOlderThanTheNextFrame();
    void givesNothingWhenTheTimeIsOver();
    void givesItWhenTheListenerCameLateBecauseTheEventLoopWasHeldUp();
    void givesNothingToWhoStopsBeforeItsTurn();
};

namespace {

void writeAndArrive(const DriverFixture& driver, const QByteArray& answer)
{
    const Run writing = driver.write("ATS\r\n");
    driver.port->leave();
    driver.port->arrive(answer);
}

} // namespace

void TestDriverHandOver::givesTheEarlyAnswerToTheListenerThatComesAfterTheFrame()
{
    const DriverFixture driver;
    writeAndArrive(driver, "ERR:2\r\n");
    const Run listener = driver.listen();
    driver.clock->advance(0);
    QCOMPARE(heard(listener), QByteArray("ERR:2\r\n"));
}

void TestDriverHandOver::givesItAlsoWhileAnotherListens()
{
    const DriverFixture driver;
    const Run other = driver.listen();
    writeAndArrive(driver, "ERR:2\r\n");
    const Run listener = driver.listen();
    driver.clock->advance(0);
    QCOMPARE(heard(listener), QByteArray("ERR:2\r\n"));
}

void TestDriverHandOver::givesItToEachThatComesInTime()
{
    const DriverFixture driver;
    writeAndArrive(driver, "ERR:2\r\n");
    const Run first = driver.listen();
    driver.clock->advance(0);
    const Run second = driver.listen();
    driver.clock->advance(0);
    QCOMPARE(heard(second), QByteArray("ERR:2\r\n"));
}

void TestDriverHandOver::givesItOnceToWhoListenedBefore()
{
    const DriverFixture driver;
    const Run other = driver.listen();
    writeAndArrive(driver, "ERR:2\r\n");
    const Run listener = driver.listen();
    driver.clock->advance(0);
    QCOMPARE(heard(other), QByteArray("ERR:2\r\n"));
}

void TestDriverHandOver::givesItBeforeWhatArrivesNext()
{
    const DriverFixture driver;
    const Run other = driver.listen();
    writeAndArrive(driver, "RESP 1\r\n");
    const Run listener = driver.listen();
    driver.port->arrive("RESP 2\r\n");
    driver.clock->advance(0);
    QCOMPARE(heard(listener), QByteArray("RESP 1\r\nRESP 2\r\n"));
}

void TestDriverHandOver::givesTwoNumbersToTheEarlyAnswerAndTheNext()
{
    const DriverFixture driver;
    const Run other = driver.listen();
    writeAndArrive(driver, "RESP 1\r\n");
    const Run listener = driver.listen();
    driver.port->arrive("RESP 2\r\n");
    const QVector<QVariantMap> chunks = listener.order->published;
    QCOMPARE(chunks.size(), 2);
    QVERIFY(chunks.at(0).value(QStringLiteral("number")) != chunks.at(1).value(QStringLiteral("number")));
}

void TestDriverHandOver::givesNothingOlderThanTheNextFrame()
{
    const DriverFixture driver;
    const Run other = driver.listen();
    writeAndArrive(driver, "OK:0\r\n");
    const Run listener = driver.listen();
    const Run writing = driver.write("IDLE\r\n");
    driver.clock->advance(0);
    QCOMPARE(heard(listener), QByteArray());
}

void TestDriverHandOver::givesNothingWhenTheTimeIsOver()
{
    const DriverFixture driver;
    const Run other = driver.listen();
    writeAndArrive(driver, "ERR:2\r\n");
    driver.clock->advance(SerialLine::c_handOverMs + 1);
    const Run listener = driver.listen();
    driver.clock->advance(0);
    QCOMPARE(heard(listener), QByteArray());
}

void TestDriverHandOver::givesItWhenTheListenerCameLateBecauseTheEventLoopWasHeldUp()
{
    const DriverFixture driver;
    const Run other = driver.listen();
    writeAndArrive(driver, "ERR:2\r\n");
    driver.clock->holdUp(qint64{3} * SerialLine::c_handOverMs);
    driver.clock->advance(0);
    const Run listener = driver.listen();
    driver.clock->advance(0);
    QCOMPARE(heard(listener), QByteArray("ERR:2\r\n"));
}

void TestDriverHandOver::givesNothingToWhoStopsBeforeItsTurn()
{
    const DriverFixture driver;
    writeAndArrive(driver, "ERR:2\r\n");
    const Run listener = driver.listen();
    listener.stop();
    driver.clock->advance(0);
    QCOMPARE(heard(listener), QByteArray());
}

QTEST_GUILESS_MAIN(TestDriverHandOver)

#include "tst_driver_hand_over.moc"
