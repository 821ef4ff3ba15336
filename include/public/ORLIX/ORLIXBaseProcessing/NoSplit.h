// Splits that cut nothing: every element gets the same value.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"

#include <boost/make_shared.hpp>

namespace orlix::processor {

/// The same value to each element of a static dispatcher.
template <class TProcessor, class TAttribute>
class StaticNoSplit final : public FeedingSplit<BaseStaticSplit, TProcessor, TAttribute>
{
public:
    using Value = typename TAttribute::StorageType;

    /// The value is read here, not per element.
    ProcessingResult<bool> initBase(const Value& value)
    {
        m_value = value;
        return true;
    }

    eSplitStaticType getSplitStaticType() const override { return eSplitStaticType::eStaticNoSplit; }
    ProcessingResult<bool> processAttribute(BaseProcessor& lower, unsigned int, const core::BaseRequestOrigin&) override
    {
        this->feed(lower, m_value);
        return true;
    }
    ElementDemand getElementDemand() const override { return {false, 0, 0}; }
    void clear() override { m_value = Value(); }

private:
    Value m_value{};
};

/// The same value to each range of a dynamic dispatcher.
template <class TProcessor, class TAttribute>
class DynamicNoSplit final : public FeedingSplit<BaseDynamicSplit, TProcessor, TAttribute>
{
public:
    using Value = typename TAttribute::StorageType;

    /// The value is read here, not per range.
    ProcessingResult<bool> initBase(const Value& value)
    {
        m_value = value;
        return true;
    }

    eSplitDynamicType getSplitDynamicType() const override { return eSplitDynamicType::eDynamicNoSplit; }
    ProcessingResult<bool> processAttribute(BaseProcessor& lower, unsigned long, unsigned long,
                                            const core::BaseRequestOrigin&) override
    {
        this->feed(lower, m_value);
        return true;
    }
    void clear() override { m_value = Value(); }

private:
    Value m_value{};
};

/// A split that gives `value` to each element.
template <class TProcessor, class TAttribute>
boost::shared_ptr<StaticNoSplit<TProcessor, TAttribute>> staticNoSplit(const typename TAttribute::StorageType& value)
{
    auto split = boost::make_shared<StaticNoSplit<TProcessor, TAttribute>>();
    static_cast<void>(split->initBase(value));
    return split;
}

/// A split that gives `value` to each range.
template <class TProcessor, class TAttribute>
boost::shared_ptr<DynamicNoSplit<TProcessor, TAttribute>> dynamicNoSplit(const typename TAttribute::StorageType& value)
{
    auto split = boost::make_shared<DynamicNoSplit<TProcessor, TAttribute>>();
    static_cast<void>(split->initBase(value));
    return split;
}

} // namespace orlix::processor
