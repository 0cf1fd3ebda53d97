#include <QGuiApplication>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickView>
#include <QSignalSpy>
#include <QTest>

#include <memory>

#include "be_maintenance_plugin.h"
#include "gui/panel_document.h"
#include "p_device_haitor.h"
#include "workbench.h"

namespace {

const QString c_plugin = QStringLiteral("{b3b68306-268a-4bce-b400-9f7c133e4cef}");
const QString c_root = QStringLiteral("maintenance_panel_device_haitor");
const QString c_column = c_root + QStringLiteral(".idColumn");
const QString c_commands = c_column + QStringLiteral(".idRowCommandMain");
const QString c_programRow = c_commands + QStringLiteral(".idRowSetProgram");
const QString c_programInput = c_programRow + QStringLiteral(".idValueRectangleSetProgram.idValue");
const QString c_lockRow = c_commands + QStringLiteral(".idRow");

} // namespace

/// The plugin's maintenance panel in a scene, worked as a person works it; behind it a device that notes what it is
/// told to do.
class TestMaintenancePanel : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<Workbench> m_bench;
    ScriptPointer m_setLock;
    ScriptPointer m_setProgram;
    std::unique_ptr<QQuickView> m_view;
    QQuickItem* m_panel = nullptr;
    QStringList m_warnings;

    void show(const QSize& size, const QString& name = QStringLiteral("Wrench 2210"))
    {
        const auto document =
            PanelDocument::ofPlugin(c_plugin, {name, m_bench->device->objectUuid().toString(), QStringLiteral("2210")});
        QVERIFY(document);
        m_view = std::make_unique<QQuickView>();
        m_view->setResizeMode(QQuickView::SizeRootObjectToView);
        m_view->resize(size);
        connect(m_view->engine(), &QQmlEngine::warnings, this, [this](const QList<QQmlError>& warnings) {
            for (const QQmlError& warning : warnings) {
                m_warnings.append(warning.toString());
            }
        });
        QQmlComponent styles(m_view->engine());
        styles.setData("import QtQuick 2.15\nimport \"widgets\"\nQtObject { property var style: Style }",
                       QUrl(QStringLiteral("qrc:/applications/AppWorkplace/gui/styles.qml")));
        m_styles.reset(styles.create());
        QVERIFY2(m_styles != nullptr, qPrintable(styles.errorString()));
        style()->setProperty("windowWidth", size.width());
        style()->setProperty("windowHeight", size.height());
        QQmlComponent component(m_view->engine());
        component.setData(document->qml(), document->url());
        m_panel = qobject_cast<QQuickItem*>(component.create());
        QVERIFY2(m_panel != nullptr, qPrintable(component.errorString()));
        m_view->setContent(document->url(), nullptr, m_panel);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
        Workbench::settle();
    }

    QObject* style() const { return m_styles->property("style").value<QObject*>(); }
    double baseWidth() const { return style()->property("baseWidth").toDouble(); }
    double baseHeight() const { return style()->property("baseHeight").toDouble(); }

    QQuickItem* item(const QString& name) const
    {
        return m_panel->objectName() == name ? m_panel : findItem(m_panel, name, "objectName");
    }
    QQuickItem* button(const QString& textId) const { return findItem(m_panel, textId, "text"); }

    // By the tree that is drawn: an item that is shown elsewhere than where it was made is found, too.
    static QQuickItem* findItem(const QQuickItem* below, const QString& value, const char* property)
    {
        const QList<QQuickItem*> children = below->childItems();
        for (QQuickItem* child : children) {
            const bool isButton = child->inherits("QQuickButton");
            const bool isNamed = qstrcmp(property, "objectName") == 0;
            if ((isNamed || isButton) && child->property(property).toString() == value) {
                return child;
            }
            if (QQuickItem* found = findItem(child, value, property)) {
                return found;
            }
        }
        return nullptr;
    }

    QPoint centre(const QQuickItem* of) const
    {
        return of->mapToScene(QPointF(of->width() / 2, of->height() / 2)).toPoint();
    }
    void click(const QQuickItem* what) { QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, centre(what)); }
    void tap(const QQuickItem* what)
    {
        QTest::touchEvent(m_view.get(), m_touch).press(0, centre(what), m_view.get());
        QTest::touchEvent(m_view.get(), m_touch).release(0, centre(what), m_view.get());
    }
    void type(const QString& text)
    {
        for (const QChar character : text) {
            QTest::keyClick(m_view.get(), character.toLatin1());
        }
    }

    QTouchDevice* m_touch = QTest::createTouchDevice();
    std::unique_ptr<QObject> m_styles;

