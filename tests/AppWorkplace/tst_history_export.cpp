#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <QTest>
#include <QVariant>

#include <limits>

#include "cli/time_option.h"
#include "history/history_export.h"
#include "history/history_format.h"
#include "history_fixture.h"

namespace {

/// The fields of one record, read as RFC 4180 says; a field that was not quoted and is empty is null.
QStringList fieldsOf(const QByteArray& line)
{
    QStringList fields;
    QByteArray field;
    bool isQuoted = false;
    bool wasQuoted = false;
    const auto finish = [&] {
        fields.append(field.isEmpty() && !wasQuoted ? QString() : QString::fromUtf8(field) + QLatin1String(""));
        field.clear();
        wasQuoted = false;
    };
    for (int i = 0; i < line.size(); ++i) {
        const char character = line.at(i);
        if (isQuoted && character == '"' && i + 1 < line.size() && line.at(i + 1) == '"') {
            field += '"';
            ++i;
        } else if (character == '"') {
            isQuoted = !isQuoted;
            wasQuoted = true;
        } else if (!isQuoted && character == ',') {
            finish();
        } else if (!isQuoted && line.mid(i) == "\r\n") {
            break;
        } else {
            field += character;
        }
    }
    finish();
    return fields;
}

/// A field by its title.
QString field(const HistoryRecord& record, const char* title)
{
    const int column = fieldsOf(history_format::csvTitles()).indexOf(QLatin1String(title));
    return fieldsOf(history_format::toCsv(record)).value(column, QStringLiteral("no such column"));
}

std::optional<qint64> moment(const char* text, bool isEnd = false)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("since"), QString(), QStringLiteral("TIME")});
    parser.parse({QStringLiteral("program"), QStringLiteral("--since"), QLatin1String(text)});
    Problem problem;
    return timeOption(parser, QStringLiteral("since"), isEnd, &problem);
}

} // namespace

class TestHistoryExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesTheColumnsInTheirOrder();
    void writesTextsAsTheyWereReceived_data();
    void writesTextsAsTheyWereReceived();
    void tellsEmptyFromAbsent();
    void writesGapsAndRepeats();
    void knowsNoGapBetweenNumbersThatAreTooFarApart();
    void writesOneObjectALine();
    void writesTheLocalTimeOfThen_data();
    void writesTheLocalTimeOfThen();
    void showsTheFileOnlyWhenItIsWhole();
    void leavesTheOldFileWhenItCannotWrite();
    void knowsItsFormatByTheName();

    void readsMoments_data();
    void readsMoments();
    void refusesOtherMoments_data();
    void refusesOtherMoments();
};

void TestHistoryExport::writesTheColumnsInTheirOrder()
{
    QCOMPARE(history_format::csvTitles(),
             QByteArray("id,kind,arrived,serialId,device,plugin,convertedTorque,direction,torqueStatus,snugTorqueAngle,"
                        "angleStatus,readingNumber,readingStatus,eventCountNo,progId,good,afterReconnection,counter,"
                        "countBefore,countAfter,repeatOf,presetData,rawLine,otherEntries\r\n"));
    HistoryRecord record = HistoryFixture::result(1, 0);
    record.id = 9;
    QCOMPARE(history_format::toCsv(record),
             QByteArray("9,result,1970-01-01T00:00:00.000000Z,2210,/dev/ttyUSB0,scripted,12.05,0,0,90,0,1,0,21,2,true,"
                        "false,,,,,\"{\"\"unit\"\":\"\"N.m\"\"}\",\"RE:F:12.05,0,0,90,0,1,0\",\r\n"));
}

void TestHistoryExport::writesTextsAsTheyWereReceived_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text :
         {"012.50", " 12 ", "1,5", "say \"hi\"", "two\nlines", "cr\r", "=1+1", "\xc3\xa9", "\"", ","}) {
        QTest::newRow(text) << QString::fromUtf8(text);
    }
}

