// The kernels of GetROI3dImgLvl3 between forbidden pages, and its levels by themselves.
#include "ORLIXIPLUtility/Processor/Region/RegionKernels.h"
#include "ORLIXIPLUtility/Processor/Region/RegionTest.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/SameImages.h"

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;

constexpr auto g_sync = core::eSynchroType::eSynchroSync;

TEST(GetROI3dImgKernelsTest, everySetTypeAndWidthStaysWithinItsRows)
{
    testing::forEachKernel<GetROI3dImgLvl3>(g_regionKernels, [](testing::Set, testing::BufferType type) {
        for (unsigned long width = 0; width <= 1300; width += width < 140 ? 1 : 193) {
            for (const testing::WrapForm& form : {testing::WrapForm{testing::GuardEdge::eEnd},
                                                  testing::WrapForm{testing::GuardEdge::eBegin, 0, 0, 1, false}}) {
                const testing::WatchedImage in(*image::geometry3d(type, width + 5, 4, 3), form);
                const testing::WatchedImage out(*image::geometry3d(type, width, 3, 2), form);
                testing::fillRandom(*in.get(), width);
                getROI3dImg(in.get(), 5, 1, 1, width, 3, 2, out.get());
                ASSERT_EQ(testing::bytesOf(*out.get()), regionBytes(*in.get(), {5, 1, 1, width, 3, 2})) << width;
                ASSERT_TRUE(in.isOutsideIntact() && out.isOutsideIntact()) << width;
            }
        }
    });
}

TEST(GetROI3dImgLvl3Test, takesTheRegionOfAStrip)
{
    const auto level = testing::makeInitialised<GetROI3dImgLvl3>();
    const ImagePtr in = testing::makeRandom(*image::geometry3d(eImageBufferType::Int16, 64, 20, 8));
    const testing::WatchedImage out(*image::geometry3d(eImageBufferType::Int16, 20, 10, 5), {});
    level->set<attr::InInputImg3dOffset>(attr::createImg3dOffset(3, 2, 77));
    level->set<attr::InOutputImg3dSize>(attr::createImg3dSize(20, 10, 99));
    level->set<attr::InZStrip3d>(boost::make_shared<image::InputImageZStrip3d>(*in, 2, 3));
    level->set<attr::OutZStrip3d>(boost::make_shared<image::OutputImageZStrip3d>(*out.get(), 1, 3));
    EXPECT_EQ(level->run(g_sync).getMessage(), "");
    EXPECT_EQ(regionBytes(*out.get(), {0, 0, 1, 20, 10, 3}), regionBytes(*in, {3, 2, 2, 20, 10, 3}));
    EXPECT_TRUE(out.isOutsideIntact());

    level->set<attr::InZStrip3d>(boost::make_shared<image::InputImageZStrip3d>(*in, 2, 4));
    EXPECT_EQ(
        level->run(g_sync).getMessage(),
        "The strip of OutZStrip3d is 20x10x3, which does not hold 20x10x4 from (0, 0) on: ask for pixels within it");
    level->set<attr::InZStrip3d>(boost::make_shared<image::InputImageZStrip3d>(*in, 2, 3));
    level->set<attr::InOutputImg3dSize>(attr::createImg3dSize(20, 19, 3));
    EXPECT_EQ(
        level->run(g_sync).getMessage(),
        "The strip of InZStrip3d is 64x20x3, which does not hold 20x19x3 from (3, 2) on: ask for pixels within it");
    const ImagePtr other = testing::makeRandom(*image::geometry3d(eImageBufferType::UInt8, 64, 20, 8));
    level->set<attr::InZStrip3d>(boost::make_shared<image::InputImageZStrip3d>(*other, 2, 3));
    EXPECT_EQ(level->run(g_sync).getMessage(),
              "The strip of InZStrip3d is UInt8, that of OutZStrip3d is Int16: element types have to be the same");
}

} // namespace
} // namespace orlix::imaproc::util
