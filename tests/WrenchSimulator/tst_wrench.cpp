#include "program.h"
#include "random_source.h"
#include "tightening.h"
#include "wrench.h"

#include <QFile>
#include <QSet>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

namespace {
constexpr qint64 c_tighteningUs = 100;

class WrenchOnABench
{
public:
    explicit WrenchOnABench(double ratePerSecond = 0.0)
        : wrench(settings(ratePerSecond), RandomSource(1), [this](const QString& text) { notes.append(text); })
    {}

    QByteArray ask(const char* frame) { return wrench.receive(frame, nowUs); }
    void pass(qint64 us)
    {
        nowUs += us;
        wrench.advance(nowUs);
    }

    QStringList notes;
    Wrench wrench;
    qint64 nowUs = 0;

private:
    static Wrench::Settings settings(double ratePerSecond)
    {
        Wrench::Settings result;
        result.serial = "2210";
        result.programs = Program::examples(3);
        result.tighteningUs = c_tighteningUs;
        result.ratePerSecond = ratePerSecond;
        return result;
    }
};

QByteArray readingNumber(const QByteArray& resultLine)
{
    return resultLine.split(',').at(5);
}
} // namespace

class TestWrench : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lockIsSetAndProbed();
    void scaleSettingIsAcknowledged();
    void idleMakesTheFirstProgramCurrent();
    void idleIsRefusedWhileATighteningRuns();
    void currentProgramIsTold();
    void nextProgramWrapsAround();
    void unknownFrameIsRefused();
    void dongleCommandGetsNoAnswer();
    void frameIsTakenLiterally();
    void tighteningTakesItsTime();
    void tighteningsFollowEachOther();
    void nothingIsReportedBeforeReportingIsOn();
    void lockedWrenchRefusesToTighten();
    void lockingRefusesWhatWaits();
    void lockingLetsTheRunningOneEnd();
    void moreThanTheLimitIsRefused();
    void keptResultsAreBounded();
    void rateBeginsWithReporting();
    void rateStopsWhileLocked();
    void rateFasterThanATighteningIsKept();
    void resultLineHasTheWrittenForm();
    void statusesAgreeWithTheNumbers();
    void aboutOneInEightIsBad();
    void valuesFollowTheProgram();
    void unwatchedAngleIsAlwaysGood();
    void programFieldsAreChecked_data();
    void programFieldsAreChecked();
    void exampleProgramsDiffer();
    void programsFileIsRead();
    void programsFileNamesTheBadLine();
    void programsFileThatNeverEndsIsRefused();
    void programsFileOfTooManyProgramsIsRefused();
};

void TestWrench::lockIsSetAndProbed()
{
    WrenchOnABench bench;
    QCOMPARE(bench.ask("DI:C"), QByteArray("OK:0"));
    QCOMPARE(bench.ask("DT:1"), QByteArray("OK:1"));
    QCOMPARE(bench.ask("DI:C"), QByteArray("OK:1"));
    QCOMPARE(bench.ask("DT:0"), QByteArray("OK:0"));
    QCOMPARE(bench.ask("DI:C"), QByteArray("OK:0"));
}

void TestWrench::scaleSettingIsAcknowledged()
{
    QCOMPARE(WrenchOnABench().ask("SC:TL:2"), QByteArray("OK:2"));
}

void TestWrench::idleMakesTheFirstProgramCurrent()
{
    WrenchOnABench bench;
    bench.ask("TR:N");
    QCOMPARE(bench.ask("IDLE"), QByteArray("OK"));
    QCOMPARE(bench.wrench.programNumber(), 1);
}

void TestWrench::idleIsRefusedWhileATighteningRuns()
{
    WrenchOnABench bench;
    bench.ask("TR:N");
    QCOMPARE(bench.wrench.demand(1, bench.nowUs), QString());
    QCOMPARE(bench.ask("IDLE"), QByteArray("ERR:5"));
    QCOMPARE(bench.wrench.programNumber(), 2);
    bench.pass(c_tighteningUs);
    QCOMPARE(bench.ask("IDLE"), QByteArray("OK"));
}

void TestWrench::currentProgramIsTold()
{
    QCOMPARE(WrenchOnABench().ask("TR:C"), QByteArray("OK:UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1"));
}

