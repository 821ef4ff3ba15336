// Regions, slices and sequences on a device: whole plans are copied there, all else is refused.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/GpuChecks.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using image::geometry2d;
using image::geometry5d;
using image::toDevice;
using image::toHost;
using testing::messageOf;
using testing::sameImages;

using GpuOperators = testing::GpuOperatorTest;

ImagePtr makeVolume(unsigned long seed)
{
    return testing::makeRandom(*geometry5d(eImageBufferType::UInt16, 40, 33, 4, 2, 1), seed);
}

/// Copies row by row: no operator has a hand in it.
void copyPlan(const image::BaseImage& from, unsigned long fromZ, image::BaseImage& to, unsigned long toZ)
{
    for (unsigned long c = 0; c < to.getSizeC(); ++c) {
        for (unsigned long y = 0; y < to.getSizeY(); ++y) {
            std::memcpy(to.accessRow(y, toZ, c, 0), from.accessRow(y, fromZ, c, 0),
                        to.getSizeX() * image::elementSize(to.getBufferType()));
        }
    }
}

TEST_F(GpuOperators, getSlicesAlongZ)
{
    const ImagePtr host = makeVolume(1);
    const ImagePtr slice = getSlice3dImg(toDevice(*host), eAxis::eZ, 2);
    EXPECT_TRUE(hasLaunched(2));
    ASSERT_TRUE(slice->isGpuImage());
    const ImagePtr expected = image::createImage(*geometry5d(eImageBufferType::UInt16, 40, 33, 1, 2, 1));
    copyPlan(*host, 2, *expected, 0);
    EXPECT_TRUE(sameImages(*toHost(*slice), *expected));
}

TEST_F(GpuOperators, putSlicesAlongZ)
{
    const ImagePtr host = makeVolume(1);
    const ImagePtr slice = testing::makeRandom(*geometry5d(eImageBufferType::UInt16, 40, 33, 1, 2, 1), 3);
    const ImagePtr out = putSlice3dImg(toDevice(*host), toDevice(*slice), eAxis::eZ, 1);
    ASSERT_TRUE(out->isGpuImage());
    const ImagePtr expected = testing::plainCopy(*host);
    copyPlan(*slice, 0, *expected, 1);
    EXPECT_TRUE(sameImages(*toHost(*out), *expected));
}

TEST_F(GpuOperators, appendSequences)
{
    const ImagePtr first = testing::makeRandom(*geometry5d(eImageBufferType::UInt8, 20, 9, 2, 1, 2), 1);
    const ImagePtr second = testing::makeRandom(*geometry5d(eImageBufferType::UInt8, 20, 9, 2, 1, 3), 2);
    const ImagePtr out = appendSeqImg(toDevice(*first), toDevice(*second));
    EXPECT_TRUE(hasLaunched(10));
    ASSERT_TRUE(out->isGpuImage());
    std::vector<std::byte> expected = testing::bytesOf(*first);
    const std::vector<std::byte> more = testing::bytesOf(*second);
    expected.insert(expected.end(), more.begin(), more.end());
    EXPECT_EQ(testing::bytesOf(*toHost(*out)), expected);
}

/// Ends with a text that names the GPU and leaves `touched` as it was.
void expectRefused(const ImagePtr& touched, const std::function<void()>& call)
{
    const ImagePtr before = toHost(*touched);
    const std::string text = messageOf(call);
    EXPECT_NE(text.find("on a GPU"), std::string::npos) << text;
    EXPECT_TRUE(sameImages(*toHost(*touched), *before));
}

TEST_F(GpuOperators, refusePartsOfPlans)
{
    const ImagePtr device = toDevice(*makeVolume(1));
    const ImagePtr plan = toDevice(*testing::makeRandom(*geometry2d(eImageBufferType::UInt16, 40, 33), 2));
    const ImagePtr small = toDevice(*testing::makeRandom(*geometry2d(eImageBufferType::UInt16, 4, 3), 3));
    expectRefused(plan, [&] { static_cast<void>(getROI2dImg(plan, 1, 1, 4, 3)); });
    expectRefused(plan, [&] { putROI2dImg(plan, small, 1, 1); });
    expectRefused(device, [&] { static_cast<void>(getSlice3dImg(device, eAxis::eX, 2)); });
    expectRefused(device, [&] { static_cast<void>(getSlice3dImg(device, eAxis::eY, 2)); });
    EXPECT_TRUE(hasLaunched(0));
}

} // namespace
} // namespace orlix::imaproc::util
