// The mirror at the border, against one that is built pixel by pixel.
#include "ORLIXIPL/ORLIXBaseImageTools/BorderPolicy.h"

#include <gtest/gtest.h>

#include <string>

namespace orlix::image {
namespace {

TEST(BorderPolicy, TheMirrorStandsBetweenPixels)
{
    const std::string letters = "abcd";
    std::string seen;
    for (long position = -9; position < 13; ++position) {
        seen += letters[mirorPosition(static_cast<unsigned long>(position), 4)];
    }
    EXPECT_EQ(seen, "aabcddcba"
                    "abcd"
                    "dcbaabcdd");
}

TEST(BorderPolicy, FoldsAsOftenAsNeeded)
{
    for (unsigned long size = 1; size < 9; ++size) {
        // A walk that turns at both borders, upwards from 0 and downwards from -1, which is pixel 0 again.
        unsigned long place = 0;
        bool bUp = true;
        for (unsigned long step = 0; step < 100; ++step) {
            EXPECT_EQ(mirorPosition(step, size), place) << step << " of " << size;
            EXPECT_EQ(mirorPosition(~0UL - step, size), place) << "-" << step + 1 << " of " << size;
            const bool bTurns = bUp ? place + 1 == size : place == 0;
            bUp = bUp != bTurns;
            place = bTurns ? place : bUp ? place + 1 : place - 1;
        }
    }
}

TEST(BorderPolicy, AnswersForPositionsFarAway)
{
    EXPECT_EQ(mirorPosition(1UL << 63, 1), 0u);
    EXPECT_EQ(mirorPosition(1UL << 63, 2), 0u) << "-2^63 is a multiple of 4";
    EXPECT_EQ(mirorPosition((1UL << 63) - 1, 2), 0u) << "one before a multiple of 4";
    EXPECT_EQ(mirorPosition((1UL << 63) - 2, 2), 1u);
    for (const unsigned long position : {1UL << 62, 1UL << 63, (1UL << 63) + 5, ~0UL - 12345}) {
        EXPECT_LT(mirorPosition(position, 1000), 1000u);
    }
}

TEST(BorderPolicy, PoliciesMirrorEveryAxis)
{
    EXPECT_EQ(mirorBorder2d().x, &mirorPosition);
    EXPECT_EQ(mirorBorder2d().y, &mirorPosition);
    EXPECT_EQ(mirorBorder3d().x, &mirorPosition);
    EXPECT_EQ(mirorBorder3d().y, &mirorPosition);
    EXPECT_EQ(mirorBorder3d().z, &mirorPosition);
}

} // namespace
} // namespace orlix::image
