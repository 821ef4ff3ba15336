// Messages of rules.
#include "ORLIXIPL/ORLIXIPLUtility/Logger/RuleLogMessages.h"

#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLog.h"

namespace orlix {

LibraryLog& MessageCatalogue<imaproc::util::eRuleMessage>::log()
{
    return imaproc::util::getORLIXIPLUtilityLog();
}

const std::vector<MessageText>& MessageCatalogue<imaproc::util::eRuleMessage>::texts()
{
    using Message = imaproc::util::eRuleMessage;
    static const std::vector<MessageText> g_texts = {
        {Message::eAttributeExpired, "Attribute weak pointer has expired, can't get it"},
        {Message::eInputAttributeNull, "Input attribute should not be null"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<imaproc::util::eRuleMessage> g_registration;

} // namespace

} // namespace orlix
