// The order of plan indices and of ranges.
#include "ORLIX/ORLIXBaseData/ElementsRange.h"
#include "ORLIX/ORLIXBaseData/PlanIndex.h"
#include "support/ScopedLocale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <vector>

namespace orlix {
namespace {

TEST(PlanIndex, isOrderedWithZFastest)
{
    std::vector<PlanIndex> indices;
    for (unsigned long z : {1, 0}) {
        for (unsigned long c : {1, 0}) {
            for (unsigned long t : {1, 0}) {
                indices.emplace_back(z, c, t);
            }
        }
    }
    std::sort(indices.begin(), indices.end());
    EXPECT_EQ(indices, (std::vector<PlanIndex>{
                           {0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}, {0, 0, 1}, {1, 0, 1}, {0, 1, 1}, {1, 1, 1}}));
    EXPECT_EQ(PlanIndex(), PlanIndex(0, 0, 0));
    std::ostringstream stream;
    stream << PlanIndex(1, 2, 3);
    EXPECT_EQ(stream.str(), "(1, 2, 3)");
    const orlix::testing::ScopedCppLocale scope;
    std::ostringstream other;
    other << PlanIndex(1234567, 2, 3000);
    EXPECT_EQ(other.str(), "(1234567, 2, 3000)");
}

TEST(ElementsRange, isOrderedByStartThenSize)
{
    EXPECT_LT(ElementsRange(0, 9), ElementsRange(1, 1));
    EXPECT_LT(ElementsRange(1, 1), ElementsRange(1, 2));
    EXPECT_EQ(ElementsRange(1, 2), ElementsRange(1, 2));
    EXPECT_EQ(ElementsRange(), ElementsRange(0, 0));
}

} // namespace
} // namespace orlix
