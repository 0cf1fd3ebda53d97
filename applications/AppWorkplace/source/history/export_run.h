#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <optional>

#include "../services/problem.h"
#include "history_query.h"

class HistoryExport;
class HistoryStore;

/// Writes what a filter lets through into a file, a page in each turn of the event loop of the thread that it lives in.
/// The file is there, whole, when it is done; stopped or failed, there is none of it.
class ExportRun : public QObject
{
    Q_OBJECT

public:
    struct Order
    {
        QString folder; ///< of the history
        HistoryFilter filter;
        int last = 0;            ///< only so many results, the latest; 0: all
        QString file;            ///< its name ends with the format
        bool mayReplace = false; ///< one that is there
    };

    explicit ExportRun(const Order& order, QObject* parent = nullptr);
    ~ExportRun() override;

    /// A file of that name cannot be said how to be written.
    static std::optional<Problem> refusalOf(const QString& file);
    /// That refusal means that the file is there already.
    static bool isAboutReplacing(const Problem& problem);

    /// Ends with one of sigDone, sigStopped and sigFailed.
    void start();
    /// Ends it before the next page; nothing when it has ended.
    void stop();

Q_SIGNALS:
    /// Entries written, of those there are.
    void sigProgress(qint64 written, qint64 of);
    void sigDone(const HistoryTotals& totals);
    void sigStopped();
    void sigFailed(const Problem& problem);

private:
    std::optional<Problem> begin();
    std::optional<Problem> refusalToReplace() const;
    void nextPage();
    void later();
    /// True: there is none.
    bool passes(const std::optional<Problem>& problem);
    void close();

    const Order m_order;
    std::unique_ptr<HistoryStore> m_store;
    std::unique_ptr<HistoryQuery> m_query;
    std::unique_ptr<HistoryExport> m_export;
    std::optional<HistoryKey> m_behind; // what is read next begins behind it
    HistoryTotals m_totals;
    qint64 m_written = 0;
    bool m_hasEnded = false;
};
