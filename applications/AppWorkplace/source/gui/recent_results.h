#pragma once

#include <QAbstractListModel>
#include <QDateTime>
#include <QVector>

/// The last results of a device, the oldest first, for a chart.
class RecentResults : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    static constexpr int c_mostResults = 60;

    enum Role {
        TorqueRole = Qt::UserRole + 1, ///< "torque": a number, in the wrench's unit; NaN: what was received is none
        GoodRole,                      ///< "isGood"
        ArrivedRole                    ///< "arrived": a date with time
    };
    struct Result
    {
        double torque = 0;
        bool isGood = false;
        QDateTime arrived;
    };

    explicit RecentResults(QObject* parent = nullptr);

    /// When there are too many, the oldest goes.
    void append(const Result& result);
    void clear();

    int count() const { return m_results.size(); }
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

private:
    QVector<Result> m_results;
};
