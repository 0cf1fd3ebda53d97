#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QTest>

#include "gui/history_table.h"
#include "history_fixture.h"
#include "services/translations.h"
#include "window_scene.h"

namespace {

constexpr int c_limitMs = 20000;
constexpr double c_touchTarget = 44; // pixels at 96 to the inch

const char c_page[] = R"(
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

const QString c_table = QStringLiteral("results.idTable");
const QString c_filters = QStringLiteral("results.idFilters");
const QString c_export = QStringLiteral("results.idExport");

QVector<HistoryRecord> results(int count, int from = 0)
{
    QVector<HistoryRecord> records;
    for (int i = from; i < from + count; ++i) {
        records.append(HistoryFixture::result(i, i, i % 5 != 0, 1 + i % 4, QString::number(i % 3 == 0 ? 2211 : 2210)));
    }
    return records;
}

} // namespace

/// The page of the stored results, worked as a person works it; behind it a history in its file.
class TestResultsPage : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<HistoryFixture> m_history;
    std::unique_ptr<HistoryTable> m_table;
    std::unique_ptr<WindowScene> m_scene;
    std::unique_ptr<QTemporaryDir> m_out;

    void show(const QSize& size = {1280, 800}, const QString& theme = QStringLiteral("light"))
    {
        m_table = std::make_unique<HistoryTable>(m_history->folder());
        m_scene->engine()->rootContext()->setContextProperty(QStringLiteral("historyTable"), m_table.get());
        QVERIFY2(m_scene->show(c_page, size, theme) != nullptr,
                 qPrintable(m_scene->warnings().join(QLatin1Char('\n'))));
        QTRY_VERIFY_WITH_TIMEOUT(m_table->isShown() && !m_table->isReading(), c_limitMs);
        if (m_table->count() > 0) {
            QTRY_VERIFY_WITH_TIMEOUT(isSeen(first()), c_limitMs);
        }
    }

    QQuickItem* item(const QString& name) const { return m_scene->item(name); }
    QQuickItem* list() const { return item(c_table); }
    QQuickItem* row(int number) const { return item(c_table + QStringLiteral(".%1").arg(number)); }
    /// The row that is seen first.
    int first() const { return m_table->visibleRows()->first(); }
    /// It is drawn with what it holds.
    bool isSeen(int number) const
    {
        const QQuickItem* seen = row(number);
        return seen != nullptr && seen->property("cells").toList().size() > 1;
    }
    QString cell(int number, int column) const
    {
        const QQuickItem* seen = row(number);
        return seen == nullptr ? QString() : seen->property("cells").toList().value(column).toString();
    }
    static int readingColumn() { return 6; }
    double position() const { return list()->property("position").toDouble(); }
    void choose(const QString& name, int index)
    {
        m_scene->click(item(c_filters + name));
        QTRY_VERIFY_WITH_TIMEOUT(item(c_filters + name + QStringLiteral(".%1").arg(index)) != nullptr, c_limitMs);
        QTest::qWait(0);
        m_scene->click(item(c_filters + name + QStringLiteral(".%1").arg(index)));
    }
    QString text(const QString& name) const
    {
        return item(name) == nullptr ? QString() : item(name)->property("text").toString();
    }

