// Which part of a larger image a generated image is.
#pragma once

#include "ORLIX/ORLIXBaseData/PlanIndex.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::imaproc::util {

/// Whole lines of plans that follow one another on each axis. Sizes in pixels, plans, channels and time steps.
struct ImagePart
{
    PlanIndex firstPlan;         ///< in the whole, of the part's first plan
    unsigned long firstLine = 0; ///< in the whole, of the part's first line
    unsigned long wholeX = 1;
    unsigned long wholeY = 1;
    unsigned long wholeZ = 1;
    unsigned long wholeC = 1;
    unsigned long wholeT = 1;
};

/// Throws ORLIXIPLUtilityException where `image`, which is no null pointer, doesn't lie within the whole, or has not
/// its whole lines.
ORLIXIPLUTILITY_API void checkPart(const ImagePart& part, const image::BaseImage& image);

} // namespace orlix::imaproc::util
