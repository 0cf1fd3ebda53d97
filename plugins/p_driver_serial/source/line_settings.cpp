#include "line_settings.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>

#include <algorithm>
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

QString allowedText()
{
    return QCoreApplication::translate("SerialDriver", "a text");
}

QString allowedNumbers(int least, int most)
{
    return QCoreApplication::translate("SerialDriver", "a whole number from %1 to %2").arg(least).arg(most);
}

template <class Value, std::size_t Count>
QString allowedChoices(const Choice<Value> (&choices)[Count])
{
    QStringList texts;
    for (const Choice<Value>& each : choices) {
        texts.append(QLatin1String(each.text));
    }
    return QCoreApplication::translate("SerialDriver", "one of %1").arg(texts.join(QStringLiteral(", ")));
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
            refuse(key, value, allowedText());
        }
    }

    void number(const char* key, int least, int most, int& target)
    {
        const QJsonValue value = m_lookup(QLatin1String(key));
        const double given = value.toDouble(least - 1.0);
        if (value.isDouble() && std::floor(given) == given && given >= least && given <= most) {
            target = static_cast<int>(given);
        } else if (!value.isUndefined()) {
            refuse(key, value, allowedNumbers(least, most));
        }
    }

    template <class Value, std::size_t Count>
    void choice(const char* key, const Choice<Value> (&choices)[Count], Value& target)
    {
        const QJsonValue value = m_lookup(QLatin1String(key));
        const auto* found = std::find_if(std::begin(choices), std::end(choices), [&](const Choice<Value>& each) {
            return choiceText(value) == QLatin1String(each.text);
        });
        if (found != std::end(choices)) {
            target = found->value;
        } else if (!value.isUndefined()) {
            refuse(key, value, allowedChoices(choices));
        }
    }

private:
    void refuse(const char* key, const QJsonValue& value, const QString& allowed)
    {
        if (m_refusal.isEmpty()) {
            m_refusal = QCoreApplication::translate("SerialDriver",
                                                    "The setting \"%1\" of the serial driver is %2: it must be %3.")
                            .arg(QLatin1String(key), shown(value), allowed);
        }
    }

    const ConfigurationLookup& m_lookup;
    QString& m_refusal;
};

/// Tells of each setting instead of reading it.
class Describer
{
public:
    void text(const char* key, const QString& value) { add(key, value, allowedText()); }

    void number(const char* key, int least, int most, int value) { add(key, value, allowedNumbers(least, most)); }

    template <class Value, std::size_t Count>
    void choice(const char* key, const Choice<Value> (&choices)[Count], Value value)
    {
        for (const Choice<Value>& each : choices) {
            if (each.value == value) {
                const QString text = QLatin1String(each.text);
                bool isNumber = false;
                const int number = text.toInt(&isNumber);
                add(key, isNumber ? QVariant(number) : QVariant(text), allowedChoices(choices));
            }
        }
    }

    QVariantList list;

private:
    void add(const char* key, const QVariant& value, const QString& allowed)
    {
        list.append(QVariantMap{{QStringLiteral("name"), QLatin1String(key)},
                                {QStringLiteral("default"), value},
                                {QStringLiteral("allowed"), allowed}});
    }
};

/// All settings, by their names.
template <class Visitor>
void visit(Visitor& visitor, LineSettings& settings)
{
    visitor.text("port", settings.port);
    visitor.number("baudRate", LineSettings::c_minBaudRate, LineSettings::c_maxBaudRate, settings.baudRate);
    visitor.choice("dataBits", c_dataBits, settings.dataBits);
    visitor.choice("parity", c_parities, settings.parity);
    visitor.choice("stopBits", c_stopBits, settings.stopBits);
    visitor.choice("flowControl", c_flowControls, settings.flowControl);
    visitor.number("keepAliveSilenceMs", LineSettings::c_minSilenceMs, LineSettings::c_maxSilenceMs,
                   settings.keepAliveSilenceMs);
    visitor.text("trace", settings.trace);
}

} // namespace

QVariantList describeLineSettings()
{
    Describer describer;
    LineSettings defaults;
    visit(describer, defaults);
    return describer.list;
}

LineSettingsResult readLineSettings(const ConfigurationLookup& lookup)
{
    LineSettingsResult result;
    Reader reader(lookup, result.refusal);
    visit(reader, result.settings);
    if (result.refusal.isEmpty() && result.settings.port.isEmpty()) {
        result.refusal = QCoreApplication::translate(
            "SerialDriver", "The serial driver has no port: set \"port\" to the path of one, best "
                            "a name below /dev/serial/by-id/, which survives re-plugging.");
    }
    return result;
}
