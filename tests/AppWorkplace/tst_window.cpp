#include <QAccessible>
#include <QGuiApplication>
#include <QTest>

#include <cmath>
#include <limits>

#include "gui/chart_scale.h"
#include "gui/window_types.h"
#include "services/language.h"
#include "services/translations.h"
#include "window_fakes.h"
#include "window_scene.h"

namespace {

constexpr double c_touchTarget = 44; // pixels at 96 to the inch

void addSizes()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("small") << QSize(1024, 600);
    QTest::newRow("usual") << QSize(1280, 800);
    QTest::newRow("large") << QSize(3840, 2160);
}

} // namespace

/// The pages of the day's work and the window around them, with devices that only note what they are asked to do.
class TestWindow : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowScene> m_scene;
    QQuickItem* m_root = nullptr;

    void show(const QByteArray& content, const QByteArray& devices, const QSize& size = {1280, 800})
    {
        m_root = m_scene->show("import QtQuick 2.15\nimport \"pages\"\nimport \"widgets\"\nimport \".\"\n"
                               "Rectangle { property var window: " +
                                   window_fakes::window(devices) + "\ncolor: Style.windowColor\n" + content + "}",
                               size);
        QVERIFY2(m_root != nullptr, qPrintable(m_scene->warnings().join(QLatin1Char('\n'))));
    }
    void showPage(const char* page, const QByteArray& device, const QSize& size = {1280, 800})
    {
        show(QByteArray(page) + " { anchors.fill: parent; workplace: parent.window; device: workplace.current }",
             device, size);
    }
    void showSide(const QByteArray& devices, const QSize& size = {1280, 800})
    {
        show("SidePanel { objectName: \"side\"; height: parent.height; width: 22 * Style.baseHeight; window: "
             "parent.window; pages: [{ name: \"work\", title: \"Work\", glyph: \"icon-work\" },"
             "{ name: \"connect\", title: \"Connect\", glyph: \"icon-connect\" }] }",
             devices, size);
    }

    QObject* window() const { return m_root->property("window").value<QObject*>(); }
    QObject* device() const { return window()->property("current").value<QObject*>(); }
    QStringList asked() const { return device()->property("asked").toStringList(); }
    QQuickItem* item(const char* name) const
    {
        QQuickItem* found = m_scene->item(QString::fromLatin1(name));
        if (found == nullptr) {
            qFatal("there is no item \"%s\"", name);
        }
        return found;
    }

    void checkItems()
    {
        const QList<QQuickItem*> order = m_scene->tabOrder();
        const QList<QQuickItem*> items = m_scene->operableItems();
        QVERIFY(!items.isEmpty());
        for (QQuickItem* each : items) {
            const QString name = each->objectName();
            QVERIFY2(order.contains(each), qPrintable(name));
            QVERIFY2(each->height() >= c_touchTarget && each->width() >= c_touchTarget, qPrintable(name));
            const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(each);
            QVERIFY2(spoken != nullptr && !spoken->text(QAccessible::Name).isEmpty(), qPrintable(name));
            const QRectF place = each->mapRectToScene(QRectF(0, 0, each->width(), each->height()));
            QVERIFY2(QRectF(QPointF(), m_scene->window()->size()).contains(place), qPrintable(name));
        }
    }

