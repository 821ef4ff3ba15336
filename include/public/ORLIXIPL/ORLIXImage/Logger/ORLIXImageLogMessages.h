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
        eNoHostPixels = 12,
        eCannotGrow = 13, ///< geometry
        eNotGrowth = 14   ///< geometry, geometry
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
