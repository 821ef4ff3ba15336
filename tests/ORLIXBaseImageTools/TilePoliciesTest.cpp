// Every axis of a tile goes by its own border policy.
#include "ORLIXIPL/ORLIXBaseImageTools/ImageTileExtractor.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <vector>

namespace orlix::image {
namespace {

unsigned long toFirst(unsigned long position, unsigned long size)
{
    return position < size ? position : 0;
}
unsigned long toLast(unsigned long position, unsigned long size)
{
    return position < size ? position : size - 1;
}
unsigned long toSecond(unsigned long position, unsigned long size)
{
    return position < size ? position : 1;
}

/// An image of 4 x 4 x 4 whose pixels tell where they are: x + 10 y + 100 z.
ImagePtr makePlaces(unsigned long sizeZ)
{
    const ImagePtr image = createImage(*geometry3d(eImageBufferType::UInt16, 4, 4, sizeZ));
    for (unsigned long i = 0; i < 16 * sizeZ; ++i) {
        planData<unsigned short>(*image, i / 16, 0, 0)[i % 16] =
            static_cast<unsigned short>(i % 4 + i / 4 % 4 * 10 + i / 16 * 100);
    }
    return image;
}

/// Where a position beyond the border comes to lie on an axis.
struct Border
{
    BorderFunction policy;
    unsigned long place;
};
constexpr Border g_first = {&toFirst, 0};
constexpr Border g_last = {&toLast, 3};
constexpr Border g_second = {&toSecond, 1};

unsigned short pixelOf(const void* line, unsigned long x)
{
    unsigned short value = 0;
    std::memcpy(&value, static_cast<const unsigned short*>(line) + x, sizeof(value));
    return value;
}

TEST(TilePoliciesTest, OfAPlan)
{
    const ImagePtr image = makePlaces(1);
    for (const auto& [x, y] : {std::array{g_first, g_last}, {g_last, g_first}, {g_second, g_first}}) {
        InputImageTile2d tile;
        ASSERT_TRUE(ImageTileExtractor::extractInputTile2d(*image, {2, 2, 4, 4}, {x.policy, y.policy}, tile));
        const unsigned long xs[] = {2, 3, x.place, x.place};
        const unsigned long ys[] = {2, 3, y.place, y.place};
        for (unsigned long i = 0; i < 16; ++i) {
            EXPECT_EQ(pixelOf(tile.accessBuffer(i / 4), i % 4), xs[i % 4] + 10 * ys[i / 4]) << i;
        }
    }
}

TEST(TilePoliciesTest, OfAVolume)
{
    const ImagePtr image = makePlaces(4);
    for (const auto& [x, y, z] :
         {std::array{g_first, g_last, g_second}, {g_last, g_second, g_first}, {g_second, g_first, g_last}}) {
        InputImageTile3d tile;
        ASSERT_TRUE(
            ImageTileExtractor::extractInputTile3d(*image, {2, 2, 2, 4, 4, 4}, {x.policy, y.policy, z.policy}, tile));
        const unsigned long xs[] = {2, 3, x.place, x.place};
        const unsigned long ys[] = {2, 3, y.place, y.place};
        const unsigned long zs[] = {2, 3, z.place, z.place};
        for (unsigned long i = 0; i < 64; ++i) {
            EXPECT_EQ(pixelOf(tile.accessBuffer(i / 4 % 4, i / 16), i % 4),
                      xs[i % 4] + 10 * ys[i / 4 % 4] + 100 * zs[i / 16])
                << i;
        }
    }
}

} // namespace
} // namespace orlix::image
