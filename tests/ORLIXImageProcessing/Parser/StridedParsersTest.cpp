// Parsers of strips whose pixels lie in any order and at any distance: kernels get them side by side.
#include "ORLIXIPL/ORLIXImageProcessing/Parser/ParserOf.h"

#include "ORLIXImageProcessing/Parser/Placements.h"
#include "ORLIXImageProcessing/Parser/VolumeStripAttributes.h"
#include "ORLIXImageProcessing/TestAttributes.h"
#include "support/StridedImages.h"

#include <gtest/gtest.h>

#include <random>

namespace orlix::imaproc::test {
namespace {

using image::eImageBufferType;
using image::geometry2d;
using image::geometry3d;
using image::Margin;
using orlix::testing::allStridedForms;
using orlix::testing::g_stridedForms;
using orlix::testing::StridedForm;
using orlix::testing::StridedImage;

/// An attribute that holds a strip of an image that may be one to read only.
template <class TAttribute, class TImage, class... TArgs>
boost::shared_ptr<TAttribute> stripOf(TImage& image, const TArgs&... args)
{
    auto attribute = boost::make_shared<TAttribute>();
    attribute->init(boost::make_shared<typename TAttribute::StripType>(image, args...));
    return attribute;
}

/// A plan for strips of lines, a volume for strips of plans: `size` units of `unitBytes` each.
struct Subject
{
    boost::shared_ptr<image::BaseImageGeometry> geometry;
    unsigned long size;
    unsigned long lineElements;
    unsigned long nbLines; ///< of a unit

    unsigned long getElementBytes() const { return image::elementSize(geometry->getBufferType()); }
    unsigned long getUnitBytes() const { return lineElements * nbLines * getElementBytes(); }
};

std::vector<Subject> subjects(bool bVolume)
{
    std::vector<Subject> all;
    for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32}) {
        for (const unsigned long x : {1UL, 7UL, 64UL, 65UL}) {
            if (bVolume) {
                all.push_back({geometry3d(type, x, 3, 5), 5, x, 3});
            } else {
                all.push_back({geometry2d(type, x, 9), 9, x, 1});
            }
        }
    }
    return all;
}

Bytes unitsOf(const Subject& subject, const Bytes& all, unsigned long start, unsigned long size)
{
    return {all.begin() + static_cast<long>(start * subject.getUnitBytes()),
            all.begin() + static_cast<long>((start + size) * subject.getUnitBytes())};
}

/// What the parser hands out, block after block.
template <class TMode, class TAttribute>
void expectReads(bool bVolume, bool bJoined)
{
    for (const Subject& subject : subjects(bVolume)) {
        for (const StridedForm& form : allStridedForms()) {
            SCOPED_TRACE(form.name + ", " + subject.geometry->toString());
            StridedImage image(*subject.geometry, form);
            image.fillRandom(3);
            const Bytes all = orlix::testing::bytesOf(*image.makeDense());
            for (unsigned long start = 0; start < subject.size; start += 2) {
                const unsigned long size = subject.size - start;
                const auto attribute = stripOf<TAttribute>(*image.getConst(), start, size);
                const auto parser = ParserOf<TMode, TAttribute>::create(*attribute);
                if constexpr (TMode::g_bJoinsLines) {
                    parser->joinLines(bJoined && parser->doLinesTouch());
                }
                Bytes found;
                for (unsigned long block = 0; block < parser->getNbBlocks(); ++block) {
                    processor::ProcessingInfo info{};
                    parser->startBlock(block, info);
                    const Bytes bytes = copyOf(parser->accessBuffer(), info.nbElements * subject.getElementBytes());
                    found.insert(found.end(), bytes.begin(), bytes.end());
                    parser->endBlock();
                }
                EXPECT_EQ(found, unitsOf(subject, all, start, size));
            }
            EXPECT_TRUE(image.isOutsideIntact());
        }
    }
}

TEST(StridedParsers, GiveKernelsPixelsSideBySide)
{
    expectReads<RawStripParserMode, InStrip>(false, false);
    expectReads<LineStripParserMode, InStrip>(false, false);
    expectReads<JoinedLineStripParserMode, InStrip>(false, false);
    expectReads<JoinedLineStripParserMode, InStrip>(false, true);
    expectReads<RawStripParserMode, InVolumeStrip>(true, false);
    expectReads<LineStripParserMode, InVolumeStrip>(true, false);
    expectReads<JoinedLineStripParserMode, InVolumeStrip>(true, true);
}

