// Whether two pixels differ, worked out in wide arithmetic that no kernel shares.
#pragma once

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImgComparisonTolerance.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>
#include <type_traits>

namespace orlix::imaproc::util::test {

struct Tolerance
{
    unsigned int mode = 0;
    float absolute = 0;
    float relative = 0;

    boost::shared_ptr<const attr::ImgComparisonTolerance> make() const
    {
        const auto tolerance = boost::make_shared<attr::ImgComparisonTolerance>();
        tolerance->mode = mode;
        tolerance->absoluteTolerance = absolute;
        tolerance->relativeTolerance = relative;
        return tolerance;
    }
    friend std::ostream& operator<<(std::ostream& stream, const Tolerance& tolerance)
    {
        return stream << "mode " << tolerance.mode << ", absolute " << tolerance.absolute << ", relative "
                      << tolerance.relative;
    }
};

/// A tolerance in whole numbers of `nbBits`: truncated, and the most negative number for what doesn't fit.
inline long long truncated(float value, int nbBits)
{
    const double limit = std::ldexp(1.0, nbBits - 1);
    const double whole = std::trunc(static_cast<double>(value));
    if (!(whole >= -limit && whole < limit)) {
        return nbBits == 64 ? std::numeric_limits<long long>::min() : -(1LL << (nbBits - 1));
    }
    return static_cast<long long>(whole);
}

/// The absolute tolerance as integer differences of T are compared with it.
template <class T>
long long wholeTolerance(float value)
{
    const long long low32 = truncated(value, 32) & 0xFFFFFFFFLL;
    if constexpr (sizeof(T) == 1) {
        const long long low16 = low32 & 0xFFFF;
        return std::is_signed_v<T> && low16 >= 0x8000 ? low16 - 0x10000 : low16;
    } else if constexpr (std::is_same_v<T, unsigned short>) {
        return low32;
    } else if constexpr (std::is_same_v<T, unsigned int>) {
        return truncated(value, 64) & 0xFFFFFFFFLL;
    } else {
        return truncated(value, 32);
    }
}

inline bool isFar(double difference, double magnitude, float tolerance)
{
    return magnitude != 0 && difference / magnitude > static_cast<double>(tolerance);
}

template <class T>
bool differ(T a, T b, const Tolerance& tolerance)
{
    bool bAbsolute = false;
    bool bRelative = false;
    if constexpr (std::is_same_v<T, float>) {
        const float difference = a > b ? a - b : b - a;
        bAbsolute = difference > tolerance.absolute;
        bRelative = isFar(difference, std::max(std::fabs(a), std::fabs(b)), tolerance.relative);
    } else {
        const long long x = a;
        const long long y = b;
        long long difference = x > y ? x - y : y - x;
        if (std::is_same_v<T, int> && difference >= 1LL << 31) {
            difference -= 1LL << 32;
        }
        bAbsolute = difference > wholeTolerance<T>(tolerance.absolute);
        bRelative = isFar(static_cast<double>(difference),
                          static_cast<double>(std::max(x < 0 ? -x : x, y < 0 ? -y : y)), tolerance.relative);
    }
    switch (tolerance.mode) {
    case 1: return bAbsolute;
    case 2: return bRelative;
    case 3: return bAbsolute && bRelative;
    default: return !(a == b);
    }
}

} // namespace orlix::imaproc::util::test
