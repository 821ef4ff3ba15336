// The rules about images and strips as types; see RuleTypes.h. Each makes the rule of the same name of ImageRules.h.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/RuleTypes.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRules.h"

namespace orlix::imaproc {

/// Same five sizes and same element type in every time step; of strips the same lines and type.
template <class TFirst, class TSecond>
struct MatchSizeAndType
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        return matchSizeAndType(processor::own<TFirst>(attributes), processor::own<TSecond>(attributes));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        return isSameSizeAndType(*values.template get<TFirst>(), *values.template get<TSecond>());
    }
};

/// Same sizes of images, all five or those that `type` names, whatever the element types; of strips the same lines or
/// plans.
template <class TFirst, class TSecond, eMatchImageSizeType::domain type = eMatchImageSizeType::eAllSizes>
struct MatchSize
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        if constexpr (type == eMatchImageSizeType::eAllSizes) {
            return matchSize(processor::own<TFirst>(attributes), processor::own<TSecond>(attributes));
        } else {
            return matchSize(processor::own<TFirst>(attributes), processor::own<TSecond>(attributes), type);
        }
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        if constexpr (type == eMatchImageSizeType::eAllSizes) {
            return isSameSize(*values.template get<TFirst>(), *values.template get<TSecond>());
        } else {
            return isSameSize(*values.template get<TFirst>(), *values.template get<TSecond>(), type);
        }
    }
};

/// Same element type, of images in every time step, whatever the sizes.
template <class TFirst, class TSecond>
struct MatchBufferType
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        return matchBufferType(processor::own<TFirst>(attributes), processor::own<TSecond>(attributes));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        return isSameBufferType(*values.template get<TFirst>(), *values.template get<TSecond>());
    }
};

/// The image has the element type that an attribute tells, in every time step.
template <class TImage, class TType>
struct HasBufferType
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        return bufferType(processor::own<TImage>(attributes), processor::own<TType>(attributes));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        return isOfBufferType(*values.template get<TImage>(), values.template get<TType>());
    }
};

/// The output has the element type that its attribute fixes; true where it fixes none.
template <class TOutput>
struct HasFixedType
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        return hasFixedType(processor::own<TOutput>(attributes));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        const image::eImageBufferType fixed = TOutput().getFixedBufferType();
        return fixed == image::eImageBufferType::eNoBuffer || isOfBufferType(*values.template get<TOutput>(), fixed);
    }
};

/// The value lies in the range of the element type of the image, in every time step, or of the strip.
template <class TData, class TValue>
struct MatchRange
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        return matchRange<TValue>(processor::own<TData>(attributes), processor::own<TValue>(attributes));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        return isInRange(*values.template get<TData>(), static_cast<double>(values.template get<TValue>()));
    }
};

/// Leaf `TLeaf` of the data item lies in that range.
template <class TData, class TItem, class TLeaf>
struct MatchLeafRange
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        return matchRange<TLeaf>(processor::own<TData>(attributes), processor::own<TItem>(attributes));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        return isInRange(*values.template get<TData>(), values.template get<TItem>()->template get<TLeaf>());
    }
};

/// Both are the very same pixels. As a level's `NothingToDo`, or as the condition of a two-stage level.
template <class TFirst, class TSecond>
struct InSitu
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        return isInSitu(processor::own<TFirst>(attributes), processor::own<TSecond>(attributes));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        const image::BaseImage& first = *values.template get<TFirst>();
        const image::BaseImage& second = *values.template get<TSecond>();
        return first.getPixelLayout().first == second.getPixelLayout().first && first.sharesPixelsWith(second);
    }
};

/// They are not.
template <class TFirst, class TSecond>
struct NoInSitu
{
    template <class TAttributes>
    static processor::RulePtr make(const TAttributes& attributes)
    {
        return noInSitu(processor::own<TFirst>(attributes), processor::own<TSecond>(attributes));
    }
    template <class TValues>
    static bool holds(const TValues& values)
    {
        return !InSitu<TFirst, TSecond>::holds(values);
    }
};

/// As `NothingToDo`: there always is something.
struct Never
{
    template <class TValues>
    static bool holds(const TValues&)
    {
        return false;
    }
};

} // namespace orlix::imaproc
