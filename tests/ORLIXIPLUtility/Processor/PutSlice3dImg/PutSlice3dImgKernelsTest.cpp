// Every kernel of PutSlice3dImgLvl3 by itself, between forbidden pages.
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

/// AVX computes with floats alone.
bool hasRow(testing::Set set, testing::BufferType type)
{
    return set != eInstructionSet::eAVX || type == eImageBufferType::Real32;
}

const testing::KernelTable g_table{{eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX,
                                    eInstructionSet::eAVX2, eInstructionSet::eAVX512},
                                   hasRow};

constexpr auto g_sync = core::eSynchroType::eSynchroSync;

TEST(PutSlice3dImgKernelsTest, rowsInTheOrderOfTheTable)
{
    testing::expectRows<PutSlice3dImgLvl3>(g_table);
}

TEST(PutSlice3dImgKernelsTest, forcedSetIsTheOneThatRuns)
{
    testing::expectForcedSetRuns<PutSlice3dImgLvl3>(g_table);
}

TEST(PutSlice3dImgKernelsTest, everySetTypeAndLengthStaysWithinTheSlice)
{
    testing::forEachKernel<PutSlice3dImgLvl3>(g_table, [](testing::Set, testing::BufferType type) {
        for (unsigned long length = 1; length <= 3 * 64 + 1; length += length < 70 ? 1 : 13) {
            for (const eAxis::domain axis : {eAxis::eX, eAxis::eY}) {
                const Sizes sizes = axis == eAxis::eY ? Sizes{length, 3, 2, 1, 1} : Sizes{3, length, 2, 1, 1};
                for (const testing::WrapForm& form : g_wrapForms) {
                    SCOPED_TRACE(length);
                    const testing::WatchedImage volume(*volumeOf(type, sizes), form);
                    const testing::WatchedImage slice(*sliceOf(type, sizes, axis), form);
                    testing::fillRandom(*volume.get(), length);
                    testing::fillRandom(*slice.get(), length + 1);
                    const ImagePtr expected = plainVolumeWith(*volume.get(), *slice.get(), axis, 1);
                    putSlice3dImg(volume.get(), slice.get(), axis, 1, volume.get());
                    ASSERT_TRUE(sameImages(*expected, *volume.get()));
                    ASSERT_TRUE(volume.isOutsideIntact() && slice.isOutsideIntact());
                }
            }
        }
    });
}

/// A level 3 that is to put lines [firstLine, firstLine + nbLines) of `slice`.
boost::shared_ptr<PutSlice3dImgLvl3> levelFor(const ImagePtr& volume, eAxis::domain axis, unsigned long index,
                                              const ImagePtr& slice, unsigned long firstLine, unsigned long nbLines)
{
    const auto level = testing::makeInitialised<PutSlice3dImgLvl3>();
    level->set<attr::InSubImg3d>(volume);
    level->set<attr::InYStrip2d>(boost::make_shared<image::InputImageYStrip2d>(*slice, firstLine, nbLines));
    level->set<attr::InAxis>(axis);
    level->set<attr::InSliceIndex>(index);
    level->set<attr::OutImg>(volume);
    return level;
}

TEST(PutSlice3dImgKernelsTest, aStripGoesToThePlansOfItsLines)
{
    const Sizes sizes = {9, 7, 11, 1, 1};
    testing::forEachKernel<PutSlice3dImgLvl3>(g_table, [&](testing::Set, testing::BufferType type) {
        for (const eAxis::domain axis : {eAxis::eX, eAxis::eY}) {
            const ImagePtr volume = makeRandom(*volumeOf(type, sizes));
            const ImagePtr slice = makeRandom(*sliceOf(type, sizes, axis), 8);
            const ImagePtr part = plainSlice(*volume, axis, 3);
            std::memcpy(part->accessRow(4, 0, 0, 0), slice->accessRow(4, 0, 0, 0),
                        3 * slice->getSizeX() * image::elementSize(type));
            const ImagePtr expected = plainVolumeWith(*volume, *part, axis, 3);
            EXPECT_TRUE(levelFor(volume, axis, 3, slice, 4, 3)->run(g_sync));
            EXPECT_TRUE(sameImages(*expected, *volume));
        }
    });
}

