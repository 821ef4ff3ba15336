// Gives every range of lines the items of a collection that lie in it.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"
#include "ORLIX/ORLIXBaseProcessing/ItemsByRange.h"
#include "ORLIX/ORLIXBaseProcessing/RangeMap.h"
#include "ORLIX/ORLIXMath/Truncate.h"

#include <boost/make_shared.hpp>

#include <type_traits>

namespace orlix::processor {

/// For each range the positions in the whole collection of the items that it got, in the order in which it got them.
using RangeIndexMap = RangeMap<std::vector<unsigned long>>;

/// How a split reaches the items of a data item of class `TData`: one by one in its leaf `TColl`, a collection of
/// shared pointers, and by the leaf `TKey` of what they point to. Specialise it for a class that keeps items in another
/// way.
template <class TData, class TColl, class TKey>
struct RangeDataItems
{
    static unsigned long getNbItems(const TData& data) { return data.template get<TColl>().size(); }
    static bool isNull(const TData& data, unsigned long item) { return !data.template get<TColl>()[item]; }
    /// The line that the item lies on.
    static unsigned long getLine(const TData& data, unsigned long item)
    {
        const auto key = data.template get<TColl>()[item]->template get<TKey>();
        if constexpr (std::is_floating_point_v<decltype(key)>) {
            return math::truncateToUnsigned(key);
        } else {
            return static_cast<unsigned long>(key);
        }
    }
    /// A data item that shares those items of `data`. `items` are not there for long.
    static boost::shared_ptr<TData> makePart(const TData& data, std::span<const unsigned long> items)
    {
        const boost::shared_ptr<TData> part = boost::make_shared<TData>();
        auto& shared = part->template access<TColl>();
        const auto& all = data.template get<TColl>();
        shared.reserve(items.size());
        for (const unsigned long item : items) {
            shared.push_back(all[item]);
        }
        return part;
    }
};

/// `TAttribute` is an attribute of `TProcessor` that holds a shared pointer to a data item. `TColl` is the leaf of that
/// data item which is a collection of shared pointers, `TKey` the leaf of what they point to that says on which line it
/// lies: a whole number, or a `double` whose fraction is cut off. Items on a line that no range has, go nowhere.
template <class TProcessor, class TAttribute, class TColl, class TKey>
class DynamicByRangeDataSplit final : public FeedingSplit<BaseDynamicSplit, TProcessor, TAttribute>
{
public:
    using Data = std::remove_const_t<typename TAttribute::StorageType::element_type>;

    /// Every range gets a new data item that shares the items of `data` which lie in it, in the order of `data`. Keys
    /// are read here. Throws ORLIXBaseProcessingException for a null pointer, `data` or an item of it.
    ProcessingResult<bool> initBase(const boost::shared_ptr<const Data>& data)
    {
        m_indices = nullptr;
        if (!data) {
            this->throwNullInputSharedPtr();
        }
        m_data = data;
        readLines();
        return true;
    }
    /// And files under each range where its items came from, for a level that puts results back in place after the run.
    /// `indices` has to outlive the run; it is emptied here.
    ProcessingResult<bool> initBase(const boost::shared_ptr<const Data>& data, RangeIndexMap& indices)
    {
        ProcessingResult<bool> result = initBase(data);
        indices.clear();
        m_indices = &indices;
        return result;
    }

    eSplitDynamicType getSplitDynamicType() const override { return eSplitDynamicType::eDynamicByRangeDataSplit; }
    void initRanges(unsigned long nbLines, unsigned long linesPerRange) override
    {
        m_places.initRanges(nbLines, linesPerRange);
    }
    ProcessingResult<bool> processAttribute(BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin&) override
    {
        const std::span<const unsigned long> found = m_places.find(start, size);
        this->feed(lower, Items::makePart(*m_data, found));
        if (m_indices != nullptr) {
            m_indices->insert(ElementsRange(start, size), {found.begin(), found.end()});
        }
        return true;
    }
    void clear() override
    {
        m_data.reset();
        m_indices = nullptr;
        m_places.clear();
    }

private:
    using Items = RangeDataItems<Data, TColl, TKey>;

    void readLines()
    {
        const unsigned long nbItems = Items::getNbItems(*m_data);
        m_places.start(nbItems);
        for (unsigned long item = 0; item < nbItems; ++item) {
            if (Items::isNull(*m_data, item)) {
                this->throwNullInputSharedPtr();
            }
            m_places.add(Items::getLine(*m_data, item));
        }
    }

    boost::shared_ptr<const Data> m_data;
    RangeIndexMap* m_indices = nullptr;
    ItemsByRange m_places;
};

/// A split of `data`; see `initBase`.
template <class TProcessor, class TAttribute, class TColl, class TKey, class... TIndices>
boost::shared_ptr<DynamicByRangeDataSplit<TProcessor, TAttribute, TColl, TKey>>
dynamicByRangeDataSplit(const typename TAttribute::StorageType& data, TIndices&... indices)
{
    auto split = boost::make_shared<DynamicByRangeDataSplit<TProcessor, TAttribute, TColl, TKey>>();
    static_cast<void>(split->initBase(data, indices...)); // throws or succeeds
    return split;
}

} // namespace orlix::processor
