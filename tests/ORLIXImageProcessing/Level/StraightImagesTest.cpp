// Which images are one plan, or one volume, of the host.
#include "ORLIXIPL/ORLIXImageProcessing/Level/StraightImages.h"

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::geometry5d;

constexpr auto g_uint8 = image::eImageBufferType::UInt8;

/// With the distances of an image in memory, but none.
class PixellessImage final : public image::BaseImage
{
public:
    explicit PixellessImage(const image::BaseImageGeometry& geometry) : BaseImage(geometry, layoutOf(geometry)) {}

private:
    static image::PixelLayout layoutOf(const image::BaseImageGeometry& geometry)
    {
        image::PixelLayout layout;
        layout.rowBytes = geometry.getSizeX();
        layout.planBytes = geometry.getSizeX() * geometry.getSizeY();
        return layout;
    }
};

TEST(StraightImages, OnePlanOrVolumeInMemory)
{
    const auto kindOf = [](const image::BaseImage* image) {
        return std::string(isOneHostPlan(image) ? "plan " : "") + (isOneHostVolume(image) ? "volume" : "");
    };
    const auto kindWith = [&](unsigned long sizeZ, unsigned long sizeC, unsigned long sizeT) {
        return kindOf(image::createImage(*geometry5d(g_uint8, 5, 4, sizeZ, sizeC, sizeT)).get());
    };
    EXPECT_EQ(kindWith(1, 1, 1), "plan volume");
    EXPECT_EQ(kindWith(2, 1, 1), "volume");
    EXPECT_EQ(kindWith(1, 2, 1), "");
    EXPECT_EQ(kindWith(1, 1, 2), "");
    EXPECT_EQ(kindOf(nullptr), "");
    const PixellessImage pixelless(*geometry5d(g_uint8, 5, 4, 1, 1, 1));
    EXPECT_EQ(kindOf(&pixelless), "");
}

} // namespace
} // namespace orlix::imaproc::test
