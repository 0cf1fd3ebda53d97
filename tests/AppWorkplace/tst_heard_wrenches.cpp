#include <QStringList>
#include <QTest>
#include <QVariant>

#include "services/heard_wrenches.h"
#include "services/verdict.h"

class TestHeardWrenches : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesEachAddressOnce();
    void tellsOnlyNews();
    void putsTheStrongestFirst();
    void saysWhyAWrenchIsNotConnected();
    void judgesATightening_data();
    void judgesATightening();
};

void TestHeardWrenches::takesEachAddressOnce()
{
    HeardWrenches heard;
    heard.add(QStringLiteral("AA"), QStringLiteral("1"), QStringLiteral("-70"));
    heard.add(QStringLiteral("AA"), QStringLiteral("1"), QStringLiteral("-60"));
    QCOMPARE(heard.strongestFirst(), QVariantList{(QVariantMap{{QStringLiteral("mac"), QStringLiteral("AA")},
                                                               {QStringLiteral("sn"), QStringLiteral("1")},
                                                               {QStringLiteral("rssi"), QStringLiteral("-60")}})});
}

void TestHeardWrenches::tellsOnlyNews()
{
    HeardWrenches heard;
    QVERIFY(heard.add(QStringLiteral("AA"), QStringLiteral("1"), QStringLiteral("-70")));
    QVERIFY(!heard.add(QStringLiteral("AA"), QStringLiteral("1"), QStringLiteral("-70")));
    QVERIFY(heard.add(QStringLiteral("AA"), QStringLiteral("1"), QStringLiteral("-71")));
}

void TestHeardWrenches::putsTheStrongestFirst()
{
    HeardWrenches heard;
    heard.add(QStringLiteral("A"), QStringLiteral("weak"), QStringLiteral("-100"));
    heard.add(QStringLiteral("B"), QStringLiteral("strong"), QStringLiteral("-9"));
    heard.add(QStringLiteral("C"), QStringLiteral("middle"), QStringLiteral("-70"));
    QStringList serials;
    const QVariantList sorted = heard.strongestFirst();
    for (const QVariant& wrench : sorted) {
        serials.append(wrench.toMap().value(QStringLiteral("sn")).toString());
    }
    QCOMPARE(serials, (QStringList{QStringLiteral("strong"), QStringLiteral("middle"), QStringLiteral("weak")}));
}

void TestHeardWrenches::saysWhyAWrenchIsNotConnected()
{
    HeardWrenches heard;
    QCOMPARE(heard.whyNot(QStringLiteral("9")), QStringLiteral("no wrench was heard"));
    heard.add(QStringLiteral("A"), QStringLiteral("1"), QStringLiteral("-70"));
    heard.add(QStringLiteral("B"), QStringLiteral("2"), QStringLiteral("-58"));
    QCOMPARE(heard.whyNot(QStringLiteral("9")),
             QStringLiteral("the wrench 9 was not heard, only 2 (-58 dBm), 1 (-70 dBm)"));
    QCOMPARE(heard.whyNot(QStringLiteral("1")),
             QStringLiteral("the wrench 1 was heard, but the link to it did not come about"));
}

void TestHeardWrenches::judgesATightening_data()
{
    QTest::addColumn<QString>("torque");
    QTest::addColumn<QString>("angle");
    QTest::addColumn<QString>("reading");
    QTest::addColumn<bool>("good");
    QTest::newRow("good") << "0"
                          << "0"
                          << "0" << true;
    QTest::newRow("without a reading status") << "0"
                                              << "0"
                                              << "" << true;
    QTest::newRow("torque low") << "1"
                                << "0"
                                << "0" << false;
    QTest::newRow("angle high") << "0"
                                << "2"
                                << "0" << false;
    QTest::newRow("reading bad") << "0"
                                 << "0"
                                 << "1" << false;
    QTest::newRow("no torque status") << ""
                                      << "0"
                                      << "0" << false;
    QTest::newRow("no angle status") << "0"
                                     << ""
                                     << "0" << false;
    QTest::newRow("blank") << " 0"
                           << "0"
                           << "0" << false;
}

void TestHeardWrenches::judgesATightening()
{
    QFETCH(QString, torque);
    QFETCH(QString, angle);
    QFETCH(QString, reading);
    QFETCH(bool, good);
    QCOMPARE(isGood({{QStringLiteral("torqueStatus"), torque},
                     {QStringLiteral("angleStatus"), angle},
                     {QStringLiteral("readingStatus"), reading}}),
             good);
}

QTEST_GUILESS_MAIN(TestHeardWrenches)
#include "tst_heard_wrenches.moc"
