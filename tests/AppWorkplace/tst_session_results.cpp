#include <QDateTime>
#include <QStringList>
#include <QTest>
#include <QVector>

#include "session_fixture.h"

namespace {

const QByteArray c_line = QByteArrayLiteral("RE:F:12.05,0,0,90,0,17,0");

/// The record that the device plugin makes of a line.
QVariantMap recordOf(const QByteArray& line, int chunk)
{
    const QStringList keys{QStringLiteral("convertedTorque"), QStringLiteral("direction"),
                           QStringLiteral("torqueStatus"),    QStringLiteral("snugTorqueAngle"),
                           QStringLiteral("angleStatus"),     QStringLiteral("readingNumber"),
                           QStringLiteral("readingStatus")};
    const QStringList fields = QString::fromUtf8(line.mid(5)).split(QLatin1Char(','));
    QVariantMap record{{QStringLiteral("eventCountNo"), chunk}, {QStringLiteral("progId"), 2}};
    for (int i = 0; i < keys.size(); ++i) {
        record.insert(keys.at(i), fields.value(i));
    }
    return record;
}

} // namespace

/// What a session tells with each tightening result.
class TestSessionResults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void passesTheRecordOnUnchanged();
    void findsTheLineOfARecord_data();
    void findsTheLineOfARecord();
    void findsNoLineForARecord_data();
    void findsNoLineForARecord();
    void takesALineOnce();
    void forgetsTheLinesBefore();
    void forgetsTheOldestOfTooManyLines();
    void tellsWhenItCame();
    void tellsTheProgramAndItsPreset();
    void tellsTheProgramThatTheWrenchStandsAt_data();
    void tellsTheProgramThatTheWrenchStandsAt();
    void tellsWhatTheWrenchHasKept();
    void leavesOutWhatCameBeforeTheWrenchWasDialled();
    void tellsTheFirstAfterAReconnection();
    void keepsWhatWasKnownOfAnEarlyResult();
    void tellsAnEarlyResultWhenItFails();
    void doesNotCountWhatIsDiscounted();
    void tellsTheChunksWhileItListens();

private:
    static void publish(SessionFixture& fixture, const QVariantMap& record);
};

void TestSessionResults::publish(SessionFixture& fixture, const QVariantMap& record)
{
    fixture.device->publish(QStringLiteral("listenEventsData"), {{QStringLiteral("eventData"), record}});
    SessionFixture::turn();
}

void TestSessionResults::passesTheRecordOnUnchanged()
{
    SessionFixture fixture;
    fixture.start();
    const QVariantMap record = recordOf(c_line, 4);
    publish(fixture, record);
    QCOMPARE(fixture.shown.value(0).eventData, record);
}

void TestSessionResults::findsTheLineOfARecord_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("whole") << c_line;
    QTest::newRow("without its last field") << QByteArray("RE:F:12.05,0,0,90,0,17");
    QTest::newRow("with more fields") << QByteArray(c_line + ",9,9");
    QTest::newRow("with empty fields") << QByteArray("RE:F:12.05,,0,90,0,17,");
}

void TestSessionResults::findsTheLineOfARecord()
{
    QFETCH(QByteArray, line);
    SessionFixture fixture;
    fixture.start();
    fixture.say("OK:1\r\n" + line + "\r\n", 4);
    SessionFixture::turn();
    publish(fixture, recordOf(line, 4));
    QCOMPARE(fixture.shown.value(0).rawLine, line);
}

void TestSessionResults::findsNoLineForARecord_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("chunk");
    QTest::newRow("none was seen") << QByteArray() << 4;
    QTest::newRow("of another chunk") << c_line << 5;
    QTest::newRow("of another content") << QByteArray("RE:F:12.06,0,0,90,0,17,0") << 4;
    QTest::newRow("no result") << QByteArray("RE:X:12.05,0,0,90,0,17,0") << 4;
}

void TestSessionResults::findsNoLineForARecord()
{
    QFETCH(QByteArray, line);
    QFETCH(int, chunk);
    SessionFixture fixture;
    fixture.start();
    fixture.say(line + "\r\n", chunk);
    SessionFixture::turn();
    publish(fixture, recordOf(c_line, 4));
    QCOMPARE(fixture.shown.size(), 1);
    QCOMPARE(fixture.shown.first().rawLine, QByteArray());
}

