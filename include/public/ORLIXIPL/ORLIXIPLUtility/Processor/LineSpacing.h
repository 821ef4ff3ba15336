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
};

/// `dense` is the distance below which every pixel is set; 1 for lines, less for lattices of them.
ORLIXIPLUTILITY_API LineSpacing toLineSpacing(double offset, float dense);

} // namespace orlix::imaproc::util
