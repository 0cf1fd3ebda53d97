#include "line_receiver.h"

#include <QStringList>
#include <QTest>

#include <memory>

namespace {

using Content = LineReceiver::Content;
using Repeats = LineReceiver::Repeats;

QMap<QString, QVariant> reply(int number, const QVariant& frame)
{
    return {{QStringLiteral("number"), number}, {QStringLiteral("frame"), frame}};
}

} // namespace

Q_DECLARE_METATYPE(LineReceiver::Content)

class TestLineReceiver : public QObject
{
    Q_OBJECT

private:
    // Feeds the chunks with running numbers and returns the lines.
    static QStringList linesOf(LineReceiver& receiver, const QList<QByteArray>& chunks)
    {
        QStringList lines;
        int number = 0;
        for (const QByteArray& chunk : chunks) {
            receiver.feed(reply(++number, chunk), [&](const QString& line) {
                lines.append(line);
                return true;
            });
        }
        return lines;
    }

    static QStringList linesOf(Content content, const QList<QByteArray>& chunks)
    {
        LineReceiver receiver(Repeats::Dropped, content);
        return linesOf(receiver, chunks);
    }

    static void addContents()
    {
        QTest::addColumn<Content>("content");
        QTest::newRow("text") << Content::Text;
        QTest::newRow("bytes") << Content::Bytes;
    }

private Q_SLOTS:
    void cutsAtCarriageReturnLineFeed_data()
    {
        QTest::addColumn<QList<QByteArray>>("chunks");
        QTest::addColumn<QStringList>("lines");
        const auto list = [](std::initializer_list<const char*> texts) {
            QStringList lines;
            for (const char* text : texts) {
                lines.append(QString::fromUtf8(text));
            }
            return lines;
        };
        QTest::newRow("one line") << QList<QByteArray>{"ATH\r\n"} << list({"ATH"});
        QTest::newRow("three lines in order") << QList<QByteArray>{"a\r\nb\r\nc\r\n"} << list({"a", "b", "c"});
        QTest::newRow("no line end") << QList<QByteArray>{"ATH"} << QStringList();
        QTest::newRow("nothing") << QList<QByteArray>{""} << QStringList();
        QTest::newRow("in two chunks") << QList<QByteArray>{"AT", "H\r\n"} << list({"ATH"});
        QTest::newRow("between CR and LF") << QList<QByteArray>{"ATH\r", "\nx"} << list({"ATH"});
        QTest::newRow("CR at the end of a chunk alone") << QList<QByteArray>{"ATH\r", "x\r\n"} << list({"ATH\rx"});
        QTest::newRow("LF at the start of all") << QList<QByteArray>{"\n", "x\r\n"} << list({"x"});
        QTest::newRow("LF after a line end") << QList<QByteArray>{"a\r\n\nb\r\n"} << list({"a", "b"});
        QTest::newRow("LF alone") << QList<QByteArray>{"a\nb\r\n"} << list({"a\nb"});
        QTest::newRow("CR alone") << QList<QByteArray>{"a\rb\r\n"} << list({"a\rb"});
        QTest::newRow("CR CR LF") << QList<QByteArray>{"a\r\r\nb\r\n"} << list({"a", "b"});
        QTest::newRow("empty lines") << QList<QByteArray>{"\r\n\r\n"} << list({"", ""});
        QTest::newRow("rest and more") << QList<QByteArray>{"a\r\nb", "c\r\nd", "\r\n"} << list({"a", "bc", "d"});
        QTest::newRow("blanks around") << QList<QByteArray>{" \tOK:1 \v\r\n"} << list({"OK:1"});
        QTest::newRow("blanks within") << QList<QByteArray>{"a  b\r\n"} << list({"a  b"});
        QTest::newRow("beyond ASCII") << QList<QByteArray>{"N\xC2\xB7m\r\n"} << list({"N\xC2\xB7m"});
    }

    void cutsAtCarriageReturnLineFeed()
    {
        QFETCH(QList<QByteArray>, chunks);
        QFETCH(QStringList, lines);
        QCOMPARE(linesOf(Content::Text, chunks), lines);
        QCOMPARE(linesOf(Content::Bytes, chunks), lines);
    }

    void readsTextAndBytesOfEitherKind_data() { addContents(); }
    void readsTextAndBytesOfEitherKind()
    {
        QFETCH(Content, content);
        LineReceiver receiver(Repeats::Dropped, content);
        QStringList lines;
        const auto take = [&](const QString& line) {
            lines.append(line);
            return true;
        };
        receiver.feed(reply(1, QByteArray("OK:1\r\n")), take);
        receiver.feed(reply(2, QStringLiteral("OK:2\r\n")), take);
        QCOMPARE(lines, QStringList({QStringLiteral("OK:1"), QStringLiteral("OK:2")}));
    }

    void bytesMayBeCutWithinACharacter()
    {
        QCOMPARE(linesOf(Content::Bytes, {"N\xC2", "\xB7m\r\n"}), QStringList(QString::fromUtf8("N\xC2\xB7m")));
    }

