#include "recording.h"

#include "../services/workplace.h"
#include "history_store.h"
#include "shared_history.h"

Recording::Recording(const Settings& settings)
    : Recording(settings, std::make_shared<SharedHistory>(Workplace::dataFolder(settings)))
{}

Recording::Recording(const Settings& settings, std::shared_ptr<SharedHistory> history)
    : m_device(settings.isSimulated() ? QStringLiteral("simulated") : settings.port)
    , m_isSimulated(settings.isSimulated())
    , m_history(std::move(history))
{}

std::optional<Problem> Recording::open(const QString& serialId, const QString& plugin)
{
    std::optional<Problem> problem;
    m_store = m_history->open(&problem);
    if (problem) {
        return problem;
    }
    m_recorder = std::make_unique<ResultRecorder>(*m_store, ResultRecorder::Origin{serialId, m_device, plugin});
    // A simulated wrench is made anew for each command, and so is its count.
    return m_isSimulated ? std::nullopt : m_recorder->continueCount();
}
