#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "gui/doctor_table.h"
#include "gui/trace_table.h"
#include "services/translations.h"
#include "window_scene.h"
#include "workbench.h"

namespace {

const QString c_entry = QStringLiteral("entry");

constexpr char c_page[] = R"(
import QtQuick 2.15
import "pages"
import "widgets"

Rectangle {
    property var device: QtObject {
        property string name: "Wrench 2210"
        property int state: 0
        property string stateText: "ready: results are taken"
        property var trace: traceTable
        property int stops: 0
        function stop() { ++stops; state = 5 }
        function freeLine() {}
    }
    property var workplace: QtObject { property var doctor: doctorTable }

    color: Style.windowColor

    PAGE { anchors.fill: parent; device: parent.device; workplace: parent.workplace }
}
)";

} // namespace

/// The pages of the trace and of the doctor, worked as a person works them; behind them the models of the window, a
/// driver that tells the trace that the test says, and a workplace without plugins.
class TestToolPages : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    std::unique_ptr<Workbench> m_bench;
    ScriptedCommand* m_running = nullptr;
    std::unique_ptr<TraceTable> m_trace;
    std::unique_ptr<DoctorTable> m_doctor;
    std::unique_ptr<WindowScene> m_scene;
    QQuickItem* m_root = nullptr;

    void show(const char* page, const QSize& size = {1280, 800}, const QString& theme = QStringLiteral("light"))
    {
        QByteArray qml = c_page;
        qml.replace("PAGE", page);
        m_root = m_scene->show(qml, size, theme);
        QVERIFY2(m_root != nullptr, qPrintable(m_scene->warnings().join(QLatin1Char('\n'))));
        Workbench::settle();
        drawn();
    }
    void tell(int count, int from = 0) const
    {
        const QSignalSpy told(m_trace.get(), &TraceTable::countsChanged);
        for (int i = from; i < from + count; ++i) {
            m_running->commandUpdateResults(
                {{c_entry,
                  QStringLiteral("%1.000000 %2 frame %1\\r\\n").arg(i).arg(QLatin1String(i % 2 ? "<" : ">"))}});
        }
        QVERIFY(QTest::qWaitFor([&] { return !told.isEmpty() && m_trace->kept() == from + count; }));
        drawn();
    }
    int rows() const { return item("trace.idList.idRows")->property("count").toInt(); }
    /// Rows and columns have put their items where they belong.
    void drawn() const
    {
        QSignalSpy frame(m_scene->window(), &QQuickWindow::frameSwapped);
        m_scene->window()->update();
        QVERIFY(frame.wait());
    }
    QObject* device() const { return m_root->property("device").value<QObject*>(); }
    QQuickItem* item(const char* name) const { return m_scene->item(QLatin1String(name)); }
    QString text(const char* name) const { return item(name)->property("text").toString(); }
    QStringList outcomes() const
    {
        QStringList list;
        for (int row = 0; row < m_doctor->rowCount(); ++row) {
            list.append(m_doctor->index(row).data(DoctorTable::Outcome).toString());
        }
        return list;
    }

