// Cutting a fraction off, with a result for every value.
#pragma once

namespace orlix::math {

/// `value` without its fraction. A value below 0 wraps, so -1 gives 2^64 - 1; what 64 bits can't hold gives what the
/// processor's conversions give: 2^63 below -2^63 and for a NaN, 0 from 2^64 on.
constexpr unsigned long truncateToUnsigned(double value)
{
    constexpr double half = 0x1p63;
    constexpr unsigned long topBit = 1UL << 63;
    const bool bHigh = value >= half;
    const double rest = bHigh ? value - half : value;
    const bool bHeld = rest >= -half && rest < half;
    const unsigned long whole = bHeld ? static_cast<unsigned long>(static_cast<long>(rest)) : topBit;
    return bHigh ? whole ^ topBit : whole;
}

} // namespace orlix::math
