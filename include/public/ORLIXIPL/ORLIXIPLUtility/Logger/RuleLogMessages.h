// Messages of rules.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtilityException.h"

namespace orlix::imaproc::util {

struct eRuleMessage
{
    enum domain {
        eAttributeExpired = 0,
        eInputAttributeNull = 1,
        eSliceOf = 2,          ///< axis, attribute, geometry
        eNoSuchSlice = 3,      ///< number, axis, geometry, count
        eSliceTypeDiffers = 4, ///< geometry, geometry
        eNoHostPixels = 5      ///< attribute, geometry
    };
    ORLIX_ENUMERATION(eRuleMessage, eAttributeExpired);
};

} // namespace orlix::imaproc::util

namespace orlix {

template <>
struct ORLIXIPLUTILITY_API MessageCatalogue<imaproc::util::eRuleMessage>
{
    using Exception = imaproc::util::ORLIXIPLUtilityException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
