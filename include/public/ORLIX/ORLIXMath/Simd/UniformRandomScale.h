// How raw numbers of a generator are spread over an interval.
#pragma once

#include "ORLIX/ORLIXMath/Simd/ForceInline.h"

#include <type_traits>

namespace orlix::simd {

/// Bits of the raw number that an element of type T is made of.
template <class T>
inline constexpr unsigned g_nbRawBits = sizeof(T) == 1   ? 15
                                        : sizeof(T) == 2 ? 16
                                                         : 32;

/// The factor from raw numbers to distances from `min`. Of integers, times a raw number and without its fraction it is
/// 0 to max - min, each about as often as any other. Of floats, the largest raw number gives `max`, or as little less
/// as it takes to stay within. Any bounds are taken; those in the wrong order give a factor of 0 or below.
template <class T>
ORLIX_SIMD_INLINE double uniformScale(T min, T max)
{
    if constexpr (std::is_same_v<T, float>) {
        constexpr double largest = 4294967295.0;
        const double low = min;
        double scale = (static_cast<double>(max) - low) / largest;
        while (scale > 0 && static_cast<float>(largest * scale + low) > max) {
            scale = __builtin_bit_cast(double, __builtin_bit_cast(unsigned long, scale) - 1); // the next one below
        }
        return scale;
    } else {
        const long nbValues = static_cast<long>(max) - static_cast<long>(min) + 1;
        return static_cast<double>(nbValues) / static_cast<double>(1UL << g_nbRawBits<T>);
    }
}

} // namespace orlix::simd
