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

ProcessingResult<bool> itemClassFailed(const BaseAttribute& attribute, const std::string& required,
                                       const BaseDataItem& found)
{
    return ProcessingResult<bool>::failure(formatMessage<eAttributeMessage>(
        eAttributeMessage::eOtherItemClass, attribute.getObjectName(), required, found.getClassName()));
}

} // namespace orlix::processor::details
