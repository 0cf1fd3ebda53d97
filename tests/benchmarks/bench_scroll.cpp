// The stored results in the window, a million of them: what a frame takes while they are scrolled, in a scene that is
// drawn without a graphics card. A frame is everything that the window's thread does from the new place of the list to
// the picture; its drawing is not put off. Time of the processor, for other work on the machine is none of it.

#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <random>
#include <vector>

#include "filled_history.h"
#include "gui/history_table.h"
#include "window_scene.h"

namespace {

constexpr int c_frames = 600;
constexpr double c_nsPerMs = 1e6;

const QByteArray c_document = R"(
import QtQuick 2.15
import "pages"
import "widgets"

Rectangle {
    color: Style.windowColor

    ResultsPage {
        anchors.fill: parent
        workplace: QtObject { property var history: historyTable }
    }
}
)";

double threadMs()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return 1e3 * double(now.tv_sec) + double(now.tv_nsec) / c_nsPerMs;
}

double percentile(std::vector<double> values, double part)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values.at(std::size_t(part * double(values.size() - 1)));
}

class Scroll
{
public:
    Scroll(QQuickWindow& window, QQuickItem* list, HistoryTable& table) : m_window(window), m_table(table), m_list(list)
    {
        QObject::connect(&window, &QQuickWindow::frameSwapped, &m_loop, &QEventLoop::quit);
    }

    double fullHeight() const { return m_list->property("fullHeight").toDouble(); }
    double rowHeight() const { return m_list->property("rowHeight").toDouble(); }

    /// Milliseconds of this thread from here to the picture.
    double frameAt(double position)
    {
        const double before = threadMs();
        QMetaObject::invokeMethod(m_list, "scrollTo", Q_ARG(QVariant, position));
        m_window.update();
        m_loop.exec();
        return threadMs() - before;
    }

    bool areRowsLoaded() const
    {
        const VisibleRows& rows = *m_table.visibleRows();
        const int end = std::min(rows.first() + rows.size(), rows.count());
        for (int row = rows.first(); row < end; ++row) {
            if (!m_table.index(row).data(HistoryTable::LoadedRole).toBool()) {
                return false;
            }
        }
        return true;
    }

    /// Milliseconds that pass until what is seen has been read, and is drawn.
    double rowsAt(double position)
    {
        QElapsedTimer timer;
        timer.start();
        frameAt(position);
        while (!areRowsLoaded()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        m_window.update();
        m_loop.exec();
        return double(timer.nsecsElapsed()) / c_nsPerMs;
    }

private:
    QQuickWindow& m_window;
    HistoryTable& m_table;
    QQuickItem* m_list;
    QEventLoop m_loop;
};

void print(const char* what, const std::vector<double>& times, double memory)
{
    std::printf("%-34s p50 %6.2f ms   p99 %6.2f ms   most %6.2f ms   over 16.7 ms: %d of %d   memory %.1f MB\n", what,
                percentile(times, 0.5), percentile(times, 0.99), percentile(times, 1),
                int(std::count_if(times.begin(), times.end(), [](double time) { return time > 16.7; })),
                int(times.size()), memory / (1024 * 1024));
    std::fflush(stdout);
}

void measure(const char* what, const std::function<double(int)>& frame)
{
    std::vector<double> times;
    times.reserve(c_frames);
    for (int i = 0; i < c_frames; ++i) {
        times.push_back(frame(i));
    }
    print(what, times, residentBytes());
}

} // namespace

int main(int argc, char* argv[])
{
    WindowScene::prepare();
    qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
    const QGuiApplication application(argc, argv);
    const FilledHistory history(FilledHistory::c_million);

    HistoryTable table(history.folder());
    WindowScene scene;
    scene.engine()->rootContext()->setContextProperty(QStringLiteral("historyTable"), &table);
    QElapsedTimer timer;
    timer.start();
    if (scene.show(c_document, {1280, 800}) == nullptr) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(scene.warnings().join(QLatin1Char('\n'))));
        return 1;
    }
    while (table.count() == 0) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    Scroll scroll(*scene.window(), scene.item(QStringLiteral("results.idTable")), table);
    scroll.frameAt(0);
    while (!scroll.areRowsLoaded()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    std::printf("first rows after %.0f ms, %d entries\n", double(timer.nsecsElapsed()) / c_nsPerMs, table.count());

    const double most = scroll.fullHeight();
    const double row = scroll.rowHeight();
    std::mt19937 random(1); // NOLINT: the same each time
    const auto anywhere = [&] { return std::uniform_real_distribution<double>(0, most)(random); };
    measure("a slow flick, half a row a frame", [&](int i) { return scroll.frameAt(0.5 * row * i); });
    measure("a fast flick, eight rows a frame", [&](int i) { return scroll.frameAt(most / 3 + 8 * row * i); });
    measure("the bar drawn over all of it", [&](int i) { return scroll.frameAt(most * i / c_frames); });
    measure("jumps to anywhere", [&](int) { return scroll.frameAt(anywhere()); });
    measure("a jump, until its rows are drawn", [&](int) { return scroll.rowsAt(anywhere()); });
    return 0;
}
