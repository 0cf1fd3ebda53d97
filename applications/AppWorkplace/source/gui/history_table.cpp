#include "history_table.h"

#include <algorithm>
#include <tuple>
#include <type_traits>

#include "../history/history_format.h"
#include "../history/history_note.h"
#include "../history/history_watch.h"
#include "history_row.h"

namespace {

// Pages that are asked for at a time; what is asked for last is seen, so it has to wait for few others only.
constexpr int c_mostAsked = 2;
// A view shows rows of two pages; others were passed by.
constexpr int c_mostWanted = 6;

const QString c_ok = QStringLiteral("ok");
const QString c_notOk = QStringLiteral("nok");

} // namespace

HistoryTable::HistoryTable(const QString& folder, QObject* parent)
    : QAbstractListModel(parent)
    , m_file(HistoryStore::fileIn(folder))
    , m_period(new HistoryPeriod(this))
    , m_visibleRows(new VisibleRows(this, this))
    , m_exporter(new HistoryExporter(folder, this))
    , m_reader(new HistoryReader(folder))
{
    m_thread.setObjectName(QStringLiteral("history"));
    m_reader->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_reader, &QObject::deleteLater);
    hear(&HistoryReader::sigListed, &HistoryTable::onListed);
    hear(&HistoryReader::sigPage, &HistoryTable::onPage);
    hear(&HistoryReader::sigStored, &HistoryTable::onStored);
    hear(&HistoryReader::sigFailed, &HistoryTable::onFailed);
    connect(m_period, &HistoryPeriod::sigChanged, this, &HistoryTable::list);
}

/// What the reader tells in its thread is done in this one.
template <typename... Values>
void HistoryTable::hear(void (HistoryReader::*signal)(Values...), void (HistoryTable::*slot)(Values...))
{
    connect(
        m_reader, signal, this,
        [this, slot](Values... values) {
            m_mailbox.post([this, slot, told = std::tuple<std::decay_t<Values>...>(values...)] {
                std::apply([this, slot](const auto&... each) { (this->*slot)(each...); }, told);
            });
        },
        Qt::DirectConnection);
}

HistoryTable::~HistoryTable()
{
    m_thread.quit();
    m_thread.wait();
    if (!m_hasBegun) {
        delete m_reader; // its thread has never run
    }
}

QString HistoryTable::verdict() const
{
    return m_filter.isGood ? (*m_filter.isGood ? c_ok : c_notOk) : QString();
}

bool HistoryTable::isFiltered() const
{
    return m_filter.sinceUs || m_filter.untilUs || m_filter.program || m_filter.isGood || !m_filter.serialId.isEmpty();
}

void HistoryTable::setWrench(const QString& wrench)
{
    if (wrench != m_filter.serialId) {
        m_filter.serialId = wrench;
        list();
    }
}

void HistoryTable::setProgram(const QString& program)
{
    bool isNumber = false;
    const int number = program.toInt(&isNumber);
    const std::optional<int> wanted = isNumber ? std::optional<int>(number) : std::nullopt;
    if (wanted != m_filter.program) {
        m_filter.program = wanted;
        list();
    }
}

void HistoryTable::setVerdict(const QString& verdict)
{
    const std::optional<bool> wanted =
        verdict == c_ok || verdict == c_notOk ? std::optional<bool>(verdict == c_ok) : std::nullopt;
    if (wanted != m_filter.isGood) {
        m_filter.isGood = wanted;
        list();
    }
}

void HistoryTable::resetFilters()
{
    m_filter = {};
    m_period->setKind(HistoryPeriod::Kind::All);
    list();
}

void HistoryTable::setShown(bool isShown)
{
    if (isShown == this->isShown()) {
        return;
    }
    if (isShown) {
        m_watch = std::make_unique<HistoryWatch>(m_file, HistoryWatch::Between::Resting);
        connect(m_watch.get(), &HistoryWatch::sigLook, this, &HistoryTable::look);
        look();
    } else {
        m_watch.reset();
    }
    Q_EMIT sigShownChanged();
}

