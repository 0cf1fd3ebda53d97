#pragma once

#include <QByteArray>

#include <functional>

#include <lib_utilities/clock.h>

/// Asks a silent device whether it is still there, and takes its answers out of the stream.
///
///     off --set, start--> quiet --silence over, frame sent--> asking --answer--> quiet
///                                                               \--2 s without--> quiet, one more is missing
///                                                                \--somebody else's frame--> quiet
///
/// Three answers missing in a row: the device is lost, until it answers again. It is asked on and on.
///
/// The silence starts anew with every byte in either direction. After a frame of somebody else that has had no answer
/// yet it lasts at least the 2 s that an answer may take, so that nothing is asked between a frame and its answer.
///
/// A frame that goes out before the answer has begun ends the question, for whose answer comes next cannot be told. An
/// answer too many is passed over by those who wait for another; one too few would leave them waiting.
class KeepAlive
{
public:
    static constexpr int c_answerLimitMs = 2000;
    static constexpr int c_missingForLost = 3;

    struct Callbacks
    {
        /// Writes the frame; false when something else is being written: then the silence starts anew.
        std::function<bool(const QByteArray& frame)> ask;
        /// Bytes that were held back because they began like the answer, and are none.
        std::function<void(const QByteArray& bytes)> release;
        /// isLost() has changed.
        std::function<void()> lostChanged;
    };

    /// The clock outlives the object.
    KeepAlive(Clock& clock, Callbacks callbacks);
    ~KeepAlive();

    /// frame: sent after the silence; CR LF is added when it is not there, as a line protocol needs it; empty: off.
    /// response: what the answering line begins with; not empty. Replaces the pair before.
    void set(const QByteArray& frame, const QByteArray& response);
    bool isSet() const { return !m_frame.isEmpty(); }

    /// The line is open from now on. silenceMs: > 0.
    void start(int silenceMs);
    /// The line is closed: nothing is asked, nothing is missing.
    void stop();

    /// Somebody else's frame goes out.
    void frameSent();
    /// What is left of the chunk for the listeners; the chunk itself when there is nothing to take out.
    QByteArray arrived(const QByteArray& chunk);

    bool isLost() const { return m_missing >= c_missingForLost; }

private:
    void restart();
    void quietFor(int ms);
    void onSilence();
    void onAnswerLimit();
    void onAnswer();
    void setMissing(int missing);
    QByteArray takeHeldBack();

    Clock& m_clock;
    const Callbacks m_callbacks;
    QByteArray m_frame;
    QByteArray m_response;
    int m_silenceMs = 0; // 0: the line is closed
    qint64 m_quietUntilUs = 0;
    Clock::TimerId m_silenceTimer = 0;
    Clock::TimerId m_answerTimer = 0; // running from the question to the end of the answer's line
    bool m_isAsking = false;
    bool m_isSwallowing = false; // inside the answer's line
    bool m_isAtLineStart = true; // since the question
    bool m_isLineOpen = false;   // what was passed on last does not end a line
    int m_heldBack = 0;          // bytes of m_response that have arrived at the end of what was seen
    int m_missing = 0;           // answers, in a row
};
