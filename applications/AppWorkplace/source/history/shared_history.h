#pragma once

#include <QString>

#include <memory>
#include <optional>

#include "../services/problem.h"

class HistoryStore;

/// The history of one data folder, for all that record into it in this process: opened by the first of them, which
/// checks the whole file once, and closed by the last.
class SharedHistory
{
public:
    explicit SharedHistory(const QString& folder);

    /// Open for writing; null, with the problem, when it cannot be.
    std::shared_ptr<HistoryStore> open(std::optional<Problem>* problem);

private:
    const QString m_folder;
    std::weak_ptr<HistoryStore> m_store;
};
