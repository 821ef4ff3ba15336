// Rounding: halves go up, everything else goes to the nearest whole number.
#include "ORLIX/ORLIXMath/Round.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace orlix::math {
namespace {

TEST(Round, halvesGoUp)
{
    const std::pair<double, double> cases[] = {{0.5, 1}, {1.5, 2}, {2.5, 3}, {-0.5, 0}, {-1.5, -1}, {-2.5, -2}};
    for (const auto& [value, expected] : cases) {
        EXPECT_EQ((round<double, double>(value)), expected) << value;
    }
}

TEST(Round, othersGoToTheNearest)
{
    for (int i = -2000; i <= 2000; ++i) {
        const double value = i / 8.0;
        if (std::abs(value - std::trunc(value)) != 0.5) {
            EXPECT_EQ(round<int>(value), std::lround(value)) << value;
        }
    }
}

TEST(Round, reachesTheLimitsOfItsResult)
{
    EXPECT_EQ((round<unsigned int, double>(4294967294.5)), 4294967295u);
    EXPECT_EQ((round<unsigned int, double>(0.25)), 0u);
    EXPECT_EQ((round<int>(-2147483648.0)), -2147483647 - 1);
    EXPECT_EQ((round<unsigned char>(254.5f)), 255);
}

} // namespace
} // namespace orlix::math
