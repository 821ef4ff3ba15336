// Messages of output initializers.
#include "ORLIXIPL/ORLIXIPLUtility/Logger/OutputInitializerLogMessages.h"

#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLog.h"

namespace orlix {

LibraryLog& MessageCatalogue<imaproc::util::eOutputInitializerMessage>::log()
{
    return imaproc::util::getORLIXIPLUtilityLog();
}

const std::vector<MessageText>& MessageCatalogue<imaproc::util::eOutputInitializerMessage>::texts()
{
    using Message = imaproc::util::eOutputInitializerMessage;
    static const std::vector<MessageText> g_texts = {
        {Message::eInputAttributeNull, "Input attribute should not be null"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<imaproc::util::eOutputInitializerMessage> g_registration;

} // namespace

} // namespace orlix
