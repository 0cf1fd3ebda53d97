#include <QTest>

#include "program_fields.h"

using namespace program_fields;

namespace {

/// A program as the list command stores it.
QVariantMap storedProgram()
{
    return {{QStringLiteral("progId"), 4},
            {QStringLiteral("UNT"), QStringLiteral("2")},
            {QStringLiteral("ANG"), QStringLiteral("90")},
            {QStringLiteral("TRQ"), QStringLiteral("35")},
            {QStringLiteral("SNG"), QStringLiteral("10")},
            {QStringLiteral("ADT"), QStringLiteral("0")},
            {QStringLiteral("NUM"), QStringLiteral("0")}};
}

QVariantMap storedProgramWith(const QString& code, const QString& text)
{
    QVariantMap program = storedProgram();
    program.insert(code, text);
    return program;
}

int typeOf(const QVariantMap& map, const char* key)
{
    return map.value(QLatin1String(key)).userType();
}

} // namespace

class TestProgramFields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Lines.

    void aLineWithTrqNamesAProgram() { QVERIFY(namesAProgram(QStringLiteral("OK:UNT0,TRQ12"))); }

    void trqCountsAnywhereInTheLine() { QVERIFY(namesAProgram(QStringLiteral("xTRQ"))); }

    void aLineWithoutTrqNamesNoProgram() { QVERIFY(!namesAProgram(QStringLiteral("OK:UNT0,ANG90"))); }

    void trqInLowerCaseNamesNoProgram() { QVERIFY(!namesAProgram(QStringLiteral("OK:trq12"))); }

    void theAcknowledgementIsDropped()
    {
        QCOMPARE(withoutAcknowledgement(QStringLiteral("OK:UNT0")), QStringLiteral("UNT0"));
    }

    void onlyOneAcknowledgementIsDropped()
    {
        QCOMPARE(withoutAcknowledgement(QStringLiteral("OK:OK:UNT0")), QStringLiteral("OK:UNT0"));
    }

    void aLineWithoutAcknowledgementIsUsedWhole()
    {
        QCOMPARE(withoutAcknowledgement(QStringLiteral("UNT0,OK:1")), QStringLiteral("UNT0,OK:1"));
    }

    void anAcknowledgementInLowerCaseStays()
    {
        QCOMPARE(withoutAcknowledgement(QStringLiteral("ok:UNT0")), QStringLiteral("ok:UNT0"));
    }

    // Splitting.

    void fieldsAreSplit_data()
    {
        QTest::addColumn<QString>("fields");
        QTest::addColumn<QVariantMap>("texts");

        const auto unt = QStringLiteral("UNT");
        const auto trq = QStringLiteral("TRQ");
        const auto zero = QStringLiteral("0");
        QTest::newRow("one field") << QStringLiteral("UNT0") << QVariantMap{{unt, zero}};
        QTest::newRow("several fields") << QStringLiteral("UNT0,TRQ12.5")
                                        << QVariantMap{{unt, zero}, {trq, QStringLiteral("12.5")}};
        QTest::newRow("no text at all") << QString() << QVariantMap{};
        QTest::newRow("only commas") << QStringLiteral(",,") << QVariantMap{};
        QTest::newRow("an empty field between")
            << QStringLiteral("UNT0,,TRQ0") << QVariantMap{{unt, zero}, {trq, zero}};
        QTest::newRow("two characters are skipped") << QStringLiteral("UN,TRQ0") << QVariantMap{{trq, zero}};
        QTest::newRow("three characters are a code without text")
            << QStringLiteral("UNT") << QVariantMap{{unt, QString()}};
        QTest::newRow("the later of two equal codes wins") << QStringLiteral("UNT1,UNT0") << QVariantMap{{unt, zero}};
        QTest::newRow("blanks are kept") << QStringLiteral("UNT 1 , TRQ0")
                                         << QVariantMap{{unt, QStringLiteral(" 1 ")},
                                                        {QStringLiteral(" TR"), QStringLiteral("Q0")}};
        QTest::newRow("an unknown code is kept")
            << QStringLiteral("xyz7") << QVariantMap{{QStringLiteral("xyz"), QStringLiteral("7")}};
    }

    void fieldsAreSplit()
    {
        QFETCH(const QString, fields);
        QTEST(split(fields), "texts");
    }

    void splitTextsStayTexts() { QCOMPARE(typeOf(split(QStringLiteral("UNT0")), "UNT"), int(QMetaType::QString)); }

    // The record of a stored program.

    void aStoredProgramGivesItsRecord()
    {
        const QVariantMap expected{{QStringLiteral("unit"), QStringLiteral("lbf.ft")},
                                   {QStringLiteral("torque"), 3500},
                                   {QStringLiteral("targetAngle"), QStringLiteral("90")},
                                   {QStringLiteral("snugTorque"), QStringLiteral("10")},
                                   {QStringLiteral("auditMode"), QStringLiteral("0")},
                                   {QStringLiteral("numberOfReadings"), QStringLiteral("1")}};
        QCOMPARE(presetOfStoredProgram(storedProgram()), expected);
    }

    void aRecordHoldsTheseTypes_data()
    {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<int>("type");

        QTest::newRow("unit") << QByteArray("unit") << int(QMetaType::QString);
        QTest::newRow("targetAngle") << QByteArray("targetAngle") << int(QMetaType::QString);
        QTest::newRow("torque") << QByteArray("torque") << int(QMetaType::Int);
        QTest::newRow("snugTorque") << QByteArray("snugTorque") << int(QMetaType::QString);
        QTest::newRow("auditMode") << QByteArray("auditMode") << int(QMetaType::QString);
        QTest::newRow("numberOfReadings") << QByteArray("numberOfReadings") << int(QMetaType::QString);
    }

    void aRecordHoldsTheseTypes()
    {
        QFETCH(const QByteArray, key);
        QTEST(typeOf(presetOfStoredProgram(storedProgram()), key.constData()), "type");
    }

    void anEmptyProgramGivesAllSixKeysAllTheSame()
    {
        const QVariantMap expected{
            {QStringLiteral("unit"), QStringLiteral("N.m")}, {QStringLiteral("torque"), 0},
            {QStringLiteral("targetAngle"), QString()},      {QStringLiteral("snugTorque"), QString()},
            {QStringLiteral("auditMode"), QString()},        {QStringLiteral("numberOfReadings"), QString()}};
        QCOMPARE(presetOfStoredProgram({}), expected);
    }

    void otherCodesAreNotCopied()
    {
        QCOMPARE(presetOfStoredProgram(storedProgramWith(QStringLiteral("XYZ"), QStringLiteral("1"))).size(), 6);
    }

    void unitsOfAStoredProgram_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("unit");

        QTest::newRow("0") << QStringLiteral("0") << QStringLiteral("N.m");
        QTest::newRow("1") << QStringLiteral("1") << QStringLiteral("ft.lb");
        QTest::newRow("2") << QStringLiteral("2") << QStringLiteral("lbf.ft");
        QTest::newRow("3") << QStringLiteral("3") << QStringLiteral("kgf.m");
        QTest::newRow("4") << QStringLiteral("4") << QStringLiteral("N.m");
        QTest::newRow("7") << QStringLiteral("7") << QStringLiteral("N.m");
        QTest::newRow("-1") << QStringLiteral("-1") << QStringLiteral("N.m");
        QTest::newRow("empty") << QString() << QStringLiteral("N.m");
        QTest::newRow("no number") << QStringLiteral("ft") << QStringLiteral("N.m");
        QTest::newRow("no integer") << QStringLiteral("1.0") << QStringLiteral("N.m");
        QTest::newRow("01") << QStringLiteral("01") << QStringLiteral("ft.lb");
    }

    void unitsOfAStoredProgram()
    {
        QFETCH(const QString, text);
        QTEST(presetOfStoredProgram(storedProgramWith(QStringLiteral("UNT"), text))
                  .value(QStringLiteral("unit"))
                  .toString(),
              "unit");
    }

    void torqueIsTheIntegerTimesAHundred_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("torque");

        QTest::newRow("12") << QStringLiteral("12") << 1200;
        QTest::newRow("0") << QStringLiteral("0") << 0;
        QTest::newRow("negative") << QStringLiteral("-3") << -300;
        QTest::newRow("a decimal point gives 0") << QStringLiteral("12.5") << 0;
        QTest::newRow("a whole number with a decimal point gives 0") << QStringLiteral("12.0") << 0;
        QTest::newRow("empty") << QString() << 0;
        QTest::newRow("no number") << QStringLiteral("12Nm") << 0;
        QTest::newRow("the largest that fits") << QStringLiteral("21474836") << 2147483600;
        QTest::newRow("one more is beyond an int") << QStringLiteral("21474837") << 0;
        QTest::newRow("the smallest that fits") << QStringLiteral("-21474836") << -2147483600;
        QTest::newRow("one less is beyond an int") << QStringLiteral("-21474837") << 0;
        QTest::newRow("beyond an int by itself") << QStringLiteral("4294967297") << 0;
    }

    void torqueIsTheIntegerTimesAHundred()
    {
        QFETCH(const QString, text);
        QTEST(presetOfStoredProgram(storedProgramWith(QStringLiteral("TRQ"), text))
                  .value(QStringLiteral("torque"))
                  .toInt(),
              "torque");
    }

    void onlyTheTorqueIsScaledOnPurpose()
    {
        QVariantMap program = storedProgramWith(QStringLiteral("SNG"), QStringLiteral("10.5"));
        program.insert(QStringLiteral("ANG"), QStringLiteral("90.25"));
        const QVariantMap record = presetOfStoredProgram(program);
        QCOMPARE(record.value(QStringLiteral("snugTorque")), QVariant(QStringLiteral("10.5")));
        QCOMPARE(record.value(QStringLiteral("targetAngle")), QVariant(QStringLiteral("90.25")));
    }

    void onlyANumberOfReadingsOfExactlyZeroBecomesOne_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("readings");

        QTest::newRow("0") << QStringLiteral("0") << QStringLiteral("1");
        QTest::newRow("1") << QStringLiteral("1") << QStringLiteral("1");
        QTest::newRow("5") << QStringLiteral("5") << QStringLiteral("5");
        QTest::newRow("00") << QStringLiteral("00") << QStringLiteral("00");
        QTest::newRow("blank and 0") << QStringLiteral(" 0") << QStringLiteral(" 0");
        QTest::newRow("empty") << QString() << QString();
    }

    void onlyANumberOfReadingsOfExactlyZeroBecomesOne()
    {
        QFETCH(const QString, text);
        QTEST(presetOfStoredProgram(storedProgramWith(QStringLiteral("NUM"), text))
                  .value(QStringLiteral("numberOfReadings"))
                  .toString(),
              "readings");
    }

    // The record of the wrench's own answer.

    void anAnswerGivesCodesAndReadableKeys()
    {
        const QVariantMap expected{{QStringLiteral("UNT"), QStringLiteral("9")},
                                   {QStringLiteral("TRQ"), QStringLiteral("20")},
                                   {QStringLiteral("NUM"), QStringLiteral("0")},
                                   {QStringLiteral("unit"), QString()},
                                   {QStringLiteral("torque"), 2000},
                                   {QStringLiteral("targetAngle"), QString()},
                                   {QStringLiteral("snugTorque"), QString()},
                                   {QStringLiteral("auditMode"), QString()},
                                   {QStringLiteral("numberOfReadings"), QStringLiteral("0")}};
        QCOMPARE(presetOfAnswer(QStringLiteral("OK:UNT9,TRQ20,NUM0")), expected);
    }

    void anAnswerWithoutAcknowledgementIsReadWhole()
    {
        QCOMPARE(presetOfAnswer(QStringLiteral("TRQ20")), presetOfAnswer(QStringLiteral("OK:TRQ20")));
    }

    void theTorqueOfAnAnswerIsAnInt()
    {
        QCOMPARE(typeOf(presetOfAnswer(QStringLiteral("OK:TRQ20")), "torque"), int(QMetaType::Int));
    }

    void theCodesOfAnAnswerAreKeptOnPurpose()
    {
        const QVariantMap record = presetOfAnswer(QStringLiteral("OK:ANG90,SNG10,ADT1,XYZ7"));
        QCOMPARE(record.value(QStringLiteral("ANG")), QVariant(QStringLiteral("90")));
        QCOMPARE(record.value(QStringLiteral("SNG")), QVariant(QStringLiteral("10")));
        QCOMPARE(record.value(QStringLiteral("ADT")), QVariant(QStringLiteral("1")));
        QCOMPARE(record.value(QStringLiteral("XYZ")), QVariant(QStringLiteral("7")));
    }

    void anAnswerHasNoProgramId()
    {
        QVERIFY(!presetOfAnswer(QStringLiteral("OK:UNT0,TRQ20")).contains(QStringLiteral("progId")));
    }

    void anUnknownUnitOfAnAnswerIsEmptyOnPurpose_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("unit");

        QTest::newRow("0") << QStringLiteral("UNT0") << QStringLiteral("N.m");
        QTest::newRow("1") << QStringLiteral("UNT1") << QStringLiteral("ft.lb");
        QTest::newRow("2") << QStringLiteral("UNT2") << QStringLiteral("lbf.ft");
        QTest::newRow("3") << QStringLiteral("UNT3") << QStringLiteral("kgf.m");
        QTest::newRow("4") << QStringLiteral("UNT4") << QString();
        QTest::newRow("-1") << QStringLiteral("UNT-1") << QString();
        QTest::newRow("no number") << QStringLiteral("UNTft") << QString();
        QTest::newRow("empty") << QStringLiteral("UNT") << QString();
        QTest::newRow("missing") << QStringLiteral("TRQ1") << QString();
    }

    void anUnknownUnitOfAnAnswerIsEmptyOnPurpose()
    {
        QFETCH(const QString, line);
        QTEST(presetOfAnswer(line).value(QStringLiteral("unit")).toString(), "unit");
    }

    void aNumberOfReadingsOfZeroInAnAnswerStaysZeroOnPurpose()
    {
        QCOMPARE(presetOfAnswer(QStringLiteral("NUM0")).value(QStringLiteral("numberOfReadings")),
                 QVariant(QStringLiteral("0")));
    }

    void readableTextsOfAnAnswerStandAsTheyAre()
    {
        const QVariantMap record = presetOfAnswer(QStringLiteral("OK:ANG90.5,SNG 10,ADT2"));
        QCOMPARE(record.value(QStringLiteral("targetAngle")), QVariant(QStringLiteral("90.5")));
        QCOMPARE(record.value(QStringLiteral("snugTorque")), QVariant(QStringLiteral(" 10")));
        QCOMPARE(record.value(QStringLiteral("auditMode")), QVariant(QStringLiteral("2")));
    }
};

QTEST_APPLESS_MAIN(TestProgramFields)

#include "tst_program_fields.moc"
