#include "command_run.h"
#include "d_cmd_listen.h"
#include "log_capture.h"
#include "tightening_results.h"

namespace {

using ListenRun = CommandRun<DCmdListen>;

} // namespace

/// Which lines are results, and what becomes of their fields.
class TestDCmdListenLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theseLinesPublishNothing_data()
    {
        QTest::addColumn<QByteArray>("chunk");
        QTest::newRow("an acknowledgement") << QByteArray("OK:1\r\n");
        QTest::newRow("an empty line") << QByteArray("\r\n");
        QTest::newRow("blanks only") << QByteArray("  \t\r\n");
        QTest::newRow("five fields") << QByteArray("RE:F:12.5,1,0,30,1\r\n");
        QTest::newRow("no fields") << QByteArray("RE:F:\r\n");
        QTest::newRow("lower case") << QByteArray("re:f:12.5,1,0,30,1,3,2\r\n");
        QTest::newRow("something before it") << QByteArray("xRE:F:12.5,1,0,30,1,3,2\r\n");
        QTest::newRow("a shorter start") << QByteArray("RE:12.5,1,0,30,1,3,2\r\n");
        QTest::newRow("a program") << QByteArray("OK:UNT0,ANG90,TRQ12,SNG0,ADT0,NUM1,X\r\n");
        QTest::newRow("no line end") << QByteArray("RE:F:12.5,1,0,30,1,3,2");
        QTest::newRow("carriage return alone") << QByteArray("RE:F:12.5,1,0,30,1,3,2\r");
        QTest::newRow("line feed alone") << QByteArray("RE:F:12.5,1,0,30,1,3,2\n");
        QTest::newRow("line feed before carriage return") << QByteArray("RE:F:12.5,1,0,30,1,3,2\n\r");
        QTest::newRow("a zero byte before the sixth field") << QByteArray("RE:F:12.5,1,0,30,1\0,3,2\r\n", 26);
        QTest::newRow("a zero byte first") << QByteArray("\0RE:F:12.5,1,0,30,1,3,2\r\n", 25);
    }

    void theseLinesPublishNothing()
    {
        QFETCH(const QByteArray, chunk);
        const LogCapture log;
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, chunk));
        QVERIFY(run.order.published().isEmpty());
        QVERIFY(log.messages(QtWarningMsg).isEmpty() && log.messages(QtCriticalMsg).isEmpty());
    }

    void aLineThatIsDroppedDoesNotHideTheNext_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::newRow("another frame") << QByteArray("OK:1\r\n");
        QTest::newRow("an empty line") << QByteArray("\r\n");
        QTest::newRow("too few fields") << QByteArray("RE:F:1,2\r\n");
    }

    void aLineThatIsDroppedDoesNotHideTheNext()
    {
        QFETCH(const QByteArray, before);
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(3, before + c_result));
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>{record(3, 0)});
    }

    void charactersWithoutLineEndWaitInTheBuffer()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, c_result.chopped(2)));
        QVERIFY(run.order.published().isEmpty());
        QVERIFY(run.arrive(2, "\r\n"));
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>{record(2, 0)});
    }

    void sixFieldsAreAResultWithAnEmptyReadingStatusOnPurpose()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "RE:F:12.5,1,0,30,1,3\r\n"));
        const QVariant status = recordsOf(run.order).constFirst().value(QStringLiteral("readingStatus"));
        QCOMPARE(status.userType(), int(QMetaType::QString));
        QCOMPARE(status.toString(), QString());
        QVERIFY(!status.toString().isNull());
    }

    void fieldsAfterTheSeventhAreIgnored()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(7, "RE:F:12.5,1,0,30,1,3,2,8,9,10\r\n"));
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>{record(7, 0)});
    }

    void twoCommasInARowGiveAnEmptyField()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "RE:F:12.5,,0,30,1,3,2\r\n"));
        QCOMPARE(valuesOf(run.order, "direction"), QVariantList{QString()});
        QCOMPARE(valuesOf(run.order, "torqueStatus"), QVariantList{QStringLiteral("0")});
    }

    void commasAloneGiveEmptyFields()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "RE:F:,,,,,\r\n"));
        QCOMPARE(valuesOf(run.order, "convertedTorque"), QVariantList{QString()});
        QCOMPARE(valuesOf(run.order, "readingNumber"), QVariantList{QString()});
    }

    void aLineIsTrimmed()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(7, " \t RE:F:12.5,1,0,30,1,3,2 \t\r\n"));
        QCOMPARE(recordsOf(run.order), QVector<QVariantMap>{record(7, 0)});
    }

    void blanksAroundSingleFieldsAreKept()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "RE:F: 12.5 , 1,0,30,1,3 ,2\r\n"));
        QCOMPARE(valuesOf(run.order, "convertedTorque"), QVariantList{QStringLiteral(" 12.5 ")});
        QCOMPARE(valuesOf(run.order, "direction"), QVariantList{QStringLiteral(" 1")});
        QCOMPARE(valuesOf(run.order, "readingNumber"), QVariantList{QStringLiteral("3 ")});
    }

    void noFieldIsTranslated()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "RE:F:0x1F,CW,OK,-1e3,007,+3,NaN\r\n"));
        const QVariantMap published = recordsOf(run.order).constFirst();
        QCOMPARE(published.value(QStringLiteral("convertedTorque")), QVariant(QStringLiteral("0x1F")));
        QCOMPARE(published.value(QStringLiteral("direction")), QVariant(QStringLiteral("CW")));
        QCOMPARE(published.value(QStringLiteral("snugTorqueAngle")), QVariant(QStringLiteral("-1e3")));
        QCOMPARE(published.value(QStringLiteral("angleStatus")), QVariant(QStringLiteral("007")));
        QCOMPARE(published.value(QStringLiteral("readingNumber")), QVariant(QStringLiteral("+3")));
    }

    void aLineIsReadAsUtf8EvenWhenACharacterIsSplitBetweenReplies()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, "RE:F:12.5,\xC2"));
        QVERIFY(run.arrive(2, "\xB5,0,30,1,3,2\r\n"));
        QCOMPARE(valuesOf(run.order, "direction"), QVariantList{QString(QChar(0xB5))});
    }

    void aLineEndsAtItsFirstZeroByte()
    {
        ListenRun run;
        QVERIFY(run.execute());
        QVERIFY(run.arrive(1, QByteArray("RE:F:12.5,1,0,30,1,3\0,2\r\n", 25)));
        QCOMPARE(valuesOf(run.order, "readingNumber"), QVariantList{QStringLiteral("3")});
        QCOMPARE(valuesOf(run.order, "readingStatus"), QVariantList{QString()});
    }
};

QTEST_GUILESS_MAIN(TestDCmdListenLines)

#include "tst_d_cmd_listen_lines.moc"
