// Items by range: the ones that lie in it, in the order in which they were added, filed or not.
#include "ORLIX/ORLIXBaseProcessing/ItemsByRange.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

namespace orlix::processor::test {
namespace {

using Items = std::vector<unsigned long>;

void addAll(ItemsByRange& items, const std::vector<unsigned long>& lines)
{
    items.start(lines.size());
    for (const unsigned long line : lines) {
        items.add(line);
    }
}

Items found(ItemsByRange& items, unsigned long start, unsigned long size)
{
    const std::span<const unsigned long> span = items.find(start, size);
    return {span.begin(), span.end()};
}

TEST(ItemsByRange, EachRangeHasItsItemsInTheirOrder)
{
    ItemsByRange items;
    addAll(items, {9, 3, 0, 4, 9, 1, 12, 10, ~0UL, 1UL << 63, 5});
    items.initRanges(11, 4);
    EXPECT_EQ(found(items, 0, 4), (Items{1, 2, 5}));
    EXPECT_EQ(found(items, 4, 4), (Items{3, 10}));
    EXPECT_EQ(found(items, 8, 3), (Items{0, 4, 7}));
    EXPECT_EQ(found(items, 4, 4), (Items{3, 10})) << "a range can be asked for again";
}

TEST(ItemsByRange, RangesThatAreNotFiledHaveTheirItemsToo)
{
    ItemsByRange items;
    addAll(items, {9, 3, 0, 4, 9, 1, 12, 10, ~0UL});
    items.initRanges(11, 4);
    EXPECT_EQ(found(items, 3, 4), (Items{1, 3}));
    EXPECT_EQ(found(items, 8, 4), (Items{0, 4, 7}));
    EXPECT_EQ(found(items, 8, 5), (Items{0, 4, 6, 7}));
    EXPECT_EQ(found(items, 12, 4), (Items{6}));
    EXPECT_EQ(found(items, 10, ~0UL), (Items{6, 7, 8})) << "a sum that wraps";
    EXPECT_EQ(found(items, 4, 0), (Items{}));
}

TEST(ItemsByRange, NothingIsLeftOfTheItemsBefore)
{
    ItemsByRange items;
    addAll(items, {0, 1, 2, 3});
    items.initRanges(4, 2);
    addAll(items, {3, 0});
    EXPECT_EQ(found(items, 0, 2), (Items{1})) << "not filed yet";
    items.initRanges(4, 2);
    EXPECT_EQ(found(items, 0, 2), (Items{1}));
    EXPECT_EQ(found(items, 2, 2), (Items{0}));
    items.initRanges(0, 5);
    EXPECT_EQ(found(items, 2, 2), (Items{0}));
    items.clear();
    EXPECT_EQ(found(items, 0, 4), (Items{}));
}

TEST(ItemsByRange, FewItemsInABillionRangesTakeNoMemoryForEach)
{
    ItemsByRange items;
    addAll(items, {1UL << 50, 7});
    items.initRanges(~0UL, 1);
    EXPECT_EQ(found(items, 1UL << 50, 1), (Items{0}));
    EXPECT_EQ(found(items, 7, 1), (Items{1}));
    EXPECT_EQ(found(items, 8, 1), (Items{}));
}

RC_GTEST_PROP(ItemsByRangeProperty, EveryRangeHasWhatAPlainLookAtAllItemsFinds, ())
{
    const unsigned long nbLines = *rc::gen::inRange(1UL, 200UL);
    const unsigned long linesPerRange = *rc::gen::inRange(1UL, 250UL);
    const auto lines = *rc::gen::container<std::vector<unsigned long>>(rc::gen::inRange(0UL, 220UL));
    ItemsByRange items;
    addAll(items, lines);
    items.initRanges(nbLines, linesPerRange);
    for (unsigned long start = 0; start < nbLines; start += linesPerRange) {
        const unsigned long end = std::min(nbLines, start + linesPerRange);
        Items expected;
        for (unsigned long item = 0; item < lines.size(); ++item) {
            if (lines[item] >= start && lines[item] < end) {
                expected.push_back(item);
            }
        }
        RC_ASSERT(found(items, start, end - start) == expected);
    }
}

} // namespace
} // namespace orlix::processor::test
