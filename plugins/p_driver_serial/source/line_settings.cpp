#include "line_settings.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>

#include <cmath>
#include <iterator>

namespace {

template <class Value>
struct Choice
{
    const char* text;
    Value value;
};

constexpr Choice<QSerialPort::DataBits> c_dataBits[] = {
    {"5", QSerialPort::Data5}, {"6", QSerialPort::Data6}, {"7", QSerialPort::Data7}, {"8", QSerialPort::Data8}};
constexpr Choice<QSerialPort::Parity> c_parities[] = {{"none", QSerialPort::NoParity},
                                                      {"even", QSerialPort::EvenParity},
                                                      {"odd", QSerialPort::OddParity},
                                                      {"space", QSerialPort::SpaceParity},
                                                      {"mark", QSerialPort::MarkParity}};
constexpr Choice<QSerialPort::StopBits> c_stopBits[] = {{"1", QSerialPort::OneStop}, {"2", QSerialPort::TwoStop}};
constexpr Choice<QSerialPort::FlowControl> c_flowControls[] = {{"none", QSerialPort::NoFlowControl},
                                                               {"hardware", QSerialPort::HardwareControl},
                                                               {"software", QSerialPort::SoftwareControl}};

/// The value as it would stand in the configuration file.
QString shown(const QJsonValue& value)
{
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(list.mid(1, list.size() - 2));
}

/// A number or a text as text, so that 8 and "8" are the same choice.
QString choiceText(const QJsonValue& value)
{
    return value.isDouble() ? shown(value) : value.toString();
}

/// Reads one value after the other and keeps the first refusal.
class Reader
{
public:
    Reader(const ConfigurationLookup& lookup, QString& refusal) : m_lookup(lookup), m_refusal(refusal) {}

    void text(const char* key, QString& target)
    {
        const QJsonValue value = m_lookup(QLatin1String(key));
        if (value.isString()) {
            target = value.toString();
        } else if (!value.isUndefined()) {
            refuse(key, value, QStringLiteral("a text"));
        }
    }

    void number(const char* key, int least, int most, int& target)
    {
        const QJsonValue value = m_lookup(QLatin1String(key));
        const double given = value.toDouble(least - 1.0);
        if (value.isDouble() && std::floor(given) == given && given >= least && given <= most) {
            target = static_cast<int>(given);
        } else if (!value.isUndefined()) {
            refuse(key, value, QStringLiteral("a whole number from %1 to %2").arg(least).arg(most));
        }
    }

    template <class Value, std::size_t Count>
    void choice(const char* key, const Choice<Value> (&choices)[Count], Value& target)
    {
        const QJsonValue value = m_lookup(QLatin1String(key));
        if (value.isUndefined()) {
            return;
        }
        QStringList allowed;
        for (const Choice<Value>& each : choices) {
            if (choiceText(value) == QLatin1String(each.text)) {
                target = each.value;
                return;
            }
            allowed.append(QLatin1String(each.text));
        }
        refuse(key, value, QStringLiteral("one of ") + allowed.join(QStringLiteral(", ")));
    }

private:
    void refuse(const char* key, const QJsonValue& value, const QString& allowed)
    {
        if (m_refusal.isEmpty()) {
            m_refusal = QStringLiteral("The setting \"%1\" of the serial driver is %2: it must be %3.")
                            .arg(QLatin1String(key), shown(value), allowed);
        }
    }

    const ConfigurationLookup& m_lookup;
    QString& m_refusal;
};

} // namespace

LineSettingsResult readLineSettings(const ConfigurationLookup& lookup)
{
    LineSettingsResult result;
    LineSettings& settings = result.settings;
    Reader reader(lookup, result.refusal);
    reader.text("port", settings.port);
    reader.number("baudRate", LineSettings::c_minBaudRate, LineSettings::c_maxBaudRate, settings.baudRate);
    reader.choice("dataBits", c_dataBits, settings.dataBits);
    reader.choice("parity", c_parities, settings.parity);
    reader.choice("stopBits", c_stopBits, settings.stopBits);
    reader.choice("flowControl", c_flowControls, settings.flowControl);
    reader.number("keepAliveSilenceMs", LineSettings::c_minSilenceMs, LineSettings::c_maxSilenceMs,
                  settings.keepAliveSilenceMs);
    reader.text("trace", settings.trace);
    if (result.refusal.isEmpty() && settings.port.isEmpty()) {
        result.refusal = QStringLiteral("The serial driver has no port: set \"port\" to the path of one, best "
                                        "a name below /dev/serial/by-id/, which survives re-plugging.");
    }
    return result;
}
