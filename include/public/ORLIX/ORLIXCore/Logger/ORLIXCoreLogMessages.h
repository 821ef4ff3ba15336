// Messages of ORLIXCore.
#pragma once

#include "ORLIX/ORLIXCore/Export.h"
#include "ORLIX/ORLIXCore/ORLIXCoreException.h"
#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

namespace orlix::core {

struct eORLIXCoreMessage
{
    enum domain {
        eCancelled = 0,
        eNeverRun = 1,
        eAlreadyRunning = 2,
        eUnknownException = 3,
        eProcessEnds = 4,
        eLostByFork = 5,
        eTooManyThreads = 6, ///< threads, most threads, most threads
        eGpuStaysOff = 7     ///< reason
    };
    ORLIX_ENUMERATION(eORLIXCoreMessage, eCancelled);
};

} // namespace orlix::core

namespace orlix {

template <>
struct ORLIXCORE_API MessageCatalogue<core::eORLIXCoreMessage>
{
    using Exception = core::ORLIXCoreException;
    static LibraryLog& log();
    static const std::vector<MessageText>& texts();
};

} // namespace orlix
