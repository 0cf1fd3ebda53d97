#include <QStringList>
#include <QTest>

#include <limits>

#include "history/reading_sequence.h"

namespace {

/// A reading whose content goes with its number, unless another torque is said.
ReadingSequence::Outcome take(ReadingSequence& sequence, const QString& number, bool isAfterReconnection = false,
                              const QString& torque = QStringLiteral("12"))
{
    return sequence.take({torque, number}, number, isAfterReconnection);
}

/// "+" for a reading without a gap, "=" for a repeat, "5>8" for a gap.
QString textOf(const ReadingSequence::Outcome& outcome)
{
    if (outcome.gap) {
        return QStringLiteral("%1>%2").arg(outcome.gap->before).arg(outcome.gap->after);
    }
    return outcome.isRepeat ? QStringLiteral("=") : QStringLiteral("+");
}

} // namespace

class TestReadingSequence : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsGaps_data();
    void tellsGaps();
    void goesOnFromAnEarlierSession();
    void knowsARepeatOnlyAfterAReconnection();
    void looksForRepeatsUntilANewReading();
    void takesOtherContentForAReadingOfItsOwn();
    void remembersSoManyReadings();
    void isNotConfusedByWhatWasRepeated();

    void tellsChunksThatWereNotHeard();
    void tellsNoGapWhenSomebodyMayHaveJoined();
    void goesOnBehindTheLastNumberOfAChunk();
};

void TestReadingSequence::tellsGaps_data()
{
    QTest::addColumn<QStringList>("numbers");
    QTest::addColumn<QStringList>("told");
    const auto row = [](const char* name, const char* numbers, const char* told) {
        QTest::newRow(name) << QString(QLatin1String(numbers)).split(QLatin1Char(' '))
                            << QString(QLatin1String(told)).split(QLatin1Char(' '));
    };
    row("one after the other", "1 2 3", "+ + +");
    row("the first may have any number", "17 18", "+ +");
    row("one is missing", "1 3 4", "+ 1>3 +");
    row("many are missing", "9 109", "+ 9>109");
    row("begins anew with 1", "5 6 1 2", "+ + + +");
    row("begins anew with 0", "5 0 1", "+ + +");
    row("falls back to another number", "9 4 5", "+ 9>4 +");
    row("stands still", "3 3 4", "+ + +");
    row("leading zeros and blanks", "007 8", "+ +");
    row("no number, nothing is told", "3 x 9 10", "+ + + +");
    row("an empty number", "3  9", "+ + +");
    row("a negative number is none", "3 -2 9", "+ + +");
    row("a number beyond all numbers", "3 99999999999999999999 5", "+ + +");
}

void TestReadingSequence::tellsGaps()
{
    QFETCH(QStringList, numbers);
    QFETCH(QStringList, told);
    ReadingSequence sequence;
    QStringList heard;
    for (const QString& number : qAsConst(numbers)) {
        heard.append(textOf(take(sequence, number)));
    }
    QCOMPARE(heard, told);
}

void TestReadingSequence::goesOnFromAnEarlierSession()
{
    ReadingSequence sequence;
    sequence.continueFrom(QStringLiteral("5"));
    QCOMPARE(textOf(take(sequence, QStringLiteral("8"))), QStringLiteral("5>8"));
    ReadingSequence fresh;
    fresh.continueFrom(QString());
    QCOMPARE(textOf(take(fresh, QStringLiteral("8"))), QStringLiteral("+"));
}

void TestReadingSequence::knowsARepeatOnlyAfterAReconnection()
{
    ReadingSequence sequence;
    take(sequence, QStringLiteral("1"));
    QCOMPARE(textOf(take(sequence, QStringLiteral("1"))), QStringLiteral("+"));
    QCOMPARE(textOf(take(sequence, QStringLiteral("1"), true)), QStringLiteral("="));
}

void TestReadingSequence::looksForRepeatsUntilANewReading()
{
    ReadingSequence sequence;
    for (const char* number : {"1", "2", "3"}) {
        take(sequence, QLatin1String(number));
    }
    QCOMPARE(textOf(take(sequence, QStringLiteral("2"), true)), QStringLiteral("="));
    QCOMPARE(textOf(take(sequence, QStringLiteral("3"))), QStringLiteral("="));
    QCOMPARE(textOf(take(sequence, QStringLiteral("4"))), QStringLiteral("+"));
    QCOMPARE(textOf(take(sequence, QStringLiteral("4"))), QStringLiteral("+"));
}

void TestReadingSequence::takesOtherContentForAReadingOfItsOwn()
{
    ReadingSequence sequence;
    take(sequence, QStringLiteral("1"));
    QCOMPARE(textOf(take(sequence, QStringLiteral("1"), true, QStringLiteral("13"))), QStringLiteral("+"));
}

void TestReadingSequence::remembersSoManyReadings()
{
    ReadingSequence sequence;
    const int most = ReadingSequence::c_remembered;
    for (int i = 1; i <= most + 1; ++i) {
        take(sequence, QString::number(i));
    }
    QCOMPARE(textOf(take(sequence, QStringLiteral("2"), true)), QStringLiteral("="));
    QCOMPARE(textOf(take(sequence, QStringLiteral("1"))), QStringLiteral("+"));
}

void TestReadingSequence::isNotConfusedByWhatWasRepeated()
{
    ReadingSequence sequence;
    for (const char* number : {"1", "2", "3"}) {
        take(sequence, QLatin1String(number));
    }
    take(sequence, QStringLiteral("2"), true);
    QCOMPARE(textOf(take(sequence, QStringLiteral("5"))), QStringLiteral("3>5"));
}

void TestReadingSequence::tellsChunksThatWereNotHeard()
{
    ReadingSequence sequence;
    QVERIFY(!sequence.takeChunk(7)); // the first may have any number
    QVERIFY(!sequence.takeChunk(8));
    const std::optional<ReadingSequence::Gap> gap = sequence.takeChunk(10);
    QVERIFY(gap);
    QCOMPARE(gap->counter, QStringLiteral("eventCountNo"));
    QCOMPARE(gap->before, 8);
    QCOMPARE(gap->after, 10);
    QVERIFY(!sequence.takeChunk(3)); // the count began anew
}

void TestReadingSequence::tellsNoGapWhenSomebodyMayHaveJoined()
{
    ReadingSequence sequence;
    sequence.takeChunk(7);
    sequence.forgetChunk();
    QVERIFY(!sequence.takeChunk(10));
}

void TestReadingSequence::goesOnBehindTheLastNumberOfAChunk()
{
    ReadingSequence sequence;
    sequence.takeChunk(std::numeric_limits<int>::max());
    QVERIFY(!sequence.takeChunk(1));
}

QTEST_GUILESS_MAIN(TestReadingSequence)
#include "tst_reading_sequence.moc"
