// Gives every range a result of its own, and keeps the results to be merged.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"
#include "ORLIX/ORLIXBaseProcessing/RangeMap.h"

#include <boost/function.hpp>
#include <boost/make_shared.hpp>

namespace orlix::processor {

/// In the order of the ranges, whatever the order in which they ended.
template <class TResult>
using CreationResultMap = RangeMap<boost::shared_ptr<TResult>>;

/// Makes the result of the range that starts at `start` and holds `size` lines.
template <class TResult>
using CreationFunction = boost::function<boost::shared_ptr<TResult>(unsigned long start, unsigned long size)>;

/// A result by the default constructor of its class.
template <class TResult>
boost::shared_ptr<TResult> defaultDynamicByCreationResultSplitCreationFun(unsigned long, unsigned long)
{
    return boost::make_shared<TResult>();
}

/// `TAttribute` is an attribute of `TProcessor` that holds a shared pointer. The results lie in a map of the level that
/// set up the split, which merges them after the run; this split only fills it. A set-up empties the map.
template <class TProcessor, class TAttribute>
class DynamicByCreationResultSplit final : public FeedingSplit<BaseDynamicSplit, TProcessor, TAttribute>
{
public:
    using Result = typename TAttribute::StorageType::element_type;

    DynamicByCreationResultSplit() = default;
    DynamicByCreationResultSplit(const DynamicByCreationResultSplit&) = delete;
    DynamicByCreationResultSplit& operator=(const DynamicByCreationResultSplit&) = delete;

    /// Both have to outlive the run. An empty creation function raises std::runtime_error at the first range, "call to
    /// empty boost::function".
    ProcessingResult<bool> initBase(const CreationFunction<Result>& create, CreationResultMap<Result>& results)
    {
        m_create = &create;
        m_results = &results;
        results.clear();
        return true;
    }
    /// Results as their default constructor makes them. One of a former run that nobody holds any more is used again,
    /// set to a new one's value. `results` has to outlive the run.
    ProcessingResult<bool> initBase(CreationResultMap<Result>& results)
    {
        if (!m_renew) {
            m_renew = [this](unsigned long start, unsigned long size) { return renew(start, size); };
        }
        return initBase(m_renew, results);
    }

    eSplitDynamicType getSplitDynamicType() const override { return eSplitDynamicType::eDynamicByCreationResultSplit; }
    ProcessingResult<bool> processAttribute(BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin&) override
    {
        boost::shared_ptr<Result> result = (*m_create)(start, size);
        this->feed(lower, result);
        m_results->insert(ElementsRange(start, size), std::move(result));
        return true;
    }
    RangeDemand getRangeDemand() const override { return {false, 0, 0, 1}; }
    void clear() override { m_create = nullptr, m_results = nullptr; }

private:
    boost::shared_ptr<Result> renew(unsigned long start, unsigned long size)
    {
        if (m_last.use_count() == 1) {
            *m_last = Result();
        } else {
            m_last = defaultDynamicByCreationResultSplitCreationFun<Result>(start, size);
        }
        return m_last;
    }

    const CreationFunction<Result>* m_create = nullptr;
    CreationResultMap<Result>* m_results = nullptr;
    CreationFunction<Result> m_renew;
    boost::shared_ptr<Result> m_last; ///< the last one renewed, for use again once all others have let it go
};

/// A split that gives each range what `create` makes of it, filed in `results`. Both have to outlive the run.
template <class TProcessor, class TAttribute>
boost::shared_ptr<DynamicByCreationResultSplit<TProcessor, TAttribute>>
dynamicByCreationResultSplit(const CreationFunction<typename TAttribute::StorageType::element_type>& create,
                             CreationResultMap<typename TAttribute::StorageType::element_type>& results)
{
    auto split = boost::make_shared<DynamicByCreationResultSplit<TProcessor, TAttribute>>();
    static_cast<void>(split->initBase(create, results)); // never fails
    return split;
}

} // namespace orlix::processor
