// How tests have an image copied into a new one.
#pragma once

#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImg.h"
#include "support/Images.h"

namespace orlix::imaproc::util {

/// What copyImg makes; see makeOnSpoiltMemory.
inline ImagePtr copied(const ImageConstPtr& in)
{
    return testing::makeOnSpoiltMemory(in->getGeometry(), [&] { return copyImg(in); });
}

} // namespace orlix::imaproc::util
