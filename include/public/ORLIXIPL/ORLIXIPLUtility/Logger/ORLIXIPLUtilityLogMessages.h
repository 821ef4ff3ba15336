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
        ePartOfLines = 1, ///< size of the part, of the whole
        ePartOutside = 2  ///< axis, size of the part, its first, size of the whole
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
