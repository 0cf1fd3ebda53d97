#include "recording.h"

#include "../services/workplace.h"

Recording::Recording(const Settings& settings)
    : m_device(settings.isSimulated() ? QStringLiteral("simulated") : settings.port)
    , m_isSimulated(settings.isSimulated())
    , m_store(Workplace::dataFolder(settings))
{}

std::optional<Problem> Recording::open(const QString& serialId, const QString& plugin)
{
    if (std::optional<Problem> problem = m_store.openToWrite()) {
        return problem;
    }
    m_recorder = std::make_unique<ResultRecorder>(m_store, ResultRecorder::Origin{serialId, m_device, plugin});
    // A simulated wrench is made anew for each command, and so is its count.
    return m_isSimulated ? std::nullopt : m_recorder->continueCount();
}
