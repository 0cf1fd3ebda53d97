#include "parameters.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>

#include <cctype>
#include <optional>

#include "console.h"

namespace {

const QString c_name = QStringLiteral("name");
const QString c_type = QStringLiteral("type");

std::optional<QVariant> readBool(const QString& text)
{
    static const QStringList yes = {QStringLiteral("true"), QStringLiteral("on"), QStringLiteral("yes"),
                                    QStringLiteral("1")};
    static const QStringList no = {QStringLiteral("false"), QStringLiteral("off"), QStringLiteral("no"),
                                   QStringLiteral("0")};
    if (yes.contains(text)) {
        return QVariant(true);
    }
    return no.contains(text) ? std::optional<QVariant>(QVariant(false)) : std::nullopt;
}

bool isHexDigit(const QString& text, int position)
{
    return position < text.size() && std::isxdigit(text.at(position).toLatin1()) != 0;
}

std::optional<QVariant> readText(const QString& text)
{
    QString value;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('\\')) {
            value += text.at(i);
            continue;
        }
        const QChar escaped = ++i < text.size() ? text.at(i) : QChar();
        switch (escaped.unicode()) {
        case 'r':
            value += QLatin1Char('\r');
            break;
        case 'n':
            value += QLatin1Char('\n');
            break;
        case 't':
            value += QLatin1Char('\t');
            break;
        case '\\':
            value += QLatin1Char('\\');
            break;
        case 'x':
            if (!isHexDigit(text, i + 1) || !isHexDigit(text, i + 2)) {
                return std::nullopt;
            }
            value += QChar(text.mid(i + 1, 2).toUShort(nullptr, 16));
            i += 2;
            break;
        default:
            return std::nullopt;
        }
    }
    return QVariant(value);
}

std::optional<QVariant> readValue(const QString& type, const QString& text)
{
    bool fits = false;
    if (type == QLatin1String("bool")) {
        return readBool(text);
    }
    if (type == QLatin1String("int")) {
        const int number = text.toInt(&fits);
        return fits ? std::optional<QVariant>(number) : std::nullopt;
    }
    if (type == QLatin1String("uint")) {
        const uint number = text.toUInt(&fits);
        return fits ? std::optional<QVariant>(number) : std::nullopt;
    }
    if (type == QLatin1String("strg")) {
        return readText(text);
    }
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (type == QLatin1String("varM") && document.isObject()) {
        return document.object().toVariantMap();
    }
    if (type == QLatin1String("varL") && document.isArray()) {
        return document.array().toVariantList();
    }
    return std::nullopt;
}

QString expected(const QString& type)
{
    static const QMap<QString, QString> texts = {
        {QStringLiteral("bool"), QCoreApplication::translate("Parameters", "true or false")},
        {QStringLiteral("int"), QCoreApplication::translate("Parameters", "a whole number")},
        {QStringLiteral("uint"), QCoreApplication::translate("Parameters", "a whole number, 0 or more")},
        {QStringLiteral("strg"), QCoreApplication::translate("Parameters", "a text (escapes: \\r \\n \\t \\\\ \\xHH)")},
        {QStringLiteral("varM"), QCoreApplication::translate("Parameters", "a JSON object")},
        {QStringLiteral("varL"), QCoreApplication::translate("Parameters", "a JSON array")},
    };
    return texts.value(type);
}

} // namespace

ParameterReading readParameters(const QJsonObject& description, const QStringList& texts)
{
    const QString command = description.value(c_name).toString();
    QMap<QString, QJsonObject> declared;
    QStringList names;
    const QJsonArray parameters = description.value(QLatin1String("parameters")).toArray();
    for (const QJsonValue& parameter : parameters) {
        names.append(parameter.toObject().value(c_name).toString());
        declared.insert(names.last(), parameter.toObject());
    }

    ParameterReading reading;
    for (const QString& text : texts) {
        const int separator = text.indexOf(QLatin1Char('='));
        const QString name = text.left(separator);
        if (separator < 1) {
            return {{}, QCoreApplication::translate("Parameters", "\"%1\" is not of the form name=value").arg(text)};
        }
        if (reading.values.contains(name)) {
            return {{}, QCoreApplication::translate("Parameters", "the parameter \"%1\" is given twice").arg(name)};
        }
        if (!names.isEmpty() && !declared.contains(name)) {
            return {{},
                    QCoreApplication::translate("Parameters", "the command \"%1\" has no parameter \"%2\"; it has: %3")
                        .arg(command, name, names.join(QStringLiteral(", ")))};
        }
        const QString type = names.isEmpty() ? QStringLiteral("strg") : declared.value(name).value(c_type).toString();
        const std::optional<QVariant> value = readValue(type, text.mid(separator + 1));
        if (!value) {
            return {{},
                    QCoreApplication::translate("Parameters", "the parameter \"%1\" of \"%2\" takes %3, not \"%4\"")
                        .arg(name, command, expected(type), text.mid(separator + 1))};
        }
        reading.values.insert(name, *value);
    }
    for (const QString& name : qAsConst(names)) {
        if (!reading.values.contains(name) && !declared.value(name).contains(QLatin1String("default"))) {
            return {{},
                    QCoreApplication::translate("Parameters", "the command \"%1\" needs the parameter \"%2\": %3=%4")
                        .arg(command, name, name, expected(declared.value(name).value(c_type).toString()))};
        }
    }
    return reading;
}

QString shownValue(const QVariant& value)
{
    switch (int(value.type())) {
    case QMetaType::QVariantMap:
        return QString::fromUtf8(
            QJsonDocument(QJsonObject::fromVariantMap(value.toMap())).toJson(QJsonDocument::Compact));
    case QMetaType::QVariantList:
        return QString::fromUtf8(
            QJsonDocument(QJsonArray::fromVariantList(value.toList())).toJson(QJsonDocument::Compact));
    default:
        return value.toString();
    }
}

QStringList shownResult(const QString& name, const QVariant& value)
{
    if (int(value.type()) != QMetaType::QVariantList || value.toList().isEmpty()) {
        return {QStringLiteral("%1: %2").arg(name, Console::visible(shownValue(value)))};
    }
    QStringList lines{QStringLiteral("%1:").arg(name)};
    const QVariantList entries = value.toList();
    for (const QVariant& entry : entries) {
        lines.append(QStringLiteral("  ") + Console::visible(shownValue(entry)));
    }
    return lines;
}
