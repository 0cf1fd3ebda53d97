#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

/// The built simulator, running on its own.
class SimulatorProcess
{
public:
    ~SimulatorProcess();

    enum class Console { No, Yes };

    /// Starts it and waits for "ready"; false when it ended or said something else.
    bool start(const QStringList& arguments, Console console = Console::Yes);

    /// One console command and its answer, or what else it said first.
    QString command(const char* text);

    QString readLine();
    QString path() const { return m_path; }
    QProcess& process() { return m_process; }

private:
    QProcess m_process;
    QString m_path;
};

/// Waits for so many bytes, and takes what is there with them. Less: what came until the line fell silent for long, or
/// was hung up.
QByteArray receiveFrom(int descriptor, int bytes);

/// The terminal as a program under test has it: plain system calls, nothing set but non-blocking.
class OpenTerminal
{
public:
    explicit OpenTerminal(const QString& path);
    ~OpenTerminal();
    OpenTerminal(const OpenTerminal&) = delete;
    OpenTerminal& operator=(const OpenTerminal&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    int descriptor() const { return m_descriptor; }
    void send(const QByteArray& frame);

    QByteArray receive(int bytes) { return receiveFrom(m_descriptor, bytes); }
    /// Up to and with the next line end; what is behind it is left.
    QByteArray receiveLine();

    /// True when the other side hangs up.
    bool waitForHangUp();

private:
    int m_descriptor;
};
