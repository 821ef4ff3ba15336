// Messages of the command line.
#include "CommandMessages.h"

#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIX/ORLIXUtil/Logger/BaseLogger.h"

#include <log4cplus/logger.h>

namespace orlix {

using cli::eCommandMessage;

LogMessageManager& MessageCatalogue<eCommandMessage>::manager()
{
    return LogMessageManager::getInstance("orlix");
}

log4cplus::Logger MessageCatalogue<eCommandMessage>::logger()
{
    return log4cplus::Logger::getInstance(getBaseLoggerName() + ".orlix");
}

const std::vector<MessageText>& MessageCatalogue<eCommandMessage>::texts()
{
    static const std::vector<MessageText> g_texts = {
        {eCommandMessage::eBadArguments, "%s; `%s --help` tells more"},
        {eCommandMessage::eNoVerb, "a verb is needed, one of %s; `orlix --help` tells more"},
        {eCommandMessage::eUnknownVerb, "\"%s\" is no verb; use one of %s; `orlix --help` tells more"},
        {eCommandMessage::eUnknownInstructionSet,
         "--instruction-set: \"%s\" is no instruction set; use one that this processor has: %s"},
        {eCommandMessage::eInstructionSetMissing,
         "--instruction-set: this processor lacks %s; use one that it has: %s"},
        {eCommandMessage::eOptionForTiffOnly,
         "%s is for TIFF files, but the output is %s; leave the option out or let the name end in .tif"},
        {eCommandMessage::eOutputClosed, "the standard output can't be written (%s)"},
        {eCommandMessage::eNoMemory, "there is not enough memory; free some or work on a smaller image"},
        {eCommandMessage::eUnknownFailure, "an unknown exception ended the work; please report it"},
        {eCommandMessage::eInterrupted, "interrupted"},
        {eCommandMessage::eNotComparable,
         "%s is %s, %s is %s: only images of the same sizes and element type can be compared; `orlix convert` changes "
         "the type"},
        {eCommandMessage::ePictureNotPng,
         "--picture: the picture is a PNG file, but its name is %s: let it end in .png"}};
    return g_texts;
}

} // namespace orlix
