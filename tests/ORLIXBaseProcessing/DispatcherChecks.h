// Dispatchers over a recording level below, and what that level saw.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/ProcessorDispatchers.h"
#include "ORLIXBaseProcessing/LowerProcessor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace orlix::processor::test {

using StaticDispatcher = StaticProcessorDispatcher<LowerProcessor>;
using DynamicDispatcher = DynamicProcessorDispatcher<LowerProcessor>;

inline boost::shared_ptr<NumberSplit> numbers(unsigned long nbElements, bool bHasElements = true)
{
    return boost::make_shared<NumberSplit>(nbElements, bHasElements);
}
template <class TAttribute = InLines>
boost::shared_ptr<LineSplit<TAttribute>> lines(unsigned long nbLines, unsigned long lineBytes, unsigned long multiple,
                                               bool bHasLines = true)
{
    return boost::make_shared<LineSplit<TAttribute>>(RangeDemand{bHasLines, nbLines, lineBytes, multiple});
}

inline std::string failureOf(const ProcessingResult<bool>& result)
{
    return result ? "no failure" : result.getMessage();
}

inline std::vector<double> numbersSeen()
{
    std::vector<double> found;
    for (const Seen& seen : LowerProcessor::takeSeen()) {
        found.push_back(seen.number);
    }
    std::sort(found.begin(), found.end());
    return found;
}

/// Ranges of a run in order of their lines, with a failure where the two attributes had different ones.
inline std::vector<LineRange> rangesSeen()
{
    std::vector<LineRange> found;
    for (const Seen& seen : LowerProcessor::takeSeen()) {
        EXPECT_EQ(seen.lines, seen.moreLines);
        found.push_back(seen.lines);
    }
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace orlix::processor::test
