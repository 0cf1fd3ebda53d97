#pragma once

#include <QStringList>

#include "transcript_player.h"

/// Writes a transcript while it is played: what others do is given to it, and what the command does is added as it
/// happens. So the transcript says what the code does, not what it should: somebody has to read it.
class TranscriptRecorder
{
public:
    /// plugin: with its commands declared; a fresh one.
    explicit TranscriptRecorder(DAbstractPlugin& plugin);

    /// One step of others, as in a transcript. The driver's answers are added by themselves. Empty, or why it cannot
    /// be.
    QString add(const QString& word, const QString& text = {});
    /// A line of the file that is not played.
    void remark(const QString& text) { m_lines.append(QStringLiteral("# ") + text); }

    bool isRunning() const;
    bool isListening() const { return m_player.m_order.openSubscription() != 0; }
    /// The interval of the command's timer, in ms; 0: it has none that runs.
    int timerMs() const;
    /// The frames that the command has sent since the last call.
    QStringList takeFrames();
    const QStringList& lines() const { return m_lines; }

private:
    QString perform(const TranscriptStep& step);
    void takeHappened();

    TranscriptPlayer m_player;
    QStringList m_lines;
    QStringList m_frames;
};
