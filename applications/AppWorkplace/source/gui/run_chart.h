#pragma once

#include <QAbstractItemModel>
#include <QColor>
#include <QPointer>
#include <QQuickPaintedItem>

/// The last results as a run chart: one mark each, the newest at the right, a disc when it was good and a cross when
/// not, with a line for the target. It is drawn anew only when something of it has changed.
class RunChart : public QQuickPaintedItem
{
    Q_OBJECT
    /// Rows with the roles "torque" (NaN: no mark) and "isGood", the oldest first. May be null.
    Q_PROPERTY(QAbstractItemModel* model READ model WRITE setModel NOTIFY modelChanged)
    Q_PROPERTY(qreal target MEMBER m_target NOTIFY changed) ///< in the unit of the results
    Q_PROPERTY(bool hasTarget MEMBER m_hasTarget NOTIFY changed)
    Q_PROPERTY(int capacity MEMBER m_capacity NOTIFY changed) ///< for how many results there is room
    Q_PROPERTY(QString localeName MEMBER m_localeName NOTIFY changed)
    Q_PROPERTY(QFont font MEMBER m_font NOTIFY changed)
    Q_PROPERTY(QColor textColor MEMBER m_textColor NOTIFY changed)
    Q_PROPERTY(QColor lineColor MEMBER m_lineColor NOTIFY changed)
    Q_PROPERTY(QColor goodColor MEMBER m_goodColor NOTIFY changed)
    Q_PROPERTY(QColor badColor MEMBER m_badColor NOTIFY changed)
    Q_PROPERTY(QColor targetColor MEMBER m_targetColor NOTIFY changed)

public:
    explicit RunChart(QQuickItem* parent = nullptr);

    QAbstractItemModel* model() const { return m_model; }
    void setModel(QAbstractItemModel* model);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void modelChanged();
    void changed();

private:
    QPointer<QAbstractItemModel> m_model;
    qreal m_target = 0;
    bool m_hasTarget = false;
    int m_capacity = 60;
    QString m_localeName;
    QFont m_font;
    QColor m_textColor = Qt::black;
    QColor m_lineColor = Qt::gray;
    QColor m_goodColor = Qt::darkGreen;
    QColor m_badColor = Qt::red;
    QColor m_targetColor = Qt::blue;
};
