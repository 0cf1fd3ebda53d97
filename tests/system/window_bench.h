#pragma once

#include <QFile>
#include <QQmlError>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>

#include "gui/window_model.h"
#include "gui/window_view.h"
#include "line_trace.h"
#include "window_scene.h"

/// The whole window in this process, with real plugins, on the port of a simulator; worked as a person works it.
class WindowBench
{
public:
    /// How things are pressed.
    enum class Hand { Mouse, Finger, Keys };

    explicit WindowBench(const QString& port, const QSize& size = {1280, 800})
    {
        WindowOrder order;
        Settings settings;
        settings.port = port;
        settings.pluginFolder = QStringLiteral(PLUGINS);
        settings.dataFolder = m_folder.path();
        settings.traceFile = m_folder.filePath(QStringLiteral("trace"));
        settings.language = QStringLiteral("en");
        order.devices = {settings};
        order.page = QStringLiteral("connect");
        m_model = std::make_unique<WindowModel>(order);
        m_view = std::make_unique<WindowView>(*m_model);
        QObject::connect(&m_view->engine(), &QQmlEngine::warnings, &m_scene, [this](const QList<QQmlError>& warnings) {
            for (const QQmlError& warning : warnings) {
                m_warnings.append(warning.toString());
            }
        });
        m_isShown = m_view->show(size) && QTest::qWaitForWindowExposed(m_view->window());
        m_scene.attach(m_view->window());
    }

    bool isShown() const { return m_isShown; }
    WindowModel& model() { return *m_model; }
    DeviceModel& device() { return *m_model->devices()->at(0); }
    WindowScene& scene() { return m_scene; }
    QQuickWindow* window() { return m_view->window(); }
    const QStringList& warnings() const { return m_warnings; }
    LineTrace trace() const { return LineTrace::fromFile(m_folder.filePath(QStringLiteral("trace"))); }
    QString folder() const { return m_folder.path(); }

    /// The names of the pages whose documents are built in.
    static QStringList pages()
    {
        QStringList pages = WindowModel::pages();
        const auto isMissing = [](const QString& page) {
            return !QFile::exists(QStringLiteral(":/applications/AppWorkplace/gui/pages/%1Page.qml")
                                      .arg(page.at(0).toUpper() + page.mid(1)));
        };
        pages.erase(std::remove_if(pages.begin(), pages.end(), isMissing), pages.end());
        return pages;
    }

    /// Presses what has that object name, once it is there and can be pressed. False: it is not.
    bool press(Hand hand, const QString& name)
    {
        const auto item = [&] { return m_scene.item(name); };
        if (!QTest::qWaitFor([&] { return item() != nullptr && item()->isVisible() && item()->isEnabled(); }, 30000)) {
            return false;
        }
        switch (hand) {
        case Hand::Mouse:
            m_scene.click(item());
            return true;
        case Hand::Finger:
            m_scene.tap(item());
            return true;
        case Hand::Keys:
            if (!m_scene.tabTo(name)) {
                return false;
            }
            m_scene.press(Qt::Key_Return);
            return true;
        }
        return false;
    }

    /// Closes it as the person at the window does. False: it did not end.
    bool close()
    {
        const QSignalSpy ended(m_model.get(), &WindowModel::sigEnded);
        m_view->window()->close();
        return QTest::qWaitFor([&ended] { return !ended.isEmpty(); }, 30000);
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<WindowModel> m_model;
    std::unique_ptr<WindowView> m_view;
    WindowScene m_scene;
    QStringList m_warnings;
    bool m_isShown = false;
};
