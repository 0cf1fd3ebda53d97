#include <QElapsedTimer>
#include <QEventLoop>
#include <QTest>
#include <QTimer>

#include <memory>

#include <lib_plugins_management/host/d_turn_queue.h>

class TstTurnQueue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void actionIsNotDoneInsidePost();
    void actionsAreDoneInOrder();
    void actionPostedByAnActionWaitsForTheNextTurn();
    void longTurnGivesWay();
    void loopInsideAnActionGoesOnWithTheRest();
    void orderHoldsInALoopInsideAnAction();
    void queueMayBeDestroyedByAnAction();
    void queueDestroyedForgetsWhatIsLeft();
    void actionOfAReceiverThatHasGoneIsForgotten();
};

namespace {

void turn()
{
    QCoreApplication::sendPostedEvents();
}

} // namespace

void TstTurnQueue::actionIsNotDoneInsidePost()
{
    DTurnQueue queue;
    bool done = false;
    queue.post([&] { done = true; });
    QVERIFY(!done);
    turn();
    QVERIFY(done);
}

void TstTurnQueue::actionsAreDoneInOrder()
{
    DTurnQueue queue;
    QString order;
    for (const char letter : {'a', 'b', 'c', 'd'}) {
        queue.post([&order, letter] { order += QLatin1Char(letter); });
    }
    turn();
    QCOMPARE(order, QStringLiteral("abcd"));
}

void TstTurnQueue::actionPostedByAnActionWaitsForTheNextTurn()
{
    DTurnQueue queue;
    QString order;
    queue.post([&] {
        order += QLatin1Char('a');
        queue.post([&] { order += QLatin1Char('c'); });
    });
    queue.post([&] { order += QLatin1Char('b'); });
    turn();
    QCOMPARE(order, QStringLiteral("ab"));
    turn();
    QCOMPARE(order, QStringLiteral("abc"));
}

void TstTurnQueue::longTurnGivesWay()
{
    DTurnQueue queue;
    int done = 0;
    for (int i = 0; i < 3; ++i) {
        queue.post([&done] {
            QElapsedTimer work;
            work.start();
            while (work.elapsed() < 10) {
                // a slow command
            }
            ++done;
        });
    }
    turn();
    QCOMPARE(done, 1);
    turn();
    QCOMPARE(done, 2);
    turn();
    QCOMPARE(done, 3);
}

void TstTurnQueue::loopInsideAnActionGoesOnWithTheRest()
{
    DTurnQueue queue;
    QEventLoop loop;
    bool timedOut = false;
    queue.post([&] { loop.exec(); }); // a dialogue, say
    queue.post([&] { loop.quit(); });
    QTimer::singleShot(5000, &loop, [&] {
        timedOut = true;
        loop.quit();
    });
    turn();
    QVERIFY(!timedOut);
}

void TstTurnQueue::orderHoldsInALoopInsideAnAction()
{
    DTurnQueue queue;
    QString order;
    QEventLoop loop;
    queue.post([&] {
        order += QLatin1Char('a');
        queue.post([&] {
            order += QLatin1Char('d');
            loop.quit();
        });
        loop.exec();
        order += QLatin1Char('e');
    });
    queue.post([&] { order += QLatin1Char('b'); });
    queue.post([&] { order += QLatin1Char('c'); });
    turn();
    QCOMPARE(order, QStringLiteral("abcde"));
}

void TstTurnQueue::queueMayBeDestroyedByAnAction()
{
    auto queue = std::make_unique<DTurnQueue>();
    bool done = false;
    queue->post([&] { queue.reset(); });
    queue->post([&] { done = true; });
    turn();
    turn();
    QVERIFY(queue == nullptr);
    QVERIFY(!done);
}

void TstTurnQueue::queueDestroyedForgetsWhatIsLeft()
{
    auto queue = std::make_unique<DTurnQueue>();
    const auto token = std::make_shared<int>(0);
    queue->post([token] { ++*token; });
    queue.reset();
    turn();
    QCOMPARE(*token, 0);
    QCOMPARE(token.use_count(), 1L);
}

void TstTurnQueue::actionOfAReceiverThatHasGoneIsForgotten()
{
    DTurnQueue queue;
    QObject stays;
    auto goes = std::make_unique<QObject>();
    QString order;
    queue.post(stays, [&] { order += QLatin1Char('a'); });
    queue.post(*goes, [&] { order += QLatin1Char('b'); });
    queue.post(stays, [&] { order += QLatin1Char('c'); });
    goes.reset();
    turn();
    QCOMPARE(order, QStringLiteral("ac"));
}

QTEST_GUILESS_MAIN(TstTurnQueue)
#include "tst_turn_queue.moc"
