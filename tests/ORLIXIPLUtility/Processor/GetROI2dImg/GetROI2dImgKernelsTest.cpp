// The kernels of GetROI2dImgLvl3 between forbidden pages, and its levels by themselves.
#include "ORLIXIPLUtility/Processor/Region/RegionKernels.h"
#include "ORLIXIPLUtility/Processor/Region/RegionTest.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/SameImages.h"

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;

constexpr auto g_sync = core::eSynchroType::eSynchroSync;

TEST(GetROI2dImgKernelsTest, everySetTypeAndWidthStaysWithinItsRows)
{
    testing::forEachKernel<GetROI2dImgLvl3>(g_regionKernels, [](testing::Set, testing::BufferType type) {
        for (unsigned long width = 0; width <= 1300; width += width < 140 ? 1 : 193) {
            for (const testing::WrapForm& form : {testing::WrapForm{testing::GuardEdge::eEnd},
                                                  testing::WrapForm{testing::GuardEdge::eBegin, 0, 0, 1, false}}) {
                const testing::WatchedImage in(*image::geometry2d(type, width + 5, 4), form);
                const testing::WatchedImage out(*image::geometry2d(type, width, 3), form);
                testing::fillRandom(*in.get(), width);
                getROI2dImg(in.get(), 5, 1, width, 3, out.get());
                ASSERT_EQ(testing::bytesOf(*out.get()), regionBytes(*in.get(), {5, 1, 0, width, 3, 1})) << width;
                ASSERT_TRUE(in.isOutsideIntact() && out.isOutsideIntact()) << width;
            }
        }
    });
}

TEST(GetROI2dImgLvl3Test, takesTheRegionOfAStrip)
{
    const auto level = testing::makeInitialised<GetROI2dImgLvl3>();
    const ImagePtr in = testing::makeRandom(*image::geometry2d(eImageBufferType::Int16, 64, 20));
    const testing::WatchedImage out(*image::geometry2d(eImageBufferType::Int16, 20, 20), {});
    level->set<attr::InInputImg2dOffset>(attr::createImg2dOffset(3, 77));
    level->set<attr::InOutputImg2dSize>(attr::createImg2dSize(20, 99));
    level->set<attr::InYStrip2d>(boost::make_shared<image::InputImageYStrip2d>(*in, 4, 6));
    level->set<attr::OutYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*out.get(), 2, 6));
    EXPECT_EQ(level->run(g_sync).getMessage(), "");
    EXPECT_EQ(regionBytes(*out.get(), {0, 2, 0, 20, 6, 1}), regionBytes(*in, {3, 4, 0, 20, 6, 1}));
    EXPECT_TRUE(out.isOutsideIntact());

    level->set<attr::InYStrip2d>(boost::make_shared<image::InputImageYStrip2d>(*in, 4, 7));
    EXPECT_EQ(
        level->run(g_sync).getMessage(),
        "The strip of OutYStrip2d is 20x6x1, which does not hold 20x7x1 from (0, 0) on: ask for pixels within it");
    level->set<attr::InYStrip2d>(boost::make_shared<image::InputImageYStrip2d>(*in, 4, 6));
    level->set<attr::InOutputImg2dSize>(attr::createImg2dSize(62, 6));
    EXPECT_EQ(level->run(g_sync).getMessage(),
              "The strip of InYStrip2d is 64x6x1, which does not hold 62x6x1 from (3, 0) on: ask for pixels within it");
    const ImagePtr other = testing::makeRandom(*image::geometry2d(eImageBufferType::UInt8, 64, 20));
    level->set<attr::InYStrip2d>(boost::make_shared<image::InputImageYStrip2d>(*other, 4, 6));
    EXPECT_EQ(level->run(g_sync).getMessage(),
              "The strip of InYStrip2d is UInt8, that of OutYStrip2d is Int16: element types have to be the same");
}

} // namespace
} // namespace orlix::imaproc::util
