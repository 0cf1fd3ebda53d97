#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QTest>

#include "program_run.h"
#include "window_bench.h"

namespace {

constexpr int c_fewEvents = 300;
constexpr int c_mostGrowthKb = 24000; // after the first quarter, in which caches fill

QStringList& complaintsSoFar()
{
    static QStringList complaints;
    return complaints;
}

/// What the scene or the engine complains of; what the plugins say of a bad line is their business.
void takeComplaint(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const QByteArray category = context.category;
    if (type != QtDebugMsg && type != QtInfoMsg &&
        (category == "qml" || category.startsWith("qt.") || message.contains(QLatin1String("qrc:")))) {
        complaintsSoFar().append(message);
    }
}

int residentKb()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> lines = status.readAll().split('\n');
        for (const QByteArray& line : lines) {
            if (line.startsWith("VmRSS:")) {
                return line.simplified().split(' ').value(1).toInt();
            }
        }
    }
    return 0;
}

} // namespace

/// Somebody who presses anything, on a line with bad weather. WINDOW_EVENTS in the environment: how often; WINDOW_SEED:
/// another course.
class TestWindowMonkey : public QObject
{
    Q_OBJECT

private:
    static void pressAnything(WindowBench& bench, QRandomGenerator& chance)
    {
        static const QVector<Qt::Key> keys = {Qt::Key_Tab,   Qt::Key_Tab,       Qt::Key_Tab,      Qt::Key_Backtab,
                                              Qt::Key_Space, Qt::Key_Return,    Qt::Key_Up,       Qt::Key_Down,
                                              Qt::Key_Left,  Qt::Key_Right,     Qt::Key_Escape,   Qt::Key_2,
                                              Qt::Key_A,     Qt::Key_Backspace, Qt::Key_PageDown, Qt::Key_Home};
        const QPoint at(chance.bounded(bench.window()->width()), chance.bounded(bench.window()->height()));
        switch (chance.bounded(8)) {
        case 0:
        case 1:
        case 2:
            QTest::mouseClick(bench.window(), Qt::LeftButton, {}, at);
            break;
        case 3:
            QTest::mouseDClick(bench.window(), Qt::LeftButton, {}, at);
            break;
        case 4:
            bench.model().setPage(WindowBench::pages().at(chance.bounded(WindowBench::pages().size())));
            break;
        default:
            QTest::keyClick(bench.window(), keys.at(chance.bounded(keys.size())));
        }
    }

private Q_SLOTS:
    void survivesAnything()
    {
        const int events =
            qEnvironmentVariableIsSet("WINDOW_EVENTS") ? qEnvironmentVariableIntValue("WINDOW_EVENTS") : c_fewEvents;
        const quint32 seed =
            qEnvironmentVariableIsSet("WINDOW_SEED") ? quint32(qEnvironmentVariableIntValue("WINDOW_SEED")) : 1;
        QRandomGenerator chance(seed);
        WindowBench bench(QStringLiteral("simulated:") + QStringLiteral(WEATHERS "/noisy_radio.json"), {1024, 600});
        QVERIFY(bench.isShown());
        QDir::setCurrent(bench.folder()); // what is saved under a name that was typed goes there
        qInstallMessageHandler(&takeComplaint);
        bench.device().work(QStringLiteral("2210"));
        int memoryKb = 0;
        for (int i = 0; i < events; ++i) {
            pressAnything(bench, chance);
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // only a loop that runs does it itself
            if (i == events / 4) {
                memoryKb = residentKb();
            }
        }
        const int growthKb = residentKb() - memoryKb;
        qInstallMessageHandler(nullptr);
        const QStringList complaints = complaintsSoFar() + bench.warnings();
        QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(QLatin1Char('\n'))));
        QVERIFY2(growthKb < c_mostGrowthKb, qPrintable(QString::number(growthKb)));
        qInfo("%d events, seed %u: memory grew by %d KiB", events, seed, growthKb);
        QVERIFY(bench.close());
    }
};

int main(int argc, char* argv[])
{
    WindowScene::prepare();
    QGuiApplication application(argc, argv);
    TestWindowMonkey test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_window_monkey.moc"
