// What a level sets the splits of its data up with, one source for each split.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/DynamicByCreationResultSplit.h"
#include "ORLIX/ORLIXBaseProcessing/DynamicByRangeDataSplit.h"
#include "ORLIX/ORLIXBaseProcessing/NoSplit.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"
#include "ORLIXIPL/ORLIXImageProcessing/Split/PlanIndexedSplit.h"

namespace orlix::imaproc {

// A source refers to what it is made from and is used within the statement that makes it. Maps that a run fills have to
// outlive it; everything else the splits hold.

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

/// What a split by created results is set up with; a null `create` stands for the default constructor.
template <class TResult>
struct CreationSource
{
    const processor::CreationFunction<TResult>* create;
    processor::CreationResultMap<TResult>& results;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        return create == nullptr ? split.initBase(results) : split.initBase(*create, results);
    }
};
/// A new result for every range, filed in `results`, which the level merges after the run.
template <class TResult>
CreationSource<TResult> resultByRange(processor::CreationResultMap<TResult>& results)
{
    return {nullptr, results};
}
/// The same with results that `create` makes.
template <class TResult>
CreationSource<TResult> resultByRange(const processor::CreationFunction<TResult>& create,
                                      processor::CreationResultMap<TResult>& results)
{
    return {&create, results};
}

/// What a split by the lines of data is set up with; a null `indices` means that nobody wants them.
template <class TDataPtr>
struct RangeDataSource
{
    const TDataPtr& data;
    processor::RangeIndexMap* indices;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        return indices == nullptr ? split.initBase(data) : split.initBase(data, *indices);
    }
};
/// For every range of lines the items of `data` that lie in it.
template <class TDataPtr>
RangeDataSource<TDataPtr> dataByRange(const TDataPtr& data)
{
    return {data, nullptr};
}
/// And where in `data` they come from.
template <class TDataPtr>
RangeDataSource<TDataPtr> dataByRange(const TDataPtr& data, processor::RangeIndexMap& indices)
{
    return {data, &indices};
}

/// What a split by plans is set up with.
template <class TCollPtr>
struct PlanIndexedSource
{
    const TCollPtr& coll;
    unsigned long sizeZ;
    unsigned long sizeC;
    unsigned long sizeT;
    bool bMayLack;

    template <class TSplit>
    ProcessingResult<bool> init(TSplit& split) const
    {
        return split.initBase(coll, sizeZ, sizeC, sizeT, bMayLack);
    }
};
/// The entry of each plan of `image`.
template <class TCollPtr>
PlanIndexedSource<TCollPtr> entryByPlan(const TCollPtr& coll, const image::BaseImage& image, bool bMayLack = false)
{
    return {coll, image.getSizeZ(), image.getSizeC(), image.getSizeT(), bMayLack};
}
/// The entry of each plan that lies within the collection's own sizes.
template <class TCollPtr>
PlanIndexedSource<TCollPtr> entryByPlan(const TCollPtr& coll, bool bMayLack = false)
{
    if (!coll) {
        return {coll, 0, 0, 0, bMayLack};
    }
    return {coll, coll->getMaxSizeZ(), coll->getMaxSizeC(), coll->getMaxSizeT(), bMayLack};
}

} // namespace orlix::imaproc
