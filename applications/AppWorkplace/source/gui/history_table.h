#pragma once

#include <QAbstractListModel>
#include <QSet>
#include <QThread>
#include <QVariantMap>

#include <memory>
#include <optional>

#include "../services/problem.h"
#include "history_exporter.h"
#include "history_pages.h"
#include "history_period.h"
#include "history_reader.h"
#include "visible_rows.h"

class HistoryWatch;

/// The stored results, gaps and repeats that the filters let through, the newest first. It lives in the window's
/// thread and never reads there: rows are fetched in pages by a thread of its own, and until a page is there, its rows
/// are not loaded. So it costs the same memory and the same time whatever is stored.
class HistoryTable : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(HistoryPeriod* period READ period CONSTANT)
    Q_PROPERTY(QString wrench READ wrench WRITE setWrench NOTIFY sigFilterChanged)    ///< empty: any
    Q_PROPERTY(QString program READ program WRITE setProgram NOTIFY sigFilterChanged) ///< a number; empty: any
    Q_PROPERTY(QString verdict READ verdict WRITE setVerdict NOTIFY sigFilterChanged) ///< "ok", "nok"; empty: any
    Q_PROPERTY(bool isFiltered READ isFiltered NOTIFY sigFilterChanged)

    Q_PROPERTY(int count READ count NOTIFY sigChanged)
    Q_PROPERTY(int good READ good NOTIFY sigChanged)
    Q_PROPERTY(int notGood READ notGood NOTIFY sigChanged)
    Q_PROPERTY(int gaps READ gaps NOTIFY sigChanged)
    Q_PROPERTY(int repeats READ repeats NOTIFY sigChanged)
    Q_PROPERTY(QStringList wrenches READ wrenches NOTIFY sigChanged) ///< of all that is stored, in order
    Q_PROPERTY(QStringList programs READ programs NOTIFY sigChanged) ///< the same
    Q_PROPERTY(bool isReading READ isReading NOTIFY sigChanged)      ///< a list is being made
    Q_PROPERTY(bool isThere READ isThere NOTIFY sigChanged)          ///< there is a history, whatever is in it
    Q_PROPERTY(QString file READ file CONSTANT)
    Q_PROPERTY(bool hasProblem READ hasProblem NOTIFY sigChanged)
    Q_PROPERTY(QString problemWhat READ problemWhat NOTIFY sigChanged)
    Q_PROPERTY(QString problemCause READ problemCause NOTIFY sigChanged)
    Q_PROPERTY(QString problemMend READ problemMend NOTIFY sigChanged)

    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY sigShownChanged) ///< only then it follows what is stored
    Q_PROPERTY(VisibleRows* visibleRows READ visibleRows CONSTANT)
    Q_PROPERTY(HistoryExporter* exporter READ exporter CONSTANT)

