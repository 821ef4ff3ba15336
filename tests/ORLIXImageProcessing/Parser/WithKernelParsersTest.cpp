// Line parsers of strips with margins: the neighbourhood of every line, mirrored at the border, over any memory.
#include "ORLIXIPL/ORLIXImageProcessing/Parser/ParserOf.h"

#include "ORLIXImageProcessing/Parser/Placements.h"
#include "ORLIXImageProcessing/Parser/VolumeStripAttributes.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::eImageBufferType;
using image::geometry2d;
using image::geometry3d;
using image::Margin;
using PlanParser = ParserOf<LineStripParserMode, InMarginStrip>;
using VolumeParser = ParserOf<LineStripParserMode, InMarginVolumeStrip>;

/// dcba|abcd|dcba, folded as often as needed.
long mirrored(long position, long size)
{
    while (position < 0 || position >= size) {
        position = position < 0 ? -1 - position : 2 * size - 1 - position;
    }
    return position;
}

/// The element that stands for the one at these coordinates, in or out of the image.
template <class T>
T elementAt(const image::BaseImage& image, long x, long y, long z)
{
    const auto size = [](unsigned long value) { return static_cast<long>(value); };
    const std::byte* const row = image.accessRow(static_cast<unsigned long>(mirrored(y, size(image.getSizeY()))),
                                                 static_cast<unsigned long>(mirrored(z, size(image.getSizeZ()))), 0, 0);
    T element;
    std::memcpy(&element, row + static_cast<unsigned long>(mirrored(x, size(image.getSizeX()))) * sizeof(T), sizeof(T));
    return element;
}

struct MarginCase
{
    Margin first;
    Margin second;
};
const MarginCase g_margins[] = {{{0, 0}, {0, 0}},  {{0, 1}, {0, 1}}, {{1, 2}, {1, 2}}, {{3, 0}, {0, 2}},
                                {{9, 11}, {8, 7}}, {{0, 0}, {2, 1}}, {{2, 1}, {0, 0}}};

template <class T>
std::vector<T> elementsFrom(const void* first, unsigned long count)
{
    std::vector<T> elements(count);
    if (count > 0) {
        std::memcpy(elements.data(), first, count * sizeof(T));
    }
    return elements;
}

/// The line through (y, z), from `first` on, of a neighbourhood that begins `start` elements before the image.
template <class T>
std::vector<T> expectedLine(const image::BaseImage& image, long y, long z, unsigned long start, unsigned long first,
                            unsigned long count)
{
    std::vector<T> elements;
    for (unsigned long i = first; i < first + count; ++i) {
        elements.push_back(elementAt<T>(image, static_cast<long>(i) - static_cast<long>(start), y, z));
    }
    return elements;
}

template <class T>
void expectPlanNeighbourhoods(const eImageBufferType& type)
{
    for (const auto& size :
         {std::pair{1UL, 1UL}, std::pair{1UL, 6UL}, std::pair{5UL, 1UL}, std::pair{7UL, 9UL}, std::pair{2UL, 3UL}}) {
        const unsigned long sizeX = size.first;
        const unsigned long sizeY = size.second;
        for (const MarginCase& margins : g_margins) {
            forEachPlacement(*geometry2d(type, sizeX, sizeY), [&](const ImagePtr& image, const auto& isOutsideIntact) {
                const unsigned long start = sizeY / 3;
                const unsigned long nbLines = sizeY - start;
                const auto attribute =
                    stripAttribute<InMarginStrip>(image, start, nbLines, margins.first, margins.second);
                const auto parser = PlanParser::create(*attribute);
                ASSERT_TRUE(parser);
                ASSERT_EQ(parser->getNbBlocks(), nbLines);
                EXPECT_EQ(parser->getStartingKernelSizeX(), margins.first.start);
                const unsigned long length = margins.first.start + sizeX + margins.first.end;
                for (unsigned long line = 0; line < nbLines; ++line) {
                    processor::ProcessingInfo info{};
                    parser->startBlock(line, info);
                    EXPECT_EQ(info.nbElements, sizeX);
                    EXPECT_EQ(info.nbBlocks, nbLines);
                    EXPECT_EQ(info.currentLine, line);
                    EXPECT_EQ(info.firstElement, 0u);
                    EXPECT_EQ(parser->accessBuffer(), image->accessRow(start + line, 0, 0, 0));
                    for (unsigned long near = 0; near < margins.second.start + 1 + margins.second.end; ++near) {
                        const long y = static_cast<long>(start + line + near) - static_cast<long>(margins.second.start);
                        EXPECT_EQ(elementsFrom<T>(parser->accessBuffer(near), length),
                                  expectedLine<T>(*image, y, 0, margins.first.start, 0, length))
                            << "line " << line << ", neighbour " << near;
                        const unsigned long first = near % length;
                        const unsigned long count = (length - first + 1) / 2;
                        EXPECT_EQ(elementsFrom<T>(parser->accessRun(near, first, count), count),
                                  expectedLine<T>(*image, y, 0, margins.first.start, first, count));
                    }
                    parser->endBlock();
                }
                EXPECT_TRUE(isOutsideIntact());
            });
        }
    }
}

