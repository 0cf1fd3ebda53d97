#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QMap>
#include <QObject>
#include <QSocketNotifier>
#include <QString>

#include <memory>

/// The far end of a serial line, on a pseudo-terminal, that answers what a test says: a modem, a loop-back plug, a
/// wrench that is out of its mind. Frames that it has no answer for go unanswered.
class ScriptedLine : public QObject
{
    Q_OBJECT

public:
    /// By the frame, without its line end; the answers are bytes as they go out. An answer for "" is given to any
    /// other frame.
    using Answers = QMap<QByteArray, QByteArray>;

    explicit ScriptedLine(const Answers& answers);
    ~ScriptedLine() override;

    /// Everything comes back as it was sent, too.
    void repeatWhatIsSent() { m_isRepeating = true; }
    void setAnswer(const QByteArray& frame, const QByteArray& bytes) { m_answers[frame] = bytes; }

    QString port() const { return m_port; }
    /// The frames that have arrived so far.
    const QByteArrayList& frames() const { return m_frames; }

    /// A dongle with the wrench 2210 that has one program and is unlocked.
    static Answers goodAnswers();

private:
    void read();
    void send(const QByteArray& bytes) const;

    Answers m_answers;
    QString m_port;
    int m_master = -1;
    int m_slave = -1; // held open, so that the far end outlives who uses it
    std::unique_ptr<QSocketNotifier> m_notifier;
    QByteArray m_rest;
    QByteArrayList m_frames;
    bool m_isRepeating = false;
};
