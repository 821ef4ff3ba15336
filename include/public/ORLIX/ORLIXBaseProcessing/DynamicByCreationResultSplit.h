// Gives every range a result of its own, and keeps the results to be merged.
#pragma once

#include "ORLIX/ORLIXBaseData/ElementsRange.h"
#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"

#include <boost/function.hpp>
#include <boost/make_shared.hpp>

#include <map>

namespace orlix::processor {

/// In the order of the ranges, whatever the order in which they ended.
template <class TResult>
using CreationResultMap = std::map<ElementsRange, boost::shared_ptr<TResult>>;

/// Makes the result of the range that starts at `start` and holds `size` lines.
template <class TResult>
using CreationFunction = boost::function<boost::shared_ptr<TResult>(unsigned long start, unsigned long size)>;

/// A result by the default constructor of its class.
template <class TResult>
boost::shared_ptr<TResult> defaultDynamicByCreationResultSplitCreationFun(unsigned long, unsigned long)
{
    return boost::make_shared<TResult>();
}

/// `TAttribute` is an output attribute of `TProcessor` that holds a shared pointer.
template <class TProcessor, class TAttribute>
class DynamicByCreationResultSplit final : public FeedingSplit<BaseDynamicSplit, TProcessor, TAttribute>
{
public:
    using Result = typename TAttribute::StorageType::element_type;

    /// Both have to outlive the run. An empty creation function raises std::runtime_error at the first range, "call to
    /// empty boost::function".
    ProcessingResult<bool> initBase(const CreationFunction<Result>& create, CreationResultMap<Result>& results)
    {
        m_create = &create;
        m_results = &results;
        return true;
    }

    eSplitDynamicType getSplitDynamicType() const override { return eSplitDynamicType::eDynamicByCreationResultSplit; }
    ProcessingResult<bool> processAttribute(BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin&) override
    {
        boost::shared_ptr<Result> result = (*m_create)(start, size);
        (*m_results)[ElementsRange(start, size)] = result;
        this->feed(lower, std::move(result));
        return true;
    }
    RangeDemand getRangeDemand() const override { return {false, 0, 0, 1}; }
    void clear() override { m_create = nullptr, m_results = nullptr; }

private:
    const CreationFunction<Result>* m_create = nullptr;
    CreationResultMap<Result>* m_results = nullptr; ///< the level's own, which merges it after the run
};

} // namespace orlix::processor
