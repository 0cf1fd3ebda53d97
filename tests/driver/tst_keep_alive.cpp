#include <QTest>
#include <QVariant>
#include <QVector>

#include "driver_fixture.h"
#include "serial_line.h"

namespace {

const QByteArray c_probe = QByteArrayLiteral("DI:C\r\n");

} // namespace

class TestKeepAlive : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void answersSuccess();
    void refusesABadPair_data();
    void refusesABadPair();
    void asksAfterFiveSecondsOfSilenceAndNotBefore();
    void asksAfterTheConfiguredSilence();
    void addsTheLineEndThatIsMissing();
    void asksAgainAfterAnotherSilence();
    void waitsAnewAfterWhatArrives();
    void waitsAnewAfterAFrame();
    void waitsForTheAnswerToAFrameWhenTheSilenceIsShort();
    void asksOneQuestionAtATime();
    void doesNotAskWhileAFrameWaits();
    void doesNotAskOnAClosedLine();
    void doesNotOpenTheLine();
    void takesItsAnswerOutOfTheStream_data();
    void takesItsAnswerOutOfTheStream();
    void takesOutOneAnswerForOneQuestion();
    void leavesTheLineEndToALineThatWasCutOff();
    void endsALineThatWasCutOffWhenTheAnswerHasNoEnd();
    void endsALineThatWasCutOffWhenTheResponseItselfEndsItsLine();
    void anAnswerWithoutEndDoesNotCostTheNextQuestion();
    void leavesLinesAloneWhileItHasNotAsked();
    void leavesTheAnswerToAFrameThatOvertakesItsOwn();
    void doesNotMissAnAnswerThatAFrameHasOvertaken();
    void takesOutAnAnswerThatBeganBeforeTheFrame();
    void passesWhatFollowsAnAnswerWithoutLineEnd();
    void givesBackWhatOnlyBeganLikeTheAnswer();
    void givesBackWhatItHeldWhenTheLineCloses();
    void losesTheDeviceAfterThreeMissingAnswersInARow();
    void doesNotLoseTheDeviceWhenAnAnswerComesBetween();
    void findsTheDeviceWhenItAnswers();
    void forgetsWhatIsMissingWhenTheLineOpensAgain();
    void isNeverConnectedBetweenNoAnswerAndLost();
    void isSwitchedOffByAnEmptyFrame();
    void findsTheDeviceWhenItIsSwitchedOff();

private:
    /// Turns the clock until the device is asked.
    void waitForTheQuestion() const;
    /// The same so many times, each time until the answer is missing.
    void askInVain(int times) const;
    void set(const QString& response = QStringLiteral("OK:")) const;

    std::unique_ptr<DriverFixture> m_driver;
    Run m_listener;
    QVector<SerialLine::State> m_states; // as the line has gone through them
};

void TestKeepAlive::init()
{
    m_driver = std::make_unique<DriverFixture>();
    m_listener = m_driver->listen();
}

void TestKeepAlive::set(const QString& response) const
{
    QVERIFY(m_driver->keepAlive(QStringLiteral("DI:C\r\n"), response).succeeded());
}

void TestKeepAlive::waitForTheQuestion() const
{
    const int before = m_driver->port->written.size();
    for (int ms = 0; ms <= 5000 && m_driver->port->written.size() == before; ++ms) {
        m_driver->clock->advance(1);
    }
    QCOMPARE(m_driver->port->lastWritten(), c_probe);
    m_driver->port->leave();
}

void TestKeepAlive::askInVain(int times) const
{
    for (int i = 0; i < times; ++i) {
        waitForTheQuestion();
        m_driver->clock->advance(2000);
    }
}

void TestKeepAlive::answersSuccess()
{
    const Run run = m_driver->keepAlive(QStringLiteral("DI:C"), QStringLiteral("OK"));
    QVERIFY(run.succeeded());
    QCOMPARE(run.order->finished, 1);
}

