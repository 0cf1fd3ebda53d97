#include "serial_line.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <limits>
#include <utility>

#include "logging.h"

SerialLine::SerialLine(std::unique_ptr<ISerialPort> port, Clock& clock, SettingsSource settings, QObject* parent)
    : QObject(parent)
    , m_clock(clock)
    , m_warnings(clock, lcDriverSerial)
    , m_lineWarnings(clock, lcDriverSerialLine)
    , m_settingsSource(std::move(settings))
    , m_queue(clock, [this](WriteQueue::Id id) { onWriteLimit(id); })
    , m_trace(clock)
    , m_keepAlive(clock, {[this](const QByteArray& frame) { return askDevice(frame); },
                          [this](const QByteArray& bytes) { deliver(bytes); }, [this] { onDeviceLost(); }})
    , m_port(std::move(port))
{
    m_port->setObserver(this);
}

SerialLine::~SerialLine()
{
    m_port->setObserver(nullptr);
    m_clock.cancel(m_deliverTimer);
    m_clock.cancel(m_reopenTimer);
    m_clock.cancel(m_handOverTimer);
}

// ---- The port

bool SerialLine::openPort()
{
    m_clock.cancel(std::exchange(m_reopenTimer, 0));
    const LineSettingsResult result = m_settingsSource();
    m_portName = result.settings.port;
    if (result.refusal.isEmpty() && result.settings.trace != m_configuredTrace) {
        m_configuredTrace = result.settings.trace;
        const QString problem = setTrace(m_configuredTrace);
        if (!problem.isEmpty()) {
            m_warnings.warn(problem);
        }
    }
    const QString problem = result.refusal.isEmpty() ? m_port->open(result.settings) : result.refusal;
    if (!problem.isEmpty()) {
        lose(problem);
        return false;
    }
    m_trace.remark(QStringLiteral("opened"));
    m_keepAlive.start(result.settings.keepAliveSilenceMs);
    setState(State::Open, {});
    return true;
}

/// False: the line has been destroyed by a listener.
bool SerialLine::closePort(const QString& remark)
{
    const QPointer<SerialLine> self(this);
    m_port->close();
    m_isWriting = false;
    endHandOver();
    m_trace.remark(remark);
    m_keepAlive.stop();
    return !self.isNull();
}

void SerialLine::lose(const QString& problem)
{
    reopenLater();
    setState(State::Lost, problem);
}

void SerialLine::reopenLater()
{
    if (m_listeners.isEmpty() || m_reopenTimer != 0) {
        return;
    }
    m_reopenTimer = m_clock.callAfter(m_reopenMs, [this] { onReopen(); });
    m_reopenMs = std::min(2 * m_reopenMs, c_lastReopenMs);
}

void SerialLine::giveUpReopening()
{
    m_clock.cancel(std::exchange(m_reopenTimer, 0));
    m_reopenMs = c_firstReopenMs;
}

void SerialLine::onReopen()
{
    m_reopenTimer = 0;
    if (!m_port->isOpen() && !m_listeners.isEmpty()) {
        openPort();
    }
}

void SerialLine::portFailed(const QString& problem)
{
    if (closePort(QStringLiteral("lost"))) {
        lose(problem);
        failQueued();
    }
}

void SerialLine::setState(State state, const QString& error)
{
    if (state == m_state && error == m_error) {
        return;
    }
    m_state = state;
    if (error != m_error && !error.isEmpty()) {
        m_lineWarnings.warn(error);
    }
    m_error = error;
    Q_EMIT changed();
}

void SerialLine::closeConnection()
{
    m_queue.addClosing();
    writeNext();
}

// ---- Writing

WriteQueue::Id SerialLine::write(const QByteArray& frame, int limitMs, WriteQueue::Done done)
{
    // With something in the queue the port is open, or is going to be when the frame's turn comes.
    if (m_queue.isEmpty() && !m_port->isOpen() && !openPort()) {
        return 0;
    }
    const WriteQueue::Id id = m_queue.addFrame(frame, limitMs, std::move(done));
    writeNext();
    return id;
}

