// Messages of attributes.
#include "ORLIX/ORLIXBaseProcessing/Logger/AttributeLogMessages.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/ORLIXBaseProcessingLog.h"

#include <log4cplus/logger.h>

namespace orlix {

using processor::eAttributeMessage;

LogMessageManager& MessageCatalogue<eAttributeMessage>::manager()
{
    return processor::getORLIXBaseProcessingLogMessageManager();
}

log4cplus::Logger MessageCatalogue<eAttributeMessage>::logger()
{
    return processor::getORLIXBaseProcessingLogger();
}

const std::vector<MessageText>& MessageCatalogue<eAttributeMessage>::texts()
{
    static const std::vector<MessageText> g_texts = {
        {eAttributeMessage::eTakesNoText, "%s (%s) can't be given as text: set it from a program"},
        {eAttributeMessage::eBadText, "%s: expected %s, found \"%s\""}};
    return g_texts;
}

} // namespace orlix
