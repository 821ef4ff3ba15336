// The rules of ImageRules.h about strips.
#include "ORLIXIPL/ORLIXImageProcessing/Logger/ORLIXImageProcessingLogMessages.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

namespace orlix::imaproc {

namespace {

template <class... TArgs>
ProcessingResult<bool> failure(eImageRuleMessage::domain id, const TArgs&... args)
{
    return ProcessingResult<bool>::failure(formatMessage<eImageRuleMessage>(id, args...));
}

/// A rule about strips of one kind; `check` gets attributes and strips, and is only asked where both hold something.
template <class TStrip, class TCheck>
class StripPairRule final : public processor::BaseRule
{
public:
    StripPairRule(const StripRef<TStrip>& first, const StripRef<TStrip>& second, TCheck check)
        : m_first(first), m_second(second), m_check(check)
    {}

    ProcessingResult<bool> check() const override
    {
        const BaseStripAttribute* first = m_first.access();
        const BaseStripAttribute* second = m_second.access();
        if (first == nullptr || !first->isHeld()) {
            return details::checkHeld(first);
        }
        if (second == nullptr || !second->isHeld()) {
            return details::checkHeld(second);
        }
        return m_check(*first, m_first.getStrip(*first), *second, m_second.getStrip(*second));
    }

private:
    StripRef<TStrip> m_first;
    StripRef<TStrip> m_second;
    TCheck m_check;
};

template <class TStrip, class TCheck>
processor::RulePtr makeStripRule(const StripRef<TStrip>& first, const StripRef<TStrip>& second, TCheck check)
{
    return boost::make_shared<StripPairRule<TStrip, TCheck>>(first, second, check);
}

std::string stripSize(const image::BaseImageYStrip2d& strip)
{
    return std::to_string(strip.getSizeX()) + "x" + std::to_string(strip.getStripSizeY());
}
std::string stripSize(const image::BaseImageZStrip3d& strip)
{
    return std::to_string(strip.getSizeX()) + "x" + std::to_string(strip.getSizeY()) + "x" +
           std::to_string(strip.getStripSizeZ());
}

template <class TStrip>
processor::RulePtr makeStripSizeRule(const StripRef<TStrip>& first, const StripRef<TStrip>& second)
{
    return makeStripRule(
        first, second,
        [](const BaseStripAttribute& one, const TStrip& left, const BaseStripAttribute& other, const TStrip& right) {
            return isSameSize(left, right) ? ProcessingResult<bool>(true)
                                           : failure(eImageRuleMessage::eStripSizeDiffers, other.getObjectName(),
                                                     stripSize(right), one.getObjectName(), stripSize(left));
        });
}

template <class TStrip>
processor::RulePtr makeStripSizeAndTypeRule(const StripRef<TStrip>& first, const StripRef<TStrip>& second)
{
    return makeStripRule(
        first, second,
        [](const BaseStripAttribute& one, const TStrip& left, const BaseStripAttribute& other, const TStrip& right) {
            return isSameSizeAndType(left, right)
                       ? ProcessingResult<bool>(true)
                       : failure(eImageRuleMessage::eStripSizeOrTypeDiffers, other.getObjectName(), stripSize(right),
                                 image::getBufferTypeName(right.getImageBufferType()), one.getObjectName(),
                                 stripSize(left), image::getBufferTypeName(left.getImageBufferType()));
        });
}

template <class TStrip>
processor::RulePtr makeFixedTypeRule(const StripRef<TStrip>& output)
{
    return makeStripRule(
        output, output,
        [](const BaseStripAttribute& one, const TStrip& strip, const BaseStripAttribute&, const TStrip&) {
            const image::eImageBufferType fixed = one.getFixedBufferType();
            return fixed == image::eImageBufferType::eNoBuffer || isOfBufferType(strip, fixed)
                       ? ProcessingResult<bool>(true)
                       : failure(eImageRuleMessage::eNotOfFixedType, one.getObjectName(),
                                 stripSize(strip) + " " + image::getBufferTypeName(strip.getImageBufferType()),
                                 image::getBufferTypeName(fixed));
        });
}

/// Strips of any kinds.
class StripTypeRule final : public processor::BaseRule
{
public:
    StripTypeRule(const StripAttributeRef& first, const StripAttributeRef& second) : m_first(first), m_second(second) {}

    ProcessingResult<bool> check() const override
    {
        const BaseStripAttribute* one = m_first.access();
        const BaseStripAttribute* other = m_second.access();
        if (one == nullptr || !one->isHeld()) {
            return details::checkHeld(one);
        }
        if (other == nullptr || !other->isHeld()) {
            return details::checkHeld(other);
        }
        const image::eImageBufferType left = one->getImageBufferType();
        const image::eImageBufferType right = other->getImageBufferType();
        return left == right
                   ? ProcessingResult<bool>(true)
                   : failure(eImageRuleMessage::eTypeDiffers, other->getObjectName(), image::getBufferTypeName(right),
                             one->getObjectName(), image::getBufferTypeName(left));
    }

private:
    StripAttributeRef m_first;
    StripAttributeRef m_second;
};

} // namespace

namespace details {

processor::RulePtr matchStripSize(const YStripRef& first, const YStripRef& second)
{
    return makeStripSizeRule(first, second);
}

processor::RulePtr matchStripSize(const ZStripRef& first, const ZStripRef& second)
{
    return makeStripSizeRule(first, second);
}

processor::RulePtr matchStripSizeAndType(const YStripRef& first, const YStripRef& second)
{
    return makeStripSizeAndTypeRule(first, second);
}

processor::RulePtr matchStripSizeAndType(const ZStripRef& first, const ZStripRef& second)
{
    return makeStripSizeAndTypeRule(first, second);
}

processor::RulePtr matchStripType(const StripAttributeRef& first, const StripAttributeRef& second)
{
    return boost::make_shared<StripTypeRule>(first, second);
}

processor::RulePtr hasFixedStripType(const YStripRef& output)
{
    return makeFixedTypeRule(output);
}

processor::RulePtr hasFixedStripType(const ZStripRef& output)
{
    return makeFixedTypeRule(output);
}

} // namespace details

} // namespace orlix::imaproc
