#include <QTest>

#include "driver_fixture.h"
#include "log_capture.h"
#include "undelivered_input.h"

/// What the driver says in the log when a line goes wild: a warning of its category that names the port, once for one
/// cause and then counted.
class TestDriverLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsOfAnAdapterThatFlapsOnceInTenSeconds();
    void tellsOfFramesThatDoNotLeaveOnceInTenSeconds();
    void tellsOfDroppedInputOnceInTenSeconds();
    void tellsOfAnotherCauseAtOnce();
    void tellsOfAPortThatCannotBeOpenedOnceHoweverOftenItIsTried();
};

namespace {

/// The messages of the category, each a warning that names the port.
QStringList warnings(const LogCapture& log, const char* category)
{
    QStringList texts;
    for (const LogMessage& message : log.messages()) {
        if (message.category == QLatin1String(category)) {
            const bool isInOrder = message.type == QtWarningMsg && message.text.contains(QLatin1String("/dev/fake"));
            texts.append(isInOrder ? message.text : QStringLiteral("not a warning of a port: ") + message.text);
        }
    }
    return texts;
}

const QString c_gone = QStringLiteral("The port /dev/fake has gone away.");
const QString c_nineTimes = QStringLiteral(" (9 × in 10 s)");

void flap(const DriverFixture& driver)
{
    driver.port->arrive("x"); // the port works again, so it is opened again soon
    driver.port->fail(c_gone);
    driver.clock->advance(1000);
}

} // namespace

void TestDriverLog::tellsOfAnAdapterThatFlapsOnceInTenSeconds()
{
    const LogCapture log;
    const DriverFixture driver;
    const Run run = driver.listen();
    constexpr int c_flaps = 15; // one a second
    for (int i = 0; i < c_flaps; ++i) {
        flap(driver);
    }
    QVERIFY(driver.port->openings >= c_flaps);
    QCOMPARE(warnings(log, "workplace.driver_serial.line"), QStringList({c_gone, c_gone + c_nineTimes}));
}

void TestDriverLog::tellsOfFramesThatDoNotLeaveOnceInTenSeconds()
{
    const LogCapture log;
    const DriverFixture driver;
    constexpr int c_frames = 15;
    for (int i = 0; i < c_frames; ++i) {
        const Run run = driver.write("ATS\r\n", 1000);
        driver.clock->advance(1000);
        QVERIFY(!run.succeeded());
    }
    const QStringList told = warnings(log, "workplace.driver_serial");
    QCOMPARE(told.size(), 2);
    QVERIFY2(told.first().startsWith(QStringLiteral("The port /dev/fake did not take a frame of 5 bytes")),
             qPrintable(told.first()));
    QVERIFY2(told.last().endsWith(c_nineTimes), qPrintable(told.last()));
}

void TestDriverLog::tellsOfDroppedInputOnceInTenSeconds()
{
    const LogCapture log;
    const DriverFixture driver;
    constexpr int c_times = 11;
    for (int i = 0; i < c_times; ++i) {
        const Run write = driver.write("ATS\r\n");
        driver.port->leave();
        driver.port->arrive(QByteArray(UndeliveredInput::c_limitBytes - 1, 'x') + "\r\n");
        const Run run = driver.listen();
        driver.clock->advance(1000);
        run.stop();
    }
    const QStringList told = warnings(log, "workplace.driver_serial");
    QCOMPARE(told.size(), 2);
    QVERIFY2(told.first().contains(QStringLiteral("524289 bytes from the line are dropped")), qPrintable(told.first()));
    QVERIFY2(told.last().endsWith(QStringLiteral(" × in 10 s)")), qPrintable(told.last()));
}

void TestDriverLog::tellsOfAnotherCauseAtOnce()
{
    const LogCapture log;
    const DriverFixture driver;
    const Run run = driver.listen();
    flap(driver);
    const QString busy = QStringLiteral("The port /dev/fake is in use.");
    driver.port->openProblem = busy;
    flap(driver);
    QCOMPARE(warnings(log, "workplace.driver_serial.line"), QStringList({c_gone, busy}));
}

void TestDriverLog::tellsOfAPortThatCannotBeOpenedOnceHoweverOftenItIsTried()
{
    const LogCapture log;
    const DriverFixture driver;
    driver.port->openProblem = QStringLiteral("The port /dev/fake is in use.");
    const Run run = driver.listen();
    driver.clock->advance(60000);
    QVERIFY(driver.port->openings > 10);
    QCOMPARE(warnings(log, "workplace.driver_serial.line"), QStringList({driver.port->openProblem}));
}

QTEST_GUILESS_MAIN(TestDriverLog)
#include "tst_driver_log.moc"
