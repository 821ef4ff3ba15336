// A level's way down: its dispatcher and splits, kept from run to run, and how they are set up.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/ProcessorDispatchers.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/DataSplitSources.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageSplitSources.h"

#include <tuple>
#include <utility>

namespace orlix::imaproc {

/// One dispatcher of class `TDispatcher` with one split of each class of `TSplits`. A processor that is used again
/// finds them made; nothing of a run stays in them after it.
template <class TDispatcher, class TBaseSplit, class... TSplits>
class LevelDispatch
{
public:
    /// Sets up each split from the source at its place, then the dispatcher. A failure's text is the result's. `policy`
    /// is that of the level; without one the dispatcher keeps its own.
    template <class... TSources>
    processor::ProviderResult
    dispatch(const processor::ProcessorDispatchPolicy& policy, const core::BasePriority& priority,
             boost::shared_ptr<core::BaseActionProvider>& provider, const TSources&... sources)
    {
        accessDispatcher().setDispatchPolicy(policy);
        return dispatch(priority, provider, sources...);
    }
    template <class... TSources>
    processor::ProviderResult dispatch(const core::BasePriority& priority,
                                       boost::shared_ptr<core::BaseActionProvider>& provider,
                                       const TSources&... sources)
    {
        static_assert(sizeof...(TSources) == sizeof...(TSplits), "one source for each split");
        makeOnce();
        SplitCleaner cleaner{m_splits};
        ProcessingResult<bool> result = initSplits(std::index_sequence_for<TSplits...>(), sources...);
        if (result) {
            result = m_dispatcher->initBase(priority, m_splits);
        }
        if (!result) {
            return processor::ProviderResult::failed(result.getMessage());
        }
        cleaner.bNeeded = false;
        // The processor that this object is part of outlives the run, so the provider need not own the dispatcher.
        provider = boost::shared_ptr<core::BaseActionProvider>(boost::shared_ptr<void>(), m_dispatcher.get());
        return processor::ProviderResult::ready();
    }

    TDispatcher& accessDispatcher()
    {
        makeOnce();
        return *m_dispatcher;
    }

private:
    /// Without a run nobody else lets go of what the splits hold.
    struct SplitCleaner
    {
        const std::vector<boost::shared_ptr<TBaseSplit>>& splits;
        bool bNeeded = true;

        ~SplitCleaner()
        {
            for (auto split = splits.begin(); bNeeded && split != splits.end(); ++split) {
                (*split)->clear();
            }
        }
    };

    void makeOnce()
    {
        if (!m_dispatcher) {
            m_ownSplits = {boost::make_shared<TSplits>()...};
            std::apply([this](const auto&... splits) { m_splits = {splits...}; }, m_ownSplits);
            m_dispatcher = boost::make_shared<TDispatcher>(); // last: it tells that all are there
        }
    }

    template <std::size_t... indices, class... TSources>
    ProcessingResult<bool> initSplits(std::index_sequence<indices...>, const TSources&... sources)
    {
        ProcessingResult<bool> result = true;
        static_cast<void>(((result = sources.init(*std::get<indices>(m_ownSplits))) && ...));
        return result;
    }

    boost::shared_ptr<TDispatcher> m_dispatcher;
    std::tuple<boost::shared_ptr<TSplits>...> m_ownSplits;
    std::vector<boost::shared_ptr<TBaseSplit>> m_splits;
};

/// Down to one processor of class `TLower` per element.
template <class TLower, class... TSplits>
using StaticDispatch =
    LevelDispatch<processor::StaticProcessorDispatcher<TLower>, processor::BaseStaticSplit, TSplits...>;
/// Down to one processor of class `TLower` per range of lines.
template <class TLower, class... TSplits>
using DynamicDispatch =
    LevelDispatch<processor::DynamicProcessorDispatcher<TLower>, processor::BaseDynamicSplit, TSplits...>;

} // namespace orlix::imaproc
