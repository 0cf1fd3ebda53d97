// Measures the window beside a bare Qt Quick window: bench_window, without arguments. It runs itself, a process for
// each measurement, drawn by the processor and shown nowhere (or where QT_QPA_PLATFORM says).

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>

#include <sys/resource.h>

#include "gui/window_model.h"
#include "gui/window_view.h"

namespace {

constexpr int c_runs = 15;
constexpr int c_idleMs = 10000;
constexpr int c_results = 30;
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

WindowOrder orderIn(const QString& folder)
{
    Settings settings;
    settings.port = QStringLiteral("simulated");
    settings.pluginFolder = QStringLiteral(PLUGIN_FOLDER);
    settings.dataFolder = folder;
    settings.language = QStringLiteral("en");
    WindowOrder order;
    order.devices = {settings};
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

int showWindow(const QString& mode, qint64 startUs)
{
    const QTemporaryDir folder;
    WindowModel model(orderIn(folder.path()));
    WindowView view(model);
    if (!view.show({1280, 800})) {
        return 1;
    }
    Cost before;
    QTimer idle;
    qint64 shownUs = 0;
    int results = 0;
    if (mode == QLatin1String("first")) {
        QObject::connect(view.window(), &QQuickWindow::frameSwapped, qApp, [&] {
            std::printf("%.1f\n", double(nowUs() - startUs) / c_perMilli);
            QCoreApplication::exit(0);
        });
    } else if (mode == QLatin1String("idle")) {
        idle.setSingleShot(true);
        QTimer::singleShot(2000, qApp, [&] { // what belongs to the start is over
            before = Cost::now();
            idle.start(c_idleMs);
        });
        QObject::connect(&idle, &QTimer::timeout, qApp, [&] {
            const Cost after = Cost::now();
            std::printf("%.2f %ld\n", after.processorMs - before.processorMs, after.wakes - before.wakes);
            QCoreApplication::exit(0);
        });
    } else {
        DeviceModel* device = model.devices()->at(0);
        QObject::connect(device, &DeviceModel::resultShown, qApp, [&] { shownUs = shownUs == 0 ? nowUs() : shownUs; });
        QObject::connect(
            view.window(), &QQuickWindow::frameSwapped, qApp,
            [&] {
                if (shownUs != 0) {
                    std::printf("%.2f\n", double(nowUs() - shownUs) / c_perMilli);
                    shownUs = 0;
                    if (++results == c_results) {
                        model.close();
                    }
                }
            },
            Qt::DirectConnection);
        QObject::connect(&model, &WindowModel::sigEnded, qApp, &QCoreApplication::quit);
        model.connectAll();
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
