// Parsers: the whole strip as one flat block with room behind it, or line by line, over any memory and nothing beside.
#include "ORLIXIPL/ORLIXImageProcessing/Parser/StripParserInfo.h"

#include "ORLIXImageProcessing/Parser/Placements.h"
#include "ORLIXImageProcessing/TestAttributes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;
using image::geometry2d;
using orlix::testing::GuardEdge;
using orlix::testing::WatchedImage;

template <class TMode>
using InInfo = StripParserInfo<TMode, BaseInputYStrip2dAttribute, BaseInputYStrip2dAttribute>;
template <class TMode>
using OutInfo = StripParserInfo<TMode, BaseOutputYStrip2dAttribute, BaseOutputYStrip2dAttribute>;

boost::shared_ptr<InStrip> inStrip(const ImagePtr& image, unsigned long start, unsigned long size)
{
    auto attribute = boost::make_shared<InStrip>();
    attribute->init(boost::make_shared<image::InputImageYStrip2d>(*image, start, size));
    return attribute;
}
boost::shared_ptr<OutStrip> outStrip(const ImagePtr& image, unsigned long start, unsigned long size)
{
    auto attribute = boost::make_shared<OutStrip>();
    attribute->init(boost::make_shared<image::OutputImageYStrip2d>(*image, start, size));
    return attribute;
}

/// The bytes of lines [start, start + size).
Bytes linesOf(const image::BaseImage& image, unsigned long start, unsigned long size)
{
    const Bytes all = orlix::testing::bytesOf(image);
    const unsigned long lineBytes = image.getSizeX() * image::elementSize(image.getBufferType());
    return {all.begin() + static_cast<long>(start * lineBytes),
            all.begin() + static_cast<long>((start + size) * lineBytes)};
}

TEST(RawParser, GivesTheWholeStripAsOneFlatBlock)
{
    for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32}) {
        for (const unsigned long sizeX : {1UL, 7UL, 63UL, 64UL, 65UL, 130UL}) {
            forEachPlacement(*geometry2d(type, sizeX, 9), [&](const ImagePtr& image, const auto& isOutsideIntact) {
                for (const auto& [start, size] : {std::pair{0UL, 9UL}, std::pair{0UL, 1UL}, std::pair{3UL, 6UL}}) {
                    const auto attribute = inStrip(image, start, size);
                    const auto parser = InInfo<RawStripParserMode>::createParser(*attribute);
                    ASSERT_TRUE(parser);
                    EXPECT_EQ(parser->getNbBlocks(), 1u);
                    processor::ProcessingInfo info{};
                    parser->startBlock(0, info);
                    EXPECT_EQ(info.nbElements, sizeX * size);
                    EXPECT_EQ(info.nbBlocks, 1u);
                    EXPECT_EQ(info.currentLine, 0u);
                    EXPECT_EQ(info.firstElement, 0u);
                    EXPECT_EQ(copyOf(parser->accessBuffer(), info.nbElements * image::elementSize(type)),
                              linesOf(*image, start, size));
                    parser->endBlock();
                }
                EXPECT_TRUE(isOutsideIntact());
            });
        }
    }
}

