#include "keep_alive.h"

#include <algorithm>
#include <utility>

namespace {

constexpr qint64 c_usPerMs = 1000;
const QByteArray c_lineEnd = QByteArrayLiteral("\r\n");

} // namespace

KeepAlive::KeepAlive(Clock& clock, Callbacks callbacks) : m_clock(clock), m_callbacks(std::move(callbacks)) {}

KeepAlive::~KeepAlive()
{
    m_clock.cancel(m_silenceTimer);
    m_clock.cancel(m_answerTimer);
}

void KeepAlive::set(const QByteArray& frame, const QByteArray& response)
{
    m_frame = frame.isEmpty() || frame.endsWith(c_lineEnd) ? frame : frame + c_lineEnd;
    const QByteArray heldBack = takeHeldBack();
    m_response = response;
    restart();
    if (!heldBack.isEmpty()) {
        m_callbacks.release(heldBack);
    }
}

void KeepAlive::start(int silenceMs)
{
    m_silenceMs = silenceMs;
    restart();
}

void KeepAlive::stop()
{
    m_silenceMs = 0;
    const QByteArray heldBack = takeHeldBack();
    restart();
    if (!heldBack.isEmpty()) {
        m_callbacks.release(heldBack);
    }
}

void KeepAlive::restart()
{
    m_clock.cancel(std::exchange(m_silenceTimer, 0));
    m_clock.cancel(std::exchange(m_answerTimer, 0));
    m_isAsking = false;
    m_isSwallowing = false;
    if (isSet() && m_silenceMs > 0) {
        quietFor(m_silenceMs);
        m_silenceTimer = m_clock.callAfter(m_silenceMs, [this] { onSilence(); });
    }
    setMissing(0);
}

void KeepAlive::quietFor(int ms)
{
    // The timer is left as it is, it looks here when it goes off: a timer for each chunk would cost more than the
    // chunk.
    m_quietUntilUs = m_clock.nowUs() + ms * c_usPerMs;
}

void KeepAlive::frameSent()
{
    if (m_isAsking && m_heldBack == 0) { // an answer that has begun is not the frame's
        m_isAsking = false;
        m_clock.cancel(std::exchange(m_answerTimer, 0));
    }
    if (isSet()) {
        quietFor(std::max(m_silenceMs, c_answerLimitMs));
    }
}

void KeepAlive::onSilence()
{
    const qint64 restUs = m_quietUntilUs - m_clock.nowUs();
    int restMs = static_cast<int>((restUs + c_usPerMs - 1) / c_usPerMs);
    bool isLineEndMissing = false;
    if (restMs <= 0) {
        if (!m_isAsking && m_callbacks.ask(m_frame)) {
            m_isAsking = true;
            // A line cut off before the silence is not going to be continued, nor is an answer.
            m_isAtLineStart = true;
            isLineEndMissing = std::exchange(m_isSwallowing, false) && std::exchange(m_isLineOpen, false);
            m_clock.cancel(m_answerTimer);
            m_answerTimer = m_clock.callAfter(c_answerLimitMs, [this] { onAnswerLimit(); });
        }
        restMs = m_silenceMs;
        quietFor(restMs);
    }
    m_silenceTimer = m_clock.callAfter(restMs, [this] { onSilence(); });
    if (isLineEndMissing) {
        m_callbacks.release(c_lineEnd);
    }
}

void KeepAlive::onAnswerLimit()
{
    m_answerTimer = 0;
    m_isSwallowing = false;
    if (!m_isAsking) { // only the end of the answer's line has not come
        if (std::exchange(m_isLineOpen, false)) {
            m_callbacks.release(c_lineEnd);
        }
        return;
    }
    m_isAsking = false;
    const QByteArray heldBack = takeHeldBack();
    setMissing(m_missing + 1);
    if (!heldBack.isEmpty()) {
        m_callbacks.release(heldBack);
    }
}

void KeepAlive::onAnswer()
{
    m_isAsking = false;
    m_heldBack = 0;
}

void KeepAlive::setMissing(int missing)
{
    const bool wasLost = isLost();
    m_missing = missing;
    if (isLost() != wasLost) {
        m_callbacks.lostChanged();
    }
}

QByteArray KeepAlive::takeHeldBack()
{
    m_isLineOpen = m_isLineOpen || m_heldBack > 0;
    return m_response.left(std::exchange(m_heldBack, 0));
}

QByteArray KeepAlive::arrived(const QByteArray& chunk)
{
    if (isSet()) {
        quietFor(m_silenceMs);
    }
    if (!m_isAsking && !m_isSwallowing) {
        m_isLineOpen = !chunk.endsWith('\n');
        return chunk;
    }
    QByteArray passed;
    passed.reserve(m_heldBack + chunk.size());
    bool wasAnswered = false;
    for (const char byte : chunk) {
        const bool endsLine = byte == '\n';
        bool isOfAnAnswer = m_isSwallowing;
        if (m_isSwallowing) {
            m_isSwallowing = !endsLine;
        } else if (m_isAsking && (m_isAtLineStart || m_heldBack > 0) && byte == m_response.at(m_heldBack)) {
            if (++m_heldBack == m_response.size()) {
                onAnswer();
                wasAnswered = true;
                isOfAnAnswer = true;
                m_isSwallowing = !endsLine;
            }
        } else {
            passed += takeHeldBack();
            passed += byte;
            m_isLineOpen = !endsLine;
        }
        if (isOfAnAnswer && endsLine && std::exchange(m_isLineOpen, false)) {
            passed += c_lineEnd; // a line that was cut off before ends here, not with the line that comes next
        }
        m_isAtLineStart = endsLine;
    }
    if (!m_isAsking && !m_isSwallowing) {
        m_clock.cancel(std::exchange(m_answerTimer, 0));
    }
    if (wasAnswered) {
        setMissing(0);
    }
    return passed;
}
