// Messages of the module as a whole.
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLogMessages.h"

#include "ORLIX/ORLIXUtil/CatalogueRegistration.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLog.h"

namespace orlix {

LibraryLog& MessageCatalogue<imaproc::util::eORLIXIPLUtilityMessage>::log()
{
    return imaproc::util::getORLIXIPLUtilityLog();
}

const std::vector<MessageText>& MessageCatalogue<imaproc::util::eORLIXIPLUtilityMessage>::texts()
{
    using Message = imaproc::util::eORLIXIPLUtilityMessage;
    static const std::vector<MessageText> g_texts = {
        {Message::eOutputImageNotInitialized, "The output image has not been initialized"},
        {Message::ePartBeyondWhole, "A part of %s from (%d, %d, %d) on reaches beyond a whole of %dx%dx%d: make it "
                                    "smaller, let it begin earlier, or name a larger whole"},
        {Message::ePartOfLines, "The part has %d pixels on axis x, the whole %d: a part has whole lines"},
        {Message::ePartOutside, "The part has %s size %d from %d on, the whole has %d: give a part that lies within"}};
    return g_texts;
}

namespace {

const CatalogueRegistration<imaproc::util::eORLIXIPLUtilityMessage> g_registration;

} // namespace

} // namespace orlix
