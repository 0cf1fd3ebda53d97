#include "talk.h"

#include <QSet>
#include <QTest>
#include <QVector>

namespace {
constexpr const char* c_linked = R"(
    > ATD 020000000001
    < ATD 020000000001
    < DATA
)";

TalkSettings withMode(Dongle::Mode mode)
{
    TalkSettings settings;
    settings.dongle.mode = mode;
    return settings;
}
} // namespace

class TestDongle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scanReportsEachWrenchInRangeAtOnceAndEachPeriod();
    void scanLeavesOutWrenchesOutOfRange();
    void scanReportsAWrenchThatComesIntoRange();
    void signalStrengthWandersALittle();
    void scanWhileLinkedIsRefusedAndTheLinkStays();
    void scanWhileDiallingIsRefused();
    void hangUpEndsTheScan();
    void hangUpDropsTheLink();
    void hangUpEndsDialling();
    void diallingOpensTheLinkAfterTheLinkDelay();
    void diallingEndsTheScan();
    void diallingAnUnknownWrenchIsRefusedAfterTheLinkDelay();
    void diallingAWrenchOutOfRangeIsRefused();
    void diallingAnotherWrenchReplacesTheLink();
    void frameWithoutAnyFormerLinkIsRefused();
    void redialOpensTheLastLinkWithoutAWord();
    void redialKeepsFramesInOrder();
    void redialOfAnUnreachableWrenchIsRefused();
    void redialEndsTheScan();
    void dropRefusesFramesWithoutALink();
    void transparentPassesHangUpToTheWrenchAndKeepsTheLink();
    void transparentHangsUpWithoutALink();
    void transparentRedials();
    void answersAreDelayedOneAfterTheOther();
    void resultsWaitForTheLink();
    void resultsOfAWrenchThatIsNotLinkedStayThere();
    void leavingRangeDropsTheLink();
    void lostLinkIsNoticedByTheNextFrameOnly();
    void powerOffKeepsTheWrenchesAndTheLastLink();
    void powerOffDropsWhatWasHalfReceivedAndWhatWaited();
    void linesMayArriveInPieces_data();
    void linesMayArriveInPieces();
    void endlessLineIsDroppedWithANote();
    void tooManyWaitingFramesAreDroppedWithANote();
    void sameSeedSameBytes();
    void otherSeedOtherBytes();
    void scanningDoesNotChangeTheResults();
    void longPauseIsMadeUpForInOneStep();
};

void TestDongle::scanReportsEachWrenchInRangeAtOnceAndEachPeriod()
{
    Talk talk;
    QCOMPARE(talk.play(R"(
        > ATS
        < RESP 02:00:00:00:00:01 TW60 2210 -*
        < RESP 02:00:00:00:00:02 TW60 2211 -*
        + 999
        + 1
        < RESP 02:00:00:00:00:01 TW60 2210 -*
        < RESP 02:00:00:00:00:02 TW60 2211 -*
        + 1000
        < RESP 02:00:00:00:00:01 TW60 2210 -*
        < RESP 02:00:00:00:00:02 TW60 2211 -*
    )"),
             QString());
}

void TestDongle::scanLeavesOutWrenchesOutOfRange()
{
    Talk talk;
    talk.dongle.setInRange(0, false, 0);
    QCOMPARE(talk.play(R"(
        > ATS
        < RESP 02:00:00:00:00:02 TW60 2211 -*
    )"),
             QString());
}

void TestDongle::scanReportsAWrenchThatComesIntoRange()
{
    Talk talk;
    talk.dongle.setInRange(0, false, 0);
    talk.dongle.setInRange(1, false, 0);
    QCOMPARE(talk.play("> ATS\n+ 500"), QString());
    talk.dongle.setInRange(1, true, talk.nowUs);
    QCOMPARE(talk.play(R"(
        + 500
        < RESP 02:00:00:00:00:02 TW60 2211 -*
    )"),
             QString());
}

void TestDongle::signalStrengthWandersALittle()
{
    Talk talk;
    talk.send("ATS\r\n");
    talk.pass(100 * 1000);
    QVector<int> first;
    QVector<int> second;
    const QList<QByteArray> lines = talk.takeOutput().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("RESP ")) {
            (line.contains(" 2210 ") ? first : second).append(line.trimmed().split(' ').constLast().toInt());
        }
    }
    QVERIFY(QSet<int>(first.cbegin(), first.cend()).size() > 2);
    QVERIFY(*std::min_element(first.cbegin(), first.cend()) >= -63);
    QVERIFY(*std::max_element(first.cbegin(), first.cend()) <= -57);
    QVERIFY(first != second);
}

