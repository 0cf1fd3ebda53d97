#include <QStringList>
#include <QTest>

#include <support/manual_clock.h>

class TstManualClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void standsStillUntilItIsTurned();
    void actionIsCalledAtItsMoment();
    void actionsComeByTimeThenByRequest();
    void cancelledActionIsNotCalled();
    void actionAskedForOnTheWayIsCalledToo();
    void stepRunsOneAction();
    void nextMomentIsTold();
};

void TstManualClock::standsStillUntilItIsTurned()
{
    ManualClock clock;
    QCOMPARE(clock.nowUs(), qint64(0));
    clock.advance(3);
    QCOMPARE(clock.nowUs(), qint64(3000));
}

void TstManualClock::actionIsCalledAtItsMoment()
{
    ManualClock clock;
    qint64 called = -1;
    clock.callAfter(5, [&] { called = clock.nowUs(); });
    clock.advance(4);
    QCOMPARE(called, qint64(-1));
    clock.advance(10);
    QCOMPARE(called, qint64(5000));
}

void TstManualClock::actionsComeByTimeThenByRequest()
{
    ManualClock clock;
    QString order;
    clock.callAfter(2, [&] { order += QLatin1Char('c'); });
    clock.callAfter(1, [&] { order += QLatin1Char('a'); });
    clock.callAfter(1, [&] { order += QLatin1Char('b'); });
    clock.advance(2);
    QCOMPARE(order, QStringLiteral("abc"));
}

void TstManualClock::cancelledActionIsNotCalled()
{
    ManualClock clock;
    bool called = false;
    clock.cancel(clock.callAfter(1, [&] { called = true; }));
    clock.cancel(0);
    clock.advance(1);
    QVERIFY(!called);
}

void TstManualClock::actionAskedForOnTheWayIsCalledToo()
{
    ManualClock clock;
    qint64 called = -1;
    clock.callAfter(1, [&] { clock.callAfter(2, [&] { called = clock.nowUs(); }); });
    clock.advance(3);
    QCOMPARE(called, qint64(3000));
}

void TstManualClock::stepRunsOneAction()
{
    ManualClock clock;
    int called = 0;
    clock.callAfter(5, [&] { ++called; });
    clock.callAfter(5, [&] { ++called; });
    QVERIFY(!clock.step(4999));
    QCOMPARE(clock.nowUs(), qint64(4999));
    QVERIFY(clock.step(9000));
    QCOMPARE(called, 1);
    QCOMPARE(clock.nowUs(), qint64(5000));
    QVERIFY(clock.step(9000));
    QVERIFY(!clock.step(9000));
    QCOMPARE(called, 2);
    QCOMPARE(clock.nowUs(), qint64(9000));
}

void TstManualClock::nextMomentIsTold()
{
    ManualClock clock;
    QVERIFY(!clock.nextDueUs());
    clock.callAfter(7, [] {});
    clock.callAfter(3, [] {});
    QCOMPARE(clock.nextDueUs(), std::optional<qint64>(3000));
}

QTEST_GUILESS_MAIN(TstManualClock)
#include "tst_manual_clock.moc"
