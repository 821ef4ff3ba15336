// The table of kernels, the choice among them, and every kernel by itself between forbidden pages.
#include "ORLIXIPLUtility/Processor/ConvertImg/ConvertImgChecks.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using testing::BufferType;
using testing::ForcedConvertSet;
using testing::Set;

TEST(ConvertImgKernelsTest, rowsInTheOrderOfTheTable)
{
    std::vector<std::pair<unsigned, Set>> expected;
    for (const Set set : testing::g_convertSets) {
        for (const BufferType in : image::g_allBufferTypes) {
            for (const BufferType out : image::g_allBufferTypes) {
                if (core::isAvailable(set)) {
                    processor::DataTypeIdentifierColl types;
                    types.init(ImageBufferTypeIdentifier(in), ImageBufferTypeIdentifier(out));
                    expected.emplace_back(types.getKey(), set);
                }
            }
        }
    }
    std::vector<std::pair<unsigned, Set>> found;
    for (const processor::AlgorithmFunctionIdentifier& row : ConvertImgLvl3::accessFunctionSelector().getFunctions()) {
        found.emplace_back(row.getDataTypes().getKey(), row.getInstructionSets().getHighest());
        EXPECT_EQ(row.getEfficiency(), static_cast<unsigned>(found.back().second));
    }
    EXPECT_EQ(found, expected);
}

TEST(ConvertImgKernelsTest, forcedSetIsTheOneThatRuns)
{
    const Set expected = testing::setsToTry().back();
    for (const BufferType in : image::g_allBufferTypes) {
        for (const BufferType out : image::g_allBufferTypes) {
            EXPECT_EQ(testing::runningSet(in, out), expected);
        }
    }
    const ForcedConvertSet avx(eInstructionSet::eAVX); // which has no kernels: those of SSE2 stand in
    EXPECT_EQ(testing::runningSet(eImageBufferType::Int8, eImageBufferType::Real32), eInstructionSet::eSSE2);
}

TEST(ConvertImgKernelsTest, typesOfTheSameStorageShareAKernel)
{
    const auto kernelOf = [](BufferType in, BufferType out) {
        processor::DataTypeIdentifierColl types;
        types.init(ImageBufferTypeIdentifier(in), ImageBufferTypeIdentifier(out));
        return ConvertImgLvl3::accessFunctionSelector().select(types, {})->getFunction();
    };
    const auto storageOf = [](BufferType type) {
        switch (type) {
        case eImageBufferType::eBufferBinary:
        case eImageBufferType::eBufferUInt8Like: return eImageBufferType::UInt8;
        case eImageBufferType::eBufferUInt16Like: return eImageBufferType::UInt16;
        case eImageBufferType::eBufferUInt32Like: return eImageBufferType::UInt32;
        default: return type;
        }
    };
    for (const BufferType in : image::g_allBufferTypes) {
        for (const BufferType out : image::g_allBufferTypes) {
            EXPECT_EQ(kernelOf(in, out), kernelOf(storageOf(in), storageOf(out)));
        }
    }
}

TEST(ConvertImgKernelsTest, everySetPairAndLengthStaysWithinItsElements)
{
    // Kernels run into the room behind a block; memory without such room is handed over as it is where the length is a
    // whole number of 64 elements, and as a scratch copy elsewhere.
    const testing::WrapForm forms[] = {{testing::GuardEdge::eEnd}, {testing::GuardEdge::eBegin, 0, 0, 1, false}};
    const BufferType types[] = {eImageBufferType::Int8,   eImageBufferType::UInt8,        eImageBufferType::Int16,
                                eImageBufferType::UInt16, eImageBufferType::Int32,        eImageBufferType::UInt32,
                                eImageBufferType::Real32, eImageBufferType::eBufferBinary};
    for (unsigned long length = 0; length <= 3 * 64 + 1; ++length) {
        for (const testing::WrapForm& form : forms) {
            for (const BufferType from : types) {
                const testing::WatchedImage in(*image::geometry2d(from, length, 1), form);
                testing::fillRandom(*in.get(), length);
                for (const BufferType to : types) {
                    const testing::WatchedImage out(*image::geometry2d(to, length, 1), form);
                    for (const Set set : testing::setsToTry()) {
                        const ForcedConvertSet forced(set);
                        convertImg(in.get(), out.get());
                        ASSERT_TRUE(testing::isConverted(*in.get(), *out.get())) << length << " elements";
                    }
                    ASSERT_TRUE(out.isOutsideIntact()) << length << " elements";
                }
                ASSERT_TRUE(in.isOutsideIntact());
            }
        }
    }
}

} // namespace
} // namespace orlix::imaproc::util
