#include "wrench_lock.h"

#include "line_talk.h"
#include "line_words.h"

namespace {

constexpr int c_tries = 2; // a frame may be lost, and the link may have to be opened first
constexpr int c_answerLimitMs = 3000;

} // namespace

WrenchLock::WrenchLock(LineTalk& talk, int answerLimitMs)
    : m_talk(talk), m_answerLimitMs(answerLimitMs > 0 ? answerLimitMs : c_answerLimitMs)
{}

void WrenchLock::putBack(const std::function<void(const QString& cause)>& then)
{
    if (hasToBePutBack()) {
        tryToPutBack(c_tries, then);
    } else {
        then({});
    }
}

void WrenchLock::tryToPutBack(int triesLeft, const std::function<void(const QString& cause)>& then)
{
    using namespace line_words;
    const QString frame = wasLocked() ? c_lock : c_unlock;
    const QString acknowledgement = wasLocked() ? c_locked : c_unlocked;
    m_talk.forget();
    m_talk.ask(
        frame, m_answerLimitMs,
        [acknowledgement](const QString& line) { return line == acknowledgement || line.startsWith(c_refused); },
        [this, frame, acknowledgement, triesLeft, then](LineTalk::End end) {
            const bool isAnswered = end == LineTalk::End::Answered;
            if (isAnswered && m_talk.lines().constLast() == acknowledgement) {
                m_mayHaveChanged = false;
                then({});
            } else if (end == LineTalk::End::NotWritten) {
                then(m_talk.writeError());
            } else if (triesLeft > 1) {
                tryToPutBack(triesLeft - 1, then);
            } else if (isAnswered) {
                then(tr("it answered \"%1\" to \"%2\"").arg(m_talk.lines().constLast(), frame));
            } else {
                then(tr("it did not answer to \"%1\"").arg(frame));
            }
        });
}