void TestHistoryExport::writesTextsAsTheyWereReceived()
{
    QFETCH(QString, text);
    HistoryRecord record = HistoryFixture::result(1);
    record.entries.at(HistoryRecord::ConvertedTorque) = text;
    QCOMPARE(field(record, "convertedTorque"), text);
    QCOMPARE(history_format::toJson(record)
                 .value(QLatin1String("eventData"))
                 .toObject()
                 .value(QLatin1String("convertedTorque"))
                 .toString(),
             text);
}

void TestHistoryExport::tellsEmptyFromAbsent()
{
    HistoryRecord record = HistoryFixture::result(1);
    record.entries.at(HistoryRecord::ReadingStatus) = QString(QLatin1String(""));
    record.entries.at(HistoryRecord::ProgId) = QVariant();
    QVERIFY(field(record, "readingStatus").isEmpty() && !field(record, "readingStatus").isNull());
    QVERIFY(field(record, "progId").isNull());
    const QJsonObject eventData = history_format::toJson(record).value(QLatin1String("eventData")).toObject();
    QVERIFY(eventData.contains(QLatin1String("readingStatus")));
    QVERIFY(!eventData.contains(QLatin1String("progId")));
}

void TestHistoryExport::knowsNoGapBetweenNumbersThatAreTooFarApart()
{
    HistoryRecord gap = HistoryFixture::gap(-2, 0);
    QCOMPARE(gap.missing(), Q_INT64_C(1));
    gap.countAfter = std::numeric_limits<qint64>::max();
    QCOMPARE(gap.missing(), Q_INT64_C(0));
}

void TestHistoryExport::writesGapsAndRepeats()
{
    HistoryRecord gap = HistoryFixture::gap(3, 7);
    gap.entries = {};
    QCOMPARE(field(gap, "kind"), QStringLiteral("gap"));
    QCOMPARE(field(gap, "counter"), QStringLiteral("readingNumber"));
    QCOMPARE(field(gap, "countBefore"), QStringLiteral("3"));
    QCOMPARE(field(gap, "countAfter"), QStringLiteral("7"));
    QVERIFY(field(gap, "good").isNull());
    HistoryRecord repeat = gap;
    repeat.kind = HistoryRecord::Kind::Repeat;
    repeat.repeatOf = 12;
    QCOMPARE(field(repeat, "kind"), QStringLiteral("repeat"));
    QCOMPARE(field(repeat, "repeatOf"), QStringLiteral("12"));
    QCOMPARE(history_format::toJson(repeat).value(QLatin1String("repeatOf")).toInt(), 12);
}

void TestHistoryExport::writesOneObjectALine()
{
    const HistoryFixture history;
    const QString name = history.folder() + QStringLiteral("/out.jsonl");
    HistoryExport out(name, HistoryExport::Format::JsonLines);
    QVERIFY(!out.begin());
    QVERIFY(!out.write({HistoryFixture::result(1), HistoryFixture::gap(1, 3)}));
    QVERIFY(!out.write({HistoryFixture::result(3)}));
    QVERIFY(!out.commit());
    const QList<QByteArray> lines = HistoryFixture::bytesOf(name).split('\n');
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines.constLast().isEmpty());
    QCOMPARE(QJsonDocument::fromJson(lines.at(0)).object(), history_format::toJson(HistoryFixture::result(1)));
    QCOMPARE(QJsonDocument::fromJson(lines.at(1)).object(), history_format::toJson(HistoryFixture::gap(1, 3)));
}

void TestHistoryExport::writesTheLocalTimeOfThen_data()
{
    QTest::addColumn<qint64>("us");
    QTest::addColumn<int>("offsetS");
    QTest::addColumn<QString>("text");
    QTest::newRow("UTC") << Q_INT64_C(1795249800123456) << 0 << QStringLiteral("2026-11-21T08:30:00.123456Z");
    QTest::newRow("east") << Q_INT64_C(1795249800000001) << 3600 << QStringLiteral("2026-11-21T09:30:00.000001+01:00");
    QTest::newRow("west") << Q_INT64_C(1795249800000000) << -12600
                          << QStringLiteral("2026-11-21T05:00:00.000000-03:30");
    QTest::newRow("a clock before its time") << Q_INT64_C(-1) << 0 << QStringLiteral("1969-12-31T23:59:59.999999Z");
}

