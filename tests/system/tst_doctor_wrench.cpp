#include <QStringList>
#include <QTest>

#include "doctor_run.h"
#include "scripted_line.h"
#include "simulator_run.h"

namespace {

QStringList words(const char* text)
{
    return QString(QLatin1String(text)).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

constexpr int c_deviceProblem = 1;
constexpr int c_setUpProblem = 3;
const QString c_result = QStringLiteral("--wait-result");

} // namespace

/// The stages of dongle and wrench, each broken on a real line.
class TestDoctorWrench : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsNothingWrongWithAGoodWrench();
    void findsNothingWrongWithASimulatedLine();
    void takesTheOnlyWrenchInRange();
    void goesOnWithALinkThatTheDongleKeeps();

    void namesWhatIsWrong_data();
    void namesWhatIsWrong();
    void namesWhatAnotherDeviceSays_data();
    void namesWhatAnotherDeviceSays();
    void saysToWaitWhileATighteningRuns();
    void namesALineThatIsLostOnTheWay();
    void speaksToPeople();
};

void TestDoctorWrench::findsNothingWrongWithAGoodWrench()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(), simulator.report());
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(simulator.port()));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    QCOMPARE(doctor.exitStatus(), 0);
    QCOMPARE(doctor.stages(), (QStringList{QStringLiteral("plugins passed"), QStringLiteral("port passed"),
                                           QStringLiteral("line passed"), QStringLiteral("dongle passed"),
                                           QStringLiteral("range passed"), QStringLiteral("link passed"),
                                           QStringLiteral("wrench passed"), QStringLiteral("programs passed"),
                                           QStringLiteral("results skipped")}));
    QVERIFY2(doctor.messages().isEmpty(), doctor.report());
    QCOMPARE(disorderAfter(doctor, simulator), QString());
    // Nothing that changes the lock or the reporting was sent.
    const QStringList sent = doctor.trace().sent();
    for (const QString& frame : {QStringLiteral("DT:0"), QStringLiteral("DT:1"), QStringLiteral("RE:1")}) {
        QVERIFY2(!sent.contains(frame), doctor.report());
    }
}

void TestDoctorWrench::findsNothingWrongWithASimulatedLine()
{
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(QStringLiteral("simulated"), {c_result, QStringLiteral("20")}));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    QCOMPARE(doctor.exitStatus(), 0);
    QCOMPARE(doctor.stages().filter(QStringLiteral(" passed")).size(), 9);
}

void TestDoctorWrench::takesTheOnlyWrenchInRange()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(words("--wrench 4711")), simulator.report());
    WorkplaceRun doctor;
    QVERIFY(doctor.startOn(simulator.port(), words("doctor --scan 0.2")));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    QCOMPARE(doctor.exitStatus(), 0);
    QVERIFY2(doctor.output().contains(QLatin1String("the wrench 4711 is heard with ")), doctor.report());
}

void TestDoctorWrench::goesOnWithALinkThatTheDongleKeeps()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(words("--mode transparent")), simulator.report());
    DoctorRun first;
    QVERIFY(first.startDoctor(simulator.port(), words("--limit 2")));
    QVERIFY2(first.waitForEnd(), first.report());
    QCOMPARE(first.exitStatus(), 0);

    DoctorRun second;
    QVERIFY(second.startDoctor(simulator.port(), words("--limit 2")));
    QVERIFY2(second.waitForEnd(), second.report());
    QCOMPARE(second.exitStatus(), 0);
    QCOMPARE(second.stateOf(QStringLiteral("range")), QStringLiteral("skipped"));
    QCOMPARE(second.stateOf(QStringLiteral("link")), QStringLiteral("skipped"));
    QCOMPARE(second.stateOf(QStringLiteral("programs")), QStringLiteral("passed"));
}

