// When two pixels differ, element by element; included by the kernels of CompareImgLvl3 only.
#pragma once

#include "ORLIX/ORLIXMath/Simd/ForceInline.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl3.h"

#include <type_traits>

namespace orlix::imaproc::util {

/// What comparisons of T compute in: the type that holds a difference and an absolute value as they are compared with
/// the absolute tolerance.
template <class T>
struct ComparisonOf
{
    using Difference = int; ///< 16 bits
};
template <>
struct ComparisonOf<int>
{
    using Difference = int; ///< wraps
};
template <>
struct ComparisonOf<unsigned int>
{
    using Difference = unsigned int;
};
template <>
struct ComparisonOf<float>
{
    using Difference = float;
};

/// The larger minus the smaller. Of two Int32 values the low 32 bits, as a signed number.
template <class T>
ORLIX_SIMD_INLINE typename ComparisonOf<T>::Difference differenceOf(T a, T b)
{
    if constexpr (std::is_same_v<T, int>) {
        const unsigned int larger = static_cast<unsigned int>(a > b ? a : b);
        const unsigned int smaller = static_cast<unsigned int>(a > b ? b : a);
        return static_cast<int>(larger - smaller);
    } else {
        using Difference = typename ComparisonOf<T>::Difference;
        return a > b ? static_cast<Difference>(a) - static_cast<Difference>(b)
                     : static_cast<Difference>(b) - static_cast<Difference>(a);
    }
}

/// The larger of the two absolute values.
template <class T>
ORLIX_SIMD_INLINE double largerMagnitudeOf(T a, T b)
{
    const double x = a < T(0) ? -static_cast<double>(a) : static_cast<double>(a);
    const double y = b < T(0) ? -static_cast<double>(b) : static_cast<double>(b);
    return x > y || x != x ? x : y;
}

/// The absolute tolerance as differences of T are compared with it: of the 16-bit comparisons of 8-bit types, the low
/// 16 bits, unsigned for the unsigned type.
template <class T>
ORLIX_SIMD_INLINE auto absoluteLimitOf(const CompareImgLvl3::Limits& limits)
{
    if constexpr (std::is_same_v<T, float>) {
        return limits.absolute;
    } else if constexpr (std::is_same_v<T, unsigned int>) {
        return limits.absoluteUInt;
    } else if constexpr (std::is_same_v<T, unsigned short>) {
        // Differences have 16 bits, so that whatever is above them is as good as the largest of both kinds.
        return static_cast<unsigned int>(limits.absoluteInt) > 0xFFFFU ? 0xFFFF : limits.absoluteInt;
    } else if constexpr (std::is_same_v<T, unsigned char>) {
        return static_cast<int>(static_cast<unsigned short>(limits.absoluteInt));
    } else if constexpr (std::is_same_v<T, signed char>) {
        return static_cast<int>(static_cast<short>(limits.absoluteInt));
    } else {
        return limits.absoluteInt;
    }
}

/// Mode 0.
struct ComparedExactly
{
    template <class T>
    static ORLIX_SIMD_INLINE bool differ(T a, T b, const CompareImgLvl3::Limits&)
    {
        return a != b;
    }
};
/// Mode 1.
struct ComparedAbsolutely
{
    template <class T>
    static ORLIX_SIMD_INLINE bool differ(T a, T b, const CompareImgLvl3::Limits& limits)
    {
        return differenceOf(a, b) > absoluteLimitOf<T>(limits);
    }
};
/// Mode 2.
struct ComparedRelatively
{
    template <class T>
    static ORLIX_SIMD_INLINE bool differ(T a, T b, const CompareImgLvl3::Limits& limits)
    {
        const double magnitude = largerMagnitudeOf(a, b);
        return magnitude != 0 && static_cast<double>(differenceOf(a, b)) / magnitude > limits.relative;
    }
};
/// Mode 3.
struct ComparedBothWays
{
    template <class T>
    static ORLIX_SIMD_INLINE bool differ(T a, T b, const CompareImgLvl3::Limits& limits)
    {
        return ComparedAbsolutely::differ(a, b, limits) && ComparedRelatively::differ(a, b, limits);
    }
};

} // namespace orlix::imaproc::util