void TestSessionResults::takesALineOnce()
{
    ObservedResults observed;
    observed.add(c_line, 4);
    QCOMPARE(observed.take(recordOf(c_line, 4)), c_line);
    QCOMPARE(observed.take(recordOf(c_line, 4)), QByteArray());
}

void TestSessionResults::forgetsTheLinesBefore()
{
    const QByteArray later = QByteArrayLiteral("RE:F:13.00,0,0,90,0,18,0");
    ObservedResults observed;
    observed.add(c_line, 4);
    observed.add(later, 4);
    QCOMPARE(observed.take(recordOf(later, 4)), later);
    QCOMPARE(observed.take(recordOf(c_line, 4)), QByteArray());
}

void TestSessionResults::forgetsTheOldestOfTooManyLines()
{
    ObservedResults observed;
    for (int chunk = 1; chunk <= ObservedResults::c_mostLines + 1; ++chunk) {
        observed.add(c_line, chunk);
    }
    QCOMPARE(observed.take(recordOf(c_line, 1)), QByteArray());
    QCOMPARE(observed.take(recordOf(c_line, 2)), c_line);
}

void TestSessionResults::tellsWhenItCame()
{
    SessionFixture fixture;
    fixture.start();
    const QDateTime before = QDateTime::currentDateTimeUtc();
    publish(fixture, recordOf(c_line, 4));
    const QDateTime arrival = fixture.shown.value(0).arrival;
    QVERIFY(arrival >= before && arrival <= QDateTime::currentDateTimeUtc());
    QCOMPARE(arrival.timeSpec(), Qt::UTC);
}

void TestSessionResults::tellsTheProgramAndItsPreset()
{
    SessionFixture fixture;
    fixture.start();
    publish(fixture, recordOf(c_line, 4));
    QCOMPARE(fixture.shown.value(0).program, 2);
    QCOMPARE(fixture.shown.value(0).preset, (QVariantMap{{QStringLiteral("unit"), QStringLiteral("N.m")}}));
}

void TestSessionResults::tellsTheProgramThatTheWrenchStandsAt_data()
{
    QTest::addColumn<QString>("course");
    QTest::addColumn<int>("program");
    QTest::newRow("none was asked for") << "none" << 1; // the walk through the list ends at the first
    QTest::newRow("another is asked for") << "asked" << 2;
    QTest::newRow("another is there") << "there" << 3;
    QTest::newRow("another has failed on its way") << "failed" << 0;
}

// The record names the program that was asked for last, however that went.
void TestSessionResults::tellsTheProgramThatTheWrenchStandsAt()
{
    QFETCH(QString, course);
    QFETCH(int, program);
    SessionOrder order = SessionFixture::defaultOrder();
    if (course == QLatin1String("none")) {
        order.program.reset();
    }
    SessionFixture fixture(order);
    fixture.start();
    if (course == QLatin1String("asked")) {
        fixture.react(QStringLiteral("setProgram"), Reaction::Kind::Silence);
    } else if (course == QLatin1String("failed")) {
        fixture.answer("setProgram", {{QStringLiteral("cmd_success"), false}});
    }
    if (course != QLatin1String("none")) {
        fixture.session->selectProgram(3);
        SessionFixture::turn();
    }
    QVariantMap record = recordOf(c_line, 4);
    record.insert(QStringLiteral("progId"), 3);
    publish(fixture, record);
    QCOMPARE(fixture.shown.value(0).eventData, record);
    QCOMPARE(fixture.shown.value(0).program, program);
    QCOMPARE(fixture.shown.value(0).preset.isEmpty(), program == 0);
}

void TestSessionResults::tellsWhatTheWrenchHasKept()
{
    SessionFixture fixture;
    fixture.whenDialled([&fixture] {
        fixture.say(c_line + "\r\n", 4);
        fixture.device->publish(QStringLiteral("listenEventsData"),
                                {{QStringLiteral("eventData"), recordOf(c_line, 4)}});
    });
    fixture.start();
    QCOMPARE(fixture.shown.size(), 1);
    QCOMPARE(fixture.shown.value(0).rawLine, c_line);
    QCOMPARE(fixture.shown.value(0).program, 0);
}

