#include "programs_stage.h"

#include <lib_plugins_management/host/d_host.h>

#include "line_words.h"

namespace {
constexpr int c_listLimitMs = 20000;
const QString c_listCommand = QStringLiteral("listProgram");
} // namespace

ProgramsStage::ProgramsStage(DoctorBench& bench)
    : DoctorStage({QStringLiteral("programs"), tr("the programs of the wrench can be read"),
                   tr("IDLE, TR:C and TR:N to the wrench: its first program is the current one afterwards")},
                  Problem::Kind::Device, bench)
{}

void ProgramsStage::start()
{
    m_bench.talk.forget();
    m_run = m_bench.host.createOrder(*m_bench.device, c_listCommand);
    if (m_run == nullptr) {
        failSetUp(tr("the device plugin has no command \"%1\"").arg(c_listCommand), {},
                  tr("name another folder with --plugins"));
        return;
    }
    connect(m_run.get(), &DOrder::sigFinished, this, [this] {
        const std::unique_ptr<DOrder, void (*)(DOrder*)> ended(m_run.release(),
                                                               [](DOrder* order) { order->deleteLater(); });
        judge(*ended);
    });
    m_run->start(limitMs(c_listLimitMs));
}

void ProgramsStage::stop()
{
    m_run.reset();
    DoctorStage::stop();
}

void ProgramsStage::judge(const DOrder& run)
{
    switch (run.outcome()) {
    case DOrder::Outcome::Finished: {
        // A walk that the wrench has refused on the way ends with what there is.
        const int programs = run.results().value(QStringLiteral("programList")).toList().size();
        const QStringList& lines = m_bench.talk.lines();
        if (programs > 0 && !(lines.isEmpty() ? QString() : lines.constLast()).startsWith(line_words::c_refused)) {
            pass(programs == 1 ? tr("1 program") : tr("%1 programs").arg(programs));
        } else {
            failUnread(programs);
        }
        break;
    }
    case DOrder::Outcome::TimedOut:
        failUnread(0);
        break;
    default:
        failSetUp(tr("the device plugin refuses to read the programs"), {}, tr("name another folder with --plugins"));
        break;
    }
}

void ProgramsStage::failUnread(int programsRead)
{
    const QStringList& lines = m_bench.talk.lines();
    const QString last = lines.isEmpty() ? QString() : lines.constLast();
    const QString cause =
        last.isEmpty() ? tr("the wrench did not answer") : tr("the last that was said is \"%1\"").arg(last);
    if (last == line_words::c_tightening) {
        fail(tr("the programs cannot be read while a tightening is running"), cause,
             tr("finish the tightening, or wait until it is over, and try again"));
    } else if (programsRead > 0) {
        fail(tr("the programs could be read only in part: %1").arg(programsRead), cause,
             tr("bring the wrench nearer and try again"));
    } else {
        fail(tr("the programs of the wrench cannot be read"), cause,
             tr("bring the wrench nearer and try again; see that the wrench holds a program"));
    }
}
