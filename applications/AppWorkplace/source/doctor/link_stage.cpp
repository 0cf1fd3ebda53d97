#include "link_stage.h"

#include "line_words.h"

namespace {
constexpr int c_linkLimitMs = 10000;
constexpr int c_hangUpLimitMs = 1500;
} // namespace

LinkStage::LinkStage(DoctorBench& bench)
    : DoctorStage({QStringLiteral("link"), tr("the radio link to the wrench opens"),
                   tr("ATD and the wrench's address to the dongle, and ATH behind it, as a session does")},
                  Problem::Kind::Device, bench)
{}

void LinkStage::start()
{
    using namespace line_words;
    if (m_bench.holdsALink) {
        skip(tr("a link is open already"));
        return;
    }
    m_bench.talk.forget();
    m_bench.talk.ask(
        c_dial + m_bench.address, limitMs(c_linkLimitMs),
        [](const QString& line) { return line.startsWith(c_linkOpen) || line.startsWith(c_refused); },
        [this](LineTalk::End end) {
            const QStringList& lines = m_bench.talk.lines();
            if (end == LineTalk::End::Answered && lines.constLast().startsWith(c_linkOpen) &&
                lines.contains(c_dial + m_bench.address)) {
                hangUp();
            } else {
                failUnopened(end);
            }
        });
}

void LinkStage::hangUp()
{
    m_bench.talk.ask(
        line_words::c_hangUp, limitMs(c_hangUpLimitMs),
        [](const QString& line) { return line == line_words::c_hangUp; },
        [this](LineTalk::End end) {
            if (end == LineTalk::End::NotWritten) {
                failUnwritten();
            } else { // a dongle that keeps its link says nothing
                pass(tr("the link to the wrench %1 opens").arg(m_bench.serialId));
            }
        });
}

void LinkStage::failUnopened(LineTalk::End end)
{
    const QStringList& lines = m_bench.talk.lines();
    const QStringList echoes = lines.filter(line_words::c_dial);
    switch (end) {
    case LineTalk::End::NotWritten:
        failUnwritten();
        break;
    case LineTalk::End::Limit:
        fail(tr("the radio link to the wrench %1 does not open").arg(m_bench.serialId),
             lines.isEmpty() ? tr("the dongle did not answer") : tr("the dongle said only %1").arg(quoted(lines)),
             tr("unplug the dongle, plug it in again and try once more"));
        break;
    case LineTalk::End::Answered:
        if (lines.constLast().startsWith(line_words::c_refused)) {
            fail(tr("the radio link to the wrench %1 is refused").arg(m_bench.serialId),
                 tr("the dongle said \"%1\"").arg(lines.constLast()),
                 tr("switch the wrench off and on, bring it near, and see that no other dongle is linked to it"));
        } else {
            fail(tr("the dongle has linked another wrench than %1").arg(m_bench.serialId),
                 tr("%1 was to be dialled, and the dongle said %2").arg(m_bench.address, quoted(echoes)),
                 tr("unplug the dongle, plug it in again and try once more"));
        }
        break;
    }
}
