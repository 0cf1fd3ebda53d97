#include "command_run.h"
#include "d_cmd_listPrograms.h"
#include "d_cmd_listen.h"
#include "d_cmd_setProgram.h"
#include "tightening_results.h"

namespace {

/// Expects "readingNumber" to count up from 0 and keeps no result.
class CountingOrder : public RecordingOrder
{
public:
    void resultsPublished(const QMap<QString, QVariant>& values) override
    {
        const QVariantMap record = values.value(QStringLiteral("eventData")).toMap();
        inOrder = inOrder && record.value(QStringLiteral("readingNumber")) == QVariant(QString::number(results)) &&
                  record.value(QStringLiteral("convertedTorque")) == QVariant(QStringLiteral("12.5"));
        ++results;
    }

    int results = 0;
    bool inOrder = true;
};

constexpr int c_manyFields = 1000000;
constexpr int c_chunkSize = 64;
constexpr int c_chunks = 1024 * 1024 / c_chunkSize;

/// A mebibyte, in replies with the numbers from 1.
template <class Command>
void arriveWithoutLineEnd(CommandRun<Command>& run)
{
    for (int number = 1; number <= c_chunks; ++number) {
        run.arrive(number, QByteArray(c_chunkSize, 'x'));
    }
}

} // namespace

/// Results are right however much arrives, in large replies and in small ones.
class TestMuchInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sixteenMebibytesOfResultLinesInOneReplyAreAllPublishedInOrder()
    {
        constexpr int c_size = 16 * 1024 * 1024;
        QByteArray chunk;
        chunk.reserve(c_size);
        int lines = 0;
        while (chunk.size() < c_size) {
            chunk += "RE:F:12.5,1,0,30.25,1," + QByteArray::number(lines) + ",2\r\n";
            ++lines;
        }
        PDeviceHaitor plugin(QUuid::createUuid(), nullptr);
        CountingOrder order;
        DCmdListen command({}, &plugin);
        command.linkWithItsOrder(&order);
        QVERIFY(command.commandExecute());
        QVERIFY(command.setReply(order.openSubscription(),
                                 {{QStringLiteral("number"), 1}, {QStringLiteral("frame"), chunk}}));
        QCOMPARE(order.results, lines);
        QVERIFY(order.inOrder);
    }

    void ofAResultLineOfAMillionFieldsSevenAreRead()
    {
        CommandRun<DCmdListen> run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, c_result.chopped(2) + QByteArray(",9").repeated(c_manyFields) + "\r\n"));
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>{record(1, 0)});
    }

    void aProgramOfAMillionFieldsIsOneProgram()
    {
        CommandRun<DCmdListPrograms> run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "OK\r\nOK:TRQ1" + QByteArray(",TRQ2").repeated(c_manyFields) + "\r\nERR:1\r\n"));
        const QVariantMap program{{QStringLiteral("TRQ"), QStringLiteral("2")}, {QStringLiteral("progId"), 1}};
        QCOMPARE(run.property("programList"), QVariant(QVariantList{program}));
    }

    void aMebibyteWithoutLineEndInSmallRepliesIsOneLine()
    {
        CommandRun<DCmdListen> run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(0, "RE:F:12.5,1,0,30,1,3,"));
        arriveWithoutLineEnd(run);
        QVERIFY(run.order.published().isEmpty());
        QVERIFY(run.arrive(-2, "\r\n" + c_result));
        const QVector<QVariantMap> records = recordsOf(run.order);
        QCOMPARE(records.size(), 2);
        QCOMPARE(records.at(0).value(QStringLiteral("readingStatus")).toString(),
                 QString(c_chunks * c_chunkSize, QLatin1Char('x')));
        QCOMPARE(records.at(1), record(-2, 0));
    }

    void theProgramListFindsItsAnswerBehindSixteenMebibytesOfOtherLines()
    {
        CommandRun<DCmdListPrograms> run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, c_result.repeated(16 * 1024 * 1024 / c_result.size()) + "OK\r\n"));
        QCOMPARE(run.frames(), QStringList({QStringLiteral("IDLE"), QStringLiteral("TR:C")}));
    }

    void theProgramListFindsItsAnswerBehindAMebibyteWithoutLineEnd()
    {
        CommandRun<DCmdListPrograms> run;
        QVERIFY(run.execute());
        arriveWithoutLineEnd(run);
        QVERIFY(run.arrive(-2, "\r\nOK\r\n"));
        QCOMPARE(run.frames(), QStringList({QStringLiteral("IDLE"), QStringLiteral("TR:C")}));
    }

    void theSelectionFindsItsAnswerBehindAMebibyteWithoutLineEnd()
    {
        CommandRun<DCmdSetProgram> run({{QStringLiteral("progId"), 1}});
        run.give("programListCount", 1);
        QVERIFY(run.execute());
        arriveWithoutLineEnd(run);
        QVERIFY(run.arrive(-2, "\r\nOK\r\n"));
        QCOMPARE(run.frames(), QStringList({QStringLiteral("IDLE"), QStringLiteral("TR:C")}));
    }
};

QTEST_GUILESS_MAIN(TestMuchInput)

#include "tst_much_input.moc"
