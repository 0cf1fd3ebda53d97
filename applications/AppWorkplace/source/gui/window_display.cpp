#include "window_display.h"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QQuickWindow>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr const char* c_platform = "QT_QPA_PLATFORM";
constexpr const char* c_renderer = "QT_QUICK_BACKEND";

/// What Qt says when it cannot go on; it would end the program with a core dump next.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    Q_UNUSED(context)
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "gui: no window can be shown\n  why: %s\n  to do: %s\n", qPrintable(message.simplified()),
                     "look at DISPLAY or WAYLAND_DISPLAY; from elsewhere call ssh -X, or take --screenshot");
        std::_Exit(int(Problem::Kind::SetUp));
    }
}

/// Whether a graphics card, or what takes its place, can be drawn with. What takes its place is slower than no card.
bool hasGraphics()
{
    QOpenGLContext context;
    QOffscreenSurface surface;
    surface.create();
    return context.create() && context.makeCurrent(&surface);
}

} // namespace

std::optional<Problem> window_display::missing()
{
    for (const char* variable : {c_platform, "DISPLAY", "WAYLAND_DISPLAY"}) {
        if (!qEnvironmentVariableIsEmpty(variable)) {
            return std::nullopt;
        }
    }
    return Problem{Problem::Kind::SetUp, QStringLiteral("gui"),
                   QCoreApplication::translate("WindowDisplay", "no window can be shown: there is no display"),
                   QCoreApplication::translate("WindowDisplay", "neither DISPLAY nor WAYLAND_DISPLAY is set"),
                   QCoreApplication::translate(
                       "WindowDisplay", "start it from a desktop, or with ssh -X; --screenshot needs no display")};
}

std::unique_ptr<QCoreApplication> window_display::makeApplication(int& argc, char** argv, bool isHeadless)
{
    if (isHeadless) {
        qputenv(c_platform, "offscreen");
        qputenv(c_renderer, "software");
    }
    qputenv("QT_QUICK_CONTROLS_STYLE", "Default"); // whatever the desktop prefers
    const QtMessageHandler before = qInstallMessageHandler(&endWithoutDisplay);
    auto application = std::make_unique<QGuiApplication>(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("haitor-workplace")); // its icon and name
    if (qEnvironmentVariableIsEmpty(c_renderer) && !hasGraphics()) {
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    }
    qInstallMessageHandler(before);
    return application;
}
