#include "chart_scale.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double c_room = 0.1;     // of the whole, above and below
constexpr double c_smallest = 0.5; // the least that is covered: noise is not to look like much

double roundStep(double atLeast)
{
    const double power = std::pow(10, std::floor(std::log10(atLeast)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= atLeast) {
            return factor * power;
        }
    }
    return 10 * power;
}

} // namespace

ChartScale::ChartScale(const QVector<double>& values, int mostLines)
{
    QVector<double> numbers = values;
    numbers.erase(std::remove_if(numbers.begin(), numbers.end(), [](double value) { return !std::isfinite(value); }),
                  numbers.end());
    if (numbers.isEmpty()) {
        return;
    }
    const auto ends = std::minmax_element(numbers.cbegin(), numbers.cend());
    const double missing = std::max(0.0, c_smallest - (*ends.second - *ends.first));
    const double room = std::max(c_room * (*ends.second - *ends.first), missing / 2);
    m_low = *ends.first - room;
    m_high = *ends.second + room;
    m_step = roundStep((m_high - m_low) / mostLines);
}

int ChartScale::decimals() const
{
    return std::max(0, int(-std::floor(std::log10(m_step))));
}

QVector<double> ChartScale::lines() const
{
    QVector<double> lines;
    for (qint64 index = std::llround(std::ceil(m_low / m_step)); double(index) * m_step <= m_high; ++index) {
        lines.append(double(index) * m_step);
    }
    return lines;
}
