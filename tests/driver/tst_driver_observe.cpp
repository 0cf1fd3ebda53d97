#include <QtTest>

#include "driver_fixture.h"
#include "serial_line.h"

namespace {

Run observe(const DriverFixture& driver)
{
    return driver.run("listenEventsData", {{QStringLiteral("subscription"), true}, {QStringLiteral("observe"), true}});
}

} // namespace

class TestDriverObserve : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensThePort();
    void hearsAChunkAsItArrives();
    void leavesTheAnswerToAFrameForTheListenerThatComesAfterIt();
    void hearsAnAnswerThatIsKeptOnce();
    void keepsThePortBeingOpenedAgain();
    void hearsNothingAfterTheStop();
};

void TestDriverObserve::opensThePort()
{
    const DriverFixture driver;
    const Run observer = observe(driver);
    QCOMPARE(driver.port->openings, 1);
}

void TestDriverObserve::hearsAChunkAsItArrives()
{
    const DriverFixture driver;
    const Run observer = observe(driver);
    driver.port->arrive("RESP 1\r\n");
    QCOMPARE(heard(observer), QByteArray("RESP 1\r\n"));
}

void TestDriverObserve::leavesTheAnswerToAFrameForTheListenerThatComesAfterIt()
{
    const DriverFixture driver;
    const Run observer = observe(driver);
    const Run writing = driver.write("ATS\r\n");
    driver.port->leave();
    driver.port->arrive("ERR:2\r\n");
    const Run listener = driver.listen();
    driver.clock->advance(0);
    QCOMPARE(heard(listener), QByteArray("ERR:2\r\n"));
}

void TestDriverObserve::hearsAnAnswerThatIsKeptOnce()
{
    const DriverFixture driver;
    const Run observer = observe(driver);
    const Run writing = driver.write("ATS\r\n");
    driver.port->leave();
    driver.port->arrive("ERR:2\r\n");
    const Run listener = driver.listen();
    driver.clock->advance(0);
    QCOMPARE(heard(observer), QByteArray("ERR:2\r\n"));
}

void TestDriverObserve::keepsThePortBeingOpenedAgain()
{
    const DriverFixture driver;
    const Run observer = observe(driver);
    driver.port->fail(QStringLiteral("It went away."));
    driver.clock->advance(SerialLine::c_firstReopenMs);
    QCOMPARE(driver.port->openings, 2);
}

void TestDriverObserve::hearsNothingAfterTheStop()
{
    const DriverFixture driver;
    const Run observer = observe(driver);
    observer.stop();
    driver.port->arrive("RESP 1\r\n");
    QCOMPARE(heard(observer), QByteArray());
}

QTEST_GUILESS_MAIN(TestDriverObserve)

#include "tst_driver_observe.moc"
