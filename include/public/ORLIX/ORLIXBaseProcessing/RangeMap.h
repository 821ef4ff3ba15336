// What a run files under ranges of elements.
#pragma once

#include "ORLIX/ORLIXBaseData/ElementsRange.h"
#include "ORLIX/ORLIXBaseProcessing/ReusedVector.h"

#include <algorithm>
#include <utility>

namespace orlix::processor {

/// Values by range, filled in whatever order a run takes its ranges in and walked in the order of the ranges. A run
/// gives out each range once, so none is filed twice. Filled and walked by one thread at a time.
template <class TValue>
class RangeMap
{
public:
    using Entry = std::pair<ElementsRange, TValue>;
    using Iterator = typename std::vector<Entry>::iterator;

    void insert(const ElementsRange& range, TValue value)
    {
        m_bOrdered = m_bOrdered && (m_entries.empty() || m_entries.back().first < range);
        m_entries.emplace_back(range, std::move(value));
    }

    /// The entry of the lowest range.
    Iterator begin()
    {
        if (!m_bOrdered) {
            std::sort(m_entries.begin(), m_entries.end(),
                      [](const Entry& left, const Entry& right) { return left.first < right.first; });
            m_bOrdered = true;
        }
        return m_entries.begin();
    }
    Iterator end() { return m_entries.end(); }

    unsigned long size() const { return m_entries.size(); }
    bool empty() const { return m_entries.empty(); }

    /// Lets go of all values.
    void clear()
    {
        emptyForReuse(m_entries);
        m_bOrdered = true;
    }

private:
    std::vector<Entry> m_entries;
    bool m_bOrdered = true;
};

} // namespace orlix::processor
