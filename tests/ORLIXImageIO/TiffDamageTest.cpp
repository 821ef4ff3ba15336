// Truncated, flipped and lying TIFF files end in a clear error, print nothing and take no memory.
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyTiff.h"

#include <optional>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

struct Sample
{
    std::string name, content;
    ImagePtr image;
};

ReadOptions smallLimits()
{
    ReadOptions options;
    options.limits.maxBytes = 1ul << 24;
    return options;
}

// Small files of many layouts.
std::vector<Sample> samples()
{
    const TestFolder folder;
    std::vector<Sample> result;
    const auto add = [&](const std::string& name, const ImagePtr& image, const WriteOptions& options) {
        writeImage(folder / "a.tif", image, options);
        result.push_back({name, contentOf(folder / "a.tif"), image});
    };
    WriteOptions options;
    add("plain", filledImage(*geometry3d(eImageBufferType::UInt16, 5, 4, 2), 1), options);
    options.bigTiff = eBigTiff::eAlways;
    options.byteOrder = eByteOrder::eBigEndian;
    options.compression = eTiffCompression::eLzw;
    add("BigTIFF, LZW", filledImage(*geometry5d(eImageBufferType::Int32, 6, 5, 1, 1, 2), 2), options);
    options.bigTiff = eBigTiff::eAuto;
    options.bTiled = true;
    options.tileSize = 16;
    options.compression = eTiffCompression::eDeflate;
    add("tiles, Deflate", filledImage(*geometry5d(eImageBufferType::UInt8, 19, 4, 1, 3, 1), 3), options);
    options.bTiled = false;
    options.compression = eTiffCompression::ePackBits;
    add("bits, PackBits", filledImage(*geometry2d(eImageBufferType::eBufferBinary, 30, 9), 4), options);
    options.compression = eTiffCompression::eZstd;
    add("floats, Zstd", filledImage(*geometry2d(eImageBufferType::Real32, 6, 6), 5), options);
    return result;
}

// The image, or nothing where reading was refused. Anything but a refusal fails the test.
ImagePtr readOrRefuse(const std::string& content)
{
    try {
        return readTiff(bytesOf(content), smallLimits());
    } catch (const ORLIXImageIOException& exception) {
        EXPECT_TRUE(contains(exception.what(), "memory: "));
        return nullptr;
    }
}

class TiffDamageTest : public ::testing::Test
{
protected:
    void SetUp() override { ::testing::internal::CaptureStderr(); }
    void TearDown() override { EXPECT_EQ("", ::testing::internal::GetCapturedStderr()); }
};

} // namespace

TEST_F(TiffDamageTest, TruncationAtEveryLength)
{
    for (const Sample& sample : samples()) {
        for (std::size_t length = 0; length < sample.content.size(); ++length) {
            const ImagePtr image = readOrRefuse(sample.content.substr(0, length));
            if (image) { // nothing that matters was lost
                ASSERT_TRUE(areSame(*sample.image, *image)) << sample.name << " cut to " << length;
            }
        }
    }
}

TEST_F(TiffDamageTest, FlippedBits)
{
    for (const Sample& sample : samples()) {
        for (std::size_t bit = 0; bit < 8 * sample.content.size(); bit += 11) {
            std::string content = sample.content;
            content[bit / 8] = static_cast<char>(content[bit / 8] ^ 1 << bit % 8);
            readOrRefuse(content);
        }
    }
}

TEST_F(TiffDamageTest, ScatteredBytes)
{
    for (const Sample& sample : samples()) {
        for (unsigned round = 0; round < 300; ++round) {
            std::string content = sample.content;
            for (unsigned i = 0; i < 6; ++i) {
                const std::uint64_t hash = hashOf({round, i, 0, 0, 0}, 17);
                content[(hash >> 8) % content.size()] = static_cast<char>(hash);
            }
            readOrRefuse(content);
        }
    }
}

namespace {

struct Claim
{
    std::uint64_t width = 4, height = 4, bits = 8, samples = 1, compression = 1, rows = 4, pages = 1;
    std::optional<std::uint64_t> tile = {};
};

std::string claiming(const Claim& claim, std::size_t stripBytes = 16)
{
    TinyTiff tiff;
    for (unsigned page = 0; page < claim.pages; ++page) {
        tiff.beginPage();
        tiff.addLong(g_tagWidth, claim.width);
        tiff.addLong(g_tagHeight, claim.height);
        tiff.addShort(g_tagBits, claim.bits);
        tiff.addShort(g_tagCompression, claim.compression);
        tiff.addShort(g_tagPhotometric, 1);
        tiff.addShort(g_tagSamples, claim.samples);
        if (claim.tile) {
            tiff.addLong(g_tagTileWidth, *claim.tile);
            tiff.addLong(g_tagTileHeight, *claim.tile);
        } else {
            tiff.addLong(g_tagRowsPerStrip, claim.rows);
        }
        tiff.addBlocks({std::string(stripBytes, 'a')}, claim.tile.has_value());
        tiff.endPage();
    }
    return tiff.getData();
}

std::string refusalOf(const std::string& content, const ReadOptions& options = smallLimits())
{
    return failureOf([&] { (void)readTiff(bytesOf(content), options); });
}

} // namespace

