#include "line_cutter.h"
#include "output_queue.h"

#include <QStringList>
#include <QTest>

class TestLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesAreCutHoweverTheyArrive();
    void onlyTheWholeTerminatorEndsALine();
    void emptyLinesAreLeftOut();
    void longestLineIsKept();
    void longerLineIsDroppedUpToItsEnd();
    void chunksLeaveInOrder();
    void nothingIsOvertakenByASmallerDelay();
    void gluedLinesDoNotWaitForTheOnesTooLate();
    void unreadOutputIsBounded();
};

void TestLines::linesAreCutHoweverTheyArrive()
{
    const QByteArray stream = "ATS\r\nDT:1\r\nAT";
    for (const int pieceBytes : {1, 2, 3, 7, 100}) {
        LineCutter cutter("\r\n");
        QByteArrayList lines;
        for (int from = 0; from < stream.size(); from += pieceBytes) {
            lines += cutter.feed(stream.mid(from, pieceBytes));
        }
        QCOMPARE(lines, QByteArrayList({"ATS", "DT:1"}));
        QCOMPARE(cutter.feed("H\r\n"), QByteArrayList({"ATH"}));
        QCOMPARE(cutter.takeDroppedBytes(), 0);
    }
}

void TestLines::onlyTheWholeTerminatorEndsALine()
{
    LineCutter cutter("\r\n");
    QCOMPARE(cutter.feed("A\rB\nC\r\r\n"), QByteArrayList({"A\rB\nC\r"}));
}

void TestLines::emptyLinesAreLeftOut()
{
    LineCutter cutter("\r\n");
    QCOMPARE(cutter.feed("\r\n\r\nA\r\n\r\n"), QByteArrayList({"A"}));
}

void TestLines::longestLineIsKept()
{
    LineCutter cutter("\r\n");
    const QByteArray longest(LineCutter::c_maxLineBytes, 'x');
    QCOMPARE(cutter.feed(longest + "\r\n"), QByteArrayList({longest}));
    QCOMPARE(cutter.takeDroppedBytes(), 0);
}

void TestLines::longerLineIsDroppedUpToItsEnd()
{
    LineCutter cutter("\r\n");
    const QByteArray tooLong(LineCutter::c_maxLineBytes + 1, 'x');
    QCOMPARE(cutter.feed(tooLong), QByteArrayList());
    QCOMPARE(cutter.feed("yy\rzz\r\nATS\r\n"), QByteArrayList({"ATS"}));
    QCOMPARE(cutter.takeDroppedBytes(), tooLong.size() + 7);
    QCOMPARE(cutter.takeDroppedBytes(), 0);
}

void TestLines::chunksLeaveInOrder()
{
    OutputQueue queue([](const QString&) {});
    QVERIFY(!queue.nextDueUs());
    queue.post("A\r\n", {}, 10);
    queue.post("B\r\n", {}, 20);
    QVERIFY(queue.nextDueUs() == 10);
    QVERIFY(!queue.takeChunk(9));
    QVERIFY(queue.takeChunk(20) == QByteArray("A\r\n"));
    QVERIFY(queue.takeChunk(20) == QByteArray("B\r\n"));
    QVERIFY(!queue.takeChunk(1000));
}

void TestLines::nothingIsOvertakenByASmallerDelay()
{
    OutputQueue queue([](const QString&) {});
    ChunkShape slow;
    slow.pieceBytes = 3;
    slow.pieceGapUs = 100;
    queue.post("A\r\n", {}, 0);
    queue.post("BBBB\r\n", slow, 0);
    queue.post("C\r\n", {}, 0);
    QByteArray all;
    while (const std::optional<qint64> dueUs = queue.nextDueUs()) {
        all += *queue.takeChunk(*dueUs);
    }
    QCOMPARE(all, QByteArray("A\r\nBBBB\r\nC\r\n"));
}

void TestLines::gluedLinesDoNotWaitForTheOnesTooLate()
{
    OutputQueue queue([](const QString&) {});
    ChunkShape glued;
    glued.gluedLines = 2;
    glued.glueWaitUs = 100;
    queue.post("A\r\n", glued, 0);
    queue.post("B\r\n", glued, 500);
    QVERIFY(queue.takeChunk(500) == QByteArray("A\r\n"));
    QVERIFY(!queue.takeChunk(599));
    QVERIFY(queue.takeChunk(600) == QByteArray("B\r\n"));
}

void TestLines::unreadOutputIsBounded()
{
    QStringList notes;
    OutputQueue queue([&notes](const QString& text) { notes.append(text); });
    constexpr int c_lineBytes = 1024;
    constexpr int c_kept = OutputQueue::c_maxBytes / c_lineBytes;
    for (int i = 0; i < c_kept; ++i) {
        queue.post(QByteArray::number(i).leftJustified(c_lineBytes - 2) + "\r\n", {}, 0);
    }
    QVERIFY(notes.isEmpty());
    for (int i = c_kept; i < c_kept + 3; ++i) {
        queue.post(QByteArray::number(i).leftJustified(c_lineBytes - 2) + "\r\n", {}, 0);
    }
    QCOMPARE(notes.size(), 1);
    QCOMPARE(queue.takeChunk(0)->trimmed(), QByteArray("3"));
    QCOMPARE(notes.size(), 2);
    QVERIFY(notes.at(1).contains(QString::number(3 * c_lineBytes)));
    for (int i = 4; i < c_kept + 3; ++i) {
        QCOMPARE(queue.takeChunk(0)->trimmed(), QByteArray::number(i));
    }
    QVERIFY(!queue.takeChunk(0));
    QCOMPARE(notes.size(), 2);
}

QTEST_GUILESS_MAIN(TestLines)
#include "tst_lines.moc"
