// Measures the window beside a bare Qt Quick window: bench_window, without arguments. It runs itself, a process for
// each measurement, drawn by the processor and shown nowhere (or where QT_QPA_PLATFORM says).

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSet>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>

#include <sys/resource.h>

#include "gui/window_model.h"
#include "gui/window_view.h"
#include "services/device_settings.h"

namespace {

constexpr int c_runs = 15;
constexpr int c_idleMs = 10000;
constexpr int c_startMs = 2000; // then what belongs to the start is over
constexpr int c_results = 30;
constexpr int c_devices = 16;
constexpr int c_busyMs = 30000;
constexpr int c_tickMs = 4;
constexpr int c_limitMs = 120000;
constexpr double c_perMilli = 1000;
constexpr double c_perMillion = 1e6;

qint64 nowUs()
{
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return qint64(time.tv_sec) * qint64(c_perMillion) + time.tv_nsec / qint64(c_perMilli);
}

/// What this process has cost so far.
struct Cost
{
    double processorMs = 0;
    long wakes = 0;

    static Cost now()
    {
        rusage usage = {};
        getrusage(RUSAGE_SELF, &usage);
        const auto ms = [](const timeval& time) {
            return double(time.tv_sec) * c_perMilli + double(time.tv_usec) / c_perMilli;
        };
        return {ms(usage.ru_utime) + ms(usage.ru_stime), usage.ru_nvcsw};
    }
};

/// Simulated devices, each of two results a second.
WindowOrder orderIn(const QString& folder, int devices)
{
    Settings settings;
    settings.pluginFolder = QStringLiteral(PLUGIN_FOLDER);
    settings.dataFolder = folder;
    settings.language = QStringLiteral("en");
    QStringList names;
    for (int i = 0; i < devices; ++i) {
        names.append(settings.port);
    }
    WindowOrder order;
    readDevices(names, settings, &order.devices);
    return order;
}

int showBare(qint64 startUs)
{
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.15\nimport QtQuick.Window 2.15\n"
                      "Window { width: 1280; height: 800; visible: true; Text { text: 'bare' } }",
                      QUrl(QStringLiteral("qrc:/bare.qml")));
    const std::unique_ptr<QObject> made(component.create());
    QObject::connect(
        qobject_cast<QQuickWindow*>(made.get()), &QQuickWindow::frameSwapped, qApp,
        [&] {
            std::printf("%.1f\n", double(nowUs() - startUs) / c_perMilli);
            QCoreApplication::exit(0);
        },
        Qt::DirectConnection);
    return QCoreApplication::exec();
}

void printFirstPicture(const WindowView& view, qint64 startUs)
{
    QObject::connect(view.window(), &QQuickWindow::frameSwapped, qApp, [startUs] {
        std::printf("%.1f\n", double(nowUs() - startUs) / c_perMilli);
        QCoreApplication::exit(0);
    });
}

void printIdleCost()
{
    QTimer::singleShot(c_startMs, qApp, [] {
        const Cost before = Cost::now();
        QTimer::singleShot(c_idleMs, qApp, [before] {
            const Cost after = Cost::now();
            std::printf("%.2f %ld\n", after.processorMs - before.processorMs, after.wakes - before.wakes);
            QCoreApplication::exit(0);
        });
    });
}

/// From a result that is stored to its picture.
void printResultTimes(WindowModel& model, const WindowView& view)
{
    auto shownUs = std::make_shared<qint64>(0);
    QObject::connect(model.devices()->at(0), &DeviceModel::resultShown, qApp,
                     [shownUs] { *shownUs = *shownUs == 0 ? nowUs() : *shownUs; });
    QObject::connect(
        view.window(), &QQuickWindow::frameSwapped, qApp,
        [&model, shownUs, results = 0]() mutable {
            if (*shownUs != 0) {
                std::printf("%.2f\n", double(nowUs() - *shownUs) / c_perMilli);
                *shownUs = 0;
                if (++results == c_results) {
                    model.close();
                }
            }
        },
        Qt::DirectConnection);
    model.connectAll();
}

/// How long the window's thread is held up at a time, by whatever it does: how late a short timer is.
class HoldUps
{
public:
    HoldUps()
    {
        m_ticks.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_ticks, &QTimer::timeout, qApp, [this] {
            m_lateMs.append(double(m_sinceTick.nsecsElapsed()) / c_perMillion - c_tickMs);
            m_sinceTick.start();
        });
    }

    bool isRunning() const { return m_ticks.isActive(); }

    void begin()
    {
        m_sinceTick.start();
        m_ticks.start(c_tickMs);
    }

    /// In order of size.
    QVector<double> end()
    {
        m_ticks.stop();
        std::sort(m_lateMs.begin(), m_lateMs.end());
        return m_lateMs;
    }

