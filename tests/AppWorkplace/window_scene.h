#pragma once

#include <QQuickItem>
#include <QQuickView>
#include <QStringList>

#include <memory>

/// A piece of the window in a scene of its own, worked as a person works it. The main() of a test that uses it calls
/// prepare() before it makes its QGuiApplication.
class WindowScene : public QObject
{
    Q_OBJECT

public:
    WindowScene();
    ~WindowScene() override;

    /// No display and no graphics card are needed from here on.
    static void prepare();

    /// Shows what the text of a QML document makes, filling a window of that size. It stands in the folder "gui", so
    /// that it imports "widgets" and "pages". Null when the document is wrong; warnings() say why.
    QQuickItem* show(const QByteArray& qml, const QSize& size, const QString& theme = QStringLiteral("light"));
    /// Works an other window, one that is shown.
    void attach(QQuickWindow* window) { m_window = window; }

    QQuickWindow* window() const { return m_window; }
    QQmlEngine* engine() const { return m_view->engine(); }
    QObject* style() const { return m_style; }
    /// What the engine and the scene have complained of.
    const QStringList& warnings() const { return m_warnings; }

    /// By its dotted object name, as drawn; null when there is none.
    QQuickItem* item(const QString& name) const;
    /// All that is visible, has an object name and can be operated.
    QList<QQuickItem*> operableItems() const;
    /// The same, in the order in which the key Tab reaches them, from where the focus is.
    QList<QQuickItem*> tabOrder() const;

    void click(const QQuickItem* what) const;
    void tap(const QQuickItem* what) const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    /// Goes there with the key Tab alone; false when it is not reached.
    bool tabTo(const QString& name) const;

private:
    QTouchDevice* const m_touch;
    std::unique_ptr<QQuickView> m_view;
    QQuickWindow* m_window = nullptr;
    QObject* m_style = nullptr;
    QStringList m_warnings;
};
