#pragma once

#include <QImage>
#include <QQmlEngine>
#include <QQuickItemGrabResult>
#include <QQuickWindow>

#include <functional>
#include <memory>

#include "window_model.h"

/// The window on the screen: Main.qml with its model. An application with windows is there before it is made.
class WindowView : public QObject
{
    Q_OBJECT

public:
    /// Loads what reads the icons, in a thread of its own: it takes as long as several documents, which are loaded
    /// meanwhile. For the first picture to come sooner it is called first of all; it may be left out.
    static void loadIconReader();

    /// The model outlives it.
    explicit WindowView(WindowModel& model, QObject* parent = nullptr);
    ~WindowView() override;

    /// Makes and shows it. False, when its documents are wrong; the log says why.
    bool show(const QSize& size);
    /// Null before it is shown.
    QQuickWindow* window() const { return m_window.get(); }
    QQmlEngine& engine() { return m_engine; }

    /// A picture of it as it is now: the answer comes from a later turn of the event loop; null when it cannot be made.
    void picture(std::function<void(const QImage&)> answer);

private:
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    QSharedPointer<QQuickItemGrabResult> m_grab;
};
