#include "fault_injector.h"
#include "talk.h"

#include <QStringList>
#include <QTest>

namespace {
constexpr const char* c_linked = R"(
    > ATD 020000000001
    < ATD 020000000001
    < DATA
)";

/// For each of so many frames whether a fault "silence%30" strikes it, beside other faults.
QByteArray strikesOf(const char* fault, const QStringList& others, quint32 seed = 7)
{
    FaultInjector injector{RandomSource(seed)};
    QString error;
    for (const QString& other : others) {
        injector.add(*Fault::fromText(other, &error));
    }
    injector.add(*Fault::fromText(QLatin1String(fault), &error));
    QByteArray strikes;
    for (int i = 0; i < 200; ++i) {
        strikes.append(injector.frameTakenUp().isSilent ? '1' : '0');
        injector.disturb("OK");
    }
    return strikes;
}

/// What 100 lines become.
QByteArrayList disturbed(const char* fault, quint32 seed = 7)
{
    FaultInjector injector{RandomSource(seed)};
    QString error;
    injector.add(*Fault::fromText(QLatin1String(fault), &error));
    QByteArrayList lines;
    for (int i = 0; i < 100; ++i) {
        lines.append(injector.disturb("OK:UNT0,ANG90,TRQ12").bytes);
    }
    return lines;
}
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
    void chanceStrikesAboutSoOften();
    void chanceOfAHundredAlwaysStrikes();
    void sameSeedThrowsTheSameDice();
    void otherFaultsDoNotShiftTheDice();
    void equalFaultsHaveDiceOfTheirOwn();
    void inventedBytesDoNotShiftTheDice();
    void sameSeedInventsTheSameBytes_data();
    void sameSeedInventsTheSameBytes();
    void cutLosesTheRestAndTheEnd();
    void cutByChanceLeavesABeginning();
    void flipChangesOneByte();
    void doubleSendsTheLineTwice();
    void manyDoublesAreBounded();
    void garbageComesBeforeTheLine();
    void lowerCaseIsLowerCase();
    void foreignEchoStandsInsteadOfTheDialledAddress();
    void foreignEchoComesBeforeOtherAnswers();
    void twinIsReportedAndCannotBeReached();
    void wrenchComesBackIntoRange();
    void floodComesUnasked();
    void floodOfNoTimeIsBounded();
    void endlessLineHasNoEnd();
    void linesBehindAnEndlessOneJoinIt();
    void faultsAreListedAndTakenAway();
    void faultsAreBounded();
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
                             "unplug:0", "SILENCE",       "out-of-range:1,x",
                             "flip%0",   "flip%101",      "flip%x",
                             "flip%",    "flip%5@3",      "flip@3%5",
                             "cut:0",    "garbage:4097",  "endless:1,x",
                             "double:2", "late:5%-1",     "flip%1e1"}) {
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

void TestFaults::chanceStrikesAboutSoOften()
{
    const int strikes = strikesOf("silence%30", {}).count('1');
    QVERIFY2(strikes > 40 && strikes < 80, QByteArray::number(strikes).constData());
}

void TestFaults::chanceOfAHundredAlwaysStrikes()
{
    QCOMPARE(strikesOf("silence%100", {}).count('0'), 0);
}

void TestFaults::sameSeedThrowsTheSameDice()
{
    QCOMPARE(strikesOf("silence%30", {}), strikesOf("silence%30", {}));
    QVERIFY(strikesOf("silence%30", {}, 7) != strikesOf("silence%30", {}, 8));
}

void TestFaults::otherFaultsDoNotShiftTheDice()
{
    const QStringList others = {QStringLiteral("late:5%50"), QStringLiteral("flip%20"), QStringLiteral("cut%20")};
    QCOMPARE(strikesOf("silence%30", others), strikesOf("silence%30", {}));
}

void TestFaults::equalFaultsHaveDiceOfTheirOwn()
{
    const int one = strikesOf("silence%30", {}).count('1');
    const int two = strikesOf("silence%30", {QStringLiteral("silence%30")}).count('1');
    QVERIFY2(two > one + 10, QByteArray::number(two).constData());
}

void TestFaults::inventedBytesDoNotShiftTheDice()
{
    // Whether a line is struck does not depend on how much was made up for the ones before.
    const auto struck = [](const char* fault) {
        FaultInjector injector{RandomSource(7)};
        QString error;
        Fault garbage = *Fault::fromText(QLatin1String(fault), &error);
        garbage.text = QStringLiteral("the same stream");
        injector.add(garbage);
        QByteArray strikes;
        for (int i = 0; i < 100; ++i) {
            strikes.append(injector.disturb("OK").bytes.size() > 4 ? '1' : '0');
        }
        return strikes;
    };
    QCOMPARE(struck("garbage:1%30"), struck("garbage:100%30"));
}

void TestFaults::sameSeedInventsTheSameBytes_data()
{
    QTest::addColumn<QByteArray>("fault");
    for (const char* fault : {"cut", "flip", "garbage", "flip:3%50"}) {
        QTest::newRow(fault) << QByteArray(fault);
    }
}

void TestFaults::sameSeedInventsTheSameBytes()
{
    QFETCH(QByteArray, fault);
    QCOMPARE(disturbed(fault.constData()), disturbed(fault.constData()));
    QVERIFY(disturbed(fault.constData(), 7) != disturbed(fault.constData(), 8));
}

void TestFaults::cutLosesTheRestAndTheEnd()
{
    Talk talk;
    talk.addFault("cut:2@1");
    talk.send("ATH\r\nATH\r\n");
    QCOMPARE(talk.takeOutput(), QByteArray("ATATH\r\n"));
}

void TestFaults::cutByChanceLeavesABeginning()
{
    const QByteArray line = "OK:UNT0,ANG90,TRQ12";
    const QByteArrayList lines = disturbed("cut");
    for (const QByteArray& each : lines) {
        QVERIFY2(!each.isEmpty() && each.size() < line.size() && line.startsWith(each), each.constData());
    }
}

void TestFaults::flipChangesOneByte()
{
    const QByteArray line = "OK:UNT0,ANG90,TRQ12\r\n";
    const QByteArrayList lines = disturbed("flip");
    for (const QByteArray& each : lines) {
        QCOMPARE(each.size(), line.size());
        int differences = 0;
        for (int i = 0; i < line.size(); ++i) {
            differences += each.at(i) == line.at(i) ? 0 : 1;
        }
        QCOMPARE(differences, 1);
    }
}

void TestFaults::doubleSendsTheLineTwice()
{
    Talk talk;
    talk.addFault("double@1");
    QCOMPARE(talk.play("> ATH\n< ATH\n< ATH\n> ATH\n< ATH"), QString());
}

void TestFaults::manyDoublesAreBounded()
{
    Talk talk;
    for (int i = 0; i < FaultInjector::c_maxFaults; ++i) {
        talk.addFault("double");
    }
    talk.send("ATH\r\n");
    QVERIFY(talk.takeOutput().size() <= 8192);
}

void TestFaults::garbageComesBeforeTheLine()
{
    Talk talk;
    talk.addFault("garbage:20@1");
    talk.send("ATH\r\n");
    const QByteArray output = talk.takeOutput();
    QCOMPARE(output.size(), 25);
    QVERIFY(output.endsWith("ATH\r\n"));
}

void TestFaults::lowerCaseIsLowerCase()
{
    Talk talk;
    QCOMPARE(talk.play(c_linked), QString());
    talk.addFault("lower-case");
    QCOMPARE(talk.play("> DI:C\n< ok:0"), QString());
}

void TestFaults::foreignEchoStandsInsteadOfTheDialledAddress()
{
    Talk talk;
    talk.addFault("foreign-echo@1");
    QCOMPARE(talk.play(R"(
        > ATD 020000000001
        < ATD 020000000002
        < DATA
        > DI:C
        < OK:0
    )"),
             QString());
}

void TestFaults::foreignEchoComesBeforeOtherAnswers()
{
    Talk talk;
    QCOMPARE(talk.play(c_linked), QString());
    talk.addFault("foreign-echo");
    QCOMPARE(talk.play("> DI:C\n< ATD 020000000002\n< OK:0"), QString());
}

void TestFaults::twinIsReportedAndCannotBeReached()
{
    Talk talk;
    talk.addFault("duplicate-serial:2211");
    QCOMPARE(talk.play(R"(
        > ATS
        < RESP 02:00:00:00:00:01 TW60 2210 *
        < RESP 02:00:00:00:00:02 TW60 2211 *
        < RESP 06:00:00:00:00:02 TW60 2211 *
        > ATH
        < ATH
        > ATD 060000000002
        < ATD 060000000002
        < ERR:1
    )"),
             QString());
}

void TestFaults::wrenchComesBackIntoRange()
{
    Talk talk;
    talk.addFault("out-of-range:,500@2");
    QCOMPARE(talk.play(c_linked), QString());
    QCOMPARE(talk.play(R"(
        > DI:C
        < ERR:1
        + 499
        > DI:C
        < ERR:1
        + 1
        > DI:C
        < OK:0
    )"),
             QString());
}

void TestFaults::floodComesUnasked()
{
    Talk talk;
    talk.addFault("flood:3,30@1");
    talk.send("ATH\r\n");
    QCOMPARE(talk.takeTimedChunks(100), QStringList({QStringLiteral("0: INFO 1.."), QStringLiteral("0: ATH.."),
                                                     QStringLiteral("10: INFO 2.."), QStringLiteral("20: INFO 3..")}));
    QVERIFY(!talk.dongle.nextDueUs());
}

void TestFaults::floodOfNoTimeIsBounded()
{
    Talk talk;
    talk.addFault("flood:1000000,0@1");
    talk.send("ATH\r\n");
    QVERIFY(talk.takeOutput().size() <= OutputQueue::c_maxBytes);
    QCOMPARE(talk.notes.size(), 2); // that it drops, and how much
}

void TestFaults::endlessLineHasNoEnd()
{
    Talk talk;
    talk.addFault("endless:1000,100@1");
    talk.send("ATH\r\n");
    talk.pass(1000);
    QByteArray output = talk.takeOutput();
    const int answer = output.indexOf("ATH\r\n"); // it does not wait for the end that will not come
    QVERIFY(answer > 0 && answer < 100);
    output.remove(answer, 5);
    QCOMPARE(output, QByteArray(1000, 'x'));
}

void TestFaults::linesBehindAnEndlessOneJoinIt()
{
    Talk talk;
    talk.addFault("endless:10,0@1");
    talk.addFault("late:1");
    talk.send("ATH\r\n");
    talk.pass(1);
    QCOMPARE(talk.takeOutput(), QByteArray("xxxxxxxxxxATH\r\n"));
}

void TestFaults::faultsAreListedAndTakenAway()
{
    Talk talk;
    talk.addFault("silence@1");
    talk.addFault("late:5%10");
    talk.addFault("late:6%100");
    QCOMPARE(talk.play("> ATH\n+ 100\n> ATH\n+ 6\n< ATH"), QString());
    FaultInjector& faults = talk.dongle.faults();
    QCOMPARE(faults.describe().at(0), QStringLiteral("silence@1 (struck 1 times)"));
    QCOMPARE(faults.describe().at(2), QStringLiteral("late:6%100 (struck 2 times)"));
    QCOMPARE(faults.remove(QStringLiteral("late:5%10")), 1);
    QCOMPARE(faults.remove(QStringLiteral("late:5%10")), 0);
    QCOMPARE(faults.remove(QStringLiteral("late")), 1);
    QCOMPARE(faults.describe().size(), 1);
}

void TestFaults::faultsAreBounded()
{
    FaultInjector injector{RandomSource(1)};
    for (int i = 0; i < FaultInjector::c_maxFaults; ++i) {
        QVERIFY(injector.add({}));
    }
    QVERIFY(!injector.add({}));
}

QTEST_GUILESS_MAIN(TestFaults)
#include "tst_faults.moc"
