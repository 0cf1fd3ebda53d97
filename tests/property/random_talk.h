#pragma once

#include <QByteArrayList>
#include <QVector>

#include <random>

#include "naive_talk.h"

class CommandTalk;

/// A command and what it is told, drawn from a seed: answers that fit what the command has said last, answers that do
/// not, lines of every kind there is and of none, damaged ones, cut into replies anywhere, some of them delivered
/// twice.
class RandomTalk
{
public:
    explicit RandomTalk(quint64 seed);

    const TalkSetUp& setUp() const { return m_setUp; }

    /// Talks with that command until it has ended or there is nothing more to say. The replies that it was given.
    QVector<QVariantMap> talkTo(CommandTalk& command);

private:
    int below(int end); ///< 0 to end - 1
    bool chance(int percent) { return below(100) < percent; }
    template <class List>
    auto oneOf(const List& list)
    {
        return list.at(below(list.size()));
    }

    QByteArray nextLine(const QString& lastFrame);
    QByteArray fittingAnswer(const QString& lastFrame);
    QByteArray anyLine();
    QByteArray programLine();
    QByteArray fieldText();
    QByteArray damaged(QByteArray line);
    QVariantMap nextReply(const QByteArray& chunk);

    std::mt19937_64 m_random;
    TalkSetUp m_setUp;
    QByteArrayList m_programs; ///< of the wrench
    int m_program = 0;
    int m_busy = 0;     ///< how often the wrench still refuses "IDLE"
    int m_mildness = 0; ///< how many lines of a hundred are as they should be
    int m_number = 0;
};
