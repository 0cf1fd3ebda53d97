#include "trace_table.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace {

constexpr int c_showEveryMs = 16;
constexpr qint64 c_usPerMs = 1000;
const char* const c_directionNames[] = {"sent", "arrived", "remark"}; // as in TraceEntry::Direction

} // namespace

TraceTable::TraceTable(const QString& folder, QObject* parent) : QAbstractListModel(parent), m_folder(folder)
{
    m_showTimer.setSingleShot(true);
    m_showTimer.setInterval(c_showEveryMs);
    connect(&m_showTimer, &QTimer::timeout, this, &TraceTable::showWaiting);
    connect(&m_feed, &TraceFeed::sigBegan, this, &TraceTable::begin);
    connect(&m_feed, &TraceFeed::sigEntry, this, &TraceTable::hear);
    connect(&m_feed, &TraceFeed::sigHearingChanged, this, &TraceTable::isHearingChanged);
}

void TraceTable::setOn(bool isOn)
{
    if (isOn != m_feed.isOn()) {
        m_feed.setOn(isOn);
        Q_EMIT isOnChanged();
    }
}

// ---- What is heard

/// Moments go on from trace to trace, so that what is saved is one.
void TraceTable::begin(const QByteArray& line)
{
    const QDateTime now =
        QDateTime::fromString(QString::fromUtf8(line.mid(line.lastIndexOf(' ') + 1)), Qt::ISODateWithMs);
    if (m_firstLine.isEmpty()) {
        m_firstLine = line;
        m_began = now;
    } else {
        m_offsetUs = std::max(m_lastMomentUs, m_began.msecsTo(now) * c_usPerMs);
        const QByteArray subject = line.mid(line.indexOf(',') + 2);
        keep({m_offsetUs, TraceEntry::Direction::Remark, "the trace of " + subject.left(subject.lastIndexOf(','))});
    }
}

void TraceTable::hear(const QByteArray& line)
{
    std::optional<TraceEntry> entry = TraceEntry::fromLine(line);
    if (entry) {
        entry->momentUs += m_offsetUs;
        keep(*entry);
    }
}

void TraceTable::keep(const TraceEntry& entry)
{
    m_lastMomentUs = entry.momentUs;
    m_waiting.append(entry);
    m_waiting.takeOldest(m_waiting.excess());
    if (m_isPaused) {
        Q_EMIT countsChanged();
    } else if (!m_showTimer.isActive()) {
        m_showTimer.start(); // one change of the view for all that comes within a frame
    }
}

void TraceTable::setPaused(bool isPaused)
{
    if (isPaused == m_isPaused) {
        return;
    }
    showWaiting(); // what came before the pause, or within it
    m_showTimer.stop();
    m_isPaused = isPaused;
    if (!m_isPaused) {
        showWaiting();
    }
    Q_EMIT isPausedChanged();
    Q_EMIT countsChanged();
}

void TraceTable::showWaiting()
{
    if (m_isPaused || m_waiting.isEmpty()) {
        return;
    }
    TraceStore waiting = std::exchange(m_waiting, {});
    std::deque<qint64> shown;
    const auto append = [this, &shown](const TraceEntry& entry) {
        if (passes(entry)) {
            shown.push_back(m_entries.taken() + m_entries.size());
        }
        m_entries.append(entry);
    };
    if (waiting.taken() > 0) {
        m_droppedWaiting += waiting.taken();
        append({waiting.entries().front().momentUs, TraceEntry::Direction::Remark,
                QByteArray::number(waiting.taken()) + " entries are missing here, too many came at once"});
    }
    for (const TraceEntry& entry : waiting.entries()) {
        append(entry);
    }
    if (!shown.empty()) {
        const int row = int(m_shown.size());
        beginInsertRows({}, row, row + int(shown.size()) - 1);
        m_shown.insert(m_shown.end(), shown.cbegin(), shown.cend());
        endInsertRows();
    }
    dropOldest();
    Q_EMIT countsChanged();
}

void TraceTable::dropOldest()
{
    const int excess = m_entries.excess();
    const auto firstKept = std::lower_bound(m_shown.cbegin(), m_shown.cend(), m_entries.taken() + excess);
    if (firstKept != m_shown.cbegin()) {
        beginRemoveRows({}, 0, int(firstKept - m_shown.cbegin()) - 1);
        m_shown.erase(m_shown.cbegin(), firstKept);
        endRemoveRows();
    }
    m_entries.takeOldest(excess); // views have looked at them until now
}

