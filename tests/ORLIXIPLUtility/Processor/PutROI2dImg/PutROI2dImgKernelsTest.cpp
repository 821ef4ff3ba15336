// The kernels of PutROI2dImgLvl3 between forbidden pages, and its levels by themselves.
#include "ORLIXIPLUtility/Processor/Region/RegionKernels.h"
#include "ORLIXIPLUtility/Processor/Region/RegionTest.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/SameImages.h"

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;

constexpr auto g_sync = core::eSynchroType::eSynchroSync;

TEST(PutROI2dImgKernelsTest, everySetTypeAndWidthStaysWithinItsRows)
{
    testing::forEachKernel<PutROI2dImgLvl3>(g_regionKernels, [](testing::Set, testing::BufferType type) {
        for (unsigned long width = 0; width <= 1300; width += width < 140 ? 1 : 193) {
            for (const testing::WrapForm& form : {testing::WrapForm{testing::GuardEdge::eEnd},
                                                  testing::WrapForm{testing::GuardEdge::eBegin, 0, 0, 1, false}}) {
                const testing::WatchedImage in(*image::geometry2d(type, width + 5, 4), form);
                const testing::WatchedImage out(*image::geometry2d(type, width, 3), form);
                testing::fillRandom(*in.get(), width);
                testing::fillRandom(*out.get(), width + 1);
                const ImagePtr expected = withRegion(*in.get(), *out.get(), {5, 1, 0, width, 3, 1});
                putROI2dImg(in.get(), out.get(), 5, 1);
                ASSERT_TRUE(testing::sameImages(*expected, *in.get())) << width;
                ASSERT_TRUE(in.isOutsideIntact() && out.isOutsideIntact()) << width;
            }
        }
    });
}

TEST(PutROI2dImgLvl3Test, putsAStripInItsPlace)
{
    const auto level = testing::makeInitialised<PutROI2dImgLvl3>();
    const ImagePtr roi = testing::makeRandom(*image::geometry2d(eImageBufferType::Int16, 20, 9));
    const testing::WatchedImage out(*image::geometry2d(eImageBufferType::Int16, 64, 20), {});
    testing::fillRandom(*out.get(), 7);
    const ImagePtr before = testing::plainCopy(*out.get());
    level->set<attr::InInputImg2dOffset>(attr::createImg2dOffset(3, 77));
    level->set<attr::InYStrip2d>(boost::make_shared<image::InputImageYStrip2d>(*roi, 1, 6));
    level->set<attr::OutYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*out.get(), 7, 5));
    EXPECT_EQ(
        level->run(g_sync).getMessage(),
        "The strip of OutYStrip2d is 64x5x1, which does not hold 20x6x1 from (3, 0) on: ask for pixels within it");
    level->set<attr::OutYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*out.get(), 7, 6));
    level->set<attr::InInputImg2dOffset>(attr::createImg2dOffset(45, 0));
    EXPECT_EQ(
        level->run(g_sync).getMessage(),
        "The strip of OutYStrip2d is 64x6x1, which does not hold 20x6x1 from (45, 0) on: ask for pixels within it");
    EXPECT_TRUE(testing::sameImages(*before, *out.get()));

    level->set<attr::InInputImg2dOffset>(attr::createImg2dOffset(3, 77));
    EXPECT_EQ(level->run(g_sync).getMessage(), "");
    EXPECT_EQ(regionBytes(*out.get(), {3, 7, 0, 20, 6, 1}), regionBytes(*roi, {0, 1, 0, 20, 6, 1}));
    EXPECT_TRUE(out.isOutsideIntact());
    const std::vector<std::byte> now = testing::bytesOf(*out.get());
    const std::vector<std::byte> was = testing::bytesOf(*before);
    unsigned long nbChanged = 0;
    for (unsigned long i = 0; i < now.size(); ++i) {
        nbChanged += now[i] != was[i];
    }
    EXPECT_LE(nbChanged, regionBytes(*roi, {0, 1, 0, 20, 6, 1}).size());
}

} // namespace
} // namespace orlix::imaproc::util