void TestDoctorWrench::namesWhatIsWrong_data()
{
    QTest::addColumn<QStringList>("simulator");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("stage");
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("cause");
    QTest::addColumn<QString>("mend");
    const auto row = [](const char* name, const char* simulator, const char* options, const char* stage,
                        const char* what, const char* cause, const char* mend) {
        QTest::newRow(name) << words(simulator) << words(options) << QString(QLatin1String(stage))
                            << QString(QLatin1String(what)) << QString(QLatin1String(cause))
                            << QString(QLatin1String(mend));
    };
    // As the dongle counts the frames: ATH 1, ATS 2, ATH 3, ATD 4, ATH 5, DI:C 6, IDLE 7, TR:C 8, TR:N 9,
    // and after two programs DT:1 13, SC:TL:2 14, RE:1 15, DT:0 16, DI:C 17.
    row("the search is refused", "--fault err:4@2", "", "dongle", "the dongle refuses to search", "\"ERR:4\"",
        "unplug the dongle");
    row("another wrench than asked for", "--wrench 4711,rssi=-50 --wrench 4712,rssi=-70", "", "range",
        "the wrench 2210 is not in range", "only these were heard: 4711 (02:00:00:00:00:01, -5",
        "or check the serial number");
    row("no wrench at all", "--wrench 2210 --fault out-of-range:2210@1", "--limit 2", "range",
        "the wrench 2210 is not in range", "no wrench was heard", "switch the wrench on");
    row("a weak signal", "--wrench 2210,rssi=-95", "", "range", "the signal of the wrench 2210 is weak: -9",
        "below -80 dBm frames get lost", "bring wrench and dongle nearer");
    row("a serial number twice", "--wrench 2210 --wrench 2210", "", "range",
        "2 wrenches answer to the serial number 2210", "02:00:00:00:00:02", "switch off all but one of them");
    row("a refused link", "--fault out-of-range:2210@4", "", "link", "the radio link to the wrench 2210 is refused",
        "\"ERR:1\"", "switch the wrench off and on");
    row("a dongle that does not dial", "--fault silence@4+", "--limit 2", "link",
        "the radio link to the wrench 2210 does not open", "the dongle did not answer", "unplug the dongle");
    row("a silent wrench", "--fault silence@6+", "--limit 2", "wrench", "the wrench is silent, although its link opens",
        "did not answer to \"DI:C\"", "switch the wrench off and on");
    row("a wrench that leaves", "--fault out-of-range:2210@6", "", "wrench", "the wrench is not reached", "\"ERR:1\"",
        "bring the wrench nearer");
    row("a dongle that does not open its link again", "--mode drop", "", "wrench",
        "the dongle does not open the link again for a frame", "\"ERR:3\"", "open its last link by itself");
    row("programs that are not told", "--fault silence@7+", "--limit 2", "programs",
        "the programs of the wrench cannot be read", "the wrench did not answer", "bring the wrench nearer");
    row("programs that break off", "--fault err:4@9", "", "programs", "the programs could be read only in part: 1",
        "\"ERR:4\"", "bring the wrench nearer");
    row("a configuration that is refused", "--fault err:4@15", "--wait-result 1", "results",
        "the wrench does not take its configuration", "\"ERR:4\"", "bring the wrench nearer");
    row("a wrench that stays locked", "--fault err:4@16", "--wait-result 1", "results",
        "the wrench is locked, and a locked wrench gives no result", "DT:0", "see who else locks it");
    row("no result", "", "--wait-result 0.3", "results", "no result has come within 0.3 s",
        "the wrench is unlocked and answers", "--wait-result");
}

void TestDoctorWrench::namesWhatIsWrong()
{
    QFETCH(QStringList, simulator);
    QFETCH(QStringList, options);
    QFETCH(QString, stage);
    QFETCH(QString, what);
    QFETCH(QString, cause);
    QFETCH(QString, mend);
    SimulatorRun line;
    QVERIFY2(line.start(simulator), line.report());
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(line.port(), options));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    const DoctorRun::Complaint complaint = doctor.complaint();
    QVERIFY2(complaint.stage == stage && complaint.what.startsWith(what), doctor.report());
    QVERIFY2(complaint.cause.contains(cause) && complaint.mend.contains(mend), doctor.report());
    QCOMPARE(complaint.exitStatus, c_deviceProblem);
    QVERIFY2(doctor.disorder().isEmpty(), doctor.disorder().toUtf8() + doctor.report());
    QCOMPARE(doctor.trace().lastEntry(), QStringLiteral("! closed"));
}

void TestDoctorWrench::namesWhatAnotherDeviceSays_data()
{
    QTest::addColumn<ScriptedLine::Answers>("answers");
    QTest::addColumn<bool>("isRepeating");
    QTest::addColumn<QString>("stage");
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("cause");
    const ScriptedLine::Answers good = ScriptedLine::goodAnswers();
    const auto with = [&good](const ScriptedLine::Answers& other) {
        ScriptedLine::Answers answers = good;
        for (auto each = other.cbegin(); each != other.cend(); ++each) {
            answers[each.key()] = each.value();
        }
        return answers;
    };
    QTest::newRow("a modem") << ScriptedLine::Answers{{"ATH", "\r\nOK\r\n"}, {"", "\r\nERROR\r\n"}} << true << "dongle"
                             << "another device than a dongle answers"
                             << "it said \"OK\", \"ERROR\"";
    QTest::newRow("a talker") << ScriptedLine::Answers{{"", "$GPGGA,092750.000,5321.6802,N\r\n"}} << false << "dongle"
                              << "another device than a dongle answers"
                              << "it said \"$GPGGA,092750.000,5321.6802,N\"";
    QTest::newRow("a loop-back plug") << ScriptedLine::Answers() << true << "dongle"
                                      << "nobody answers, the line only repeats what is sent"
                                      << "it said \"ATH\", \"ATS\"";
    QTest::newRow("several wrenches, none asked for")
        << with({{"ATS", "RESP 02:00:00:00:00:01 TW60 4711 -61\r\nRESP 02:00:00:00:00:02 TW60 4712 -50\r\n"}}) << false
        << "range"
        << "which wrench is to be examined is not said, and several are in range"
        << "4712 (";
    QTest::newRow("another wrench is linked")
        << with({{"ATD 020000000001", "ATD 0200000000FF\r\nDATA\r\n"}}) << false << "link"
        << "the dongle has linked another wrench than 2210"
        << "020000000001 was to be dialled, and the dongle said";
    QTest::newRow("a link that never opens") << with({{"ATD 020000000001", "ATD 020000000001\r\n"}}) << false << "link"
                                             << "the radio link to the wrench 2210 does not open"
                                             << "the dongle said only \"ATD 020000000001\"";
    QTest::newRow("a wrench that talks nonsense") << with({{"DI:C", "ok 0\r\n\x80\xff\r\n"}}) << false << "wrench"
                                                  << "the wrench answers nonsense"
                                                  << "and said \"ok 0\", \"";
    QTest::newRow("programs that nobody can read") << with({{"TR:C", "OK:PROGRAM 1\r\n"}}) << false << "programs"
                                                   << "the programs of the wrench cannot be read"
                                                   << "the last that was said is \"OK:PROGRAM 1\"";
}

