// Messages of ORLIXBaseImageTools.
#include "ORLIXIPL/ORLIXBaseImageTools/Logger/ORLIXBaseImageToolsLogMessages.h"

#include "ORLIXIPL/ORLIXBaseImageTools/Logger/ORLIXBaseImageToolsLog.h"

#include <log4cplus/logger.h>

namespace orlix {

using image::tools::eORLIXBaseImageToolsMessage;

LogMessageManager& MessageCatalogue<eORLIXBaseImageToolsMessage>::manager()
{
    return image::tools::getORLIXBaseImageToolsLogMessageManager();
}

log4cplus::Logger MessageCatalogue<eORLIXBaseImageToolsMessage>::logger()
{
    return image::tools::getORLIXBaseImageToolsLogger();
}

const std::vector<MessageText>& MessageCatalogue<eORLIXBaseImageToolsMessage>::texts()
{
    static const std::vector<MessageText> g_texts = {
        {eORLIXBaseImageToolsMessage::ePlanOutOfRange,
         "There is no plan (z=%d, c=%d, t=%d) in an image of %s: give indices below its sizes"},
        {eORLIXBaseImageToolsMessage::eVolumeOutOfRange,
         "There is no volume (c=%d, t=%d) in an image of %s: give indices below its sizes"},
        {eORLIXBaseImageToolsMessage::eStepsOutOfRange,
         "An image of %s does not have %d time steps from step %d on: give a range within its time steps"}};
    return g_texts;
}

} // namespace orlix
