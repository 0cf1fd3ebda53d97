#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include "doctor_run.h"
#include "processes.h"
#include "scripted_line.h"
#include "simulator_run.h"

namespace {

constexpr int c_setUpProblem = 3;
const QString c_nobody = QStringLiteral("65534");
const QString c_withoutGroups = QStringLiteral("--clear-groups");

/// Copies the file into the folder, under its own name.
bool copyInto(const QTemporaryDir& folder, const QString& file)
{
    return QFile::copy(file, folder.filePath(QFileInfo(file).fileName()));
}

bool writeFile(const QString& path, const QByteArray& text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

} // namespace

/// Plugins, configuration, port and line, each broken for real.
class TestDoctorSetUp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesWhatIsWrongWithTheFolderOfPlugins_data();
    void namesWhatIsWrongWithTheFolderOfPlugins();
    void tellsOfAPluginThatIsRefusedBesideGoodOnes();
    void namesADamagedStoredState();
    void namesWhatIsWrongWithTheConfiguration_data();
    void namesWhatIsWrongWithTheConfiguration();
    void namesWhatIsNoPort_data();
    void namesWhatIsNoPort();
    void namesWhatThePortDoesNotHave();
    void namesWhatHelpsWhenThePortIsNotPermitted_data();
    void namesWhatHelpsWhenThePortIsNotPermitted();
    void namesTheProgramThatHoldsThePort();
    void saysWhenOnlyRootCanSeeWhoHoldsThePort();
    void namesTheSpeedOfTheDongle_data();
    void namesTheSpeedOfTheDongle();
    void namesASilentLine();
    void namesALineOfGarbage();

private:
    /// Runs the doctor as an ordinary user with this primary group. False: it did not run; the reason is in m_whyNot.
    bool runAsNobody(ProgramRun& run, const QString& port, const QString& group);

    QString m_whyNot;
};

namespace {

void verifySetUp(const DoctorRun& doctor, const char* stage, const QString& what, const QString& cause,
                 const QString& mend)
{
    const DoctorRun::Complaint complaint = doctor.complaint();
    QVERIFY2(complaint.stage == QLatin1String(stage) && complaint.what == what, doctor.report());
    QVERIFY2(complaint.cause.contains(cause) && complaint.mend.contains(mend), doctor.report());
    QCOMPARE(complaint.exitStatus, c_setUpProblem);
    QVERIFY2(doctor.disorder().isEmpty(), doctor.disorder().toUtf8() + doctor.report());
}

} // namespace

void TestDoctorSetUp::namesWhatIsWrongWithTheFolderOfPlugins_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("cause");
    QTest::addColumn<QString>("mend");
    const QString noDriver = QStringLiteral("there is no driver plugin");
    QTest::newRow("empty") << QStringList() << noDriver << "it holds no library (*.so)"
                           << "build or install the plugins";
    QTest::newRow("no plugin at all") << QStringList{QStringLiteral(PLAIN_LIBRARY)} << noDriver << "it is no Qt plugin"
                                      << "put only plugin libraries for this machine into the folder";
    QTest::newRow("a plugin of another host")
        << QStringList{QStringLiteral(OTHER_HOST_PLUGIN)} << noDriver
        << "its interface id \"workplace.test.SomethingElse\" is not one of this host's"
        << "use a plugin made for this host";
    QTest::newRow("built against other libraries")
        << QStringList{QStringLiteral(UNRESOLVED_PLUGIN)} << noDriver << "undefined symbol"
        << "build it against this machine's Qt";
    QTest::newRow("the driver alone") << QStringList{QStringLiteral(PLUGINS "/p_driver_serial.so")}
                                      << "there is no device plugin"
                                      << "none could be loaded from "
                                      << "name the folder of the plugins with --plugins";
}

