// Which voxels of a line of a volume can be near a line of a lattice, told quickly; included by kernel files only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/PackArithmetic.h"

namespace orlix::imaproc::util {

/// Along a line of voxels, how far they are from the lines of a lattice in either direction across them, in periods:
/// `first + x * step`. Neither is rounded as images want it, so this tells only which voxels are too far to be set.
struct LatticeLine
{
    float firstA;
    float stepA;
    float firstB;
    float stepB;
    float reach; ///< the square of the largest distance of voxels that may be set, in periods

    template <class TReal>
    ORLIX_SIMD_INLINE auto isNear(const TReal& x) const
    {
        const TReal zero{};
        const TReal a = toNearestWhole<TReal>(zero + firstA + x * stepA);
        const TReal b = toNearestWhole<TReal>(zero + firstB + x * stepB);
        return a * a + b * b <= zero + reach;
    }

private:
    /// How far a number up to 2^22 is from the nearest whole one.
    template <class TReal>
    ORLIX_SIMD_INLINE static TReal toNearestWhole(const TReal& value)
    {
        const TReal whole = TReal{} + 12582912.0F; // 1.5 x 2^23, from which on there are no fractions
        return value - ((value + whole) - whole);
    }
};

} // namespace orlix::imaproc::util
