#pragma once

#include <QMap>
#include <QSharedPointer>
#include <QStringList>
#include <QVariant>

#include "recording_order.h"

class DAbstractPlugin;
class ICommand;
class QTimer;
struct LogMessage;
struct TranscriptStep;

/// Plays one transcript: a talk between a command, the host and the line, one step a line. Whatever is not in the file
/// must not happen, and what is in it must happen there. "#" begins a comment line.
///
/// What others do:
///
///     given   lock=true          the plugin has that property
///     run     setLock lock=true  a fresh command runs; "run!" and "rerun!": its run is refused
///     rerun                      the same command object runs once more
///     dongle< ATH                a line arrives (CR LF is added); \r \n \t \0 \s (blank) \\ and \xHH may be used
///     wrench< OK:1
///     piece<  OK:                characters arrive as they are, without CR LF
///     next                       what follows arrives in another reply
///     number  7                  the next reply has this number; later ones count on
///     again   OK:1               a line arrives in a reply that repeats the number of the last one
///     driver< cmd_success=true   the driver answers the oldest "host>?" or "driver>?" that waits
///     self<   cmd_success=true   the plugin's own command answers the oldest "self>"
///     wait    9999               so many milliseconds pass for the command's timer
///     refuse                     from now on every instruction is refused; "accept": no longer
///     stop                       the host ends the run
///
/// What the command does:
///
///     host>   ATS                a frame goes to the line; "host>?": and the command waits for the driver's answer
///     listen  [validator=0003]   a subscription is opened
///     unlisten                   and stopped
///     driver> closeConnection    another instruction to the driver, with name=value; "driver>?": it wants the answer
///     self>   setLock lock=false an instruction to the plugin itself; it wants the answer
///     result  a=1 b=2 + c=3      results in the order published; "+": in one call; values as in typed_text.h, and #
///                                for the number of the reply that is being read
///     property lock=true         a shared property has a new value, kept over a restart; "(not persistent)" behind it:
///     not log     critical TEXT      a message of that level that contains the text end     true               the run
///     ends, with that ok flag
///
/// "each-reply lastResults" at the top: the command publishes this result once for every reply; for the pieces of a
/// line before its end the one published last is expected again, before the first one an empty list.
///
/// Map entries, their types, CR LF and limits of every instruction are checked here, once for all. "ATS" is answered by
/// the driver at once. Lines that stand together arrive together, cut into pieces of pieceSize characters.
class TranscriptPlayer
{
public:
    static constexpr int c_whole = 0; // do not cut

    /// plugin: with its commands declared; a fresh one for each play.
    TranscriptPlayer(DAbstractPlugin& plugin, int pieceSize);

    /// Empty, or what went wrong and in which line.
    QString play(const QString& file);

private:
    friend class TranscriptRecorder; // does single steps

    using Action = QString (TranscriptPlayer::*)(const TranscriptStep& step); // returns a complaint or nothing

    QString play(const QVector<TranscriptStep>& steps);
    QString expect(const TranscriptStep& step);
    QString takeHappened(const QString& expected);
    QString checkNothingHappened() const;
    QString checkEnd();

    // What others do.
    static Action actionOf(const QString& word);
    QString given(const TranscriptStep& step);
    QString run(const TranscriptStep& step);
    QString refusedRun(const TranscriptStep& step);
    QString rerun(const TranscriptStep& step);
    QString refusedRerun(const TranscriptStep& step);
    QString next(const TranscriptStep& step);
    QString number(const TranscriptStep& step);
    QString again(const TranscriptStep& step);
    QString driverAnswers(const TranscriptStep& step);
    QString pluginAnswers(const TranscriptStep& step);
    QString wait(const TranscriptStep& step);
    QString refuse(const TranscriptStep& step);
    QString accept(const TranscriptStep& step);
    QString stop(const TranscriptStep& step);
    QString eachReply(const TranscriptStep& step);

    QString makeCommand(const TranscriptStep& step);
    QString execute(bool accepted);
    QString deliverArrived();
    void reply(const QByteArray& piece);
    QString answer(QVector<quint64>& waiting, const TranscriptStep& step);
    QTimer* commandTimer() const;

    // What the command does, as lines of a transcript.
    void settle();
    void noteNewEvents();
    void noteProperties();
    void noteMessage(const LogMessage& message);

    DAbstractPlugin& m_plugin;
    const int m_pieceSize;
    RecordingOrder m_order;
    QSharedPointer<ICommand> m_command;
    QStringList m_happened; // and not yet expected
    int m_eventsNoted = 0;
    QMap<QString, QVariant> m_properties;
    QString m_eachReply;             // name of the result
    QString m_lastOfEach;            // typed text of its last value
    QByteArray m_arrived;            // of lines that stand together
    QVector<quint64> m_scansWaiting; // ids of instructions that want an answer
    QVector<quint64> m_driverWaiting;
    QVector<quint64> m_selfWaiting;
    int m_number = 0; // of the last reply
    int m_timerId = -1;
    int m_waitedMs = 0;
};