public:
    enum Role {
        KindRole = Qt::UserRole + 1, ///< "kind": "result", "gap", "repeat"; empty while it is not loaded
        LoadedRole,                  ///< "isLoaded"
        ArrivedRole,                 ///< "arrived": date and time, as the language writes them
        WrenchRole,                  ///< "wrench"
        ProgramRole,                 ///< "program"
        TorqueRole,                  ///< "torque": as the language writes it; what is no number, as received
        UnitRole,                    ///< "unit": of the torque; empty: not known
        DirectionRole,               ///< "direction"
        AngleRole,                   ///< "angle"
        ReadingRole,                 ///< "reading": its number
        StatusRole,                  ///< "status": those of torque, angle and reading
        GoodRole,                    ///< "isGood"
        NoteRole,                    ///< "note": what a gap or a repeat says
        CellsRole ///< "cells": arrived, wrench, program, torque with unit, direction, angle, reading, status, isGood
                  ///< and its word; of a gap or a repeat the first two. A row is shown with one role, for each costs
    };

    /// folder: of the history.
    explicit HistoryTable(const QString& folder, QObject* parent = nullptr);
    ~HistoryTable() override;

    HistoryPeriod* period() const { return m_period; }
    QString wrench() const { return m_filter.serialId; }
    QString program() const { return m_filter.program ? QString::number(*m_filter.program) : QString(); }
    QString verdict() const;
    bool isFiltered() const;
    void setWrench(const QString& wrench);
    void setProgram(const QString& program);
    void setVerdict(const QString& verdict);
    /// All filters let everything through.
    Q_INVOKABLE void resetFilters();

    int count() const { return int(m_state.entries); }
    int good() const { return int(m_state.totals.good); }
    int notGood() const { return int(m_state.totals.notGood); }
    int gaps() const { return int(m_state.totals.gaps); }
    int repeats() const { return int(m_state.totals.repeats); }
    QStringList wrenches() const { return m_state.wrenches; }
    QStringList programs() const { return m_state.programs; }
    bool isReading() const { return m_isReading; }
    bool isThere() const { return m_state.isThere; }
    QString file() const { return m_file; }
    bool hasProblem() const { return m_problem.has_value(); }
    QString problemWhat() const { return m_problem ? m_problem->what : QString(); }
    QString problemCause() const { return m_problem ? m_problem->cause : QString(); }
    QString problemMend() const { return m_problem ? m_problem->mend : QString(); }

    bool isShown() const { return m_watch != nullptr; }
    void setShown(bool isShown);
    VisibleRows* visibleRows() const { return m_visibleRows; }
    HistoryExporter* exporter() const { return m_exporter; }

    /// Everything of one row, as an export writes it and docs/output.schema.json describes it; empty while it is not
    /// loaded.
    Q_INVOKABLE QVariantMap entry(int row) const;
    /// Something was stored, or may have been.
    Q_INVOKABLE void look();

    /// Shows everything as the language that is now in effect writes it.
    void retranslate();
    /// What was asked for has been read.
    bool isAtRest() const { return !m_isReading && m_asked.isEmpty() && m_wanted.isEmpty(); }
    /// So many pages of rows are in memory.
    int keptPages() const { return m_pages.count(); }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void sigFilterChanged();
    void sigChanged();
    void sigShownChanged();
    /// Rows have been read.
    void sigLoaded();

private:
    void list();
    void onListed(int number, const HistoryState& state);
    void onPage(int number, int page, const QVector<HistoryRecord>& records);
    void onStored(int number, const QVector<HistoryIndex::Insertion>& insertions, const HistoryState& state);
    void onFailed(int number, const Problem& problem);

    /// Of a role that only results have.
    static QVariant cell(const HistoryRecord& record, int role);
    static QVariantList cells(const HistoryRecord& record);
    int rowOf(qint64 number) const { return int(m_state.entries - 1 - number); }
    /// Null: it is fetched.
    const HistoryRecord* recordOf(int row) const;
    void want(int page) const;
    void ask() const;
    void wantNeighbours(int page);
    template <typename... Values>
    void hear(void (HistoryReader::*signal)(Values...), void (HistoryTable::*slot)(Values...));
    template <typename Work>
    void inReader(const Work& work) const;

    const QString m_file;
    HistoryPeriod* m_period;
    VisibleRows* m_visibleRows;
    HistoryExporter* m_exporter;
    Mailbox m_mailbox; // of the reader
    QThread m_thread;
    HistoryReader* m_reader; // lives in the thread
    std::unique_ptr<HistoryWatch> m_watch;

    HistoryFilter m_filter;
    int m_number = 0; // of the filter
    HistoryState m_state;
    std::optional<Problem> m_problem;
    bool m_isReading = false;
    bool m_hasBegun = false;

    // What a row needs is fetched when the row is asked for, and asking changes nothing else.
    mutable HistoryPages m_pages;
    mutable QVector<int> m_wanted; // pages, the one asked for last at the end
    mutable QSet<int> m_asked;     // pages that the reader is reading
};
