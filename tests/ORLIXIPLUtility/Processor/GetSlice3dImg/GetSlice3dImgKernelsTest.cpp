// The kernels of GetSlice3dImgLvl3 by themselves: which there are, and what they do with the strips that they get.
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/KernelChecks.h"
#include "ORLIXIPLUtility/Processor/GetSlice3dImg/SliceOracle.h"
#include "ORLIXIPLUtility/ProcessorChecks.h"
#include "support/SameImages.h"

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using testing::makeRandom;
using testing::sameImages;

/// The files of the other sets have no rows.
const testing::KernelTable g_table{{eInstructionSet::eNone}};

constexpr auto g_sync = core::eSynchroType::eSynchroSync;

TEST(GetSlice3dImgKernelsTest, rowsInTheOrderOfTheTable)
{
    testing::expectRows<GetSlice3dImgLvl3>(g_table);
}

TEST(GetSlice3dImgKernelsTest, forcedSetIsTheOneThatRuns)
{
    testing::expectForcedSetRuns<GetSlice3dImgLvl3>(g_table);
}

/// A level 3 that is to fill lines [firstLine, firstLine + nbLines) of `out`.
boost::shared_ptr<GetSlice3dImgLvl3> levelFor(const ImagePtr& in, eAxis::domain axis, unsigned long index,
                                              const ImagePtr& out, unsigned long firstLine, unsigned long nbLines)
{
    const auto level = testing::makeInitialised<GetSlice3dImgLvl3>();
    level->set<attr::InSubImg3d>(in);
    level->set<attr::InAxis>(axis);
    level->set<attr::InSliceIndex>(index);
    level->set<attr::OutYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*out, firstLine, nbLines));
    return level;
}

TEST(GetSlice3dImgKernelsTest, aStripTakesThePlansOfItsLines)
{
    const Sizes sizes = {9, 7, 11, 1, 1};
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr in = makeRandom(*volumeOf(type, sizes));
        for (const eAxis::domain axis : {eAxis::eX, eAxis::eY}) {
            const ImagePtr whole = plainSlice(*in, axis, 3);
            const ImagePtr out = makeRandom(whole->getGeometry(), 8);
            const ImagePtr expected = testing::plainCopy(*out);
            const unsigned long lineBytes = out->getSizeX() * image::elementSize(type);
            std::memcpy(expected->accessRow(4, 0, 0, 0), whole->accessRow(4, 0, 0, 0), 3 * lineBytes);
            EXPECT_TRUE(levelFor(in, axis, 3, out, 4, 3)->run(g_sync));
            EXPECT_TRUE(sameImages(*expected, *out)) << image::getBufferTypeName(type);
        }
    }
}

TEST(GetSlice3dImgKernelsTest, alongXLinesBeyondTheLastPlanStay)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt16, {9, 7, 5, 1, 1}));
    const ImagePtr out = makeRandom(*image::geometry2d(eImageBufferType::UInt16, 7, 8), 3);
    const ImagePtr expected = testing::plainCopy(*out);
    std::memcpy(expected->accessRow(3, 0, 0, 0), plainSlice(*in, eAxis::eX, 2)->accessRow(3, 0, 0, 0), 2 * 7 * 2);
    EXPECT_TRUE(levelFor(in, eAxis::eX, 2, out, 3, 5)->run(g_sync));
    EXPECT_TRUE(sameImages(*expected, *out));
}

TEST(GetSlice3dImgKernelsTest, alongZNothingIsWritten)
{
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, {9, 7, 5, 1, 1}));
    const ImagePtr out = makeRandom(*image::geometry2d(eImageBufferType::UInt8, 9, 7), 3);
    const ImagePtr before = testing::plainCopy(*out);
    EXPECT_TRUE(levelFor(in, eAxis::eZ, 2, out, 0, 7)->run(g_sync));
    EXPECT_TRUE(sameImages(*before, *out));
}

