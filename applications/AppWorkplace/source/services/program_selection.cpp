#include "program_selection.h"

#include <lib_plugins_management/d_abstract_plugin.h>

#include <utility>

#include "line_observer.h"

namespace {

constexpr qint64 c_microsecondsPerMillisecond = 1000;
constexpr int c_noProgram = 0; // wrenches count theirs from 1

const QString c_refusalPrefix = QStringLiteral("ERR");
const QString c_busyRefusal = QStringLiteral("ERR:5"); // a tightening is going on
const QString c_progId = QStringLiteral("progId");
const QString c_currentProgram = QStringLiteral("currentProgId");
const QString c_setProgram = QStringLiteral("setProgram");

} // namespace

ProgramSelection::ProgramSelection(const LinkedDevice& wrench, const LineObserver& observer, QObject* parent)
    : QObject(parent), m_wrench(wrench), m_observer(observer), m_run(wrench, observer)
{
    connect(&observer, &LineObserver::sigLineHeard, this,
            [this](const QByteArray& line) { lineHeard(QString::fromUtf8(line).trimmed()); });
    connect(&m_run, &DeviceRun::sigFailed, this, &ProgramSelection::sigFailed);
    connect(&m_run, &DeviceRun::sigUnusable, this, &ProgramSelection::sigUnusable);
}

ProgramSelection::~ProgramSelection()
{
    m_wrench.clock.cancel(m_retry);
}

void ProgramSelection::start(int program, int limitMs)
{
    m_program = program;
    m_limitMs = limitMs;
    m_startUs = m_wrench.clock.nowUs();
    goThere();
}

void ProgramSelection::stop()
{
    m_wrench.clock.cancel(std::exchange(m_retry, 0));
    m_run.stop();
}

// Asked for the program that it believes current, the plugin leaves the wrench alone. What it believes is what was
// asked for last, or the end of its walk through the list, and the wrench may stand elsewhere: at its first program
// after that walk, at any after it was switched off and on. Asked for a program that no wrench has, the plugin says no,
// sends nothing, and believes nothing any more; so the next one it goes to.
void ProgramSelection::goThere()
{
    if (m_wrench.device.getProperty(c_currentProgram, QVariant(c_noProgram)).toInt() == m_program) {
        m_run.start(c_setProgram, {{c_progId, c_noProgram}}, m_limitMs, [this](const auto&) { goThereForSure(); });
    } else {
        goThereForSure();
    }
}

void ProgramSelection::goThereForSure()
{
    m_run.start(c_setProgram, {{c_progId, m_program}}, m_limitMs,
                [this](const DeviceRun::Results& results) { ended(results); });
}

void ProgramSelection::ended(const DeviceRun::Results& results)
{
    if (results.value(QStringLiteral("cmd_success")).toBool()) {
        Q_EMIT sigDone(m_program, results.value(QStringLiteral("presetData")).toMap());
    } else {
        Q_EMIT sigNoSuchProgram();
    }
}

// The plugin takes no notice of a refusal there and would wait for its time limit.
void ProgramSelection::lineHeard(const QString& line)
{
    if (!m_run.isRunning() || !line.startsWith(c_refusalPrefix)) {
        return;
    }
    m_run.stop();
    const qint64 elapsedMs = (m_wrench.clock.nowUs() - m_startUs) / c_microsecondsPerMillisecond;
    if (line == c_busyRefusal && elapsedMs + c_busyPauseMs < m_limitMs) {
        m_retry = m_wrench.clock.callAfter(c_busyPauseMs, [this] {
            m_retry = 0;
            goThere();
        });
    } else {
        Q_EMIT sigFailed(m_observer.refusalOr(line));
    }
}
