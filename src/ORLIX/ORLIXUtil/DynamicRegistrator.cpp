// Registration from static initialisers, which can't let an exception out.
#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"

#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"
#include "ORLIX/ORLIXUtil/Logger/ORLIXUtilLog.h"

namespace orlix::details {

bool registerDynamicClass(const std::string& name, DynamicObjectFactory::NewCreator newCreator,
                          DynamicObjectFactory::SharedCreator sharedCreator) noexcept
{
    try {
        const auto registered = DynamicObjectFactory::getInstance().registerClass(name, newCreator, sharedCreator);
        if (!registered) {
            logMessage(getORLIXUtilLoggerName(), g_errorLogLevel, registered.getMessage(), __FILE__, __LINE__);
        }
        return registered.getValue();
    } catch (...) {
        // Out of memory while loading: the class stays unknown, which its first use tells.
        return false;
    }
}

void unRegisterDynamicClass(const std::string& name) noexcept
{
    try {
        DynamicObjectFactory::getInstance().unRegisterClass(name);
    } catch (...) {
        // Only a broken mutex gets here, while the library goes away: nobody is left to tell.
    }
}

} // namespace orlix::details
