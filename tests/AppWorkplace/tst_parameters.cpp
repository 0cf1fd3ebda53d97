#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <QTest>
#include <QVariant>

#include "cli/parameters.h"

namespace {

/// A command "tell" with one parameter "value" of that type, without a default.
QJsonObject commandWith(const QString& type)
{
    return {{QStringLiteral("name"), QStringLiteral("tell")},
            {QStringLiteral("parameters"), QJsonArray{QJsonObject{{QStringLiteral("name"), QStringLiteral("value")},
                                                                  {QStringLiteral("type"), type}}}}};
}

QJsonObject commandWithDefault()
{
    return {{QStringLiteral("name"), QStringLiteral("tell")},
            {QStringLiteral("parameters"), QJsonArray{QJsonObject{{QStringLiteral("name"), QStringLiteral("value")},
                                                                  {QStringLiteral("type"), QStringLiteral("int")},
                                                                  {QStringLiteral("default"), 1}}}}};
}

} // namespace

class TestParameters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsGoodValues_data();
    void readsGoodValues();
    void refusesBadValues_data();
    void refusesBadValues();
    void refusesWhatIsNoAssignment_data();
    void refusesWhatIsNoAssignment();
    void refusesAnUndeclaredParameter();
    void refusesAParameterGivenTwice();
    void refusesAMissingParameter();
    void leavesOutWhatHasADefault();
    void passesOnTextsToACommandThatDeclaresNothing();
    void takesTheValueBehindTheFirstEqualsSign();
    void showsResults_data();
    void showsResults();
};

void TestParameters::readsGoodValues_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("value");
    for (const char* yes : {"true", "on", "yes", "1"}) {
        QTest::addRow("bool %s", yes) << "bool" << QString::fromLatin1(yes) << QVariant(true);
    }
    for (const char* no : {"false", "off", "no", "0"}) {
        QTest::addRow("bool %s", no) << "bool" << QString::fromLatin1(no) << QVariant(false);
    }
    QTest::newRow("int") << "int"
                         << "-5" << QVariant(-5);
    QTest::newRow("least int") << "int"
                               << "-2147483648" << QVariant(std::numeric_limits<int>::min());
    QTest::newRow("greatest int") << "int"
                                  << "2147483647" << QVariant(std::numeric_limits<int>::max());
    QTest::newRow("least uint") << "uint"
                                << "0" << QVariant(0U);
    QTest::newRow("greatest uint") << "uint"
                                   << "4294967295" << QVariant(std::numeric_limits<uint>::max());
    QTest::newRow("text") << "strg"
                          << "a b" << QVariant(QStringLiteral("a b"));
    QTest::newRow("empty text") << "strg"
                                << "" << QVariant(QString());
    QTest::newRow("text of digits") << "strg"
                                    << "007" << QVariant(QStringLiteral("007"));
    QTest::newRow("escapes") << "strg"
                             << "DI:C\\r\\n\\t\\\\" << QVariant(QStringLiteral("DI:C\r\n\t\\"));
    QTest::newRow("hexadecimal") << "strg"
                                 << "\\x41\\x0d\\xfF" << QVariant(QStringLiteral("A\r\u00ff"));
    QTest::newRow("map") << "varM"
                         << R"({"a": 1.5, "b": [true]})"
                         << QVariant(
                                QVariantMap{{QStringLiteral("a"), 1.5}, {QStringLiteral("b"), QVariantList{true}}});
    QTest::newRow("list") << "varL"
                          << R"(["x", {"a": null}])"
                          << QVariant(QVariantList{QStringLiteral("x"),
                                                   QVariantMap{{QStringLiteral("a"), QVariant::fromValue(nullptr)}}});
}

void TestParameters::readsGoodValues()
{
    QFETCH(QString, type);
    QFETCH(QString, text);
    QFETCH(QVariant, value);
    const ParameterReading reading = readParameters(commandWith(type), {QStringLiteral("value=") + text});
    QCOMPARE(reading.error, QString());
    QCOMPARE(int(reading.values.value(QStringLiteral("value")).type()), int(value.type()));
    QCOMPARE(reading.values.value(QStringLiteral("value")), value);
}

