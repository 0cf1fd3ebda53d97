#include "window_scene.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

namespace {

const QString c_folder = QStringLiteral("qrc:/applications/AppWorkplace/gui/");
constexpr int c_mostTabs = 500;

void collect(QQuickItem* below, QList<QQuickItem*>& found)
{
    const QList<QQuickItem*> children = below->childItems();
    for (QQuickItem* child : children) {
        if (child->isVisible()) {
            if (!child->objectName().isEmpty() && child->activeFocusOnTab() && child->isEnabled()) {
                found.append(child);
            }
            collect(child, found);
        }
    }
}

QQuickItem* findItem(const QQuickItem* below, const QString& name)
{
    const QList<QQuickItem*> children = below->childItems();
    for (QQuickItem* child : children) {
        if (child->objectName() == name) {
            return child;
        }
        if (QQuickItem* found = findItem(child, name)) {
            return found;
        }
    }
    return nullptr;
}

/// What the key Tab has come to: a list gives the focus on to its current row.
QQuickItem* reached(const QQuickWindow* window)
{
    QQuickItem* item = window->activeFocusItem();
    while (item != nullptr && !item->activeFocusOnTab()) {
        item = item->parentItem();
    }
    return item;
}

QPoint centre(const QQuickItem* of)
{
    return of->mapToScene(QPointF(of->width() / 2, of->height() / 2)).toPoint();
}

} // namespace

WindowScene::WindowScene() : m_touch(QTest::createTouchDevice()), m_view(std::make_unique<QQuickView>())
{
    m_window = m_view.get();
    m_view->setResizeMode(QQuickView::SizeRootObjectToView);
    connect(m_view->engine(), &QQmlEngine::warnings, this, [this](const QList<QQmlError>& warnings) {
        for (const QQmlError& warning : warnings) {
            m_warnings.append(warning.toString());
        }
    });
}

WindowScene::~WindowScene() = default;

void WindowScene::prepare()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
}

QQuickItem* WindowScene::show(const QByteArray& qml, const QSize& size, const QString& theme)
{
    QQmlComponent styles(m_view->engine());
    styles.setData("import QtQuick 2.15\nimport \"widgets\"\nQtObject { property var style: Style }",
                   QUrl(c_folder + QStringLiteral("styles.qml")));
    const std::unique_ptr<QObject> holder(styles.create());
    m_style = holder == nullptr ? nullptr : holder->property("style").value<QObject*>();
    if (m_style == nullptr) {
        m_warnings.append(styles.errorString());
        return nullptr;
    }
    m_style->setProperty("windowWidth", size.width());
    m_style->setProperty("windowHeight", size.height());
    m_style->setProperty("theme", theme);
    m_view->resize(size);
    QQmlComponent component(m_view->engine());
    const QUrl url(c_folder + QStringLiteral("test.qml"));
    component.setData(qml, url);
    auto* item = qobject_cast<QQuickItem*>(component.create());
    if (item == nullptr) {
        m_warnings.append(component.errorString());
        return nullptr;
    }
    m_view->setContent(url, nullptr, item);
    m_view->show();
    if (!QTest::qWaitForWindowExposed(m_view.get())) {
        m_warnings.append(QStringLiteral("the window is not shown"));
    }
    return item;
}

QQuickItem* WindowScene::item(const QString& name) const
{
    return findItem(m_window->contentItem(), name);
}

QList<QQuickItem*> WindowScene::operableItems() const
{
    QList<QQuickItem*> found;
    collect(m_window->contentItem(), found);
    return found;
}

QList<QQuickItem*> WindowScene::tabOrder() const
{
    QList<QQuickItem*> order;
    for (int i = 0; i < c_mostTabs; ++i) {
        press(Qt::Key_Tab);
        QQuickItem* focused = reached(m_window);
        if (focused == nullptr || order.contains(focused)) {
            break;
        }
        order.append(focused);
    }
    return order;
}

void WindowScene::click(const QQuickItem* what) const
{
    QTest::mouseClick(m_window, Qt::LeftButton, {}, centre(what));
}

void WindowScene::tap(const QQuickItem* what) const
{
    QTest::touchEvent(m_window, m_touch).press(0, centre(what), m_window);
    QTest::touchEvent(m_window, m_touch).release(0, centre(what), m_window);
}

void WindowScene::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(m_window, key, modifiers);
}

bool WindowScene::tabTo(const QString& name) const
{
    for (int i = 0; i < c_mostTabs; ++i) {
        const QQuickItem* focused = reached(m_window);
        if (focused != nullptr && focused->objectName() == name) {
            return true;
        }
        press(Qt::Key_Tab);
    }
    return false;
}