void TestDoctorSetUp::namesWhatIsWrongWithTheFolderOfPlugins()
{
    QFETCH(QStringList, files);
    QFETCH(QString, what);
    QFETCH(QString, cause);
    QFETCH(QString, mend);
    const QTemporaryDir folder;
    for (const QString& file : qAsConst(files)) {
        QVERIFY(copyInto(folder, file));
    }
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(QStringLiteral("simulated"), {QStringLiteral("--plugins"), folder.path()}));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    verifySetUp(doctor, "plugins", what, cause, mend);
}

void TestDoctorSetUp::tellsOfAPluginThatIsRefusedBesideGoodOnes()
{
    const QTemporaryDir folder;
    for (const char* file : {PLUGINS "/p_driver_serial.so", PLUGINS "/p_device_haitor.so", PLAIN_LIBRARY}) {
        QVERIFY(copyInto(folder, QLatin1String(file)));
    }
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(QStringLiteral("simulated"), {QStringLiteral("--plugins"), folder.path()}));
    QVERIFY2(doctor.waitForNotice(QStringLiteral("plugins"), QStringLiteral("is not used: it is no Qt plugin")),
             doctor.report());
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    QCOMPARE(doctor.exitStatus(), 0);
}

void TestDoctorSetUp::namesADamagedStoredState()
{
    const QTemporaryDir store;
    QVERIFY(QDir(store.path()).mkpath(QStringLiteral("devices")));
    QVERIFY(writeFile(store.filePath(QStringLiteral("devices/2210.json")), "{ half"));
    DoctorRun doctor;
    doctor.keepStoreIn(store.path());
    QVERIFY(doctor.startDoctor(QStringLiteral("/dev/null")));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    verifySetUp(doctor, "plugins",
                QStringLiteral("the device's stored state %1 is not used")
                    .arg(store.filePath(QStringLiteral("devices/2210.json"))),
                {}, QStringLiteral("move it away, or name another folder with --data"));
}

void TestDoctorSetUp::namesWhatIsWrongWithTheConfiguration_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("cause");
    QTest::newRow("no JSON") << QByteArray("{\n  \"port\": /dev/ttyUSB0\n}\n") << "line 2";
    QTest::newRow("an unknown key") << QByteArray("{\n  \"prot\": \"/dev/ttyUSB0\"\n}\n") << "\"prot\"";
    QTest::newRow("a driver that is no object") << QByteArray("{\"driver\": 9600}\n") << "\"driver\"";
}

void TestDoctorSetUp::namesWhatIsWrongWithTheConfiguration()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, cause);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("configuration.json"));
    QVERIFY(writeFile(file, text));
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(QStringLiteral("/dev/null"), {QStringLiteral("--config"), file}));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    const DoctorRun::Complaint complaint = doctor.complaint();
    QCOMPARE(complaint.stage, QStringLiteral("configuration"));
    QVERIFY2((complaint.what + complaint.cause).contains(cause) && complaint.what.contains(file), doctor.report());
    QVERIFY2(!complaint.mend.isEmpty(), doctor.report());
    QCOMPARE(complaint.exitStatus, c_setUpProblem);
}

void TestDoctorSetUp::namesWhatIsNoPort_data()
{
    QTest::addColumn<QString>("port");
    QTest::addColumn<QString>("cause");
    QTest::newRow("missing") << "/dev/no-such-port"
                             << "does not exist";
    QTest::newRow("a folder") << "/dev"
                              << "is no serial port";
    QTest::newRow("no terminal") << "/dev/null"
                                 << "is no serial port";
    QTest::newRow("a file") << QStringLiteral(TRACES "/typical_run.txt") << "is no serial port";
}

void TestDoctorSetUp::namesWhatIsNoPort()
{
    QFETCH(QString, port);
    QFETCH(QString, cause);
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(port));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    verifySetUp(doctor, "port", QStringLiteral("the port cannot be used"), cause, {});
    QVERIFY2(doctor.complaint().cause.contains(port), doctor.report());
}

