// Messages of the module as a whole.
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLogMessages.h"

#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLog.h"

#include <log4cplus/logger.h>

namespace orlix {

LogMessageManager& MessageCatalogue<imaproc::util::eORLIXIPLUtilityMessage>::manager()
{
    return imaproc::util::getORLIXIPLUtilityLogMessageManager();
}

log4cplus::Logger MessageCatalogue<imaproc::util::eORLIXIPLUtilityMessage>::logger()
{
    return imaproc::util::getORLIXIPLUtilityLogger();
}

const std::vector<MessageText>& MessageCatalogue<imaproc::util::eORLIXIPLUtilityMessage>::texts()
{
    using Message = imaproc::util::eORLIXIPLUtilityMessage;
    static const std::vector<MessageText> g_texts = {
        {Message::eOutputImageNotInitialized, "The output image has not been initialized"}};
    return g_texts;
}

} // namespace orlix
