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
        {Message::eInputAttributeNull, "Input attribute should not be null"},
        {Message::eSliceOf, "it has to be a slice along %s of %s, which is %s"},
        {Message::eNoSuchSlice,
         "There is no slice %d along %s: the volume is %s, so choose one of the first %d from 0"},
        {Message::eSliceTypeDiffers,
         "The slice is %s, the volume %s: give a slice of the volume's element type, or convert it first"},
        {Message::eNoHostPixels,
         "%s, which is %s, is on a GPU, but has to be in the memory of the host: bring it there with toHost first"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<imaproc::util::eRuleMessage> g_registration;

} // namespace

} // namespace orlix
