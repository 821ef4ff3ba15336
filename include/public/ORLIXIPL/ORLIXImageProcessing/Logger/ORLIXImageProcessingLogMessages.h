// Messages of ORLIXImageProcessing.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"
#include "ORLIXIPL/ORLIXImageProcessing/Export.h"
#include "ORLIXIPL/ORLIXImageProcessing/ORLIXImageProcessingException.h"

namespace orlix::imaproc {

/// Rules about images that failed.
struct eImageRuleMessage
{
    enum domain {
        eSizeOrTypeDiffers = 0,      ///< attribute, geometry, attribute, geometry
        eStripSizeOrTypeDiffers = 1, ///< attribute, lines, type, attribute, lines, type
        eNotInSitu = 2,              ///< attribute, attribute
        eInSitu = 3,                 ///< attribute, attribute
        eWrongBufferType = 4,        ///< attribute, geometry, type, attribute
        eWrongImageType = 5,         ///< attribute, kind, kind
        eOutOfRange = 6,             ///< attribute, value, type, attribute, smallest, largest
        eNothingHeld = 7,            ///< attribute
        eSizeDiffers = 8,            ///< attribute, geometry, attribute, geometry, sizes
        eStripSizeDiffers = 9,       ///< attribute, lines, attribute, lines
        eNotOfFixedType = 10,        ///< attribute, geometry, type
        eTypeDiffers = 11,           ///< attribute, geometry or type, attribute, geometry or type
        ePropertyDiffers = 12,       ///< attribute, geometry, differences
        ePropertyWithoutInput = 13,
        ePropertyDiffersFor = 14, ///< attribute, geometry, differences, reason
        ePlansDiffer = 15,        ///< attribute, sizes on z, c, t, attribute, geometry
        eVolumesDiffer = 16,      ///< attribute, sizes on z, c, t, attribute, geometry
        eVolumeTypeDiffers = 17,  ///< attribute, kind, attribute, kind
        eColorTypeDiffers = 18,   ///< attribute, channels, attribute, channels
        eRegionOutside = 19,      ///< attribute, sizes, sizes, offsets, axis, end
        eRegionNeedsVolume = 20,  ///< attribute, sizes, sizes, offsets
        eWrongMemory = 21         ///< attribute, kind, kind, function
    };
    ORLIX_ENUMERATION(eImageRuleMessage, eSizeOrTypeDiffers);
};

/// Splits and initializers.
struct eImageSplitMessage
{
    enum domain {
        eNullImage = 0,
        eSeveralPlans = 1, ///< geometry
        eBadCut = 2,
        eNoSuchElement = 3, ///< index, count
        eInputMissing = 4,
        eNoCollection = 5,
        eTooManyPlans = 6,      ///< sizes on z, c, t
        ePlanLacksEntry = 7,    ///< attribute, z, c, t
        eSeveralVolumes = 8,    ///< geometry
        eLinesOutside = 9,      ///< count, first, count
        ePlansOutside = 10,     ///< count, first, count
        eRangeOutside = 11,     ///< count, first, count
        eWrongCollection = 12,  ///< attribute, class
        eBoxOutside = 13,       ///< attribute, sizes, sizes, offsets
        eStripTypesDiffer = 14, ///< attribute, type, attribute, type
        eNotOnHost = 15,        ///< attribute, geometry
        eNotCutOnDevice = 16,
        eNotOnDevice = 17,  ///< attribute, geometry
        eDevicesDiffer = 18 ///< attribute, device, attribute, device
    };
    ORLIX_ENUMERATION(eImageSplitMessage, eNullImage);
};

} // namespace orlix::imaproc

namespace orlix {

template <>
struct ORLIXIMAGEPROCESSING_API MessageCatalogue<imaproc::eImageRuleMessage>
{
    using Exception = imaproc::ORLIXImageProcessingException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

template <>
struct ORLIXIMAGEPROCESSING_API MessageCatalogue<imaproc::eImageSplitMessage>
{
    using Exception = imaproc::ORLIXImageProcessingException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
