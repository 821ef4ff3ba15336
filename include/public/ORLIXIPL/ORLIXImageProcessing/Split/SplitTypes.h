// How images are cut into sub-images and strips.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"

namespace orlix::imaproc {

/// What one element is.
struct eSubImageSplitType
{
    enum domain {
        eSubImagePlan2d = 0,
        eSubImageVolume3d = 1,
        eSubImageOnDevice = 7 ///< the image as it is, on a device
    };
    ORLIX_ENUMERATION(eSubImageSplitType, eSubImagePlan2d);
};
struct eVolumeParsingType
{
    enum domain { ePlanByPlan = 0, eWholeVolume = 1 };
    ORLIX_ENUMERATION(eVolumeParsingType, ePlanByPlan);
};
struct eColorParsingType
{
    enum domain { eChannelByChannel = 0 };
    ORLIX_ENUMERATION(eColorParsingType, eChannelByChannel);
};
struct eTemporalParsingType
{
    enum domain { eFrameByFrame = 0 };
    ORLIX_ENUMERATION(eTemporalParsingType, eFrameByFrame);
};

/// What memory a strip is in: the image's own.
struct eStripAllocationType
{
    enum domain { eStripAllocationDefault = 0 };
    ORLIX_ENUMERATION(eStripAllocationType, eStripAllocationDefault);
};
struct eStripParsingDirection
{
    enum domain { eStripParsingForward = 0 };
    ORLIX_ENUMERATION(eStripParsingDirection, eStripParsingForward);
};

} // namespace orlix::imaproc

namespace orlix::image {
using imaproc::eStripAllocationType;
using imaproc::eStripParsingDirection;
} // namespace orlix::image
