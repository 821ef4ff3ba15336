// A level's way down: its dispatcher and splits, kept from run to run, and how they are set up.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/DynamicByCreationResultSplit.h"
#include "ORLIX/ORLIXBaseProcessing/NoSplit.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorDispatchers.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/ImageYStrip2dSplit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/PlanIndexedSplit.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/SubImageSplit.h"

#include <tuple>
#include <utility>

namespace orlix::imaproc {

/// What a split is set up with: an image, how it is cut, and whether it counts where elements are placed.
template <class TImagePtr>
struct PlanSource
{
    const TImagePtr& image;
    bool bLocalized = true;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        bLocalized ? split.enableDataLocalization() : split.disableDataLocalization();
        return split.initBase(eSubImageSplitType::eSubImagePlan2d, eVolumeParsingType::ePlanByPlan,
                              eColorParsingType::eChannelByChannel, eTemporalParsingType::eFrameByFrame, image);
    }
};
template <class TImagePtr>
struct StripSource
{
    const TImagePtr& image;
    bool bLocalized = true;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        using TImage = typename TImagePtr::element_type;
        bLocalized ? split.enableDataLocalization() : split.disableDataLocalization();
        const boost::shared_ptr<TImage>& held = image;
        return split.initBase(held,
                              image::eStripAllocationType::eStripAllocationDefault,
                              image::eStripParsingDirection::eStripParsingForward,
                              image::eStripParsingDirection::eStripParsingForward);
    }
};

/// Every plan of the image an element of its own.
template <class TImagePtr>
PlanSource<TImagePtr> planByPlan(const TImagePtr& image, bool bLocalized = true)
{
    return {image, bLocalized};
}
/// The plan in strips.
template <class TImagePtr>
StripSource<TImagePtr> stripByStrip(const TImagePtr& image, bool bLocalized = true)
{
    return {image, bLocalized};
}

/// What a no-split is set up with.
template <class TValue>
struct ValueSource
{
    const TValue& value;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        return split.initBase(value);
    }
};
/// The same value for every element.
template <class TValue>
ValueSource<TValue> sameForAll(const TValue& value)
{
    return {value};
}

/// What a split by created results is set up with.
template <class TResult>
struct CreationSource
{
    const processor::CreationFunction<TResult>& create;
    processor::CreationResultMap<TResult>& results;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        return split.initBase(create, results);
    }
};
/// A result of its own for every range, filed in `results`, which the level merges after the run.
template <class TResult>
CreationSource<TResult> resultByRange(const processor::CreationFunction<TResult>& create,
                                      processor::CreationResultMap<TResult>& results)
{
    return {create, results};
}

/// What a split by plans is set up with.
struct PlanIndexedSource
{
    const boost::shared_ptr<BasePlanIndexedColl>& coll;
    const image::BaseImage& image;
    bool bMayLack;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        return split.initBase(coll, image.getSizeZ(), image.getSizeC(), image.getSizeT(), bMayLack);
    }
};
/// The entry of each plan of `image`.
inline PlanIndexedSource entryByPlan(const boost::shared_ptr<BasePlanIndexedColl>& coll, const image::BaseImage& image,
                                     bool bMayLack = false)
{
    return {coll, image, bMayLack};
}

/// One dispatcher of class `TDispatcher` with one split of each class of `TSplits`. A processor that is used again finds
/// them made; nothing of a run stays in them after it.
template <class TDispatcher, class TBaseSplit, class... TSplits>
class LevelDispatch
{
public:
    /// Sets up each split from the source at its place, then the dispatcher. A failure's text is the result's.
    template <class... TSources>
    processor::ProviderResult dispatch(const core::BasePriority& priority,
                                       boost::shared_ptr<core::BaseActionProvider>& provider,
                                       const TSources&... sources)
    {
        static_assert(sizeof...(TSources) == sizeof...(TSplits), "one source for each split");
        makeOnce();
        ProcessingResult<bool> result = initSplits(std::index_sequence_for<TSplits...>(), sources...);
        if (result) {
            result = m_dispatcher->initBase(priority, m_splits);
        }
        if (!result) {
            return processor::ProviderResult::failed(result.getMessage());
        }
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
    void makeOnce()
    {
        if (!m_dispatcher) {
            m_dispatcher = boost::make_shared<TDispatcher>();
            m_ownSplits = {boost::make_shared<TSplits>()...};
            std::apply([this](const auto&... splits) { m_splits = {splits...}; }, m_ownSplits);
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
using StaticDispatch = LevelDispatch<processor::StaticProcessorDispatcher<TLower>, processor::BaseStaticSplit, TSplits...>;
/// Down to one processor of class `TLower` per range of lines.
template <class TLower, class... TSplits>
using DynamicDispatch =
    LevelDispatch<processor::DynamicProcessorDispatcher<TLower>, processor::BaseDynamicSplit, TSplits...>;

} // namespace orlix::imaproc
