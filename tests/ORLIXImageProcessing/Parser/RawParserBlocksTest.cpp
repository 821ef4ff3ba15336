// A kernel without a tail may write whole blocks of 64 elements: over memory of others none of it gets beside the
// strip, and all that belongs there arrives, whatever the number of elements.
#include "ORLIXIPL/ORLIXImageProcessing/Parser/StripParserInfo.h"

#include "ORLIXImageProcessing/TestAttributes.h"
#include "support/Images.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::eImageBufferType;
using OutInfo = StripParserInfo<RawStripParserMode, BaseOutputYStrip2dAttribute, BaseOutputYStrip2dAttribute>;

constexpr unsigned long g_block = 64; // elements

/// Fills the block of strip [start, start + size) as such a kernel does.
void fillBlock(const image::BaseImage& image, unsigned long start, unsigned long size, int value)
{
    OutStrip attribute;
    attribute.init(boost::make_shared<image::OutputImageYStrip2d>(image, start, size));
    const auto parser = OutInfo::createParser(attribute);
    processor::ProcessingInfo info{};
    parser->startBlock(0, info);
    ASSERT_EQ(info.nbElements, image.getSizeX() * size);
    const unsigned long nbWritten = (info.nbElements + g_block - 1) / g_block * g_block;
    std::memset(parser->accessBuffer(), value, nbWritten * image::elementSize(image.getBufferType()));
    parser->endBlock();
}

TEST(RawParserBlocks, OfEveryLengthStayWithinTheStrip)
{
    for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32}) {
        for (unsigned long length = 1; length <= 3 * g_block + 1; ++length) {
            for (const unsigned long nbLines : {1UL, 2UL}) {
                const orlix::testing::WatchedImage out(*image::geometry2d(type, length, nbLines),
                                                       {orlix::testing::GuardEdge::eBegin});
                fillBlock(*out.get(), 0, nbLines, 0x77);
                const std::vector<std::byte> found = orlix::testing::bytesOf(*out.get());
                EXPECT_EQ(found, std::vector<std::byte>(found.size(), std::byte{0x77})) << length << " elements";
                EXPECT_TRUE(out.isOutsideIntact()) << length << " elements";
            }
        }
    }
}

/// Lines above and below a strip of one line are the neighbours' of it.
TEST(RawParserBlocks, LeaveTheLinesBesideAStripAlone)
{
    for (unsigned long length = 1; length <= 2 * g_block + 1; ++length) {
        const orlix::testing::WatchedImage out(*image::geometry2d(eImageBufferType::UInt8, length, 3),
                                               {orlix::testing::GuardEdge::eEnd});
        fillBlock(*out.get(), 1, 1, 0x77);
        std::vector<std::byte> expected(3 * length);
        std::fill_n(expected.begin() + static_cast<long>(length), length, std::byte{0x77});
        EXPECT_EQ(orlix::testing::bytesOf(*out.get()), expected) << length << " elements";
        EXPECT_TRUE(out.isOutsideIntact()) << length << " elements";
    }
}

} // namespace
} // namespace orlix::imaproc::test