private Q_SLOTS:
    void init()
    {
        translations::install(QStringLiteral("en"));
        m_running = nullptr;
        m_bench = std::make_unique<Workbench>();
        const ScriptPointer listenTrace =
            m_bench->driverRoot.addCommand(QStringLiteral("listenTrace"), QStringLiteral("stopListeningTrace"));
        listenTrace->execute = [this](ScriptedCommand& command) {
            m_running = &command;
            return command.commandUpdateResults(
                {{c_entry, QStringLiteral("# serial trace 1, /dev/fake, 2026-11-21T07:28:00.125")}});
        };
        m_bench->set();
        m_trace = std::make_unique<TraceTable>(m_folder.filePath(QStringLiteral("traces")));
        m_trace->setLine(m_bench->host.get(), m_bench->driver);
        m_doctor = std::make_unique<DoctorTable>([this] {
            Settings settings;
            settings.port = QStringLiteral("/dev/no-port");
            settings.pluginFolder = m_folder.filePath(QStringLiteral("no-plugins"));
            settings.dataFolder = m_folder.path();
            settings.language = QStringLiteral("en");
            return settings;
        });
        m_scene = std::make_unique<WindowScene>();
        m_scene->engine()->rootContext()->setContextProperty(QStringLiteral("traceTable"), m_trace.get());
        m_scene->engine()->rootContext()->setContextProperty(QStringLiteral("doctorTable"), m_doctor.get());
    }
    void cleanup()
    {
        const QStringList warnings = m_scene->warnings();
        m_scene.reset();
        m_doctor.reset();
        m_trace.reset();
        m_bench.reset();
        Workbench::settle();
        QCOMPARE(warnings, QStringList());
    }

    void eachControlIsReachedNamedAndHit_data()
    {
        QTest::addColumn<QByteArray>("page");
        QTest::addColumn<QSize>("size");
        for (const char* page : {"TracePage", "DoctorPage"}) {
            QTest::addRow("%s small", page) << QByteArray(page) << QSize(1024, 600);
            QTest::addRow("%s large", page) << QByteArray(page) << QSize(3840, 2160);
        }
    }
    void eachControlIsReachedNamedAndHit()
    {
        constexpr double c_touchTarget = 44; // pixels at 96 to the inch
        QFETCH(QByteArray, page);
        QFETCH(QSize, size);
        show(page.constData(), size);
        if (m_running != nullptr) {
            tell(3);
        }
        const QList<QQuickItem*> order = m_scene->tabOrder();
        const QList<QQuickItem*> items = m_scene->operableItems();
        QVERIFY(items.size() >= 3);
        for (QQuickItem* each : items) {
            QVERIFY2(order.contains(each), qPrintable(each->objectName()));
            QVERIFY2(each->height() >= c_touchTarget && each->width() >= c_touchTarget, qPrintable(each->objectName()));
            const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(each);
            QVERIFY2(spoken != nullptr && !spoken->text(QAccessible::Name).isEmpty(), qPrintable(each->objectName()));
            const QRectF place = each->mapRectToScene({0, 0, each->width(), each->height()});
            QVERIFY2(QRectF(QPointF(), size).contains(place), qPrintable(each->objectName()));
        }
    }

    // ---- Trace

    void lineIsHeardOnceThePageIsShown()
    {
        QVERIFY(!m_trace->isOn());
        show("TracePage");
        QVERIFY(m_trace->isHearing());
    }

    void newestStaysInSight()
    {
        show("TracePage");
        tell(200);
        const QQuickItem* list = item("trace.idList.idRows");
        QTRY_VERIFY(list->property("atYEnd").toBool());
        tell(50, 200);
        QTRY_VERIFY(list->property("atYEnd").toBool());
    }

    void whoGoesBackStaysThereUntilTheNewestIsAskedFor()
    {
        show("TracePage");
        tell(200);
        QVERIFY(m_scene->tabTo(QStringLiteral("trace.idList.idRows")));
        m_scene->press(Qt::Key_Home);
        const QQuickItem* list = item("trace.idList.idRows");
        const QQuickItem* newest = item("trace.idList.idNewest");
        QCOMPARE(list->property("currentIndex").toInt(), 0);
        QTRY_VERIFY(list->property("atYBeginning").toBool());
        QVERIFY(newest->isVisible());
        tell(10, 200);
        QVERIFY(list->property("atYBeginning").toBool());
        m_scene->tap(newest);
        QTRY_VERIFY(list->property("atYEnd").toBool());
        QVERIFY(!newest->isVisible());
    }

    void pauseByMouseFingerAndKeys()
    {
        show("TracePage");
        tell(2);
        const QQuickItem* pause = item("trace.idPause");
        m_scene->click(pause);
        QVERIFY(m_trace->isPaused());
        tell(5, 2);
        QCOMPARE(rows(), 2);
        QCOMPARE(text("trace.idCounts"), QStringLiteral("2 of 7 entries, 5 wait"));
        m_scene->tap(pause);
        QVERIFY(!m_trace->isPaused());
        QCOMPARE(rows(), 7);
        QCOMPARE(text("trace.idCounts"), QStringLiteral("7 of 7 entries"));
        QVERIFY(m_scene->tabTo(QStringLiteral("trace.idPause")));
        m_scene->press(Qt::Key_Space);
        QVERIFY(m_trace->isPaused());
    }

    void filterByDirectionAndText()
    {
        show("TracePage");
        tell(20);
        m_scene->click(item("trace.idSent"));
        QCOMPARE(rows(), 10);
        QVERIFY(m_scene->tabTo(QStringLiteral("trace.idFilter")));
        m_scene->press(Qt::Key_1);
        m_scene->press(Qt::Key_9);
        QCOMPARE(rows(), 1);
        m_scene->press(Qt::Key_Backspace);
        m_scene->press(Qt::Key_Backspace);
        m_scene->click(item("trace.idSent"));
        QCOMPARE(rows(), 20);
    }

    void savedUnderANameOrByTheTime()
    {
        show("TracePage");
        tell(3);
        m_scene->click(item("trace.idSave"));
        QVERIFY2(m_trace->savedFile().startsWith(m_folder.filePath(QStringLiteral("traces/trace-"))),
                 qPrintable(m_trace->savedFile() + m_trace->problemWhat() + m_trace->problemCause()));
        QVERIFY(item("trace.idSaved")->isVisible());
        QVERIFY(m_scene->tabTo(QStringLiteral("trace.idFile")));
        m_scene->press(Qt::Key_A);
        m_scene->press(Qt::Key_Return);
        QCOMPARE(m_trace->savedFile(), m_folder.filePath(QStringLiteral("traces/a")));
        QCOMPARE(text("trace.idFile"), QString());
    }

    void whatCannotBeSavedIsToldAndCanBeClosed()
    {
        show("TracePage");
        tell(3);
        item("trace.idFile")->setProperty("text", QStringLiteral("/proc/no/such"));
        m_scene->click(item("trace.idSave"));
        const QQuickItem* problem = item("trace.idProblem");
        QVERIFY(problem->isVisible());
        QVERIFY(!problem->property("mend").toString().isEmpty());
        m_scene->click(item("trace.idProblem.idClose"));
        QVERIFY(!problem->isVisible());
    }

    void clearedByOneTouch()
    {
        show("TracePage");
        tell(3);
        m_scene->tap(item("trace.idClear"));
        QCOMPARE(rows(), 0);
    }

    // ---- Doctor

    void stagesAreThereBeforeItBegins()
    {
        const QAbstractItemModelTester tester(m_doctor.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        show("DoctorPage");
        QCOMPARE(outcomes().size(), 9);
        QCOMPARE(outcomes().count(QStringLiteral("waiting")), 9);
        QCOMPARE(m_doctor->index(2).data(DoctorTable::Name).toString(), QStringLiteral("line"));
        QVERIFY(m_doctor->index(2).data(DoctorTable::Sends).toString().contains(QStringLiteral("ATS")));
    }

    void whatFailsIsToldWithCauseAndMendAndTheRestIsSkipped()
    {
        const QAbstractItemModelTester tester(m_doctor.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        show("DoctorPage");
        const QSignalSpy ended(m_doctor.get(), &DoctorTable::sigEnded);
        m_scene->click(item("doctor.idStart"));
        QTRY_COMPARE(ended.size(), 1);
        QCOMPARE(outcomes().constFirst(), QStringLiteral("failed"));
        QCOMPARE(outcomes().count(QStringLiteral("skipped")), 8);
        const QModelIndex failed = m_doctor->index(0);
        QVERIFY(failed.data(DoctorTable::Cause).toString().contains(QStringLiteral("no-plugins")));
        QVERIFY2(!failed.data(DoctorTable::Mend).toString().isEmpty(),
                 qPrintable(failed.data(DoctorTable::Mend).toString()));
        QVERIFY(m_doctor->hasResult());
        QVERIFY(!m_doctor->isGood());
        QVERIFY(text("doctor.idResult").startsWith(QStringLiteral("Something is wrong: 0 passed, 1 failed")));
        m_scene->click(item("doctor.idStart")); // and again
        QTRY_COMPARE(ended.size(), 2);
    }

    void lineInUseIsToldAndCanBeFreed()
    {
        show("DoctorPage");
        device()->setProperty("state", 3);
        QVERIFY(!item("doctor.idStart")->isEnabled());
        const QQuickItem* release = item("doctor.idRelease");
        QVERIFY(release->isVisible());
        drawn();
        m_scene->tap(release);
        QCOMPARE(device()->property("stops").toInt(), 1);
        QVERIFY(!release->isEnabled()); // it is ending
        device()->setProperty("state", 0);
        QVERIFY(!release->isVisible());
        QVERIFY(item("doctor.idStart")->isEnabled());
    }

    void textsFollowTheLanguage()
    {
        show("DoctorPage");
        translations::install(QStringLiteral("de"));
        m_scene->engine()->retranslate();
        QCOMPARE(m_doctor->index(2).data(DoctorTable::Name).toString(), QStringLiteral("Leitung"));
        QCOMPARE(m_doctor->index(2).data(DoctorTable::OutcomeText).toString(), QStringLiteral("offen"));
        QCOMPARE(text("doctor.idStart"), QStringLiteral("Untersuchen"));
    }
};

int main(int argc, char* argv[])
{
    WindowScene::prepare();
    QGuiApplication application(argc, argv);
    TestToolPages test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_tool_pages.moc"
