// Parsers of volumes: the whole strip as one flat block, or line by line through all its plans, over any memory.
#include "ORLIXIPL/ORLIXImageProcessing/Parser/ParserOf.h"

#include "ORLIXImageProcessing/Parser/Placements.h"
#include "ORLIXImageProcessing/Parser/VolumeStripAttributes.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry3d;
using orlix::testing::GuardEdge;
using orlix::testing::WatchedImage;

/// The bytes of plans [start, start + size).
Bytes plansOf(const image::BaseImage& image, unsigned long start, unsigned long size)
{
    const Bytes all = orlix::testing::bytesOf(image);
    const unsigned long planBytes = image.getSizeX() * image.getSizeY() * image::elementSize(image.getBufferType());
    return {all.begin() + static_cast<long>(start * planBytes),
            all.begin() + static_cast<long>((start + size) * planBytes)};
}

struct Sizes
{
    unsigned long x, y, z;
};
const Sizes g_sizes[] = {{1, 1, 1}, {1, 1, 7}, {1, 5, 4}, {13, 1, 4}, {7, 3, 6}, {16, 4, 5}, {64, 2, 4}, {65, 3, 4}};

TEST(RawZParser, GivesTheWholeStripAsOneFlatBlock)
{
    for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32}) {
        for (const Sizes& sizes : g_sizes) {
            forEachPlacement(
                *geometry3d(type, sizes.x, sizes.y, sizes.z), [&](const ImagePtr& image, const auto& isOutsideIntact) {
                    for (unsigned long start = 0; start < sizes.z; ++start) {
                        const unsigned long size = sizes.z - start;
                        const auto attribute = stripAttribute<InVolumeStrip>(image, start, size);
                        const auto parser = ParserOf<RawStripParserMode, InVolumeStrip>::create(*attribute);
                        ASSERT_TRUE(parser);
                        ASSERT_EQ(parser->getNbBlocks(), 1u);
                        processor::ProcessingInfo info{};
                        parser->startBlock(0, info);
                        EXPECT_EQ(info.nbElements, sizes.x * sizes.y * size);
                        EXPECT_EQ(info.nbBlocks, 1u);
                        EXPECT_EQ(info.currentLine, 0u);
                        EXPECT_EQ(info.firstElement, 0u);
                        EXPECT_EQ(copyOf(parser->accessBuffer(), info.nbElements * image::elementSize(type)),
                                  plansOf(*image, start, size));
                        parser->endBlock();
                    }
                    EXPECT_TRUE(isOutsideIntact());
                });
        }
    }
}

template <class TAttribute>
void expectWritesStayInTheirStrip()
{
    for (const eImageBufferType type : {eImageBufferType::Int8, eImageBufferType::UInt16, eImageBufferType::UInt32}) {
        for (const Sizes& sizes : g_sizes) {
            forEachPlacement(*geometry3d(type, sizes.x, sizes.y, sizes.z), [&](const ImagePtr& image,
                                                                               const auto& isOutsideIntact) {
                const unsigned long elementSize = image::elementSize(type);
                const unsigned long first = sizes.z / 3;
                const unsigned long nbPlans = (sizes.z + 1) / 2;
                const Bytes before = plansOf(*image, 0, sizes.z);
                const auto attribute = stripAttribute<TAttribute>(image, first, nbPlans);
                const auto parser = ParserOf<RawStripParserMode, TAttribute>::create(*attribute);
                ASSERT_TRUE(parser);
                processor::ProcessingInfo info{};
                parser->startBlock(0, info);
                const unsigned long nbBytes = info.nbElements * elementSize;
                EXPECT_EQ(copyOf(parser->accessBuffer(), nbBytes), plansOf(*image, first, nbPlans)) << "filled before";
                // A kernel without a tail fills its last block of 64 elements.
                std::memset(parser->accessBuffer(), 0x3B, (info.nbElements + 63) / 64 * 64 * elementSize);
                parser->endBlock();
                parser->clear();
                Bytes expected = before;
                std::fill_n(expected.begin() + static_cast<long>(first * sizes.x * sizes.y * elementSize), nbBytes,
                            std::byte{0x3B});
                EXPECT_EQ(plansOf(*image, 0, sizes.z), expected);
                EXPECT_TRUE(isOutsideIntact());
            });
        }
    }
}

TEST(RawZParser, WhatTheKernelWritesGoesWhereItBelongsAndNowhereElse)
{
    expectWritesStayInTheirStrip<OutVolumeStrip>();
    expectWritesStayInTheirStrip<InOutVolumeStrip>();
}

TEST(RawZParser, PlansThatTouchAreWorkedOnInPlace)
{
    const auto blockOf = [](const ImagePtr& image, unsigned long start, unsigned long size) {
        const auto attribute = stripAttribute<OutVolumeStrip>(image, start, size);
        const auto parser = ParserOf<RawStripParserMode, OutVolumeStrip>::create(*attribute);
        processor::ProcessingInfo info{};
        parser->startBlock(0, info);
        const void* const block = parser->accessBuffer();
        parser->endBlock();
        return block;
    };
    const ImagePtr owned = createImage(*geometry3d(eImageBufferType::UInt16, 33, 9, 4));
    EXPECT_EQ(blockOf(owned, 2, 1), owned->accessRow(0, 2, 0, 0)) << "one plan, with room behind";
    EXPECT_NE(blockOf(owned, 1, 2), owned->accessRow(0, 1, 0, 0)) << "plans of an own image lie apart";
    const WatchedImage whole(*geometry3d(eImageBufferType::UInt8, 16, 4, 5), {GuardEdge::eEnd, 0, 0, 0, true});
    EXPECT_EQ(blockOf(whole.get(), 1, 3), whole.get()->accessRow(0, 1, 0, 0)) << "whole blocks of 64";
    const WatchedImage odd(*geometry3d(eImageBufferType::UInt8, 15, 4, 5), {GuardEdge::eEnd, 0, 0, 0, true});
    EXPECT_NE(blockOf(odd.get(), 1, 3), odd.get()->accessRow(0, 1, 0, 0)) << "the next plan is no padding";
}

