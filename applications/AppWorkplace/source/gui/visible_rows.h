#pragma once

#include <QAbstractListModel>
#include <QPointer>

/// The few rows of a long list that are seen. A list that shows a million rows makes items for these only, and keeps
/// them while it is scrolled: the row of the source that stands in row k of this is always one that is k modulo the
/// size, so that scrolling by one row changes one item.
class VisibleRows : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(QAbstractItemModel* source READ source CONSTANT)
    Q_PROPERTY(int count READ count NOTIFY sigCountChanged)            ///< rows of the source
    Q_PROPERTY(int first READ first WRITE setFirst NOTIFY sigMoved)    ///< row of the source that is seen first
    Q_PROPERTY(int size READ size WRITE setSize NOTIFY sigSizeChanged) ///< how many are seen

public:
    /// Beside those of the source: "sourceRow", the row that it is there, -1: none.
    static constexpr int c_sourceRowRole = Qt::UserRole + 1000;

    explicit VisibleRows(QAbstractItemModel* source, QObject* parent = nullptr);

    QAbstractItemModel* source() const { return m_source; }
    int count() const { return m_source == nullptr ? 0 : m_source->rowCount(); }
    int first() const { return m_first; }
    void setFirst(int first);
    int size() const { return m_size; }
    void setSize(int size);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void sigCountChanged();
    void sigMoved();
    void sigSizeChanged();
    /// The source has so many more rows before that row of it.
    void inserted(int row, int rows);
    /// The source is another one.
    void restarted();

private:
    int sourceRowOf(int row) const;
    void onSourceChanged(const QModelIndex& from, const QModelIndex& to);
    void changeAll();

    QPointer<QAbstractItemModel> m_source;
    int m_first = 0;
    int m_size = 0;
};