void TestWrench::nextProgramWrapsAround()
{
    WrenchOnABench bench;
    for (const int program : {2, 3, 1}) {
        QCOMPARE(bench.ask("TR:N"), QByteArray("OK"));
        QCOMPARE(bench.wrench.programNumber(), program);
    }
}

void TestWrench::unknownFrameIsRefused()
{
    QCOMPARE(WrenchOnABench().ask("XY:1"), QByteArray("ERR:4"));
}

void TestWrench::dongleCommandGetsNoAnswer()
{
    QCOMPARE(WrenchOnABench().ask("ATH"), QByteArray());
}

void TestWrench::frameIsTakenLiterally()
{
    WrenchOnABench bench;
    QCOMPARE(bench.ask("dt:1"), QByteArray("ERR:4"));
    QCOMPARE(bench.ask("DT:1 "), QByteArray("ERR:4"));
    QVERIFY(!bench.wrench.isLocked());
}

void TestWrench::tighteningTakesItsTime()
{
    WrenchOnABench bench;
    QCOMPARE(bench.ask("RE:1"), QByteArray("OK:1"));
    QCOMPARE(bench.wrench.demand(1, bench.nowUs), QString());
    bench.pass(c_tighteningUs - 1);
    QVERIFY(bench.wrench.takeResults().isEmpty());
    bench.pass(1);
    QCOMPARE(bench.wrench.takeResults().size(), 1);
    QVERIFY(!bench.wrench.nextDueUs());
}

void TestWrench::tighteningsFollowEachOther()
{
    WrenchOnABench bench;
    bench.ask("RE:1");
    QCOMPARE(bench.wrench.demand(3, bench.nowUs), QString());
    bench.pass(2 * c_tighteningUs);
    const QByteArrayList results = bench.wrench.takeResults();
    QCOMPARE(results.size(), 2);
    QCOMPARE(readingNumber(results.at(0)), QByteArray("1"));
    QCOMPARE(readingNumber(results.at(1)), QByteArray("2"));
}

void TestWrench::nothingIsReportedBeforeReportingIsOn()
{
    WrenchOnABench bench;
    QCOMPARE(bench.wrench.demand(1, bench.nowUs), QString());
    bench.pass(c_tighteningUs);
    bench.ask("RE:1");
    QVERIFY(bench.wrench.takeResults().isEmpty());
    QCOMPARE(bench.wrench.demand(1, bench.nowUs), QString());
    bench.pass(c_tighteningUs);
    QCOMPARE(readingNumber(bench.wrench.takeResults().at(0)), QByteArray("2"));
}

void TestWrench::lockedWrenchRefusesToTighten()
{
    WrenchOnABench bench;
    bench.ask("RE:1");
    bench.ask("DT:1");
    QVERIFY(bench.wrench.demand(1, bench.nowUs).contains(QStringLiteral("locked")));
    bench.pass(c_tighteningUs);
    QVERIFY(bench.wrench.takeResults().isEmpty());
}

void TestWrench::lockingRefusesWhatWaits()
{
    WrenchOnABench bench;
    bench.ask("RE:1");
    QCOMPARE(bench.wrench.demand(3, bench.nowUs), QString());
    bench.ask("DT:1");
    QVERIFY(bench.notes.value(0).contains(QStringLiteral("2 tightenings")));
    bench.ask("DT:0");
    bench.pass(10 * c_tighteningUs);
    QCOMPARE(bench.wrench.takeResults().size(), 1);
}

void TestWrench::lockingLetsTheRunningOneEnd()
{
    WrenchOnABench bench;
    bench.ask("RE:1");
    QCOMPARE(bench.wrench.demand(1, bench.nowUs), QString());
    bench.ask("DT:1");
    bench.pass(c_tighteningUs);
    QCOMPARE(bench.wrench.takeResults().size(), 1);
}

void TestWrench::moreThanTheLimitIsRefused()
{
    WrenchOnABench bench;
    QVERIFY(!bench.wrench.demand(Wrench::c_maxWaiting + 1, bench.nowUs).isEmpty());
    QCOMPARE(bench.wrench.demand(Wrench::c_maxWaiting, bench.nowUs), QString());
}

