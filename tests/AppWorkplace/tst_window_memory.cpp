#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

#include "gui/gui_command.h"
#include "gui/window_memory.h"
#include "gui/window_model.h"
#include "window_scene.h"

namespace {

/// The command as it is called, in this process.
class CalledWindow
{
public:
    explicit CalledWindow(const QString& folder, const QString& theme = {})
        : m_console(stdout, stderr, false)
        , m_command({m_console, settings(folder), {}, m_options}, order(folder, theme))
    {
        m_command.start();
    }
    ~CalledWindow()
    {
        const QSignalSpy done(&m_command, &CliCommand::sigDone);
        m_command.interrupt();
        QTRY_VERIFY(!done.isEmpty());
    }

    /// The window's model, as its documents know it. Null: no window has come.
    static QObject* model()
    {
        const QWindowList windows = QGuiApplication::topLevelWindows();
        return windows.isEmpty() ? nullptr
                                 : QQmlEngine::contextForObject(windows.constFirst())
                                       ->contextProperty(QStringLiteral("workplace"))
                                       .value<QObject*>();
    }

    static Settings settings(const QString& folder)
    {
        Settings settings;
        settings.port = QStringLiteral("/nowhere");
        settings.dataFolder = folder;
        return settings;
    }
    static WindowOrder order(const QString& folder, const QString& theme = {})
    {
        WindowOrder order;
        order.devices = {settings(folder)};
        order.theme = theme;
        return order;
    }

private:
    Console m_console;
    QCommandLineParser m_options;
    GuiCommand m_command;
};

} // namespace

/// How the window was left, and how the next one begins.
class TestWindowMemory : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    QString file() const { return m_folder.filePath(QStringLiteral("window.json")); }
    void write(const QByteArray& text) const
    {
        QFile output(file());
        QVERIFY(output.open(QIODevice::WriteOnly));
        output.write(text);
    }
    WindowOrder recalled(WindowOrder order) const
    {
        QString cause;
        WindowMemory(m_folder.path()).recall(order, &cause);
        return order;
    }

private Q_SLOTS:
    void init() { QFile::remove(file()); }

    void theNextWindowBeginsAsThisOneWasLeft()
    {
        {
            const CalledWindow window(m_folder.path());
            QVERIFY(CalledWindow::model() != nullptr);
            QCOMPARE(CalledWindow::model()->property("theme"), QVariant(QStringLiteral("light")));
            CalledWindow::model()->setProperty("theme", QStringLiteral("dark"));
            CalledWindow::model()->setProperty("language", QStringLiteral("de"));
        }
        const CalledWindow next(m_folder.path());
        QVERIFY(CalledWindow::model() != nullptr);
        QCOMPARE(CalledWindow::model()->property("theme"), QVariant(QStringLiteral("dark")));
        QCOMPARE(CalledWindow::model()->property("language"), QVariant(QStringLiteral("de")));
        QVERIFY2(QGuiApplication::topLevelWindows().constFirst()->title().startsWith(QLatin1String("Arbeit ")),
                 qPrintable(QGuiApplication::topLevelWindows().constFirst()->title()));
    }

    void whatIsSaidGoesFirst()
    {
        write(R"({"theme": "dark", "language": "de"})");
        WindowOrder order = CalledWindow::order(m_folder.path(), QStringLiteral("contrast"));
        order.devices.first().language = QStringLiteral("fr");
        order = recalled(order);
        QCOMPARE(order.theme, QStringLiteral("contrast"));
        QCOMPARE(order.devices.constFirst().language, QStringLiteral("fr"));
    }

    void theLanguageIsThatOfEachDevice()
    {
        write(R"({"language": "de"})");
        WindowOrder order = CalledWindow::order(m_folder.path());
        order.devices.append(order.devices.constFirst());
        order = recalled(order);
        QCOMPARE(order.devices.at(0).language, QStringLiteral("de"));
        QCOMPARE(order.devices.at(1).language, QStringLiteral("de"));
    }

    void takesNoNameThatThereIsNot_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("another name") << QByteArray(R"({"theme": "pink", "language": "xx"})");
        QTest::newRow("no text") << QByteArray(R"({"theme": 1, "language": ["de"]})");
        QTest::newRow("nothing") << QByteArray("{}");
        QTest::newRow("no file") << QByteArray();
    }
    void takesNoNameThatThereIsNot()
    {
        QFETCH(QByteArray, text);
        if (!text.isEmpty()) {
            write(text);
        }
        WindowOrder order = CalledWindow::order(m_folder.path());
        QString cause;
        QVERIFY(WindowMemory(m_folder.path()).recall(order, &cause));
        QCOMPARE(order.theme, QString());
        QCOMPARE(order.devices.constFirst().language, QString());
    }

    void replacesADamagedFileByTheNextChoice()
    {
        write("{\"theme\": ");
        WindowMemory memory(m_folder.path());
        WindowOrder order = CalledWindow::order(m_folder.path());
        QString cause;
        QVERIFY(!memory.recall(order, &cause));
        QVERIFY(!cause.isEmpty());
        WindowModel model(order);
        memory.follow(model);
        model.setTheme(QStringLiteral("dark"));
        QCOMPARE(recalled(order).theme, QStringLiteral("dark"));
    }

    void oneChoiceLeavesTheOther()
    {
        write(R"({"theme": "dark", "language": "de"})");
        WindowMemory memory(m_folder.path());
        WindowOrder order = CalledWindow::order(m_folder.path());
        QString cause;
        QVERIFY(memory.recall(order, &cause));
        WindowModel model(order);
        memory.follow(model);
        model.setTheme(QStringLiteral("contrast"));
        const WindowOrder next = recalled(CalledWindow::order(m_folder.path()));
        QCOMPARE(next.theme, QStringLiteral("contrast"));
        QCOMPARE(next.devices.constFirst().language, QStringLiteral("de"));
    }

    // A folder in the place of the file stops root as well.
    void saysWhyAChoiceCannotBeKept()
    {
        QVERIFY(QDir(m_folder.path()).mkdir(QStringLiteral("window.json")));
        WindowMemory memory(m_folder.path());
        WindowModel model(CalledWindow::order(m_folder.path()));
        memory.follow(model);
        const QSignalSpy notKept(&memory, &WindowMemory::sigNotKept);
        model.setTheme(QStringLiteral("dark"));
        QVERIFY(QDir(m_folder.path()).rmdir(QStringLiteral("window.json")));
        QCOMPARE(notKept.size(), 1);
        QVERIFY(!notKept.constFirst().constFirst().toString().isEmpty());
    }
};

int main(int argc, char* argv[])
{
    WindowScene::prepare();
    QGuiApplication application(argc, argv);
    TestWindowMemory test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_window_memory.moc"