TEST(LineParserWithMargins, GivesTheNeighbourhoodOfEveryLine)
{
    expectPlanNeighbourhoods<std::uint8_t>(eImageBufferType::UInt8);
    expectPlanNeighbourhoods<std::uint16_t>(eImageBufferType::Int16);
    expectPlanNeighbourhoods<std::uint32_t>(eImageBufferType::Real32);
}

TEST(LineParserWithMargins, GivesTheNeighbourhoodOfEveryLineOfAVolume)
{
    using T = std::uint16_t;
    const unsigned long sizes[][3] = {{1, 1, 1}, {1, 1, 5}, {1, 4, 1}, {6, 1, 1}, {5, 4, 3}, {3, 2, 6}};
    for (const unsigned long(&size)[3] : sizes) {
        const unsigned long sizeX = size[0];
        const unsigned long sizeY = size[1];
        const unsigned long sizeZ = size[2];
        for (const MarginCase& margins : g_margins) {
            forEachPlacement(
                *geometry3d(eImageBufferType::UInt16, sizeX, sizeY, sizeZ),
                [&](const ImagePtr& image, const auto& isOutsideIntact) {
                    const unsigned long start = sizeZ / 3;
                    const unsigned long nbPlans = sizeZ - start;
                    const auto attribute =
                        stripAttribute<InMarginVolumeStrip>(image, start, nbPlans, margins.first, margins.second);
                    const auto parser = VolumeParser::create(*attribute);
                    ASSERT_TRUE(parser);
                    ASSERT_EQ(parser->getNbBlocks(), nbPlans * sizeY);
                    const unsigned long length = margins.first.start + sizeX + margins.first.end;
                    for (unsigned long line = 0; line < nbPlans * sizeY; ++line) {
                        processor::ProcessingInfo info{};
                        parser->startBlock(line, info);
                        EXPECT_EQ(info.nbElements, sizeX);
                        EXPECT_EQ(info.nbBlocks, nbPlans * sizeY);
                        EXPECT_EQ(info.currentLine, line);
                        EXPECT_EQ(parser->accessBuffer(), image->accessRow(line % sizeY, start + line / sizeY, 0, 0));
                        for (unsigned long plan = 0; plan < margins.second.start + 1 + margins.second.end; ++plan) {
                            for (unsigned long near = 0; near < margins.first.start + 1 + margins.first.end; ++near) {
                                const long y =
                                    static_cast<long>(line % sizeY + near) - static_cast<long>(margins.first.start);
                                const long z = static_cast<long>(start + line / sizeY + plan) -
                                               static_cast<long>(margins.second.start);
                                ASSERT_EQ(elementsFrom<T>(parser->accessBuffer(near, plan), length),
                                          expectedLine<T>(*image, y, z, margins.first.start, 0, length))
                                    << "line " << line << ", neighbour " << near << " of plan " << plan;
                                const unsigned long first = (near + plan) % length;
                                const unsigned long count = (length - first + 1) / 2;
                                ASSERT_EQ(elementsFrom<T>(parser->accessRun(near, plan, first, count), count),
                                          expectedLine<T>(*image, y, z, margins.first.start, first, count));
                            }
                        }
                        parser->endBlock();
                    }
                    EXPECT_TRUE(isOutsideIntact());
                });
        }
    }
}

TEST(LineParserWithMargins, WhatTheImageHasIsNotCopied)
{
    const ImagePtr image = orlix::testing::makeRandom(*geometry3d(eImageBufferType::UInt8, 20, 5, 4));
    const auto attribute = stripAttribute<InMarginVolumeStrip>(image, 1UL, 2UL, Margin{1, 2}, Margin{1, 2});
    const auto parser = VolumeParser::create(*attribute);
    processor::ProcessingInfo info{};
    parser->startBlock(2, info);
    EXPECT_EQ(parser->accessRun(1, 1, 1, 20), image->accessRow(2, 1, 0, 0));
    EXPECT_EQ(parser->accessRun(0, 2, 5, 4), image->accessRow(1, 2, 0, 0) + 4);
    EXPECT_NE(parser->accessRun(1, 1, 1, 21), image->accessRow(2, 1, 0, 0));
    EXPECT_NE(parser->accessRun(1, 1, 0, 2), image->accessRow(2, 1, 0, 0) - 1);
    EXPECT_EQ(parser->accessBuffer(1, 1), parser->accessBuffer(1, 1)) << "made once";
    const auto narrow = stripAttribute<InMarginVolumeStrip>(image, 1UL, 2UL, Margin{0, 0}, Margin{3, 3});
    parser->init(narrow->getStorage());
    parser->startBlock(0, info);
    EXPECT_EQ(parser->accessBuffer(0, 0), image->accessRow(0, 1, 0, 0)) << "3 plans before plan 1 stands plan 1";
}

