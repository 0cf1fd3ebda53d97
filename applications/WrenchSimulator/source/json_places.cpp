#include "json_places.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {
bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool endsWord(char c)
{
    return isBlank(c) || c == ',' || c == ']' || c == '}';
}
} // namespace

JsonPlaces::JsonPlaces(const QByteArray& text) : m_text(text)
{
    skipBlanks();
    note({});
    readValue({});
}

void JsonPlaces::readValue(const QString& path)
{
    const char first = m_text.at(m_at);
    if (first == '{') {
        readObject(path);
    } else if (first == '[') {
        readArray(path);
    } else if (first == '"') {
        readString();
    } else {
        while (m_at < m_text.size() && !endsWord(m_text.at(m_at))) {
            ++m_at;
        }
    }
}

void JsonPlaces::readObject(const QString& path)
{
    ++m_at;
    skipBlanks();
    while (m_text.at(m_at) != '}') {
        const int line = m_line;
        const QString member = path + QLatin1Char('/') + readString();
        if (m_lines.contains(member) && m_repeatedPath.isEmpty()) {
            m_repeatedPath = member;
        }
        m_lines.insert(member, line);
        skipBlanks();
        ++m_at; // the colon
        skipBlanks();
        readValue(member);
        skipBlanks();
        if (m_text.at(m_at) == ',') {
            ++m_at;
            skipBlanks();
        }
    }
    ++m_at;
}

void JsonPlaces::readArray(const QString& path)
{
    ++m_at;
    skipBlanks();
    for (int i = 0; m_text.at(m_at) != ']'; ++i) {
        const QString item = path + QLatin1Char('/') + QString::number(i);
        note(item);
        readValue(item);
        skipBlanks();
        if (m_text.at(m_at) == ',') {
            ++m_at;
            skipBlanks();
        }
    }
    ++m_at;
}

QString JsonPlaces::readString()
{
    const int start = m_at++;
    while (m_text.at(m_at) != '"') {
        m_at += m_text.at(m_at) == '\\' ? 2 : 1;
    }
    ++m_at;
    // Two ways to write a name are one name: "mac" and "\u006dac".
    return QJsonDocument::fromJson('[' + m_text.mid(start, m_at - start) + ']').array().at(0).toString();
}

void JsonPlaces::skipBlanks()
{
    while (m_at < m_text.size() && isBlank(m_text.at(m_at))) {
        m_line += m_text.at(m_at) == '\n' ? 1 : 0;
        ++m_at;
    }
}

void JsonPlaces::note(const QString& path)
{
    m_lines.insert(path, m_line);
}
