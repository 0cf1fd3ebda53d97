#include <QAccessible>
#include <QGuiApplication>
#include <QTest>

#include <cmath>

#include "window_scene.h"

namespace {

constexpr double c_touchTarget = 44; // pixels at 96 to the inch

constexpr const char* c_widgets = R"(
import QtQuick 2.15
import "widgets"

Item {
    property int clicks: 0
    property int stops: 0
    property int closes: 0
    property string typed: field.text
    property int chosen: -1

    Column {
        width: parent.width
        spacing: Style.spacing

        UiButton { objectName: "button"; text: "Select"; glyph: "icon-start"; onClicked: ++clicks }
        UiButton { objectName: "glyph"; description: "Close"; glyph: "icon-close"; isFlat: true; onClicked: ++clicks }
        UiButton { objectName: "narrow"; text: "A text that is much too long"; glyph: "icon-start"; width: 80 }
        UiField { id: field; objectName: "field"; caption: "Since"; placeholderText: "a day" }
        UiChoice { objectName: "choice"; caption: "Status"; model: ["all", "good"]; onActivated: chosen = index }
        UiBusy { objectName: "busy"; text: "Connecting"; width: parent.width; onStopped: ++stops }
        UiProblem {
            objectName: "problem"; what: "No line"; cause: "The port is gone."; mend: "Plug it in."
            width: parent.width; onClosed: ++closes
        }
        UiTableHeader { columns: table.columns; width: parent.width }
        UiTableRow { id: table; columns: [{ title: "torque", width: 2, isRight: true }, { title: "", width: 1 }]
            cells: ["12.0", true]; width: parent.width }
        UiCard { title: "Programs"; width: parent.width; UiLabel { text: "none" } }
        UiEmpty { text: "No result yet"; hint: "Tighten."; width: parent.width }
    }
}
)";

double part(double value)
{
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

} // namespace

/// The controls that all pages are made of.
class TestWidgets : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowScene> m_scene;
    QQuickItem* m_root = nullptr;

    void show(const QSize& size = {1280, 800}, const QString& theme = QStringLiteral("light"))
    {
        m_root = m_scene->show(c_widgets, size, theme);
        QVERIFY2(m_root != nullptr, qPrintable(m_scene->warnings().join(QLatin1Char('\n'))));
    }

    QColor color(const char* name) const { return m_scene->style()->property(name).value<QColor>(); }

