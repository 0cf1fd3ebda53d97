#include <QJsonObject>
#include <QStringList>
#include <QTest>

#include <csignal>

#include "doctor_run.h"
#include "scripted_line.h"
#include "simulator_run.h"

namespace {

QStringList words(const char* text)
{
    return QString(QLatin1String(text)).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

constexpr int c_deviceProblem = 1;
const QString c_result = QStringLiteral("--wait-result");

} // namespace

/// What the doctor does to the wrench, and how it leaves it.
class TestDoctorEnds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesAResultWhenAskedTo();
    void putsTheLockBackHoweverItEnds_data();
    void putsTheLockBackHoweverItEnds();
    void putsTheLockBackWhenInterrupted();
    void saysWhenTheLockCannotBePutBack();
    void skipsTheRestWhenInterrupted();
    void saysWhatItSendsBeforeItDoes();
};

void TestDoctorEnds::takesAResultWhenAskedTo()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(), simulator.report());
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(simulator.port(), {c_result, QStringLiteral("30")}));
    QVERIFY2(doctor.waitForNotice(QStringLiteral("results"), QStringLiteral("Tighten once now")), doctor.report());
    QVERIFY(simulator.say(QStringLiteral("tighten")).startsWith(QLatin1String("ok ")));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    QCOMPARE(doctor.exitStatus(), 0);
    QCOMPARE(doctor.stateOf(QStringLiteral("results")), QStringLiteral("passed"));
    QCOMPARE(disorderAfter(doctor, simulator), QString());
}

void TestDoctorEnds::putsTheLockBackHoweverItEnds_data()
{
    QTest::addColumn<bool>("isLocked");
    QTest::addColumn<QString>("fault");
    for (const bool isLocked : {true, false}) {
        const char* const name = isLocked ? "locked" : "unlocked";
        QTest::addRow("%s, no result", name) << isLocked << QStringLiteral("none");
        QTest::addRow("%s, refused on the way", name) << isLocked << QStringLiteral("err:4@14");
        QTest::addRow("%s, silent on the way", name) << isLocked << QStringLiteral("silence@15");
        QTest::addRow("%s, silent at the first try", name) << isLocked << QStringLiteral("silence@19");
    }
}

void TestDoctorEnds::putsTheLockBackHoweverItEnds()
{
    QFETCH(bool, isLocked);
    QFETCH(QString, fault);
    SimulatorRun simulator;
    QVERIFY2(simulator.start(), simulator.report());
    const auto hasLock = [&] {
        return simulator.say(QStringLiteral("wrenches"))
            .contains(isLocked ? QStringLiteral(", locked") : QStringLiteral(", unlocked"));
    };
    if (isLocked) {
        WorkplaceRun preparation;
        QVERIFY(preparation.startOn(simulator.port(), words("run --connect --serial-id 2210 setLock lock=true")));
        QVERIFY2(preparation.waitForEnd(), preparation.report());
        QVERIFY(waitUntil(hasLock));
    }
    simulator.say(QStringLiteral("fault ") + fault);
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(simulator.port(), words("--limit 2 --wait-result 0.2")));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    QCOMPARE(doctor.exitStatus(), c_deviceProblem);
    QVERIFY2(doctor.trace().sent().filter(QStringLiteral("DT:")).size() >= 2, doctor.report());
    QVERIFY2(hasLock(), doctor.report());
}

void TestDoctorEnds::putsTheLockBackWhenInterrupted()
{
    ScriptedLine::Answers answers = ScriptedLine::goodAnswers();
    answers["DI:C"] = "OK:1\r\n";
    ScriptedLine line(answers);
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(line.port(), {c_result, QStringLiteral("30")}));
    QVERIFY2(waitUntil([&] { return line.frames().contains("DT:0"); }), doctor.report());
    doctor.sendSignal(SIGINT);
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    QVERIFY2(line.frames().lastIndexOf("DT:1") > line.frames().indexOf("DT:0"), doctor.report());
}

void TestDoctorEnds::saysWhenTheLockCannotBePutBack()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(words("--fault silence@19+")), simulator.report());
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(simulator.port(), words("--limit 2 --wait-result 0.1")));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    QCOMPARE(doctor.exitStatus(), c_deviceProblem);
    const QJsonObject last = doctor.events(QStringLiteral("error")).constLast();
    QCOMPARE(last.value(QLatin1String("step")).toString(), QStringLiteral("end"));
    QCOMPARE(last.value(QLatin1String("reason")).toString(), QStringLiteral("it did not answer to \"DT:0\""));
    QCOMPARE(last.value(QLatin1String("mend")).toString(),
             QStringLiteral("app_workplace run --port %1 --serial-id 2210 --connect setLock lock=false")
                 .arg(simulator.port()));
}

void TestDoctorEnds::skipsTheRestWhenInterrupted()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(), simulator.report());
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(simulator.port(), words("--scan 60")));
    QVERIFY2(doctor.waitForFrames(2), doctor.report());
    doctor.sendSignal(SIGINT);
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    QCOMPARE(doctor.exitStatus(), c_deviceProblem);
    QCOMPARE(doctor.stateOf(QStringLiteral("programs")), QStringLiteral("skipped"));
    QVERIFY(doctor.event(QStringLiteral("diagnosis")).value(QLatin1String("interrupted")).toBool());
    QCOMPARE(disorderAfter(doctor, simulator), QString());
}

void TestDoctorEnds::saysWhatItSendsBeforeItDoes()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(words("--rate 20")), simulator.report());
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(simulator.port(), {c_result, QStringLiteral("20")}));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    QCOMPARE(doctor.exitStatus(), 0);
    QString announced;
    const QList<QJsonObject> stages = doctor.events(QStringLiteral("stage"));
    for (const QJsonObject& stage : stages) {
        announced += stage.value(QLatin1String("sends")).toString() + QLatin1Char('\n');
    }
    const QStringList sent = doctor.trace().sent();
    QVERIFY(sent.size() > 10);
    for (const QString& frame : sent) {
        QVERIFY2(announced.contains(frame.section(QLatin1Char(' '), 0, 0)), qPrintable(frame));
    }
}

QTEST_GUILESS_MAIN(TestDoctorEnds)

#include "tst_doctor_ends.moc"
