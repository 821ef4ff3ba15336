// Truncation: towards 0, and a fixed result where 64 bits can't hold it.
#include "ORLIX/ORLIXMath/Truncate.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace orlix::math {
namespace {

TEST(Truncate, CutsTheFractionOff)
{
    const std::pair<double, unsigned long> cases[] = {{0.0, 0},
                                                      {-0.0, 0},
                                                      {0.999, 0},
                                                      {-0.999, 0},
                                                      {7.0, 7},
                                                      {7.9, 7},
                                                      {4294967296.5, 4294967296UL},
                                                      {9223372036854774784.0, 9223372036854774784UL},
                                                      {9223372036854775808.0, 9223372036854775808UL},
                                                      {18446744073709549568.0, 18446744073709549568UL}};
    for (const auto& [value, expected] : cases) {
        EXPECT_EQ(truncateToUnsigned(value), expected) << value;
    }
}

TEST(Truncate, ValuesBelow0Wrap)
{
    EXPECT_EQ(truncateToUnsigned(-1.0), ~0UL);
    EXPECT_EQ(truncateToUnsigned(-2.7), ~0UL - 1);
    EXPECT_EQ(truncateToUnsigned(-9223372036854775808.0), 9223372036854775808UL);
}

TEST(Truncate, HasAResultWhereNoneFits)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr unsigned long topBit = 9223372036854775808UL;
    EXPECT_EQ(truncateToUnsigned(std::numeric_limits<double>::quiet_NaN()), topBit);
    EXPECT_EQ(truncateToUnsigned(-infinity), topBit);
    EXPECT_EQ(truncateToUnsigned(-1e30), topBit);
    EXPECT_EQ(truncateToUnsigned(18446744073709551616.0), 0u);
    EXPECT_EQ(truncateToUnsigned(1e30), 0u);
    EXPECT_EQ(truncateToUnsigned(infinity), 0u);
}

} // namespace
} // namespace orlix::math
