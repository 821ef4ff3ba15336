// Messages of ORLIXHardware.
#pragma once

#include "ORLIX/ORLIXHardware/Export.h"
#include "ORLIX/ORLIXHardware/ORLIXHardwareException.h"
#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

namespace orlix::hard {

struct eORLIXHardwareMessage
{
    enum domain {
        eNoCuda = 0,
        eNoDevice = 1,
        eNoSuchDevice = 2 ///< device, number of devices
    };
    ORLIX_ENUMERATION(eORLIXHardwareMessage, eNoCuda);
};

} // namespace orlix::hard

namespace orlix {

template <>
struct ORLIXHARDWARE_API MessageCatalogue<hard::eORLIXHardwareMessage>
{
    using Exception = hard::ORLIXHardwareException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