void TraceTable::clear()
{
    beginResetModel();
    m_entries = {};
    m_waiting = {};
    m_shown.clear();
    m_droppedWaiting = 0;
    endResetModel();
    Q_EMIT countsChanged();
}

// ---- What is shown

bool TraceTable::passes(const TraceEntry& entry) const
{
    return m_shows[int(entry.direction)] &&
           (m_filterText.isEmpty() || entry.shownText().contains(m_filterText, Qt::CaseInsensitive));
}

void TraceTable::setShows(TraceEntry::Direction direction, bool shows)
{
    if (m_shows[int(direction)] != shows) {
        m_shows[int(direction)] = shows;
        filterAnew();
    }
}

void TraceTable::setFilterText(const QString& text)
{
    if (text != m_filterText) {
        m_filterText = text;
        filterAnew();
    }
}

void TraceTable::filterAnew()
{
    beginResetModel();
    m_shown.clear();
    qint64 number = m_entries.taken();
    for (const TraceEntry& entry : m_entries.entries()) {
        if (passes(entry)) {
            m_shown.push_back(number);
        }
        ++number;
    }
    endResetModel();
    Q_EMIT filterChanged();
    Q_EMIT countsChanged();
}

int TraceTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : shown();
}

QVariant TraceTable::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    const TraceEntry& entry = m_entries.numbered(m_shown.at(std::size_t(index.row())));
    switch (role) {
    case Moment:
        return QString::fromLatin1(entry.seconds());
    case Direction:
        return QString::fromLatin1(c_directionNames[int(entry.direction)]);
    case Text:
        return entry.text.size() > c_mostShownCharacters
                   ? entry.shownText().left(c_mostShownCharacters) + QStringLiteral("…")
                   : entry.shownText();
    default:
        return {};
    }
}

QHash<int, QByteArray> TraceTable::roleNames() const
{
    return {{Moment, "moment"}, {Direction, "direction"}, {Text, "text"}};
}

// ---- What is saved

QString TraceTable::suggestedFile() const
{
    return QStringLiteral("trace-%1.txt").arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss")));
}

bool TraceTable::save(const QString& file)
{
    m_savedFile.clear();
    const QString path = QDir::cleanPath(QDir(m_folder).absoluteFilePath(file.trimmed()));
    const QFileInfo info(path);
    if (m_firstLine.isEmpty()) {
        return fail(tr("there is no trace to save"), tr("nothing was heard of the line yet"), {});
    }
    if (file.trimmed().isEmpty()) {
        return fail(tr("the trace is not saved"), tr("the file has no name"), tr("give it one"));
    }
    QDir().mkpath(info.absolutePath()); // when that fails, so does opening, which says why
    QFile output(path);
    const QByteArray bytes = trace();
    if (!output.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        return info.exists() ? fail(tr("the trace is not saved"), tr("there is a file %1 already").arg(path),
                                    tr("give it another name"))
                             : fail(tr("the trace is not saved"), tr("%1: %2").arg(path, output.errorString()),
                                    tr("name a file in a folder that you may write to"));
    }
    if (output.write(bytes) != bytes.size() || !output.flush()) {
        const QString cause = output.errorString();
        output.remove();
        return fail(tr("the trace is not saved"), tr("%1: %2").arg(path, cause),
                    tr("make room, or name another folder"));
    }
    m_savedFile = path;
    m_problem = {};
    Q_EMIT savedChanged();
    return true;
}

QByteArray TraceTable::trace() const
{
    QByteArray bytes = m_firstLine + '\n';
    const auto addDropped = [&bytes](const TraceStore& store) {
        if (store.taken() > 0) {
            const TraceEntry remark{store.entries().front().momentUs, TraceEntry::Direction::Remark,
                                    QByteArray::number(store.taken()) +
                                        " entries are missing here, they were too many"};
            bytes += remark.line() + '\n';
        }
    };
    for (const TraceStore* store : {&m_entries, &m_waiting}) {
        addDropped(*store);
        for (const TraceEntry& entry : store->entries()) {
            bytes += entry.line() + '\n';
        }
    }
    return bytes;
}

bool TraceTable::fail(const QString& what, const QString& cause, const QString& mend)
{
    m_problem = {Problem::Kind::SetUp, QStringLiteral("trace"), what, cause, mend};
    Q_EMIT savedChanged();
    return false;
}

void TraceTable::forgetProblem()
{
    m_problem = {};
    Q_EMIT savedChanged();
}