private Q_SLOTS:
    static void initTestCase() { registerWindowTypes(); }
    void init() { m_scene = std::make_unique<WindowScene>(); }
    void cleanup()
    {
        const QStringList warnings = m_scene->warnings();
        m_scene.reset();
        translations::install(QStringLiteral("en"));
        QCOMPARE(warnings, QStringList());
    }

    // ---- Work

    void eachItemOfTheWorkIsReached_data() { addSizes(); }
    void eachItemOfTheWorkIsReached()
    {
        QFETCH(QSize, size);
        showPage("WorkPage", window_fakes::workingDevice(), size);
        checkItems();
    }

    void oneTouchSelectsAProgram()
    {
        showPage("WorkPage", window_fakes::workingDevice());
        m_scene->tap(item("work.idPrograms.1"));
        QCOMPARE(asked(), QStringList{QStringLiteral("program 1")});
    }

    void keysLockAndUnlock()
    {
        showPage("WorkPage", window_fakes::workingDevice());
        QVERIFY(m_scene->tabTo(QStringLiteral("work.idLock.idLock")));
        m_scene->press(Qt::Key_Return);
        QVERIFY(m_scene->tabTo(QStringLiteral("work.idLock.idUnlock")));
        m_scene->press(Qt::Key_Space);
        QCOMPARE(asked(), QStringList({QStringLiteral("lock true"), QStringLiteral("lock false")}));
    }

    void nothingIsSelectedOrLockedWithoutAWrench()
    {
        showPage("WorkPage", window_fakes::idleDevice());
        QVERIFY(!item("work.idLock.idLock")->isEnabled());
        QVERIFY(!item("work.idLock.idUnlock")->isEnabled());
    }

    void workBeginsAndEndsWithTheSameCorner()
    {
        showPage("WorkPage", window_fakes::idleDevice());
        m_scene->click(item("work.idLink.idStart"));
        device()->setProperty("state", 3);
        m_scene->click(item("work.idLink.idStop"));
        QCOMPARE(asked(), QStringList({QStringLiteral("work 2210"), QStringLiteral("stop")}));
    }

    void workWithoutANumberLeadsToTheWrenchesInRange()
    {
        showPage("WorkPage", window_fakes::idleDevice());
        device()->setProperty("serialId", QString());
        m_scene->click(item("work.idLink.idStart"));
        QCOMPARE(window()->property("page").toString(), QStringLiteral("connect"));
        QCOMPARE(asked(), QStringList());
    }

    // A sign 10 mm high is read at two metres; 96 pixels to the inch.
    void torqueIsReadableAtTwoMetres_data() { addSizes(); }
    void torqueIsReadableAtTwoMetres()
    {
        constexpr double c_height = 38;
        constexpr double c_capitals = 0.7; // of the height of a font
        QFETCH(QSize, size);
        showPage("WorkPage", window_fakes::workingDevice(), size);
        QVERIFY(item("work.idTorque")->property("contentHeight").toDouble() * c_capitals >= c_height);
        QCOMPARE(item("work.idTorque")->property("truncated").toBool(), false);
    }

    void torqueIsShownInTheWayOfTheLanguage()
    {
        showPage("WorkPage", window_fakes::workingDevice());
        QCOMPARE(item("work.idTorque")->property("text").toString(), QStringLiteral("25.06"));
        m_scene->style()->setProperty("localeName", QStringLiteral("de"));
        QCOMPARE(item("work.idTorque")->property("text").toString(), QStringLiteral("25,06"));
    }

    void torqueThatIsNoNumberIsShownAsItCame()
    {
        showPage("WorkPage", window_fakes::workingDevice());
        QVariantMap result = device()->property("result").toMap();
        result[QStringLiteral("torqueText")] = QStringLiteral("1#.0");
        device()->setProperty("result", result);
        QCOMPARE(item("work.idTorque")->property("text").toString(), QStringLiteral("1#.0"));
    }

    void lockIsReadInFull_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QByteArray>("device");
        QByteArray locked = window_fakes::workingDevice();
        locked.replace("property bool isLocked: false", "property bool isLocked: true");
        const QStringList names = language::all();
        for (const QString& name : names) {
            QTest::addRow("not known, %s", qPrintable(name)) << name << window_fakes::idleDevice();
            QTest::addRow("unlocked, %s", qPrintable(name)) << name << window_fakes::workingDevice();
            QTest::addRow("locked, %s", qPrintable(name)) << name << locked;
        }
    }
    void lockIsReadInFull()
    {
        QFETCH(QString, language);
        QFETCH(QByteArray, device);
        translations::install(language);
        // Beside the list of the pages.
        show("WorkPage { anchors.fill: parent; anchors.leftMargin: 22 * Style.baseHeight; workplace: parent.window; "
             "device: workplace.current }",
             device, {1024, 600});
        QCOMPARE(item("work.idLock.idSaid")->property("truncated").toBool(), false);
    }

    void problemIsToldAndForgotten()
    {
        showPage("WorkPage", window_fakes::idleDevice());
        QVERIFY(!item("work.idProblem")->isVisible());
        device()->setProperty("problemWhat", QStringLiteral("the wrench does not answer"));
        QVERIFY(item("work.idProblem")->isVisible());
        m_scene->click(item("work.idProblem.idClose"));
        QCOMPARE(asked(), QStringList{QStringLiteral("forget")});
    }

    // ---- Connect

    void eachItemOfTheConnectingIsReached_data() { addSizes(); }
    void eachItemOfTheConnectingIsReached()
    {
        QFETCH(QSize, size);
        showPage("ConnectPage", window_fakes::idleDevice(), size);
        checkItems();
    }

    void scanIsStarted()
    {
        showPage("ConnectPage", window_fakes::idleDevice());
        m_scene->click(item("connect.idScan"));
        QCOMPARE(asked(), QStringList{QStringLiteral("scan")});
    }

    void wrenchThatIsHeardIsPickedAndTheWorkIsShown()
    {
        showPage("ConnectPage", window_fakes::workingDevice());
        device()->setProperty("state", 1);
        m_scene->tap(item("connect.idWrench.2211"));
        QCOMPARE(asked(), QStringList{QStringLiteral("work 2211")});
        QCOMPARE(window()->property("page").toString(), QStringLiteral("work"));
    }

    void numberIsTyped()
    {
        showPage("ConnectPage", window_fakes::idleDevice());
        QVERIFY(m_scene->tabTo(QStringLiteral("connect.idNumber")));
        m_scene->press(Qt::Key_A, Qt::ControlModifier);
        m_scene->press(Qt::Key_7);
        m_scene->press(Qt::Key_Return);
        QCOMPARE(asked(), QStringList{QStringLiteral("work 7")});
    }

    // ---- The side

    void eachItemOfTheSideIsReached_data() { addSizes(); }
    void eachItemOfTheSideIsReached()
    {
        QFETCH(QSize, size);
        showSide(window_fakes::workingDevice(), size);
        checkItems();
    }

    void pageIsChosen()
    {
        showSide(window_fakes::workingDevice());
        m_scene->click(item("side.idPage.connect"));
        QCOMPARE(window()->property("page").toString(), QStringLiteral("connect"));
    }

    void deviceIsChosenByFingerAndKeys()
    {
        showSide(window_fakes::workingDevice() + ",\n" + window_fakes::idleDevice());
        m_scene->tap(item("side.idDevice.1"));
        QCOMPARE(window()->property("currentIndex").toInt(), 1);
        QVERIFY(m_scene->tabTo(QStringLiteral("side.idDevices")));
        m_scene->press(Qt::Key_Up);
        QCOMPARE(window()->property("currentIndex").toInt(), 0);
        m_scene->press(Qt::Key_Up);
        QCOMPARE(window()->property("currentIndex").toInt(), 0);
    }

    void languageAndThemeAreChosenByKeys()
    {
        showSide(window_fakes::workingDevice());
        QVERIFY(m_scene->tabTo(QStringLiteral("side.idLanguage")));
        m_scene->press(Qt::Key_Down);
        QCOMPARE(window()->property("language").toString(), QStringLiteral("de"));
        QVERIFY(m_scene->tabTo(QStringLiteral("side.idTheme")));
        m_scene->press(Qt::Key_Down);
        QCOMPARE(window()->property("theme").toString(), QStringLiteral("dark"));
    }

    // ---- The scale of the chart

    void scaleCoversItsValuesWithRoundLines_data()
    {
        QTest::addColumn<QVector<double>>("values");
        QTest::newRow("spread") << QVector<double>{24.8, 25.06, 27.3};
        QTest::newRow("one") << QVector<double>{12};
        QTest::newRow("none") << QVector<double>{};
        QTest::newRow("below nothing") << QVector<double>{-3, -2.5};
        QTest::newRow("large") << QVector<double>{100, 90000};
        QTest::newRow("no number") << QVector<double>{std::nan(""), 7, std::numeric_limits<double>::infinity()};
    }
    void scaleCoversItsValuesWithRoundLines()
    {
        constexpr int c_mostLines = 5;
        QFETCH(const QVector<double>, values);
        const ChartScale scale(values, c_mostLines);
        for (const double value : values) {
            QVERIFY(!std::isfinite(value) || (scale.share(value) > 0 && scale.share(value) < 1));
        }
        const QVector<double> lines = scale.lines();
        QVERIFY(!lines.isEmpty() && lines.size() <= c_mostLines + 1);
        for (const double line : lines) {
            QVERIFY(line >= scale.low() && line <= scale.high());
            const double power = std::pow(10, scale.decimals());
            QVERIFY(std::abs(line * power - std::round(line * power)) < 1e-6);
        }
    }
};

int main(int argc, char* argv[])
{
    WindowScene::prepare();
    QGuiApplication application(argc, argv);
    TestWindow test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_window.moc"
