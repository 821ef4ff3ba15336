// Hand-made PNG files of every kind, and damaged ones.
#include "ORLIXImageIO/CutImages.h"
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyPng.h"

#include <boost/make_shared.hpp>

#include <tuple>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

unsigned sampleAt(std::uint32_t x, std::uint32_t y, unsigned sample, unsigned bits)
{
    return static_cast<unsigned>(hashOf({x, y, 0, sample, 0}, 3)) & ((1u << bits) - 1);
}

std::string fileOf(const TinyPng& png)
{
    return pngOf(png, [&](std::uint32_t x, std::uint32_t y, unsigned s) { return sampleAt(x, y, s, png.bits); });
}

ImagePtr imageOf(const TinyPng& png)
{
    EXPECT_TRUE(regionsAreCuts(fileOf(png)));
    return readPng(bytesOf(fileOf(png)));
}

using KindParameter = std::tuple<unsigned, unsigned, bool>;

class PngKindTest : public ::testing::TestWithParam<KindParameter>
{};

} // namespace

TEST_P(PngKindTest, SamplesAreChannels)
{
    const auto [colorType, bits, bInterlaced] = GetParam();
    for (const auto& [width, height] : {std::pair(1u, 1u), {7u, 3u}, {33u, 150u}}) {
        const ImagePtr image = imageOf({width, height, bits, colorType, bInterlaced});
        ASSERT_EQ(colorType == 0 ? 1u : colorType == 2 ? 3u : colorType == 4 ? 2u : 4u, image->getSizeC());
        ASSERT_EQ(width, image->getSizeX());
        ASSERT_EQ(height, image->getSizeY());
        EXPECT_EQ(bits == 1    ? eImageBufferType::eBufferBinary
                  : bits == 16 ? eImageBufferType::UInt16
                               : eImageBufferType::UInt8,
                  image->getBufferType());
        const unsigned factor = bits == 2 ? 85 : bits == 4 ? 17 : 1;
        unsigned long wrong = 0;
        forEachPixel(*image, [&, bits = bits](const Position& p) {
            const unsigned sample = sampleAt(static_cast<std::uint32_t>(p.x), static_cast<std::uint32_t>(p.y),
                                             static_cast<unsigned>(p.c), bits);
            wrong += sample * factor != valueAt(*image, p);
        });
        EXPECT_EQ(0u, wrong);
    }
}

INSTANTIATE_TEST_SUITE_P(Grey, PngKindTest,
                         ::testing::Combine(::testing::Values(0u), ::testing::Values(1u, 2u, 4u, 8u, 16u),
                                            ::testing::Bool()));
INSTANTIATE_TEST_SUITE_P(Colour, PngKindTest,
                         ::testing::Combine(::testing::Values(2u, 4u, 6u), ::testing::Values(8u, 16u),
                                            ::testing::Bool()));

TEST(PngTest, PalettesAreExpanded)
{
    for (const unsigned bits : {1u, 2u, 4u, 8u}) {
        for (const bool bGrey : {false, true}) {
            for (const bool bAlpha : {false, true}) {
                std::string palette, alpha;
                for (unsigned entry = 0; entry < 1u << bits; ++entry) {
                    for (unsigned c = 0; c < 3; ++c) {
                        palette += static_cast<char>(entry * 3 + (bGrey ? 0 : c * 11));
                    }
                    alpha += static_cast<char>(255 - entry);
                }
                const ImagePtr image = imageOf({9, 5, bits, 3, false, palette, bAlpha ? alpha : ""});
                const unsigned colours = bGrey ? 1 : 3;
                ASSERT_EQ(colours + bAlpha, image->getSizeC());
                ASSERT_EQ(eImageBufferType::UInt8, image->getBufferType());
                forEachPixel(*image, [&](const Position& p) {
                    const unsigned entry =
                        sampleAt(static_cast<std::uint32_t>(p.x), static_cast<std::uint32_t>(p.y), 0, bits);
                    const unsigned expected = p.c == colours ? 255 - entry : entry * 3 + p.c * 11;
                    EXPECT_EQ(expected % 256, valueAt(*image, p));
                });
            }
        }
    }
}

