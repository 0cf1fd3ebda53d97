#include "recent_results.h"

RecentResults::RecentResults(QObject* parent) : QAbstractListModel(parent) {}

void RecentResults::append(const Result& result)
{
    const bool isFull = m_results.size() >= c_mostResults;
    if (isFull) {
        beginRemoveRows({}, 0, 0);
        m_results.removeFirst();
        endRemoveRows();
    }
    beginInsertRows({}, m_results.size(), m_results.size());
    m_results.append(result);
    endInsertRows();
    if (!isFull) {
        Q_EMIT countChanged();
    }
}

void RecentResults::clear()
{
    if (!m_results.isEmpty()) {
        beginResetModel();
        m_results.clear();
        endResetModel();
        Q_EMIT countChanged();
    }
}

int RecentResults::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_results.size();
}

QVariant RecentResults::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const Result& result = m_results.at(index.row());
    switch (role) {
    case TorqueRole:
        return result.torque;
    case GoodRole:
        return result.isGood;
    case ArrivedRole:
        return result.arrived;
    default:
        return {};
    }
}

QHash<int, QByteArray> RecentResults::roleNames() const
{
    return {{TorqueRole, QByteArrayLiteral("torque")},
            {GoodRole, QByteArrayLiteral("isGood")},
            {ArrivedRole, QByteArrayLiteral("arrived")}};
}
