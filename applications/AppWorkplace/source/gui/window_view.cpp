#include "window_view.h"

#include <QImageReader>
#include <QPainter>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQuickItem>
#include <QThreadPool>

#include <utility>

#include "window_types.h"

void WindowView::loadIconReader()
{
    QThreadPool::globalInstance()->start(
        [] { QImageReader(QStringLiteral(":/applications/AppWorkplace/gui/icons/icon-work.svg")).read(); });
}

WindowView::WindowView(WindowModel& model, QObject* parent) : QObject(parent)
{
    registerWindowTypes();
    m_engine.rootContext()->setContextProperty(QStringLiteral("workplace"), &model);
    connect(&model, &WindowModel::languageChanged, &m_engine, &QQmlEngine::retranslate);
}

WindowView::~WindowView() = default;

bool WindowView::show(const QSize& size)
{
    QQmlComponent component(&m_engine, QUrl(QStringLiteral("qrc:/applications/AppWorkplace/gui/Main.qml")));
    QObject* made = component.createWithInitialProperties({{QStringLiteral("width"), size.width()},
                                                           {QStringLiteral("height"), size.height()},
                                                           {QStringLiteral("visible"), true}});
    m_window.reset(qobject_cast<QQuickWindow*>(made));
    if (m_window == nullptr) {
        delete made;
        qCritical("%s", qPrintable(component.errorString()));
        return false;
    }
    return true;
}

void WindowView::picture(std::function<void(const QImage&)> answer)
{
    // Not of the window itself: what has no screen cannot be read back.
    m_grab = m_window->contentItem()->grabToImage();
    if (m_grab == nullptr) {
        QMetaObject::invokeMethod(
            this, [answer = std::move(answer)] { answer({}); }, Qt::QueuedConnection);
        return;
    }
    connect(m_grab.data(), &QQuickItemGrabResult::ready, this, [this, answer = std::move(answer)] {
        QImage image(m_window->contentItem()->size().toSize(), QImage::Format_RGB32);
        image.fill(m_window->color());
        QPainter(&image).drawImage(QRect(QPoint(), image.size()), m_grab->image());
        m_grab.reset();
        answer(image);
    });
}
