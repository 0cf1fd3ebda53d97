#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

/// One line of a transcript; see transcript_player.h.
struct TranscriptStep
{
    static constexpr int c_textColumn = 8;

    int line;     // in the file, from 1
    QString word; // what it begins with
    QString text; // from the ninth column on, blanks and all

    /// Characters come from dongle or wrench.
    bool isArrival() const;
    /// Those characters, escapes resolved, with CR LF where it is a line.
    QByteArray arrival() const;
    /// What is expected to happen, one text for each event, as eventText() writes it. number: of the reply being read.
    QStringList expectedTexts(int number) const;
};

/// Empty, or why the file cannot be read.
QString readTranscript(const QString& file, QVector<TranscriptStep>& steps);