/// Everything beyond the border is the last pixel before it.
unsigned long clampedPosition(unsigned long position, unsigned long size)
{
    return static_cast<long>(position) < 0 ? 0 : std::min(position, size - 1);
}

TEST(LineParserWithMargins, AsksTheBorderPolicyThatItWasGiven)
{
    const ImagePtr image = orlix::testing::makeRandom(*geometry2d(eImageBufferType::UInt8, 4, 3));
    const auto attribute = stripAttribute<InMarginStrip>(image, 0UL, 3UL, Margin{2, 2}, Margin{2, 2});
    const auto parser = PlanParser::create(*attribute);
    processor::ProcessingInfo info{};
    parser->startBlock(0, info);
    const auto pixel = [&](unsigned long x, unsigned long y) {
        return std::to_integer<unsigned>(image->accessRow(y, 0, 0, 0)[x]);
    };
    const auto seen = [&](unsigned long near, unsigned long column) {
        return static_cast<unsigned>(static_cast<const std::uint8_t*>(parser->accessBuffer(near))[column]);
    };
    EXPECT_EQ(seen(0, 0), pixel(1, 1)) << "the mirror at first";
    parser->setBorder2dPolicy({&clampedPosition, &clampedPosition});
    EXPECT_EQ(seen(0, 0), pixel(0, 0));
    EXPECT_EQ(seen(4, 7), pixel(3, 2));
    parser->init(attribute->getStorage());
    parser->startBlock(2, info);
    EXPECT_EQ(seen(4, 7), pixel(3, 2)) << "the policy holds for the next strip";
    parser->setBorder2dPolicy(image::mirorBorder2d());
    EXPECT_EQ(seen(4, 7), pixel(2, 1));

    const ImagePtr volume = orlix::testing::makeRandom(*geometry3d(eImageBufferType::UInt8, 4, 3, 2));
    const auto strip = stripAttribute<InMarginVolumeStrip>(volume, 0UL, 2UL, Margin{2, 2}, Margin{2, 2});
    const auto volumeParser = VolumeParser::create(*strip);
    volumeParser->setBorder3dPolicy({&clampedPosition, &clampedPosition, &clampedPosition});
    volumeParser->startBlock(0, info);
    EXPECT_EQ(static_cast<const std::byte*>(volumeParser->accessBuffer(0, 0))[0], volume->accessRow(0, 0, 0, 0)[0]);
}

TEST(LineParserWithMargins, ANewStripOverChangedPixelsIsReadAnew)
{
    const ImagePtr image = orlix::testing::makeRandom(*geometry2d(eImageBufferType::UInt8, 4, 3));
    const auto attribute = stripAttribute<InMarginStrip>(image, 0UL, 3UL, Margin{1, 1}, Margin{0, 0});
    const auto parser = PlanParser::create(*attribute);
    processor::ProcessingInfo info{};
    parser->startBlock(0, info);
    static_cast<void>(parser->accessBuffer(0));
    parser->clear();
    image->accessRow(0, 0, 0, 0)[0] = std::byte{0x5A};
    parser->init(attribute->getStorage());
    parser->startBlock(0, info);
    EXPECT_EQ(static_cast<const std::byte*>(parser->accessBuffer(0))[0], std::byte{0x5A});
}

TEST(LineParserWithMargins, MarginsBeyondMemoryAreRefusedCleanly)
{
    const ImagePtr image = orlix::testing::makeRandom(*geometry2d(eImageBufferType::UInt16, 4, 3));
    for (const auto& [x, y] : {std::pair{Margin{~0UL, 1}, Margin{}}, std::pair{Margin{1UL << 62, 0}, Margin{}},
                               std::pair{Margin{}, Margin{~0UL, 0}}, std::pair{Margin{}, Margin{~0UL, 7}},
                               std::pair{Margin{1UL << 30, 0}, Margin{1UL << 40, 0}}}) {
        const auto attribute = stripAttribute<InMarginStrip>(image, 0UL, 3UL, x, y);
        EXPECT_THROW(PlanParser::create(*attribute), std::bad_alloc);
    }
}

TEST(LineParserWithMargins, NoElementsAreNoBlock)
{
    const ImagePtr image = image::createImage(*geometry3d(eImageBufferType::UInt8, 0, 3, 2));
    const auto attribute = stripAttribute<InMarginVolumeStrip>(image, 0UL, 2UL, Margin{1, 1}, Margin{1, 1});
    EXPECT_EQ(VolumeParser::create(*attribute)->getNbBlocks(), 0u);
    const ImagePtr flat = image::createImage(*geometry3d(eImageBufferType::UInt8, 3, 0, 2));
    const auto none = stripAttribute<InMarginVolumeStrip>(flat, 0UL, 2UL, Margin{1, 1}, Margin{1, 1});
    EXPECT_EQ(VolumeParser::create(*none)->getNbBlocks(), 0u);
}

} // namespace
} // namespace orlix::imaproc::test
