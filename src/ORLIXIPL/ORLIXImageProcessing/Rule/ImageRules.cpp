#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

#include "ORLIX/ORLIXBaseProcessing/AttributeRules.h"
#include "ORLIX/ORLIXUtil/NumberText.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

#include <cmath>

namespace orlix::imaproc {

namespace {

template <class... TArgs>
ProcessingResult<bool> failure(eImageRuleMessage::domain id, const TArgs&... args)
{
    return ProcessingResult<bool>::failure(formatMessage<eImageRuleMessage>(id, args...));
}

/// Success where the attribute is there and holds something.
ProcessingResult<bool> checkHeld(const processor::BaseAttribute* attribute)
{
    if (attribute == nullptr) {
        return processor::details::attributeGone();
    }
    return attribute->isHeld() ? true : failure(eImageRuleMessage::eNothingHeld, attribute->getObjectName());
}

/// A rule about one or two attributes of a kind; `check` is only asked where both hold something.
template <class TRef, class TCheck>
class PairRule final : public processor::BaseRule
{
public:
    PairRule(const TRef& first, const TRef& second, TCheck check) : m_first(first), m_second(second), m_check(check) {}

    ProcessingResult<bool> check() const override
    {
        const auto* first = m_first.access();
        const auto* second = m_second.access();
        if (first == nullptr || !first->isHeld()) {
            return checkHeld(first);
        }
        if (second == nullptr || !second->isHeld()) {
            return checkHeld(second);
        }
        return m_check(*first, *second);
    }

private:
    TRef m_first;
    TRef m_second;
    TCheck m_check;
};

template <class TRef, class TCheck>
processor::RulePtr makePairRule(const TRef& first, const TRef& second, TCheck check)
{
    return boost::make_shared<PairRule<TRef, TCheck>>(first, second, check);
}

std::string stripSize(const image::BaseImageYStrip2d& strip)
{
    return std::to_string(strip.getSizeX()) + "x" + std::to_string(strip.getStripSizeY());
}

bool hasSameLines(const image::BaseImageYStrip2d& left, const image::BaseImageYStrip2d& right)
{
    return left.getSizeX() == right.getSizeX() && left.getStripSizeY() == right.getStripSizeY();
}

const char* kindName(const image::eImageType& type)
{
    static constexpr const char* g_names[] = {"an image that owns its pixels", "an image over a caller's pixels",
                                              "part of another image"};
    return g_names[static_cast<image::eImageType::domain>(type)];
}

const char* baseKindName(const image::eImageBaseType& type)
{
    return type == image::eImageBaseType::eHostImage ? "an image in main memory" : "an image on a GPU";
}

bool isEveryStepOfType(const image::BaseImageGeometry& geometry, const image::eImageBufferType& type)
{
    bool bSame = geometry.getBufferType() == type;
    for (unsigned long t = 1; t < geometry.getSizeT() && !geometry.hasUniformBufferType(); ++t) {
        bSame = bSame && geometry.getBufferType(t) == type;
    }
    return bSame;
}

ProcessingResult<bool> checkTypeRange(const processor::BaseAttribute& data, const image::eImageBufferType& type,
                                      const processor::BaseAttribute* valueAttribute, double value)
{
    if (valueAttribute == nullptr) {
        return processor::details::attributeGone();
    }
    const double smallest = image::getMinValue(type);
    const double largest = image::getMaxValue(type);
    return value >= smallest && value <= largest
               ? ProcessingResult<bool>(true)
               : failure(eImageRuleMessage::eOutOfRange, valueAttribute->getObjectName(),
                         valueAttribute->getValueText().value_or(numberText(value)), image::getBufferTypeName(type),
                         data.getObjectName(), smallest, largest);
}

class BufferTypeRule final : public processor::BaseRule
{
public:
    BufferTypeRule(const ImageAttributeRef& image, const processor::AttributeRef<const BufferTypeAttribute>& type)
        : m_image(image), m_type(type)
    {}