    void lineOfBytesEndsAtItsFirstZeroByte()
    {
        const QByteArray chunk = QByteArray("OK\0:1", 5) + "\r\nATH\r\n";
        QCOMPARE(linesOf(Content::Bytes, {chunk}), QStringList({QStringLiteral("OK"), QStringLiteral("ATH")}));
    }

    void chunkOfTextEndsAtItsFirstZeroByte()
    {
        const QByteArray chunk = QByteArray("OK\0:1", 5) + "\r\n";
        QCOMPARE(linesOf(Content::Text, {chunk, "\r\n"}), QStringList(QStringLiteral("OK")));
    }

    void dropsAReplyThatRepeatsTheLastNumber_data() { addContents(); }
    void dropsAReplyThatRepeatsTheLastNumber()
    {
        QFETCH(Content, content);
        LineReceiver receiver(Repeats::Dropped, content);
        QStringList lines;
        const auto take = [&](const QString& line) {
            lines.append(line);
            return true;
        };
        receiver.feed(reply(7, QByteArray("a\r\nb")), take);
        receiver.feed(reply(7, QByteArray("another\r\n")), take);
        receiver.feed(reply(8, QByteArray("c\r\n")), take);
        receiver.feed(reply(7, QByteArray("d\r\n")), take); // only the one before counts
        QCOMPARE(lines, QStringList({QStringLiteral("a"), QStringLiteral("bc"), QStringLiteral("d")}));
        QCOMPARE(receiver.lastNumber(), 7);
    }

    void missingNumberIsZero()
    {
        LineReceiver receiver(Repeats::Dropped, Content::Text);
        int lines = 0;
        const auto count = [&](const QString&) {
            ++lines;
            return true;
        };
        receiver.feed({{QStringLiteral("frame"), QByteArray("a\r\n")}}, count);
        QCOMPARE(receiver.lastNumber(), 0);
        receiver.feed({{QStringLiteral("frame"), QByteArray("b\r\n")}}, count);
        receiver.feed(reply(0, QByteArray("c\r\n")), count);
        QCOMPARE(lines, 1);
    }

    void firstReplyIsARepeatOnlyWithNumberMinusOne()
    {
        for (const int number : {-1, 0, 1}) {
            LineReceiver receiver(Repeats::Dropped, Content::Text);
            int lines = 0;
            receiver.feed(reply(number, QByteArray("a\r\n")), [&](const QString&) { return ++lines > 0; });
            QCOMPARE(lines, number == -1 ? 0 : 1);
        }
    }

    void forgottenNumberIsNoRepeat()
    {
        LineReceiver receiver(Repeats::Dropped, Content::Text);
        int lines = 0;
        const auto count = [&](const QString&) { return ++lines > 0; };
        receiver.feed(reply(7, QByteArray("a\r\n")), count);
        receiver.forgetNumber();
        QCOMPARE(receiver.lastNumber(), -1);
        receiver.feed(reply(7, QByteArray("b\r\n")), count);
        QCOMPARE(lines, 2);
    }

    void acceptsRepeatsWhereItIsToldTo()
    {
        LineReceiver receiver(Repeats::Accepted, Content::Text);
        int lines = 0;
        for (const int number : {7, 7, -1, -1}) {
            receiver.feed(reply(number, QByteArray("a\r\n")), [&](const QString&) { return ++lines > 0; });
        }
        QCOMPARE(lines, 4);
    }

    void knowsTheNumberWhileALineIsHandled()
    {
        LineReceiver receiver(Repeats::Dropped, Content::Bytes);
        receiver.feed(reply(8, QByteArray("RE:F:")), [](const QString&) { return true; });
        int number = 0;
        receiver.feed(reply(9, QByteArray("1\r\n")), [&](const QString&) {
            number = receiver.lastNumber();
            return true;
        });
        QCOMPARE(number, 9);
    }

    void replyWithoutFrameChangesNothing_data() { addContents(); }
    void replyWithoutFrameChangesNothing()
    {
        QFETCH(Content, content);
        LineReceiver receiver(Repeats::Dropped, content);
        QStringList lines;
        const auto take = [&](const QString& line) {
            lines.append(line);
            return true;
        };
        receiver.feed(reply(1, QByteArray("OK")), take);
        receiver.feed({{QStringLiteral("number"), 2}}, take);
        receiver.feed(reply(3, QByteArray("\r\n")), take);
        QCOMPARE(lines, QStringList(QStringLiteral("OK")));
    }

    void clearedBufferForgetsWhatHasArrivedOfALine_data() { addContents(); }
    void clearedBufferForgetsWhatHasArrivedOfALine()
    {
        QFETCH(Content, content);
        LineReceiver receiver(Repeats::Dropped, content);
        QCOMPARE(linesOf(receiver, {"abc\r\ndef\r"}), QStringList(QStringLiteral("abc")));
        receiver.clearBuffer();
        receiver.forgetNumber();
        // "\n" would have made a line of what was there.
        QCOMPARE(linesOf(receiver, {"\nx\r\n"}), QStringList(QStringLiteral("x")));
    }

