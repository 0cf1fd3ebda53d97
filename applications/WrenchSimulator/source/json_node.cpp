#include "json_node.h"

#include <QJsonArray>
#include <QJsonObject>

#include <cmath>

void JsonNode::allowMembers(const QStringList& names) const
{
    if (!m_value.isObject()) {
        refuse(QStringLiteral("%1 is no object").arg(name()));
    }
    const QStringList keys = m_value.toObject().keys();
    for (const QString& key : keys) {
        if (!names.contains(key)) {
            throw JsonRefusal{
                m_path + QLatin1Char('/') + key,
                QStringLiteral("\"%1\" is not known; known are: %2").arg(key, names.join(QStringLiteral(", ")))};
        }
    }
}

bool JsonNode::has(const char* name) const
{
    return m_value.toObject().contains(QLatin1String(name));
}

JsonNode JsonNode::member(const char* name) const
{
    if (!has(name)) {
        refuse(QStringLiteral("\"%1\" is missing in %2").arg(QLatin1String(name), this->name()));
    }
    return {m_value.toObject().value(QLatin1String(name)), m_path + QLatin1Char('/') + QLatin1String(name)};
}

std::vector<JsonNode> JsonNode::items(int minimum, int maximum) const
{
    const QJsonArray array = m_value.toArray();
    if (!m_value.isArray() || array.size() < minimum || array.size() > maximum) {
        refuse(QStringLiteral("%1 is no list of %2 to %3")
                   .arg(name(), QString::number(minimum), QString::number(maximum)));
    }
    std::vector<JsonNode> nodes;
    nodes.reserve(static_cast<size_t>(array.size()));
    for (int i = 0; i < array.size(); ++i) {
        nodes.emplace_back(array.at(i), m_path + QLatin1Char('/') + QString::number(i));
    }
    return nodes;
}

QString JsonNode::text() const
{
    if (!m_value.isString()) {
        refuse(QStringLiteral("%1 is no text").arg(name()));
    }
    return m_value.toString();
}

bool JsonNode::truth() const
{
    if (!m_value.isBool()) {
        refuse(QStringLiteral("%1 is neither true nor false").arg(name()));
    }
    return m_value.toBool();
}

double JsonNode::number(double minimum, double maximum) const
{
    const double value = m_value.toDouble();
    if (!m_value.isDouble() || value < minimum || value > maximum) {
        refuse(QStringLiteral("%1 is no number from %2 to %3")
                   .arg(name(), QString::number(minimum), QString::number(maximum)));
    }
    return value;
}

int JsonNode::wholeNumber(int minimum, int maximum) const
{
    const double value = m_value.toDouble();
    if (!m_value.isDouble() || value < minimum || value > maximum || value != std::floor(value)) {
        refuse(QStringLiteral("%1 is no whole number from %2 to %3")
                   .arg(name(), QString::number(minimum), QString::number(maximum)));
    }
    return static_cast<int>(value);
}

int JsonNode::oneOf(const QStringList& texts) const
{
    const int index = texts.indexOf(text());
    if (index < 0) {
        refuse(QStringLiteral("%1 \"%2\" is not known; known are: %3")
                   .arg(name(), text(), texts.join(QStringLiteral(", "))));
    }
    return index;
}

void JsonNode::refuse(const QString& cause) const
{
    throw JsonRefusal{m_path, cause};
}

QString JsonNode::name() const
{
    const QString last = m_path.section(QLatin1Char('/'), -1);
    bool isItem = false;
    const int index = last.toInt(&isItem);
    if (m_path.isEmpty()) {
        return QStringLiteral("the file");
    }
    return isItem ? QStringLiteral("item %1 of \"%2\"")
                        .arg(QString::number(index + 1), m_path.section(QLatin1Char('/'), -2, -2))
                  : QStringLiteral("\"%1\"").arg(last);
}
