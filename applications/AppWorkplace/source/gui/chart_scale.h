#pragma once

#include <QVector>

/// The values that a chart covers, and those at which it has a line: round numbers.
class ChartScale
{
public:
    /// Covers all of them with some room above and below; values that are no numbers are left out. mostLines: at
    /// least 2.
    ChartScale(const QVector<double>& values, int mostLines);

    double low() const { return m_low; }
    double high() const { return m_high; }
    double step() const { return m_step; } ///< from one line to the next
    int decimals() const;                  ///< that a line's number needs
    QVector<double> lines() const;
    /// 0 at the low end, 1 at the high one.
    double share(double value) const { return (value - m_low) / (m_high - m_low); }

private:
    double m_low = 0;
    double m_high = 1;
    double m_step = 1;
};
