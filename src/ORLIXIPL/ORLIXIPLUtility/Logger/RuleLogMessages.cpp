// Messages of rules.
#include "ORLIXIPL/ORLIXIPLUtility/Logger/RuleLogMessages.h"

#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLog.h"

#include <log4cplus/logger.h>

namespace orlix {

LogMessageManager& MessageCatalogue<imaproc::util::eRuleMessage>::manager()
{
    return imaproc::util::getORLIXIPLUtilityLogMessageManager();
}

log4cplus::Logger MessageCatalogue<imaproc::util::eRuleMessage>::logger()
{
    return imaproc::util::getORLIXIPLUtilityLogger();
}

const std::vector<MessageText>& MessageCatalogue<imaproc::util::eRuleMessage>::texts()
{
    using Message = imaproc::util::eRuleMessage;
    static const std::vector<MessageText> g_texts = {
        {Message::eAttributeExpired, "Attribute weak pointer has expired, can't get it"},
        {Message::eInputAttributeNull, "Input attribute should not be null"}};
    return g_texts;
}

} // namespace orlix