void TestParameters::refusesBadValues_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const QString whole = QStringLiteral("a whole number");
    QTest::newRow("bool as a number") << "bool"
                                      << "2"
                                      << "true or false";
    QTest::newRow("bool in capitals") << "bool"
                                      << "TRUE"
                                      << "true or false";
    QTest::newRow("empty bool") << "bool"
                                << ""
                                << "true or false";
    QTest::newRow("int with a fraction") << "int"
                                         << "1.5" << whole;
    QTest::newRow("int as text") << "int"
                                 << "one" << whole;
    QTest::newRow("int too small") << "int"
                                   << "-2147483649" << whole;
    QTest::newRow("int too great") << "int"
                                   << "2147483648" << whole;
    QTest::newRow("empty int") << "int"
                               << "" << whole;
    QTest::newRow("negative uint") << "uint"
                                   << "-1"
                                   << "a whole number, 0 or more";
    QTest::newRow("uint too great") << "uint"
                                    << "4294967296"
                                    << "a whole number, 0 or more";
    QTest::newRow("unknown escape") << "strg"
                                    << "\\q"
                                    << "escapes";
    QTest::newRow("escape at the end") << "strg"
                                       << "a\\"
                                       << "escapes";
    QTest::newRow("one digit") << "strg"
                               << "\\x4"
                               << "escapes";
    QTest::newRow("no digits") << "strg"
                               << "\\xgg"
                               << "escapes";
    QTest::newRow("a sign for a digit") << "strg"
                                        << "\\x+1"
                                        << "escapes";
    QTest::newRow("a blank for a digit") << "strg"
                                         << "\\x 1"
                                         << "escapes";
    QTest::newRow("map as a list") << "varM"
                                   << "[1]"
                                   << "a JSON object";
    QTest::newRow("broken map") << "varM"
                                << "{\"a\":}"
                                << "a JSON object";
    QTest::newRow("list as a map") << "varL"
                                   << "{}"
                                   << "a JSON array";
    QTest::newRow("broken list") << "varL"
                                 << "[1,]"
                                 << "a JSON array";
    QTest::newRow("a number for a list") << "varL"
                                         << "1"
                                         << "a JSON array";
}

void TestParameters::refusesBadValues()
{
    QFETCH(QString, type);
    QFETCH(QString, text);
    QFETCH(QString, expected);
    const ParameterReading reading = readParameters(commandWith(type), {QStringLiteral("value=") + text});
    QVERIFY2(reading.error.contains(QStringLiteral("\"value\"")), qPrintable(reading.error));
    QVERIFY2(reading.error.contains(expected), qPrintable(reading.error));
    QVERIFY2(reading.error.endsWith(QStringLiteral("not \"%1\"").arg(text)), qPrintable(reading.error));
}

void TestParameters::refusesWhatIsNoAssignment_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("no equals sign") << "value";
    QTest::newRow("no name") << "=1";
    QTest::newRow("empty") << "";
}

void TestParameters::refusesWhatIsNoAssignment()
{
    QFETCH(QString, text);
    QCOMPARE(readParameters(commandWith(QStringLiteral("int")), {text}).error,
             QStringLiteral("\"%1\" is not of the form name=value").arg(text));
}

void TestParameters::refusesAnUndeclaredParameter()
{
    QCOMPARE(readParameters(commandWith(QStringLiteral("int")), {QStringLiteral("vale=1")}).error,
             QStringLiteral("the command \"tell\" has no parameter \"vale\"; it has: value"));
}

void TestParameters::refusesAParameterGivenTwice()
{
    QCOMPARE(readParameters(commandWith(QStringLiteral("int")), {QStringLiteral("value=1"), QStringLiteral("value=1")})
                 .error,
             QStringLiteral("the parameter \"value\" is given twice"));
}

void TestParameters::refusesAMissingParameter()
{
    QCOMPARE(readParameters(commandWith(QStringLiteral("bool")), {}).error,
             QStringLiteral("the command \"tell\" needs the parameter \"value\": value=true or false"));
}

void TestParameters::leavesOutWhatHasADefault()
{
    const ParameterReading reading = readParameters(commandWithDefault(), {});
    QCOMPARE(reading.error, QString());
    QVERIFY(reading.values.isEmpty());
}

void TestParameters::passesOnTextsToACommandThatDeclaresNothing()
{
    const ParameterReading reading = readParameters({}, {QStringLiteral("serialId=2210")});
    QCOMPARE(reading.error, QString());
    QCOMPARE(reading.values.value(QStringLiteral("serialId")), QVariant(QStringLiteral("2210")));
}

void TestParameters::takesTheValueBehindTheFirstEqualsSign()
{
    const ParameterReading reading = readParameters(commandWith(QStringLiteral("strg")), {QStringLiteral("value=a=b")});
    QCOMPARE(reading.values.value(QStringLiteral("value")), QVariant(QStringLiteral("a=b")));
}

void TestParameters::showsResults_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("bool") << QVariant(true) << QStringList{QStringLiteral("r: true")};
    QTest::newRow("map") << QVariant(QVariantMap{{QStringLiteral("a"), 1}})
                         << QStringList{QStringLiteral("r: {\"a\":1}")};
    QTest::newRow("list") << QVariant(QVariantList{1, QStringLiteral("x")})
                          << QStringList{QStringLiteral("r:"), QStringLiteral("  1"), QStringLiteral("  x")};
    QTest::newRow("empty list") << QVariant(QVariantList()) << QStringList{QStringLiteral("r: []")};
    QTest::newRow("control characters") << QVariant(QStringLiteral("\x1b[2J"))
                                        << QStringList{QStringLiteral("r: \\x1b[2J")};
}

void TestParameters::showsResults()
{
    QFETCH(QVariant, value);
    QFETCH(QStringList, lines);
    QCOMPARE(shownResult(QStringLiteral("r"), value), lines);
}

QTEST_GUILESS_MAIN(TestParameters)
#include "tst_parameters.moc"