void TestKeepAlive::refusesABadPair_data()
{
    QTest::addColumn<QVariant>("frame");
    QTest::addColumn<QVariant>("response");
    QTest::addColumn<QString>("named");
    QTest::newRow("no frame") << QVariant() << QVariant(QStringLiteral("OK")) << QStringLiteral("\"frame\"");
    QTest::newRow("a number") << QVariant(1) << QVariant(QStringLiteral("OK")) << QStringLiteral("\"frame\"");
    QTest::newRow("no response") << QVariant(QStringLiteral("DI:C")) << QVariant()
                                 << QStringLiteral("\"responseFrame\"");
    QTest::newRow("empty response") << QVariant(QStringLiteral("DI:C")) << QVariant(QString())
                                    << QStringLiteral("\"responseFrame\"");
}

void TestKeepAlive::refusesABadPair()
{
    QFETCH(const QVariant, frame);
    QFETCH(const QVariant, response);
    QFETCH(const QString, named);
    const Run run = m_driver->run("setKeepAliveFonction",
                                  {{QStringLiteral("frame"), frame}, {QStringLiteral("responseFrame"), response}});
    QCOMPARE(run.result("cmd_success"), QVariant(false));
    QVERIFY2(run.error().contains(named), qPrintable(run.error()));
    m_driver->clock->advance(5000);
    QVERIFY(m_driver->port->written.isEmpty());
}

void TestKeepAlive::asksAfterFiveSecondsOfSilenceAndNotBefore()
{
    set();
    m_driver->clock->advance(4999);
    QVERIFY(m_driver->port->written.isEmpty());
    m_driver->clock->advance(1);
    QCOMPARE(m_driver->port->written, QByteArrayList{c_probe});
}

void TestKeepAlive::asksAfterTheConfiguredSilence()
{
    const DriverFixture driver;
    driver.configure("keepAliveSilenceMs", 3000);
    const Run listener = driver.listen();
    const Run run = driver.keepAlive(QStringLiteral("DI:C"), QStringLiteral("OK"));
    driver.clock->advance(2999);
    QVERIFY(driver.port->written.isEmpty());
    driver.clock->advance(1);
    QCOMPARE(driver.port->written.size(), 1);
}

void TestKeepAlive::addsTheLineEndThatIsMissing()
{
    QVERIFY(m_driver->keepAlive(QStringLiteral("DI:C"), QStringLiteral("OK")).succeeded());
    m_driver->clock->advance(5000);
    QCOMPARE(m_driver->port->written, QByteArrayList{c_probe});
}

void TestKeepAlive::asksAgainAfterAnotherSilence()
{
    set();
    m_driver->clock->advance(5000);
    m_driver->port->leave();
    m_driver->port->arrive("OK:1\r\n");
    m_driver->clock->advance(4999);
    QCOMPARE(m_driver->port->written.size(), 1);
    m_driver->clock->advance(1);
    QCOMPARE(m_driver->port->written.size(), 2);
}

void TestKeepAlive::waitsAnewAfterWhatArrives()
{
    set();
    m_driver->clock->advance(3000);
    m_driver->port->arrive("RE:F:1\r\n");
    m_driver->clock->advance(4999);
    QVERIFY(m_driver->port->written.isEmpty());
    m_driver->clock->advance(1);
    QCOMPARE(m_driver->port->written, QByteArrayList{c_probe});
}

void TestKeepAlive::waitsAnewAfterAFrame()
{
    set();
    m_driver->clock->advance(3000);
    const Run write = m_driver->write("TR:C\r\n");
    m_driver->port->leave();
    m_driver->clock->advance(4999);
    QCOMPARE(m_driver->port->lastWritten(), QByteArray("TR:C\r\n"));
    m_driver->clock->advance(1);
    QCOMPARE(m_driver->port->lastWritten(), c_probe);
}

