#pragma once

#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <vector>

/// Thrown by JsonNode, and by whoever reads with it: what is wrong with a value.
struct JsonRefusal
{
    QString path; ///< as JsonPlaces has them
    QString cause;
};

/// A value that must be as it is asked for. What it is not is thrown as a JsonRefusal that names it.
class JsonNode
{
public:
    JsonNode(QJsonValue value, QString path) : m_value(std::move(value)), m_path(std::move(path)) {}

    /// Of an object, which may have no other members than these.
    void allowMembers(const QStringList& names) const;
    bool has(const char* name) const;
    JsonNode member(const char* name) const; ///< must be there

    /// Of an array of minimum to maximum items.
    std::vector<JsonNode> items(int minimum, int maximum) const;

    QString text() const;
    bool truth() const;
    double number(double minimum, double maximum) const;
    int wholeNumber(int minimum, int maximum) const;
    bool isNumber() const { return m_value.isDouble(); }

    /// One of these texts: its index.
    int oneOf(const QStringList& texts) const;

    [[noreturn]] void refuse(const QString& cause) const;

private:
    QString name() const; ///< as a person finds it: "rssiDbm", or item 3 of "faults"

    QJsonValue m_value;
    QString m_path;
};
