// What kind of image an object is.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"

namespace orlix::image {

/// Whose pixels an image holds.
struct eImageType
{
    enum domain {
        eOwnedImage = 0,   ///< its own
        eWrappedImage = 1, ///< a caller's
        eSubImage = 2      ///< another image's
    };
    ORLIX_ENUMERATION(eImageType, eOwnedImage);
};

/// Where an image's pixels are.
struct eImageBaseType
{
    enum domain { eHostImage = 0, eGpuImage = 1 };
    ORLIX_ENUMERATION(eImageBaseType, eHostImage);
};

} // namespace orlix::image