void SerialLine::forgetDone(WriteQueue::Id id)
{
    m_queue.forgetDone(id);
}

void SerialLine::writeNext()
{
    while (!m_isWriting && !m_queue.isEmpty()) {
        if (m_queue.first().closesThePort()) {
            m_queue.takeFirst();
            giveUpReopening();
            if (!closePort(QStringLiteral("closed"))) {
                return;
            }
            setState(State::Closed, {});
        } else if (!m_port->isOpen() && !openPort()) {
            failQueued();
            return;
        } else {
            const QByteArray frame = m_queue.first().frame;
            m_isWriting = true;
            dropKept();
            m_keepAlive.frameSent();
            m_trace.sent(frame);
            m_port->write(frame);
        }
    }
}

void SerialLine::bytesLeft()
{
    if (!m_isWriting) {
        return;
    }
    m_isWriting = false;
    m_reopenMs = c_firstReopenMs;
    beginHandOver();
    if (answer(m_queue.takeFirst(), {})) {
        writeNext();
    }
}

void SerialLine::onWriteLimit(WriteQueue::Id id)
{
    const bool wasWriting = m_isWriting && m_queue.isFirst(id);
    if (wasWriting) {
        m_port->discardOutput();
        m_isWriting = false;
    }
    const WriteQueue::Entry entry = m_queue.take(id);
    const QString error =
        QCoreApplication::translate("SerialDriver",
                                    "The port %1 did not take a frame of %2 bytes within %3 ms: check the device "
                                    "at its other end and its flow control.")
            .arg(m_portName)
            .arg(entry.frame.size())
            .arg(entry.limitMs);
    m_warnings.warn(QStringLiteral("write limit"), error);
    m_trace.remark(error);
    if (answer(entry, error)) {
        writeNext();
    }
}

/// False: the line has been destroyed by whoever heard the answer.
bool SerialLine::answer(const WriteQueue::Entry& entry, const QString& error)
{
    const QPointer<SerialLine> self(this);
    if (entry.done) {
        entry.done(error.isEmpty(), error);
    }
    return !self.isNull();
}

void SerialLine::failQueued()
{
    // Not those that are asked for in answer to a failure.
    const WriteQueue::Id last = m_queue.lastId();
    const QString error = m_error;
    while (!m_queue.isEmpty() && m_queue.first().id <= last && !m_queue.first().closesThePort()) {
        if (!answer(m_queue.takeFirst(), error)) {
            return;
        }
    }
    writeNext();
}

// ---- Listening

void SerialLine::addListener(ILineListener* listener)
{
    if (!m_listeners.contains(listener)) {
        m_listeners.append(listener);
        if (isHandOver() && !m_kept.isEmpty()) {
            m_joining.append(listener);
        }
    }
    if (!m_joining.isEmpty() && m_deliverTimer == 0) {
        // Not from inside this call: the listener has not begun yet.
        m_deliverTimer = m_clock.callAfter(0, [this] { deliverKept(); });
    }
    if (!m_port->isOpen() && m_queue.isEmpty()) {
        openPort();
    }
}

void SerialLine::removeListener(ILineListener* listener)
{
    m_listeners.removeOne(listener);
    m_joining.removeOne(listener);
    if (m_listeners.isEmpty()) {
        giveUpReopening();
    }
}

void SerialLine::bytesArrived(const QByteArray& bytes)
{
    m_reopenMs = c_firstReopenMs;
    m_trace.arrived(bytes);
    const QByteArray passed = m_keepAlive.arrived(bytes);
    if (!passed.isEmpty()) {
        deliver(passed);
    }
}

void SerialLine::deliver(const QByteArray& chunk)
{
    const QByteArray bytes = m_lineBound.arrived(chunk);
    if (m_lineBound.takeOverflow()) {
        m_warnings.warn(
            QStringLiteral("endless line"),
            QStringLiteral("%1: a line is longer than %2 bytes: its rest is dropped, up to its end. Check the "
                           "baud rate and what is connected.")
                .arg(m_portName, QString::number(LineBound::c_limitBytes)));
    }
    if (bytes.isEmpty()) {
        return;
    }
    const QPointer<SerialLine> self(this);
    deliverKept();
    if (self.isNull()) {
        return;
    }
    if (isHandOver()) {
        m_kept.add(bytes, !m_listeners.isEmpty());
    } else {
        dropKept();
    }
    if (!m_listeners.isEmpty()) {
        handOut(bytes, m_listeners);
    } else if (m_kept.isEmpty()) {
        m_trace.remark(QStringLiteral("%1 bytes dropped, nobody listens").arg(bytes.size()));
    }
}