/// The kernel writes every block, and what a raw one may touch behind it.
template <class TMode, class TAttribute>
void expectWrites(bool bVolume, bool bJoined)
{
    std::mt19937 random(11);
    for (const Subject& subject : subjects(bVolume)) {
        for (const StridedForm& form : g_stridedForms) {
            SCOPED_TRACE(form.name + ", " + subject.geometry->toString());
            StridedImage image(*subject.geometry, form);
            image.fillRandom(3);
            Bytes expected = orlix::testing::bytesOf(*image.makeDense());
            const unsigned long start = 2;
            const auto attribute = stripOf<TAttribute>(*image.get(), start, subject.size - start);
            const auto parser = ParserOf<TMode, TAttribute>::create(*attribute);
            if constexpr (TMode::g_bJoinsLines) {
                parser->joinLines(bJoined && parser->doLinesTouch());
            }
            auto next = expected.begin() + static_cast<long>(start * subject.getUnitBytes());
            for (unsigned long block = 0; block < parser->getNbBlocks(); ++block) {
                processor::ProcessingInfo info{};
                parser->startBlock(block, info);
                auto* const bytes = static_cast<std::byte*>(parser->accessBuffer());
                const unsigned long nbBytes = info.nbElements * subject.getElementBytes();
                EXPECT_EQ(copyOf(bytes, nbBytes), Bytes(next, next + static_cast<long>(nbBytes))) << "filled before";
                if constexpr (std::is_same_v<TMode, RawStripParserMode>) {
                    std::memset(bytes, 0x3B, (info.nbElements + 63) / 64 * 64 * subject.getElementBytes());
                }
                for (unsigned long i = 0; i < nbBytes; ++i, ++next) {
                    bytes[i] = *next = std::byte(random());
                }
                parser->endBlock();
            }
            EXPECT_EQ(next, expected.end());
            EXPECT_EQ(orlix::testing::bytesOf(*image.makeDense()), expected);
            EXPECT_TRUE(image.isOutsideIntact());
        }
    }
}

TEST(StridedParsers, PutWhatKernelsWroteWhereItBelongs)
{
    expectWrites<RawStripParserMode, OutStrip>(false, false);
    expectWrites<LineStripParserMode, OutStrip>(false, false);
    expectWrites<JoinedLineStripParserMode, OutStrip>(false, true);
    expectWrites<RawStripParserMode, OutVolumeStrip>(true, false);
    expectWrites<LineStripParserMode, OutVolumeStrip>(true, false);
    expectWrites<JoinedLineStripParserMode, OutVolumeStrip>(true, true);
    expectWrites<RawStripParserMode, InOutVolumeStrip>(true, false);
    expectWrites<LineStripParserMode, InOutVolumeStrip>(true, false);
}

TEST(StridedParsers, TellWhetherTheBlockIsACopy)
{
    const auto isCopied = [](const StridedForm& form) {
        const StridedImage image(*geometry2d(eImageBufferType::UInt8, 64, 4), form);
        const auto attribute = stripOf<OutStrip>(*image.get(), 0UL, 4UL);
        const auto parser = ParserOf<LineStripParserMode, OutStrip>::create(*attribute);
        processor::ProcessingInfo info{};
        parser->startBlock(1, info);
        const bool bCopied = parser->isCopied();
        EXPECT_EQ(parser->accessBuffer() != image.at({0, 1, 0, 0, 0}), bCopied);
        return bCopied;
    };
    EXPECT_FALSE(isCopied({.name = "dense"}));
    EXPECT_FALSE(isCopied({.name = "rows backwards and apart", .steps = {1, -1, 1, 1, 1}, .gap = 3}));
    EXPECT_TRUE(isCopied({.name = "backwards", .steps = {-1, 1, 1, 1, 1}}));
}

/// dcba|abcd|dcba, folded as often as needed.
unsigned long mirrored(long position, unsigned long size)
{
    const auto count = static_cast<long>(size);
    while (position < 0 || position >= count) {
        position = position < 0 ? -1 - position : 2 * count - 1 - position;
    }
    return static_cast<unsigned long>(position);
}

