#include <QAccessible>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QScreen>
#include <QTest>

#include "gui/window_types.h"
#include "p_device_haitor.h"
#include "services/translations.h"
#include "window_scene.h"
#include "workbench.h"

namespace {

const QString c_plugin = QStringLiteral("{b3b68306-268a-4bce-b400-9f7c133e4cef}");
const QString c_plainPlugin = QStringLiteral("{00000000-0000-0000-0000-0000000000d1}");
const QString c_programInput = QStringLiteral(
    "maintenance_panel_device_haitor.idColumn.idRowCommandMain.idRowSetProgram.idValueRectangleSetProgram.idValue");
const QString c_lockLabel =
    QStringLiteral("maintenance_panel_device_haitor.idColumn.idRowCommandMain.idRow.idInformation.idChannelName");

constexpr char c_page[] = R"(
import QtQuick 2.15
import "pages"
import "widgets"

Rectangle {
    property var device: QtObject {
        property string name: "Wrench 2210"
        property string objectId
        property var panels: []
        property string pluginUuid
        property string reference: "/dev/ttyUSB0"
    }
    property var workplace: QtObject { property string page: "panel" }

    color: Style.windowColor

    PanelPage { anchors.fill: parent; device: parent.device; workplace: parent.workplace }
}
)";

} // namespace

/// The page with a device's maintenance panel, worked as a person works it.
class TestPanelPage : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowScene> m_scene;
    std::unique_ptr<Workbench> m_bench;
    ScriptPointer m_setLock;
    ScriptPointer m_setProgram;
    QQuickItem* m_root = nullptr;

    void show(const QSize& size = {1280, 800}, const QString& theme = QStringLiteral("light"))
    {
        m_root = m_scene->show(c_page, size, theme);
        QVERIFY2(m_root != nullptr, qPrintable(m_scene->warnings().join(QLatin1Char('\n'))));
    }
    QObject* device() const { return m_root->property("device").value<QObject*>(); }
    QQuickItem* view() const { return m_scene->item(QStringLiteral("panel.idView")); }
    QQuickItem* panel() const { return m_scene->item(QStringLiteral("maintenance_panel_device_haitor")); }
    QQuickItem* plain() const { return m_scene->item(QStringLiteral("plain")); }
    void give(const QString& plugin, const QString& objectId) const
    {
        device()->setProperty("pluginUuid", plugin);
        device()->setProperty("objectId", objectId);
        Workbench::settle();
    }
    void give(const Workbench& bench) const { give(c_plugin, bench.device->objectUuid().toString()); }
    QQuickItem* button(const QString& text) const
    {
        const auto items = panel()->findChildren<QQuickItem*>();
        for (QQuickItem* each : items) {
            if (each->inherits("QQuickButton") && each->property("text").toString() == text) {
                return each;
            }
        }
        return nullptr;
    }
    QImage picture() const { return m_scene->window()->screen()->grabWindow(m_scene->window()->winId()).toImage(); }
    void type(Qt::Key key) const
    {
        m_scene->press(key);
        Workbench::settle();
    }

