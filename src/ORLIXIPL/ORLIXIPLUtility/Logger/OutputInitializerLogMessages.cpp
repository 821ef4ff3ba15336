// Messages of output initializers.
#include "ORLIXIPL/ORLIXIPLUtility/Logger/OutputInitializerLogMessages.h"

#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLog.h"

#include <log4cplus/logger.h>

namespace orlix {

LogMessageManager& MessageCatalogue<imaproc::util::eOutputInitializerMessage>::manager()
{
    return imaproc::util::getORLIXIPLUtilityLogMessageManager();
}

log4cplus::Logger MessageCatalogue<imaproc::util::eOutputInitializerMessage>::logger()
{
    return imaproc::util::getORLIXIPLUtilityLogger();
}

const std::vector<MessageText>& MessageCatalogue<imaproc::util::eOutputInitializerMessage>::texts()
{
    using Message = imaproc::util::eOutputInitializerMessage;
    static const std::vector<MessageText> g_texts = {
        {Message::eInputAttributeNull, "Input attribute should not be null"}};
    return g_texts;
}

} // namespace orlix
