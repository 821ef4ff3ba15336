// Messages of ORLIXImage.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"
#include "ORLIXIPL/ORLIXImage/Export.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImageException.h"

namespace orlix::image {

struct eORLIXImageMessage
{
    enum domain {
        eUnknownBufferType = 0,
        eTypeCountMismatch = 1,
        eSizeOverflow = 2,
        eNoBufferType = 3,
        eOutOfMemory = 4,
        eWrapSeveralTypes = 5,
        eWrapNullPointer = 6,
        eWrapMisaligned = 7,
        eWrapOverlap = 8,
        eWrapOverflow = 9,
        ePlanOutOfRange = 10,
        eStorageTypeMismatch = 11,
        eNoHostPixels = 12,    ///< geometry
        eCannotGrow = 13,      ///< geometry
        eNotGrowth = 14,       ///< geometry, geometry
        eGpuNotUsable = 15,    ///< device, geometry, text of the layer
        eOutOfGpuMemory = 16,  ///< geometry, bytes, device, text of the layer
        eNotMovedToGpu = 17,   ///< geometry, device, text of the layer
        eNotMovedFromGpu = 18, ///< geometry, device, text of the layer
        eNoPlanTable = 19,     ///< geometry, device, text of the layer
        eCannotGrowOnGpu = 20, ///< geometry
        eNotForwards = 21      ///< geometry
    };
    ORLIX_ENUMERATION(eORLIXImageMessage, eUnknownBufferType);
};

} // namespace orlix::image

namespace orlix {

template <>
struct ORLIXIMAGE_API MessageCatalogue<image::eORLIXImageMessage>
{
    using Exception = image::ORLIXImageException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
