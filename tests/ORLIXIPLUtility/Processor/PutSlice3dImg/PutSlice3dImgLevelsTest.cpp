// The levels of putSlice3dImg by themselves.
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

boost::shared_ptr<PutSlice3dImgLvl2> levelFor(const ImagePtr& in, const ImagePtr& slice, eAxis::domain axis,
                                              unsigned long index, const ImagePtr& out)
{
    const auto level = makeInitialised<PutSlice3dImgLvl2>();
    level->set<attr::InSubImg3d>(in);
    level->set<attr::InSubImg2d>(slice);
    level->set<attr::InAxis>(axis);
    level->set<attr::InSliceIndex>(index);
    level->set<attr::OutImg>(out);
    return level;
}

TEST(PutSlice3dImgLvl2Test, writesTheSliceAloneIntoTheOutput)
{
    const Sizes sizes = {40, 30, 20, 1, 1};
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::Int16, sizes));
    for (const eAxis::domain axis : g_axes) {
        const ImagePtr slice = makeRandom(*sliceOf(eImageBufferType::Int16, sizes, axis), 7);
        const ImagePtr out = makeRandom(in->getGeometry(), 8);
        const ImagePtr expected = plainVolumeWith(*out, *slice, axis, 19);
        const auto level = levelFor(in, slice, axis, 19, out);
        EXPECT_TRUE(level->run(g_sync));
        EXPECT_TRUE(sameImages(*expected, *out));
        EXPECT_TRUE(level->checkForCaller());
    }
}

TEST(PutSlice3dImgLvl2Test, hasTheRulesOfLevel1AndMakesNoOutput)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, {4, 5, 6, 1, 1}));
    EXPECT_EQ(levelFor(in, makeRandom(*image::geometry2d(eImageBufferType::UInt8, 5, 7)), eAxis::eX, 0, in)
                  ->run(g_sync)
                  .getMessage(),
              "InSubImg2d is 5x7x1x1x1 UInt8, but needs 6 along y where it has 7: "
              "it has to be a slice along x of InSubImg3d, which is 4x5x6x1x1 UInt8");
    const ImagePtr other = makeRandom(*volumeOf(eImageBufferType::UInt8, {4, 5, 7, 1, 1}));
    EXPECT_EQ(levelFor(in, makeRandom(*image::geometry2d(eImageBufferType::UInt8, 5, 6)), eAxis::eX, 0, other)
                  ->run(g_sync)
                  .getMessage(),
              "OutImg is 4x5x7x1x1 UInt8, InSubImg3d is 4x5x6x1x1 UInt8: sizes and element types have to be the same");
    EXPECT_FALSE(makeInitialised<PutSlice3dImgLvl2>()->makesOutput("OutImg"));
    EXPECT_TRUE(makeInitialised<PutSlice3dImgLvl1>()->makesOutput("OutImg"));
}

TEST(PutSlice3dImgLvl1Test, tellsCallersOfWhatNoRuleLooksAt)
{
    const auto level = makeInitialised<PutSlice3dImgLvl1>();
    EXPECT_TRUE(level->checkForCaller()) << "what is missing the run tells";
    level->set<attr::InImg3d>(makeRandom(*volumeOf(eImageBufferType::UInt8, {4, 5, 6, 1, 1})));
    EXPECT_TRUE(level->checkForCaller());
    level->set<attr::InImg2d>(makeRandom(*image::geometry2d(eImageBufferType::UInt8, 4, 6)));
    level->set<attr::InAxis>(eAxis::eY);
    level->set<attr::InSliceIndex>(4);
    EXPECT_TRUE(level->checkForCaller());
    level->set<attr::InSliceIndex>(5);
    EXPECT_FALSE(level->checkForCaller());
    level->set<attr::InSliceIndex>(4);
    level->set<attr::InImg2d>(makeRandom(*image::geometry2d(eImageBufferType::UInt16, 4, 6)));
    EXPECT_FALSE(level->checkForCaller());
}

} // namespace
} // namespace orlix::imaproc::util
