// Rules about values that have to fit the element type of an image or a strip.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseRule.h"
#include "ORLIX/ORLIXBaseProcessing/ValueText.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseImageAttributes.h"
#include "ORLIXIPL/ORLIXImageProcessing/BaseStripAttributes.h"

#include <boost/make_shared.hpp>

#include <concepts>

namespace orlix::imaproc {

using ImageAttributeRef = processor::AttributeRef<const BaseImageAttribute>;
/// Of strips of any kind.
using StripAttributeRef = processor::AttributeRef<const BaseStripAttribute>;

/// A shared or weak pointer to an attribute of the given kind.
template <class TPointer, class TAttribute>
concept AttributePointer = std::derived_from<typename TPointer::element_type, TAttribute>;

namespace details {

/// A value under a rule, its name for people, and its text.
struct NamedValue
{
    const processor::BaseAttribute& attribute;
    const char* leaf; ///< null for the attribute's own value
    double value;
    std::string text;
};

ORLIXIMAGEPROCESSING_API ProcessingResult<bool> checkHeld(const processor::BaseAttribute* attribute);
ORLIXIMAGEPROCESSING_API bool isOutOfRange(const BaseImageAttribute& data, double value);
ORLIXIMAGEPROCESSING_API bool isOutOfRange(const BaseStripAttribute& data, double value);
/// The failure for a value that is out of range.
ORLIXIMAGEPROCESSING_API ProcessingResult<bool> rangeFailed(const BaseImageAttribute& data, const NamedValue& value);
ORLIXIMAGEPROCESSING_API ProcessingResult<bool> rangeFailed(const BaseStripAttribute& data, const NamedValue& value);

template <class TData>
class RuleMatchToRange : public processor::BaseRule
{
public:
    explicit RuleMatchToRange(const processor::AttributeRef<const TData>& data) : m_data(data) {}

protected:
    /// Does `number`, which is `leaf` of the attribute or, where that is null, its value, lie within?
    template <class TNumber>
    ProcessingResult<bool> checkRange(const processor::BaseAttribute& attribute, const char* leaf,
                                      const TNumber& number) const
    {
        const TData* data = m_data.access();
        if (ProcessingResult<bool> result = checkHeld(data); !result) {
            return result;
        }
        const auto value = static_cast<double>(number);
        return isOutOfRange(*data, value)
                   ? rangeFailed(*data, {attribute, leaf, value, processor::ValueText<TNumber>::write(number)})
                   : ProcessingResult<bool>(true);
    }

private:
    processor::AttributeRef<const TData> m_data;
};

/// A leaf of the data item that `TAttribute` holds.
template <class TLeaf, class TAttribute>
concept LeafOf = requires(const TAttribute& attribute)
{
    attribute.getDataItemNode().template get<TLeaf>();
};

} // namespace details

/// A value, as it stands in a `double`, lies in the range of an element type, of an image in every time step's; NaN and
/// infinities never do. `TValue` is a value attribute, `TData` the base class of image or strip attributes.
template <class TValue, class TData>
class RuleMatchValueToRange final : public details::RuleMatchToRange<TData>
{
public:
    RuleMatchValueToRange(const processor::AttributeRef<const TData>& data,
                          const processor::AttributeRef<const TValue>& value)
        : details::RuleMatchToRange<TData>(data), m_value(value)
    {}

    ProcessingResult<bool> check() const override
    {
        const TValue* value = m_value.access();
        return value == nullptr ? details::checkHeld(nullptr) : this->checkRange(*value, nullptr, value->accessValue());
    }

private:
    processor::AttributeRef<const TValue> m_value;
};

/// The same for leaf `TLeaf` of the data item that attribute `TAttribute` holds; fails where it holds none.
template <class TAttribute, class TLeaf, class TData>
class RuleMatchLeafToRange final : public details::RuleMatchToRange<TData>
{
public:
    RuleMatchLeafToRange(const processor::AttributeRef<const TData>& data,
                         const processor::AttributeRef<const TAttribute>& item)
        : details::RuleMatchToRange<TData>(data), m_item(item)
    {}

    ProcessingResult<bool> check() const override
    {
        const TAttribute* item = m_item.access();
        if (item == nullptr || !item->isHeld()) {
            return details::checkHeld(item);
        }
        return this->checkRange(*item, TLeaf::g_name, item->getDataItemNode().template get<TLeaf>());
    }

private:
    processor::AttributeRef<const TAttribute> m_item;
};

template <class TValue>
using RuleMatchValueToImageRange = RuleMatchValueToRange<TValue, BaseImageAttribute>;
template <class TValue>
using RuleMatchValueToStripRange = RuleMatchValueToRange<TValue, BaseStripAttribute>;
template <class TAttribute, class TLeaf>
using RuleMatchLeafToImageRange = RuleMatchLeafToRange<TAttribute, TLeaf, BaseImageAttribute>;
template <class TAttribute, class TLeaf>
using RuleMatchLeafToStripRange = RuleMatchLeafToRange<TAttribute, TLeaf, BaseStripAttribute>;

/// The value lies in the range of the image's, or the strip's, element type.
template <std::derived_from<processor::BaseAttribute> TValue>
processor::RulePtr matchImageRange(const ImageAttributeRef& image, const processor::AttributeRef<const TValue>& value)
{
    return boost::make_shared<RuleMatchValueToImageRange<TValue>>(image, value);
}
template <std::derived_from<processor::BaseAttribute> TValue>
processor::RulePtr matchStripRange(const StripAttributeRef& strip, const processor::AttributeRef<const TValue>& value)
{
    return boost::make_shared<RuleMatchValueToStripRange<TValue>>(strip, value);
}
/// And so does leaf `TLeaf` of the data item that `item`, a shared or weak pointer to an attribute, holds.
template <class TLeaf, class TPointer>
requires details::LeafOf<TLeaf, typename TPointer::element_type> processor::RulePtr
matchImageRange(const ImageAttributeRef& image, const TPointer& item)
{
    return boost::make_shared<RuleMatchLeafToImageRange<typename TPointer::element_type, TLeaf>>(image, item);
}
template <class TLeaf, class TPointer>
requires details::LeafOf<TLeaf, typename TPointer::element_type> processor::RulePtr
matchStripRange(const StripAttributeRef& strip, const TPointer& item)
{
    return boost::make_shared<RuleMatchLeafToStripRange<typename TPointer::element_type, TLeaf>>(strip, item);
}

/// The right one of the two for what `data` points to. `TWhat` is the value attribute or the leaf.
template <class TWhat, AttributePointer<BaseImageAttribute> TData, class TPointer>
processor::RulePtr matchRange(const TData& data, const TPointer& value)
{
    return matchImageRange<TWhat>(data, value);
}
template <class TWhat, AttributePointer<BaseStripAttribute> TData, class TPointer>
processor::RulePtr matchRange(const TData& data, const TPointer& value)
{
    return matchStripRange<TWhat>(data, value);
}

} // namespace orlix::imaproc
