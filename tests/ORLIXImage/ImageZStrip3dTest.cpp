// Strips of volumes: ranges of plans.
#include "ORLIXIPL/ORLIXImage/ImageZStrip3d.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImage/SubImage.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

namespace orlix::image {
namespace {

TEST(ImageZStrip3d, TellsItsPlans)
{
    const ImagePtr image = createImage(*geometry5d(eImageBufferType::UInt16, 10, 20, 6, 3, 1));
    const SubImage volume(*image, volumeGeometry(*image, 0), 0, 2, 0);
    const InputImageZStrip3d strip(volume, 4, 2);
    EXPECT_EQ(strip.getSizeX(), 10u);
    EXPECT_EQ(strip.getSizeY(), 20u);
    EXPECT_EQ(strip.getStripSizeZ(), 2u);
    EXPECT_EQ(strip.getStripStartOffsetZ(), 4u);
    EXPECT_EQ(strip.getImageSizeZ(), 6u);
    EXPECT_EQ(strip.getImageBufferType(), eImageBufferType::UInt16);
    EXPECT_EQ(strip.getLineBytes(), 20u);
    EXPECT_EQ(&strip.getBaseImage(), &volume);
    EXPECT_EQ(strip.accessBuffer(0), planData<unsigned short>(*image, 4, 2, 0));
    EXPECT_EQ(strip.accessBuffer(1), planData<unsigned short>(*image, 5, 2, 0));
    const BaseImageZStrip3d& base = strip;
    EXPECT_EQ(base.accessBuffer(1), planData<unsigned short>(*image, 5, 2, 0));
    EXPECT_TRUE(strip.isDense());
    EXPECT_TRUE(strip.hasRoomBehind());
    EXPECT_EQ(strip.getMemoryPlace(), simd::eMemoryPlace::secondLevelCache);
}

TEST(ImageZStrip3d, WritersReachTheSamePixels)
{
    std::vector<unsigned char> memory(1000);
    const ImagePtr image =
        wrapImage(*geometry3d(eImageBufferType::UInt8, 8, 10, 5), memory.data(), {11, 130, 0, 0}, nullptr);
    OutputImageZStrip3d output(*image, 3, 2);
    InOutImageZStrip3d inOut(*image, 3, 2);
    for (const unsigned long plan : {0UL, 1UL}) {
        EXPECT_EQ(output.accessBuffer(plan), memory.data() + 130 * (3 + plan));
        EXPECT_EQ(inOut.accessBuffer(plan), output.accessBuffer(plan));
        EXPECT_EQ(std::as_const(inOut).accessBuffer(plan), output.accessBuffer(plan));
        EXPECT_EQ(static_cast<const BaseImageZStrip3d&>(output).accessBuffer(plan), output.accessBuffer(plan));
    }
    EXPECT_EQ(output.getLineBytes(), 11u);
    EXPECT_FALSE(output.isDense());
    EXPECT_FALSE(output.hasRoomBehind());
    static_assert(std::is_same_v<decltype(std::declval<InputImageZStrip3d&>().accessBuffer(0)), const void*>);
}

} // namespace
} // namespace orlix::image