void TestDoctorWrench::namesWhatAnotherDeviceSays()
{
    QFETCH(ScriptedLine::Answers, answers);
    QFETCH(bool, isRepeating);
    QFETCH(QString, stage);
    QFETCH(QString, what);
    QFETCH(QString, cause);
    ScriptedLine line(answers);
    if (isRepeating) {
        line.repeatWhatIsSent();
    }
    DoctorRun doctor;
    const bool isUnnamed = stage == QLatin1String("range");
    QVERIFY(doctor.startDoctor(
        line.port(), words("--limit 2") + (isUnnamed ? words("--serial-id") + QStringList{QString()} : QStringList())));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    const DoctorRun::Complaint complaint = doctor.complaint();
    QVERIFY2(complaint.stage == stage && complaint.what == what, doctor.report());
    QVERIFY2(complaint.cause.contains(cause) && !complaint.mend.isEmpty(), doctor.report());
    QCOMPARE(complaint.exitStatus, c_deviceProblem);
    QVERIFY2(doctor.disorder().isEmpty(), doctor.disorder().toUtf8() + doctor.report());
}

void TestDoctorWrench::saysToWaitWhileATighteningRuns()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(words("--tightening-time 600000")), simulator.report());
    QVERIFY(simulator.say(QStringLiteral("tighten")).startsWith(QLatin1String("ok ")));
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(simulator.port(), words("--limit 5")));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    const DoctorRun::Complaint complaint = doctor.complaint();
    QCOMPARE(complaint.what, QStringLiteral("the programs cannot be read while a tightening is running"));
    QVERIFY2(complaint.cause.contains(QLatin1String("\"ERR:5\"")), doctor.report());
    QCOMPARE(complaint.mend, QStringLiteral("finish the tightening, or wait until it is over, and try again"));
    QCOMPARE(complaint.exitStatus, c_deviceProblem);
}

void TestDoctorWrench::namesALineThatIsLostOnTheWay()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(words("--fault unplug@6")), simulator.report());
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(simulator.port()));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    const DoctorRun::Complaint complaint = doctor.complaint();
    QCOMPARE(complaint.stage, QStringLiteral("wrench"));
    QVERIFY2(complaint.cause.contains(QLatin1String("plug its adapter in again")), doctor.report());
    QCOMPARE(complaint.exitStatus, c_setUpProblem);
    QVERIFY2(doctor.disorder().isEmpty(), doctor.disorder().toUtf8() + doctor.report());
}

void TestDoctorWrench::speaksToPeople()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(words("--wrench 4711")), simulator.report());
    WorkplaceRun doctor;
    QVERIFY(doctor.startOn(simulator.port(), words("doctor --scan 0.2 --serial-id 2210")));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    QCOMPARE(doctor.exitStatus(), c_deviceProblem);
    for (const char* said :
         {"  port       ok       ", "  dongle     sends    ATS",
          "  range      FAILED   the wrench 2210 is not in range\n", "  link       skipped  \"range\" has failed\n",
          "Something is wrong: 4 passed, 1 failed"}) {
        QVERIFY2(doctor.output().contains(QLatin1String(said)), doctor.report());
    }
    for (const char* said :
         {"range: the wrench 2210 is not in range\n", "  why: only these were heard: 4711 ",
          "  do:  switch the wrench on and bring it near the dongle, or check the serial number\n"}) {
        QVERIFY2(doctor.messages().contains(QLatin1String(said)), doctor.report());
    }
}

QTEST_GUILESS_MAIN(TestDoctorWrench)

#include "tst_doctor_wrench.moc"
