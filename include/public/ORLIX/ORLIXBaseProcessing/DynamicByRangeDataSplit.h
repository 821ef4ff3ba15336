// Gives every range of lines the items of a collection that lie in it.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseDataSplit.h"
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
        orderByLine();
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
    ProcessingResult<bool> processAttribute(BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin&) override
    {
        findItems(start, size);
        const boost::shared_ptr<Data> part = boost::make_shared<Data>();
        auto& items = part->template access<TColl>();
        items.reserve(m_found.size());
        for (const unsigned long index : m_found) {
            items.push_back(m_data->template get<TColl>()[index]);
        }
        this->feed(lower, part);
        if (m_indices != nullptr) {
            m_indices->insert(ElementsRange(start, size), m_found);
        }
        return true;
    }
    void clear() override
    {
        m_data.reset();
        m_indices = nullptr;
        emptyForReuse(m_byLine);
        emptyForReuse(m_found);
    }

private:
    /// Where an item lies, and which it is.
    struct Place
    {
        unsigned long line;
        unsigned long index;
        friend auto operator<=>(const Place&, const Place&) = default;
    };

    template <class TValue>
    static unsigned long lineOf(TValue key)
    {
        if constexpr (std::is_floating_point_v<TValue>) {
            return math::truncateToUnsigned(key);
        } else {
            return static_cast<unsigned long>(key);
        }
    }

    /// Once a run, so that a range finds its items without a look at all others.
    void orderByLine()
    {
        const auto& items = m_data->template get<TColl>();
        m_byLine.clear();
        m_byLine.reserve(items.size());
        for (const auto& item : items) {
            if (!item) {
                this->throwNullInputSharedPtr();
            }
            m_byLine.push_back({lineOf(item->template get<TKey>()), m_byLine.size()});
        }
        std::sort(m_byLine.begin(), m_byLine.end());
    }

    void findItems(unsigned long start, unsigned long size)
    {
        m_found.clear();
        auto place = std::lower_bound(m_byLine.begin(), m_byLine.end(), Place{start, 0});
        for (; place != m_byLine.end() && place->line - start < size; ++place) {
            m_found.push_back(place->index);
        }
        std::sort(m_found.begin(), m_found.end());
    }

    boost::shared_ptr<const Data> m_data;
    RangeIndexMap* m_indices = nullptr;
    std::vector<Place> m_byLine;
    std::vector<unsigned long> m_found; ///< the items of the current range
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
