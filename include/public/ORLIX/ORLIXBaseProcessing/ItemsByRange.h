// Which items of a collection lie in which range of lines.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"

#include <span>
#include <vector>

namespace orlix::processor {

/// Filed once per run in a pass that counts, in O(items + ranges), so that a range finds its items without a look at
/// the others. One thread at a time.
class ORLIXBASEPROCESSING_API ItemsByRange
{
public:
    /// Forgets all items and ranges, and makes room for the lines of so many items.
    void start(unsigned long nbItems);
    /// The line of the next item.
    void add(unsigned long line) { m_lines.push_back(line); }

    /// Files the items by the ranges that a run will give out: every one but the last holds `linesPerRange` of
    /// `nbLines` lines. Items on other lines are left out.
    void initRanges(unsigned long nbLines, unsigned long linesPerRange);
    /// The items on lines [start, start + size), as numbers in the order in which they were added; a sum that wraps
    /// means all lines from `start` on. Any range may be asked for; one that was not filed costs a look at every item.
    /// Valid until the next call.
    std::span<const unsigned long> find(unsigned long start, unsigned long size);

    /// Forgets the items, and keeps a moderate amount of memory for the next ones.
    void clear();

private:
    std::vector<unsigned long> m_lines; ///< of each item
    unsigned long m_nbLines = 0;
    unsigned long m_linesPerRange = 0;  ///< 0 where nothing is filed
    std::vector<unsigned long> m_filed; ///< items range by range
    std::vector<unsigned long> m_ends;  ///< of each range, where in `m_filed` its items end
    std::vector<unsigned long> m_found; ///< the items of a range that was not filed
};

} // namespace orlix::processor
