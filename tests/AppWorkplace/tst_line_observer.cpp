#include <QCoreApplication>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>
#include <QUuid>

#include "manual_clock.h"
#include "scripted_plugin.h"
#include "services/line_observer.h"

#include <lib_plugins_management/host/d_host.h>

/// An observer on a driver that says what the test says.
class TestLineObserver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void takesALineWhateverItsPieces_data();
    void takesALineWhateverItsPieces();
    void takesEachLineOfAChunk();
    void endsALineAtCarriageReturnAndLineFeedOnly_data();
    void endsALineAtCarriageReturnAndLineFeedOnly();
    void leavesOutWhatIsNoReport_data();
    void leavesOutWhatIsNoReport();
    void remembersTheLastRefusal();
    void forgetsARefusal();
    void waitsForTheEndOfTheLine();
    void dropsALineWithoutEnd();
    void forgetsALineThatWasCutOff();
    void survivesBeingStoppedByWhatItTells();
    void hearsNothingAfterTheStop();

private:
    void say(const QByteArray& bytes);
    static void turn();

    QStringList m_talk;
    ManualClock m_clock;
    std::unique_ptr<DHost> m_host;
    ScriptedPlugin* m_driver = nullptr;
    std::unique_ptr<LineObserver> m_observer;
    QStringList m_heard;
};

void TestLineObserver::init()
{
    m_heard.clear();
    m_host = std::make_unique<DHost>(m_clock);
    const ScriptedPlugin root(QStringLiteral("driver"), {{QStringLiteral("listenEventsData"), {}}}, &m_talk);
    m_driver = static_cast<ScriptedPlugin*>(m_host->createInstance(root, QUuid::createUuid()));
    m_observer = std::make_unique<LineObserver>();
    connect(m_observer.get(), &LineObserver::sigWrenchHeard, this,
            [this](const QString& address, const QString& serialId, const QString& signalStrength) {
                m_heard.append(QStringList{address, serialId, signalStrength}.join(QLatin1Char(' ')));
            });
    m_observer->start(*m_host, *m_driver);
    turn();
}

void TestLineObserver::cleanup()
{
    m_observer.reset();
    turn();
    m_host.reset();
}

void TestLineObserver::say(const QByteArray& bytes)
{
    m_driver->publish(QStringLiteral("listenEventsData"), {{QStringLiteral("frame"), bytes}});
    turn();
}

void TestLineObserver::turn()
{
    constexpr int c_turns = 5;
    for (int i = 0; i < c_turns; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void TestLineObserver::takesALineWhateverItsPieces_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("bytes") << 1;
    QTest::newRow("sevens") << 7;
    QTest::newRow("whole") << 1000;
}

void TestLineObserver::takesALineWhateverItsPieces()
{
    QFETCH(int, size);
    const QByteArray text = "RESP AA:01 TW60 2210 -58\r\nERR:2\r\nRESP AA:02 TW60 2211 -70\r\n";
    for (int i = 0; i < text.size(); i += size) {
        say(text.mid(i, size));
    }
    QCOMPARE(m_heard, (QStringList{QStringLiteral("AA:01 2210 -58"), QStringLiteral("AA:02 2211 -70")}));
    QCOMPARE(m_observer->lastRefusal(), QStringLiteral("ERR:2"));
}

void TestLineObserver::takesEachLineOfAChunk()
{
    say("ERR:1\r\nERR:2\r\nERR");
    QCOMPARE(m_observer->lastRefusal(), QStringLiteral("ERR:2"));
}

void TestLineObserver::endsALineAtCarriageReturnAndLineFeedOnly_data()
{
    takesALineWhateverItsPieces_data();
}

// As the commands of the device do, so that the same lines are heard here and there.
void TestLineObserver::endsALineAtCarriageReturnAndLineFeedOnly()
{
    QFETCH(int, size);
    const QSignalSpy heard(m_observer.get(), &LineObserver::sigLineHeard);
    const QByteArray text = "RE:F:1\n2\r\n\n\r\r\nRE:F:3\r4\r\n";
    for (int i = 0; i < text.size(); i += size) {
        say(text.mid(i, size));
    }
    QByteArrayList lines;
    for (const QList<QVariant>& arguments : heard) {
        lines.append(arguments.first().toByteArray());
    }
    QCOMPARE(lines, (QByteArrayList{"RE:F:1\n2", "\n\r", "RE:F:3\r4"}));
}

void TestLineObserver::leavesOutWhatIsNoReport_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("too short") << QByteArray("RESP AA:01 TW60 2210");
    QTest::newRow("another word") << QByteArray("OK:1");
    QTest::newRow("empty") << QByteArray("");
}

void TestLineObserver::leavesOutWhatIsNoReport()
{
    QFETCH(QByteArray, line);
    say(line + "\r\n");
    QCOMPARE(m_heard, QStringList());
}

void TestLineObserver::remembersTheLastRefusal()
{
    say("ERR:1\r\nOK:1\r\nERR:3 busy\r\nOK\r\n");
    QCOMPARE(m_observer->lastRefusal(), QStringLiteral("ERR:3 busy"));
}

void TestLineObserver::forgetsARefusal()
{
    say("ERR:1\r\n");
    m_observer->forgetRefusal();
    QCOMPARE(m_observer->lastRefusal(), QString());
}

void TestLineObserver::waitsForTheEndOfTheLine()
{
    say("ERR:1");
    QCOMPARE(m_observer->lastRefusal(), QString());
    say("\r");
    QCOMPARE(m_observer->lastRefusal(), QString());
    say("\n");
    QCOMPARE(m_observer->lastRefusal(), QStringLiteral("ERR:1"));
}

void TestLineObserver::forgetsALineThatWasCutOff()
{
    say("RE:F:1");
    m_observer->forgetPartialLine();
    say("ERR:1\r\n");
    QCOMPARE(m_observer->lastRefusal(), QStringLiteral("ERR:1"));
}

void TestLineObserver::dropsALineWithoutEnd()
{
    say("ERR:" + QByteArray(4000, '1'));
    say(QByteArray(100, '1'));
    say("ERR:3\r\n");
    QCOMPARE(m_observer->lastRefusal(), QString());
    say("ERR:2\r\n");
    QCOMPARE(m_observer->lastRefusal(), QStringLiteral("ERR:2"));
}

void TestLineObserver::survivesBeingStoppedByWhatItTells()
{
    connect(m_observer.get(), &LineObserver::sigWrenchHeard, this, [this] { m_observer->stop(); });
    say("RESP AA:01 TW60 2210 -58\r\n");
    QCOMPARE(m_heard.size(), 1);
    QVERIFY(!m_driver->isRunning(QStringLiteral("listenEventsData")));
}

void TestLineObserver::hearsNothingAfterTheStop()
{
    m_driver->publish(QStringLiteral("listenEventsData"), {{QStringLiteral("frame"), QByteArray("ERR:1\r\n")}});
    m_observer->stop();
    turn();
    QCOMPARE(m_observer->lastRefusal(), QString());
}

QTEST_GUILESS_MAIN(TestLineObserver)
#include "tst_line_observer.moc"