private Q_SLOTS:
    void init() { m_scene = std::make_unique<WindowScene>(); }
    void cleanup()
    {
        const QStringList warnings = m_scene->warnings();
        m_scene.reset();
        QCOMPARE(warnings, QStringList());
    }

    void fingersHitWhatCanBeOperated_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("small") << QSize(1024, 600);
        QTest::newRow("usual") << QSize(1280, 800);
        QTest::newRow("large") << QSize(3840, 2160);
    }
    void fingersHitWhatCanBeOperated()
    {
        QFETCH(QSize, size);
        show(size);
        const QList<QQuickItem*> items = m_scene->operableItems();
        QCOMPARE(items.size(), 7);
        for (const QQuickItem* item : items) {
            QVERIFY2(item->height() >= c_touchTarget && item->width() >= c_touchTarget, qPrintable(item->objectName()));
        }
    }

    void tabReachesEachAndEachSaysWhatItIs()
    {
        show();
        const QList<QQuickItem*> order = m_scene->tabOrder();
        const QList<QQuickItem*> items = m_scene->operableItems();
        for (QQuickItem* item : items) {
            QVERIFY2(order.contains(item), qPrintable(item->objectName()));
            const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(item);
            QVERIFY2(spoken != nullptr && !spoken->text(QAccessible::Name).isEmpty(), qPrintable(item->objectName()));
        }
    }

    void buttonIsPressedByMouseFingerAndKeys()
    {
        show();
        const QQuickItem* button = m_scene->item(QStringLiteral("button"));
        m_scene->click(button);
        m_scene->tap(button);
        QVERIFY(m_scene->tabTo(QStringLiteral("button")));
        m_scene->press(Qt::Key_Space);
        m_scene->press(Qt::Key_Return);
        QCOMPARE(m_root->property("clicks").toInt(), 4);
    }

    void textOfANarrowButtonStaysInside()
    {
        show();
        const QQuickItem* button = m_scene->item(QStringLiteral("narrow"));
        QCOMPARE(button->width(), 80.0);
        const auto labels = button->findChildren<QQuickItem*>();
        for (const QQuickItem* label : labels) {
            if (label->inherits("QQuickText")) {
                QVERIFY(button->mapFromItem(label, {label->width(), 0}).x() <= 80);
            }
        }
    }

    void fieldTakesWhatIsTyped()
    {
        show();
        QVERIFY(m_scene->tabTo(QStringLiteral("field")));
        m_scene->press(Qt::Key_7);
        QCOMPARE(m_root->property("typed").toString(), QStringLiteral("7"));
    }

    void choiceIsMadeByKeys()
    {
        show();
        QVERIFY(m_scene->tabTo(QStringLiteral("choice")));
        m_scene->press(Qt::Key_Return);
        m_scene->press(Qt::Key_Down);
        m_scene->press(Qt::Key_Return);
        QCOMPARE(m_root->property("chosen").toInt(), 1);
    }

    void entriesOfAChoiceAreAsLargeAsItsText()
    {
        show();
        QQuickItem* const choice = m_scene->item(QStringLiteral("choice"));
        m_scene->click(choice);
        QTRY_VERIFY(m_scene->item(QStringLiteral("choice.1")) != nullptr);
        const auto size = [](const QQuickItem* control) {
            return control->property("contentItem").value<QQuickItem*>()->property("font").value<QFont>().pixelSize();
        };
        QCOMPARE(size(m_scene->item(QStringLiteral("choice.1"))), size(choice));
    }

    void choiceIsMadeByMouse()
    {
        show();
        m_scene->click(m_scene->item(QStringLiteral("choice")));
        QTRY_VERIFY(m_scene->item(QStringLiteral("choice.1")) != nullptr);
        m_scene->click(m_scene->item(QStringLiteral("choice.1")));
        QTRY_COMPARE(m_root->property("chosen").toInt(), 1);
    }

    void whatRunsIsStopped()
    {
        show();
        m_scene->click(m_scene->item(QStringLiteral("busy.idStop")));
        QCOMPARE(m_root->property("stops").toInt(), 1);
        m_scene->item(QStringLiteral("busy"))->setProperty("text", QString());
        QVERIFY(!m_scene->item(QStringLiteral("busy"))->isVisible());
    }

    void problemIsClosed()
    {
        show();
        m_scene->click(m_scene->item(QStringLiteral("problem.idClose")));
        QCOMPARE(m_root->property("closes").toInt(), 1);
    }

    void textsStandOutFromWhatIsBehindThem_data()
    {
        QTest::addColumn<QString>("theme");
        QTest::newRow("light") << QStringLiteral("light");
        QTest::newRow("dark") << QStringLiteral("dark");
        QTest::newRow("contrast") << QStringLiteral("contrast");
    }
    void textsStandOutFromWhatIsBehindThem()
    {
        constexpr double c_readable = 4.5; // of texts, by WCAG 2.1 AA
        QFETCH(QString, theme);
        show({1280, 800}, theme);
        for (const char* text : {"textColor", "textMutedColor", "goodColor", "badColor", "noticeColor"}) {
            for (const char* behind : {"windowColor", "surfaceColor", "hoverColor", "stripeColor"}) {
                QVERIFY2(contrast(color(text), color(behind)) >= c_readable,
                         qPrintable(QStringLiteral("%1 on %2: %3")
                                        .arg(QLatin1String(text), QLatin1String(behind))
                                        .arg(contrast(color(text), color(behind)))));
            }
        }
        QVERIFY(contrast(color("textColor"), color("pressedColor")) >= c_readable);
        QVERIFY(contrast(color("accentTextColor"), color("accentColor")) >= c_readable);
        QVERIFY(contrast(color("accentTextColor"), color("accentPressedColor")) >= c_readable);
        QVERIFY(contrast(color("verdictTextColor"), color("goodColor")) >= c_readable);
        QVERIFY(contrast(color("verdictTextColor"), color("badColor")) >= c_readable);
        constexpr double c_visible = 3; // of frames and marks
        for (const char* mark : {"borderColor", "focusColor", "accentColor"}) {
            QVERIFY2(contrast(color(mark), color("surfaceColor")) >= c_visible, mark);
        }
    }
};

int main(int argc, char* argv[])
{
    WindowScene::prepare();
    QGuiApplication application(argc, argv);
    TestWidgets test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_widgets.moc"
