// Limits of the arithmetic types under one name.
#pragma once

#include <limits>

namespace orlix {

/// `s_min` is the lowest finite value, also for floating types; `s_max` the largest.
template <class T>
struct NumericLimits
{
    static constexpr T s_min = std::numeric_limits<T>::lowest();
    static constexpr T s_max = std::numeric_limits<T>::max();
};

} // namespace orlix