void TestKeepAlive::waitsForTheAnswerToAFrameWhenTheSilenceIsShort()
{
    const DriverFixture driver;
    driver.configure("keepAliveSilenceMs", 100);
    const Run listener = driver.listen();
    const Run run = driver.keepAlive(QStringLiteral("DI:C"), QStringLiteral("OK"));
    const Run write = driver.write("TR:C\r\n");
    driver.port->leave();
    driver.clock->advance(1999);
    QCOMPARE(driver.port->lastWritten(), QByteArray("TR:C\r\n"));
    driver.port->arrive("OK:UNT0\r\n");
    driver.clock->advance(99);
    QCOMPARE(driver.port->lastWritten(), QByteArray("TR:C\r\n"));
    driver.clock->advance(1);
    QCOMPARE(driver.port->lastWritten(), c_probe);
}

void TestKeepAlive::asksOneQuestionAtATime()
{
    const DriverFixture driver;
    driver.configure("keepAliveSilenceMs", 100);
    const Run listener = driver.listen();
    const Run run = driver.keepAlive(QStringLiteral("DI:C"), QStringLiteral("OK"));
    driver.clock->advance(100);
    driver.port->leave();
    driver.clock->advance(1999);
    QCOMPARE(driver.port->written.size(), 1);
    driver.clock->advance(101);
    QCOMPARE(driver.port->written.size(), 2);
}

void TestKeepAlive::doesNotAskWhileAFrameWaits()
{
    set();
    const Run write = m_driver->write("TR:C\r\n", 6000);
    m_driver->clock->advance(5500);
    m_driver->port->leave();
    QCOMPARE(m_driver->port->written, QByteArrayList{"TR:C\r\n"});
}

void TestKeepAlive::doesNotAskOnAClosedLine()
{
    set();
    const Run closing = m_driver->run("closeConnection");
    m_driver->clock->advance(20000);
    QVERIFY(m_driver->port->written.isEmpty());
}

void TestKeepAlive::doesNotOpenTheLine()
{
    const DriverFixture driver;
    const Run run = driver.keepAlive(QStringLiteral("DI:C"), QStringLiteral("OK"));
    driver.clock->advance(20000);
    QCOMPARE(driver.port->openings, 0);
}

void TestKeepAlive::takesItsAnswerOutOfTheStream_data()
{
    QTest::addColumn<QByteArrayList>("chunks");
    QTest::addColumn<QByteArray>("left");
    QTest::newRow("alone") << QByteArrayList{"OK:1\r\n"} << QByteArray();
    QTest::newRow("in two pieces") << QByteArrayList{"O", "K:1\r\n"} << QByteArray();
    QTest::newRow("in single bytes") << QByteArrayList{"O", "K", ":", "1", "\r", "\n"} << QByteArray();
    QTest::newRow("glued before a line") << QByteArrayList{"OK:1\r\nRE:F:1\r\n"} << QByteArray("RE:F:1\r\n");
    QTest::newRow("glued behind a line") << QByteArrayList{"RE:F:1\r\nOK:1\r\n"} << QByteArray("RE:F:1\r\n");
    QTest::newRow("between two lines") << QByteArrayList{"RE:F:1\r\nO", "K:1\r\nRE:F:2\r\n"}
                                       << QByteArray("RE:F:1\r\nRE:F:2\r\n");
    QTest::newRow("after an echo") << QByteArrayList{"DI:C\r\nOK:1\r\n"} << QByteArray("DI:C\r\n");
    QTest::newRow("not inside a line") << QByteArrayList{"RE OK:1\r\n"} << QByteArray("RE OK:1\r\n");
    QTest::newRow("not inside a line in pieces") << QByteArrayList{"RE ", "OK:1\r\n"} << QByteArray("RE OK:1\r\n");
    QTest::newRow("not in lower case") << QByteArrayList{"ok:1\r\n"} << QByteArray("ok:1\r\n");
    QTest::newRow("after a line that begins alike") << QByteArrayList{"OK\r\nOK:1\r\n"} << QByteArray("OK\r\n");
}

void TestKeepAlive::takesItsAnswerOutOfTheStream()
{
    QFETCH(const QByteArrayList, chunks);
    QFETCH(const QByteArray, left);
    set();
    m_driver->clock->advance(5000);
    m_driver->port->leave();
    for (const QByteArray& chunk : chunks) {
        m_driver->port->arrive(chunk);
    }
    QCOMPARE(heard(m_listener), left);
}

