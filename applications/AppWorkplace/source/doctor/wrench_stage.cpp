#include "wrench_stage.h"

#include <algorithm>
#include <iterator>

#include "line_words.h"

namespace {

constexpr int c_answerLimitMs = 5000; // the dongle may have to open the link first

bool isLock(const QString& line)
{
    return line == line_words::c_locked || line == line_words::c_unlocked;
}

/// Nothing that a dongle or an echoing wrench says here.
bool isNonsense(const QString& line)
{
    return line != line_words::c_probe && !line_words::isOfDongle(line) && !line.startsWith(line_words::c_result);
}

} // namespace

WrenchStage::WrenchStage(DoctorBench& bench)
    : DoctorStage({QStringLiteral("wrench"), tr("the wrench acknowledges"),
                   tr("DI:C to the wrench, which tells its lock and changes nothing")},
                  Problem::Kind::Device, bench)
{}

void WrenchStage::start()
{
    ask();
}

void WrenchStage::ask()
{
    ++m_asked;
    m_bench.talk.forget();
    m_bench.talk.ask(
        line_words::c_probe, limitMs(c_answerLimitMs),
        [](const QString& line) { return isLock(line) || line.startsWith(line_words::c_refused); },
        [this](LineTalk::End end) {
            switch (end) {
            case LineTalk::End::Answered:
                if (m_bench.holdsALink && m_asked == 1) {
                    ask(); // what came may be a late word to whoever has left the link open
                } else {
                    judge(m_bench.talk.lines().constLast());
                }
                break;
            case LineTalk::End::NotWritten:
                failUnwritten();
                break;
            case LineTalk::End::Limit:
                failUnanswered();
                break;
            }
        });
}

void WrenchStage::judge(const QString& answer)
{
    const QString said = tr("the line said \"%1\"").arg(answer);
    if (isLock(answer)) {
        const bool isLocked = answer == line_words::c_locked;
        m_bench.lock.found(isLocked);
        pass(isLocked ? tr("the wrench answers; it is locked") : tr("the wrench answers; it is unlocked"));
    } else if (answer == line_words::c_nobodyToLink) {
        fail(tr("the dongle does not open the link again for a frame"), said,
             tr("set the dongle to open its last link by itself"));
    } else {
        fail(tr("the wrench is not reached"), said, tr("bring the wrench nearer and try again"));
    }
}

void WrenchStage::failUnanswered()
{
    const QStringList& lines = m_bench.talk.lines();
    QStringList nonsense;
    std::copy_if(lines.cbegin(), lines.cend(), std::back_inserter(nonsense), &isNonsense);
    if (!nonsense.isEmpty()) {
        fail(tr("the wrench answers nonsense"), tr("it was asked for its lock, and said %1").arg(quoted(nonsense)),
             tr("switch the wrench off and on; when that does not help it is of another kind, or broken"));
    } else {
        fail(tr("the wrench is silent, although its link opens"),
             tr("it did not answer to \"%1\"").arg(line_words::c_probe),
             tr("switch the wrench off and on, and bring it near"));
    }
}
