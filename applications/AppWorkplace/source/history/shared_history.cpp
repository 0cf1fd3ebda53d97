#include "shared_history.h"

#include "history_store.h"

SharedHistory::SharedHistory(const QString& folder) : m_folder(folder) {}

std::shared_ptr<HistoryStore> SharedHistory::open(std::optional<Problem>* problem)
{
    std::shared_ptr<HistoryStore> store = m_store.lock();
    if (store == nullptr) {
        store = std::make_shared<HistoryStore>(m_folder);
        *problem = store->openToWrite();
        if (*problem) {
            return nullptr;
        }
        m_store = store;
    }
    return store;
}
