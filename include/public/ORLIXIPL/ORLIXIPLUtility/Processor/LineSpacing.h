// What the distance between lines makes of an image before any pixel is looked at.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Export.h"

namespace orlix::imaproc::util {

/// The distance between neighbouring lines as kernels take it, in single precision.
struct LineSpacing
{
    enum eLines {
        eNone,  ///< no pixel is set: the distance is 0, negative, infinite or no number
        eDense, ///< every pixel is set: lines stand closer than they are wide, whatever their angle
        eApart  ///< pixels have to be looked at
    };

    eLines lines = eNone;
    float period = 0.0F; ///< the distance
    float half = 0.0F;   ///< half of it
    /// A pixel so far behind the line before it belongs to no line, nor to the one after it: from `offLow` to
    /// `offHigh`, both included. Where `period` is 1 or more.
    float offLow = 0.0F;
    float offHigh = 0.0F;
};

/// `dense` is the distance below which every pixel is set; 1 for lines, less for lattices of them.
ORLIXIPLUTILITY_API LineSpacing toLineSpacing(double offset, float dense);

/// A number that kernels may multiply by instead of dividing by the period, in images of up to `nbPixels` along each
/// axis; 0 where they have to divide. The product differs from the quotient where it is next to a whole number,
/// so that a pixel next to a line counts from the other side, from the end of the period before: a distance of
/// 4 x 2^-24 of its own, at most 1/4 pixel here, which leaves it on the line.
ORLIXIPLUTILITY_API float inversePeriod(const LineSpacing& spacing, unsigned long nbPixels);

} // namespace orlix::imaproc::util