/// Elements [first, first + count) of the lengthened line through (y, z).
Bytes expectedRun(const StridedImage& image, const image::BaseImageGeometry& geometry, long y, long z,
                  unsigned long start, unsigned long first, unsigned long count)
{
    const unsigned long elementBytes = image::elementSize(geometry.getBufferType());
    Bytes bytes;
    for (unsigned long i = first; i < first + count; ++i) {
        const long x = static_cast<long>(i) - static_cast<long>(start);
        const std::byte* const element = image.at({mirrored(x, geometry.getSizeX()), mirrored(y, geometry.getSizeY()),
                                                   mirrored(z, geometry.getSizeZ()), 0, 0});
        bytes.insert(bytes.end(), element, element + elementBytes);
    }
    return bytes;
}

TEST(StridedParsers, GiveTheNeighbourhoodOfEveryLine)
{
    for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32}) {
        const auto geometry = geometry2d(type, 7, 6);
        const unsigned long elementBytes = image::elementSize(type);
        for (const StridedForm& form : allStridedForms()) {
            for (const Margin& margin : {Margin{0, 0}, Margin{1, 2}, Margin{9, 8}}) {
                SCOPED_TRACE(form.name + ", margin " + std::to_string(margin.start));
                StridedImage image(*geometry, form);
                image.fillRandom(3);
                const auto attribute = stripOf<InMarginStrip>(*image.getConst(), 1UL, 5UL, margin, Margin{2, 1});
                const auto parser = ParserOf<LineStripParserMode, InMarginStrip>::create(*attribute);
                const unsigned long length = 7 + margin.start + margin.end;
                for (unsigned long line = 0; line < 5; ++line) {
                    processor::ProcessingInfo info{};
                    parser->startBlock(line, info);
                    for (unsigned long near = 0; near < 4; ++near) {
                        const long y = static_cast<long>(line + near) - 1;
                        EXPECT_EQ(copyOf(parser->accessBuffer(near), length * elementBytes),
                                  expectedRun(image, *geometry, y, 0, margin.start, 0, length));
                        EXPECT_EQ(copyOf(parser->accessRun(near, margin.start + 2, 3), 3 * elementBytes),
                                  expectedRun(image, *geometry, y, 0, margin.start, margin.start + 2, 3));
                    }
                    EXPECT_EQ(copyOf(parser->accessBuffer(), 7 * elementBytes),
                              expectedRun(image, *geometry, static_cast<long>(line) + 1, 0, 0, 0, 7));
                    parser->endBlock();
                }
                EXPECT_TRUE(image.isOutsideIntact());
            }
        }
    }
}

TEST(StridedParsers, GiveTheNeighbourhoodOfEveryLineOfAVolume)
{
    const auto geometry = geometry3d(eImageBufferType::UInt16, 6, 4, 3);
    for (const StridedForm& form : allStridedForms()) {
        for (const Margin& margin : {Margin{0, 0}, Margin{1, 2}, Margin{8, 7}}) {
            SCOPED_TRACE(form.name + ", margin " + std::to_string(margin.start));
            StridedImage image(*geometry, form);
            image.fillRandom(3);
            const auto attribute = stripOf<InMarginVolumeStrip>(*image.getConst(), 1UL, 2UL, margin, Margin{1, 2});
            const auto parser = ParserOf<LineStripParserMode, InMarginVolumeStrip>::create(*attribute);
            const unsigned long length = 6 + margin.start + margin.end;
            for (unsigned long line = 0; line < 8; ++line) {
                processor::ProcessingInfo info{};
                parser->startBlock(line, info);
                const auto y = static_cast<long>(line % 4);
                const auto z = static_cast<long>(line / 4 + 1);
                for (unsigned long plan = 0; plan < 4; ++plan) {
                    for (unsigned long near = 0; near < margin.start + 1 + margin.end; ++near) {
                        ASSERT_EQ(copyOf(parser->accessBuffer(near, plan), length * 2),
                                  expectedRun(image, *geometry,
                                              y + static_cast<long>(near) - static_cast<long>(margin.start),
                                              z + static_cast<long>(plan) - 1, margin.start, 0, length))
                            << "line " << line << ", neighbour " << near << " of plan " << plan;
                    }
                }
                EXPECT_EQ(copyOf(parser->accessBuffer(), 12), expectedRun(image, *geometry, y, z, 0, 0, 6));
                parser->endBlock();
            }
            EXPECT_TRUE(image.isOutsideIntact());
        }
    }
}

} // namespace
} // namespace orlix::imaproc::test
