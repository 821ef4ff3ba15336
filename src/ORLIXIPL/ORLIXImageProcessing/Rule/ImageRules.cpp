#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

#include "ORLIX/ORLIXBaseProcessing/AttributeRules.h"
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"

namespace orlix::imaproc {

namespace {

template <class... TArgs>
ProcessingResult<bool> failure(eImageRuleMessage::domain id, const TArgs&... args)
{
    return ProcessingResult<bool>::failure(formatMessage<eImageRuleMessage>(id, args...));
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
            return details::checkHeld(first);
        }
        if (second == nullptr || !second->isHeld()) {
            return details::checkHeld(second);
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

const char* comparedSizes(const eMatchImageSizeType& type)
{
    switch (static_cast<eMatchImageSizeType::domain>(type)) {
    case eMatchImageSizeType::eAllButTime: return "sizes on x, y, z and c";
    case eMatchImageSizeType::eColorAndTime: return "sizes on c and t";
    case eMatchImageSizeType::eVolumeColorAndTime: return "sizes on z, c and t";
    default: return "sizes";
    }
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

const char* volumeName(const image::BaseImage& image)
{
    return image.getGeometry().getVolumeGeometry().is3d() ? "volumes" : "single plans";
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
        if (ProcessingResult<bool> result = details::checkHeld(attribute); !result) {
            return result;
        }
        if (type == nullptr) {
            return processor::details::attributeGone();
        }
        const image::BaseImageGeometry& geometry = attribute->getImage().getGeometry();
        return isOfBufferType(attribute->getImage(), type->getValue())
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

processor::RulePtr matchImageSize(const ImageAttributeRef& first, const ImageAttributeRef& second,
                                  const eMatchImageSizeType& type)
{
    return makePairRule(first, second, [type](const BaseImageAttribute& one, const BaseImageAttribute& other) {
        return isSameSize(one.getImage(), other.getImage(), type)
                   ? ProcessingResult<bool>(true)
                   : failure(eImageRuleMessage::eSizeDiffers, other.getObjectName(),
                             other.getImage().getGeometry().toString(), one.getObjectName(),
                             one.getImage().getGeometry().toString(), comparedSizes(type));
    });
}

processor::RulePtr matchImageSizeAndType(const ImageAttributeRef& first, const ImageAttributeRef& second)
{
    return makePairRule(first, second, [](const BaseImageAttribute& one, const BaseImageAttribute& other) {
        return isSameSizeAndType(one.getImage(), other.getImage())
                   ? ProcessingResult<bool>(true)
                   : failure(eImageRuleMessage::eSizeOrTypeDiffers, other.getObjectName(),
                             other.getImage().getGeometry().toString(), one.getObjectName(),
                             one.getImage().getGeometry().toString());
    });
}

processor::RulePtr matchImageType(const ImageAttributeRef& first, const ImageAttributeRef& second)
{
    return makePairRule(first, second, [](const BaseImageAttribute& one, const BaseImageAttribute& other) {
        return isSameBufferType(one.getImage(), other.getImage())
                   ? ProcessingResult<bool>(true)
                   : failure(eImageRuleMessage::eTypeDiffers, other.getObjectName(),
                             other.getImage().getGeometry().toString(), one.getObjectName(),
                             one.getImage().getGeometry().toString());
    });
}

processor::RulePtr hasFixedImageType(const processor::AttributeRef<const BaseOutputImageAttribute>& output)
{
    return makePairRule(output, output, [](const BaseOutputImageAttribute& one, const BaseOutputImageAttribute&) {
        const image::eImageBufferType fixed = one.getFixedBufferType();
        const bool bRight = fixed == image::eImageBufferType::eNoBuffer || isOfBufferType(one.getImage(), fixed);
        return bRight ? ProcessingResult<bool>(true)
                      : failure(eImageRuleMessage::eNotOfFixedType, one.getObjectName(),
                                one.getImage().getGeometry().toString(), image::getBufferTypeName(fixed));
    });
}

} // namespace details

processor::RulePtr matchVolumeGeometryType(const ImageAttributeRef& first, const ImageAttributeRef& second)
{
    return makePairRule(first, second, [](const BaseImageAttribute& one, const BaseImageAttribute& other) {
        return isSameVolumeGeometryType(one.getImage(), other.getImage())
                   ? ProcessingResult<bool>(true)
                   : failure(eImageRuleMessage::eVolumeTypeDiffers, other.getObjectName(), volumeName(other.getImage()),
                             one.getObjectName(), volumeName(one.getImage()));
    });
}

processor::RulePtr matchColorGeometryType(const ImageAttributeRef& first, const ImageAttributeRef& second)
{
    return makePairRule(first, second, [](const BaseImageAttribute& one, const BaseImageAttribute& other) {
        return isSameColorGeometryType(one.getImage(), other.getImage())
                   ? ProcessingResult<bool>(true)
                   : failure(eImageRuleMessage::eColorTypeDiffers, other.getObjectName(), other.getImage().getSizeC(),
                             one.getObjectName(), one.getImage().getSizeC());
    });
}

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

processor::RulePtr bufferType(const ImageAttributeRef& image,
                              const processor::AttributeRef<const BufferTypeAttribute>& type)
{
    return boost::make_shared<BufferTypeRule>(image, type);
}

processor::RulePtr imageType(const ImageAttributeRef& image, const image::eImageType& type)
{
    return makePairRule(image, image, [type](const BaseImageAttribute& one, const BaseImageAttribute&) {
        const image::eImageType found = one.getImage().getImageType();
        return found == type
                   ? ProcessingResult<bool>(true)
                   : failure(eImageRuleMessage::eWrongImageType, one.getObjectName(), kindName(found), kindName(type));
    });
}

processor::RulePtr imageBaseType(const ImageAttributeRef& image, const image::eImageBaseType& type)
{
    return makePairRule(image, image, [type](const BaseImageAttribute& one, const BaseImageAttribute&) {
        const image::eImageBaseType found = one.getImage().getImageBaseType();
        return found == type
                   ? ProcessingResult<bool>(true)
                   : failure(eImageRuleMessage::eWrongMemory, one.getObjectName(), baseKindName(found),
                             baseKindName(type), type == image::eImageBaseType::eHostImage ? "toHost" : "toDevice");
    });
}

} // namespace orlix::imaproc
