// A number as kernels of every element type take it.
#pragma once

#include "ORLIX/ORLIXMath/Simd/ForceInline.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"

#include <type_traits>

namespace orlix::imaproc::util {

/// One number in the three forms that elements are made of. It is made by code that runs on every processor and read by
/// kernels.
struct ElementValue
{
    int integer;                  ///< for signed and unsigned char and short, signed int
    unsigned int unsignedInteger; ///< for unsigned int
    float real;                   ///< for float

    /// The element of type T: of an integer the low bytes, so nothing saturates.
    template <class T>
    ORLIX_SIMD_INLINE T as() const
    {
        if constexpr (std::is_same_v<T, float>) {
            return real;
        } else if constexpr (std::is_same_v<T, unsigned int>) {
            return unsignedInteger;
        } else {
            return static_cast<T>(integer);
        }
    }
};

/// Cuts the fraction off for the integer forms and rounds to single precision for the real one. `integer` is truncated
/// to 32 signed bits, `unsignedInteger` to 64, of which it keeps the low 32. What these can't hold, NaN and infinities
/// included, gives the most negative number of their width: -2147483648 and -2^63, so 0 in every narrower integer.
ORLIXIPLUTILITY_API ElementValue toElementValue(double value);

} // namespace orlix::imaproc::util