    ProcessingResult<bool> check() const override
    {
        const BaseImageAttribute* attribute = m_image.access();
        const BufferTypeAttribute* type = m_type.access();
        if (ProcessingResult<bool> result = checkHeld(attribute); !result) {
            return result;
        }
        if (type == nullptr) {
            return processor::details::attributeGone();
        }
        const image::BaseImageGeometry& geometry = attribute->getImage().getGeometry();
        return isEveryStepOfType(geometry, type->getValue())
                   ? true
                   : failure(eImageRuleMessage::eWrongBufferType, attribute->getObjectName(), geometry.toString(),
                               image::getBufferTypeName(type->getValue()), type->getObjectName());
    }

private:
    ImageAttributeRef m_image;
    processor::AttributeRef<const BufferTypeAttribute> m_type;
};

} // namespace

namespace details {

processor::RulePtr matchImageSize(const ImageAttributeRef& first, const ImageAttributeRef& second)
{
    return makePairRule(first, second, [](const BaseImageAttribute& one, const BaseImageAttribute& other) {
        const image::BaseImageGeometry& left = one.getImage().getGeometry();
        const image::BaseImageGeometry& right = other.getImage().getGeometry();
        return left.hasSameSizes(right) ? ProcessingResult<bool>(true)
                                        : failure(eImageRuleMessage::eSizeDiffers, other.getObjectName(),
                                                  right.toString(), one.getObjectName(), left.toString());
    });
}

processor::RulePtr matchStripSize(const StripAttributeRef& first, const StripAttributeRef& second)
{
    return makePairRule(first, second, [](const BaseYStrip2dAttribute& one, const BaseYStrip2dAttribute& other) {
        const image::BaseImageYStrip2d& left = one.getBaseImageYStrip2d();
        const image::BaseImageYStrip2d& right = other.getBaseImageYStrip2d();
        return hasSameLines(left, right) ? ProcessingResult<bool>(true)
                                         : failure(eImageRuleMessage::eStripSizeDiffers, other.getObjectName(),
                                                   stripSize(right), one.getObjectName(), stripSize(left));
    });
}

processor::RulePtr matchImageSizeAndType(const ImageAttributeRef& first, const ImageAttributeRef& second)
{
    return makePairRule(first, second, [](const BaseImageAttribute& one, const BaseImageAttribute& other) {
        const image::BaseImageGeometry& left = one.getImage().getGeometry();
        const image::BaseImageGeometry& right = other.getImage().getGeometry();
        return left.hasSameSizes(right) && left.hasSameBufferTypes(right)
                   ? ProcessingResult<bool>(true)
                   : failure(eImageRuleMessage::eSizeOrTypeDiffers, other.getObjectName(), right.toString(),
                             one.getObjectName(), left.toString());
    });
}

processor::RulePtr matchStripSizeAndType(const StripAttributeRef& first, const StripAttributeRef& second)
{
    return makePairRule(first, second, [](const BaseYStrip2dAttribute& one, const BaseYStrip2dAttribute& other) {
        const image::BaseImageYStrip2d& left = one.getBaseImageYStrip2d();
        const image::BaseImageYStrip2d& right = other.getBaseImageYStrip2d();
        const bool bSame = hasSameLines(left, right) && left.getImageBufferType() == right.getImageBufferType();
        return bSame ? ProcessingResult<bool>(true)
                     : failure(eImageRuleMessage::eStripSizeOrTypeDiffers, other.getObjectName(), stripSize(right),
                               image::getBufferTypeName(right.getImageBufferType()), one.getObjectName(),
                               stripSize(left), image::getBufferTypeName(left.getImageBufferType()));
    });
}

processor::RulePtr hasFixedImageType(const processor::AttributeRef<const BaseOutputImageAttribute>& output)
{
    return makePairRule(output, output, [](const BaseOutputImageAttribute& one, const BaseOutputImageAttribute&) {
        const image::BaseImageGeometry& geometry = one.getImage().getGeometry();
        const image::eImageBufferType fixed = one.getFixedBufferType();
        const bool bRight = fixed == image::eImageBufferType::eNoBuffer || isEveryStepOfType(geometry, fixed);
        return bRight ? ProcessingResult<bool>(true)
                      : failure(eImageRuleMessage::eNotOfFixedType, one.getObjectName(), geometry.toString(),
                                image::getBufferTypeName(fixed));
    });
}

processor::RulePtr hasFixedStripType(const processor::AttributeRef<const BaseOutputYStrip2dAttribute>& output)
{
    return makePairRule(output, output, [](const BaseOutputYStrip2dAttribute& one, const BaseOutputYStrip2dAttribute&) {
        const image::eImageBufferType type = one.getImageBufferType();
        const image::eImageBufferType fixed = one.getFixedBufferType();
        return fixed == image::eImageBufferType::eNoBuffer || fixed == type
                   ? ProcessingResult<bool>(true)
                   : failure(eImageRuleMessage::eNotOfFixedType, one.getObjectName(),
                             stripSize(one.getBaseImageYStrip2d()) + " " + image::getBufferTypeName(type),
                             image::getBufferTypeName(fixed));
    });
}

ProcessingResult<bool> checkRange(const BaseImageAttribute* data, const processor::BaseAttribute* valueAttribute,
                                  double value)
{
    if (data == nullptr || !data->isHeld()) {
        return checkHeld(data);
    }
    const image::BaseImageGeometry& geometry = data->getImage().getGeometry();
    ProcessingResult<bool> result = checkTypeRange(*data, geometry.getBufferType(), valueAttribute, value);
    for (unsigned long t = 1; t < geometry.getSizeT() && result && !geometry.hasUniformBufferType(); ++t) {
        result = checkTypeRange(*data, geometry.getBufferType(t), valueAttribute, value);
    }
    return result;
}

ProcessingResult<bool> checkRange(const BaseYStrip2dAttribute* data, const processor::BaseAttribute* valueAttribute,
                                  double value)
{
    return data == nullptr || !data->isHeld()
               ? checkHeld(data)
               : checkTypeRange(*data, data->getImageBufferType(), valueAttribute, value);
}

} // namespace details

processor::RulePtr isInSitu(const ImageAttributeRef& first, const ImageAttributeRef& second)
{
    return makePairRule(first, second, [](const BaseImageAttribute& one, const BaseImageAttribute& other) {
        return one.getImage().sharesPixelsWith(other.getImage())
                   ? ProcessingResult<bool>(true)
                   : failure(eImageRuleMessage::eNotInSitu, one.getObjectName(), other.getObjectName());
    });
}

processor::RulePtr noInSitu(const ImageAttributeRef& first, const ImageAttributeRef& second)
{
    return makePairRule(first, second, [](const BaseImageAttribute& one, const BaseImageAttribute& other) {
        return !one.getImage().sharesPixelsWith(other.getImage())
                   ? ProcessingResult<bool>(true)
                   : failure(eImageRuleMessage::eInSitu, one.getObjectName(), other.getObjectName());
    });
}

processor::RulePtr bufferType(const ImageAttributeRef& image, const processor::AttributeRef<const BufferTypeAttribute>& type)
{
    return boost::make_shared<BufferTypeRule>(image, type);
}

processor::RulePtr imageType(const ImageAttributeRef& image, const image::eImageType& type)
{
    return makePairRule(image, image, [type](const BaseImageAttribute& one, const BaseImageAttribute&) {
        const image::eImageType found = one.getImage().getImageType();
        return found == type ? ProcessingResult<bool>(true)
                             : failure(eImageRuleMessage::eWrongImageType, one.getObjectName(), kindName(found),
                                       kindName(type));
    });
}

processor::RulePtr imageBaseType(const ImageAttributeRef& image, const image::eImageBaseType& type)
{
    return makePairRule(image, image, [type](const BaseImageAttribute& one, const BaseImageAttribute&) {
        const image::eImageBaseType found = one.getImage().getImageBaseType();
        return found == type ? ProcessingResult<bool>(true)
                             : failure(eImageRuleMessage::eWrongImageType, one.getObjectName(), baseKindName(found),
                                       baseKindName(type));
    });
}

} // namespace orlix::imaproc
