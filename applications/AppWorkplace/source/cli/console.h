#pragma once

#include <QJsonObject>
#include <QString>

#include <cstdio>

/// Where a command's output goes: results to one stream, messages to the other. Control characters that come from a
/// device are made visible, so that nothing on the line can reach the terminal.
class Console
{
public:
    /// isJson: results are JSON objects, one a line. Both streams outlive the console.
    Console(std::FILE* results, std::FILE* messages, bool isJson);

    bool isJson() const { return m_isJson; }
    /// People see the results as they come.
    bool isTerminal() const { return m_isTerminal; }

    /// A line of results for people.
    void line(const QString& text);
    /// A line of results for programs; "time" is added.
    void object(QJsonObject object);
    /// A line for people that is no result.
    void message(const QString& text);
    /// Takes back that many lines of results; only on a terminal.
    void takeBack(int lines);
    /// What is being done, below the results until it changes or is done (empty); only on a terminal.
    void progress(const QString& text);

    /// The texts, in bold or in a warning colour on a terminal.
    QString strong(const QString& text) const;
    QString alarming(const QString& text) const;

    /// False once somebody has closed the results.
    bool isOpen() const { return m_isOpen; }
    /// True once results could not be written for another reason than that.
    bool hasLost() const { return m_hasLost; }

    static QString visible(const QString& text);

private:
    void write(std::FILE* stream, const QByteArray& bytes);
    void put(std::FILE* stream, const QByteArray& bytes);

    std::FILE* m_results;
    std::FILE* m_messages;
    bool m_isJson;
    bool m_isTerminal;
    bool m_isColoured;
    bool m_isOpen = true;
    bool m_hasLost = false;
    QByteArray m_progress;
};
