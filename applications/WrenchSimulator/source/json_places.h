#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

/// Where in a JSON text each value stands: its line by its path, as "/wrenches/2/mac"; "" is the whole. Qt's reader
/// does not tell, and takes the last of two members of one name without a word.
class JsonPlaces
{
public:
    /// text: good JSON.
    explicit JsonPlaces(const QByteArray& text);

    /// Of a member: the line of its name. Counted from 1.
    int lineOf(const QString& path) const { return m_lines.value(path, 1); }

    /// The second of two members of one name; empty: there is none.
    QString repeatedPath() const { return m_repeatedPath; }

private:
    void readValue(const QString& path);
    void readObject(const QString& path);
    void readArray(const QString& path);
    QString readString();
    void skipBlanks();
    void note(const QString& path);

    const QByteArray m_text;
    int m_at = 0;
    int m_line = 1;
    QHash<QString, int> m_lines;
    QString m_repeatedPath;
};
