// Rules about images and strips. Each takes shared or weak pointers to attributes and keeps weak references; each reads
// the attributes when it is checked, and its failure text tells sizes and types of both.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseRule.h"
#include "ORLIXIPL/ORLIXImage/ImageKind.h"
#include "ORLIXIPL/ORLIXImageProcessing/BufferTypeAttribute.h"
#include "ORLIXIPL/ORLIXImageProcessing/StripAttributes.h"

#include <boost/make_shared.hpp>

#include <concepts>

namespace orlix::imaproc {

using ImageAttributeRef = processor::AttributeRef<const BaseImageAttribute>;
using StripAttributeRef = processor::AttributeRef<const BaseYStrip2dAttribute>;

/// A shared or weak pointer to an attribute of the given kind.
template <class TPointer, class TAttribute>
concept AttributePointer = std::derived_from<typename TPointer::element_type, TAttribute>;

namespace details {
ORLIXIMAGEPROCESSING_API processor::RulePtr matchImageSize(const ImageAttributeRef& first,
                                                           const ImageAttributeRef& second);
ORLIXIMAGEPROCESSING_API processor::RulePtr matchStripSize(const StripAttributeRef& first,
                                                           const StripAttributeRef& second);
ORLIXIMAGEPROCESSING_API processor::RulePtr matchImageSizeAndType(const ImageAttributeRef& first,
                                                                  const ImageAttributeRef& second);
ORLIXIMAGEPROCESSING_API processor::RulePtr matchStripSizeAndType(const StripAttributeRef& first,
                                                                  const StripAttributeRef& second);
ORLIXIMAGEPROCESSING_API processor::RulePtr
hasFixedImageType(const processor::AttributeRef<const BaseOutputImageAttribute>& output);
ORLIXIMAGEPROCESSING_API processor::RulePtr
hasFixedStripType(const processor::AttributeRef<const BaseOutputYStrip2dAttribute>& output);
ORLIXIMAGEPROCESSING_API ProcessingResult<bool> checkRange(const BaseImageAttribute* data,
                                                           const processor::BaseAttribute* valueAttribute, double value);
ORLIXIMAGEPROCESSING_API ProcessingResult<bool> checkRange(const BaseYStrip2dAttribute* data,
                                                           const processor::BaseAttribute* valueAttribute, double value);
} // namespace details

/// Same five sizes and same element type in every time step.
template <AttributePointer<BaseImageAttribute> TPointer1, AttributePointer<BaseImageAttribute> TPointer2>
processor::RulePtr matchSizeAndType(const TPointer1& first, const TPointer2& second)
{
    return details::matchImageSizeAndType(first, second);
}
/// Same line length, same number of lines, same element type.
template <AttributePointer<BaseYStrip2dAttribute> TPointer1, AttributePointer<BaseYStrip2dAttribute> TPointer2>
processor::RulePtr matchSizeAndType(const TPointer1& first, const TPointer2& second)
{
    return details::matchStripSizeAndType(first, second);
}

/// Same five sizes, whatever the element types.
template <AttributePointer<BaseImageAttribute> TPointer1, AttributePointer<BaseImageAttribute> TPointer2>
processor::RulePtr matchSize(const TPointer1& first, const TPointer2& second)
{
    return details::matchImageSize(first, second);
}
/// Same line length and number of lines, whatever the element types.
template <AttributePointer<BaseYStrip2dAttribute> TPointer1, AttributePointer<BaseYStrip2dAttribute> TPointer2>
processor::RulePtr matchSize(const TPointer1& first, const TPointer2& second)
{
    return details::matchStripSize(first, second);
}

/// Both hold the same pixels; they do not.
ORLIXIMAGEPROCESSING_API processor::RulePtr isInSitu(const ImageAttributeRef& first, const ImageAttributeRef& second);
ORLIXIMAGEPROCESSING_API processor::RulePtr noInSitu(const ImageAttributeRef& first, const ImageAttributeRef& second);

/// The image has the element type that the enumeration attribute tells, in every time step.
ORLIXIMAGEPROCESSING_API processor::RulePtr bufferType(const ImageAttributeRef& image,
                                                       const processor::AttributeRef<const BufferTypeAttribute>& type);
/// The output has the element type that its attribute fixes, in every time step; true where it fixes none.
template <AttributePointer<BaseOutputImageAttribute> TPointer>
processor::RulePtr hasFixedType(const TPointer& output)
{
    return details::hasFixedImageType(output);
}
template <AttributePointer<BaseOutputYStrip2dAttribute> TPointer>
processor::RulePtr hasFixedType(const TPointer& output)
{
    return details::hasFixedStripType(output);
}

/// The image is of this kind.
ORLIXIMAGEPROCESSING_API processor::RulePtr imageType(const ImageAttributeRef& image, const image::eImageType& type);
ORLIXIMAGEPROCESSING_API processor::RulePtr imageBaseType(const ImageAttributeRef& image,
                                                          const image::eImageBaseType& type);

/// A value, as it stands in a `double`, lies in the range of an element type, of an image in every time step's; NaN and
/// infinities never do. `TValue` is a value attribute, `TData` an image or strip attribute.
template <class TValue, class TData>
class RuleMatchValueToRange : public processor::BaseRule
{
public:
    RuleMatchValueToRange(const processor::AttributeRef<const TData>& data,
                          const processor::AttributeRef<const TValue>& value)
        : m_data(data), m_value(value)
    {}

    ProcessingResult<bool> check() const override
    {
        const TValue* value = m_value.access();
        return details::checkRange(m_data.access(), value,
                                   value != nullptr ? static_cast<double>(value->accessValue()) : 0.0);
    }

private:
    processor::AttributeRef<const TData> m_data;
    processor::AttributeRef<const TValue> m_value;
};

template <class TValue>
using RuleMatchValueToImageRange = RuleMatchValueToRange<TValue, BaseImageAttribute>;
template <class TValue>
using RuleMatchValueToStripRange = RuleMatchValueToRange<TValue, BaseYStrip2dAttribute>;

/// The value lies in the range of the image's, or the strip's, element type.
template <class TValue>
processor::RulePtr matchImageRange(const ImageAttributeRef& image, const processor::AttributeRef<const TValue>& value)
{
    return boost::make_shared<RuleMatchValueToImageRange<TValue>>(image, value);
}
template <class TValue>
processor::RulePtr matchStripRange(const StripAttributeRef& strip, const processor::AttributeRef<const TValue>& value)
{
    return boost::make_shared<RuleMatchValueToStripRange<TValue>>(strip, value);
}

} // namespace orlix::imaproc
