#pragma once

#include <QString>
#include <QStringList>

#include <optional>

#include "history_filter.h"

class QSqlQuery;

/// A filter in the words of SQL, so that each list is answered from an index and in its order.
class HistoryConditions
{
public:
    explicit HistoryConditions(const HistoryFilter& filter) : m_filter(filter) {}

    enum class Verdict { Good, NotGood, Note };

    /// Of entries with that verdict; a list is the union of these, each in the order of an index.
    QString of(Verdict verdict) const;
    /// Of all verdicts that the filter lets through.
    QStringList arms() const;
    /// The same without an index, for entries in the order of storing. isWithNotes: gaps and repeats whatever the
    /// program and the verdict.
    QString ofStored(bool isWithNotes) const;

    /// To be added to the condition of a list that begins behind a key.
    static QString behind(const std::optional<HistoryKey>& key);
    /// The same for one that ends before a key.
    static QString before(const std::optional<HistoryKey>& key);

    /// Puts the values in their places. behind, before: of the list.
    void bind(QSqlQuery& query, const std::optional<HistoryKey>& behind,
              const std::optional<HistoryKey>& before = std::nullopt) const;

private:
    const HistoryFilter m_filter;
};
