#include "typed_text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace {

const QString c_none = QStringLiteral("none");

QString quoted(const QString& text)
{
    const QByteArray json = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(json.mid(1, json.size() - 2));
}

QVariant withIntegers(const QJsonValue& value)
{
    if (value.isDouble()) {
        const double number = value.toDouble();
        return number == std::floor(number) ? QVariant(int(number)) : QVariant(number);
    }
    if (value.isArray()) {
        QVariantList list;
        const QJsonArray array = value.toArray();
        for (const auto& element : array) {
            list.append(withIntegers(element));
        }
        return list;
    }
    if (value.isObject()) {
        QVariantMap map;
        const QJsonObject object = value.toObject();
        for (auto entry = object.begin(); entry != object.end(); ++entry) {
            map.insert(entry.key(), withIntegers(entry.value()));
        }
        return map;
    }
    return value.toVariant();
}

} // namespace

QString typedText(const QVariant& value)
{
    if (!value.isValid()) {
        return c_none;
    }
    switch (static_cast<QMetaType::Type>(value.userType())) {
    case QMetaType::Bool:
    case QMetaType::Int:
        return value.toString();
    case QMetaType::Double: {
        const double number = value.toDouble();
        return value.toString() + QLatin1String(number == std::floor(number) ? ".0" : "");
    }
    case QMetaType::UInt:
        return value.toString() + QLatin1Char('u');
    case QMetaType::QString:
        return quoted(value.toString());
    case QMetaType::QByteArray:
        return QStringLiteral("bytes") + quoted(QString::fromLatin1(value.toByteArray()));
    case QMetaType::QVariantMap: {
        QStringList entries;
        const QVariantMap map = value.toMap();
        for (auto entry = map.cbegin(); entry != map.cend(); ++entry) {
            entries.append(quoted(entry.key()) + QLatin1Char(':') + typedText(entry.value()));
        }
        return QLatin1Char('{') + entries.join(QLatin1Char(',')) + QLatin1Char('}');
    }
    case QMetaType::QVariantList: {
        QStringList elements;
        const QVariantList list = value.toList();
        for (const QVariant& element : list) {
            elements.append(typedText(element));
        }
        return QLatin1Char('[') + elements.join(QLatin1Char(',')) + QLatin1Char(']');
    }
    default:
        return QStringLiteral("%1(%2)").arg(QString::fromUtf8(value.typeName()), value.toString());
    }
}

QString typedText(const QMap<QString, QVariant>& values)
{
    QStringList entries;
    for (auto entry = values.cbegin(); entry != values.cend(); ++entry) {
        entries.append(entry.key() + QLatin1Char('=') + typedText(entry.value()));
    }
    return entries.join(QStringLiteral(" + "));
}

QVariant valueOfText(const QString& text)
{
    if (text == c_none) {
        return {};
    }
    const QJsonDocument document = QJsonDocument::fromJson('[' + text.toUtf8() + ']');
    const bool isOneValue = document.isArray() && document.array().size() == 1;
    return isOneValue ? withIntegers(document.array().first()) : QVariant(text);
}

QStringList splitWords(const QString& text)
{
    QStringList words;
    QString word;
    bool inQuotes = false;
    int depth = 0;
    for (int i = 0; i < text.size(); ++i) {
        const QChar character = text.at(i);
        if (inQuotes && character == QLatin1Char('\\') && i + 1 < text.size()) {
            word += character;
            word += text.at(++i);
            continue;
        }
        inQuotes = inQuotes != (character == QLatin1Char('"'));
        if (!inQuotes) {
            depth += (character == QLatin1Char('{') || character == QLatin1Char('[')) ? 1 : 0;
            depth -= (character == QLatin1Char('}') || character == QLatin1Char(']')) ? 1 : 0;
        }
        if (character == QLatin1Char(' ') && !inQuotes && depth == 0) {
            words.append(word);
            word.clear();
        } else {
            word += character;
        }
    }
    words.append(word);
    words.removeAll(QString());
    return words;
}

QMap<QString, QVariant> mapOfWords(const QStringList& words)
{
    QMap<QString, QVariant> map;
    for (const QString& word : words) {
        const int equals = word.indexOf(QLatin1Char('='));
        map.insert(word.left(equals), equals < 0 ? QVariant() : valueOfText(word.mid(equals + 1)));
    }
    return map;
}
