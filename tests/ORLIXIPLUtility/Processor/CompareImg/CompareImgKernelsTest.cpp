// Every kernel of CompareImgLvl3 between forbidden pages: none reads past a line.
#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPLUtility/KernelChecks.h"
#include "ORLIXIPLUtility/Processor/CompareImg/CompareOracle.h"
#include "support/Images.h"

namespace orlix::imaproc::util::test {
namespace {

using image::eImageBufferType;

constexpr eInstructionSet::domain g_sets[] = {eInstructionSet::eNone, eInstructionSet::eSSE2, eInstructionSet::eAVX2,
                                              eInstructionSet::eAVX512};

/// Copies the pixels and changes those at `places`.
void makeDifferent(const image::BaseImage& from, image::BaseImage& to, const std::vector<unsigned long>& places)
{
    const unsigned long size = image::elementSize(from.getBufferType());
    for (unsigned long y = 0; y < from.getSizeY(); ++y) {
        std::memcpy(to.accessRow(y, 0, 0, 0), from.accessRow(y, 0, 0, 0), from.getSizeX() * size);
    }
    for (const unsigned long place : places) {
        std::byte& byte = to.accessRow(place / from.getSizeX(), 0, 0, 0)[place % from.getSizeX() * size];
        byte ^= std::byte{0x15};
    }
}

void checkLength(const eImageBufferType& type, unsigned long length, const testing::WrapForm& form)
{
    const auto geometry = image::geometry2d(type, length, 2);
    const testing::WatchedImage first(*geometry, form);
    const testing::WatchedImage second(*geometry, form);
    testing::fillRandom(*first.get(), length);
    const unsigned long nbPixels = 2 * length;
    std::vector<std::vector<unsigned long>> differences = {{}};
    if (nbPixels > 0) {
        differences.push_back({nbPixels - 1});
        differences.push_back({length / 2, length - 1, length, nbPixels - 1});
    }
    for (const std::vector<unsigned long>& places : differences) {
        makeDifferent(*first.get(), *second.get(), places);
        for (const Tolerance& tolerance : {Tolerance{0, 0, 0}, {1, 3, 0}, {2, 0, 0.01f}, {3, 3, 0.01f}}) {
            ASSERT_TRUE(comparesAsExpected(first.get(), second.get(), tolerance));
        }
    }
    ASSERT_TRUE(first.isOutsideIntact() && second.isOutsideIntact());
}

const testing::KernelTable g_table{{std::begin(g_sets), std::end(g_sets)}};

TEST(CompareImgKernelsTest, RowsInTheOrderOfTheTable)
{
    testing::expectRows<CompareImgLvl3>(g_table);
}

TEST(CompareImgKernelsTest, ForcedSetIsTheOneThatRuns)
{
    testing::expectForcedSetRuns<CompareImgLvl3>(g_table);
}

TEST(CompareImgKernelsTest, EverySetTypeAndLengthStaysWithinItsLines)
{
    for (const eInstructionSet::domain set : g_sets) {
        if (!core::isAvailable(set)) {
            continue;
        }
        const testing::ForcedSet<CompareImgLvl3> forced(set);
        for (const eImageBufferType type : image::g_allBufferTypes) {
            SCOPED_TRACE(std::string(image::getBufferTypeName(type)) + " with " + core::getInstructionSetName(set));
            for (unsigned long length = 0; length <= 3 * 64 + 1; ++length) {
                checkLength(type, length, {testing::GuardEdge::eEnd});
                checkLength(type, length, {testing::GuardEdge::eBegin, 1 + length % 7, 0, length % 5, false});
            }
        }
    }
}

/// Long enough for the counts of 8-bit lanes to overflow if nobody empties them.
TEST(CompareImgKernelsTest, LongLinesCountEveryPixel)
{
    for (const eInstructionSet::domain set : g_sets) {
        if (!core::isAvailable(set)) {
            continue;
        }
        const testing::ForcedSet<CompareImgLvl3> forced(set);
        for (const eImageBufferType type :
             {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32}) {
            constexpr unsigned long nbPixels = (1UL << 22) + 77;
            const ImagePtr first = image::createImage(*image::geometry2d(type, nbPixels, 1));
            const ImagePtr second = image::createImage(*image::geometry2d(type, nbPixels, 1));
            std::memset(first->accessRow(0, 0, 0, 0), 0, nbPixels * image::elementSize(type));
            std::memset(second->accessRow(0, 0, 0, 0), 1, nbPixels * image::elementSize(type));
            EXPECT_EQ(compareImg(first, second)->nbDifferentPixels, nbPixels) << image::getBufferTypeName(type);
            EXPECT_EQ(compareImg(first, second)->nbComparedPixels, nbPixels) << image::getBufferTypeName(type);
        }
    }
}

} // namespace
} // namespace orlix::imaproc::util::test
