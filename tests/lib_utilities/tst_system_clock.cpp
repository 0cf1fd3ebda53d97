#include <QEventLoop>
#include <QTest>

#include <memory>

#include <lib_utilities/system_clock.h>

/// Waits by the clock's own actions only: the slowest test takes some 20 ms.
class TstSystemClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timeGoesOn();
    void actionIsCalledFromTheEventLoopWhenItsTimeHasCome();
    void zeroDelayIsALaterTurn();
    void actionsComeInTheOrderOfTheirTimes();
    void cancelledActionIsNotCalled();
    void cancelOfAnUnknownTimerIsNoError();
    void timerIdsAreNeverUsedTwice();
    void actionMayAskForAnother();
    void actionMayDestroyTheClock();
};

void TstSystemClock::timeGoesOn()
{
    const SystemClock clock;
    const qint64 before = clock.nowUs();
    QVERIFY(before >= 0);
    QTRY_VERIFY(clock.nowUs() > before);
}

void TstSystemClock::actionIsCalledFromTheEventLoopWhenItsTimeHasCome()
{
    SystemClock clock;
    QEventLoop loop;
    const qint64 asked = clock.nowUs();
    qint64 called = -1;
    QVERIFY(clock.callAfter(20, [&] {
        called = clock.nowUs();
        loop.quit();
    }) != 0);
    QCOMPARE(called, qint64(-1));
    loop.exec();
    // Qt counts in whole milliseconds of its own, which may begin before ours.
    QVERIFY2(called - asked >= 19000, qPrintable(QString::number(called - asked)));
}

void TstSystemClock::zeroDelayIsALaterTurn()
{
    SystemClock clock;
    QEventLoop loop;
    bool called = false;
    clock.callAfter(0, [&] {
        called = true;
        loop.quit();
    });
    QVERIFY(!called);
    loop.exec();
    QVERIFY(called);
}

void TstSystemClock::actionsComeInTheOrderOfTheirTimes()
{
    SystemClock clock;
    QEventLoop loop;
    QStringList order;
    clock.callAfter(12, [&] {
        order.append(QStringLiteral("second"));
        loop.quit();
    });
    clock.callAfter(2, [&] { order.append(QStringLiteral("first")); });
    loop.exec();
    QCOMPARE(order, QStringList({QStringLiteral("first"), QStringLiteral("second")}));
}

void TstSystemClock::cancelledActionIsNotCalled()
{
    SystemClock clock;
    QEventLoop loop;
    bool called = false;
    const Clock::TimerId timer = clock.callAfter(1, [&] { called = true; });
    clock.callAfter(10, [&] { loop.quit(); });
    clock.cancel(timer);
    loop.exec();
    QVERIFY(!called);
}

void TstSystemClock::cancelOfAnUnknownTimerIsNoError()
{
    SystemClock clock;
    QEventLoop loop;
    const Clock::TimerId timer = clock.callAfter(0, [&] { loop.quit(); });
    clock.cancel(0);
    clock.cancel(timer + 1);
    loop.exec(); // ends: the real one is untouched
    clock.cancel(timer);
}

void TstSystemClock::timerIdsAreNeverUsedTwice()
{
    SystemClock clock;
    const Clock::TimerId first = clock.callAfter(1000, [] {});
    clock.cancel(first);
    QVERIFY(clock.callAfter(1000, [] {}) != first);
}

void TstSystemClock::actionMayAskForAnother()
{
    SystemClock clock;
    QEventLoop loop;
    clock.callAfter(0, [&] { clock.callAfter(0, [&] { loop.quit(); }); });
    loop.exec();
}

void TstSystemClock::actionMayDestroyTheClock()
{
    auto clock = std::make_unique<SystemClock>();
    QEventLoop loop;
    bool otherCalled = false;
    clock->callAfter(0, [&] {
        clock.reset();
        loop.quit();
    });
    clock->callAfter(0, [&] { otherCalled = true; });
    loop.exec();
    QVERIFY(clock == nullptr);
    QCoreApplication::processEvents();
    QVERIFY(!otherCalled);
}

QTEST_GUILESS_MAIN(TstSystemClock)
#include "tst_system_clock.moc"
