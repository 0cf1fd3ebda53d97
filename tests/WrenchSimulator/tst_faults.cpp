#include "faults.h"
#include "talk.h"

#include <QtTest>

namespace {
constexpr const char* c_linked = R"(
    > ATD 020000000001
    < ATD 020000000001
    < DATA
)";
} // namespace

class TestFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void malformedFaultsAreRefused_data();
    void malformedFaultsAreRefused();
    void faultStrikesAtItsFrameOnly();
    void faultStrikesFromItsFrameOn();
    void faultCountsFromTheMomentItWasSet();
    void clearedFaultsStrikeNoMore();
    void silencedFrameHasNoEffect();
    void silencedScanReportsNothing();
    void lateAnswerComesLater();
    void lateAnswerIsNotOvertaken();
    void delaysAddUp();
    void errorStandsInsteadOfTheAnswer();
    void refusedScanDoesNotBegin();
    void echoComesBeforeTheAnswer();
    void splitSendsPieces();
    void splitKeepsLinesApart();
    void splitAlsoSplitsResults();
    void glueJoinsAnswers();
    void glueWaitsNoLongerThanItsTime();
    void gluedLinesMayBeSplit();
    void outOfRangeTakesTheLinkedWrench();
    void outOfRangeTakesTheNamedWrench();
    void lostLinkTakesTheFrameAlong();
    void unplugIsToldOnceAndDropsAll();
};

void TestFaults::malformedFaultsAreRefused_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"",         "quiet",         "late",
                             "late:",    "late:x",        "late:-1",
                             "late:1,2", "late:99999999", "err",
                             "err:-1",   "silence:1",     "silence@0",
                             "silence@", "silence@x",     "silence@99999999999",
                             "split:0",  "glue:1",        "glue:2,x",
                             "unplug:0", "SILENCE",       "out-of-range:1,2"}) {
        QTest::newRow(*text != '\0' ? text : "empty") << QString::fromLatin1(text);
    }
}

void TestFaults::malformedFaultsAreRefused()
{
    QFETCH(QString, text);
    QString error;
    QVERIFY(!Fault::fromText(text, &error));
    QVERIFY2(error.contains(QLatin1Char('"') + text + QLatin1Char('"')), qPrintable(error));
}

void TestFaults::faultStrikesAtItsFrameOnly()
{
    Talk talk;
    talk.addFault("err:7@2");
    QCOMPARE(talk.play(R"(
        > ATH
        < ATH
        > ATH
        < ERR:7
        > ATH
        < ATH
    )"),
             QString());
}

void TestFaults::faultStrikesFromItsFrameOn()
{
    Talk talk;
    talk.addFault("err:7@2+");
    QCOMPARE(talk.play(R"(
        > ATH
        < ATH
        > ATH
        < ERR:7
        > ATH
        < ERR:7
    )"),
             QString());
}

void TestFaults::faultCountsFromTheMomentItWasSet()
{
    Talk talk;
    QCOMPARE(talk.play("> ATH\n< ATH"), QString());
    talk.addFault("err:7@1");
    QCOMPARE(talk.play("> ATH\n< ERR:7\n> ATH\n< ATH"), QString());
}

void TestFaults::clearedFaultsStrikeNoMore()
{
    Talk talk;
    talk.addFault("silence");
    QCOMPARE(talk.play("> ATH"), QString());
    talk.dongle.faults().clear();
    QCOMPARE(talk.play("> ATH\n< ATH"), QString());
}

void TestFaults::silencedFrameHasNoEffect()
{
    Talk talk;
    talk.addFault("silence@2");
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > DT:1
        + 5000
        > DI:C
        < OK:0
    )"),
             QString());
}

void TestFaults::silencedScanReportsNothing()
{
    Talk talk;
    talk.addFault("silence");
    QCOMPARE(talk.play("> ATS\n+ 3000"), QString());
}

void TestFaults::lateAnswerComesLater()
{
    Talk talk;
    talk.addFault("late:300@1");
    QCOMPARE(talk.play(R"(
        > ATH
        + 299
        + 1
        < ATH
        > ATH
        < ATH
    )"),
             QString());
}

void TestFaults::lateAnswerIsNotOvertaken()
{
    Talk talk;
    talk.addFault("late:300@2");
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > DT:1
        > SC:TL:2
        + 299
        + 1
        < OK:1
        < OK:2
    )"),
             QString());
}

void TestFaults::delaysAddUp()
{
    Talk talk;
    talk.addFault("late:10");
    talk.addFault("late:20@1");
    QCOMPARE(talk.play("> ATH\n+ 29\n+ 1\n< ATH\n> ATH\n+ 9\n+ 1\n< ATH"), QString());
}