void TestDongle::scanWhileLinkedIsRefusedAndTheLinkStays()
{
    Talk talk;
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > ATS
        < ERR:2
        + 1000
    )"),
             QString());
    QVERIFY(talk.dongle.linkedWrench() == 0);
}

void TestDongle::scanWhileDiallingIsRefused()
{
    TalkSettings settings;
    settings.dongle.linkDelayUs = 200000;
    Talk talk(settings);
    QCOMPARE(talk.play(R"(
        > ATD 020000000001
        < ATD 020000000001
        > ATS
        < ERR:2
        + 200
        < DATA
    )"),
             QString());
}

void TestDongle::hangUpEndsTheScan()
{
    Talk talk;
    QCOMPARE(talk.play(R"(
        > ATS
        < RESP *
        < RESP *
        > ATH
        < ATH
        + 3000
    )"),
             QString());
}

void TestDongle::hangUpDropsTheLink()
{
    Talk talk(withMode(Dongle::Mode::Drop));
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > ATH
        < ATH
        > DI:C
        < ERR:3
    )"),
             QString());
}

void TestDongle::hangUpEndsDialling()
{
    TalkSettings settings;
    settings.dongle.linkDelayUs = 200000;
    Talk talk(settings);
    QCOMPARE(talk.play(R"(
        > ATD 020000000001
        < ATD 020000000001
        > ATH
        < ATH
        + 1000
    )"),
             QString());
    QVERIFY(!talk.dongle.linkedWrench());
}

void TestDongle::diallingOpensTheLinkAfterTheLinkDelay()
{
    TalkSettings settings;
    settings.dongle.linkDelayUs = 200000;
    Talk talk(settings);
    QCOMPARE(talk.play(R"(
        > ATD 020000000002
        < ATD 020000000002
        + 199
        + 1
        < DATA
        > DI:C
        < OK:0
    )"),
             QString());
    QVERIFY(talk.dongle.linkedWrench() == 1);
}

void TestDongle::diallingEndsTheScan()
{
    Talk talk;
    QCOMPARE(talk.play(R"(
        > ATS
        < RESP *
        < RESP *
        > ATD 020000000001
        < ATD 020000000001
        < DATA
        + 3000
    )"),
             QString());
}

void TestDongle::diallingAnUnknownWrenchIsRefusedAfterTheLinkDelay()
{
    TalkSettings settings;
    settings.dongle.linkDelayUs = 200000;
    Talk talk(settings);
    QCOMPARE(talk.play(R"(
        > ATD 0200000000FF
        < ATD 0200000000FF
        + 199
        + 1
        < ERR:1
        > DI:C
        < ERR:3
    )"),
             QString());
}

void TestDongle::diallingAWrenchOutOfRangeIsRefused()
{
    Talk talk;
    talk.dongle.setInRange(0, false, 0);
    QCOMPARE(talk.play(R"(
        > ATD 020000000001
        < ATD 020000000001
        < ERR:1
    )"),
             QString());
}

void TestDongle::diallingAnotherWrenchReplacesTheLink()
{
    Talk talk;
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > DT:1
        < OK:1
        > ATD 020000000002
        < ATD 020000000002
        < DATA
        > DI:C
        < OK:0
    )"),
             QString());
}

void TestDongle::frameWithoutAnyFormerLinkIsRefused()
{
    Talk talk;
    QCOMPARE(talk.play(R"(
        > DI:C
        < ERR:3
    )"),
             QString());
}

void TestDongle::redialOpensTheLastLinkWithoutAWord()
{
    TalkSettings settings;
    settings.dongle.linkDelayUs = 200000;
    Talk talk(settings);
    QCOMPARE(talk.play(R"(
        > ATD 020000000002
        < ATD 020000000002
        + 200
        < DATA
        > ATH
        < ATH
        > DT:1
        + 199
        + 1
        < OK:1
        > DI:C
        < OK:1
    )"),
             QString());
    QVERIFY(talk.dongle.wrench(1).isLocked());
}

void TestDongle::redialKeepsFramesInOrder()
{
    TalkSettings settings;
    settings.dongle.linkDelayUs = 200000;
    Talk talk(settings);
    QCOMPARE(talk.play(R"(
        > ATD 020000000001
        < ATD 020000000001
        + 200
        < DATA
        > ATH
        < ATH
        > DT:1
        > SC:TL:2
        > DT:0
        + 200
        < OK:1
        < OK:2
        < OK:0
    )"),
             QString());
}