TEST_F(TiffDamageTest, SizesThatTheFileCantHoldAreRefused)
{
    EXPECT_TRUE(
        contains(refusalOf(claiming({.width = 100000, .height = 100000})),
                 "page 0 claims 10000000000 bytes of pixels, for which the file must have at least 10000000000"));
    EXPECT_TRUE(contains(refusalOf(claiming({.width = 0xffffffff, .height = 0xffffffff, .bits = 32, .samples = 65535})),
                         "page 0"));
    EXPECT_TRUE(
        contains(refusalOf(claiming({.width = 100000, .height = 1000, .compression = 8})), "at least 96153 bytes"));
    EXPECT_TRUE(contains(refusalOf(claiming({.width = 100000, .height = 1000, .compression = 32773})),
                         "at least 1562500 bytes"));
    EXPECT_TRUE(contains(refusalOf(claiming({.tile = 1 << 20})), "claims 1099511627776 bytes"));
    EXPECT_TRUE(contains(refusalOf(claiming({.tile = 0xfffffff0})), "page 0"));
    EXPECT_TRUE(contains(refusalOf(claiming({.tile = 0})), "page 0"));
    EXPECT_TRUE(contains(refusalOf(claiming({.width = 0})), "page 0"));
    EXPECT_TRUE(contains(refusalOf(claiming({.height = 0})), "page 0"));
}

TEST_F(TiffDamageTest, LimitsAreKept)
{
    const std::string content = claiming({.width = 64, .height = 64, .rows = 64}, 4096);
    ReadOptions options;
    options.limits.maxBytes = 8192; // pixels, and a strip in between
    EXPECT_NO_THROW((void)readTiff(bytesOf(content), options));
    options.limits.maxBytes = 4095;
    EXPECT_TRUE(contains(refusalOf(content, options), "claims 64x64x1x1x1 UInt8 elements and needs"));
    options = ReadOptions();
    options.limits.maxElements = 4095;
    EXPECT_TRUE(contains(refusalOf(content, options), "more than the limit of 4095"));
    options.limits.maxElements = 4096;
    EXPECT_NO_THROW((void)readTiff(bytesOf(content), options));

    // Plausibility can be waived; then the pixels are missed.
    options.limits.bMustBePlausible = false;
    EXPECT_TRUE(
        contains(refusalOf(claiming({.width = 64, .height = 64, .rows = 64}), options), "page 0 can't be read"));
}

TEST_F(TiffDamageTest, ChainsInACircleAreRefused)
{
    TinyTiff tiff;
    std::vector<std::uint64_t> offsets;
    for (unsigned page = 0; page < 3; ++page) {
        tiff.beginPage();
        addPageTags(tiff, 2, 1, 8, 1, 1);
        tiff.addBlocks({"ab"});
        offsets.push_back(tiff.endPage());
    }
    for (const std::uint64_t offset : offsets) {
        TinyTiff circle = tiff;
        circle.link(offset);
        EXPECT_TRUE(contains(refusalOf(circle.getData()), "page 3 can't be read"));
    }
    TinyTiff astray = tiff;
    astray.link(1u << 30);
    EXPECT_TRUE(contains(refusalOf(astray.getData()), "page 3 can't be read"));
}

TEST_F(TiffDamageTest, BlocksOutsideTheFileAreRefused)
{
    TinyTiff tiff;
    tiff.beginPage();
    addPageTags(tiff, 4, 4, 8, 1, 1);
    tiff.addLongs(g_tagStripOffsets, {1u << 31});
    tiff.addLongs(g_tagStripBytes, {16});
    tiff.addData(std::string(64, 'x'));
    tiff.endPage();
    EXPECT_TRUE(contains(refusalOf(tiff.getData()), "page 0 can't be read"));

    TinyTiff many; // one strip is told of where there are four
    many.beginPage();
    addPageTags(many, 4, 4, 8, 1, 1);
    many.addLong(g_tagRowsPerStrip, 1);
    many.addLongs(g_tagStripOffsets, {8});
    many.addLongs(g_tagStripBytes, {4});
    many.addData(std::string(64, 'x'));
    many.endPage();
    EXPECT_TRUE(contains(refusalOf(many.getData()), "page 0 can't be read (strip 1 is missing)"));
}

TEST_F(TiffDamageTest, PalettesThatAreMissingAreRefused)
{
    TinyTiff tiff;
    tiff.beginPage();
    addPageTags(tiff, 4, 1, 4, 1, 3);
    tiff.addBlocks({"abcd"});
    tiff.endPage();
    EXPECT_TRUE(contains(refusalOf(tiff.getData()), "page 0"));
}

// A fax line that ends early is filled up by the decoder, which only warns.
TEST_F(TiffDamageTest, WarningsOfDecodersCount)
{
    TinyTiff tiff;
    tiff.beginPage();
    tiff.addLong(g_tagWidth, 64);
    tiff.addLong(g_tagHeight, 4);
    tiff.addShort(g_tagBits, 1);
    tiff.addShort(g_tagCompression, 4);
    tiff.addShort(g_tagPhotometric, 0);
    tiff.addShort(g_tagSamples, 1);
    tiff.addBlocks({std::string("\x25\x77", 2)});
    tiff.endPage();
    EXPECT_TRUE(contains(refusalOf(tiff.getData()), "page 0 can't be read"));
}

// libtiff skips a description that is no text, and with it all that is told of axes.
TEST_F(TiffDamageTest, DescriptionsThatAreNoTextAreRefused)
{
    TinyTiff tiff;
    tiff.beginPage();
    addPageTags(tiff, 2, 1, 8, 1, 1);
    tiff.addRational(g_tagDescription, 1, 2);
    tiff.addBlocks({"ab"});
    tiff.endPage();
    EXPECT_TRUE(contains(refusalOf(tiff.getData()), "ImageDescription"));
}
