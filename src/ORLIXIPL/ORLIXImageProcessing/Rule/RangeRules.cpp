#include "ORLIXIPL/ORLIXImageProcessing/Rule/RangeRules.h"

#include "ORLIX/ORLIXBaseProcessing/AttributeRules.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImagePredicates.h"

namespace orlix::imaproc::details {

namespace {

ProcessingResult<bool> failure(const processor::BaseAttribute& data, const image::eImageBufferType& type,
                               const NamedValue& value)
{
    const std::string name =
        (value.leaf == nullptr ? "" : std::string(value.leaf) + " of ") + value.attribute.getObjectName();
    return ProcessingResult<bool>::failure(formatMessage<eImageRuleMessage>(
        eImageRuleMessage::eOutOfRange, name, value.text, image::getBufferTypeName(type), data.getObjectName(),
        image::getMinValue(type), image::getMaxValue(type)));
}

} // namespace

ProcessingResult<bool> checkHeld(const processor::BaseAttribute* attribute)
{
    if (attribute == nullptr) {
        return processor::details::attributeGone();
    }
    if (attribute->isHeld()) {
        return true;
    }
    const bool bImage = attribute->getAttributeType() == processor::eAttributeType::eImageProcessingAttribute;
    return bImage ? ProcessingResult<bool>::failure(
                        formatMessage<eImageRuleMessage>(eImageRuleMessage::eNothingHeld, attribute->getObjectName()))
                  : processor::details::attributeEmpty(*attribute);
}

bool isOutOfRange(const BaseImageAttribute& data, double value)
{
    return !isInRange(data.getImage(), value);
}

bool isOutOfRange(const BaseStripAttribute& data, double value)
{
    return !isInRange(data.getImageBufferType(), value);
}

ProcessingResult<bool> rangeFailed(const BaseImageAttribute& data, const NamedValue& value)
{
    const image::BaseImage& image = data.getImage();
    unsigned long t = 0;
    while (t + 1 < image.getSizeT() && isInRange(image.getBufferType(t), value.value)) {
        ++t;
    }
    return failure(data, t == 0 ? image.getBufferType() : image.getBufferType(t), value);
}

ProcessingResult<bool> rangeFailed(const BaseStripAttribute& data, const NamedValue& value)
{
    return failure(data, data.getImageBufferType(), value);
}

} // namespace orlix::imaproc::details