void TestDongle::redialOfAnUnreachableWrenchIsRefused()
{
    Talk talk;
    QCOMPARE(talk.play(c_linked), QString());
    talk.dongle.setInRange(0, false, 0);
    QCOMPARE(talk.play(R"(
        > DI:C
        < ERR:1
        > DI:C
        < ERR:1
    )"),
             QString());
    talk.dongle.setInRange(0, true, 0);
    QCOMPARE(talk.play(R"(
        > DI:C
        < OK:0
    )"),
             QString());
}

void TestDongle::redialEndsTheScan()
{
    Talk talk;
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > ATH
        < ATH
        > ATS
        < RESP *
        < RESP *
        > DI:C
        < OK:0
        + 3000
    )"),
             QString());
}

void TestDongle::dropRefusesFramesWithoutALink()
{
    Talk talk(withMode(Dongle::Mode::Drop));
    QCOMPARE(talk.play(c_linked), QString());
    QVERIFY(talk.dongle.loseLink(0));
    QCOMPARE(talk.play(R"(
        > DI:C
        < ERR:3
        > DI:C
        < ERR:3
    )"),
             QString());
}

void TestDongle::transparentPassesHangUpToTheWrenchAndKeepsTheLink()
{
    Talk talk(withMode(Dongle::Mode::Transparent));
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > ATH
        > DI:C
        < OK:0
    )"),
             QString());
    QVERIFY(talk.dongle.linkedWrench() == 0);
}

void TestDongle::transparentHangsUpWithoutALink()
{
    Talk talk(withMode(Dongle::Mode::Transparent));
    QCOMPARE(talk.play(R"(
        > ATS
        < RESP *
        < RESP *
        > ATH
        < ATH
        + 3000
    )"),
             QString());
}

void TestDongle::transparentRedials()
{
    Talk talk(withMode(Dongle::Mode::Transparent));
    QCOMPARE(talk.play(c_linked), QString());
    QVERIFY(talk.dongle.loseLink(0));
    QCOMPARE(talk.play(R"(
        > DI:C
        < OK:0
    )"),
             QString());
}

void TestDongle::answersAreDelayedOneAfterTheOther()
{
    TalkSettings settings;
    settings.dongle.answerDelayUs = 10000;
    Talk talk(settings);
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > DT:1
        > DI:C
        + 9
        + 1
        < OK:1
        + 9
        + 1
        < OK:1
    )"),
             QString());
}

void TestDongle::resultsWaitForTheLink()
{
    Talk talk;
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > RE:1
        < OK:1
        > ATH
        < ATH
    )"),
             QString());
    QCOMPARE(talk.dongle.demandTightening(0, 2, talk.nowUs), QString());
    QCOMPARE(talk.play(R"(
        + 200
        > DI:C
        < OK:0
        < RE:F:*
        < RE:F:*
    )"),
             QString());
}

void TestDongle::resultsOfAWrenchThatIsNotLinkedStayThere()
{
    Talk talk;
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > RE:1
        < OK:1
        > ATD 020000000002
        < ATD 020000000002
        < DATA
    )"),
             QString());
    QCOMPARE(talk.dongle.demandTightening(0, 1, talk.nowUs), QString());
    QCOMPARE(talk.play(R"(
        + 200
        > ATD 020000000001
        < ATD 020000000001
        < DATA
        < RE:F:*
    )"),
             QString());
}

void TestDongle::leavingRangeDropsTheLink()
{
    Talk talk;
    QCOMPARE(talk.play(c_linked), QString());
    talk.dongle.setInRange(1, false, 0);
    QVERIFY(talk.dongle.linkedWrench() == 0);
    talk.dongle.setInRange(0, false, 0);
    QVERIFY(!talk.dongle.linkedWrench());
}

void TestDongle::lostLinkIsNoticedByTheNextFrameOnly()
{
    TalkSettings settings;
    settings.dongle.linkDelayUs = 200000;
    Talk talk(settings);
    QCOMPARE(talk.play(R"(
        > ATD 020000000001
        < ATD 020000000001
        + 200
        < DATA
    )"),
             QString());
    QVERIFY(talk.dongle.loseLink(talk.nowUs));
    QVERIFY(!talk.dongle.loseLink(talk.nowUs));
    QCOMPARE(talk.play(R"(
        + 1000
        > DI:C
        + 199
        + 1
        < OK:0
    )"),
             QString());
}

