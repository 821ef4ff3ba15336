// The levels of getSlice3dImg by themselves.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/Processor/GetSlice3dImg/SliceOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/SameImages.h"

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using testing::makeInitialised;
using testing::makeRandom;
using testing::sameImages;

constexpr auto g_sync = core::eSynchroType::eSynchroSync;

boost::shared_ptr<GetSlice3dImgLvl2> levelFor(const ImagePtr& in, eAxis::domain axis, unsigned long index,
                                              const ImagePtr& out)
{
    const auto level = makeInitialised<GetSlice3dImgLvl2>();
    level->set<attr::InSubImg3d>(in);
    level->set<attr::InAxis>(axis);
    level->set<attr::InSliceIndex>(index);
    level->set<attr::OutImg2d>(out);
    return level;
}

TEST(GetSlice3dImgLvl2Test, fillsAPlanFromAVolume)
{
    const Sizes sizes = {40, 30, 20, 1, 1};
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::Int16, sizes));
    for (const eAxis::domain axis : g_axes) {
        const ImagePtr out = makeRandom(*sliceOf(eImageBufferType::Int16, sizes, axis), 7);
        const auto level = levelFor(in, axis, 19, out);
        EXPECT_TRUE(level->run(g_sync));
        EXPECT_TRUE(sameImages(*plainSlice(*in, axis, 19), *out));
        EXPECT_TRUE(level->checkForCaller());
    }
}

TEST(GetSlice3dImgLvl2Test, hasTheRulesOfLevel1AndMakesNoOutput)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, {4, 5, 6, 1, 1}));
    EXPECT_EQ(levelFor(in, eAxis::eX, 0, makeRandom(*image::geometry2d(eImageBufferType::UInt8, 5, 7)))
                  ->run(g_sync)
                  .getMessage(),
              "OutImg2d is 5x7x1x1x1 UInt8, but needs 6 along y where it has 7: "
              "it has to be a slice along x of InSubImg3d, which is 4x5x6x1x1 UInt8");
    EXPECT_EQ(levelFor(in, eAxis::eX, 0, makeRandom(*image::geometry2d(eImageBufferType::Int8, 5, 6)))
                  ->run(g_sync)
                  .getMessage(),
              "OutImg2d is 5x6x1x1x1 Int8, InSubImg3d is 4x5x6x1x1 UInt8: element types have to be the same");
    const auto level = makeInitialised<GetSlice3dImgLvl2>();
    EXPECT_FALSE(level->makesOutput("OutImg2d"));
    EXPECT_TRUE(makeInitialised<GetSlice3dImgLvl1>()->makesOutput("OutImg2d"));
}

TEST(GetSlice3dImgLvl1Test, tellsCallersOfSlicesThatThereAreNot)
{
    const auto level = makeInitialised<GetSlice3dImgLvl1>();
    EXPECT_TRUE(level->checkForCaller()) << "what is missing the run tells";
    level->set<attr::InImg3d>(makeRandom(*volumeOf(eImageBufferType::UInt8, {4, 5, 6, 1, 1})));
    level->set<attr::InAxis>(eAxis::eY);
    level->set<attr::InSliceIndex>(4);
    EXPECT_TRUE(level->checkForCaller());
    level->set<attr::InSliceIndex>(5);
    EXPECT_FALSE(level->checkForCaller());
}

} // namespace
} // namespace orlix::imaproc::util