private Q_SLOTS:
    void initTestCase()
    {
        registerWindowTypes();
        const PDeviceHaitor plugin; // the panel's types are known once there is one
    }
    void init()
    {
        translations::install(QStringLiteral("en"));
        m_scene = std::make_unique<WindowScene>();
        m_bench = std::make_unique<Workbench>();
        m_setLock = m_bench->deviceRoot.addCommand(QStringLiteral("setLock"));
        m_setProgram = m_bench->deviceRoot.addCommand(QStringLiteral("setProgram"));
        for (const ScriptPointer& script : {m_setLock, m_setProgram}) {
            script->execute = [](ScriptedCommand& command) {
                return command.commandUpdateResults({{QStringLiteral("cmd_success"), true}});
            };
        }
        m_bench->set();
    }
    void cleanup()
    {
        const QStringList warnings = m_scene->warnings();
        m_scene.reset();
        m_bench.reset();
        Workbench::settle();
        QCOMPARE(warnings, QStringList());
    }

    void pageWithoutADeviceLeadsToConnecting()
    {
        show();
        QVERIFY(m_scene->item(QStringLiteral("panel.idEmpty"))->isVisible());
        QVERIFY(!view()->isVisible());
        m_scene->click(m_scene->item(QStringLiteral("panel.idConnect")));
        QCOMPARE(m_root->property("workplace").value<QObject*>()->property("page").toString(),
                 QStringLiteral("connect"));
    }

    void panelIsThatOfTheDevice()
    {
        show();
        give(*m_bench);
        QVERIFY(view()->isVisible());
        QCOMPARE(panel()->property("name").toString(), QStringLiteral("Wrench 2210"));
        QCOMPARE(panel()->width(), view()->width());
        m_scene->click(button(QStringLiteral("Lock")));
        Workbench::settle();
        QCOMPARE(m_setLock->arguments, QList<Values>({{{QStringLiteral("lock"), 1}}}));
    }

    void panelIsLoadedAnewForAnotherDevice()
    {
        Workbench other;
        const ScriptPointer setLock = other.deviceRoot.addCommand(QStringLiteral("setLock"));
        setLock->execute = m_setLock->execute;
        other.set();
        show();
        give(*m_bench);
        give(other);
        m_scene->click(button(QStringLiteral("Unlock")));
        Workbench::settle();
        QCOMPARE(setLock->executed, 1);
        QCOMPARE(m_setLock->executed, 0);
    }

    void panelGoesWithTheDevice()
    {
        show();
        give(*m_bench);
        give(QString(), QString());
        QVERIFY(panel() == nullptr);
        QVERIFY(m_scene->item(QStringLiteral("panel.idEmpty"))->isVisible());
        QCOMPARE(view()->property("hasProblem").toBool(), false);
    }

    void panelOfAnotherPluginIsChosenWithTheKeys()
    {
        const auto entry = [](const char* plugin, const QString& pluginUuid, const QString& objectId) {
            return QVariantMap{{QStringLiteral("plugin"), QString::fromLatin1(plugin)},
                               {QStringLiteral("pluginUuid"), pluginUuid},
                               {QStringLiteral("objectId"), objectId}};
        };
        const QString wrench = m_bench->device->objectUuid().toString();
        show();
        give(*m_bench);
        const QQuickItem* choice = m_scene->item(QStringLiteral("panel.idPanels"));
        QVERIFY(!choice->isVisible()); // there is but one
        device()->setProperty("panels", QVariantList{entry("Plugin Wrench", c_plugin, wrench),
                                                     entry("Plugin Lamp", c_plainPlugin, QStringLiteral("{lamp}"))});
        Workbench::settle();
        QVERIFY(choice->isVisible());
        QCOMPARE(panel()->property("name").toString(), QStringLiteral("Wrench 2210"));
        QVERIFY(m_scene->tabTo(QStringLiteral("panel.idPanels")));
        type(Qt::Key_Down);
        QVERIFY(panel() == nullptr);
        QCOMPARE(plain()->property("told").toString(), QStringLiteral("Plugin Lamp|{lamp}|/dev/ttyUSB0"));
        QVERIFY(plain()->mapToScene({}).y() >= choice->height());
    }

    void whatIsSaidOfTheDeviceTakesThePlacesInTheDocument()
    {
        show();
        give(c_plainPlugin, QStringLiteral("{id}"));
        QCOMPARE(plain()->property("told").toString(), QStringLiteral("Wrench 2210|{id}|/dev/ttyUSB0"));
    }

    void whateverADeviceIsCalledStaysAText_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("code") << QStringLiteral("\"; Component.onCompleted: Qt.quit(); property var x: \"");
        QTest::newRow("lines") << QStringLiteral("one\r\ntwo\\\u2028three");
        QTest::newRow("markup") << QStringLiteral("<img src='file:///etc/passwd'><b>x</b>");
        QTest::newRow("long") << QString(100000, QLatin1Char('x'));
    }
    void whateverADeviceIsCalledStaysAText()
    {
        QFETCH(QString, name);
        show();
        device()->setProperty("name", name);
        give(*m_bench);
        QCOMPARE(panel()->property("name").toString(), name);
        QVERIFY(button(QStringLiteral("Lock"))->isVisible());
    }

    void panelThatCannotBeShownIsAProblem_data()
    {
        QTest::addColumn<QString>("plugin");
        QTest::addColumn<QString>("cause");
        QTest::newRow("none") << QStringLiteral("{00000000-0000-0000-0000-00000000bad0}")
                              << QStringLiteral("00000000bad0");
        QTest::newRow("syntax") << QStringLiteral("{00000000-0000-0000-0000-00000000bad1}") << QStringLiteral("5:");
        QTest::newRow("import") << QStringLiteral("{00000000-0000-0000-0000-00000000bad2}")
                                << QStringLiteral("NoSuchModule");
        QTest::newRow("no item") << QStringLiteral("{00000000-0000-0000-0000-00000000bad3}")
                                 << QStringLiteral("QObject");
    }
    void panelThatCannotBeShownIsAProblem()
    {
        QFETCH(QString, plugin);
        QFETCH(QString, cause);
        show();
        give(plugin, m_bench->device->objectUuid().toString());
        const QQuickItem* problem = m_scene->item(QStringLiteral("panel.idProblem"));
        QVERIFY(problem->isVisible());
        QVERIFY(!problem->property("what").toString().isEmpty());
        const QString told = problem->property("cause").toString();
        QVERIFY2(told.contains(cause), qPrintable(told));
        give(*m_bench); // and another device is shown again
        QVERIFY(!problem->isVisible());
        QVERIFY(panel() != nullptr);
    }

    void panelIsToldToShowFreshValuesWhenItComesIntoSight()
    {
        show();
        give(c_plainPlugin, QStringLiteral("{id}"));
        QCOMPARE(plain()->property("updates").toInt(), 1);
        QQuickItem* page = view()->parentItem();
        page->setVisible(false);
        QCOMPARE(plain()->property("updates").toInt(), 1);
        page->setVisible(true);
        QCOMPARE(plain()->property("updates").toInt(), 2);
    }

    void keyboardAloneWorksThePanel()
    {
        show({1024, 600});
        give(*m_bench);
        QVERIFY(m_scene->tabTo(c_programInput));
        type(Qt::Key_7);
        type(Qt::Key_Tab);
        type(Qt::Key_Space);
        QCOMPARE(m_setProgram->arguments, QList<Values>({{{QStringLiteral("progId"), 7}}}));
        type(Qt::Key_Tab);
        type(Qt::Key_Space);
        type(Qt::Key_Tab);
        type(Qt::Key_Space);
        QCOMPARE(m_setLock->arguments, QList<Values>({{{QStringLiteral("lock"), 1}}, {{QStringLiteral("lock"), 0}}}));
    }

    void oneSeesWhereTheKeyboardIs()
    {
        show();
        give(*m_bench);
        QVERIFY(m_scene->tabTo(c_programInput));
        const QPoint corner = m_scene->item(c_programInput)->mapToScene({1, 1}).toPoint();
        const auto color = m_scene->style()->property("paperFocusColor").value<QColor>();
        QTRY_COMPARE(picture().pixelColor(corner), color);
        type(Qt::Key_Tab);
        QTRY_VERIFY(picture().pixelColor(corner) != color);
    }

    void readerOfTheScreenIsToldWhatAFieldIsFor()
    {
        show();
        give(*m_bench);
        const QAccessibleInterface* input = QAccessible::queryAccessibleInterface(m_scene->item(c_programInput));
        QVERIFY(input != nullptr);
        QCOMPARE(input->text(QAccessible::Name), QStringLiteral("Set program"));
        QCOMPARE(input->role(), QAccessible::EditableText);
        const QAccessibleInterface* lock = QAccessible::queryAccessibleInterface(button(QStringLiteral("Lock")));
        QCOMPARE(lock->text(QAccessible::Name), QStringLiteral("Lock"));
        QCOMPARE(lock->role(), QAccessible::Button);
    }

    void labelsAreAsLargeAsTheFieldsBesideThem_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("small") << QSize(1024, 600);
        QTest::newRow("usual") << QSize(1920, 1080);
        QTest::newRow("large") << QSize(3840, 2160);
    }
    void labelsAreAsLargeAsTheFieldsBesideThem()
    {
        QFETCH(QSize, size);
        show(size);
        give(*m_bench);
        const QQuickItem* const label = m_scene->item(c_lockLabel);
        const QQuickItem* const field = m_scene->item(c_programInput);
        QCOMPARE(label->property("font").value<QFont>().pixelSize(),
                 field->property("font").value<QFont>().pixelSize());
    }

    void fingersWorkThePanel()
    {
        constexpr double c_touchTarget = 44; // pixels at 96 to the inch
        show({1024, 600});
        give(*m_bench);
        QVERIFY(m_scene->item(c_programInput)->height() >= c_touchTarget);
        m_scene->tap(m_scene->item(c_programInput));
        type(Qt::Key_3);
        m_scene->tap(button(QStringLiteral("Apply")));
        Workbench::settle();
        QCOMPARE(m_setProgram->arguments, QList<Values>({{{QStringLiteral("progId"), 3}}}));
    }

    void textsFollowTheLanguage_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("lock");
        QTest::newRow("German") << QStringLiteral("de") << QStringLiteral("Sperren");
        QTest::newRow("French") << QStringLiteral("fr") << QStringLiteral("Verrouiller");
        QTest::newRow("English") << QStringLiteral("en") << QStringLiteral("Lock");
    }
    void textsFollowTheLanguage()
    {
        QFETCH(QString, language);
        QFETCH(QString, lock);
        translations::install(QStringLiteral("de"));
        show();
        give(*m_bench);
        translations::install(language);
        m_scene->engine()->retranslate();
        QVERIFY(button(lock) != nullptr);
        m_scene->click(button(lock));
        Workbench::settle();
        QCOMPARE(m_setLock->arguments, QList<Values>({{{QStringLiteral("lock"), 1}}}));
    }

    void buttonsStandOutOnPaper_data()
    {
        QTest::addColumn<QString>("theme");
        for (const char* theme : {"light", "dark", "contrast"}) {
            QTest::newRow(theme) << QString::fromLatin1(theme);
        }
    }
    void buttonsStandOutOnPaper()
    {
        QFETCH(QString, theme);
        show({1280, 800}, theme);
        give(*m_bench);
        const QQuickItem* lock = button(QStringLiteral("Lock"));
        QTRY_COMPARE(picture().pixelColor(lock->mapToScene({5, 5}).toPoint()),
                     m_scene->style()->property("paperButtonColor").value<QColor>());
    }
};

int main(int argc, char* argv[])
{
    WindowScene::prepare();
    QGuiApplication application(argc, argv);
    TestPanelPage test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_panel_page.moc"