void TestWrench::keptResultsAreBounded()
{
    WrenchOnABench bench;
    bench.ask("RE:1");
    QCOMPARE(bench.wrench.demand(Wrench::c_maxWaiting, bench.nowUs), QString());
    bench.pass(Wrench::c_maxWaiting * c_tighteningUs);
    QVERIFY(bench.notes.isEmpty());
    QCOMPARE(bench.wrench.demand(1, bench.nowUs), QString());
    bench.pass(c_tighteningUs);
    QCOMPARE(bench.notes.size(), 1);
    const QByteArrayList results = bench.wrench.takeResults();
    QCOMPARE(results.size(), Wrench::c_maxWaiting);
    QCOMPARE(readingNumber(results.constFirst()), QByteArray("2"));
}

void TestWrench::rateBeginsWithReporting()
{
    WrenchOnABench bench(1000.0);
    bench.pass(10000);
    QCOMPARE(bench.wrench.readings(), 0);
    bench.ask("RE:1");
    bench.pass(1000 + c_tighteningUs - 1);
    QVERIFY(bench.wrench.takeResults().isEmpty());
    bench.pass(1);
    QCOMPARE(bench.wrench.takeResults().size(), 1);
    bench.pass(5000);
    QCOMPARE(bench.wrench.takeResults().size(), 5);
}

void TestWrench::rateStopsWhileLocked()
{
    WrenchOnABench bench(1000.0);
    bench.ask("RE:1");
    bench.ask("DT:1");
    bench.pass(10000);
    QCOMPARE(bench.wrench.readings(), 0);
    bench.ask("DT:0");
    bench.pass(1000);
    QCOMPARE(bench.wrench.readings(), 1);
}

void TestWrench::rateFasterThanATighteningIsKept()
{
    WrenchOnABench bench(20000.0); // one each 50 us
    bench.ask("RE:1");
    bench.pass(1000);
    QCOMPARE(bench.wrench.takeResults().size(), 19);
}

void TestWrench::resultLineHasTheWrittenForm()
{
    TighteningResult result;
    result.torque = 12.5;
    result.direction = TighteningDirection::CounterClockwise;
    result.snugAngleDeg = 30;
    result.angleStatus = TighteningStatus::Low;
    result.readingNumber = 3;
    QCOMPARE(result.toLine(), QByteArray("RE:F:12.50,1,0,30,1,3,1"));
    result.torqueStatus = TighteningStatus::High;
    QCOMPARE(result.toLine(), QByteArray("RE:F:12.50,1,2,30,1,3,2"));
}

void TestWrench::statusesAgreeWithTheNumbers()
{
    RandomSource random(5);
    const Program program = Program::examples(1).front();
    QSet<QByteArray> torqueStatuses;
    QSet<QByteArray> angleStatuses;
    for (int i = 1; i <= 2000; ++i) {
        const QList<QByteArray> fields = tighten(program, i, random).toLine().mid(5).split(',');
        const double torque = fields.at(0).toDouble();
        const int angle = fields.at(3).toInt();
        const QByteArray torqueStatus = torque < 11.4 ? "1" : torque > 12.6 ? "2" : "0";
        const QByteArray angleStatus = angle < 85 ? "1" : angle > 95 ? "2" : "0";
        QCOMPARE(fields.at(2), torqueStatus);
        QCOMPARE(fields.at(4), angleStatus);
        QCOMPARE(fields.at(6), torqueStatus != "0" ? torqueStatus : angleStatus);
        torqueStatuses.insert(torqueStatus);
        angleStatuses.insert(angleStatus);
    }
    QCOMPARE(torqueStatuses.size(), 3);
    QCOMPARE(angleStatuses.size(), 3);
}

void TestWrench::aboutOneInEightIsBad()
{
    RandomSource random(5);
    const Program program = Program::examples(1).front();
    int bad = 0;
    for (int i = 1; i <= 8000; ++i) {
        bad += tighten(program, i, random).readingStatus() != TighteningStatus::Ok ? 1 : 0;
    }
    QVERIFY2(bad > 850 && bad < 1150, qPrintable(QString::number(bad)));
}

void TestWrench::valuesFollowTheProgram()
{
    WrenchOnABench bench;
    bench.ask("RE:1");
    bench.ask("TR:N");
    QCOMPARE(bench.wrench.demand(100, bench.nowUs), QString());
    bench.pass(100 * c_tighteningUs);
    const QByteArrayList results = bench.wrench.takeResults();
    QCOMPARE(results.size(), 100);
    for (const QByteArray& result : results) {
        const QList<QByteArray> fields = result.mid(5).split(',');
        QVERIFY2(qAbs(fields.at(0).toDouble() - 18.0) < 3.0, result.constData());
        QVERIFY2(qAbs(fields.at(3).toInt() - 105) < 20, result.constData());
    }
}