void TestKeepAlive::takesOutOneAnswerForOneQuestion()
{
    set();
    m_driver->clock->advance(5000);
    m_driver->port->leave();
    m_driver->port->arrive("OK:1\r\nOK:2\r\n");
    m_driver->port->arrive("OK:3\r\n");
    QCOMPARE(heard(m_listener), QByteArray("OK:2\r\nOK:3\r\n"));
}

// Without it the next line would become the rest of the one that was cut off, and both would be lost.
void TestKeepAlive::leavesTheLineEndToALineThatWasCutOff()
{
    set();
    waitForTheQuestion();
    m_driver->port->arrive("RE:F");
    m_driver->clock->advance(2000);
    waitForTheQuestion();
    m_driver->port->arrive("OK:1\r\nRE:F:2\r\n");
    QCOMPARE(heard(m_listener), QByteArray("RE:F\r\nRE:F:2\r\n"));
}

void TestKeepAlive::endsALineThatWasCutOffWhenTheAnswerHasNoEnd()
{
    set();
    m_driver->port->arrive("RE:F");
    waitForTheQuestion();
    m_driver->port->arrive("OK:1");
    m_driver->clock->advance(2000);
    m_driver->port->arrive("RE:F:2\r\n");
    QCOMPARE(heard(m_listener), QByteArray("RE:F\r\nRE:F:2\r\n"));
}

void TestKeepAlive::endsALineThatWasCutOffWhenTheResponseItselfEndsItsLine()
{
    set(QStringLiteral("OK:1\r\n"));
    m_driver->port->arrive("RE:F");
    waitForTheQuestion();
    m_driver->port->arrive("OK:1\r\nRE:F:2\r\n");
    QCOMPARE(heard(m_listener), QByteArray("RE:F\r\nRE:F:2\r\n"));
}

// The limit of the first answer, which is still to end its line, is not that of the second.
void TestKeepAlive::anAnswerWithoutEndDoesNotCostTheNextQuestion()
{
    m_driver->configure("keepAliveSilenceMs", 500);
    m_driver->run("closeConnection");
    m_listener.stop();
    m_listener = m_driver->listen();
    set();
    waitForTheQuestion();
    m_driver->port->arrive("OK:1");
    m_driver->clock->advance(500);
    QCOMPARE(m_driver->port->written, QByteArrayList({c_probe, c_probe}));
    m_driver->clock->advance(1600);
    m_driver->port->arrive("OK:1\r\nRE:F:1\r\n");
    QCOMPARE(heard(m_listener), QByteArray("RE:F:1\r\n"));
}

void TestKeepAlive::passesWhatFollowsAnAnswerWithoutLineEnd()
{
    set();
    waitForTheQuestion();
    m_driver->port->arrive("OK:1");
    m_driver->clock->advance(2000);
    m_driver->port->arrive("RE:F:1\r\n");
    QCOMPARE(heard(m_listener), QByteArray("RE:F:1\r\n"));
}

void TestKeepAlive::isNeverConnectedBetweenNoAnswerAndLost()
{
    set();
    askInVain(3);
    m_states.clear();
    const SerialLine* line = m_driver->plugin->line();
    connect(line, &SerialLine::changed, this, [this, line] { m_states.append(line->state()); });
    m_driver->port->openProblem = QStringLiteral("It is missing.");
    m_driver->port->fail(QStringLiteral("It went away."));
    QCOMPARE(m_states, QVector<SerialLine::State>{SerialLine::State::Lost});
}

void TestKeepAlive::leavesLinesAloneWhileItHasNotAsked()
{
    set();
    m_driver->port->arrive("OK:1\r\n");
    QCOMPARE(heard(m_listener), QByteArray("OK:1\r\n"));
}