    void handlerMayClearTheBuffer_data() { addContents(); }
    void handlerMayClearTheBuffer()
    {
        QFETCH(Content, content);
        LineReceiver receiver(Repeats::Dropped, content);
        QStringList lines;
        const auto clear = [&](const QString& line) {
            lines.append(line);
            receiver.clearBuffer();
            return true;
        };
        receiver.feed(reply(1, QByteArray("a\r\nb\r\nc")), clear);
        receiver.feed(reply(2, QByteArray("d\r\n")), clear);
        QCOMPARE(lines, QStringList({QStringLiteral("a"), QStringLiteral("d")}));
    }

    void nothingIsHandedOutAfterTheEnd_data() { addContents(); }
    void nothingIsHandedOutAfterTheEnd()
    {
        QFETCH(Content, content);
        LineReceiver receiver(Repeats::Dropped, content);
        QStringList lines;
        receiver.feed(reply(1, QByteArray("a\r\nb\r\nc\r\n")), [&](const QString& line) {
            lines.append(line);
            return line != QLatin1String("b");
        });
        QCOMPARE(lines, QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    }

    void whatIsLeftAfterAnEndComesNext_data() { addContents(); }
    void whatIsLeftAfterAnEndComesNext()
    {
        QFETCH(Content, content);
        LineReceiver receiver(Repeats::Dropped, content);
        receiver.feed(reply(8, QByteArray("a\r\nb\r\nc")), [](const QString&) { return false; });
        QCOMPARE(linesOf(receiver, {"d\r\n"}), QStringList({QStringLiteral("b"), QStringLiteral("cd")}));
    }

    void handlerMayDestroyTheReceiver_data() { addContents(); }
    void handlerMayDestroyTheReceiver()
    {
        QFETCH(Content, content);
        auto receiver = std::make_unique<LineReceiver>(Repeats::Dropped, content);
        QString last;
        receiver->feed(reply(1, QByteArray("a\r\nb\r\n")), [&](const QString& line) {
            receiver.reset();
            last = line; // the line outlives the receiver
            return false;
        });
        QCOMPARE(last, QStringLiteral("a"));
    }

    void nothingIsKeptOfAChunkButTheRestOfItsLastLine_data()
    {
        QTest::addColumn<QByteArray>("chunk");
        QTest::newRow("no rest") << QByteArray("RE:F:1\r\n");
        QTest::newRow("a rest") << QByteArray("RE:F:1\r\nRE");
    }

    void nothingIsKeptOfAChunkButTheRestOfItsLastLine()
    {
        QFETCH(QByteArray, chunk);
        chunk.detach(); // from the data row
        LineReceiver receiver(Repeats::Dropped, Content::Bytes);
        receiver.feed(reply(1, chunk), [](const QString&) { return true; });
        QVERIFY(chunk.isDetached()); // nobody shares its memory any more
    }

    void chunkOfSixteenMebibytesIsLinear_data() { addContents(); }
    void chunkOfSixteenMebibytesIsLinear()
    {
        QFETCH(Content, content);
        const QByteArray line = "RE:F:12.5,1,0,30,1,3,2\r\n";
        const int count = 16 * 1024 * 1024 / line.size();
        LineReceiver receiver(Repeats::Dropped, content);
        int right = 0;
        receiver.feed(reply(1, line.repeated(count)), [&](const QString& got) {
            right += got == QLatin1String("RE:F:12.5,1,0,30,1,3,2") ? 1 : 0;
            return true;
        });
        QCOMPARE(right, count);
    }

    // Searched from its start for every chunk, this takes minutes.
    void fourMebibytesWithoutLineEndInSmallChunksAreLinear_data()
    {
        QTest::addColumn<Content>("content");
        QTest::addColumn<char>("character");
        for (const char character : {'x', '\r', '\n'}) {
            QTest::addRow("text, 0x%02x", character) << Content::Text << character;
            QTest::addRow("bytes, 0x%02x", character) << Content::Bytes << character;
        }
    }

    void fourMebibytesWithoutLineEndInSmallChunksAreLinear()
    {
        QFETCH(Content, content);
        QFETCH(char, character);
        constexpr int c_chunks = 4 * 1024 * 1024 / 64;
        const QByteArray chunk(64, character);
        LineReceiver receiver(Repeats::Dropped, content);
        int lines = 0;
        int length = 0;
        const auto take = [&](const QString& line) {
            ++lines;
            length = line.size();
            return true;
        };
        receiver.feed(reply(0, QByteArray("(")), take);
        for (int number = 1; number <= c_chunks; ++number) {
            receiver.feed(reply(number, chunk), take);
        }
        QCOMPARE(lines, 0);
        receiver.feed(reply(c_chunks + 1, QByteArray(")\r\n")), take);
        QCOMPARE(lines, 1);
        QCOMPARE(length, c_chunks * chunk.size() + 2);
    }
};

QTEST_APPLESS_MAIN(TestLineReceiver)
#include "tst_line_receiver.moc"
