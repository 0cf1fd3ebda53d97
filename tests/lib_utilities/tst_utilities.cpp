#include <QDateTime>
#include <QRegularExpression>
#include <QTest>

#include <lib_utilities/utilities.h>

class TstUtilities : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void versionIsReadFromText_data();
    void versionIsReadFromText();
    void textThatIsNoVersionIsRefused_data();
    void textThatIsNoVersionIsRefused();
    void versionNeedsNoOk();
    void versionMayHaveAnySeparator();
    void dateIsIsoWithMilliseconds();
    void dateIsLocalTimeOfNow();
};

void TstUtilities::versionIsReadFromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint64>("version");
    QTest::newRow("one field") << QStringLiteral("1") << Q_UINT64_C(0x0001000000000000);
    QTest::newRow("two fields") << QStringLiteral("1.0") << Q_UINT64_C(0x0001000000000000);
    QTest::newRow("three fields") << QStringLiteral("1.2.3") << Q_UINT64_C(0x0001000200030000);
    QTest::newRow("four fields") << QStringLiteral("1.2.3.4") << Q_UINT64_C(0x0001000200030004);
    QTest::newRow("largest") << QStringLiteral("65535.65535.65535.65535") << Q_UINT64_C(0xffffffffffffffff);
    QTest::newRow("all zero") << QStringLiteral("0.0.0.0") << Q_UINT64_C(0);
    QTest::newRow("leading zeros") << QStringLiteral("01.002") << Q_UINT64_C(0x0001000200000000);
}

void TstUtilities::versionIsReadFromText()
{
    QFETCH(QString, text);
    bool ok = false;
    QTEST(versionFromString(text, &ok, QLatin1Char('.')), "version");
    QVERIFY(ok);
}

void TstUtilities::textThatIsNoVersionIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("separator only") << QStringLiteral(".");
    QTest::newRow("empty field") << QStringLiteral("1..2");
    QTest::newRow("ends with separator") << QStringLiteral("1.");
    QTest::newRow("begins with separator") << QStringLiteral(".1");
    QTest::newRow("five fields") << QStringLiteral("1.2.3.4.5");
    QTest::newRow("too large") << QStringLiteral("65536");
    QTest::newRow("far too large") << QStringLiteral("1.99999999999999999999");
    QTest::newRow("negative") << QStringLiteral("-1");
    QTest::newRow("sign") << QStringLiteral("+1");
    QTest::newRow("blank") << QStringLiteral(" 1");
    QTest::newRow("letter") << QStringLiteral("1.0a");
    QTest::newRow("hexadecimal") << QStringLiteral("0x1");
    QTest::newRow("other separator") << QStringLiteral("1,0");
    QTest::newRow("digits of another script") << QString(QChar(0x0661));
}

void TstUtilities::textThatIsNoVersionIsRefused()
{
    QFETCH(QString, text);
    bool ok = true;
    QCOMPARE(versionFromString(text, &ok, QLatin1Char('.')), quint64(0));
    QVERIFY(!ok);
}

void TstUtilities::versionNeedsNoOk()
{
    QCOMPARE(versionFromString(QStringLiteral("2.1"), nullptr, QLatin1Char('.')), Q_UINT64_C(0x0002000100000000));
    QCOMPARE(versionFromString(QStringLiteral("two"), nullptr, QLatin1Char('.')), quint64(0));
}

void TstUtilities::versionMayHaveAnySeparator()
{
    bool ok = false;
    QCOMPARE(versionFromString(QStringLiteral("2-1"), &ok, QLatin1Char('-')), Q_UINT64_C(0x0002000100000000));
    QVERIFY(ok);
}

void TstUtilities::dateIsIsoWithMilliseconds()
{
    const QRegularExpression form(QStringLiteral("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}$"));
    const QString date = getDate();
    QVERIFY2(form.match(date).hasMatch(), qPrintable(date));
}

void TstUtilities::dateIsLocalTimeOfNow()
{
    const QDateTime before = QDateTime::currentDateTime();
    const QDateTime date = QDateTime::fromString(getDate(), Qt::ISODateWithMs);
    const QDateTime after = QDateTime::currentDateTime();
    QVERIFY(date >= before);
    QVERIFY(date <= after);
}

QTEST_GUILESS_MAIN(TstUtilities)
#include "tst_utilities.moc"
