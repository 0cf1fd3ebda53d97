#include "run_chart.h"

#include <QLocale>
#include <QPainter>

#include <cmath>

#include "chart_scale.h"

namespace {

constexpr double c_linesApart = 3; // heights of a text, at least
constexpr double c_markShare = 0.62;
constexpr double c_mostMark = 1.1; // heights of a text

int roleOf(const QAbstractItemModel& model, const QByteArray& name)
{
    return model.roleNames().key(name, -1);
}

} // namespace

RunChart::RunChart(QQuickItem* parent) : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    connect(this, &RunChart::changed, this, [this] { update(); });
}

void RunChart::setModel(QAbstractItemModel* model)
{
    if (m_model == model) {
        return;
    }
    if (m_model != nullptr) {
        m_model->disconnect(this);
    }
    m_model = model;
    if (m_model != nullptr) {
        const auto redraw = [this] { update(); };
        connect(m_model, &QAbstractItemModel::rowsInserted, this, redraw);
        connect(m_model, &QAbstractItemModel::rowsRemoved, this, redraw);
        connect(m_model, &QAbstractItemModel::dataChanged, this, redraw);
        connect(m_model, &QAbstractItemModel::modelReset, this, redraw);
    }
    update();
    Q_EMIT modelChanged();
}

void RunChart::paint(QPainter* painter)
{
    struct Mark
    {
        double torque;
        bool isGood;
    };
    QVector<Mark> marks;
    QVector<double> values;
    const int rows = m_model == nullptr ? 0 : m_model->rowCount();
    for (int row = std::max(0, rows - m_capacity); row < rows; ++row) {
        const QModelIndex index = m_model->index(row, 0);
        marks.append(
            {index.data(roleOf(*m_model, "torque")).toDouble(), index.data(roleOf(*m_model, "isGood")).toBool()});
        values.append(marks.constLast().torque);
    }
    if (m_hasTarget) {
        values.append(m_target);
    }

    painter->setFont(m_font);
    const QFontMetricsF metrics(m_font);
    const QLocale locale(m_localeName);
    const ChartScale scale(values, std::max(2, int(height() / (c_linesApart * metrics.height()))));
    const auto number = [&](double value, int decimals) { return locale.toString(value, 'f', decimals); };
    const double left = std::ceil(std::max(metrics.horizontalAdvance(number(scale.high(), scale.decimals())),
                                           metrics.horizontalAdvance(number(scale.low(), scale.decimals()))) +
                                  metrics.averageCharWidth());
    const double mark = std::min(c_mostMark * metrics.height(), c_markShare * (width() - left) / m_capacity);
    const double thin = std::max(1.0, std::round(metrics.height() / 14));
    const QRectF field(left, metrics.height() / 2, width() - left, height() - metrics.height());
    const auto yOf = [&](double value) { return field.bottom() - scale.share(value) * field.height(); };

    const QVector<double> lines = scale.lines();
    for (const double line : lines) {
        painter->setPen(QPen(m_lineColor, thin));
        painter->drawLine(QPointF(field.left(), yOf(line)), QPointF(field.right(), yOf(line)));
        painter->setPen(m_textColor);
        painter->drawText(
            QRectF(0, yOf(line) - metrics.height() / 2, left - metrics.averageCharWidth(), metrics.height()),
            Qt::AlignRight | Qt::AlignVCenter, number(line, scale.decimals()));
    }
    if (m_hasTarget) {
        painter->setPen(QPen(m_targetColor, 2 * thin, Qt::DashLine));
        painter->drawLine(QPointF(field.left(), yOf(m_target)), QPointF(field.right(), yOf(m_target)));
    }

    const double slot = field.width() / m_capacity;
    for (int i = 0; i < marks.size(); ++i) {
        if (!std::isfinite(marks.at(i).torque)) {
            continue;
        }
        const QPointF at(field.right() - (marks.size() - i - 0.5) * slot, yOf(marks.at(i).torque));
        const QRectF box(at - QPointF(mark / 2, mark / 2), QSizeF(mark, mark));
        if (marks.at(i).isGood) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(m_goodColor);
            painter->drawEllipse(box);
        } else {
            painter->setPen(QPen(m_badColor, std::max(2.0, mark / 4), Qt::SolidLine, Qt::RoundCap));
            painter->drawLine(box.topLeft(), box.bottomRight());
            painter->drawLine(box.topRight(), box.bottomLeft());
        }
    }
}
