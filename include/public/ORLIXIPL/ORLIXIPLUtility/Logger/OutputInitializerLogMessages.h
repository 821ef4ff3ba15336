// Messages of output initializers.
#pragma once

#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"
#include "ORLIXIPL/ORLIXIPLUtility/Export.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtilityException.h"

namespace orlix::imaproc::util {

struct eOutputInitializerMessage
{
    enum domain { eInputAttributeNull = 0 };
    ORLIX_ENUMERATION(eOutputInitializerMessage, eInputAttributeNull);
};

} // namespace orlix::imaproc::util

namespace orlix {

template <>
struct ORLIXIPLUTILITY_API MessageCatalogue<imaproc::util::eOutputInitializerMessage>
{
    using Exception = imaproc::util::ORLIXIPLUtilityException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
