#pragma once

#include <memory>
#include <optional>

#include "../services/problem.h"
#include "result_recorder.h"

class HistoryStore;
class SharedHistory;
struct Settings;

/// The history of this workplace, open for what one wrench delivers while a session runs.
class Recording
{
public:
    /// Records into the settings' data folder, alone in this process.
    explicit Recording(const Settings& settings);
    /// Together with others.
    Recording(const Settings& settings, std::shared_ptr<SharedHistory> history);

    /// To be called once, before anything is begun. plugin: the name of the one that delivers the results.
    std::optional<Problem> open(const QString& serialId, const QString& plugin);

    /// After open().
    ResultRecorder& recorder() { return *m_recorder; }

private:
    const QString m_device; // the port, or "simulated"
    const bool m_isSimulated;
    const std::shared_ptr<SharedHistory> m_history;
    std::shared_ptr<HistoryStore> m_store;
    std::unique_ptr<ResultRecorder> m_recorder;
};
