// Rules about images and strips. Each takes shared or weak pointers to attributes and keeps weak references; each reads
// the attributes when it is checked, and its failure text tells sizes and types of both.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseRule.h"
#include "ORLIXIPL/ORLIXImage/ImageKind.h"
#include "ORLIXIPL/ORLIXImageProcessing/BufferTypeAttribute.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImagePredicates.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/RangeRules.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/StripRefs.h"

namespace orlix::imaproc {

namespace details {
// By overload: a pointer to a strip attribute becomes the reference of its kind of strip.
ORLIXIMAGEPROCESSING_API processor::RulePtr
matchImageSize(const ImageAttributeRef& first, const ImageAttributeRef& second, const eMatchImageSizeType& type);
ORLIXIMAGEPROCESSING_API processor::RulePtr matchStripSize(const YStripRef& first, const YStripRef& second);
ORLIXIMAGEPROCESSING_API processor::RulePtr matchStripSize(const ZStripRef& first, const ZStripRef& second);
ORLIXIMAGEPROCESSING_API processor::RulePtr matchImageSizeAndType(const ImageAttributeRef& first,
                                                                  const ImageAttributeRef& second);
ORLIXIMAGEPROCESSING_API processor::RulePtr matchStripSizeAndType(const YStripRef& first, const YStripRef& second);
ORLIXIMAGEPROCESSING_API processor::RulePtr matchStripSizeAndType(const ZStripRef& first, const ZStripRef& second);
ORLIXIMAGEPROCESSING_API processor::RulePtr matchImageType(const ImageAttributeRef& first,
                                                           const ImageAttributeRef& second);
ORLIXIMAGEPROCESSING_API processor::RulePtr matchStripType(const StripAttributeRef& first,
                                                           const StripAttributeRef& second);
ORLIXIMAGEPROCESSING_API processor::RulePtr
hasFixedImageType(const processor::AttributeRef<const BaseOutputImageAttribute>& output);
ORLIXIMAGEPROCESSING_API processor::RulePtr hasFixedStripType(const YStripRef& output);
ORLIXIMAGEPROCESSING_API processor::RulePtr hasFixedStripType(const ZStripRef& output);

/// Both strips are of plans, or both of volumes.
template <class TPointer1, class TPointer2>
concept StripPointers = (YStripPointer<TPointer1> && YStripPointer<TPointer2>) ||
                        (ZStripPointer<TPointer1> && ZStripPointer<TPointer2>);
} // namespace details

/// Same five sizes and same element type in every time step.
template <AttributePointer<BaseImageAttribute> TPointer1, AttributePointer<BaseImageAttribute> TPointer2>
processor::RulePtr matchSizeAndType(const TPointer1& first, const TPointer2& second)
{
    return details::matchImageSizeAndType(first, second);
}
/// Same size of lines, or plans, as many of them, and same element type; margins don't count.
template <class TPointer1, class TPointer2>
requires details::StripPointers<TPointer1, TPointer2> processor::RulePtr matchSizeAndType(const TPointer1& first,
                                                                                          const TPointer2& second)
{
    return details::matchStripSizeAndType(first, second);
}

/// Same sizes, all five or those that `type` names, whatever the element types.
template <AttributePointer<BaseImageAttribute> TPointer1, AttributePointer<BaseImageAttribute> TPointer2>
processor::RulePtr matchSize(const TPointer1& first, const TPointer2& second,
                             const eMatchImageSizeType& type = eMatchImageSizeType::eAllSizes)
{
    return details::matchImageSize(first, second, type);
}
/// Same size of lines, or plans, and as many of them, whatever the element types; margins don't count.
template <class TPointer1, class TPointer2>
requires details::StripPointers<TPointer1, TPointer2> processor::RulePtr matchSize(const TPointer1& first,
                                                                                   const TPointer2& second)
{
    return details::matchStripSize(first, second);
}

/// Same element type, of images in every time step, whatever the sizes.
template <AttributePointer<BaseImageAttribute> TPointer1, AttributePointer<BaseImageAttribute> TPointer2>
processor::RulePtr matchBufferType(const TPointer1& first, const TPointer2& second)
{
    return details::matchImageType(first, second);
}
template <AttributePointer<BaseStripAttribute> TPointer1, AttributePointer<BaseStripAttribute> TPointer2>
processor::RulePtr matchBufferType(const TPointer1& first, const TPointer2& second)
{
    return details::matchStripType(first, second);
}

/// Both are of plans, or both of volumes, of whatever sizes; both have one channel, or both several.
ORLIXIMAGEPROCESSING_API processor::RulePtr matchVolumeGeometryType(const ImageAttributeRef& first,
                                                                    const ImageAttributeRef& second);
ORLIXIMAGEPROCESSING_API processor::RulePtr matchColorGeometryType(const ImageAttributeRef& first,
                                                                   const ImageAttributeRef& second);

/// Both hold the same pixels; they do not.
ORLIXIMAGEPROCESSING_API processor::RulePtr isInSitu(const ImageAttributeRef& first, const ImageAttributeRef& second);
ORLIXIMAGEPROCESSING_API processor::RulePtr noInSitu(const ImageAttributeRef& first, const ImageAttributeRef& second);

/// The image has the element type that the enumeration attribute tells, in every time step.
ORLIXIMAGEPROCESSING_API processor::RulePtr bufferType(const ImageAttributeRef& image,
                                                       const processor::AttributeRef<const BufferTypeAttribute>& type);
/// The output has the element type that its attribute fixes, of images in every time step; true where it fixes none.
template <AttributePointer<BaseOutputImageAttribute> TPointer>
processor::RulePtr hasFixedType(const TPointer& output)
{
    return details::hasFixedImageType(output);
}
template <AttributePointer<BaseStripAttribute> TPointer>
processor::RulePtr hasFixedType(const TPointer& output)
{
    return details::hasFixedStripType(output);
}

/// The image is of this kind.
ORLIXIMAGEPROCESSING_API processor::RulePtr imageType(const ImageAttributeRef& image, const image::eImageType& type);
ORLIXIMAGEPROCESSING_API processor::RulePtr imageBaseType(const ImageAttributeRef& image,
                                                          const image::eImageBaseType& type);

} // namespace orlix::imaproc
