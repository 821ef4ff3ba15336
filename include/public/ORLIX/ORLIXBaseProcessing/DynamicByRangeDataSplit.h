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
        const boost::shared_ptr<Data> part = boost::make_shared<Data>();
        auto& items = part->template access<TColl>();
        const auto& all = m_data->template get<TColl>();
        items.reserve(found.size());
        for (const unsigned long index : found) {
            items.push_back(all[index]);
        }
        this->feed(lower, part);
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
    template <class TValue>
    static unsigned long lineOf(TValue key)
    {
        if constexpr (std::is_floating_point_v<TValue>) {
            return math::truncateToUnsigned(key);
        } else {
            return static_cast<unsigned long>(key);
        }
    }

    void readLines()
    {
        const auto& items = m_data->template get<TColl>();
        m_places.start(items.size());
        for (const auto& item : items) {
            if (!item) {
                this->throwNullInputSharedPtr();
            }
            m_places.add(lineOf(item->template get<TKey>()));
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
