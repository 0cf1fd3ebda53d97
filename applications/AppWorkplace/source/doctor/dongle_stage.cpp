#include "dongle_stage.h"

#include <algorithm>
#include <iterator>

#include "line_words.h"

namespace {

constexpr int c_answerLimitMs = 1000; // a dongle without a wrench in range has nothing to say to a search

/// Somebody who repeats what is sent repeats this, too; a dongle never says it.
bool isEcho(const QString& line)
{
    return line == line_words::c_scan;
}

/// A dongle's answer to a search.
bool isFound(const QString& line)
{
    return line_words::isOfDongle(line) &&
           (line.startsWith(line_words::c_heard) || line.startsWith(line_words::c_refused));
}

} // namespace

DongleStage::DongleStage(DoctorBench& bench)
    : DoctorStage({QStringLiteral("dongle"), tr("a dongle answers, and no other device"),
                   tr("ATS to the dongle, which begins a search")},
                  Problem::Kind::Device, bench)
{}

void DongleStage::start()
{
    using namespace line_words;
    m_bench.talk.ask(
        c_scan, limitMs(c_answerLimitMs),
        [](const QString& line) {
            // Behind an echo there may come who it is that echoes, and behind a late word of the wrench the dongle.
            // Of what is refused, too: only that a link is open says nobody but the dongle.
            return line.startsWith(c_heard) || line == c_linkIsOpenAlready ||
                   (isForeign(line) && !isEcho(line) && line != c_done);
        },
        [this](LineTalk::End end) {
            if (end == LineTalk::End::NotWritten) {
                failUnwritten();
            } else {
                judge();
            }
        });
}

/// By all that was said since the line was first spoken to.
void DongleStage::judge()
{
    const QStringList lines = m_bench.talk.lines();
    QStringList foreign;
    std::copy_if(lines.cbegin(), lines.cend(), std::back_inserter(foreign), &line_words::isForeign);
    const int echoes = foreign.removeAll(line_words::c_scan);
    if (std::any_of(lines.cbegin(), lines.cend(), &isFound)) {
        foreign.removeAll(line_words::c_done); // the wrench's, then, and late
    }
    const QString last = lines.isEmpty() ? QString() : lines.constLast();
    m_bench.holdsALink = last == line_words::c_linkIsOpenAlready;
    if (echoes > 0 && foreign.isEmpty()) {
        fail(tr("nobody answers, the line only repeats what is sent"), tr("it said %1").arg(quoted(lines)),
             tr("take the loop-back plug off, or choose the dongle's port; \"app_workplace ports\" lists the ports"));
    } else if (!foreign.isEmpty()) {
        fail(tr("another device than a dongle answers"), tr("it said %1").arg(quoted(foreign)),
             tr("choose the dongle's port; \"app_workplace ports\" lists the ports"));
    } else if (last.startsWith(line_words::c_refused) && !m_bench.holdsALink) {
        fail(tr("the dongle refuses to search"), tr("it said \"%1\"").arg(last),
             tr("unplug the dongle, plug it in again and try once more"));
    } else if (m_bench.holdsALink) {
        pass(tr("a dongle answers; it keeps a link that is open"));
    } else {
        pass(tr("a dongle answers"));
    }
}