TEST(PngTest, TransparentColourBecomesAlpha)
{
    const ImagePtr grey =
        readPng(bytesOf(pngOf({2, 1, 8, 0, false, "", std::string("\0\7", 2)},
                              [](std::uint32_t x, std::uint32_t, unsigned) { return x == 0 ? 7u : 8u; })));
    ASSERT_EQ("2x1x1x2x1 UInt8", grey->getGeometry().toString());
    EXPECT_EQ(0, valueAt(*grey, {0, 0, 0, 1, 0}));
    EXPECT_EQ(255, valueAt(*grey, {1, 0, 0, 1, 0}));
    EXPECT_EQ(7, valueAt(*grey, {0, 0, 0, 0, 0}));
    const ImagePtr wide = imageOf({4, 4, 16, 2, true, "", std::string(6, '\0')});
    EXPECT_EQ("4x4x1x4x1 UInt16", wide->getGeometry().toString());
    const ImagePtr bit = imageOf({4, 4, 1, 0, false, "", std::string(2, '\0')});
    EXPECT_EQ("4x4x1x2x1 UInt8", bit->getGeometry().toString());
}

TEST(PngTest, PixelsPerMetreGivePixelSizes)
{
    const auto read = [](std::uint32_t x, std::uint32_t y, unsigned unit) {
        const std::string content = bigEndian(4, x) + bigEndian(4, y) + bigEndian(1, unit);
        return imageOf({.width = 2, .height = 2, .furtherChunks = pngChunk("pHYs", content)})
            ->getGeometricCalibration();
    };
    const auto calibration = read(1000, 4000, 1);
    ASSERT_TRUE(calibration);
    EXPECT_EQ("m", calibration->getUnit());
    EXPECT_EQ(0.001f, calibration->getPixelSizeX());
    EXPECT_EQ(0.00025f, calibration->getPixelSizeY());
    EXPECT_FALSE(read(1000, 1000, 0)); // a mere ratio
    EXPECT_FALSE(read(2835, 2835, 1)); // 72 and 96 pixels per inch are a screen's
    EXPECT_FALSE(read(3780, 3780, 1));
    EXPECT_FALSE(read(0, 0, 1));
}

// Other programs get the pixel size too.
TEST(PngTest, PixelSizesAreWrittenForOthers)
{
    const TestFolder folder;
    const ImagePtr image = filledImage(*geometry2d(eImageBufferType::UInt8, 3, 3), 1);
    auto calibration = boost::make_shared<GeometricCalibration>();
    calibration->init2d("\u00b5m", 0.5f, 0.25f, 0, 0);
    image->setGeometricCalibration(calibration);
    writeImage(folder / "a.png", image);
    EXPECT_TRUE(contains(contentOf(folder / "a.png"), "pHYs" + bigEndian(4, 2000000) + bigEndian(4, 4000000) + "\1"));
}

TEST(PngTest, InfoComesFromTheHeader)
{
    const TestFolder folder;
    putContent(folder / "a.dat", fileOf({5, 4, 4, 0, true}));
    const ImageFileInfo info = readImageInfo(folder / "a.dat"); // told by content, not by ending
    EXPECT_EQ(eImageFileFormat::ePng, info.format);
    EXPECT_EQ("5x4x1x1x1 UInt8", info.geometry.toString());
    EXPECT_EQ(4u, info.bitsPerSample);
    EXPECT_EQ(1u, info.pages);
    EXPECT_EQ("Deflate", info.compression);
    EXPECT_EQ(boost::filesystem::file_size(folder / "a.dat"), info.fileBytes);
}

TEST(PngTest, UnsuitableImagesAreRefused)
{
    const TestFolder folder;
    const auto failure = [&](const BaseImageGeometry& geometry) {
        return failureOf([&] { writeImage(folder / "a.png", filledImage(geometry, 1)); });
    };
    EXPECT_TRUE(contains(failure(*geometry3d(eImageBufferType::UInt8, 4, 4, 2)), "the image is 4x4x2x1x1 UInt8"));
    EXPECT_TRUE(contains(failure(*geometry5d(eImageBufferType::UInt8, 4, 4, 1, 1, 2)), "PNG holds one plan"));
    EXPECT_TRUE(contains(failure(*geometry5d(eImageBufferType::UInt8, 4, 4, 1, 5, 1)), "PNG holds one plan"));
    EXPECT_TRUE(contains(failure(*geometry5d(eImageBufferType::eBufferBinary, 4, 4, 1, 2, 1)), "PNG holds one plan"));
    for (const auto type : {eImageBufferType::Int8, eImageBufferType::Int16, eImageBufferType::Int32,
                            eImageBufferType::UInt32, eImageBufferType::Real32, eImageBufferType::eBufferUInt32Like}) {
        EXPECT_TRUE(contains(failure(*geometry2d(type, 4, 4)), "PNG holds one plan"));
    }
    EXPECT_TRUE(folder.getNames().empty());
}

