// The kernels of PutROI3dImgLvl3 between forbidden pages, and its levels by themselves.
#include "ORLIXIPLUtility/Processor/Region/RegionKernels.h"
#include "ORLIXIPLUtility/Processor/Region/RegionTest.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/SameImages.h"

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;

constexpr auto g_sync = core::eSynchroType::eSynchroSync;

TEST(PutROI3dImgKernelsTest, everySetTypeAndWidthStaysWithinItsRows)
{
    testing::forEachKernel<PutROI3dImgLvl3>(g_regionKernels, [](testing::Set, testing::BufferType type) {
        for (unsigned long width = 0; width <= 1300; width += width < 140 ? 1 : 193) {
            for (const testing::WrapForm& form : {testing::WrapForm{testing::GuardEdge::eEnd},
                                                  testing::WrapForm{testing::GuardEdge::eBegin, 0, 0, 1, false}}) {
                const testing::WatchedImage in(*image::geometry3d(type, width + 5, 4, 3), form);
                const testing::WatchedImage out(*image::geometry3d(type, width, 3, 2), form);
                testing::fillRandom(*in.get(), width);
                testing::fillRandom(*out.get(), width + 1);
                const ImagePtr expected = withRegion(*in.get(), *out.get(), {5, 1, 1, width, 3, 2});
                putROI3dImg(in.get(), out.get(), 5, 1, 1);
                ASSERT_TRUE(testing::sameImages(*expected, *in.get())) << width;
                ASSERT_TRUE(in.isOutsideIntact() && out.isOutsideIntact()) << width;
            }
        }
    });
}

TEST(PutROI3dImgLvl3Test, putsAStripInItsPlace)
{
    const auto level = testing::makeInitialised<PutROI3dImgLvl3>();
    const ImagePtr roi = testing::makeRandom(*image::geometry3d(eImageBufferType::Int16, 20, 10, 5));
    const testing::WatchedImage out(*image::geometry3d(eImageBufferType::Int16, 64, 20, 8), {});
    testing::fillRandom(*out.get(), 7);
    const ImagePtr before = testing::plainCopy(*out.get());
    level->set<attr::InInputImg3dOffset>(attr::createImg3dOffset(3, 2, 77));
    level->set<attr::InZStrip3d>(boost::make_shared<image::InputImageZStrip3d>(*roi, 1, 3));
    level->set<attr::InOutZStrip3d>(boost::make_shared<image::InOutImageZStrip3d>(*out.get(), 4, 2));
    EXPECT_EQ(
        level->run(g_sync).getMessage(),
        "The strip of InOutZStrip3d is 64x20x2, which does not hold 20x10x3 from (3, 2) on: ask for pixels within it");
    level->set<attr::InOutZStrip3d>(boost::make_shared<image::InOutImageZStrip3d>(*out.get(), 4, 3));
    level->set<attr::InInputImg3dOffset>(attr::createImg3dOffset(0, 11, 0));
    EXPECT_EQ(
        level->run(g_sync).getMessage(),
        "The strip of InOutZStrip3d is 64x20x3, which does not hold 20x10x3 from (0, 11) on: ask for pixels within it");
    EXPECT_TRUE(testing::sameImages(*before, *out.get()));

    level->set<attr::InInputImg3dOffset>(attr::createImg3dOffset(3, 2, 77));
    EXPECT_EQ(level->run(g_sync).getMessage(), "");
    EXPECT_EQ(regionBytes(*out.get(), {3, 2, 4, 20, 10, 3}), regionBytes(*roi, {0, 0, 1, 20, 10, 3}));
    EXPECT_TRUE(out.isOutsideIntact());
    const std::vector<std::byte> now = testing::bytesOf(*out.get());
    const std::vector<std::byte> was = testing::bytesOf(*before);
    unsigned long nbChanged = 0;
    for (unsigned long i = 0; i < now.size(); ++i) {
        nbChanged += now[i] != was[i];
    }
    EXPECT_LE(nbChanged, regionBytes(*roi, {0, 0, 1, 20, 10, 3}).size());
}

} // namespace
} // namespace orlix::imaproc::util
