#pragma once

#include <QObject>
#include <QVector>

#include <functional>
#include <memory>

#include <lib_utilities/clock.h>
#include <lib_utilities/repeated_warnings.h>

#include "i_serial_port.h"
#include "keep_alive.h"
#include "line_bound.h"
#include "line_settings.h"
#include "line_trace.h"
#include "undelivered_input.h"
#include "write_queue.h"

/// Hears what arrives on the line. It takes itself away with SerialLine::removeListener() before it is destroyed.
class ILineListener
{
public:
    /// number: 1 to INT_MAX, one more for each chunk, after INT_MAX 1 again; the same for all listeners.
    virtual void chunkArrived(const QByteArray& bytes, int number) = 0;

protected:
    ~ILineListener() = default;
};

/// One serial line of one device: the port, the frames that wait to be written, the listeners, and what keeps the line
/// open for them.
///
///     Closed --write or listener--> Open --keep-alive unanswered--> NoAnswer --answer--> Open
///                     \               \-- port gone --> Lost <-- cannot be opened --/
///                      \--> Lost --while there are listeners, after 0.25 s doubling to 5 s--> Open
///     any --closeConnection()--> Closed
///
/// Input that arrives while nobody listens is dropped, but for the answer to a frame: what arrives from the moment a
/// frame goes out until 100 ms after it has left is also kept for who begins to listen in that time, up to 1 MiB, and
/// given up for the next frame; longer when the event loop is held up, and with it who is about to listen. So a caller
/// may write first and listen when the write is answered, whoever else listens, and never hears anything older.
///
/// All on one thread. Listeners and answers may call anything here, and may destroy the line; who hears of changed()
/// may not.
class SerialLine : public QObject, private ISerialPort::Observer
{
    Q_OBJECT

public:
    enum class State { Closed, Open, Lost, NoAnswer };
    using SettingsSource = std::function<LineSettingsResult()>; // asked at each opening

    static constexpr int c_firstReopenMs = 250;
    static constexpr int c_lastReopenMs = 5000;
    static constexpr int c_handOverMs = 100;

    /// The number of the chunk after that of number (0: none yet).
    static int numberAfter(int number);

    /// The clock outlives the line.
    SerialLine(std::unique_ptr<ISerialPort> port, Clock& clock, SettingsSource settings, QObject* parent = nullptr);
    ~SerialLine() override;

    State state() const { return m_state; }
    /// What is wrong with the line, one sentence; empty while nothing is.
    QString error() const { return m_error; }

    /// Writes a frame (not empty) after those asked before it. limitMs: > 0, from now until its bytes have left.
    /// done: called once, later, unless it is forgotten. Returns the frame's id, or 0 when the port cannot be opened
    /// (error() says why); then done is not called.
    WriteQueue::Id write(const QByteArray& frame, int limitMs, WriteQueue::Done done);
    /// done is not called any more; a frame that nobody waits for is still written. 0 is no error.
    void forgetDone(WriteQueue::Id id);

    /// From now on the listener gets each chunk. It stays a listener while the port is away.
    void addListener(ILineListener* listener);
    /// One that is none is no error.
    void removeListener(ILineListener* listener);

    /// Closes the port after the frames asked before. Listeners stay, but only the next write() or addListener() opens
    /// it again.
    void closeConnection();

    /// As KeepAlive::set(); holds across closing and opening.
    void setKeepAlive(const QByteArray& frame, const QByteArray& response);

    /// target: as LineTrace::start(), empty to switch the trace off. Empty result: done; otherwise one sentence.
    QString setTrace(const QString& target);
    /// As LineTrace::addListener() and removeListener(). It neither opens the port nor keeps it open.
    void addTraceListener(ITraceListener* listener);
    void removeTraceListener(ITraceListener* listener);

Q_SIGNALS:
    /// state() or error() has changed.
    void changed();

private:
    void bytesArrived(const QByteArray& bytes) override;
    void bytesLeft() override;
    void portFailed(const QString& problem) override;

    bool openPort();
    bool closePort(const QString& remark);
    void lose(const QString& problem);
    void reopenLater();
    void giveUpReopening();
    void onReopen();
    void setState(State state, const QString& error);

    void writeNext();
    void onWriteLimit(WriteQueue::Id id);
    bool answer(const WriteQueue::Entry& entry, const QString& error);
    void failQueued();

    void deliver(const QByteArray& chunk);
    void handOut(const QByteArray& bytes, QVector<ILineListener*> listeners);
    void deliverKept();
    void beginHandOver();
    void endHandOver();
    bool isHandOver() const;
    void dropKept();

    bool askDevice(const QByteArray& frame);
    void onDeviceLost();

    Clock& m_clock;
    RepeatedWarnings m_warnings;
    RepeatedWarnings m_lineWarnings; // what error() says, too
    const SettingsSource m_settingsSource;
    State m_state = State::Closed;
    QString m_error;
    QString m_portName; // as configured, of the last opening
    QString m_configuredTrace;

    WriteQueue m_queue;
    bool m_isWriting = false; // the first frame of the queue is with the port

    QVector<ILineListener*> m_listeners;
    QVector<ILineListener*> m_joining; // of these, who has not heard yet what is kept
    UndeliveredInput m_kept;
    Clock::TimerId m_handOverTimer = 0; // 0: it is over
    Clock::TimerId m_deliverTimer = 0;
    int m_number = 0;

    int m_reopenMs = c_firstReopenMs;
    Clock::TimerId m_reopenTimer = 0;

    LineTrace m_trace;
    KeepAlive m_keepAlive;
    LineBound m_lineBound;
    std::unique_ptr<ISerialPort> m_port;
};
