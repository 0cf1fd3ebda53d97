#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include "gui/trace_table.h"
#include "workbench.h"

namespace {

const QString c_entry = QStringLiteral("entry");
const QString c_first = QStringLiteral("# serial trace 1, /dev/fake, 2026-11-21T07:28:00.125");

QByteArray contents(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// The live trace as the window shows it; behind it a driver that tells the trace that the test says.
class TestTraceTable : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    std::unique_ptr<Workbench> m_bench;
    ScriptPointer m_listenTrace;
    ScriptedCommand* m_running = nullptr;
    std::unique_ptr<TraceTable> m_table;

    void tell(const QString& line) const
    {
        m_running->commandUpdateResults({{c_entry, line}});
        Workbench::settle();
    }
    void tellMany(int count, int from = 0) const
    {
        for (int i = from; i < from + count; ++i) {
            m_running->commandUpdateResults({{c_entry, QStringLiteral("%1.000000 < %1").arg(i)}});
        }
        Workbench::settle();
    }
    void listen()
    {
        m_table->setLine(m_bench->host.get(), m_bench->driver);
        m_table->setOn(true);
        Workbench::settle();
        QVERIFY(m_running != nullptr);
    }
    QStringList rows() const
    {
        QStringList list;
        for (int row = 0; row < m_table->rowCount(); ++row) {
            const QModelIndex index = m_table->index(row);
            list.append(QStringLiteral("%1 %2 %3")
                            .arg(index.data(TraceTable::Moment).toString(),
                                 index.data(TraceTable::Direction).toString(),
                                 index.data(TraceTable::Text).toString()));
        }
        return list;
    }
    QByteArray saved() const
    {
        const QString name =
            m_folder.filePath(QStringLiteral("saved-%1.txt").arg(QString::fromLatin1(QTest::currentTestFunction())));
        return m_table->save(name) ? contents(name) : QByteArray();
    }

private Q_SLOTS:
    void init()
    {
        m_running = nullptr;
        m_bench = std::make_unique<Workbench>();
        m_listenTrace =
            m_bench->driverRoot.addCommand(QStringLiteral("listenTrace"), QStringLiteral("stopListeningTrace"));
        m_listenTrace->execute = [this](ScriptedCommand& command) {
            m_running = &command;
            return command.commandUpdateResults({{c_entry, c_first}});
        };
        m_bench->set();
        m_table = std::make_unique<TraceTable>(m_folder.filePath(QStringLiteral("traces")));
    }
    void cleanup()
    {
        m_table.reset();
        m_bench.reset();
        Workbench::settle();
    }

    void hearsNothingUntilItIsSwitchedOn()
    {
        m_table->setLine(m_bench->host.get(), m_bench->driver);
        Workbench::settle();
        QVERIFY(!m_table->isHearing());
        QCOMPARE(m_listenTrace->executed, 0);
        m_table->setOn(true);
        Workbench::settle();
        QVERIFY(m_table->isHearing());
        QCOMPARE(m_listenTrace->executed, 1);
    }

    void hearsALineThatComesLater()
    {
        m_table->setOn(true);
        QVERIFY(!m_table->isHearing());
        m_table->setLine(m_bench->host.get(), m_bench->driver);
        QVERIFY(m_table->isHearing());
    }

    void showsBothDirectionsAndRemarks()
    {
        const QAbstractItemModelTester tester(m_table.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        listen();
        tell(QStringLiteral("0.000000 ! opened"));
        tell(QStringLiteral("0.000125 > ATS\\r\\n"));
        tell(QStringLiteral("12.004218 < RESP \\x00 1\\r\\nRE"));
        QTRY_COMPARE(rows(),
                     QStringList({QStringLiteral("0.000000 remark opened"), QStringLiteral("0.000125 sent ATS\\r\\n"),
                                  QStringLiteral("12.004218 arrived RESP \\x00 1\\r\\nRE")}));
    }

    void lineThatIsNoEntryIsLeftOut_data()
    {
        QTest::addColumn<QString>("line");
        for (const char* line : {"", "0", "0.000000", "0.000000 ", "0.000000 >", "0.000000 ? x", "x.000000 > x",
                                 "0.00000x > x", ".000000 > x", "0,000000 > x"}) {
            QTest::newRow(line) << QString::fromLatin1(line);
        }
    }
    void lineThatIsNoEntryIsLeftOut()
    {
        QFETCH(QString, line);
        listen();
        tell(line);
        tell(QStringLiteral("1.000000 > x"));
        QTRY_COMPARE(m_table->shown(), 1);
    }

    void remarkIsShownAsItIsMeant()
    {
        listen();
        tell(QStringLiteral("0.000000 ! f\\xc3\\xbcr \\x5cx"));
        tell(QStringLiteral("0.000000 < f\\xc3\\xbcr"));
        QTRY_COMPARE(rows(), QStringList({QString::fromUtf8("0.000000 remark für \\x"),
                                          QStringLiteral("0.000000 arrived f\\xc3\\xbcr")}));
    }

    void longEntryIsShownInPartAndSavedWhole()
    {
        listen();
        const QString text(TraceTable::c_mostShownCharacters + 1, QLatin1Char('x'));
        tell(QStringLiteral("0.000000 < ") + text);
        QTRY_COMPARE(m_table->shown(), 1);
        const QString shown = m_table->index(0).data(TraceTable::Text).toString();
        QCOMPARE(shown.size(), TraceTable::c_mostShownCharacters + 1);
        QVERIFY(shown.endsWith(QStringLiteral("x…")));
        QVERIFY(saved().endsWith(" < " + text.toLatin1() + '\n'));
    }

    void filterByDirectionAndTextLeavesNothingBehind()
    {
        listen();
        tell(QStringLiteral("0.000000 ! opened"));
        tell(QStringLiteral("1.000000 > ATS"));
        tell(QStringLiteral("2.000000 < resp"));
        QTRY_COMPARE(m_table->shown(), 3);
        m_table->setShowsRemarks(false);
        QCOMPARE(m_table->shown(), 2);
        m_table->setFilterText(QStringLiteral("RES"));
        QCOMPARE(rows(), QStringList{QStringLiteral("2.000000 arrived resp")});
        tell(QStringLiteral("3.000000 < more resp"));
        tell(QStringLiteral("4.000000 < OK"));
        QTRY_COMPARE(m_table->shown(), 2);
        QCOMPARE(m_table->kept(), 5);
        m_table->setShowsRemarks(true);
        m_table->setFilterText(QString());
        QCOMPARE(m_table->shown(), 5);
    }

    void rowsStayAsTheyAreWhileItIsPaused()
    {
        const QAbstractItemModelTester tester(m_table.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        listen();
        tell(QStringLiteral("0.000000 < before"));
        m_table->setPaused(true);
        const QSignalSpy inserted(m_table.get(), &QAbstractItemModel::rowsInserted);
        tellMany(100, 1);
        QCOMPARE(m_table->waiting(), 100);
        QCOMPARE(rows(), QStringList{QStringLiteral("0.000000 arrived before")});
        QVERIFY(inserted.isEmpty());
        m_table->setPaused(false);
        QCOMPARE(m_table->waiting(), 0);
        QCOMPARE(m_table->shown(), 101);
        QCOMPARE(rows().constLast(), QStringLiteral("100.000000 arrived 100"));
        QCOMPARE(m_table->dropped(), 0);
    }

    void whatIsTooMuchInAPauseIsToldWhereItIsMissing()
    {
        listen();
        tell(QStringLiteral("0.000000 < before"));
        m_table->setPaused(true);
        tellMany(TraceStore::c_mostEntries + 7, 1);
        QCOMPARE(m_table->dropped(), 7);
        QCOMPARE(rows(), QStringList{QStringLiteral("0.000000 arrived before")});
        QVERIFY(saved().contains("\n0.000000 < before\n8.000000 ! 7 entries are missing here"));
        m_table->setPaused(false);
        QVERIFY(m_table->dropped() >= 7);
        QCOMPARE(m_table->waiting(), 0);
    }

    void oldestGoesWhenThereAreTooMany()
    {
        const QAbstractItemModelTester tester(m_table.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        listen();
        tellMany(TraceStore::c_mostEntries);
        QTRY_COMPARE(m_table->shown(), TraceStore::c_mostEntries);
        QCOMPARE(m_table->dropped(), 0);
        tellMany(3, TraceStore::c_mostEntries);
        QTRY_COMPARE(m_table->dropped(), 3);
        QCOMPARE(m_table->shown(), TraceStore::c_mostEntries);
        QCOMPARE(rows().constFirst(), QStringLiteral("3.000000 arrived 3"));
        QVERIFY(saved().contains("\n3.000000 ! 3 entries are missing here"));
    }

    void longEntriesAreTooManyEarlier()
    {
        listen();
        const QString text(TraceStore::c_mostBytes / 2, QLatin1Char('x'));
        for (int i = 0; i < 3; ++i) {
            tell(QStringLiteral("%1.000000 < ").arg(i) + text);
        }
        QTRY_COMPARE(m_table->dropped(), 1);
        QCOMPARE(m_table->kept(), 2);
    }

    void filteredRowsGoWithTheirEntries()
    {
        const QAbstractItemModelTester tester(m_table.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        listen();
        tell(QStringLiteral("0.000000 > asked"));
        m_table->setShowsArrived(false);
        tellMany(TraceStore::c_mostEntries - 1);
        QTRY_COMPARE(rows(),
                     QStringList{QStringLiteral("0.000000 sent asked")}); // kept already, shown with the next frame
        QCOMPARE(m_table->kept(), TraceStore::c_mostEntries);
        tellMany(1);
        QTRY_COMPARE(m_table->shown(), 0);
    }

    void savedTraceIsThatOfTheDriver()
    {
        listen();
        tell(QStringLiteral("0.000000 ! opened"));
        tell(QStringLiteral("0.000125 > ATS\\r\\n"));
        tell(QStringLiteral("12.004218 < RESP \\\\\\x00\\x20"));
        m_table->setFilterText(QStringLiteral("nothing like it"));
        QTRY_COMPARE(m_table->kept(), 3);
        QCOMPARE(saved(),
                 c_first.toLatin1() + "\n0.000000 ! opened\n0.000125 > ATS\\r\\n\n12.004218 < RESP \\\\\\x00\\x20\n");
        QVERIFY(m_table->savedFile().startsWith(m_folder.path()));
        QVERIFY(!m_table->hasProblem());
    }

    void whatWaitsIsSavedToo()
    {
        listen();
        m_table->setPaused(true);
        tell(QStringLiteral("0.000000 > ATS"));
        QVERIFY(saved().endsWith("\n0.000000 > ATS\n"));
    }

    void nameAloneIsSavedInTheFolderForTraces()
    {
        listen();
        const QString name = m_table->suggestedFile();
        QVERIFY(m_table->save(name));
        QCOMPARE(m_table->savedFile(), m_folder.filePath(QStringLiteral("traces/") + name));
        QCOMPARE(contents(m_table->savedFile()), c_first.toLatin1() + '\n');
    }

    void fileThatIsThereIsLeftAsItIs()
    {
        listen();
        QVERIFY(!saved().isEmpty());
        const QString file = m_table->savedFile();
        tell(QStringLiteral("0.000000 > ATS"));
        QVERIFY(!m_table->save(file));
        QVERIFY2(m_table->problemCause().contains(file), qPrintable(m_table->problemCause()));
        QVERIFY(!m_table->problemMend().isEmpty());
        QCOMPARE(contents(file), c_first.toLatin1() + '\n');
        m_table->forgetProblem();
        QVERIFY(!m_table->hasProblem());
    }

    void fileThatCannotBeWrittenIsAProblem_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("no folder") << QStringLiteral("/proc/no/such/trace.txt");
        QTest::newRow("no name") << QStringLiteral(" ");
    }
    void fileThatCannotBeWrittenIsAProblem()
    {
        QFETCH(QString, file);
        listen();
        QVERIFY(!m_table->save(file));
        QVERIFY(m_table->hasProblem());
        QVERIFY(!m_table->problemCause().isEmpty());
        QCOMPARE(m_table->savedFile(), QString());
    }

    void nothingToSaveIsAProblem()
    {
        QVERIFY(!m_table->save(m_folder.filePath(QStringLiteral("nothing.txt"))));
        QVERIFY(m_table->hasProblem());
    }

    void momentsGoOnFromTraceToTrace()
    {
        listen();
        tell(QStringLiteral("5.000000 < 1"));
        tell(QStringLiteral("# serial trace 1, /dev/other, 2026-11-21T07:28:10.125"));
        tell(QStringLiteral("0.500000 < 2"));
        tell(QStringLiteral("# serial trace 1, /dev/other, 2026-11-21T07:28:09.000")); // the clock was put back
        tell(QStringLiteral("0.000000 < 3"));
        QTRY_COMPARE(rows(), QStringList({QStringLiteral("5.000000 arrived 1"),
                                          QStringLiteral("10.000000 remark the trace of /dev/other"),
                                          QStringLiteral("10.500000 arrived 2"),
                                          QStringLiteral("10.500000 remark the trace of /dev/other"),
                                          QStringLiteral("10.500000 arrived 3")}));
    }

    void clearForgetsAndGoesOn()
    {
        listen();
        tellMany(5);
        m_table->clear();
        QCOMPARE(m_table->kept(), 0);
        tell(QStringLiteral("9.000000 < 9"));
        QTRY_COMPARE(rows(), QStringList{QStringLiteral("9.000000 arrived 9")});
    }

    void driverThatGoesLeavesWhatWasHeard()
    {
        listen();
        tellMany(2);
        QTRY_COMPARE(m_table->shown(), 2);
        delete m_bench->driver;
        Workbench::settle();
        QVERIFY(!m_table->isHearing());
        QCOMPARE(m_table->shown(), 2);
        m_table->setOn(false);
        m_table->setOn(true); // there is none to hear
        QVERIFY(!m_table->isHearing());
    }

    void driverWithoutALiveTraceIsNotHeard()
    {
        m_table->setOn(true);
        m_table->setLine(m_bench->host.get(), m_bench->device); // it has no such command
        QVERIFY(!m_table->isHearing());
    }

    void switchingOffEndsTheListening()
    {
        listen();
        m_table->setOn(false);
        QVERIFY(!m_table->isHearing());
        Workbench::settle();
        QCOMPARE(m_listenTrace->executed, 1);
    }
};

QTEST_GUILESS_MAIN(TestTraceTable)
#include "tst_trace_table.moc"