TEST(RawZParser, NoElementsAreNoBlock)
{
    for (const Sizes& sizes : {Sizes{0, 3, 4}, Sizes{3, 0, 4}, Sizes{3, 4, 0}}) {
        const ImagePtr image = createImage(*geometry3d(eImageBufferType::UInt8, sizes.x, sizes.y, sizes.z));
        const auto attribute = stripAttribute<InVolumeStrip>(image, 0UL, sizes.z);
        EXPECT_EQ((ParserOf<RawStripParserMode, InVolumeStrip>::create(*attribute)->getNbBlocks()), 0u);
        EXPECT_EQ((ParserOf<LineStripParserMode, InVolumeStrip>::create(*attribute)->getNbBlocks()), 0u);
        const auto joined = ParserOf<JoinedLineStripParserMode, InVolumeStrip>::create(*attribute);
        joined->joinLines(true);
        EXPECT_EQ(joined->getNbBlocks(), 0u);
    }
}

TEST(LineZParser, CountsLinesThroughTheWholeStrip)
{
    for (const Sizes& sizes : g_sizes) {
        forEachPlacement(
            *geometry3d(eImageBufferType::UInt16, sizes.x, sizes.y, sizes.z),
            [&](const ImagePtr& image, const auto& isOutsideIntact) {
                const unsigned long start = sizes.z > 1 ? 1 : 0;
                const unsigned long nbPlans = sizes.z - start;
                const auto in = stripAttribute<InVolumeStrip>(image, start, nbPlans);
                const auto out = stripAttribute<OutVolumeStrip>(image, start, nbPlans);
                const auto reader = ParserOf<LineStripParserMode, InVolumeStrip>::create(*in);
                const auto writer = ParserOf<LineStripParserMode, OutVolumeStrip>::create(*out);
                ASSERT_TRUE(reader && writer);
                ASSERT_EQ(reader->getNbBlocks(), nbPlans * sizes.y);
                ASSERT_EQ(writer->getNbBlocks(), nbPlans * sizes.y);
                for (unsigned long line = 0; line < nbPlans * sizes.y; ++line) {
                    processor::ProcessingInfo info{};
                    reader->startBlock(line, info);
                    writer->startBlock(line, info);
                    EXPECT_EQ(info.nbElements, sizes.x);
                    EXPECT_EQ(info.nbBlocks, nbPlans * sizes.y);
                    EXPECT_EQ(info.currentLine, line);
                    EXPECT_EQ(info.firstElement, 0u);
                    const std::byte* const row = image->accessRow(line % sizes.y, start + line / sizes.y, 0, 0);
                    EXPECT_EQ(reader->accessBuffer(), row);
                    EXPECT_EQ(writer->accessBuffer(), row);
                    std::memset(writer->accessBuffer(), static_cast<int>(line), 2 * sizes.x);
                    reader->endBlock();
                    writer->endBlock();
                }
                for (unsigned long line = 0; line < nbPlans * sizes.y; ++line) {
                    EXPECT_EQ(copyOf(image->accessRow(line % sizes.y, start + line / sizes.y, 0, 0), 2 * sizes.x),
                              Bytes(2 * sizes.x, std::byte(line)));
                }
                EXPECT_TRUE(isOutsideIntact());
            });
    }
}

TEST(LineZParser, JoinsTheLinesOfEachPlan)
{
    const ImagePtr image = createImage(*geometry3d(eImageBufferType::UInt8, 7, 3, 5));
    const auto attribute = stripAttribute<OutVolumeStrip>(image, 1UL, 3UL);
    const auto parser = ParserOf<JoinedLineStripParserMode, OutVolumeStrip>::create(*attribute);
    EXPECT_TRUE(parser->doLinesTouch());
    parser->joinLines(true);
    ASSERT_EQ(parser->getNbBlocks(), 3u);
    for (unsigned long plan = 0; plan < 3; ++plan) {
        processor::ProcessingInfo info{};
        parser->startBlock(plan, info);
        EXPECT_EQ(parser->accessBuffer(), image->accessRow(0, 1 + plan, 0, 0));
        EXPECT_EQ(info.nbElements, 21u);
        EXPECT_EQ(info.nbBlocks, 3u);
        EXPECT_EQ(info.currentLine, 3 * plan);
        parser->endBlock();
    }
    parser->joinLines(false);
    EXPECT_EQ(parser->getNbBlocks(), 9u);
    const WatchedImage apart(*geometry3d(eImageBufferType::UInt8, 7, 3, 5), {GuardEdge::eEnd, 1, 0, 0, true});
    EXPECT_FALSE((ParserOf<JoinedLineStripParserMode, InVolumeStrip>::create(
                      *stripAttribute<InVolumeStrip>(apart.get(), 1UL, 3UL))
                      ->doLinesTouch()));
}

} // namespace
} // namespace orlix::imaproc::test
