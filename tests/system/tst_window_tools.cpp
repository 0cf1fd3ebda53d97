#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include "gui/device_model.h"
#include "gui/doctor_table.h"
#include "gui/window_types.h"
#include "history/shared_history.h"
#include "services/translations.h"
#include "simulator_run.h"
#include "window_scene.h"

namespace {

constexpr char c_page[] = R"(
import QtQuick 2.15
import "pages"
import "widgets"

Rectangle {
    property var workplace: QtObject { property var doctor: doctorTable }

    color: Style.windowColor

    PAGE { anchors.fill: parent; device: theDevice; workplace: parent.workplace }
}
)";
const QString c_programInput = QStringLiteral(
    "maintenance_panel_device_haitor.idColumn.idRowCommandMain.idRowSetProgram.idValueRectangleSetProgram.idValue");

} // namespace

/// Panel, trace and doctor of the window, with a simulated wrench on a terminal behind them.
class TestWindowTools : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    std::unique_ptr<SimulatorRun> m_simulator;
    std::unique_ptr<DeviceModel> m_device;
    std::unique_ptr<DoctorTable> m_doctor;
    std::unique_ptr<WindowScene> m_scene;

    void show(const char* page)
    {
        QByteArray qml = c_page;
        qml.replace("PAGE", page);
        QVERIFY2(m_scene->show(qml, {1280, 800}) != nullptr, qPrintable(m_scene->warnings().join(QLatin1Char('\n'))));
        drawn();
    }
    void drawn() const
    {
        QSignalSpy frame(m_scene->window(), &QQuickWindow::frameSwapped);
        m_scene->window()->update();
        QVERIFY(frame.wait());
    }
    void work() const
    {
        m_device->work(QStringLiteral("2210"));
        QVERIFY2(waitUntil([this] { return m_device->state() == DeviceModel::Working; }),
                 qPrintable(m_device->problemWhat() + m_device->problemCause()));
    }
    QQuickItem* item(const char* name) const { return m_scene->item(QLatin1String(name)); }
    QQuickItem* panelButton(const char* text) const
    {
        const auto items =
            m_scene->item(QStringLiteral("maintenance_panel_device_haitor"))->findChildren<QQuickItem*>();
        for (QQuickItem* each : items) {
            if (each->inherits("QQuickButton") && each->property("text").toString() == QLatin1String(text)) {
                return each;
            }
        }
        return nullptr;
    }
    bool wrenchIs(const char* state) const
    {
        return waitUntil([&] {
            return m_simulator->say(QStringLiteral("wrenches"))
                .contains(QStringLiteral(", %1").arg(QLatin1String(state)));
        });
    }

