#pragma once

#include <QJsonValue>
#include <QSerialPort>
#include <QString>
#include <QVariantList>

#include <functional>

/// How the line is to be opened, as the device's configuration says it.
struct LineSettings
{
    QString port;             ///< path of the device, or of a link to it
    qint32 baudRate = 115200; ///< in baud, c_minBaudRate to c_maxBaudRate
    QSerialPort::DataBits dataBits = QSerialPort::Data8;
    QSerialPort::Parity parity = QSerialPort::NoParity;
    QSerialPort::StopBits stopBits = QSerialPort::OneStop;
    QSerialPort::FlowControl flowControl = QSerialPort::NoFlowControl;
    int keepAliveSilenceMs = 5000; ///< in milliseconds, c_minSilenceMs to c_maxSilenceMs
    QString trace;                 ///< a file, "-" for standard error, empty for none

    static constexpr int c_minBaudRate = 50;
    static constexpr int c_maxBaudRate = 4000000;
    static constexpr int c_minSilenceMs = 100;
    static constexpr int c_maxSilenceMs = 3600000;
};

/// Settings, or one sentence that says why there are none.
struct LineSettingsResult
{
    LineSettings settings;
    QString refusal; ///< empty: the settings are good
};

/// The value under a key of the configuration; undefined when there is none.
using ConfigurationLookup = std::function<QJsonValue(const QString& key)>;

/// Reads "port", "baudRate", "dataBits", "parity", "stopBits", "flowControl", "keepAliveSilenceMs" and "trace". What is
/// absent has its default; a wrong value is refused with its name, the value and what is allowed.
LineSettingsResult readLineSettings(const ConfigurationLookup& lookup);

/// All settings: maps of "name", "default", and "allowed" (a text for people: "a whole number from 50 to 4000000").
QVariantList describeLineSettings();