private:
    QTimer m_ticks;
    QElapsedTimer m_sinceTick;
    QVector<double> m_lateMs;
};

/// While results come on all devices: from the last device's first result on.
void printHoldUps(WindowModel& model, const WindowView& view)
{
    struct Course
    {
        HoldUps holdUps;
        QSet<int> working;
        int results = 0;
        int frames = 0;
    };
    auto course = std::make_shared<Course>();
    const auto end = [&model, course] {
        const QVector<double> lateMs = course->holdUps.end();
        std::printf("%d %d %.2f %.2f\n", course->results, course->frames, lateMs.value(lateMs.size() * 99 / 100),
                    lateMs.isEmpty() ? 0 : lateMs.constLast());
        model.close();
    };
    const auto onResult = [&model, course, end](int device) {
        course->working.insert(device);
        if (course->holdUps.isRunning()) {
            ++course->results;
        } else if (course->results == 0 && course->working.size() == model.devices()->count()) {
            course->frames = 0;
            course->holdUps.begin();
            QTimer::singleShot(c_busyMs, qApp, end);
        }
    };
    QObject::connect(view.window(), &QQuickWindow::frameSwapped, qApp, [course] { ++course->frames; });
    for (int i = 0; i < model.devices()->count(); ++i) {
        QObject::connect(model.devices()->at(i), &DeviceModel::resultShown, qApp, [onResult, i] { onResult(i); });
    }
    model.connectAll();
}

int showWindow(const QString& mode, qint64 startUs)
{
    WindowView::loadIconReader();
    const QTemporaryDir folder;
    WindowModel model(orderIn(folder.path(), mode == QLatin1String("devices") ? c_devices : 1));
    WindowView view(model);
    if (!view.show({1280, 800})) {
        return 1;
    }
    QObject::connect(&model, &WindowModel::sigEnded, qApp, &QCoreApplication::quit);
    if (mode == QLatin1String("first")) {
        printFirstPicture(view, startUs);
    } else if (mode == QLatin1String("idle")) {
        printIdleCost();
    } else if (mode == QLatin1String("result")) {
        printResultTimes(model, view);
    } else {
        printHoldUps(model, view);
    }
    return QCoreApplication::exec();
}

/// The numbers that a process of that mode prints, in order of size.
QVector<double> measure(const QString& mode, int runs)
{
    QVector<double> numbers;
    for (int i = 0; i < runs; ++i) {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QCoreApplication::applicationFilePath(), {mode, QString::number(nowUs())});
        process.waitForFinished(c_limitMs);
        const QList<QByteArray> words = process.readAllStandardOutput().simplified().split(' ');
        for (const QByteArray& word : words) {
            numbers.append(word.toDouble());
        }
    }
    return numbers;
}

double median(QVector<double> numbers)
{
    std::sort(numbers.begin(), numbers.end());
    return numbers.value(numbers.size() / 2);
}

int measureAll()
{
    const double bare = median(measure(QStringLiteral("bare"), c_runs));
    const double first = median(measure(QStringLiteral("first"), c_runs));
    std::printf("first picture: %.0f ms; bare window: %.0f ms; ratio %.2f\n", first, bare, first / bare);
    const QVector<double> idle = measure(QStringLiteral("idle"), 1);
    std::printf("idle, %d s: %.1f ms of processor time (%.3f %%), woken %.0f times\n", c_idleMs / 1000, idle.value(0),
                100 * idle.value(0) / c_idleMs, idle.value(1));
    QVector<double> shown = measure(QStringLiteral("result"), 1);
    std::sort(shown.begin(), shown.end());
    std::printf("result taken to picture shown, %d results: median %.1f ms, longest %.1f ms\n", shown.size(),
                median(shown), shown.isEmpty() ? 0 : shown.constLast());
    const QVector<double> held = measure(QStringLiteral("devices"), 1);
    std::printf(
        "%d devices, %d s: %.0f results, %.0f frames, window's thread held up: one tick in a hundred later than "
        "%.1f ms, the latest %.1f ms\n",
        c_devices, c_busyMs / 1000, held.value(0), held.value(1), held.value(2), held.value(3));
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_QUICK_CONTROLS_STYLE", "Default");
    if (argc < 3) {
        const QCoreApplication application(argc, argv);
        return measureAll();
    }
    const QGuiApplication application(argc, argv);
    const QString mode = QString::fromLatin1(argv[1]);
    const qint64 startUs = QByteArray(argv[2]).toLongLong();
    return mode == QLatin1String("bare") ? showBare(startUs) : showWindow(mode, startUs);
}