private Q_SLOTS:
    void initTestCase()
    {
        registerWindowTypes();
        translations::install(QStringLiteral("en"));
    }
    void init()
    {
        m_simulator = std::make_unique<SimulatorRun>();
        QVERIFY2(m_simulator->start({QStringLiteral("--programs"), QStringLiteral("3")}),
                 m_simulator->report().constData());
        Settings settings;
        settings.port = m_simulator->port();
        settings.serialId = QStringLiteral("2210");
        settings.pluginFolder = QStringLiteral(PLUGINS);
        settings.dataFolder = m_folder.path();
        settings.language = QStringLiteral("en");
        m_device = std::make_unique<DeviceModel>(settings, std::make_shared<SharedHistory>(m_folder.path()));
        m_doctor = std::make_unique<DoctorTable>([settings] { return settings; });
        m_scene = std::make_unique<WindowScene>();
        m_scene->engine()->rootContext()->setContextProperty(QStringLiteral("theDevice"), m_device.get());
        m_scene->engine()->rootContext()->setContextProperty(QStringLiteral("doctorTable"), m_doctor.get());
    }
    void cleanup()
    {
        const QStringList warnings = m_scene->warnings();
        m_scene.reset();
        m_doctor.reset();
        m_device.reset();
        m_simulator.reset();
        QCOMPARE(warnings, QStringList());
    }

    void panelLocksTheWrenchAndSelectsAProgram()
    {
        show("PanelPage");
        work();
        QTRY_VERIFY_WITH_TIMEOUT(item("maintenance_panel_device_haitor") != nullptr, c_patienceMs);
        drawn();
        QVERIFY(item("maintenance_panel_device_haitor")->property("connected").toBool());
        m_scene->click(panelButton("Lock"));
        QVERIFY(wrenchIs("locked"));
        m_scene->tap(panelButton("Unlock"));
        QVERIFY(wrenchIs("unlocked"));
        QVERIFY(m_scene->tabTo(c_programInput));
        m_scene->press(Qt::Key_2);
        m_scene->press(Qt::Key_Tab);
        m_scene->press(Qt::Key_Space);
        QVERIFY(wrenchIs("reporting, program 2 of 3"));
    }

    void traceShowsTheTalkAndIsPlayedBack()
    {
        show("TracePage");
        work();
        TraceTable* trace = m_device->trace();
        QVERIFY(waitUntil([&] { return trace->kept() > 10; }));
        m_simulator->say(QStringLiteral("tighten"));
        trace->setFilterText(QStringLiteral("RE:F:"));
        QTRY_COMPARE_WITH_TIMEOUT(trace->shown(), 1, c_patienceMs);
        QCOMPARE(trace->index(0).data(TraceTable::Direction).toString(), QStringLiteral("arrived"));
        m_scene->click(item("trace.idSave"));
        const QString file = trace->savedFile();
        QVERIFY(!file.isEmpty());
        ProgramRun replay;
        QVERIFY(replay.start(QStringLiteral(WRENCH_SIMULATOR), {QStringLiteral("--replay"), file}));
        QVERIFY2(replay.waitForOutput(QStringLiteral("ready ")), replay.report().constData());
    }

    void doctorFindsNothingWrongOnceTheLineIsFreed()
    {
        show("DoctorPage");
        work();
        drawn();
        QVERIFY(!item("doctor.idStart")->isEnabled());
        m_scene->click(item("doctor.idRelease"));
        QVERIFY(waitUntil([this] { return m_device->state() == DeviceModel::Idle; }));
        drawn();
        QSignalSpy ended(m_doctor.get(), &DoctorTable::sigEnded);
        m_scene->click(item("doctor.idStart"));
        QVERIFY(m_doctor->isRunning());
        QVERIFY(ended.wait(c_patienceMs));
        QVERIFY2(m_doctor->isGood(), qPrintable(m_doctor->resultText()));
        QVERIFY(item("doctor.idResult")->isVisible());
    }

    void doctorStoppedInTheMiddleLeavesTheLineFree()
    {
        show("DoctorPage");
        QSignalSpy ended(m_doctor.get(), &DoctorTable::sigEnded);
        m_scene->click(item("doctor.idStart"));
        QVERIFY(waitUntil(
            [this] { return m_doctor->index(3).data(DoctorTable::Outcome).toString() == QLatin1String("passed"); }));
        drawn();
        m_scene->click(item("doctor.idBusy.idStop"));
        QVERIFY(ended.wait(c_patienceMs));
        QVERIFY(!m_doctor->isRunning());
        QVERIFY(m_doctor->resultText().startsWith(QStringLiteral("Stopped: ")));
        work(); // the port is free
    }

    void doctorFreesALineThatThePanelHasOpened()
    {
        work();
        m_device->stop();
        QVERIFY(waitUntil([this] { return m_device->state() == DeviceModel::Idle; }));
        show("PanelPage");
        QTRY_VERIFY_WITH_TIMEOUT(item("maintenance_panel_device_haitor") != nullptr, c_patienceMs);
        drawn();
        m_scene->click(panelButton("Lock"));
        QTRY_VERIFY_WITH_TIMEOUT(item("maintenance_panel_device_haitor")->property("connected").toBool(), c_patienceMs);
        show("DoctorPage");
        QTRY_VERIFY_WITH_TIMEOUT(item("doctor.idStart")->isEnabled(), c_patienceMs);
        drawn();
        m_scene->click(item("doctor.idStart"));
        const QModelIndex port = m_doctor->index(1);
        QVERIFY(waitUntil([&] { return port.data(DoctorTable::Finding).toString() != QString(); }));
        QVERIFY2(port.data(DoctorTable::Outcome).toString() == QLatin1String("passed"),
                 qPrintable(port.data(DoctorTable::Cause).toString()));
        QSignalSpy ended(m_doctor.get(), &DoctorTable::sigEnded);
        m_doctor->stop();
        QVERIFY(ended.wait(c_patienceMs));
    }
};

int main(int argc, char* argv[])
{
    WindowScene::prepare();
    QGuiApplication application(argc, argv);
    TestWindowTools test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_window_tools.moc"
