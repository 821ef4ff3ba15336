// Values by range: walked in order whatever the order they came in, and made empty for the next run.
#include "ORLIX/ORLIXBaseProcessing/RangeMap.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <memory>
#include <random>

namespace orlix::processor {
namespace {

RC_GTEST_PROP(RangeMapProperty, WalksInTheOrderOfTheRanges, (unsigned int seed))
{
    const unsigned long nbEntries = *rc::gen::inRange(0UL, 200UL);
    std::vector<ElementsRange> ranges;
    for (unsigned long i = 0; i < nbEntries; ++i) {
        ranges.emplace_back(3 * i, 3);
    }
    std::shuffle(ranges.begin(), ranges.end(), std::mt19937(seed));
    RangeMap<unsigned long> values;
    for (const ElementsRange& range : ranges) {
        values.insert(range, range.start + 1);
    }
    RC_ASSERT(values.size() == nbEntries);
    RC_ASSERT(values.empty() == (nbEntries == 0));
    unsigned long next = 0;
    for (const auto& [range, value] : values) {
        RC_ASSERT(range == ElementsRange(next, 3));
        RC_ASSERT(value == next + 1);
        next += 3;
    }
    RC_ASSERT(next == 3 * nbEntries);
}

TEST(RangeMap, TakesMoreAfterItHasBeenWalked)
{
    RangeMap<char> values;
    values.insert({5, 5}, 'b');
    values.insert({0, 5}, 'a');
    EXPECT_EQ(values.begin()->second, 'a');
    values.insert({2, 1}, 'c');
    std::string walked;
    for (const auto& [range, value] : values) {
        walked += value;
    }
    EXPECT_EQ(walked, "acb");
}

TEST(RangeMap, LetsGoOfItsValuesWhenCleared)
{
    RangeMap<std::shared_ptr<int>> values;
    const auto value = std::make_shared<int>(7);
    for (const unsigned long nbEntries : {3UL, 5000UL, 2UL}) {
        for (unsigned long i = nbEntries; i-- > 0;) {
            values.insert({i, 1}, value);
        }
        EXPECT_EQ(value.use_count(), static_cast<long>(nbEntries) + 1);
        values.clear();
        EXPECT_TRUE(values.empty());
        EXPECT_EQ(value.use_count(), 1);
        EXPECT_TRUE(values.begin() == values.end());
    }
}

} // namespace
} // namespace orlix::processor
