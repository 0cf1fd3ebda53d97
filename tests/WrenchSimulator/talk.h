#pragma once

#include "dongle.h"

#include <QString>
#include <QStringList>

/// What a test changes about the dongle and the two wrenches of a talk: 2210 and 2211, addresses 02:00:00:00:00:01 and
/// :02, two programs each, no delays, one tightening takes 100 ms.
struct TalkSettings
{
    TalkSettings();

    Dongle::Settings dongle;
    Wrench::Settings wrench;
    quint32 seed = 7;
};

/// A talk with a dongle in simulated time, written as a script, one line each:
///
///     > DI:C       this line is sent
///     < OK:0       this one comes next; a * at the end stands for any rest
///     + 250        so many milliseconds pass, in single milliseconds
///
/// Whatever the script does not say must not happen.
class Talk
{
public:
    explicit Talk(const TalkSettings& settings = {});

    /// Empty when everything went as written, otherwise the first line that did not, and what came instead.
    QString play(const char* script);

    /// All that has come and was not expected yet; nothing is left behind.
    QByteArray takeOutput();

    /// What a chunk holds and when it came, "12: OK" for "OK" after 12 ms, CR and LF as . characters.
    QStringList takeTimedChunks(int forMs);

    void send(const QByteArray& bytes) { dongle.receive(bytes, nowUs); }
    void pass(int ms);
    void addFault(const char* text);

    QStringList notes;
    Dongle dongle;
    qint64 nowUs = 0;

private:
    QByteArray m_output;
};
