// Messages of the module as a whole.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtilityException.h"

namespace orlix::imaproc::util {

struct eORLIXIPLUtilityMessage
{
    enum domain {
        eOutputImageNotInitialized = 0,
        ePartBeyondWhole = 1, ///< geometry, first x, y, z, sizes of the whole along x, y, z
        ePartOfLines = 2,     ///< size of the part, of the whole
        ePartOutside = 3      ///< axis, size of the part, its first, size of the whole
    };
    ORLIX_ENUMERATION(eORLIXIPLUtilityMessage, eOutputImageNotInitialized);
};

} // namespace orlix::imaproc::util

namespace orlix {

template <>
struct ORLIXIPLUTILITY_API MessageCatalogue<imaproc::util::eORLIXIPLUtilityMessage>
{
    using Exception = imaproc::util::ORLIXIPLUtilityException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