void SerialLine::handOut(const QByteArray& bytes, QVector<ILineListener*> listeners)
{
    const QPointer<SerialLine> self(this);
    m_number = numberAfter(m_number);
    const int number = m_number;
    for (ILineListener* listener : qAsConst(listeners)) {
        if (self.isNull()) {
            return;
        }
        if (m_listeners.contains(listener)) { // it may have been taken away by one before it
            listener->chunkArrived(bytes, number);
        }
    }
}

int SerialLine::numberAfter(int number)
{
    return number == std::numeric_limits<int>::max() ? 1 : number + 1;
}

/// To the listeners that have come since the frame; the others have heard it.
void SerialLine::deliverKept()
{
    m_clock.cancel(std::exchange(m_deliverTimer, 0));
    const QVector<ILineListener*> joining = std::exchange(m_joining, {});
    if (!joining.isEmpty()) {
        if (m_kept.droppedBytes() > 0) {
            m_warnings.warn(
                QStringLiteral("drop"),
                QStringLiteral("%1: %2 bytes from the line are dropped: more than %3 arrived before anybody listened.")
                    .arg(m_portName, QString::number(m_kept.droppedBytes()),
                         QString::number(UndeliveredInput::c_limitBytes)));
        }
        handOut(m_kept.read(), joining);
    }
}

/// In two halves, for something else may hold the event loop up, and with it the listener: the first one then ends
/// late, and in the second the listener has its turn.
void SerialLine::beginHandOver()
{
    endHandOver();
    m_handOverTimer = m_clock.callAfter(c_handOverMs / 2, [this] {
        m_handOverTimer = m_clock.callAfter(c_handOverMs / 2, [this] { m_handOverTimer = 0; });
    });
}

void SerialLine::endHandOver()
{
    m_clock.cancel(std::exchange(m_handOverTimer, 0));
}

bool SerialLine::isHandOver() const
{
    return m_isWriting || m_handOverTimer != 0;
}

void SerialLine::dropKept()
{
    const int unheard = m_kept.clear();
    m_joining.clear();
    if (unheard > 0) {
        m_trace.remark(QStringLiteral("%1 bytes dropped, nobody listened").arg(unheard));
    }
}

// ---- Keep-alive and trace

void SerialLine::setKeepAlive(const QByteArray& frame, const QByteArray& response)
{
    m_keepAlive.set(frame, response);
}

bool SerialLine::askDevice(const QByteArray& frame)
{
    if (!m_queue.isEmpty()) {
        return false;
    }
    write(frame, KeepAlive::c_answerLimitMs, {});
    return true;
}

void SerialLine::onDeviceLost()
{
    if (!m_port->isOpen()) {
        return; // the line has a state of its own for that
    }
    if (m_keepAlive.isLost()) {
        setState(State::NoAnswer,
                 QCoreApplication::translate("SerialDriver",
                                             "The device on %1 has left the keep-alive frame unanswered %2 times: "
                                             "check that it is switched on and in range.")
                     .arg(m_portName)
                     .arg(KeepAlive::c_missingForLost));
    } else {
        setState(State::Open, {});
    }
}

QString SerialLine::setTrace(const QString& target)
{
    if (target.isEmpty()) {
        m_trace.stop();
        return {};
    }
    return m_trace.start(target, m_settingsSource().settings.port);
}

void SerialLine::addTraceListener(ITraceListener* listener)
{
    m_trace.addListener(listener, m_settingsSource().settings.port);
}

void SerialLine::removeTraceListener(ITraceListener* listener)
{
    m_trace.removeListener(listener);
}
