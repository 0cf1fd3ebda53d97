#pragma once

#include <memory>
#include <optional>

#include "../services/problem.h"
#include "history_store.h"
#include "result_recorder.h"

struct Settings;

/// The history of this workplace, open for what one wrench delivers while a command of the program runs.
class Recording
{
public:
    explicit Recording(const Settings& settings);

    /// To be called once, before anything is begun. plugin: the name of the one that delivers the results.
    std::optional<Problem> open(const QString& serialId, const QString& plugin);

    /// After open().
    ResultRecorder& recorder() { return *m_recorder; }

private:
    const QString m_device; // the port, or "simulated"
    const bool m_isSimulated;
    HistoryStore m_store;
    std::unique_ptr<ResultRecorder> m_recorder;
};
