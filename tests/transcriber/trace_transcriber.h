#pragma once

#include <QStringList>
#include <QVector>

#include "trace_items.h"
#include "transcript_recorder.h"

class DAbstractPlugin;
struct CommandGuess;

/// Turns a trace into transcripts: finds the commands behind its frames, runs them, gives them what arrived, and writes
/// down what they do. The frames that they send have to be those of the trace, in their order.
class TraceTranscriber
{
public:
    /// plugin: a fresh one with its commands declared. serialId: of the wrench, where the trace does not tell it.
    TraceTranscriber(DAbstractPlugin& plugin, const QString& serialId);

    /// Empty, or why there is no transcript: file, line, reason.
    QString read(const QString& file);

    /// The runs of these commands, in the order of the trace; of all, when none is named. Empty: there are none.
    QStringList transcript(const QStringList& commands) const;
    /// The commands of the trace, each once.
    QStringList commands() const;

private:
    /// A command's run in the recorder's lines.
    struct Run
    {
        QString command;
        QString given; ///< the properties that the plugin had
        int from = 0;
        int to = 0;
    };

    QString take(int at);
    QString takeFrame(int at);
    QString takeLine(const TraceItem& item);
    QString begin(const CommandGuess& guess);
    QString stop();
    QString add(const QString& word, const QString& text = {});
    QString letTimePass(qint64 nowUs);
    void closeRun();
    bool isListener() const;
    QString properties() const;

    DAbstractPlugin& m_plugin;
    const QString m_serialId;
    TranscriptRecorder m_recorder;
    TraceItems m_trace;
    QVector<Run> m_runs;
    bool m_hasOpenRun = false;
    QStringList m_owed; // frames that the command has sent and the trace has not come to
    qint64 m_lastUs = 0;
    qint64 m_timerUs = -1; // since when the command's timer runs; -1: it does not
};
