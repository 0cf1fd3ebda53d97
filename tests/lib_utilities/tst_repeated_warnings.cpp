#include <QTest>

#include <lib_utilities/repeated_warnings.h>

#include "log_capture.h"
#include "manual_clock.h"

Q_LOGGING_CATEGORY(lcTried, "workplace.tried")

class TestRepeatedWarnings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstMessageIsWrittenAtOnceInItsCategory();
    void whatFollowsIsCountedAndToldOnceWithTheNewestText();
    void aFloodIsOneLineInTenSeconds();
    void anotherCauseIsWrittenAllTheSame();
    void afterAQuietTimeACauseIsNewAgain();
    void aSingleMessageLeavesNoTimer();
    void whatIsCountedIsToldAtTheEnd();
};

namespace {

const QString c_cause = QStringLiteral("port");

QStringList texts(const LogCapture& log)
{
    QStringList all;
    for (const LogMessage& message : log.messages()) {
        all.append(message.text);
    }
    return all;
}

} // namespace

void TestRepeatedWarnings::theFirstMessageIsWrittenAtOnceInItsCategory()
{
    const LogCapture log;
    ManualClock clock;
    RepeatedWarnings warnings(clock, lcTried);
    warnings.warn(QStringLiteral("the port is gone"));
    QCOMPARE(log.messages().size(), 1);
    QCOMPARE(log.messages().first().type, QtWarningMsg);
    QCOMPARE(log.messages().first().category, QStringLiteral("workplace.tried"));
    QCOMPARE(log.messages().first().text, QStringLiteral("the port is gone"));
}

void TestRepeatedWarnings::whatFollowsIsCountedAndToldOnceWithTheNewestText()
{
    const LogCapture log;
    ManualClock clock;
    RepeatedWarnings warnings(clock, lcTried);
    warnings.warn(c_cause, QStringLiteral("1 byte"));
    clock.advance(4000);
    warnings.warn(c_cause, QStringLiteral("2 bytes"));
    warnings.warn(c_cause, QStringLiteral("3 bytes"));
    clock.advance(5999);
    QCOMPARE(log.messages().size(), 1);
    clock.advance(1);
    QCOMPARE(texts(log), QStringList({QStringLiteral("1 byte"), QStringLiteral("3 bytes (2 × in 10 s)")}));
}

void TestRepeatedWarnings::aFloodIsOneLineInTenSeconds()
{
    const LogCapture log;
    ManualClock clock;
    RepeatedWarnings warnings(clock, lcTried);
    constexpr int c_messages = 60000; // one each millisecond, for a minute
    for (int i = 0; i < c_messages; ++i) {
        warnings.warn(c_cause, QString::number(i));
        clock.advance(1);
    }
    QCOMPARE(log.messages().size(), 7);
    QCOMPARE(log.messages().last().text, QStringLiteral("59999 (10000 × in 10 s)"));
}

void TestRepeatedWarnings::anotherCauseIsWrittenAllTheSame()
{
    const LogCapture log;
    ManualClock clock;
    RepeatedWarnings warnings(clock, lcTried);
    warnings.warn(QStringLiteral("one"));
    warnings.warn(QStringLiteral("other"));
    QCOMPARE(texts(log), QStringList({QStringLiteral("one"), QStringLiteral("other")}));
}

void TestRepeatedWarnings::afterAQuietTimeACauseIsNewAgain()
{
    const LogCapture log;
    ManualClock clock;
    RepeatedWarnings warnings(clock, lcTried);
    warnings.warn(c_cause);
    clock.advance(RepeatedWarnings::c_pauseMs - 1);
    warnings.warn(c_cause);
    QCOMPARE(log.messages().size(), 1);
    clock.advance(1);
    QCOMPARE(log.messages().size(), 2);
    clock.advance(RepeatedWarnings::c_pauseMs);
    warnings.warn(c_cause);
    QCOMPARE(texts(log),
             QStringList({QStringLiteral("port"), QStringLiteral("port (1 × in 10 s)"), QStringLiteral("port")}));
}

void TestRepeatedWarnings::aSingleMessageLeavesNoTimer()
{
    const LogCapture log;
    ManualClock clock;
    RepeatedWarnings warnings(clock, lcTried);
    warnings.warn(c_cause);
    QCOMPARE(clock.waiting(), 0);
}

void TestRepeatedWarnings::whatIsCountedIsToldAtTheEnd()
{
    const LogCapture log;
    ManualClock clock;
    {
        RepeatedWarnings warnings(clock, lcTried);
        warnings.warn(c_cause);
        warnings.warn(c_cause);
    }
    QCOMPARE(clock.waiting(), 0);
    QCOMPARE(texts(log), QStringList({QStringLiteral("port"), QStringLiteral("port (1 × in 10 s)")}));
}

QTEST_GUILESS_MAIN(TestRepeatedWarnings)
#include "tst_repeated_warnings.moc"
