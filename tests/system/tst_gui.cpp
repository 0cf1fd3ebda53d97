#include <QFile>
#include <QImage>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include "program_run.h"
#include "workplace_run.h"

namespace {

constexpr int c_usage = 2;
constexpr int c_setUpProblem = 3;

} // namespace

/// The command `gui` as a user calls it, on machines without a display.
class TestGui : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    QString file(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

private Q_SLOTS:
    void initTestCase()
    {
        for (const char* variable : {"QT_QPA_PLATFORM", "QT_QUICK_BACKEND", "DISPLAY", "WAYLAND_DISPLAY"}) {
            qunsetenv(variable);
        }
    }

    void saysWhatIsMissingWithoutADisplay()
    {
        WorkplaceRun gui;
        QVERIFY(gui.start({QStringLiteral("gui")}));
        QVERIFY(gui.waitForEnd());
        QCOMPARE(gui.exitStatus(), c_setUpProblem);
        QVERIFY(gui.messages().contains(QStringLiteral("no window can be shown")));
    }

    void saysThatADisplayDoesNotAnswer()
    {
        qputenv("DISPLAY", ":12345");
        WorkplaceRun gui;
        QVERIFY(gui.start({QStringLiteral("gui")}));
        QVERIFY(gui.waitForEnd());
        qunsetenv("DISPLAY");
        QCOMPARE(gui.exitStatus(), c_setUpProblem);
        QVERIFY(gui.messages().contains(QStringLiteral("no window can be shown")));
    }

    void refusesWhatThereIsNot_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("page") << QStringList({QStringLiteral("--page"), QStringLiteral("cellar")});
        QTest::newRow("theme") << QStringList({QStringLiteral("--theme"), QStringLiteral("pink")});
        QTest::newRow("size") << QStringList({QStringLiteral("--size"), QStringLiteral("wide")});
        for (const char* size : {"639x480", "640x479", "7681x800", "1280x4321", "99999x99999"}) {
            QTest::newRow(size) << QStringList({QStringLiteral("--size"), QLatin1String(size)});
        }
        QTest::newRow("argument") << QStringList({QStringLiteral("work")});
    }
    void refusesWhatThereIsNot()
    {
        QFETCH(QStringList, arguments);
        WorkplaceRun gui;
        QVERIFY(gui.start(QStringList{QStringLiteral("gui")} + arguments));
        QVERIFY(gui.waitForEnd());
        QCOMPARE(gui.exitStatus(), c_usage);
    }

    void drawsTheWindowIntoAFile_data()
    {
        QTest::addColumn<QString>("page");
        for (const char* page : {"work", "connect"}) {
            QTest::newRow(page) << QString::fromLatin1(page);
        }
    }
    void drawsTheWindowIntoAFile()
    {
        QFETCH(QString, page);
        WorkplaceRun gui;
        QVERIFY(gui.start({QStringLiteral("gui"), QStringLiteral("--screenshot"), file("page.png"),
                           QStringLiteral("--page"), page, QStringLiteral("--size"), QStringLiteral("1024x600"),
                           QStringLiteral("--theme"), QStringLiteral("dark")}));
        QVERIFY(gui.waitForEnd());
        QCOMPARE(gui.exitStatus(), 0);
        QCOMPARE(gui.messages(), QString());
        const QImage picture(file("page.png"));
        QCOMPARE(picture.size(), QSize(1024, 600));
        QVERIFY(picture.pixelColor(0, 0).lightness() < 128);
    }

    void drawsRealResults()
    {
        WorkplaceRun gui;
        QVERIFY(gui.start({QStringLiteral("gui"), QStringLiteral("--screenshot"), file("results.png"),
                           QStringLiteral("--connect"), QStringLiteral("--results"), QStringLiteral("1")}));
        QVERIFY(gui.waitForEnd());
        QCOMPARE(gui.exitStatus(), 0);
        QCOMPARE(gui.messages(), QString());
        QVERIFY(!QImage(file("results.png")).isNull());
    }

    void saysThatItCannotReadHowItWasLeft()
    {
        QFile left(file("window.json"));
        QVERIFY(left.open(QIODevice::WriteOnly));
        left.write("{\"theme\": ");
        left.close();
        WorkplaceRun gui;
        gui.keepStoreIn(m_folder.path());
        QVERIFY(gui.start({QStringLiteral("gui"), QStringLiteral("--screenshot"), file("left.png")}));
        QVERIFY(gui.waitForEnd());
        QCOMPARE(gui.exitStatus(), 0);
        QVERIFY2(gui.messages().contains(left.fileName()), gui.report());
        QVERIFY(!QImage(file("left.png")).isNull());
    }

    void saysWhenAPictureCannotBeWritten()
    {
        WorkplaceRun gui;
        QVERIFY(gui.start({QStringLiteral("gui"), QStringLiteral("--screenshot"), file("no/such/folder.png")}));
        QVERIFY(gui.waitForEnd());
        QCOMPARE(gui.exitStatus(), c_setUpProblem);
        QVERIFY(gui.messages().contains(QStringLiteral("cannot be written")));
    }
};

QTEST_GUILESS_MAIN(TestGui)
#include "tst_gui.moc"