TEST(RawParser, WhatTheKernelWritesGoesWhereItBelongsAndNowhereElse)
{
    for (const eImageBufferType type : {eImageBufferType::Int8, eImageBufferType::UInt16, eImageBufferType::UInt32}) {
        for (const unsigned long sizeX : {1UL, 7UL, 64UL, 65UL}) {
            forEachPlacement(*geometry2d(type, sizeX, 9), [&](const ImagePtr& image, const auto& isOutsideIntact) {
                const unsigned long size = image::elementSize(type);
                const Bytes before = linesOf(*image, 0, 9);
                // The last lines, since a kernel may run over into what comes behind them.
                const unsigned long start = 5;
                const auto attribute = outStrip(image, start, 4);
                const auto parser = OutInfo<RawStripParserMode>::createParser(*attribute);
                ASSERT_TRUE(parser);
                processor::ProcessingInfo info{};
                parser->startBlock(0, info);
                const unsigned long nbBytes = info.nbElements * size;
                EXPECT_EQ(copyOf(parser->accessBuffer(), nbBytes), linesOf(*image, start, 4)) << "filled before";
                // A kernel without a tail fills its last block of 64 elements.
                const unsigned long nbWritten = (info.nbElements + 63) / 64 * 64 * size;
                std::memset(parser->accessBuffer(), 0x3B, nbWritten);
                parser->endBlock();
                parser->clear();
                EXPECT_EQ(linesOf(*image, start, 4), Bytes(nbBytes, std::byte{0x3B}));
                EXPECT_EQ(linesOf(*image, 0, start), Bytes(before.begin(), before.end() - static_cast<long>(nbBytes)));
                EXPECT_TRUE(isOutsideIntact());
            });
        }
    }
}

TEST(RawParser, AnOwnImageIsWorkedOnInPlace)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt16, 33, 9));
    const auto in = inStrip(image, 2, 5);
    const auto out = outStrip(image, 2, 5);
    processor::ProcessingInfo info{};
    const auto reader = InInfo<RawStripParserMode>::createParser(*in);
    reader->startBlock(0, info);
    EXPECT_EQ(reader->accessBuffer(), image->accessRow(2, 0, 0, 0));
    EXPECT_EQ(&reader->getStrip(), in->getStorage().get());
    const auto writer = OutInfo<RawStripParserMode>::createParser(*out);
    writer->startBlock(0, info);
    EXPECT_EQ(writer->accessBuffer(), image->accessRow(2, 0, 0, 0));
    static_assert(std::is_same_v<decltype(reader->accessBuffer()), const void*>);
    static_assert(std::is_same_v<decltype(writer->accessBuffer()), void*>);
}

TEST(RawParser, RowsApartAreWorkedOnInAnAlignedCopy)
{
    const WatchedImage watched(*geometry2d(eImageBufferType::UInt8, 33, 9), {GuardEdge::eEnd, 1, 0, 0, true});
    const auto attribute = outStrip(watched.get(), 2, 5);
    const auto parser = OutInfo<RawStripParserMode>::createParser(*attribute);
    processor::ProcessingInfo info{};
    parser->startBlock(0, info);
    EXPECT_NE(parser->accessBuffer(), watched.get()->accessRow(2, 0, 0, 0));
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(parser->accessBuffer()) % 64, 0u);
    std::memset(parser->accessBuffer(), 0x3B, info.nbElements + 64); // room for 64 elements
    EXPECT_EQ(linesOf(*watched.get(), 2, 5), Bytes(33 * 5)) << "nothing is written before the kernel has ended";
    parser->endBlock();
    EXPECT_EQ(linesOf(*watched.get(), 2, 5), Bytes(33 * 5, std::byte{0x3B}));
}

TEST(RawParser, CanBeBoundAgainToLargerAndSmallerStrips)
{
    const WatchedImage watched(*geometry2d(eImageBufferType::Int16, 10, 40), {GuardEdge::eEnd, 2, 0, 0, true});
    orlix::testing::fillRandom(*watched.get(), 3);
    const auto first = inStrip(watched.get(), 0, 1);
    const auto parser = InInfo<RawStripParserMode>::createParser(*first);
    for (const unsigned long size : {1UL, 30UL, 2UL, 40UL}) {
        const auto attribute = inStrip(watched.get(), 40 - size, size);
        parser->init(attribute->getStorage());
        processor::ProcessingInfo info{};
        parser->startBlock(0, info);
        EXPECT_EQ(copyOf(parser->accessBuffer(), info.nbElements * 2), linesOf(*watched.get(), 40 - size, size));
        parser->endBlock();
        parser->clear();
        EXPECT_EQ(parser->accessBuffer(), nullptr);
    }
}

