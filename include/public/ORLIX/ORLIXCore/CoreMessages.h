// Texts of ORLIXCore.
#pragma once

#include "ORLIX/ORLIXCore/Export.h"
#include "ORLIX/ORLIXUtil/BaseException.h"
#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/MessageCatalogue.h"

namespace orlix::core {

class ORLIXCORE_API ORLIXCoreException : public BaseException
{
public:
    using BaseException::BaseException;
};

struct eORLIXCoreMessage
{
    enum domain { eCancelled = 0, eNeverRun = 1, eAlreadyRunning = 2, eUnknownException = 3 };
    ORLIX_ENUMERATION(eORLIXCoreMessage, eCancelled);
};

ORLIXCORE_API log4cplus::Logger getORLIXCoreLogger();
ORLIXCORE_API LogMessageManager& getORLIXCoreLogMessageManager();

} // namespace orlix::core