void HistoryTable::look()
{
    if (!m_hasBegun) {
        list();
    } else if (!m_isReading) {
        inReader([](HistoryReader* reader) { reader->look(); });
    }
}

void HistoryTable::retranslate()
{
    if (count() > 0) {
        Q_EMIT dataChanged(index(0), index(count() - 1));
    }
}

QVariantMap HistoryTable::entry(int row) const
{
    const HistoryRecord* record = recordOf(row);
    return record == nullptr ? QVariantMap() : history_format::toJson(*record).toVariantMap();
}

int HistoryTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant HistoryTable::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const HistoryRecord* record = recordOf(index.row());
    if (record == nullptr) {
        return role == LoadedRole || role == GoodRole     ? QVariant(false)
               : role > Qt::UserRole && role != CellsRole ? QVariant(QString())
                                                          : QVariant();
    }
    const bool isResult = record->kind == HistoryRecord::Kind::Result;
    switch (role) {
    case KindRole:
        return history_format::nameOf(record->kind);
    case LoadedRole:
        return true;
    case Qt::DisplayRole:
    case ArrivedRole:
        return history_row::arrived(*record);
    case WrenchRole:
        return record->serialId;
    case GoodRole:
        return record->isGood;
    case CellsRole:
        return cells(*record);
    case NoteRole:
        return isResult ? QString() : historyNoteText(*record);
    default:
        return isResult || role <= Qt::UserRole ? cell(*record, role) : QVariant(QString());
    }
}

QVariant HistoryTable::cell(const HistoryRecord& record, int role)
{
    switch (role) {
    case ProgramRole:
        return history_row::number(record, HistoryRecord::ProgId);
    case TorqueRole:
        return history_row::number(record, HistoryRecord::ConvertedTorque);
    case UnitRole:
        return history_row::unit(record);
    case DirectionRole:
        return history_row::number(record, HistoryRecord::Direction);
    case AngleRole:
        return history_row::number(record, HistoryRecord::SnugTorqueAngle);
    case ReadingRole:
        return history_row::number(record, HistoryRecord::ReadingNumber);
    case StatusRole:
        return history_row::status(record);
    default:
        return {};
    }
}

QVariantList HistoryTable::cells(const HistoryRecord& record)
{
    QVariantList cells{history_row::arrived(record), record.serialId};
    if (record.kind == HistoryRecord::Kind::Result) {
        const QString torque =
            QStringLiteral("%1 %2").arg(cell(record, TorqueRole).toString(), history_row::unit(record));
        cells << cell(record, ProgramRole) << torque.trimmed();
        for (const int role : {DirectionRole, AngleRole, ReadingRole, StatusRole}) {
            cells.append(cell(record, role));
        }
        cells.append(record.isGood);
        cells.append(record.isGood ? tr("good") : tr("not good"));
    }
    return cells;
}

QHash<int, QByteArray> HistoryTable::roleNames() const
{
    return {{KindRole, "kind"},       {LoadedRole, "isLoaded"}, {ArrivedRole, "arrived"}, {WrenchRole, "wrench"},
            {ProgramRole, "program"}, {TorqueRole, "torque"},   {UnitRole, "unit"},       {DirectionRole, "direction"},
            {AngleRole, "angle"},     {ReadingRole, "reading"}, {StatusRole, "status"},   {GoodRole, "isGood"},
            {NoteRole, "note"},       {CellsRole, "cells"}};
}

// Of a change of several things at once one list is made.
void HistoryTable::list()
{
    m_filter.sinceUs = m_period->sinceUs();
    m_filter.untilUs = m_period->untilUs();
    m_exporter->setFilter(m_filter);
    ++m_number;
    m_isReading = true;
    m_wanted.clear();
    m_asked.clear();
    if (!m_hasBegun) {
        m_hasBegun = true;
        m_thread.start();
    }
    inReader([number = m_number, filter = m_filter](HistoryReader* reader) { reader->list(number, filter); });
    Q_EMIT sigFilterChanged();
    Q_EMIT sigChanged();
}