void TestHistoryExport::writesTheLocalTimeOfThen()
{
    QFETCH(qint64, us);
    QFETCH(int, offsetS);
    HistoryRecord record;
    record.arrivedUs = us;
    record.utcOffsetS = offsetS;
    QTEST(history_format::arrival(record), "text");
}

void TestHistoryExport::showsTheFileOnlyWhenItIsWhole()
{
    const HistoryFixture history;
    const QString name = history.folder() + QStringLiteral("/out.csv");
    {
        HistoryExport given(name, HistoryExport::Format::Csv);
        QVERIFY(!given.begin());
        QVERIFY(!given.write({HistoryFixture::result(1)}));
        QVERIFY(!QFile::exists(name));
    }
    QCOMPARE(QDir(history.folder()).entryList(QDir::Files), QStringList());
    HistoryExport out(name, HistoryExport::Format::Csv);
    QVERIFY(!out.begin());
    QVERIFY(!out.commit());
    QCOMPARE(HistoryFixture::bytesOf(name), history_format::csvTitles());
}

void TestHistoryExport::leavesTheOldFileWhenItCannotWrite()
{
    const HistoryFixture history;
    HistoryExport out(history.folder() + QStringLiteral("/none/out.csv"), HistoryExport::Format::Csv);
    const std::optional<Problem> problem = out.begin();
    QVERIFY(problem && problem->what.contains(QLatin1String("out.csv")));
    QCOMPARE(problem->kind, Problem::Kind::SetUp);
}

void TestHistoryExport::knowsItsFormatByTheName()
{
    QCOMPARE(HistoryExport::formatOf(QStringLiteral("/a/b.csv")), HistoryExport::Format::Csv);
    QCOMPARE(HistoryExport::formatOf(QStringLiteral("B.JSONL")), HistoryExport::Format::JsonLines);
    QVERIFY(!HistoryExport::formatOf(QStringLiteral("a.json")));
    QVERIFY(!HistoryExport::formatOf(QString()));
}

// The tests' local time is UTC.
void TestHistoryExport::readsMoments_data()
{
    QTest::addColumn<bool>("isEnd");
    QTest::addColumn<qint64>("us");
    constexpr qint64 day = Q_INT64_C(1795219200) * HistoryFixture::c_usPerSecond; // 2026-11-21
    constexpr qint64 second = HistoryFixture::c_usPerSecond;
    QTest::newRow("2026-11-21") << false << day;
    QTest::newRow("2026-11-20") << true << day;
    QTest::newRow("2026-11-21T08:30") << true << day + 30600 * second;
    QTest::newRow("2026-11-21 08:30:15") << false << day + 30615 * second;
    QTest::newRow("2026-11-21T08:30:15.25") << false << day + 30615 * second + 250000;
    QTest::newRow("2026-11-21T08:30:15.000001Z") << false << day + 30615 * second + 1;
    QTest::newRow("2026-11-21T08:30+01:30") << false << day + Q_INT64_C(25200) * second;
    QTest::newRow("2026-11-20T20:00-04:00") << false << day;
}

void TestHistoryExport::readsMoments()
{
    QFETCH(bool, isEnd);
    const std::optional<qint64> read = moment(QTest::currentDataTag(), isEnd);
    QVERIFY(read);
    QTEST(*read, "us");
}

void TestHistoryExport::refusesOtherMoments_data()
{
    QTest::addColumn<int>("unused");
    for (const char* text :
         {"today", "2026-11", "2026-02-30", "2026-11-21T25:00", "2026-11-21T08", "2026-11-21T08:30:61",
          "2026-11-21T08:30+15:00", "21.11.2026", "2026-11-21T08:30:15.1234567", "2026-11-21 "}) {
        QTest::newRow(text) << 0;
    }
}

void TestHistoryExport::refusesOtherMoments()
{
    QVERIFY(!moment(QTest::currentDataTag()));
}

QTEST_GUILESS_MAIN(TestHistoryExport)
#include "tst_history_export.moc"