TEST(PngTest, HoldsTheTypesThatItSaysItHolds)
{
    const TestFolder folder;
    for (const eImageBufferType type : g_allBufferTypes) {
        const auto image = filledImage(*geometry2d(type, 4, 4), 1);
        const auto write = [&] { writeImage(folder / "a.png", image); };
        if (canHold(eImageFileFormat::ePng, type)) {
            EXPECT_NO_THROW(write()) << getBufferTypeName(type);
        } else {
            EXPECT_THROW(write(), ORLIXImageIOException) << getBufferTypeName(type);
        }
        EXPECT_TRUE(canHold(eImageFileFormat::eTiff, type));
    }
    EXPECT_FALSE(canHold(eImageFileFormat::ePng, eImageBufferType::eNoBuffer));
    EXPECT_FALSE(canHold(eImageFileFormat::eTiff, eImageBufferType::eNoBuffer));
}

namespace {

// The image, or null where reading was refused. Anything but a refusal fails the test.
ImagePtr readOrRefuse(const std::string& content)
{
    ReadOptions options;
    options.limits.maxBytes = 1ul << 24;
    try {
        return readPng(bytesOf(content), options);
    } catch (const ORLIXImageIOException& exception) {
        EXPECT_TRUE(contains(exception.what(), "memory: "));
        return nullptr;
    }
}

std::vector<std::string> samples()
{
    const TestFolder folder;
    const ImagePtr image = filledImage(*geometry5d(eImageBufferType::UInt16, 9, 5, 1, 3, 1), 1);
    auto calibration = boost::make_shared<GeometricCalibration>();
    calibration->init2d("mm", 1, 2, 3, 4);
    image->setGeometricCalibration(calibration);
    writeImage(folder / "a.png", image);
    return {contentOf(folder / "a.png"), fileOf({9, 7, 4, 3, true, std::string(48, 'p'), std::string(16, 't')})};
}

class PngDamageTest : public ::testing::Test
{
protected:
    void SetUp() override { ::testing::internal::CaptureStderr(); }
    void TearDown() override { EXPECT_EQ("", ::testing::internal::GetCapturedStderr()); }
};

} // namespace

TEST_F(PngDamageTest, TruncationAtEveryLength)
{
    for (const std::string& content : samples()) {
        ASSERT_TRUE(readOrRefuse(content));
        for (std::size_t length = 0; length < content.size(); ++length) {
            EXPECT_FALSE(readOrRefuse(content.substr(0, length))) << length;
        }
    }
}

TEST_F(PngDamageTest, FlippedBits)
{
    for (const std::string& content : samples()) {
        const ImagePtr whole = readOrRefuse(content);
        for (std::size_t bit = 0; bit < 8 * content.size(); bit += 11) {
            std::string flipped = content;
            flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ 1 << bit % 8);
            if (const ImagePtr image = readOrRefuse(flipped)) { // check sums guard the pixels
                EXPECT_TRUE(orlix::testing::sameImages(*whole, *image) || image->getSizeC() != whole->getSizeC())
                    << bit;
            }
        }
    }
}

TEST_F(PngDamageTest, SizesThatTheFileCantHoldAreRefused)
{
    const auto refusal = [](std::uint32_t width, std::uint32_t height) {
        std::string content = fileOf({2, 2});
        const std::string header =
            pngChunk("IHDR", bigEndian(4, width) + bigEndian(4, height) + std::string("\x10\6\0\0\0", 5));
        content.replace(8, header.size(), header);
        return failureOf([&] { (void)readPng(bytesOf(content)); });
    };
    EXPECT_TRUE(contains(refusal(0x7fffffff, 0x7fffffff), "page 0 claims 36893488113059364872 bytes"));
    EXPECT_TRUE(contains(refusal(100000, 100000), "page 0 claims 80000000000 bytes"));
    EXPECT_TRUE(contains(refusal(0, 5), "memory: can't be read"));
    EXPECT_TRUE(contains(refusal(0xffffffff, 5), "memory: can't be read"));
}