TEST(PutSlice3dImgKernelsTest, alongXLinesBeyondTheLastPlanAreLeftOut)
{
    const ImagePtr volume = makeRandom(*volumeOf(eImageBufferType::UInt16, {9, 7, 5, 1, 1}));
    const ImagePtr slice = makeRandom(*image::geometry2d(eImageBufferType::UInt16, 7, 8), 3);
    const ImagePtr part = plainSlice(*volume, eAxis::eX, 2);
    std::memcpy(part->accessRow(3, 0, 0, 0), slice->accessRow(3, 0, 0, 0), 2 * 7 * 2);
    const ImagePtr expected = plainVolumeWith(*volume, *part, eAxis::eX, 2);
    EXPECT_TRUE(levelFor(volume, eAxis::eX, 2, slice, 3, 5)->run(g_sync));
    EXPECT_TRUE(sameImages(*expected, *volume));
}

TEST(PutSlice3dImgKernelsTest, alongZNothingIsWritten)
{
    const ImagePtr volume = makeRandom(*volumeOf(eImageBufferType::UInt8, {9, 7, 5, 1, 1}));
    const ImagePtr before = testing::plainCopy(*volume);
    const ImagePtr slice = makeRandom(*image::geometry2d(eImageBufferType::UInt8, 9, 7), 3);
    EXPECT_TRUE(levelFor(volume, eAxis::eZ, 2, slice, 0, 7)->run(g_sync));
    EXPECT_TRUE(sameImages(*before, *volume));
}

/// As an image on a device looks to code of the host.
class ElsewhereImage final : public image::BaseImage
{
public:
    explicit ElsewhereImage(const image::BaseImageGeometry& geometry) : BaseImage(geometry, image::PixelLayout()) {}
};

TEST(PutSlice3dImgKernelsTest, aVolumeWithoutHostPixelsIsRefused)
{
    const ImagePtr volume = boost::make_shared<ElsewhereImage>(*volumeOf(eImageBufferType::UInt8, {9, 7, 5, 1, 1}));
    const ImagePtr slice = makeRandom(*image::geometry2d(eImageBufferType::UInt8, 9, 5), 3);
    EXPECT_EQ(levelFor(volume, eAxis::eY, 2, slice, 0, 5)->run(g_sync).getMessage(),
              "OutImg, which is 9x7x5x1x1 UInt8, is on a GPU, but has to be in the memory of the host: bring it there "
              "with toHost first");
}

TEST(PutSlice3dImgKernelsTest, alongYABlockOfSeveralGoesToTheLastRowForOneElement)
{
    const Sizes sizes = {6, 4, 3, 1, 1};
    testing::forEachKernel<PutSlice3dImgLvl3>(g_table, [&](testing::Set, testing::BufferType type) {
        const unsigned long size = image::elementSize(type);
        for (unsigned long first = 0; first < 2 * 6 * 4; ++first) {
            const ImagePtr volume = makeRandom(*volumeOf(type, sizes));
            const ImagePtr slice = makeRandom(*sliceOf(type, sizes, eAxis::eY), 9);
            const auto level = levelFor(volume, eAxis::eY, 2, slice, 0, 3);
            ASSERT_TRUE(level->run(g_sync));
            const ImagePtr expected = testing::plainCopy(*volume);
            if (first % 24 / 4 == 2) {
                std::memcpy(expected->accessRow(3, 2, 0, 0) + first % 6 * size, slice->accessRow(0, 0, 0, 0), size);
            }
            const auto* const row = PutSlice3dImgLvl3::accessFunctionSelector().select(
                testing::identifierOf(type), PutSlice3dImgLvl3::accessForcedInstructionSets());
            processor::BaseProcessingAlgorithm& algorithm = *level;
            EXPECT_TRUE((algorithm.*row->getFunction())({1, 2, 0, first}));
            EXPECT_TRUE(sameImages(*expected, *volume)) << first;
        }
    });
}

} // namespace
} // namespace orlix::imaproc::util
