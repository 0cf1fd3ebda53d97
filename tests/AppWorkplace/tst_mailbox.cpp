#include <QTest>
#include <QThread>

#include <array>
#include <memory>
#include <thread>
#include <vector>

#include "gui/mailbox.h"

/// What one thread hands to another; the thread sanitizer looks at it as well (scripts/check-threads).
class TestMailbox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void doesNothingInsidePost();
    void worksInTheThreadThatItLivesIn();
    void keepsTheOrderOfEachThread();
    void whatWorkPostsWaitsForTheNextTurn();
    void workMayDestroyIt();
    void forgetsWhatIsLeftWhenItIsDestroyed();
    void letsGoOfWhatItHasDone();
};

void TestMailbox::doesNothingInsidePost()
{
    Mailbox mailbox;
    bool isDone = false;
    mailbox.post([&] { isDone = true; });
    QVERIFY(!isDone);
    QCoreApplication::sendPostedEvents();
    QVERIFY(isDone);
}

void TestMailbox::worksInTheThreadThatItLivesIn()
{
    Mailbox mailbox;
    QThread* worker = nullptr;
    std::thread poster([&] { mailbox.post([&] { worker = QThread::currentThread(); }); });
    poster.join();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(worker, QThread::currentThread());
}

void TestMailbox::keepsTheOrderOfEachThread()
{
    constexpr int c_posts = 1000;
    Mailbox mailbox;
    std::array<std::vector<int>, 3> done;
    std::vector<std::thread> posters;
    posters.reserve(done.size());
    for (std::vector<int>& own : done) {
        posters.emplace_back([&mailbox, &own] {
            for (int i = 0; i < c_posts; ++i) {
                mailbox.post([&own, i] { own.push_back(i); });
            }
        });
    }
    while (done[0].size() + done[1].size() + done[2].size() < done.size() * c_posts) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    for (std::thread& poster : posters) {
        poster.join();
    }
    for (const std::vector<int>& own : done) {
        for (int i = 0; i < c_posts; ++i) {
            QCOMPARE(own.at(std::size_t(i)), i);
        }
    }
}

void TestMailbox::whatWorkPostsWaitsForTheNextTurn()
{
    Mailbox mailbox;
    QString order;
    mailbox.post([&] {
        order += QLatin1Char('a');
        mailbox.post([&] { order += QLatin1Char('c'); });
    });
    mailbox.post([&] { order += QLatin1Char('b'); });
    QCoreApplication::sendPostedEvents();
    QCOMPARE(order, QStringLiteral("ab"));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(order, QStringLiteral("abc"));
}

void TestMailbox::workMayDestroyIt()
{
    auto mailbox = std::make_unique<Mailbox>();
    bool isLaterDone = false;
    mailbox->post([&] { mailbox.reset(); });
    mailbox->post([&] { isLaterDone = true; });
    QCoreApplication::sendPostedEvents();
    QVERIFY(mailbox == nullptr);
    QVERIFY(!isLaterDone);
}

void TestMailbox::forgetsWhatIsLeftWhenItIsDestroyed()
{
    auto kept = std::make_shared<bool>(false);
    {
        Mailbox mailbox;
        mailbox.post([kept] { *kept = true; });
    }
    QCoreApplication::sendPostedEvents();
    QVERIFY(!*kept);
    QCOMPARE(kept.use_count(), 1L);
}

void TestMailbox::letsGoOfWhatItHasDone()
{
    Mailbox mailbox;
    auto kept = std::make_shared<int>(0);
    mailbox.post([kept] { ++*kept; });
    QCoreApplication::sendPostedEvents();
    QCOMPARE(*kept, 1);
    QCOMPARE(kept.use_count(), 1L);
}

QTEST_GUILESS_MAIN(TestMailbox)

#include "tst_mailbox.moc"