void TestDongle::powerOffKeepsTheWrenchesAndTheLastLink()
{
    Talk talk;
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > DT:1
        < OK:1
    )"),
             QString());
    talk.dongle.powerOff(talk.nowUs);
    QVERIFY(!talk.dongle.linkedWrench());
    QCOMPARE(talk.play(R"(
        > DI:C
        < OK:1
    )"),
             QString());
}

void TestDongle::powerOffDropsWhatWasHalfReceivedAndWhatWaited()
{
    TalkSettings settings;
    settings.dongle.answerDelayUs = 10000;
    Talk talk(settings);
    QCOMPARE(talk.play(c_linked), QString());
    talk.send("ATH\r\nATS\r\nDI:C\r\nDI:C\r\nRE");
    talk.dongle.powerOff(talk.nowUs);
    QCOMPARE(talk.play(R"(
        + 2000
        > ATH
        < ATH
    )"),
             QString());
}

void TestDongle::linesMayArriveInPieces_data()
{
    QTest::addColumn<int>("pieceBytes");
    QTest::newRow("single bytes") << 1;
    QTest::newRow("sevens") << 7;
    QTest::newRow("all at once") << 1000;
}

void TestDongle::linesMayArriveInPieces()
{
    QFETCH(int, pieceBytes);
    Talk talk;
    const QByteArray talked = "ATD 020000000001\r\n\r\nDT:1\r\nTR:C\r\nATS\r\n";
    for (int from = 0; from < talked.size(); from += pieceBytes) {
        talk.send(talked.mid(from, pieceBytes));
    }
    QCOMPARE(talk.takeOutput(),
             QByteArray("ATD 020000000001\r\nDATA\r\nOK:1\r\nOK:UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1\r\nERR:2\r\n"));
}

void TestDongle::endlessLineIsDroppedWithANote()
{
    Talk talk;
    talk.send(QByteArray(100000, 'x'));
    talk.send("\r\nATH\r\n");
    QCOMPARE(talk.takeOutput(), QByteArray("ATH\r\n"));
    QVERIFY(!talk.notes.isEmpty());
    QVERIFY(talk.notes.constFirst().contains(QStringLiteral("100000 bytes")));
}

void TestDongle::tooManyWaitingFramesAreDroppedWithANote()
{
    TalkSettings settings;
    settings.dongle.answerDelayUs = 1;
    Talk talk(settings);
    QCOMPARE(talk.play(c_linked), QString());
    talk.send(QByteArray("DI:C\r\n").repeated(Dongle::c_maxWaitingFrames + 1)); // one of them is in hand
    QVERIFY(talk.notes.isEmpty());
    talk.send("DT:1\r\n");
    QCOMPARE(talk.notes.size(), 1);
    QVERIFY(talk.notes.constFirst().contains(QStringLiteral("DT:1")));
    talk.pass(10);
    QCOMPARE(talk.takeOutput().count("OK:0"), Dongle::c_maxWaitingFrames + 1);
}

namespace {
QByteArray bytesOfARun(quint32 seed, int scanMs)
{
    TalkSettings settings;
    settings.seed = seed;
    settings.wrench.ratePerSecond = 5.0;
    Talk talk(settings);
    talk.send("ATS\r\n");
    talk.pass(scanMs);
    talk.send("ATD 020000000001\r\nRE:1\r\n");
    talk.pass(10000);
    return talk.takeOutput();
}
} // namespace

void TestDongle::sameSeedSameBytes()
{
    QCOMPARE(bytesOfARun(3, 5000), bytesOfARun(3, 5000));
}

void TestDongle::otherSeedOtherBytes()
{
    QVERIFY(bytesOfARun(3, 5000) != bytesOfARun(4, 5000));
}

void TestDongle::scanningDoesNotChangeTheResults()
{
    const QByteArray brief = bytesOfARun(3, 1);
    const QByteArray longer = bytesOfARun(3, 30000);
    QVERIFY(brief.contains("RE:F:"));
    QCOMPARE(longer.mid(longer.indexOf("RE:F:")), brief.mid(brief.indexOf("RE:F:")));
}

void TestDongle::longPauseIsMadeUpForInOneStep()
{
    TalkSettings settings;
    settings.wrench.ratePerSecond = 2.0;
    const auto run = [&settings](int steps) {
        Talk talk(settings);
        talk.send("ATD 020000000001\r\nRE:1\r\n");
        for (int i = 0; i < steps; ++i) {
            talk.nowUs += 10 * 1000 * 1000 / steps;
            talk.dongle.advance(talk.nowUs);
        }
        return talk.takeOutput();
    };
    QCOMPARE(run(1), run(1000));
}

QTEST_GUILESS_MAIN(TestDongle)
#include "tst_dongle.moc"