private Q_SLOTS:
    void init()
    {
        m_history = std::make_unique<HistoryFixture>();
        m_out = std::make_unique<QTemporaryDir>();
        m_scene = std::make_unique<WindowScene>();
    }
    void cleanup()
    {
        const QStringList warnings = m_scene->warnings();
        m_scene.reset();
        m_table.reset();
        QCOMPARE(warnings, QStringList());
    }

    void showsTheNewestFirst()
    {
        QVERIFY(m_history->fill(results(250)));
        show();
        QCOMPARE(first(), 0);
        QCOMPARE(cell(0, readingColumn()), QStringLiteral("249"));
        QCOMPARE(cell(5, readingColumn()), QStringLiteral("244"));
    }

    void saysInWordsThatNothingIsStored()
    {
        show();
        bool isSaid = false;
        const QList<QQuickItem*> all = m_scene->window()->contentItem()->findChildren<QQuickItem*>();
        for (const QQuickItem* each : all) {
            isSaid = isSaid || (each->isVisible() &&
                                each->property("text").toString() == QLatin1String("Nothing is stored yet."));
        }
        QVERIFY(isSaid);
    }

    void aDamagedHistoryIsToldWithWhatToDo()
    {
        QVERIFY(m_history->put("this is no history, whatever its name may be; it is long enough to be looked into"));
        show();
        const QQuickItem* problem = item(QStringLiteral("results.idProblem"));
        QVERIFY(problem->isVisible());
        QVERIFY(!problem->property("mend").toString().isEmpty());
    }

    void theScrollBarReachesAnyPlace()
    {
        constexpr int c_many = 8000;
        QVERIFY(m_history->fill(results(c_many)));
        show();
        const QQuickItem* bar = item(c_table + QStringLiteral(".idBar"));
        const QPoint top = bar->mapToScene({bar->width() / 2, 10}).toPoint();
        const QPoint middle = bar->mapToScene({bar->width() / 2, bar->height() / 2}).toPoint();
        QTest::mousePress(m_scene->window(), Qt::LeftButton, {}, top);
        QTest::mouseMove(m_scene->window(), (top + middle) / 2);
        QTest::mouseMove(m_scene->window(), middle);
        QTest::mouseRelease(m_scene->window(), Qt::LeftButton, {}, middle);
        QVERIFY(first() > c_many / 3 && first() < 2 * c_many / 3);
        QTRY_VERIFY_WITH_TIMEOUT(isSeen(first() + 1), c_limitMs);
        QCOMPARE(cell(first() + 1, readingColumn()).toInt(), c_many - 1 - (first() + 1));
    }

    void aFingerScrolls()
    {
        QVERIFY(m_history->fill(results(2000)));
        show();
        QTouchDevice* device = QTest::createTouchDevice();
        const QPoint from = list()->mapToScene({list()->width() / 3, list()->height() - 20}).toPoint();
        QTest::touchEvent(m_scene->window(), device).press(0, from, m_scene->window());
        for (int i = 1; i <= 10; ++i) {
            QTest::touchEvent(m_scene->window(), device).move(0, from - QPoint(0, 30 * i), m_scene->window());
            QTest::qWait(1);
        }
        QTest::touchEvent(m_scene->window(), device).release(0, from - QPoint(0, 300), m_scene->window());
        QTRY_VERIFY_WITH_TIMEOUT(first() > 2, c_limitMs);
        QVERIFY(item(QStringLiteral("results.idDetails")) == nullptr); // it was no tap
    }

    void keysGoThroughTheTable()
    {
        QVERIFY(m_history->fill(results(3000)));
        show();
        QVERIFY(m_scene->tabTo(c_table));
        m_scene->press(Qt::Key_Down);
        QCOMPARE(list()->property("currentRow").toInt(), 0);
        m_scene->press(Qt::Key_End);
        QCOMPARE(list()->property("currentRow").toInt(), 2999);
        QTRY_COMPARE_WITH_TIMEOUT(cell(2999, readingColumn()), QStringLiteral("0"), c_limitMs);
        const QQuickItem* last = row(2999);
        QVERIFY(last->mapToItem(list(), {0, last->height()}).y() <= list()->height() + 1);
        m_scene->press(Qt::Key_PageUp);
        const int current = list()->property("currentRow").toInt();
        QVERIFY(current < 2995 && current > 2900);
        m_scene->press(Qt::Key_Home);
        QCOMPARE(first(), 0);
        m_scene->press(Qt::Key_Return);
        QVERIFY(item(QStringLiteral("results.idDetails")) != nullptr);
    }

    void aRowShowsAllThatIsStored()
    {
        QVERIFY(m_history->fill(results(30)));
        show();
        m_scene->tap(row(3));
        const QQuickItem* details = item(QStringLiteral("results.idDetails"));
        QVERIFY(details != nullptr);
        QStringList values;
        const QVariantList lines = details->property("lines").value<QJSValue>().toVariant().toList();
        for (const QVariant& line : lines) {
            values.append(line.toMap().value(QStringLiteral("value")).toString());
        }
        QVERIFY2(values.contains(QStringLiteral("RE:F:12.05,0,0,90,0,1,0")), qPrintable(values.join(QLatin1Char('|'))));
        QVERIFY(values.contains(QStringLiteral("12.05")));
        QVERIFY(values.contains(QStringLiteral("46"))); // its chunk
        QVERIFY(values.contains(QStringLiteral("N.m")));
        m_scene->click(item(QStringLiteral("results.idDetails.idClose")));
        QVERIFY(item(QStringLiteral("results.idDetails")) == nullptr);
    }

    void aGapIsARow()
    {
        QVERIFY(m_history->fill(
            {HistoryFixture::result(1, 1), HistoryFixture::gap(1, 4, 2), HistoryFixture::result(4, 3)}));
        show();
        QCOMPARE(row(1)->property("note").toString(), QStringLiteral("gap: 2 readings are missing, 2 to 3"));
    }

    void filtersByChoosing()
    {
        QVERIFY(m_history->fill(results(100)));
        show();
        choose(QStringLiteral(".idVerdict"), 2);
        QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 20, c_limitMs);
        choose(QStringLiteral(".idWrench"), 2);
        QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 7, c_limitMs);
        m_scene->click(item(c_filters + QStringLiteral(".idReset")));
        QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 100, c_limitMs);
        QCOMPARE(item(c_filters + QStringLiteral(".idVerdict"))->property("currentIndex").toInt(), 0);
    }

    void filtersByKeysAlone()
    {
        QVERIFY(m_history->fill(results(100)));
        show();
        QVERIFY(m_scene->tabTo(c_filters + QStringLiteral(".idProgram")));
        m_scene->press(Qt::Key_Down);
        m_scene->press(Qt::Key_Down);
        QTRY_COMPARE_WITH_TIMEOUT(m_table->program(), QStringLiteral("2"), c_limitMs);
        QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 25, c_limitMs);
    }

    void whatIsLookedAtStaysWhereItIs()
    {
        QVERIFY(m_history->fill(results(1000)));
        show();
        QVERIFY(QMetaObject::invokeMethod(list(), "scrollTo", Q_ARG(QVariant, 5000)));
        QTRY_VERIFY_WITH_TIMEOUT(isSeen(first() + 2), c_limitMs);
        const int before = first() + 2;
        const QString reading = cell(before, readingColumn());
        const double y = row(before)->mapToItem(list(), {0, 0}).y();
        QVERIFY(m_history->fill(results(7, 1000)));
        QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 1007, c_limitMs);
        QTRY_COMPARE_WITH_TIMEOUT(cell(before + 7, readingColumn()), reading, c_limitMs);
        QCOMPARE(row(before + 7)->mapToItem(list(), {0, 0}).y(), y);
        QCOMPARE(text(QStringLiteral("results.idToNewest")), QStringLiteral("7 new"));
        m_scene->click(item(QStringLiteral("results.idToNewest")));
        QTRY_COMPARE_WITH_TIMEOUT(cell(0, readingColumn()), QStringLiteral("1006"), c_limitMs);
    }

    void theNewestIsSeenAtTheBeginning()
    {
        QVERIFY(m_history->fill(results(100)));
        show();
        QVERIFY(m_history->fill(results(1, 100)));
        QTRY_COMPARE_WITH_TIMEOUT(cell(0, readingColumn()), QStringLiteral("100"), c_limitMs);
        QCOMPARE(position(), 0.0);
    }

    void nothingIsCalledNewWhenAllIsSeen()
    {
        QVERIFY(m_history->fill(results(3)));
        show();
        QTRY_VERIFY_WITH_TIMEOUT(isSeen(1), c_limitMs);
        m_scene->click(row(1));
        QVERIFY(m_history->fill(results(1, 3)));
        QTRY_VERIFY_WITH_TIMEOUT(isSeen(3), c_limitMs);
        QVERIFY(!item(QStringLiteral("results.idToNewest"))->isVisible());
    }

    void exportsWhatIsListed()
    {
        QVERIFY(m_history->fill(results(100)));
        show();
        choose(QStringLiteral(".idVerdict"), 2);
        QTRY_COMPARE_WITH_TIMEOUT(m_table->count(), 20, c_limitMs);
        m_scene->click(item(c_filters + QStringLiteral(".idExport")));
        const QString file = m_out->filePath(QStringLiteral("out.csv"));
        item(c_export + QStringLiteral(".idFile"))->setProperty("text", file);
        m_scene->click(item(c_export + QStringLiteral(".idStart")));
        QTRY_VERIFY_WITH_TIMEOUT(text(c_export + QStringLiteral(".idOutcome")).contains(file), c_limitMs);
        QCOMPARE(HistoryFixture::bytesOf(file).count('\n'), 21);
        m_scene->click(item(c_export + QStringLiteral(".idStart")));
        QTRY_VERIFY_WITH_TIMEOUT(item(c_export + QStringLiteral(".idReplace")) != nullptr &&
                                     item(c_export + QStringLiteral(".idReplace"))->isVisible(),
                                 c_limitMs);
        m_scene->click(item(c_export + QStringLiteral(".idReplace")));
        QTRY_VERIFY_WITH_TIMEOUT(text(c_export + QStringLiteral(".idOutcome")).contains(file), c_limitMs);
    }

    void fingersHitEverythingAtAnySize_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("small") << QSize(826, 600);
        QTest::newRow("usual") << QSize(1060, 800);
        QTest::newRow("large") << QSize(3246, 2160);
    }
    void fingersHitEverythingAtAnySize()
    {
        QFETCH(QSize, size);
        QVERIFY(m_history->fill(results(30)));
        show(size);
        m_table->period()->setKind(HistoryPeriod::Kind::Between);
        const auto check = [&] {
            const QList<QQuickItem*> items = m_scene->operableItems();
            QVERIFY(items.size() > 3);
            for (const QQuickItem* each : items) {
                QVERIFY2(each->height() >= c_touchTarget, qPrintable(each->objectName()));
                const QRectF place = each->mapRectToScene({0, 0, each->width(), each->height()});
                QVERIFY2(place.left() >= 0 && place.right() <= size.width() && place.bottom() <= size.height() + 1,
                         qPrintable(each->objectName()));
            }
        };
        check();
        m_scene->click(item(c_filters + QStringLiteral(".idExport")));
        check();
    }
};

int main(int argc, char* argv[])
{
    WindowScene::prepare();
    QGuiApplication application(argc, argv);
    TestResultsPage test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_results_page.moc"
