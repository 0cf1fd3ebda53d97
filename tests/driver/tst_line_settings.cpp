#include <QJsonObject>
#include <QJsonValue>
#include <QTest>

#include "line_settings.h"

namespace {

LineSettingsResult read(QJsonObject section)
{
    if (!section.contains(QStringLiteral("port"))) {
        section.insert(QStringLiteral("port"), QStringLiteral("/dev/ttyUSB0"));
    }
    return readLineSettings([section](const QString& key) { return section.value(key); });
}

} // namespace

class TestLineSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasTheDefaultsOfTheLine();
    void readsEverySetting();
    void takesNumbersWrittenAsTextWhereThereIsAChoice();
    void refusesAWrongValue_data();
    void refusesAWrongValue();
    void acceptsTheEndsOfARange_data();
    void acceptsTheEndsOfARange();
    void refusesToBeWithoutPort();
};

void TestLineSettings::hasTheDefaultsOfTheLine()
{
    const LineSettingsResult result = read({});
    QCOMPARE(result.refusal, QString());
    QCOMPARE(result.settings.port, QStringLiteral("/dev/ttyUSB0"));
    QCOMPARE(result.settings.baudRate, 115200);
    QCOMPARE(result.settings.dataBits, QSerialPort::Data8);
    QCOMPARE(result.settings.parity, QSerialPort::NoParity);
    QCOMPARE(result.settings.stopBits, QSerialPort::OneStop);
    QCOMPARE(result.settings.flowControl, QSerialPort::NoFlowControl);
    QCOMPARE(result.settings.keepAliveSilenceMs, 5000);
    QCOMPARE(result.settings.trace, QString());
}

void TestLineSettings::readsEverySetting()
{
    const LineSettingsResult result = read({{QStringLiteral("baudRate"), 9600},
                                            {QStringLiteral("dataBits"), 7},
                                            {QStringLiteral("parity"), QStringLiteral("even")},
                                            {QStringLiteral("stopBits"), 2},
                                            {QStringLiteral("flowControl"), QStringLiteral("hardware")},
                                            {QStringLiteral("keepAliveSilenceMs"), 1000},
                                            {QStringLiteral("trace"), QStringLiteral("-")}});
    QCOMPARE(result.refusal, QString());
    QCOMPARE(result.settings.baudRate, 9600);
    QCOMPARE(result.settings.dataBits, QSerialPort::Data7);
    QCOMPARE(result.settings.parity, QSerialPort::EvenParity);
    QCOMPARE(result.settings.stopBits, QSerialPort::TwoStop);
    QCOMPARE(result.settings.flowControl, QSerialPort::HardwareControl);
    QCOMPARE(result.settings.keepAliveSilenceMs, 1000);
    QCOMPARE(result.settings.trace, QStringLiteral("-"));
}

void TestLineSettings::takesNumbersWrittenAsTextWhereThereIsAChoice()
{
    QCOMPARE(read({{QStringLiteral("dataBits"), QStringLiteral("5")}}).settings.dataBits, QSerialPort::Data5);
}

void TestLineSettings::refusesAWrongValue_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char* name, const char* key, const QJsonValue& value, const char* rest) {
        QTest::newRow(name) << QString::fromUtf8(key) << value
                            << QStringLiteral("The setting \"%1\" of the serial driver is %2")
                                   .arg(QString::fromUtf8(key), QString::fromUtf8(rest));
    };
    row("port", "port", 5, "5: it must be a text.");
    row("baud rate too small", "baudRate", 49, "49: it must be a whole number from 50 to 4000000.");
    row("baud rate too large", "baudRate", 4000001, "4000001: it must be a whole number from 50 to 4000000.");
    row("baud rate with a fraction", "baudRate", 9600.5, "9600.5: it must be a whole number from 50 to 4000000.");
    row("baud rate as text", "baudRate", QStringLiteral("fast"),
        "\"fast\": it must be a whole number from 50 to 4000000.");
    row("data bits", "dataBits", 9, "9: it must be one of 5, 6, 7, 8.");
    row("parity", "parity", QStringLiteral("None"), "\"None\": it must be one of none, even, odd, space, mark.");
    row("parity as a switch", "parity", true, "true: it must be one of none, even, odd, space, mark.");
    row("stop bits", "stopBits", 3, "3: it must be one of 1, 2.");
    row("flow control", "flowControl", QStringLiteral("rts"), "\"rts\": it must be one of none, hardware, software.");
    row("silence too short", "keepAliveSilenceMs", 99, "99: it must be a whole number from 100 to 3600000.");
    row("trace", "trace", true, "true: it must be a text.");
}

void TestLineSettings::refusesAWrongValue()
{
    QFETCH(const QString, key);
    QFETCH(const QJsonValue, value);
    QFETCH(const QString, sentence);
    QCOMPARE(read({{key, value}}).refusal, sentence);
}

void TestLineSettings::acceptsTheEndsOfARange_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("value");
    QTest::newRow("slowest") << QStringLiteral("baudRate") << 50;
    QTest::newRow("fastest") << QStringLiteral("baudRate") << 4000000;
    QTest::newRow("shortest silence") << QStringLiteral("keepAliveSilenceMs") << 100;
    QTest::newRow("longest silence") << QStringLiteral("keepAliveSilenceMs") << 3600000;
}

void TestLineSettings::acceptsTheEndsOfARange()
{
    QFETCH(const QString, key);
    QFETCH(const int, value);
    QCOMPARE(read({{key, value}}).refusal, QString());
}

void TestLineSettings::refusesToBeWithoutPort()
{
    const QString refusal = read({{QStringLiteral("port"), QString()}}).refusal;
    QVERIFY2(refusal.startsWith(QStringLiteral("The serial driver has no port")), qPrintable(refusal));
}

QTEST_GUILESS_MAIN(TestLineSettings)
#include "tst_line_settings.moc"
