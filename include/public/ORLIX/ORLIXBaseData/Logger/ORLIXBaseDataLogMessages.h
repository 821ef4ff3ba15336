// Messages of ORLIXBaseData.
#pragma once

#include "ORLIX/ORLIXBaseData/Export.h"
#include "ORLIX/ORLIXBaseData/ORLIXBaseDataException.h"
#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

namespace orlix {

struct eORLIXBaseDataMessage
{
    enum domain {
        eOtherClass = 0,
        eDuplicatePlanIndex = 1,
        ePlanIndexTooLarge = 2,
        eTooManyPlans = 3,
        eNoEntry = 4,
        eOtherCount = 5,
        eIncompletePoint = 6 ///< numbers, coordinates of a point
    };
    ORLIX_ENUMERATION(eORLIXBaseDataMessage, eOtherClass);
};

template <>
struct ORLIXBASEDATA_API MessageCatalogue<eORLIXBaseDataMessage>
{
    using Exception = ORLIXBaseDataException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