// The wrench has not heard the question: the only answer is the frame's.
void TestKeepAlive::leavesTheAnswerToAFrameThatOvertakesItsOwn()
{
    set();
    waitForTheQuestion();
    const Run write = m_driver->write("DT:1\r\n");
    m_driver->port->leave();
    m_driver->port->arrive("OK:1\r\n");
    QCOMPARE(heard(m_listener), QByteArray("OK:1\r\n"));
}

void TestKeepAlive::doesNotMissAnAnswerThatAFrameHasOvertaken()
{
    set();
    askInVain(2);
    waitForTheQuestion();
    const Run write = m_driver->write("DT:1\r\n");
    m_driver->port->leave();
    m_driver->clock->advance(2000);
    QCOMPARE(m_driver->property("connected"), QVariant(true));
}

void TestKeepAlive::takesOutAnAnswerThatBeganBeforeTheFrame()
{
    set();
    waitForTheQuestion();
    m_driver->port->arrive("O");
    const Run write = m_driver->write("DT:1\r\n");
    m_driver->port->leave();
    m_driver->port->arrive("K:0\r\nOK:1\r\n");
    QCOMPARE(heard(m_listener), QByteArray("OK:1\r\n"));
}

void TestKeepAlive::givesBackWhatOnlyBeganLikeTheAnswer()
{
    set();
    m_driver->clock->advance(5000);
    m_driver->port->leave();
    m_driver->port->arrive("OK");
    QCOMPARE(heard(m_listener), QByteArray());
    m_driver->clock->advance(2000);
    QCOMPARE(heard(m_listener), QByteArray("OK"));
}

void TestKeepAlive::givesBackWhatItHeldWhenTheLineCloses()
{
    set();
    m_driver->clock->advance(5000);
    m_driver->port->leave();
    m_driver->port->arrive("OK");
    const Run closing = m_driver->run("closeConnection");
    QCOMPARE(heard(m_listener), QByteArray("OK"));
}

void TestKeepAlive::losesTheDeviceAfterThreeMissingAnswersInARow()
{
    set();
    askInVain(2);
    QCOMPARE(m_driver->property("connected"), QVariant(true));
    askInVain(1);
    QCOMPARE(m_driver->property("connected"), QVariant(false));
    QCOMPARE(m_driver->property("lineState"), QVariant(QStringLiteral("no answer")));
    const QString error = m_driver->property("lineError").toString();
    QVERIFY2(error.contains(QStringLiteral("/dev/fake has left the keep-alive frame unanswered 3 times")),
             qPrintable(error));
}

void TestKeepAlive::doesNotLoseTheDeviceWhenAnAnswerComesBetween()
{
    set();
    askInVain(2);
    waitForTheQuestion();
    m_driver->port->arrive("OK:1\r\n");
    askInVain(2);
    QCOMPARE(m_driver->property("connected"), QVariant(true));
}

void TestKeepAlive::findsTheDeviceWhenItAnswers()
{
    set();
    askInVain(3);
    waitForTheQuestion();
    m_driver->port->arrive("OK:1\r\n");
    QCOMPARE(m_driver->property("connected"), QVariant(true));
    QCOMPARE(m_driver->property("lineError"), QVariant(QString()));
}

void TestKeepAlive::forgetsWhatIsMissingWhenTheLineOpensAgain()
{
    set();
    askInVain(2);
    m_driver->port->fail(QStringLiteral("It went away."));
    m_driver->clock->advance(250);
    askInVain(2);
    QCOMPARE(m_driver->property("connected"), QVariant(true));
}

void TestKeepAlive::isSwitchedOffByAnEmptyFrame()
{
    set();
    QVERIFY(m_driver->keepAlive(QString(), QString()).succeeded());
    m_driver->clock->advance(20000);
    QVERIFY(m_driver->port->written.isEmpty());
}

void TestKeepAlive::findsTheDeviceWhenItIsSwitchedOff()
{
    set();
    askInVain(3);
    QVERIFY(m_driver->keepAlive(QString(), QString()).succeeded());
    QCOMPARE(m_driver->property("connected"), QVariant(true));
}

QTEST_GUILESS_MAIN(TestKeepAlive)
#include "tst_keep_alive.moc"
