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

/// `TAttribute` is an attribute of `TProcessor` that holds a shared pointer. Results are filed in a map that whoever
/// set up the split merges after the run: one of its own, which has to outlive the run, or the split's. A set-up
/// empties the map.
template <class TProcessor, class TAttribute>
class DynamicByCreationResultSplit final : public FeedingSplit<BaseDynamicSplit, TProcessor, TAttribute>
{
public:
    using Result = typename TAttribute::StorageType::element_type;
    using Results = CreationResultMap<Result>;
    using Create = CreationFunction<Result>;

    DynamicByCreationResultSplit()
    {
        ElementsLocationInfo location;
        location.insertNonLocalized(ElementsRange(0, 1), 0);
        this->initUnSplitted(location);
    }
    DynamicByCreationResultSplit(const DynamicByCreationResultSplit&) = delete;
    DynamicByCreationResultSplit& operator=(const DynamicByCreationResultSplit&) = delete;

    /// Results as `create` makes them, which the split keeps until `clear`. An empty one raises std::runtime_error at
    /// the first range, "call to empty boost::function"; a null result raises ORLIXBaseProcessingException.
    ProcessingResult<bool> initBase(Create create) { return start(std::move(create), false, m_ownResults); }
    ProcessingResult<bool> initBase(Create create, Results& results)
    {
        return start(std::move(create), false, results);
    }
    /// Results as their default constructor makes them. One of a former run that nobody holds any more is used again,
    /// set to a new one's value.
    ProcessingResult<bool> initBase() { return start({}, true, m_ownResults); }
    ProcessingResult<bool> initBase(Results& results) { return start({}, true, results); }

    /// The split's own map: the results since its last set-up without another one, also after `clear`. Empty it once
    /// they are merged.
    Results& accessResults() { return m_ownResults; }

    eSplitDynamicType getSplitDynamicType() const override { return eSplitDynamicType::eDynamicByCreationResultSplit; }
    ProcessingResult<bool> processAttribute(BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin&) override
    {
        boost::shared_ptr<Result> result = m_bRenew ? renew(start, size) : m_create(start, size);
        if (!result) {
            this->throwNullInputSharedPtr();
        }
        this->feed(lower, result);
        m_results->insert(ElementsRange(start, size), std::move(result));
        return true;
    }
    void clear() override
    {
        m_create.clear();
        m_bRenew = false;
        m_results = &m_ownResults;
    }

private:
    ProcessingResult<bool> start(Create create, bool bRenew, Results& results)
    {
        m_create = std::move(create);
        m_bRenew = bRenew;
        m_results = &results;
        results.clear();
        return true;
    }

    boost::shared_ptr<Result> renew(unsigned long start, unsigned long size)
    {
        if (m_last.use_count() == 1) {
            *m_last = Result();
        } else {
            m_last = defaultDynamicByCreationResultSplitCreationFun<Result>(start, size);
        }
        return m_last;
    }

    Create m_create;
    bool m_bRenew = false;
    Results m_ownResults;
    Results* m_results = &m_ownResults;
    boost::shared_ptr<Result> m_last; ///< the last one renewed, for use again once all others have let it go
};

/// A split that gives each range what `create` makes of it, filed in the split's own map, see `accessResults`, or in
/// `results`, which has to outlive the run.
template <class TProcessor, class TAttribute>
boost::shared_ptr<DynamicByCreationResultSplit<TProcessor, TAttribute>>
dynamicByCreationResultSplit(CreationFunction<typename TAttribute::StorageType::element_type> create)
{
    auto split = boost::make_shared<DynamicByCreationResultSplit<TProcessor, TAttribute>>();
    static_cast<void>(split->initBase(std::move(create))); // never fails
    return split;
}
template <class TProcessor, class TAttribute>
boost::shared_ptr<DynamicByCreationResultSplit<TProcessor, TAttribute>>
dynamicByCreationResultSplit(CreationFunction<typename TAttribute::StorageType::element_type> create,
                             CreationResultMap<typename TAttribute::StorageType::element_type>& results)
{
    auto split = boost::make_shared<DynamicByCreationResultSplit<TProcessor, TAttribute>>();
    static_cast<void>(split->initBase(std::move(create), results)); // never fails
    return split;
}

} // namespace orlix::processor
