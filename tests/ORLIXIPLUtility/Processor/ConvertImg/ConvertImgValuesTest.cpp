// What values become, for every pair of types and every set of kernels, with both kinds of store.
#include "ORLIXIPLUtility/Processor/ConvertImg/ConvertImgChecks.h"
#include "ORLIXIPLUtility/Processor/ConvertImg/ConvertImgSamples.h"

#include <gtest/gtest.h>

#include <sys/mman.h>

namespace orlix::imaproc::util {
namespace {

using image::eImageBufferType;
using testing::BufferType;
using testing::ForcedConvertSet;
using testing::isConverted;
using testing::Set;

ImagePtr makeSamples(BufferType type)
{
    const testing::Patterns patterns = testing::samplesOf(type);
    const unsigned long size = image::elementSize(type);
    const ImagePtr image = image::createImage(*image::geometry2d(type, patterns.size(), 1));
    std::byte* next = image->accessRow(0, 0, 0, 0);
    for (const std::uint32_t pattern : patterns) {
        std::memcpy(next, &pattern, size);
        next += size;
    }
    return image;
}

class ConvertImgValuesTest : public ::testing::TestWithParam<BufferType>
{};

std::string nameOf(const ::testing::TestParamInfo<BufferType>& info)
{
    return image::getBufferTypeName(info.param);
}

INSTANTIATE_TEST_SUITE_P(From, ConvertImgValuesTest, ::testing::ValuesIn(image::g_allBufferTypes), nameOf);

TEST_P(ConvertImgValuesTest, toEveryTypeUnderEverySet)
{
    const ImagePtr in = makeSamples(GetParam());
    for (const Set set : testing::setsToTry()) {
        const ForcedConvertSet forced(set);
        for (const BufferType to : image::g_allBufferTypes) {
            ASSERT_EQ(testing::runningSet(GetParam(), to), set);
            EXPECT_TRUE(isConverted(*in, *convertImg(in, to)));
        }
    }
}

/// Memory that is as large as stores past the caches need, and of which nearly nothing is ever touched.
class HugeMemory
{
public:
    HugeMemory()
        : m_data(mmap(nullptr, g_bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0))
    {
        if (m_data == MAP_FAILED) {
            throw std::bad_alloc();
        }
    }
    ~HugeMemory() { munmap(m_data, g_bytes); }
    HugeMemory(const HugeMemory&) = delete;
    HugeMemory& operator=(const HugeMemory&) = delete;

    /// An image over it, of lines so long.
    ImagePtr wrap(BufferType type, unsigned long sizeX) const
    {
        const unsigned long sizeY = g_bytes / (sizeX * image::elementSize(type));
        return image::wrapImage(*image::geometry2d(type, sizeX, sizeY), m_data, {sizeX, 0, 0, 0}, nullptr);
    }

private:
    static constexpr unsigned long g_bytes = 1UL << 33;
    void* m_data;
};

TEST_P(ConvertImgValuesTest, storesPastTheCachesWriteTheSameUnderEverySet)
{
    const HugeMemory memory;
    for (const Set set : testing::setsToTry()) {
        const ForcedConvertSet forced(set);
        for (const BufferType to : image::g_allBufferTypes) {
            // Whole groups of packs and less, of whole packs and not; the strip begins where it is aligned and where
            // not.
            for (const unsigned long sizeX : {1UL, 64UL, 67UL, 320UL, 1024UL, 1087UL}) {
                const ImagePtr in = image::createImage(*image::geometry2d(GetParam(), sizeX, 3));
                testing::fillRandom(*in, sizeX);
                const ImagePtr expected = convertImg(in, to);
                const ImagePtr out = memory.wrap(to, sizeX);
                ASSERT_EQ(levelOf(out->getPixelLayout().place), simd::eMemoryPlace::memory);
                for (const unsigned long line : {0UL, 1UL}) {
                    std::memset(out->accessRow(0, 0, 0, 0), 0x5C, 5 * sizeX * image::elementSize(to));
                    ConvertImgLvl3 level;
                    ASSERT_TRUE(level.init(processor::eProcessorRulePolicy::eRulePolicyCheck));
                    level.set<attr::InYStrip2d>(boost::make_shared<image::InputImageYStrip2d>(*in, 0, 3));
                    level.set<attr::OutYStrip2d>(boost::make_shared<image::OutputImageYStrip2d>(*out, line, 3));
                    ASSERT_TRUE(level.run(core::eSynchroType::eSynchroSync));
                    const unsigned long nbBytes = sizeX * image::elementSize(to);
                    ASSERT_EQ(std::memcmp(out->accessRow(line, 0, 0, 0), expected->accessRow(0, 0, 0, 0), 3 * nbBytes),
                              0)
                        << image::getBufferTypeName(to) << " " << sizeX << " " << core::getInstructionSetName(set);
                    for (unsigned long other = 0; other < 5; ++other) {
                        const std::byte* const row = out->accessRow(other, 0, 0, 0);
                        ASSERT_TRUE(
                            (other >= line && other < line + 3) ||
                            std::all_of(row, row + nbBytes, [](std::byte byte) { return byte == std::byte{0x5C}; }));
                    }
                }
            }
        }
    }
}

/// The values that differ from set to set, as the operator's table tells them.
TEST(ConvertImgTableTest, int32ToUInt8)
{
    const int values[] = {300, -1, 40000, 70000};
    const std::pair<Set, std::array<int, 4>> rows[] = {{eInstructionSet::eNone, {44, 255, 64, 112}},
                                                       {eInstructionSet::eSSE2, {255, 0, 0, 255}},
                                                       {eInstructionSet::eAVX2, {255, 0, 0, 0}},
                                                       {eInstructionSet::eAVX512, {255, 0, 0, 0}}};
    const ImagePtr in = image::createImage(*image::geometry2d(eImageBufferType::Int32, 4, 1));
    std::copy(std::begin(values), std::end(values), image::planData<int>(*in, 0, 0, 0));
    for (const auto& [set, expected] : rows) {
        if (core::isAvailable(set)) {
            const ForcedConvertSet forced(set);
            const ImagePtr out = convertImg(in, eImageBufferType::UInt8);
            const unsigned char* const found = image::planData<unsigned char>(*out, 0, 0, 0);
            EXPECT_TRUE(std::equal(expected.begin(), expected.end(), found)) << core::getInstructionSetName(set);
        }
    }
}

} // namespace
} // namespace orlix::imaproc::util
