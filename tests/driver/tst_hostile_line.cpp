#include <QTest>

#include "driver_fixture.h"
#include "line_bound.h"
#include "log_capture.h"

namespace {

constexpr int c_limit = LineBound::c_limitBytes;
const QByteArray c_line = QByteArrayLiteral("RE:F:1,2,3,4,5,6,7\r\n");

/// What is passed on of these bytes, in chunks of that size.
QByteArray passed(const QByteArray& bytes, int chunkSize)
{
    LineBound bound;
    QByteArray all;
    for (int from = 0; from < bytes.size(); from += chunkSize) {
        all += bound.arrived(bytes.mid(from, chunkSize));
    }
    return all;
}

} // namespace

/// What a line may do to the driver: anything but fill the memory or the log.
class TestHostileLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lines_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("expected");
        const QByteArray full(c_limit, 'x');
        QTest::newRow("short lines") << c_line + c_line << c_line + c_line;
        QTest::newRow("no end") << QByteArray("RE:F") << QByteArray("RE:F");
        QTest::newRow("at the limit") << full + "\r\n" + c_line << full + "\r\n" + c_line;
        QTest::newRow("one more") << full + "y\r\n" + c_line << full + "\r\n" + c_line;
        QTest::newRow("much more") << full + full + "\r\n" + c_line << full + "\r\n" + c_line;
        QTest::newRow("feeds alone end no line") << full + "\n\n\r\n" + c_line << full + "\r\n" + c_line;
        QTest::newRow("returns") << full + "\r\r\r\n" + c_line << full + "\r\n" + c_line;
        QTest::newRow("zero bytes") << QByteArray(c_limit, '\0') + QByteArray(9, '\0') + "\r\n"
                                    << QByteArray(c_limit, '\0') + "\r\n";
        QTest::newRow("twice") << (full + "zz\r\n").repeated(2) << (full + "\r\n").repeated(2);
        QTest::newRow("many short lines are no long one")
            << c_line.repeated(3 * c_limit / c_line.size()) << c_line.repeated(3 * c_limit / c_line.size());
    }

    void lines()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QByteArray, expected);
        for (const int chunkSize : {4096, 1021, 7, bytes.size()}) {
            QVERIFY2(passed(bytes, chunkSize) == expected, QByteArray::number(chunkSize).constData());
        }
    }

    void anEndSplitBetweenChunksIsAnEnd()
    {
        LineBound bound;
        const QByteArray most(c_limit - 1, 'x');
        QCOMPARE(bound.arrived(most + "\r"), most + "\r");
        QCOMPARE(bound.arrived("\n"), QByteArray("\n"));
        QCOMPARE(bound.arrived(most), most);
        QVERIFY(!bound.takeOverflow());
    }

    void aLineWithoutEndReachesItsListenersUpToTheLimit()
    {
        const LogCapture log;
        const DriverFixture driver;
        const Run listener = driver.listen();
        const QByteArray chunk(64 * 1024, 'x');
        for (int i = 0; i < 48; ++i) {
            driver.port->arrive(chunk);
        }
        driver.port->arrive("\r\n" + c_line);
        const QByteArray all = heard(listener);
        QCOMPARE(all.size(), c_limit + 2 + c_line.size());
        QVERIFY(all.endsWith("x\r\n" + c_line));
    }

    void aLineWithoutEndIsToldOnce()
    {
        const LogCapture log;
        const DriverFixture driver;
        const Run listener = driver.listen();
        for (int i = 0; i < 48; ++i) {
            driver.port->arrive(QByteArray(64 * 1024, 'x'));
        }
        QCOMPARE(log.messages(QtWarningMsg).size(), 1);
        QVERIFY(log.messages().constFirst().text.startsWith(
            QLatin1String("/dev/fake: a line is longer than 1048576 bytes: its rest is dropped")));
    }
};

QTEST_GUILESS_MAIN(TestHostileLine)

#include "tst_hostile_line.moc"
