// A relative tolerance as whole numbers, so that small integers need no division.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl3.h"

namespace orlix::imaproc::util {

/// For differences up to twice the magnitude and magnitudes up to `largest`, 2^8 - 1 or 2^16 - 1. Quotients of such
/// numbers stand more than 2^-32 apart, so that a multiple of 2^-32 can be found which no quotient separates from the
/// tolerance: the largest quotient that is not above it, rounded up.
CompareImgLvl3::RelativeLimit makeRelativeLimit(float tolerance, unsigned long largest);

} // namespace orlix::imaproc::util
