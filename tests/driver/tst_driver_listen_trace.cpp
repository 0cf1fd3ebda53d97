#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QVariant>

#include "driver_fixture.h"

namespace {

/// The lines that a listening run was given, without the first, which holds the date.
QStringList entries(const Run& run)
{
    QStringList lines;
    for (const QMap<QString, QVariant>& each : qAsConst(run.order->published)) {
        lines.append(each.value(QStringLiteral("entry")).toString());
    }
    return lines.mid(1);
}

QByteArray contents(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// The trace of a line as it grows, for who listens to it.
class TestDriverListenTrace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_driver = std::make_unique<DriverFixture>(); }

    void beginsWithTheFirstLineOfATrace()
    {
        const Run trace = listenTrace();
        QVERIFY(trace.started);
        QVERIFY(!trace.isFinished());
        const QString first = trace.result("entry").toString();
        QVERIFY2(QRegularExpression(QStringLiteral("^# serial trace 1, /dev/fake, "
                                                   "\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}$"))
                     .match(first)
                     .hasMatch(),
                 qPrintable(first));
    }

    void tellsBothDirectionsWithTheirMoment()
    {
        const Run listener = m_driver->listen();
        const Run trace = listenTrace();
        const Run write = m_driver->write("ATS\r\n");
        m_driver->clock->advance(12);
        m_driver->port->arrive("RESP\r\nRE\xff");
        QCOMPARE(entries(trace),
                 QStringList({QStringLiteral("0.000000 > ATS\\r\\n"), QStringLiteral("0.012000 < RESP\\r\\nRE\\xff")}));
    }

    void tellsEachEntryAtOnce()
    {
        const Run listener = m_driver->listen();
        const Run trace = listenTrace();
        m_driver->port->arrive("1");
        QCOMPARE(entries(trace).size(), 1);
        m_driver->port->arrive("2");
        QCOMPARE(entries(trace).size(), 2);
    }

    void tellsWhatHappensToThePort()
    {
        const Run trace = listenTrace();
        const Run listener = m_driver->listen();
        m_driver->port->fail(QStringLiteral("It went away."));
        m_driver->clock->advance(250);
        const Run closing = m_driver->run("closeConnection");
        QCOMPARE(entries(trace),
                 QStringList({QStringLiteral("0.000000 ! opened"), QStringLiteral("0.000000 ! lost"),
                              QStringLiteral("0.250000 ! opened"), QStringLiteral("0.250000 ! closed")}));
    }

    void tellsTheKeepAliveThatListenersDoNotSee()
    {
        const Run listener = m_driver->listen();
        const Run trace = listenTrace();
        m_driver->keepAlive(QStringLiteral("DI:C"), QStringLiteral("OK"));
        m_driver->clock->advance(5000);
        m_driver->port->leave();
        m_driver->port->arrive("OK:1\r\n");
        QCOMPARE(entries(trace),
                 QStringList({QStringLiteral("5.000000 > DI:C\\r\\n"), QStringLiteral("5.000000 < OK:1\\r\\n")}));
        QCOMPARE(heard(listener), QByteArray());
    }

    void neitherOpensThePortNorKeepsItOpen()
    {
        const Run trace = listenTrace();
        QCOMPARE(m_driver->port->openings, 0);
        const Run write = m_driver->write("1");
        m_driver->port->leave();
        m_driver->port->fail(QStringLiteral("It went away."));
        QCOMPARE(m_driver->clock->waiting(), 0); // for a listener to the line it would be opened again
    }

    void doesNotCountAsAListenerOfTheLine()
    {
        m_driver->listen().stop();
        const Run trace = listenTrace();
        m_driver->port->arrive("abc");
        QCOMPARE(entries(trace), QStringList({QStringLiteral("0.000000 < abc"),
                                              QStringLiteral("0.000000 ! 3 bytes dropped, nobody listens")}));
    }

    void eachListenerHasATraceOfItsOwn()
    {
        const Run listener = m_driver->listen();
        const Run first = listenTrace();
        m_driver->clock->advance(1000);
        const Run second = listenTrace();
        m_driver->port->arrive("1");
        QCOMPARE(entries(first), QStringList{QStringLiteral("1.000000 < 1")});
        QCOMPARE(entries(second), QStringList{QStringLiteral("0.000000 < 1")});
    }

    void leavesTheWrittenTraceAlone()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("trace.txt"));
        const Run listener = m_driver->listen();
        m_driver->run("setTrace", {{QStringLiteral("file"), file}});
        m_driver->clock->advance(1000);
        const Run trace = listenTrace();
        m_driver->port->arrive("1");
        trace.stop();
        m_driver->port->arrive("2");
        QVERIFY2(contents(file).endsWith("\n1.000000 < 1\n1.000000 < 2\n"), contents(file).constData());
        QCOMPARE(entries(trace), QStringList{QStringLiteral("0.000000 < 1")});
    }

    void isEndedByACommandOfItsOwn()
    {
        // What ends those who listen to the line leaves this one alone.
        QCOMPARE(listenTrace().command->stopCommandName(), QStringLiteral("stopListeningTrace"));
    }

    void tellsNothingAfterTheStop()
    {
        const Run listener = m_driver->listen();
        const Run trace = listenTrace();
        trace.stop();
        QVERIFY(trace.isFinished());
        m_driver->port->arrive("1");
        QCOMPARE(entries(trace), QStringList());
    }

    void tellsNothingMoreOnceTheRunIsDestroyed()
    {
        const Run listener = m_driver->listen();
        Run trace = listenTrace();
        const Run other = listenTrace();
        trace.command.reset();
        m_driver->port->arrive("1");
        QCOMPARE(entries(trace), QStringList());
        QCOMPARE(entries(other).size(), 1);
    }

private:
    Run listenTrace() const { return m_driver->run("listenTrace"); }

    std::unique_ptr<DriverFixture> m_driver;
};

QTEST_GUILESS_MAIN(TestDriverListenTrace)
#include "tst_driver_listen_trace.moc"
