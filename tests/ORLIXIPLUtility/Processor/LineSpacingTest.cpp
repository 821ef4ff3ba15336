// What the distance between lines settles before any pixel is looked at.
#include "ORLIXIPL/ORLIXIPLUtility/Processor/LineSpacing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace orlix::imaproc::util {
namespace {

constexpr float g_infinity = std::numeric_limits<float>::infinity();

TEST(LineSpacingTest, whatIsNoDistanceSetsNothing)
{
    for (const double offset : {0.0, -0.0, -1e-300, -0.1, -5.0, 1e39, 1e300, static_cast<double>(g_infinity),
                                -static_cast<double>(g_infinity), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(toLineSpacing(offset, 1.0F).lines, LineSpacing::eNone) << offset;
    }
}

TEST(LineSpacingTest, whatIsBelowTheLimitSetsEverything)
{
    for (const double offset : {1e-300, 1e-45, 1e-20, 0.1, 0.5, 0.99999994}) {
        EXPECT_EQ(toLineSpacing(offset, 1.0F).lines, LineSpacing::eDense) << offset;
    }
    EXPECT_EQ(toLineSpacing(0.6, 0.5F).lines, LineSpacing::eApart);
    EXPECT_EQ(toLineSpacing(0.6, 0.0F).lines, LineSpacing::eApart);
    EXPECT_EQ(toLineSpacing(0.99999999, 1.0F).lines, LineSpacing::eApart) << "1 in single precision";
}

/// Near every place where a pixel changes, the range says what the steps say: counted from the next line from half a
/// period on, and then set above -0.5 and up to 0.5.
TEST(LineSpacingTest, theRangeBetweenTwoLines)
{
    for (const float period :
         {1.0F, std::nextafter(1.0F, 2.0F), 1.25F, 1.5F, 2.0F, 3.3F, 20.0F, 1e3F, 4194305.0F, 8388609.0F, 16777216.0F,
          16777218.0F, 1e10F, 0x1p52F, 0x1p53F, 0x1p54F, 1e20F, 3.4e38F}) {
        const LineSpacing spacing = toLineSpacing(period, 1.0F);
        ASSERT_EQ(spacing.lines, LineSpacing::eApart);
        for (const float near : {0.0F, 0.5F, 1.0F, period / 2, period - 1, period - 0.5F, period}) {
            float behind = near;
            for (int i = 0; i < 8; ++i) {
                behind = std::nextafter(behind, -g_infinity);
            }
            for (int i = 0; i < 16; ++i) {
                behind = std::nextafter(behind, g_infinity);
                float nearest = std::min(std::max(behind, 0.0F), period);
                nearest = nearest >= period * 0.5F ? nearest - period : nearest;
                const bool bSet = nearest > -0.5F && nearest <= 0.5F;
                EXPECT_EQ(!(behind >= spacing.offLow && behind <= spacing.offHigh), bSet) << period << ", " << behind;
            }
        }
    }
}

TEST(LineSpacingTest, dividingIsSparedWhereThatIsExact)
{
    const LineSpacing spacing = toLineSpacing(20.0, 1.0F);
    EXPECT_EQ(inversePeriod(spacing, 1000), 1.0F / 20.0F);
    EXPECT_EQ(inversePeriod(spacing, 1UL << 20), 1.0F / 20.0F);
    EXPECT_EQ(inversePeriod(spacing, (1UL << 20) + 1), 0.0F);
    EXPECT_EQ(inversePeriod(toLineSpacing(1e7, 1.0F), 1000), 0.0F);
    EXPECT_EQ(inversePeriod(toLineSpacing(0.7, 0.5F), 1000), 0.0F);
    EXPECT_EQ(inversePeriod(toLineSpacing(0.0, 1.0F), 1000), 0.0F);
}

} // namespace
} // namespace orlix::imaproc::util