TEST(RawParser, NoElementsAreNoBlock)
{
    const ImagePtr narrow = createImage(*geometry2d(eImageBufferType::UInt8, 0, 5));
    EXPECT_EQ(InInfo<RawStripParserMode>::createParser(*inStrip(narrow, 0, 5))->getNbBlocks(), 0u);
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 3, 5));
    const auto attribute = outStrip(image, 5, 0);
    EXPECT_EQ(OutInfo<RawStripParserMode>::createParser(*attribute)->getNbBlocks(), 0u);
    const auto line = inStrip(image, 5, 0);
    EXPECT_EQ(InInfo<LineStripParserMode>::createParser(*line)->getNbBlocks(), 0u);
}

TEST(LineParser, GivesOneLineAfterAnotherInPlace)
{
    for (const unsigned long sizeX : {1UL, 64UL, 67UL}) {
        forEachPlacement(
            *geometry2d(eImageBufferType::UInt16, sizeX, 9), [&](const ImagePtr& image, const auto& isOutsideIntact) {
                const auto in = inStrip(image, 2, 6);
                const auto out = outStrip(image, 2, 6);
                const auto reader = InInfo<LineStripParserMode>::createParser(*in);
                const auto writer = OutInfo<LineStripParserMode>::createParser(*out);
                ASSERT_TRUE(reader && writer);
                EXPECT_EQ(reader->getNbBlocks(), 6u);
                EXPECT_EQ(writer->getNbBlocks(), 6u);
                for (unsigned long line = 0; line < 6; ++line) {
                    processor::ProcessingInfo info{};
                    writer->startBlock(line, info);
                    reader->startBlock(line, info);
                    EXPECT_EQ(info.nbElements, sizeX);
                    EXPECT_EQ(info.nbBlocks, 6u);
                    EXPECT_EQ(info.currentLine, line);
                    EXPECT_EQ(info.firstElement, 0u);
                    EXPECT_EQ(copyOf(reader->accessBuffer(), 2 * sizeX), linesOf(*image, 2 + line, 1));
                    std::memset(writer->accessBuffer(), static_cast<int>(line), 2 * sizeX); // stays within its line
                    reader->endBlock();
                    writer->endBlock();
                    EXPECT_EQ(linesOf(*image, 2 + line, 1), Bytes(2 * sizeX, std::byte(line)));
                }
                EXPECT_TRUE(isOutsideIntact());
            });
    }
}

template <template <class, class> class TParser, class TMode>
void expectParserTypes()
{
    for (const eImageBufferType type : image::g_allBufferTypes) {
        const ImagePtr image = createImage(*geometry2d(type, 3, 2));
        image::visitStorageType(type, [&]<class T>() {
            const auto in = inStrip(image, 0, 2);
            const auto reader = InInfo<TMode>::createParser(*in);
            EXPECT_NE((boost::dynamic_pointer_cast<TParser<T, BaseInputYStrip2dAttribute>>(reader)), nullptr) << type;
            const auto out = outStrip(image, 0, 2);
            const auto writer = OutInfo<TMode>::createParser(*out);
            EXPECT_NE((boost::dynamic_pointer_cast<TParser<T, BaseOutputYStrip2dAttribute>>(writer)), nullptr) << type;
        });
    }
}

TEST(CreateParser, GoesByTheStorageTypeOfTheStrip)
{
    expectParserTypes<RawYStrip2dParser, RawStripParserMode>();
    expectParserTypes<LineYStrip2dParser, LineStripParserMode>();
}

TEST(CreateParser, WithoutAnElementTypeThereIsNoneAndNoComplaint)
{
    EXPECT_EQ(InInfo<RawStripParserMode>::createParser(InStrip()), nullptr);
    EXPECT_EQ(InInfo<LineStripParserMode>::createParser(InStrip()), nullptr);
    EXPECT_EQ(OutInfo<RawStripParserMode>::createParser(OutStrip()), nullptr);
    EXPECT_EQ(OutInfo<LineStripParserMode>::createParser(OutStrip()), nullptr);
}

} // namespace
} // namespace orlix::imaproc::test
