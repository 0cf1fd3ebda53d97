#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QList>
#include <QQmlEngine>
#include <QSharedPointer>
#include <QVariant>

namespace __qobjectsqmllist { // NOLINT(bugprone-reserved-identifier): the name that the host's libraries know it by

/// A list of shared objects as a list model for QML: each object under the role "modelData", and under further roles
/// properties of the objects, by their names. What moc needs (signals, invokable methods, properties) a template cannot
/// have: the class derived from it declares them.
///
/// The owner works on objects() directly, between beginResetModel() and endResetModel().
template <class T>
class QObjectListModelBase : public QAbstractListModel
{
public:
    using Object = QSharedPointer<T>;

    explicit QObjectListModelBase(QObject* parent = nullptr, const QList<QByteArray>& extraRoles = {})
        : QAbstractListModel(parent), m_extraRoles(extraRoles)
    {}

    using QAbstractListModel::beginResetModel;
    using QAbstractListModel::endResetModel;

    QList<Object>& objects() { return m_objects; }
    const QList<Object>& objects() const { return m_objects; }
    int count() const { return m_objects.size(); }
    bool hasNoObjects() const { return m_objects.isEmpty(); }

    /// Null when there is no such row.
    Object at(int index) const { return isRow(index) ? m_objects.at(index) : Object(); }

    void append(const Object& object)
    {
        beginInsertRows(QModelIndex(), count(), count());
        m_objects.append(object);
        endInsertRows();
    }

    /// False when there is no such row.
    bool removeAt(int index)
    {
        if (!isRow(index)) {
            return false;
        }
        beginRemoveRows(QModelIndex(), index, index);
        m_objects.removeAt(index);
        endRemoveRows();
        return true;
    }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override { return parent.isValid() ? 0 : count(); }

    QVariant data(const QModelIndex& index, int role) const override
    {
        const Object object = at(index.row());
        if (object.isNull()) {
            return {};
        }
        if (role == Qt::UserRole) {
            return QVariant::fromValue<QObject*>(object.data());
        }
        const int extra = role - c_firstExtraRole;
        return extra >= 0 && extra < m_extraRoles.size() ? object->property(m_extraRoles.at(extra)) : QVariant();
    }

    QHash<int, QByteArray> roleNames() const override
    {
        QHash<int, QByteArray> names = QAbstractListModel::roleNames();
        names.insert(Qt::UserRole, QByteArrayLiteral("modelData"));
        for (int i = 0; i < m_extraRoles.size(); ++i) {
            names.insert(c_firstExtraRole + i, m_extraRoles.at(i));
        }
        return names;
    }

    /// The name of the extra role at that section.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        Q_UNUSED(role)
        const bool isThere = section >= 0 && section < m_extraRoles.size();
        if (hasNoObjects() || orientation != Qt::Horizontal || !isThere) {
            return {};
        }
        return QString::fromUtf8(m_extraRoles.at(section));
    }

protected:
    /// A pointer to the object for QML, which must never delete it; invalid when there is no such row.
    QVariant objectForQml(int index) const
    {
        const Object object = at(index);
        if (object.isNull()) {
            return {};
        }
        QQmlEngine::setObjectOwnership(object.data(), QQmlEngine::CppOwnership);
        return QVariant::fromValue(object.data());
    }

private:
    static constexpr int c_firstExtraRole = Qt::UserRole + 1;

    bool isRow(int index) const { return index >= 0 && index < count(); }

    QList<Object> m_objects;
    QList<QByteArray> m_extraRoles;
};

} // namespace __qobjectsqmllist