void TestDoctorSetUp::namesWhatThePortDoesNotHave()
{
    const ScriptedLine line(ScriptedLine::goodAnswers());
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("configuration.json"));
    QVERIFY(writeFile(file, "{\"driver\": {\"parity\": \"even\"}}"));
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(line.port(), {QStringLiteral("--config"), file}));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    verifySetUp(doctor, "port", QStringLiteral("the port cannot be used"),
                QStringLiteral("does not support the configured \"parity\""), {});
}

bool TestDoctorSetUp::runAsNobody(ProgramRun& run, const QString& port, const QString& group)
{
    if (::geteuid() != 0) {
        m_whyNot = QStringLiteral("only root can become another user");
        return false;
    }
    const QStringList asNobody{QStringLiteral("--reuid"), c_nobody, QStringLiteral("--regid"), group, c_withoutGroups};
    ProgramRun probe;
    if (!probe.start(QStringLiteral("setpriv"), asNobody + QStringList{QStringLiteral("test"), QStringLiteral("-x"),
                                                                       QStringLiteral(APP_WORKPLACE)}) ||
        !probe.waitForEnd() || probe.exitStatus() != 0) {
        m_whyNot = QStringLiteral("an ordinary user may not run the built program in this folder");
        return false;
    }
    return run.start(QStringLiteral("setpriv"),
                     asNobody + QStringList{QStringLiteral(APP_WORKPLACE)} + DoctorRun::arguments(port)) &&
           run.waitForEnd();
}

void TestDoctorSetUp::namesWhatHelpsWhenThePortIsNotPermitted_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<int>("rights");
    QTest::addColumn<QString>("mend");
    QTest::newRow("the usual group") << "dialout" << 0660
                                     << "run \\\"sudo usermod -aG dialout $USER\\\" and log in again";
    QTest::newRow("another group") << "plugdev" << 0660
                                   << "run \\\"sudo usermod -aG plugdev $USER\\\" and log in again";
    QTest::newRow("a group without rights") << "dialout" << 0600 << "run \\\"sudo chown $USER ";
    QTest::newRow("a group since the last log-in") << "nogroup" << 0660 << "the group nogroup after logging in";
}

void TestDoctorSetUp::namesWhatHelpsWhenThePortIsNotPermitted()
{
    QFETCH(QString, group);
    QFETCH(int, rights);
    QFETCH(QString, mend);
    const ScriptedLine line(ScriptedLine::goodAnswers());
    const QByteArray path = QFile::encodeName(line.port());
    const struct group* entry = ::getgrnam(group.toLocal8Bit().constData());
    if (::geteuid() == 0 && entry != nullptr) {
        QCOMPARE(::chown(path.constData(), 0, entry->gr_gid), 0);
        QCOMPARE(::chmod(path.constData(), mode_t(rights)), 0);
    }
    // Of no group that a user has been given.
    ProgramRun doctor;
    if (!runAsNobody(doctor, line.port(), QStringLiteral("65533"))) {
        QSKIP(qPrintable(m_whyNot));
    }
    QCOMPARE(doctor.exitStatus(), c_setUpProblem);
    QVERIFY2(doctor.output().contains(mend), doctor.report());
}

void TestDoctorSetUp::namesTheProgramThatHoldsThePort()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(), simulator.report());
    const HeldPort held(simulator.port());
    QVERIFY(held.isHeld());
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(simulator.port()));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    verifySetUp(doctor, "port", QStringLiteral("the port cannot be used"),
                QStringLiteral("Another program holds the port %1: ").arg(simulator.port()), {});
    // The simulator holds its own end, too.
    const QString cause = doctor.complaint().cause;
    QVERIFY2(cause.contains(QStringLiteral(": %1 tst_doctor_set").arg(held.holder())) ||
                 cause.contains(QStringLiteral(": %1 wrench_simulat").arg(simulator.pid())),
             doctor.report());
}

