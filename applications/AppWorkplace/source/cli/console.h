#pragma once

#include <QJsonObject>
#include <QString>

#include <cstdio>

/// Where a command's output goes: results to one stream, messages to the other. Control characters that come from a
/// device are made visible, so that nothing on the line can reach the terminal.
class Console
{
public:
    /// How much is told beside results and errors: Quiet: nothing.
    enum class Manner { Quiet, Usual, Verbose };

    /// isJson: results are JSON objects, one a line. Both streams outlive the console.
    Console(std::FILE* results, std::FILE* messages, bool isJson, Manner manner = Manner::Usual);

    bool isJson() const { return m_isJson; }
    /// People see the results as they come.
    bool isTerminal() const { return m_isTerminal; }
    bool isQuiet() const { return m_manner == Manner::Quiet; }

    /// A line of results for people.
    void line(const QString& text);
    /// A line of results for programs; "time" is added.
    void object(QJsonObject object);
    /// A line among the results that tells how it goes; not when quiet.
    void detail(const QString& text);
    /// A line for people that is no result, such as an error.
    void message(const QString& text);
    /// The same, of no consequence; not when quiet.
    void notice(const QString& text);
    /// The same, behind the seconds since the start; only when verbose.
    void remark(const QString& text);
    /// Takes back that many lines of results; only on a terminal.
    void takeBack(int lines);
    /// What is being done, below the results until it changes or is done (empty); only on a terminal, and not
    /// when quiet.
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
    Manner m_manner;
    bool m_isTerminal;
    bool m_isColoured;
    bool m_isOpen = true;
    bool m_hasLost = false;
    QByteArray m_progress;
};
