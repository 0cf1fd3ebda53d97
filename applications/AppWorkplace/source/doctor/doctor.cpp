#include "doctor.h"

#include <utility>

#include <lib_plugins_management/host/d_host.h>

#include "../services/line_end.h"

namespace {

constexpr qint64 c_usPerMs = 1000;
constexpr char c_lineError[] = "lineError"; // a property of the driver

const QString c_endName = QStringLiteral("end"); // what comes behind the stages

} // namespace

Doctor::Doctor(DoctorBench& bench, Stages stages, QObject* parent)
    : QObject(parent), m_bench(bench), m_stages(std::move(stages))
{
    connect(&m_bench.host, &DHost::sigPropertyChanged, this,
            [this](const DAbstractPlugin* plugin, const QString& name) {
                if (plugin == m_bench.driver) {
                    driverChanged(name);
                }
            });
    connect(&m_bench.talk, &LineTalk::sigWrenchHeard, this,
            [this](const QString& address, const QString& serialId, const QString& signalStrength) {
                m_bench.heard.add(address, serialId, signalStrength);
            });
    for (const std::unique_ptr<DoctorStage>& stage : m_stages) {
        connect(stage.get(), &DoctorStage::sigEnded, this, &Doctor::stageEnded);
        connect(stage.get(), &DoctorStage::sigNotice, this,
                [this](const QString& text) { Q_EMIT sigNotice(current().text().name, text); });
    }
}

Doctor::~Doctor() = default;

void Doctor::start()
{
    startNext();
}

void Doctor::startNext()
{
    if (m_isEnding) {
        return;
    }
    if (m_current == m_stages.size()) {
        end();
        return;
    }
    m_isRunning = true;
    m_stageStartUs = m_bench.clock.nowUs();
    Q_EMIT sigStageStarted(current().text());
    current().start();
}

void Doctor::stageEnded(const DoctorFinding& finding)
{
    if (!m_isRunning) {
        return;
    }
    m_isRunning = false;
    const QString name = current().text().name;
    tell(finding);
    if (finding.outcome == DoctorFinding::Outcome::Failed) {
        m_summary.exitStatus = finding.problem.exitStatus();
        skipRest(tr("\"%1\" has failed").arg(name));
        end();
        return;
    }
    // From a later turn: the stage may be telling us of its end from inside its start.
    QMetaObject::invokeMethod(this, &Doctor::startNext, Qt::QueuedConnection);
}

void Doctor::tell(const DoctorFinding& finding)
{
    switch (finding.outcome) {
    case DoctorFinding::Outcome::Passed:
        ++m_summary.passed;
        break;
    case DoctorFinding::Outcome::Failed:
        ++m_summary.failed;
        break;
    case DoctorFinding::Outcome::Skipped:
        ++m_summary.skipped;
        break;
    }
    const DoctorStage& told = current();
    ++m_current;
    Q_EMIT sigStageEnded(told.text(), finding, (m_bench.clock.nowUs() - m_stageStartUs) / c_usPerMs);
}

void Doctor::skipRest(const QString& reason)
{
    m_stageStartUs = m_bench.clock.nowUs();
    while (m_current < m_stages.size()) {
        tell({DoctorFinding::Outcome::Skipped, reason, {}});
    }
}

void Doctor::interrupt()
{
    if (m_isEnding) {
        return;
    }
    if (std::exchange(m_isRunning, false)) {
        current().stop();
    }
    m_summary.isInterrupted = true;
    m_summary.exitStatus = int(Problem::Kind::Device);
    skipRest(tr("interrupted"));
    end();
}

void Doctor::fail(const Problem& problem)
{
    if (!m_isRunning) {
        if (!m_isEnding && m_current < m_stages.size()) { // between two stages: it is the next one's
            m_isRunning = true;
            m_stageStartUs = m_bench.clock.nowUs();
            Q_EMIT sigStageStarted(current().text());
        } else {
            return; // what is left to be done fails by itself
        }
    } else {
        current().stop();
    }
    Problem told = problem;
    told.step = current().text().name;
    stageEnded({DoctorFinding::Outcome::Failed, told.what, told});
}

void Doctor::driverChanged(const QString& property)
{
    const QString error = m_bench.driver->getProperty(QLatin1String(c_lineError), QVariant()).toString();
    if (property == QLatin1String(c_lineError) && !error.isEmpty() && !m_isEnding &&
        !(m_isRunning && current().standsALineError())) {
        fail({Problem::Kind::SetUp, {}, tr("the port cannot be used"), error, {}});
    }
}

void Doctor::end()
{
    m_isEnding = true;
    // From a later turn: whatever has ended it is still telling us.
    QMetaObject::invokeMethod(this, &Doctor::putLockBack, Qt::QueuedConnection);
}

void Doctor::putLockBack()
{
    for (const std::unique_ptr<DoctorStage>& stage : m_stages) {
        stage->stop(); // what the one that ended it has left running
    }
    if (m_bench.lock.hasToBePutBack()) {
        Q_EMIT sigNotice(c_endName, m_bench.lock.wasLocked()
                                        ? tr("locks the wrench again, as it was found (DT:1)")
                                        : tr("leaves the wrench unlocked, as it was found (DT:0)"));
    }
    m_bench.lock.putBack([this](const QString& cause) {
        if (!cause.isEmpty()) {
            if (m_summary.exitStatus == 0) {
                m_summary.exitStatus = int(Problem::Kind::Device);
            }
            ++m_summary.failed;
            Q_EMIT sigFailed({Problem::Kind::Device, c_endName,
                              m_bench.lock.wasLocked() ? tr("the wrench could not be locked again, as it was found")
                                                       : tr("the wrench could not be left unlocked, as it was found"),
                              cause,
                              QStringLiteral("app_workplace run --port %1 --serial-id %2 --connect setLock lock=%3")
                                  .arg(m_bench.order.port, m_bench.serialId,
                                       m_bench.lock.wasLocked() ? QStringLiteral("true") : QStringLiteral("false"))});
        }
        closeLine();
    });
}

void Doctor::closeLine()
{
    if (const int results = m_bench.talk.resultsHeard()) { // the wrench does not tell them again
        Q_EMIT sigNotice(c_endName, tr("tightening results that have come meanwhile, and are not stored: %1; a session "
                                       "stores what comes")
                                        .arg(results));
    }
    m_bench.talk.close();
    if (m_bench.driver == nullptr || m_bench.device == nullptr) {
        Q_EMIT sigFinished(m_summary);
        return;
    }
    m_lineEnd = std::make_unique<LineEnd>(LinkedDevice{m_bench.host, m_bench.clock, *m_bench.device, *m_bench.driver});
    connect(m_lineEnd.get(), &LineEnd::sigClosed, this, [this] { Q_EMIT sigFinished(m_summary); });
    if (m_bench.talk.hasSpoken()) {
        m_lineEnd->hangUpAndClose();
    } else {
        m_lineEnd->close();
    }
}