void TestWrench::unwatchedAngleIsAlwaysGood()
{
    RandomSource random(5);
    QString error;
    const std::optional<Program> program = Program::fromFields("UNT0,ANG0,TRQ12,SNG3,ADT0,NUM1", &error);
    QVERIFY2(program, qPrintable(error));
    for (int i = 1; i <= 500; ++i) {
        QVERIFY(tighten(*program, i, random).angleStatus == TighteningStatus::Ok);
    }
}

void TestWrench::programFieldsAreChecked_data()
{
    QTest::addColumn<QByteArray>("fields");
    QTest::addColumn<QString>("errorNames");
    QTest::newRow("good") << QByteArray("UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1") << QString();
    QTest::newRow("other order, decimals") << QByteArray("TRQ12.5,UNT2,ANG0,SNG3,NUM0,ADT1") << QString();
    QTest::newRow("missing") << QByteArray("UNT0,ANG90,SNG3,ADT0,NUM1") << QStringLiteral("TRQ");
    QTest::newRow("twice") << QByteArray("UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1,NUM1") << QStringLiteral("NUM");
    QTest::newRow("no number") << QByteArray("UNT0,ANGx,TRQ12,SNG3,ADT0,NUM1") << QStringLiteral("ANG");
    QTest::newRow("negative") << QByteArray("UNT0,ANG90,TRQ12,SNG-3,ADT0,NUM1") << QStringLiteral("SNG");
    QTest::newRow("infinite") << QByteArray("UNT0,ANG90,TRQinf,SNG3,ADT0,NUM1") << QStringLiteral("TRQ");
    QTest::newRow("no torque") << QByteArray("UNT0,ANG90,TRQ0,SNG3,ADT0,NUM1") << QStringLiteral("more than 0");
    QTest::newRow("unknown") << QByteArray("UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1,XYZ1") << QStringLiteral("only UNT");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("UNT");
}

void TestWrench::programFieldsAreChecked()
{
    QFETCH(QByteArray, fields);
    QFETCH(QString, errorNames);
    QString error;
    const std::optional<Program> program = Program::fromFields(fields, &error);
    QCOMPARE(program.has_value(), errorNames.isEmpty());
    QVERIFY2(error.contains(errorNames), qPrintable(error));
}

void TestWrench::exampleProgramsDiffer()
{
    QSet<QByteArray> fields;
    QString error;
    for (const Program& program : Program::examples(99)) {
        fields.insert(program.fields);
        const std::optional<Program> read = Program::fromFields(program.fields, &error);
        QVERIFY(read && read->targetTorque == program.targetTorque && read->targetAngleDeg == program.targetAngleDeg);
    }
    QCOMPARE(fields.size(), 99);
}

void TestWrench::programsFileIsRead()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("programs")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("# two\n\nUNT0,ANG90,TRQ12,SNG3,ADT0,NUM1\r\nUNT1,ANG0,TRQ7.5,SNG3,ADT0,NUM1");
    file.close();
    QString error;
    const std::vector<Program> programs = Program::fromFile(file.fileName(), &error);
    QVERIFY2(programs.size() == 2, qPrintable(error));
    QCOMPARE(programs[1].targetTorque, 7.5);
}

void TestWrench::programsFileNamesTheBadLine()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("programs")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1\n\nUNT0\n");
    file.close();
    QString error;
    QVERIFY(Program::fromFile(file.fileName(), &error).empty());
    QVERIFY2(error.contains(QStringLiteral("line 3")), qPrintable(error));
}

void TestWrench::programsFileThatNeverEndsIsRefused()
{
    QString error;
    QVERIFY(Program::fromFile(QStringLiteral("/dev/zero"), &error).empty());
    QVERIFY2(error.contains(QStringLiteral("programs file /dev/zero, line 1")), qPrintable(error));
}

void TestWrench::programsFileOfTooManyProgramsIsRefused()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("programs")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1\n").repeated(10001));
    file.close();
    QString error;
    QVERIFY(Program::fromFile(file.fileName(), &error).empty());
    QVERIFY2(error.contains(QStringLiteral("line 10001")), qPrintable(error));
}

QTEST_GUILESS_MAIN(TestWrench)
#include "tst_wrench.moc"
