#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/AttributeLogMessages.h"

namespace orlix::processor {

BaseAttribute::~BaseAttribute() = default;

std::string BaseAttribute::getValueKind() const
{
    return "object";
}

bool BaseAttribute::takesText() const
{
    return false;
}

ProcessingResult<bool> BaseAttribute::setFromText(const std::string&)
{
    return ProcessingResult<bool>::failure(
        formatMessage<eAttributeMessage>(eAttributeMessage::eTakesNoText, getObjectName(), getValueKind()));
}

std::optional<std::string> BaseAttribute::getValueText() const
{
    return std::nullopt;
}

std::optional<std::string> BaseAttribute::getDefaultText() const
{
    return std::nullopt;
}

ProcessingResult<bool> BaseAttribute::refuseText(const std::string& text) const
{
    return ProcessingResult<bool>::failure(
        formatMessage<eAttributeMessage>(eAttributeMessage::eBadText, getObjectName(), getValueKind(), text));
}

} // namespace orlix::processor