void TestFaults::errorStandsInsteadOfTheAnswer()
{
    Talk talk;
    talk.addFault("err:9@2");
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > DT:1
        < ERR:9
        > DI:C
        < OK:0
    )"),
             QString());
}

void TestFaults::refusedScanDoesNotBegin()
{
    Talk talk;
    talk.addFault("err:2@1");
    QCOMPARE(talk.play("> ATS\n< ERR:2\n+ 3000"), QString());
}

void TestFaults::echoComesBeforeTheAnswer()
{
    Talk talk;
    talk.addFault("echo");
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > TR:N
        < TR:N
        < OK
        > ATH
        < ATH
    )"),
             QString());
}

void TestFaults::splitSendsPieces()
{
    Talk talk;
    talk.addFault("split:2,5");
    talk.send("ATH\r\n");
    QCOMPARE(talk.takeTimedChunks(20),
             QStringList({QStringLiteral("0: AT"), QStringLiteral("5: H."), QStringLiteral("10: .")}));
}

void TestFaults::splitKeepsLinesApart()
{
    Talk talk;
    talk.addFault("split:3,5");
    talk.send("ATH\r\nATH\r\n");
    QCOMPARE(talk.takeTimedChunks(20), QStringList({QStringLiteral("0: ATH"), QStringLiteral("5: .."),
                                                    QStringLiteral("10: ATH"), QStringLiteral("15: ..")}));
}

void TestFaults::splitAlsoSplitsResults()
{
    Talk talk;
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play("> RE:1\n< OK:1"), QString());
    talk.addFault("split");
    QCOMPARE(talk.dongle.demandTightening(0, 1, talk.nowUs), QString());
    const QStringList chunks = talk.takeTimedChunks(200);
    QVERIFY(chunks.size() > 15);
    QCOMPARE(chunks.at(0), QStringLiteral("100: R"));
    QCOMPARE(chunks.at(1), QStringLiteral("101: E"));
}

void TestFaults::glueJoinsAnswers()
{
    Talk talk;
    talk.addFault("glue:2,100");
    talk.send("ATH\r\n");
    QCOMPARE(talk.takeTimedChunks(10), QStringList());
    talk.send("ATH\r\n");
    QCOMPARE(talk.takeTimedChunks(0), QStringList({QStringLiteral("0: ATH..ATH..")}));
}

void TestFaults::glueWaitsNoLongerThanItsTime()
{
    Talk talk;
    talk.addFault("glue:5,100");
    talk.send("ATH\r\nATH\r\n");
    QCOMPARE(talk.takeTimedChunks(500), QStringList({QStringLiteral("100: ATH..ATH..")}));
    QVERIFY(!talk.dongle.output().nextDueUs());
}

void TestFaults::gluedLinesMayBeSplit()
{
    Talk talk;
    talk.addFault("glue:2");
    talk.addFault("split:7,3");
    talk.send("ATH\r\nATH\r\n");
    QCOMPARE(talk.takeTimedChunks(20), QStringList({QStringLiteral("0: ATH..AT"), QStringLiteral("3: H..")}));
}

void TestFaults::outOfRangeTakesTheLinkedWrench()
{
    Talk talk;
    talk.addFault("out-of-range@2");
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > DI:C
        < ERR:1
        > ATS
        < RESP 02:00:00:00:00:02 *
    )"),
             QString());
}

void TestFaults::outOfRangeTakesTheNamedWrench()
{
    Talk talk;
    talk.addFault("out-of-range:2211@1");
    QCOMPARE(talk.play(R"(
        > ATS
        < RESP 02:00:00:00:00:01 *
    )"),
             QString());
}

void TestFaults::lostLinkTakesTheFrameAlong()
{
    Talk talk;
    talk.addFault("lose-link@2");
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play("> DT:1\n+ 1000"), QString());
    QVERIFY(!talk.dongle.linkedWrench());
    QCOMPARE(talk.play("> DI:C\n< OK:0"), QString());
}

void TestFaults::unplugIsToldOnceAndDropsAll()
{
    Talk talk;
    talk.addFault("unplug:250@2");
    talk.send("ATS\r\nATD 020000000001\r\nATD 020000000001\r\n");
    QVERIFY(talk.dongle.takeUnplug() == 250);
    QVERIFY(!talk.dongle.takeUnplug());
    QVERIFY(!talk.dongle.linkedWrench());
    QCOMPARE(talk.play("+ 3000"), QString());
}

QTEST_GUILESS_MAIN(TestFaults)
#include "tst_faults.moc"
