#include <QGuiApplication>
#include <QTest>

#include "simulator_run.h"
#include "window_bench.h"

using Hand = WindowBench::Hand;
Q_DECLARE_METATYPE(WindowBench::Hand)

/// The day's work in the whole window, on a simulator's port.
class TestWindowWork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theDaysWork_data()
    {
        QTest::addColumn<Hand>("hand");
        QTest::addColumn<QSize>("size");
        QTest::newRow("by mouse") << Hand::Mouse << QSize(1280, 800);
        QTest::newRow("by finger") << Hand::Finger << QSize(1024, 600);
        QTest::newRow("by keys alone") << Hand::Keys << QSize(1280, 800);
    }
    void theDaysWork()
    {
        QFETCH(Hand, hand);
        QFETCH(QSize, size);
        SimulatorRun simulator;
        QVERIFY(simulator.start());
        WindowBench bench(simulator.port(), size);
        QVERIFY(bench.isShown());
        DeviceModel& device = bench.device();

        QVERIFY(bench.press(hand, QStringLiteral("connect.idScan")));
        QVERIFY(bench.press(hand, QStringLiteral("connect.idWrench.2210")));
        QCOMPARE(bench.model().page(), QStringLiteral("work"));
        QTRY_COMPARE_WITH_TIMEOUT(device.state(), DeviceModel::Working, c_patienceMs);

        QVERIFY(bench.press(hand, QStringLiteral("work.idPrograms.2")));
        QTRY_COMPARE_WITH_TIMEOUT(device.program(), 2, c_patienceMs);
        QTRY_VERIFY_WITH_TIMEOUT(device.busyText().isEmpty(), c_patienceMs);

        QVERIFY(simulator.say(QStringLiteral("tighten")).startsWith(QLatin1String("ok")));
        QTRY_COMPARE_WITH_TIMEOUT(device.good() + device.notGood(), 1, c_patienceMs);
        QCOMPARE(bench.scene().item(QStringLiteral("work.idTorque"))->property("text"),
                 device.result().value(QStringLiteral("torqueText")));

        QVERIFY(bench.press(hand, QStringLiteral("work.idLock.idLock")));
        QTRY_VERIFY_WITH_TIMEOUT(device.isLocked(), c_patienceMs);
        QTRY_VERIFY_WITH_TIMEOUT(device.busyText().isEmpty(), c_patienceMs);
        const QStringList beforeUnlock = bench.trace().sent();
        QVERIFY(bench.press(hand, QStringLiteral("work.idLock.idUnlock")));
        QTRY_VERIFY_WITH_TIMEOUT(!device.isLocked(), c_patienceMs);
        QTRY_VERIFY_WITH_TIMEOUT(device.busyText().isEmpty(), c_patienceMs);

        QVERIFY(bench.press(hand, QStringLiteral("work.idLink.idStop")));
        QTRY_COMPARE_WITH_TIMEOUT(device.state(), DeviceModel::Idle, c_patienceMs);
        QVERIFY(!device.hasProblem());
        QVERIFY(bench.close());
        QCOMPARE(bench.warnings(), QStringList());

        // What the simulator was told, and that it took it: each of these frames has its answer.
        const QStringList sent = bench.trace().sent();
        QCOMPARE(sent.first(), QStringLiteral("ATS"));
        QCOMPARE(sent.last(), QStringLiteral("ATH"));
        QCOMPARE(beforeUnlock.last(), QStringLiteral("DT:1"));
        QCOMPARE(sent.at(beforeUnlock.size()), QStringLiteral("DT:0"));
        QVERIFY(sent.contains(QStringLiteral("TR:N"))); // the way to the second program
        QVERIFY(bench.trace().arrived().contains(QStringLiteral("OK:0")));
    }

    void textsChangeWhileItRuns()
    {
        WindowBench bench(QStringLiteral("/nowhere"));
        QVERIFY(bench.isShown());
        const auto text = [&] {
            return bench.scene().item(QStringLiteral("connect.idScan"))->property("text").toString();
        };
        const QString english = text();
        bench.model().setLanguage(QStringLiteral("de"));
        const QString german = text();
        bench.model().setLanguage(QStringLiteral("fr"));
        QVERIFY(german != english && text() != german && text() != english);
        bench.model().setLanguage(QStringLiteral("en"));
        QCOMPARE(text(), english);
        QVERIFY(bench.window()->title().contains(QStringLiteral("Connect")));
    }

    void eachPageIsShown()
    {
        WindowBench bench(QStringLiteral("/nowhere"));
        QVERIFY(bench.isShown());
        const QStringList pages = WindowBench::pages();
        QCOMPARE(pages, WindowModel::pages());
        for (const QString& page : pages) {
            bench.model().setPage(page);
            const QQuickItem* loader = bench.scene().item(QStringLiteral("window.idPage.") + page);
            QVERIFY2(loader != nullptr && loader->isVisible(), qPrintable(page));
            QVERIFY2(loader->property("item").value<QQuickItem*>() != nullptr, qPrintable(page));
        }
        QCOMPARE(bench.warnings(), QStringList());
    }

    void portThatIsNotThereIsAProblemWithItsMend()
    {
        WindowBench bench(QStringLiteral("/nowhere"));
        QVERIFY(bench.isShown());
        QVERIFY(bench.press(Hand::Mouse, QStringLiteral("connect.idScan")));
        QTRY_VERIFY_WITH_TIMEOUT(bench.device().hasProblem(), c_patienceMs);
        QVERIFY(bench.scene().item(QStringLiteral("connect.idProblem"))->isVisible());
        QTRY_COMPARE_WITH_TIMEOUT(bench.device().state(), DeviceModel::Idle, c_patienceMs);
    }

    void closingEndsTheWorkInAnOrderlyWay()
    {
        SimulatorRun simulator;
        QVERIFY(simulator.start());
        WindowBench bench(simulator.port());
        QVERIFY(bench.isShown());
        bench.device().work(QStringLiteral("2210"));
        QTRY_COMPARE_WITH_TIMEOUT(bench.device().state(), DeviceModel::Working, c_patienceMs);
        QVERIFY(bench.close());
        QCOMPARE(bench.trace().sent().last(), QStringLiteral("ATH"));
    }
};

int main(int argc, char* argv[])
{
    WindowScene::prepare();
    QGuiApplication application(argc, argv);
    TestWindowWork test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_window_work.moc"
