// Coordinates cut into whole pixels and what is beyond.
#pragma once

#include "ORLIX/ORLIXMath/Truncate.h"

#include <array>

namespace orlix::imaproc::util {

/// A coordinate is `whole` and `fraction`, which is at least 0 and no more than 1. A whole part below 0 wraps.
struct CutCoordinate
{
    unsigned long whole;
    double fraction; ///< not a number for a coordinate that is none, or is infinite
};

inline CutCoordinate cutCoordinate(double coordinate)
{
    constexpr double limit = 0x1p62; // from here on there are no fractions
    if (coordinate > -limit && coordinate < limit) {
        auto whole = static_cast<long>(coordinate);
        whole -= coordinate < static_cast<double>(whole) ? 1 : 0;
        return {static_cast<unsigned long>(whole), coordinate - static_cast<double>(whole)};
    }
    // What 64 bits can't hold must not come out as 0, a place in the image.
    return {coordinate < 0x1p64 ? math::truncateToUnsigned(coordinate) : 1UL << 63, coordinate - coordinate};
}

/// A point cut along each axis.
template <unsigned long nbAxes>
struct CutPlace
{
    std::array<unsigned long, nbAxes> whole;
    std::array<double, nbAxes> fraction;

    explicit CutPlace(const std::array<double, nbAxes>& place)
    {
        for (unsigned long axis = 0; axis < nbAxes; ++axis) {
            const CutCoordinate cut = cutCoordinate(place[axis]);
            whole[axis] = cut.whole;
            fraction[axis] = cut.fraction;
        }
    }
};

} // namespace orlix::imaproc::util