/// As an image on a device looks to code of the host.
class ElsewhereImage final : public image::BaseImage
{
public:
    explicit ElsewhereImage(const image::BaseImageGeometry& geometry) : BaseImage(geometry, image::PixelLayout()) {}
};

TEST(GetSlice3dImgKernelsTest, aVolumeWithoutHostPixelsIsRefused)
{
    const ImagePtr in = boost::make_shared<ElsewhereImage>(*volumeOf(eImageBufferType::UInt8, {9, 7, 5, 1, 1}));
    const ImagePtr out = makeRandom(*image::geometry2d(eImageBufferType::UInt8, 9, 5), 3);
    const ImagePtr before = testing::plainCopy(*out);
    EXPECT_EQ(levelFor(in, eAxis::eY, 2, out, 0, 5)->run(g_sync).getMessage(),
              "InSubImg3d, which is 9x7x5x1x1 UInt8, is on a GPU, but has to be in the memory of the host: bring it "
              "there with toHost first");
    EXPECT_TRUE(sameImages(*before, *out));
}

/// Calls the kernel that last ran once more, as for a strip that is handed out in two blocks.
void callForBlock(GetSlice3dImgLvl3& level, const eImageBufferType& type, unsigned long nbElements,
                  unsigned long firstElement)
{
    const auto* const row = GetSlice3dImgLvl3::accessFunctionSelector().select(
        testing::identifierOf(type), GetSlice3dImgLvl3::accessForcedInstructionSets());
    ASSERT_NE(row, nullptr);
    processor::BaseProcessingAlgorithm& algorithm = level;
    EXPECT_TRUE((algorithm.*row->getFunction())({nbElements, 2, 0, firstElement}));
}

TEST(GetSlice3dImgKernelsTest, alongYABlockOfSeveralTakesTheLastRowForOneElement)
{
    const Sizes sizes = {6, 4, 3, 1, 1};
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt16, sizes));
    for (unsigned long first = 0; first < 2 * 6 * 4; ++first) {
        const ImagePtr out = makeRandom(*sliceOf(eImageBufferType::UInt16, sizes, eAxis::eY), 9);
        const auto level = levelFor(in, eAxis::eY, 2, out, 0, 3);
        ASSERT_TRUE(level->run(g_sync));
        testing::fillRandom(*out, 10);
        const ImagePtr expected = testing::plainCopy(*out);
        if (first % 24 / 4 == 2) {
            std::memcpy(expected->accessRow(0, 0, 0, 0), in->accessRow(3, 2, 0, 0) + first % 6 * 2, 1 * 2);
        }
        callForBlock(*level, eImageBufferType::UInt16, 1, first);
        EXPECT_TRUE(sameImages(*expected, *out)) << first;
    }
}

TEST(GetSlice3dImgKernelsTest, alongXABlockMayBeginAnywhere)
{
    const Sizes sizes = {6, 4, 5, 1, 1};
    const ImagePtr in = makeRandom(*volumeOf(eImageBufferType::UInt8, sizes));
    const ImagePtr whole = plainSlice(*in, eAxis::eX, 5);
    for (unsigned long first = 0; first < 20; ++first) {
        const ImagePtr out = makeRandom(whole->getGeometry(), 9);
        const auto level = levelFor(in, eAxis::eX, 5, out, 0, 5);
        ASSERT_TRUE(level->run(g_sync));
        testing::fillRandom(*out, 10);
        const ImagePtr expected = testing::plainCopy(*out);
        const unsigned long nbElements = std::min(7UL, 20 - first);
        std::memcpy(expected->accessRow(0, 0, 0, 0), whole->accessRow(0, 0, 0, 0) + first, nbElements);
        callForBlock(*level, eImageBufferType::UInt8, 7, first);
        EXPECT_TRUE(sameImages(*expected, *out)) << first;
    }
}

} // namespace
} // namespace orlix::imaproc::util
