#include "visible_rows.h"

#include <algorithm>

VisibleRows::VisibleRows(QAbstractItemModel* source, QObject* parent) : QAbstractListModel(parent), m_source(source)
{
    connect(source, &QAbstractItemModel::dataChanged, this, &VisibleRows::onSourceChanged);
    connect(source, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex&, int from, int to) {
        Q_EMIT sigCountChanged();
        Q_EMIT inserted(from, to - from + 1);
        changeAll();
    });
    connect(source, &QAbstractItemModel::rowsRemoved, this, [this] {
        Q_EMIT sigCountChanged();
        changeAll();
    });
    connect(source, &QAbstractItemModel::modelReset, this, [this] {
        Q_EMIT sigCountChanged();
        Q_EMIT restarted();
        changeAll();
    });
}

void VisibleRows::setFirst(int first)
{
    const int before = m_first;
    first = std::max(0, first);
    if (first == before) {
        return;
    }
    m_first = first;
    if (m_size > 0) {
        const int changed = std::min(m_size, std::abs(first - before));
        if (changed == m_size) {
            changeAll();
        } else {
            // The rows that have gone out of sight are now those that have come into it.
            const int from = first > before ? before : first;
            for (int i = 0; i < changed; ++i) {
                const QModelIndex place = index((from + i) % m_size);
                Q_EMIT dataChanged(place, place);
            }
        }
    }
    Q_EMIT sigMoved();
}

void VisibleRows::setSize(int size)
{
    size = std::max(0, size);
    if (size == m_size) {
        return;
    }
    if (size > m_size) {
        beginInsertRows({}, m_size, size - 1);
        m_size = size;
        endInsertRows();
    } else {
        beginRemoveRows({}, size, m_size - 1);
        m_size = size;
        endRemoveRows();
    }
    changeAll();
    Q_EMIT sigSizeChanged();
}

int VisibleRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_size;
}

QVariant VisibleRows::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const int row = sourceRowOf(index.row());
    if (role == c_sourceRowRole) {
        return row;
    }
    return row < 0 ? QVariant() : m_source->data(m_source->index(row, 0), role);
}

QHash<int, QByteArray> VisibleRows::roleNames() const
{
    QHash<int, QByteArray> names = m_source == nullptr ? QHash<int, QByteArray>() : m_source->roleNames();
    names.insert(c_sourceRowRole, "sourceRow");
    return names;
}

int VisibleRows::sourceRowOf(int row) const
{
    const int shift = (row - m_first % m_size + m_size) % m_size;
    const int found = m_first + shift;
    return found < count() ? found : -1;
}

void VisibleRows::onSourceChanged(const QModelIndex& from, const QModelIndex& to)
{
    const int begin = std::max(from.row(), m_first);
    const int end = std::min(to.row(), m_first + m_size - 1);
    for (int row = begin; row <= end; ++row) {
        const QModelIndex place = index(row % m_size);
        Q_EMIT dataChanged(place, place);
    }
}

void VisibleRows::changeAll()
{
    if (m_size > 0) {
        Q_EMIT dataChanged(index(0), index(m_size - 1));
    }
}