void TestDoctorSetUp::saysWhenOnlyRootCanSeeWhoHoldsThePort()
{
    SimulatorRun simulator;
    QVERIFY2(simulator.start(), simulator.report());
    const QString terminal = QFile::symLinkTarget(simulator.port());
    QFile::setPermissions(terminal, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther | QFile::WriteOther);
    const HeldPort held(simulator.port());
    QVERIFY(held.isHeld());
    ProgramRun doctor;
    if (!runAsNobody(doctor, terminal, c_nobody)) {
        QSKIP(qPrintable(m_whyNot));
    }
    QCOMPARE(doctor.exitStatus(), c_setUpProblem);
    QVERIFY2(doctor.output().contains(QStringLiteral("run \\\"sudo lsof %1\\\" to learn which").arg(terminal)),
             doctor.report());
}

void TestDoctorSetUp::namesTheSpeedOfTheDongle_data()
{
    QTest::addColumn<QString>("speed");
    QTest::addColumn<QByteArray>("configuration");
    QTest::newRow("57600 instead of the default") << "57600" << QByteArray("{}");
    QTest::newRow("9600 instead of the default") << "9600" << QByteArray("{}");
    QTest::newRow("the default instead of 9600") << "115200" << QByteArray("{\"driver\": {\"baudRate\": 9600}}");
}

void TestDoctorSetUp::namesTheSpeedOfTheDongle()
{
    QFETCH(QString, speed);
    QFETCH(QByteArray, configuration);
    SimulatorRun simulator;
    QVERIFY2(simulator.start({QStringLiteral("--baud"), speed}), simulator.report());
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("configuration.json"));
    QVERIFY(writeFile(file, configuration));
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(simulator.port(),
                               {QStringLiteral("--config"), file, QStringLiteral("--limit"), QStringLiteral("1")}));
    QVERIFY2(doctor.waitForNotice(QStringLiteral("line"), QStringLiteral("tries other speeds: 9600, ")),
             doctor.report());
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    verifySetUp(
        doctor, "line", QStringLiteral("the dongle answers at another speed: ") + speed,
        QStringLiteral("it said \"ERR:3\""),
        QStringLiteral("set \"baudRate\" in the configuration file: \"driver\": {\"baudRate\": %1}").arg(speed));

    // And that is the mend.
    QVERIFY(writeFile(file, QByteArray("{\"driver\": {\"baudRate\": ") + speed.toLatin1() + "}}"));
    DoctorRun again;
    QVERIFY(again.startDoctor(simulator.port(), {QStringLiteral("--config"), file}));
    QVERIFY2(again.waitForEnd(), again.report());
    QCOMPARE(again.exitStatus(), 0);
}

void TestDoctorSetUp::namesASilentLine()
{
    const ScriptedLine line({});
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(line.port(), {QStringLiteral("--limit"), QStringLiteral("0.3")}));
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    verifySetUp(doctor, "line", QStringLiteral("nothing answers on the port"), QStringLiteral("nothing came back"),
                QStringLiteral("check the dongle's power and cable"));
    QVERIFY2(line.frames().size() > 5, doctor.report()); // it was tried at each speed
}

void TestDoctorSetUp::namesALineOfGarbage()
{
    const ScriptedLine line({{"", "\xfe\x80\xf1"}});
    DoctorRun doctor;
    QVERIFY(doctor.startDoctor(line.port(), {QStringLiteral("--limit"), QStringLiteral("2")}));
    QVERIFY2(doctor.waitForNotice(QStringLiteral("line"), QStringLiteral("what comes back is no text; tries other")),
             doctor.report());
    QVERIFY2(doctor.waitForEnd(), doctor.report());
    verifySetUp(doctor, "line", QStringLiteral("what comes back is no text, at none of the common speeds"), {},
                QStringLiteral("\"parity\""));
}

QTEST_GUILESS_MAIN(TestDoctorSetUp)

#include "tst_doctor_set_up.moc"