void HistoryTable::onListed(int number, const HistoryState& state)
{
    if (number != m_number) {
        return;
    }
    // Nothing of nothing: a watcher that looks for a first history.
    if (!m_isReading && state.entries == 0 && m_state.entries == 0 && !m_problem) {
        m_state = state;
        Q_EMIT sigChanged();
        return;
    }
    beginResetModel();
    m_pages.clear();
    m_wanted.clear();
    m_asked.clear();
    m_state = state;
    m_problem.reset();
    m_isReading = false;
    endResetModel();
    Q_EMIT sigChanged();
}

void HistoryTable::onPage(int number, int page, const QVector<HistoryRecord>& records)
{
    if (number != m_number || m_isReading) {
        return;
    }
    const bool wasSeen = m_asked.remove(page);
    m_pages.put(page, records);
    if (!records.isEmpty()) {
        const qint64 oldest = qint64(page) * HistoryIndex::c_page;
        const int last = rowOf(oldest);
        const int first = std::max(0, rowOf(oldest + records.size() - 1));
        Q_EMIT dataChanged(index(first), index(last));
        Q_EMIT sigLoaded();
    }
    if (wasSeen) {
        wantNeighbours(page);
    }
    ask();
}

void HistoryTable::onStored(int number, const QVector<HistoryIndex::Insertion>& insertions, const HistoryState& state)
{
    if (number != m_number || m_isReading) {
        return;
    }
    // Those that follow one another are inserted together, the older ones first.
    for (int i = 0; i < insertions.size();) {
        int end = i + 1;
        while (end < insertions.size() && insertions.at(end).number == insertions.at(end - 1).number + 1) {
            ++end;
        }
        const int row = int(m_state.entries - insertions.at(i).number);
        beginInsertRows({}, row, row + end - i - 1);
        for (; i < end; ++i) {
            m_pages.insert(insertions.at(i), m_state.entries++);
        }
        endInsertRows();
    }
    m_state = state;
    Q_EMIT sigChanged();
}

void HistoryTable::onFailed(int number, const Problem& problem)
{
    if (number != m_number) {
        return;
    }
    beginResetModel();
    m_pages.clear();
    m_wanted.clear();
    m_asked.clear();
    m_state = {};
    m_problem = problem;
    m_isReading = false;
    endResetModel();
    Q_EMIT sigChanged();
}

const HistoryRecord* HistoryTable::recordOf(int row) const
{
    if (row < 0 || row >= count()) {
        return nullptr;
    }
    const qint64 number = m_state.entries - 1 - row;
    const HistoryRecord* record = m_pages.at(number);
    if (record == nullptr) {
        want(HistoryPages::pageOf(number));
    }
    return record;
}

void HistoryTable::want(int page) const
{
    if (m_isReading || m_asked.contains(page) || (!m_wanted.isEmpty() && m_wanted.constLast() == page)) {
        return;
    }
    m_wanted.removeOne(page);
    m_wanted.append(page);
    while (m_wanted.size() > c_mostWanted) {
        m_wanted.removeFirst();
    }
    ask();
}

void HistoryTable::ask() const
{
    while (!m_wanted.isEmpty() && m_asked.size() < c_mostAsked) {
        const int page = m_wanted.takeLast();
        m_asked.insert(page);
        inReader([page](HistoryReader* reader) { reader->read(page); });
    }
}

// Who scrolls on finds them there.
void HistoryTable::wantNeighbours(int page)
{
    for (const int next : {page + 1, page - 1}) {
        const bool isThere = next >= 0 && qint64(next) * HistoryIndex::c_page < m_state.entries;
        if (isThere && !m_pages.has(next) && !m_asked.contains(next) && !m_wanted.contains(next)) {
            m_wanted.prepend(next);
        }
    }
}

template <typename Work>
void HistoryTable::inReader(const Work& work) const
{
    m_reader->post([reader = m_reader, work] { work(reader); });
}
