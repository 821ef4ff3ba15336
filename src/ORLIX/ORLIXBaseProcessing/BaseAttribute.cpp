#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"

#include "ORLIX/ORLIXBaseProcessing/Logger/AttributeLogMessages.h"

namespace orlix::processor {

namespace details {
namespace {

/// Why no item at all can be set this way.
ProcessingResult<bool> refuseItem(const BaseAttribute& attribute, bool bAsOutput)
{
    const std::string& name = attribute.getObjectName();
    if (attribute.getAttributeType() != eAttributeType::eDataItemAttribute) {
        return ProcessingResult<bool>::failure(
            formatMessage<eAttributeMessage>(eAttributeMessage::eHoldsNoItem, name, attribute.getValueKind()));
    }
    if (attribute.isOutput() != bAsOutput) {
        return ProcessingResult<bool>::failure(formatMessage<eAttributeMessage>(
            eAttributeMessage::eOtherDirection, name, bAsOutput ? "an input" : "an output",
            bAsOutput ? "setInputItem" : "setOutputItem"));
    }
    return ProcessingResult<bool>::failure(formatMessage<eAttributeMessage>(eAttributeMessage::eNoItemClass, name));
}

} // namespace
} // namespace details

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

boost::shared_ptr<const BaseDataItem> BaseAttribute::getItem() const
{
    return {};
}

ProcessingResult<bool> BaseAttribute::setInputItem(const boost::shared_ptr<const BaseDataItem>&)
{
    return details::refuseItem(*this, false);
}

ProcessingResult<bool> BaseAttribute::setOutputItem(const boost::shared_ptr<BaseDataItem>&)
{
    return details::refuseItem(*this, true);
}

ProcessingResult<bool> BaseAttribute::refuseText(const std::string& text) const
{
    return ProcessingResult<bool>::failure(
        formatMessage<eAttributeMessage>(eAttributeMessage::eBadText, getObjectName(), getValueKind(), text));
}

} // namespace orlix::processor