// The dongle may have a link to another wrench until then.
void TestSessionResults::leavesOutWhatCameBeforeTheWrenchWasDialled()
{
    SessionFixture fixture;
    fixture.react(QStringLiteral("searchAndConnect"), Reaction::Kind::Silence);
    fixture.start();
    fixture.say("RESP 02:00:00:00:00:01 TW60 2210 -61\r\nATD 02000000FFFF\r\nDATA\r\n" + c_line + "\r\n", 4);
    SessionFixture::turn();
    publish(fixture, recordOf(c_line, 4));
    fixture.session->interrupt();
    SessionFixture::turn();
    QCOMPARE(fixture.ends, 1);
    QCOMPARE(fixture.shown.size(), 0);
}

void TestSessionResults::tellsTheFirstAfterAReconnection()
{
    SessionFixture fixture;
    fixture.start();
    fixture.tighten(1);
    fixture.loseLine();
    fixture.openLine();
    fixture.advance(0);
    fixture.tighten(2);
    fixture.tighten(3);
    QVector<bool> told;
    for (const TighteningResult& result : qAsConst(fixture.shown)) {
        told.append(result.isFirstAfterReconnection);
    }
    QCOMPARE(told, (QVector<bool>{false, true, false}));
}

void TestSessionResults::keepsWhatWasKnownOfAnEarlyResult()
{
    SessionFixture fixture;
    const auto tighten = [&fixture] {
        fixture.say(c_line + "\r\n", 4);
        fixture.device->publish(QStringLiteral("listenEventsData"),
                                {{QStringLiteral("eventData"), recordOf(c_line, 4)}});
    };
    fixture.whenUnlocked(tighten);
    fixture.start();
    QCOMPARE(fixture.shown.value(0).rawLine, c_line);
}

// The unlocked wrench has tightened before the session listens, and then a step fails.
void TestSessionResults::tellsAnEarlyResultWhenItFails()
{
    SessionFixture fixture;
    const auto tighten = [&fixture] {
        fixture.device->publish(QStringLiteral("listenEventsData"),
                                {{QStringLiteral("eventData"), recordOf(c_line, 4)}});
    };
    fixture.whenUnlocked(tighten);
    fixture.answer("setKeepAliveFonction", {{QStringLiteral("cmd_success"), false}});
    fixture.start();
    QCOMPARE(fixture.problems, 1);
    QCOMPARE(fixture.shown.size(), 1);
    QCOMPARE(fixture.shown.value(0).eventData, recordOf(c_line, 4));
    QCOMPARE(fixture.summary.good + fixture.summary.notGood, 1);
}

void TestSessionResults::doesNotCountWhatIsDiscounted()
{
    SessionOrder order = SessionFixture::defaultOrder();
    order.results = 2;
    SessionFixture fixture(order);
    QObject::connect(fixture.session.get(), &Session::sigResult, fixture.session.get(),
                     [&fixture](const TighteningResult& result) {
                         if (result.eventData.value(QStringLiteral("readingNumber")).toInt() == 1) {
                             fixture.session->discount(result);
                         }
                     });
    fixture.start();
    fixture.tighten(1);
    fixture.tighten(2);
    QCOMPARE(fixture.ends, 0);
    fixture.tighten(1, QStringLiteral("2"));
    QCOMPARE(fixture.ends, 0);
    fixture.tighten(3, QStringLiteral("2"));
    QCOMPARE(fixture.ends, 1);
    QCOMPARE(fixture.summary.good, 1);
    QCOMPARE(fixture.summary.notGood, 1);
}

void TestSessionResults::tellsTheChunksWhileItListens()
{
    SessionFixture fixture;
    QList<int> chunks;
    QObject::connect(fixture.session.get(), &Session::sigChunk, fixture.session.get(),
                     [&chunks](int number) { chunks.append(number); });
    // Whoever asks hears chunks that nobody else hears.
    fixture.device->setReaction(
        QStringLiteral("setLock"),
        {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), true}}, [&fixture] { fixture.say("OK:0\r\n", 5); }});
    fixture.start();
    QCOMPARE(chunks, QList<int>());
    fixture.say("half a li", 7);
    SessionFixture::turn();
    fixture.say("ne\r\n", 9);
    SessionFixture::turn();
    QCOMPARE(chunks, (QList<int>{7, 9}));
}

QTEST_GUILESS_MAIN(TestSessionResults)
#include "tst_session_results.moc"
