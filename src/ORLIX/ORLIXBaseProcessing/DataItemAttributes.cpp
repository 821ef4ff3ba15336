#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/AttributeLogMessages.h"

#include <locale>
#include <sstream>

namespace orlix::processor::details {

std::string printedItem(const BaseDataItem& item)
{
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    item.print(stream);
    return stream.str();
}

ProcessingResult<bool> itemTextFailed(const BaseAttribute& attribute, const std::string& flaw)
{
    return ProcessingResult<bool>::failure(
        formatMessage<eAttributeMessage>(eAttributeMessage::eBadItem, attribute.getObjectName(), flaw));
}

} // namespace orlix::processor::details