private Q_SLOTS:
    // The panel's types are known once there is an instance of the plugin.
    void initTestCase() { const PDeviceHaitor plugin; }

    void init()
    {
        m_bench = std::make_unique<Workbench>();
        m_setLock = m_bench->deviceRoot.addCommand(QStringLiteral("setLock"));
        m_setProgram = m_bench->deviceRoot.addCommand(QStringLiteral("setProgram"));
        for (const ScriptPointer& script : {m_setLock, m_setProgram}) {
            script->execute = [](ScriptedCommand& command) {
                return command.commandUpdateResults({{QStringLiteral("cmd_success"), true}});
            };
        }
        m_bench->set();
        m_warnings.clear();
    }

    void cleanup()
    {
        m_styles.reset();
        m_view.reset();
        m_bench.reset();
        Workbench::settle();
        QCOMPARE(m_warnings, QStringList());
    }

    void eachNamedItemIsFoundByItsPath_data()
    {
        QTest::addColumn<QString>("name");
        const QString indicator = c_programRow + QStringLiteral(".idIndicatorSetProgram");
        for (const QString& name :
             {c_root, c_column, c_column + QStringLiteral(".idTitleCommand"), c_commands, c_programRow, indicator,
              indicator + QStringLiteral(".idIndicatorSetProgramGlyph"),
              c_programRow + QStringLiteral(".idInformationSetProgram"),
              c_programRow + QStringLiteral(".idValueRectangleSetProgram"), c_programInput, c_lockRow,
              c_lockRow + QStringLiteral(".idIndicator"), c_lockRow + QStringLiteral(".idIndicator.idSetLockInput"),
              c_lockRow + QStringLiteral(".idInformation"), c_lockRow + QStringLiteral(".idInformation.idChannelName"),
              c_lockRow + QStringLiteral(".idValueRectangle")}) {
            QTest::newRow(qPrintable(name)) << name;
        }
    }
    void eachNamedItemIsFoundByItsPath()
    {
        QFETCH(QString, name);
        show({1280, 800});
        QVERIFY(item(name) != nullptr);
    }

    void itemsHaveTheirSizes_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("small") << QSize(1024, 600);
        QTest::newRow("usual") << QSize(1280, 800);
        QTest::newRow("large") << QSize(3840, 2160);
    }
    void itemsHaveTheirSizes()
    {
        QFETCH(QSize, size);
        show(size);
        const double width = baseWidth();
        const double height = baseHeight();
        const QQuickItem* column = item(c_column);
        const double commandsWidth = size.width() - 3 * width;
        QCOMPARE(column->width(), commandsWidth);
        QCOMPARE(column->property("spacing"), m_panel->property("spacing"));
        QCOMPARE(item(c_commands)->width(), commandsWidth);
        QCOMPARE(item(c_commands)->property("spacing").toDouble(), 4 * height);

        const QQuickItem* row = item(c_programRow);
        QCOMPARE(row->height(), 10 * height);
        QCOMPARE(row->width(), commandsWidth);
        QCOMPARE(row->property("spacing").toDouble(), width);
        const QQuickItem* indicator = item(c_programRow + QStringLiteral(".idIndicatorSetProgram"));
        QCOMPARE(QSizeF(indicator->width(), indicator->height()), QSizeF(5 * height, 5 * height));
        const QQuickItem* glyph = indicator->childItems().constFirst();
        QCOMPARE(QSizeF(glyph->width(), glyph->height()), QSizeF(3 * height, 3 * height));
        QCOMPARE(glyph->property("name").toString(), QStringLiteral("icon-uploadsettings"));
        const QQuickItem* label = item(c_programRow + QStringLiteral(".idInformationSetProgram"));
        QCOMPARE(QSizeF(label->width(), label->height()), QSizeF(commandsWidth / 2, 5 * height));
        const QQuickItem* value = item(c_programRow + QStringLiteral(".idValueRectangleSetProgram"));
        QCOMPARE(value->height(), 10 * height);
        QCOMPARE(value->width(), commandsWidth - glyph->width() - label->width() - 2 * width);
        QCOMPARE(value->property("spacing").toDouble(), width);
        const QQuickItem* box = item(c_programInput)->parentItem();
        QCOMPARE(QSizeF(box->width(), box->height()), QSizeF(value->width(), 5 * height));
        QCOMPARE(box->property("border").value<QObject*>()->property("width").toDouble(), height / 6);
        QCOMPARE(box->property("border").value<QObject*>()->property("color"),
                 style()->property("widgetDisabledBorderColor"));
        const QQuickItem* apply = button(QStringLiteral("maintenance_panel_Apply"));
        QCOMPARE(QSizeF(apply->width(), apply->height()), QSizeF(value->width(), 5 * height));
    }

    void lockRowHasItsSizes_data() { itemsHaveTheirSizes_data(); }
    void lockRowHasItsSizes()
    {
        QFETCH(QSize, size);
        show(size);
        const double height = baseHeight();
        const double commandsWidth = size.width() - 3 * baseWidth();
        const QQuickItem* row = item(c_lockRow);
        QCOMPARE(QSizeF(row->width(), row->height()), QSizeF(commandsWidth, 5 * height));
        QCOMPARE(row->property("spacing").toDouble(), baseWidth());
        const QQuickItem* indicator = item(c_lockRow + QStringLiteral(".idIndicator"));
        QCOMPARE(QSizeF(indicator->width(), indicator->height()), QSizeF(5 * height, 5 * height));
        const QQuickItem* glyph = item(c_lockRow + QStringLiteral(".idIndicator.idSetLockInput"));
        QCOMPARE(QSizeF(glyph->width(), glyph->height()), QSizeF(3 * height, 3 * height));
        const QQuickItem* label = item(c_lockRow + QStringLiteral(".idInformation"));
        QCOMPARE(QSizeF(label->width(), label->height()), QSizeF(3 * commandsWidth / 10, 5 * height));
        const QQuickItem* text = item(c_lockRow + QStringLiteral(".idInformation.idChannelName"));
        QCOMPARE(QSizeF(text->width(), text->height()), QSizeF(label->width(), label->height() / 2));
        const QQuickItem* value = item(c_lockRow + QStringLiteral(".idValueRectangle"));
        QCOMPARE(value->width(), commandsWidth - glyph->width() - label->width() - 2 * baseWidth());
        QCOMPARE(value->property("spacing").toInt(), 5);
        QVERIFY(value->clip());
        for (const char* id : {"maintenance_panel_Lock", "maintenance_panel_Unlock"}) {
            const QQuickItem* each = button(QString::fromUtf8(id));
            QCOMPARE(QSizeF(each->width(), each->height()), QSizeF(value->width() / 2, value->height()));
        }
    }

    void nothingOfTheRowsIsCutOff_data() { itemsHaveTheirSizes_data(); }
    void nothingOfTheRowsIsCutOff()
    {
        QFETCH(QSize, size);
        show(size);
        for (const QString& name : {c_programRow + QStringLiteral(".idValueRectangleSetProgram"),
                                    c_lockRow + QStringLiteral(".idValueRectangle")}) {
            const QQuickItem* last = item(name);
            QVERIFY(last->mapToScene({last->width(), 0}).x() <= size.width());
        }
    }

    void fingersHitTheButtonsOfTheSmallestScreen()
    {
        constexpr double c_touchTarget = 44; // pixels at 96 to the inch
        show({1024, 600});
        for (const char* id : {"maintenance_panel_Apply", "maintenance_panel_Lock", "maintenance_panel_Unlock"}) {
            QVERIFY(button(QString::fromUtf8(id))->height() >= c_touchTarget);
        }
    }

    void panelShowsTheDevice()
    {
        show({1280, 800});
        QCOMPARE(m_panel->property("name").toString(), QStringLiteral("Wrench 2210"));
        QCOMPARE(m_panel->property("connected").toBool(), false);
        m_bench->driver->setProperty(QStringLiteral("connected"), true, false);
        Workbench::settle();
        QCOMPARE(m_panel->property("connected").toBool(), true);
    }

    void whateverADeviceIsCalledStaysAText_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("quotes") << QStringLiteral("12\" wrench \\");
        QTest::newRow("code") << QStringLiteral("\"; Component.onCompleted: Qt.quit(); property var x: \"");
        QTest::newRow("lines") << QStringLiteral("one\r\ntwo\u2028three");
        QTest::newRow("placeholder") << QStringLiteral("{OBJECT_ID}{OBJECT_REFERENCE}");
        QTest::newRow("other script") << QString::fromUtf8("Schlüssel 力矩 🔧");
    }
    void whateverADeviceIsCalledStaysAText()
    {
        QFETCH(QString, name);
        show({1280, 800}, name);
        QCOMPARE(m_panel->property("name").toString(), name);
    }

    void unknownPluginHasNoPanel() { QVERIFY(!PanelDocument::ofPlugin(QUuid::createUuid().toString(), {})); }

    void applyQueuesTheProgramThatIsTyped()
    {
        show({1280, 800});
        click(item(c_programInput));
        type(QStringLiteral("7"));
        click(button(QStringLiteral("maintenance_panel_Apply")));
        Workbench::settle();
        QCOMPARE(m_setProgram->arguments, QList<Values>({{{QStringLiteral("progId"), 7}}}));
    }

    void applyOfAnEmptyInputQueuesNothing()
    {
        show({1280, 800});
        click(button(QStringLiteral("maintenance_panel_Apply")));
        Workbench::settle();
        QVERIFY(m_setProgram->arguments.isEmpty());
    }

    void inputTakesWholeNumbersFromOneOnly()
    {
        show({1280, 800});
        const QQuickItem* input = item(c_programInput);
        click(input);
        type(QStringLiteral("-0a1.2"));
        QCOMPARE(input->property("text").toString(), QStringLiteral("012"));
        QVERIFY(input->property("acceptableInput").toBool());
        QTest::keySequence(m_view.get(), QKeySequence::SelectAll);
        type(QStringLiteral("0"));
        QVERIFY(!input->property("acceptableInput").toBool());
    }

    void lockAndUnlockQueueTheirRequests()
    {
        show({1280, 800});
        click(button(QStringLiteral("maintenance_panel_Lock")));
        click(button(QStringLiteral("maintenance_panel_Unlock")));
        Workbench::settle();
        QCOMPARE(m_setLock->arguments, QList<Values>({{{QStringLiteral("lock"), 1}}, {{QStringLiteral("lock"), 0}}}));
    }

    void fingersWorkThePanel()
    {
        show({1024, 600});
        tap(button(QStringLiteral("maintenance_panel_Unlock")));
        tap(button(QStringLiteral("maintenance_panel_Lock")));
        Workbench::settle();
        QCOMPARE(m_setLock->arguments, QList<Values>({{{QStringLiteral("lock"), 0}}, {{QStringLiteral("lock"), 1}}}));
    }

    void keysWorkTheButtons()
    {
        show({1280, 800});
        QQuickItem* unlock = button(QStringLiteral("maintenance_panel_Unlock"));
        unlock->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(m_view.get(), Qt::Key_Space);
        Workbench::settle();
        QCOMPARE(m_setLock->arguments, QList<Values>({{{QStringLiteral("lock"), 0}}}));
    }

    void updateOfThePanelReadsEachChannelOnce()
    {
        show({1280, 800});
        auto* backend = m_panel->findChild<BeMaintenanceDeviceHaitor*>();
        QVERIFY(backend != nullptr);
        const auto channel = DHaitorChannel::create({{QStringLiteral("id"), QStringLiteral("motorRun")}});
        channel->setReadCommand(QStringLiteral("setLock")); // any command will do
        backend->statusChannelsModel()->append(channel);
        QMetaObject::invokeMethod(m_panel, "updateData");
        Workbench::settle();
        QCOMPARE(m_setLock->arguments, QList<Values>({{{QStringLiteral("channel"), QStringLiteral("motorRun")}}}));
    }
};

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    QGuiApplication application(argc, argv);
    TestMaintenancePanel test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_maintenance_panel.moc"
