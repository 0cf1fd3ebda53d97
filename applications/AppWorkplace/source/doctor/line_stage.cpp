#include "line_stage.h"

#include <algorithm>

#include "line_words.h"
#include "speed_trial.h"

namespace {
constexpr int c_answerLimitMs = 1500;
}

LineStage::LineStage(DoctorBench& bench)
    : DoctorStage({QStringLiteral("line"), tr("the line takes frames, and text comes back"),
                   tr("ATH and ATS to the dongle, which end an open link and begin a search")},
                  Problem::Kind::SetUp, bench)
{}

LineStage::~LineStage() = default;

void LineStage::start()
{
    m_bench.talk.forget();
    call(line_words::c_hangUp, &LineStage::callAgain);
}

void LineStage::stop()
{
    m_trial.reset();
    DoctorStage::stop();
}

// A dongle that keeps its link hands the hanging up to the wrench, which has no answer to it.
void LineStage::callAgain()
{
    call(line_words::c_scan, &LineStage::tryOtherSpeeds);
}

void LineStage::call(const QString& frame, void (LineStage::*otherwise)())
{
    m_bench.talk.ask(frame, limitMs(c_answerLimitMs), &line_words::isReadable, [this, otherwise](LineTalk::End end) {
        switch (end) {
        case LineTalk::End::Answered:
            pass(tr("text comes back"));
            break;
        case LineTalk::End::NotWritten:
            failUnwritten();
            break;
        case LineTalk::End::Limit:
            (this->*otherwise)();
            break;
        }
    });
}

void LineStage::tryOtherSpeeds()
{
    m_hasHeardGarbage = m_bench.talk.hasHeard();
    Q_EMIT sigNotice(m_hasHeardGarbage
                         ? tr("what comes back is no text; tries other speeds: %1").arg(SpeedTrial::speeds())
                         : tr("nothing comes back; tries other speeds: %1").arg(SpeedTrial::speeds()));
    m_trial = std::make_unique<SpeedTrial>(m_bench);
    connect(m_trial.get(), &SpeedTrial::sigEnded, this, &LineStage::trialEnded);
    m_trial->start();
}

void LineStage::trialEnded(int baud, const QStringList& lines)
{
    if (std::any_of(lines.cbegin(), lines.cend(), &line_words::isOfDongle)) {
        fail(tr("the dongle answers at another speed: %1").arg(baud), tr("it said %1 there").arg(quoted(lines)),
             tr("set \"baudRate\" in the configuration file: \"driver\": {\"baudRate\": %1}").arg(baud));
    } else if (baud > 0) {
        fail(tr("another device than a dongle answers, at another speed: %1").arg(baud),
             tr("it said %1 there").arg(quoted(lines)),
             tr("choose the dongle's port; \"app_workplace ports\" lists the ports"));
    } else if (m_hasHeardGarbage) {
        fail(tr("what comes back is no text, at none of the common speeds"),
             tr("the other end has another format, or the line is disturbed"),
             tr("set \"baudRate\", \"dataBits\", \"parity\" and \"stopBits\" in the configuration file to those of the "
                "dongle, and check the cable"));
    } else {
        fail(tr("nothing answers on the port"), tr("ATH and ATS were sent at each speed, and nothing came back"),
             tr("choose the dongle's port (\"app_workplace ports\" lists the ports), and check the dongle's power and "
                "cable"));
    }
}
