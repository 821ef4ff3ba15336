// Messages of ORLIXBaseImageTools.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"
#include "ORLIXIPL/ORLIXBaseImageTools/Export.h"
#include "ORLIXIPL/ORLIXBaseImageTools/ORLIXBaseImageToolsException.h"

namespace orlix::image::tools {

struct eORLIXBaseImageToolsMessage
{
    enum domain {
        ePlanOutOfRange = 0,
        eVolumeOutOfRange = 1,
        eStepsOutOfRange = 2,
        eNoPixels = 3,     ///< geometry
        eTileTooLarge = 4, ///< sizes on x, y, z
        eNotOnePlan = 5,   ///< geometry
        eNotOneVolume = 6, ///< geometry
        eNoSuchTile = 7,   ///< index, count
        eTileNotTaken = 8, ///< reason
        eNothingToJoin = 9,
        eNotJoinable = 10,   ///< geometry, geometry
        eTooManySteps = 11,  ///< geometry of the first
        eNoHostPixels = 12,  ///< geometry
        eNotJoined = 13,     ///< reason
        eNotOnOneDevice = 14 ///< geometry, geometry
    };
    ORLIX_ENUMERATION(eORLIXBaseImageToolsMessage, ePlanOutOfRange);
};

} // namespace orlix::image::tools

namespace orlix {

template <>
struct ORLIXBASEIMAGETOOLS_API MessageCatalogue<image::tools::eORLIXBaseImageToolsMessage>
{
    using Exception = image::tools::ORLIXBaseImageToolsException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
