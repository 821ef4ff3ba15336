// Strips: ranges of lines of a plan.
#include "ORLIXIPL/ORLIXImage/ImageYStrip2d.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/SubImage.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>
#include <vector>

namespace orlix::image {
namespace {

TEST(ImageYStrip2d, TellsItsLines)
{
    const ImagePtr image = createImage(*geometry3d(eImageBufferType::UInt16, 10, 20, 3));
    const SubImage plan(*image, planGeometry(*image, 0), 2, 0, 0);
    const InputImageYStrip2d strip(plan, 5, 7);
    EXPECT_EQ(strip.getSizeX(), 10u);
    EXPECT_EQ(strip.getStripSizeY(), 7u);
    EXPECT_EQ(strip.getStripStartOffsetY(), 5u);
    EXPECT_EQ(strip.getImageSizeY(), 20u);
    EXPECT_EQ(strip.getImageBufferType(), eImageBufferType::UInt16);
    EXPECT_EQ(strip.getLineBytes(), 20u);
    EXPECT_EQ(&strip.getBaseImage(), &plan);
    EXPECT_EQ(strip.accessBuffer(), planData<unsigned short>(*image, 2, 0, 0) + 50);
    EXPECT_EQ(static_cast<const BaseImageYStrip2d&>(strip).accessBuffer(), strip.accessBuffer());
    EXPECT_TRUE(strip.isDense());
    EXPECT_TRUE(strip.hasRoomBehind());
    EXPECT_EQ(strip.getMemoryPlace(), simd::eMemoryPlace::secondLevelCache);
}

TEST(ImageYStrip2d, WrappedMemoryHasGapsAndNoRoom)
{
    std::vector<unsigned char> memory(200);
    const ImagePtr image =
        wrapImage(*geometry2d(eImageBufferType::UInt8, 8, 10), memory.data(), {11, 0, 0, 0}, nullptr);
    OutputImageYStrip2d strip(*image, 3, 2);
    EXPECT_EQ(strip.accessBuffer(), memory.data() + 33);
    EXPECT_EQ(std::as_const(strip).accessBuffer(), memory.data() + 33);
    EXPECT_EQ(static_cast<const BaseImageYStrip2d&>(strip).accessBuffer(), memory.data() + 33);
    static_assert(std::is_same_v<decltype(std::declval<BaseImageYStrip2d&>().accessBuffer()), const void*>);
    static_assert(std::is_same_v<decltype(strip.accessBuffer()), void*>);
    EXPECT_EQ(strip.getLineBytes(), 11u);
    EXPECT_FALSE(strip.isDense());
    EXPECT_FALSE(strip.hasRoomBehind());
}

} // namespace
} // namespace orlix::image
