// Order statistics: what a noisy machine leaves standing.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace orlix::bench {

/// The value below which `part` of the values lie, between two of them interpolated; 0 for no values.
inline double quantile(std::vector<double> values, double part)
{
    if (values.empty()) {
        return 0;
    }
    std::sort(values.begin(), values.end());
    const double place = part * static_cast<double>(values.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const std::size_t above = std::min(below + 1, values.size() - 1);
    return values[below] + (values[above] - values[below]) * (place - static_cast<double>(below));
}

inline double median(const std::vector<double>& values)
{
    return quantile(values, 0.5);
}

} // namespace orlix::bench
