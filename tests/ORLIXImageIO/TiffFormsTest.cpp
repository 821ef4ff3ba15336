// Hand-made TIFF files of every form of pixels, strips and tiles, in both byte orders.
#include "ORLIXImageIO/CutImages.h"
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TinyTiff.h"

#include <bit>
#include <tuple>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

struct SampleType
{
    const char* name;
    eImageBufferType::domain type;
    unsigned bytes;
    unsigned format; ///< of TIFF: 1 unsigned, 2 signed, 3 floating
};

constexpr SampleType g_sampleTypes[] = {
    {"UInt8", eImageBufferType::UInt8, 1, 1},   {"Int8", eImageBufferType::Int8, 1, 2},
    {"UInt16", eImageBufferType::UInt16, 2, 1}, {"Int16", eImageBufferType::Int16, 2, 2},
    {"UInt32", eImageBufferType::UInt32, 4, 1}, {"Int32", eImageBufferType::Int32, 4, 2},
    {"Real32", eImageBufferType::Real32, 4, 3}};

constexpr unsigned long g_width = 21, g_height = 13;

// The raw bits of a sample; as a float they are finite.
std::uint64_t bitsAt(unsigned long x, unsigned long y, unsigned long sample, unsigned bytes)
{
    const std::uint64_t bits = hashOf({x, y, 0, sample, 0}, 99);
    return bytes == 4 ? bits & 0xbfffffffu : bits & ((1ull << (8 * bytes)) - 1);
}

double valueOf(std::uint64_t bits, const SampleType& type)
{
    switch (type.type) {
    case eImageBufferType::Int8: return static_cast<std::int8_t>(bits);
    case eImageBufferType::Int16: return static_cast<std::int16_t>(bits);
    case eImageBufferType::Int32: return static_cast<std::int32_t>(bits);
    case eImageBufferType::Real32: return std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    default: return static_cast<double>(bits);
    }
}

enum class Blocks { eOneStrip, eStrips, eTiles };

using FormParameter = std::tuple<SampleType, bool, bool, unsigned, bool, Blocks>;

class TiffFormTest : public ::testing::TestWithParam<FormParameter>
{};

std::string nameOf(const ::testing::TestParamInfo<FormParameter>& info)
{
    const auto& [type, bBigEndian, bBigTiff, samples, bSeparate, blocks] = info.param;
    return std::string(type.name) + (bBigEndian ? "Big" : "Little") + (bBigTiff ? "64" : "32") + "x" +
           std::to_string(samples) + (bSeparate ? "Separate" : "Together") +
           (blocks == Blocks::eOneStrip ? "OneStrip"
            : blocks == Blocks::eStrips ? "Strips"
                                        : "Tiles");
}

std::string block(const TinyTiff& tiff, unsigned bytes, unsigned long x, unsigned long y, unsigned long width,
                  unsigned long height, unsigned long firstSample, unsigned long samples)
{
    std::string data;
    for (unsigned long line = y; line < y + height; ++line) {
        for (unsigned long column = x; column < x + width; ++column) {
            for (unsigned long sample = firstSample; sample < firstSample + samples; ++sample) {
                data += tiff.number(bytes, bitsAt(column, line, sample, bytes));
            }
        }
    }
    return data;
}

} // namespace

TEST_P(TiffFormTest, IsReadAsWritten)
{
    const auto& [type, bBigEndian, bBigTiff, samples, bSeparate, blocks] = GetParam();
    TinyTiff tiff(bBigEndian, bBigTiff);
    tiff.beginPage();
    addPageTags(tiff, g_width, g_height, 8 * type.bytes, samples, samples < 3 ? 1 : 2);
    tiff.addShorts(g_tagSampleFormat, std::vector<std::uint64_t>(samples, type.format));
    tiff.addShort(g_tagPlanar, bSeparate ? 2 : 1);
    if (samples == 2 || samples == 4) {
        tiff.addShort(g_tagExtraSamples, 2);
    }
    std::vector<std::string> data;
    const unsigned long together = bSeparate ? 1 : samples;
    const unsigned long blockHeight = blocks == Blocks::eOneStrip ? g_height : blocks == Blocks::eStrips ? 5 : 16;
    const unsigned long blockWidth = blocks == Blocks::eTiles ? 16 : g_width;
    for (unsigned long sample = 0; sample < samples; sample += together) {
        for (unsigned long y = 0; y < g_height; y += blockHeight) {
            for (unsigned long x = 0; x < g_width; x += blockWidth) {
                const unsigned long height =
                    blocks == Blocks::eTiles ? blockHeight : std::min(blockHeight, g_height - y);
                data.push_back(block(tiff, type.bytes, x, y, blockWidth, height, sample, together));
            }
        }
    }
    if (blocks == Blocks::eTiles) {
        tiff.addShort(g_tagTileWidth, blockWidth);
        tiff.addShort(g_tagTileHeight, blockHeight);
    } else {
        tiff.addShort(g_tagRowsPerStrip, blockHeight);
    }
    tiff.addBlocks(data, blocks == Blocks::eTiles);
    tiff.endPage();

    EXPECT_TRUE(regionsAreCuts(tiff.getData()));
    const ImagePtr image = readTiff(bytesOf(tiff.getData()));
    ASSERT_EQ(type.type, image->getBufferType());
    ASSERT_EQ(std::to_string(g_width) + "x" + std::to_string(g_height) + "x1x" + std::to_string(samples) + "x1 " +
                  type.name,
              image->getGeometry().toString());
    EXPECT_FALSE(image->hasGeometricCalibration());
    unsigned long wrong = 0;
    forEachPixel(*image, [&, &type = type](const Position& p) {
        wrong += valueAt(*image, p) != valueOf(bitsAt(p.x, p.y, p.c, type.bytes), type);
    });
    EXPECT_EQ(0u, wrong);
}

INSTANTIATE_TEST_SUITE_P(AllForms, TiffFormTest,
                         ::testing::Combine(::testing::ValuesIn(g_sampleTypes), ::testing::Bool(), ::testing::Bool(),
                                            ::testing::Values(1u, 2u, 3u, 4u, 7u), ::testing::Bool(),
                                            ::testing::Values(Blocks::eOneStrip, Blocks::eStrips, Blocks::eTiles)),
                         nameOf);

namespace {

// One strip of `bits` bits per sample, 11 pixels wide and 3 high; sample (x, y) is (x * 5 + y * 3) mod 2^bits.
std::string packedPage(unsigned bits, unsigned photometric, const std::vector<std::uint64_t>& colorMap = {},
                       bool bBigEndian = false)
{
    TinyTiff tiff(bBigEndian);
    tiff.beginPage();
    addPageTags(tiff, 11, 3, bits, 1, photometric);
    if (!colorMap.empty()) {
        tiff.addShorts(g_tagColorMap, colorMap);
    }
    std::string strip;
    for (unsigned y = 0; y < 3; ++y) {
        std::string row((11 * bits + 7) / 8, '\0');
        for (unsigned x = 0; x < 11; ++x) {
            const unsigned value = (x * 5 + y * 3) % (1u << bits);
            if (bits == 16) {
                row.replace(2 * x, 2, tiff.number(2, value));
            } else {
                row[x * bits / 8] = static_cast<char>(row[x * bits / 8] | value << (8 - bits - x * bits % 8));
            }
        }
        strip += row;
    }
    tiff.addBlocks({strip});
    tiff.endPage();
    return tiff.getData();
}

unsigned packedValue(const Position& p, unsigned bits)
{
    return static_cast<unsigned>((p.x * 5 + p.y * 3) % (1u << bits));
}

} // namespace

TEST(TiffPackedTest, FewBitsAreSpread)
{
    for (const unsigned bits : {1u, 2u, 4u}) {
        for (const unsigned photometric : {0u, 1u}) {
            EXPECT_TRUE(regionsAreCuts(packedPage(bits, photometric)));
            const ImagePtr image = readTiff(bytesOf(packedPage(bits, photometric)));
            EXPECT_EQ(bits == 1 ? eImageBufferType::eBufferBinary : eImageBufferType::UInt8, image->getBufferType());
            const unsigned largest = (1u << bits) - 1, top = bits == 1 ? 1 : 255;
            forEachPixel(*image, [&](const Position& p) {
                const unsigned value = packedValue(p, bits);
                EXPECT_EQ((photometric == 0 ? largest - value : value) * top / largest, valueAt(*image, p));
            });
        }
    }
}

TEST(TiffPackedTest, MinIsWhiteIsTurnedRound)
{
    for (const unsigned bits : {8u, 16u}) {
        EXPECT_TRUE(regionsAreCuts(packedPage(bits, 0)));
        const ImagePtr image = readTiff(bytesOf(packedPage(bits, 0)));
        forEachPixel(
            *image, [&](const Position& p) { EXPECT_EQ((1u << bits) - 1 - packedValue(p, bits), valueAt(*image, p)); });
    }
}

TEST(TiffPackedTest, SignedMinIsWhiteIsTurnedRound)
{
    TinyTiff tiff;
    tiff.beginPage();
    addPageTags(tiff, 4, 1, 16, 1, 0);
    tiff.addShort(g_tagSampleFormat, 2);
    tiff.addBlocks({tiff.number(2, 0x8000) + tiff.number(2, 0x7fff) + tiff.number(2, 0) + tiff.number(2, 0xffff)});
    tiff.endPage();
    const ImagePtr image = readTiff(bytesOf(tiff.getData()));
    const short* const pixels = planData<short>(*image, 0, 0, 0);
    EXPECT_EQ((std::vector<short>{32767, -32768, -1, 0}), std::vector<short>(pixels, pixels + 4));
}

// The alpha beside an inverted grey says how opaque a pixel is, whatever white is.
TEST(TiffPackedTest, AlphaIsNotTurnedRound)
{
    TinyTiff tiff;
    tiff.beginPage();
    addPageTags(tiff, 2, 1, 8, 2, 0);
    tiff.addShort(g_tagExtraSamples, 2);
    tiff.addBlocks({"\x01\x02\x03\x04"});
    tiff.endPage();
    const ImagePtr image = readTiff(bytesOf(tiff.getData()));
    EXPECT_EQ(254, valueAt(*image, {0, 0, 0, 0, 0}));
    EXPECT_EQ(252, valueAt(*image, {1, 0, 0, 0, 0}));
    EXPECT_EQ(2, valueAt(*image, {0, 0, 0, 1, 0}));
    EXPECT_EQ(4, valueAt(*image, {1, 0, 0, 1, 0}));
}

TEST(TiffPaletteTest, ColoursBecomeChannels)
{
    for (const unsigned bits : {1u, 2u, 4u, 8u, 16u}) {
        for (const bool bBytes : {false, true}) { // some programs write bytes where 16 bits are meant
            std::vector<std::uint64_t> map;
            for (unsigned c = 0; c < 3; ++c) {
                for (unsigned entry = 0; entry < 1u << bits; ++entry) {
                    const unsigned value = (entry * 7 + c * 50) % 256;
                    map.push_back(bBytes ? value : value * 256 + 255 - value);
                }
            }
            EXPECT_TRUE(regionsAreCuts(packedPage(bits, 3, map, bits == 4)));
            const ImagePtr image = readTiff(bytesOf(packedPage(bits, 3, map, bits == 4)));
            ASSERT_EQ("11x3x1x3x1 UInt8", image->getGeometry().toString());
            forEachPixel(*image, [&](const Position& p) {
                EXPECT_EQ((packedValue(p, bits) * 7 + p.c * 50) % 256, valueAt(*image, p)) << bits;
            });
        }
    }
}

TEST(TiffPaletteTest, GreyPalettesGiveOneChannel)
{
    std::vector<std::uint64_t> map;
    for (unsigned c = 0; c < 3; ++c) {
        for (unsigned entry = 0; entry < 256; ++entry) {
            map.push_back((255 - entry) * 257);
        }
    }
    const ImagePtr image = readTiff(bytesOf(packedPage(8, 3, map)));
    ASSERT_EQ("11x3x1x1x1 UInt8", image->getGeometry().toString());
    forEachPixel(*image, [&](const Position& p) { EXPECT_EQ(255 - packedValue(p, 8), valueAt(*image, p)); });
}

namespace {

// One page of 4x2 zeros with the given facts.
std::string plainPage(unsigned bits, unsigned samples, unsigned photometric, unsigned format, unsigned compression = 1)
{
    TinyTiff tiff;
    tiff.beginPage();
    tiff.addLong(g_tagWidth, 4);
    tiff.addLong(g_tagHeight, 2);
    tiff.addShorts(g_tagBits, std::vector<std::uint64_t>(samples, bits));
    tiff.addShort(g_tagCompression, compression);
    tiff.addShort(g_tagPhotometric, photometric);
    tiff.addShort(g_tagSamples, samples);
    tiff.addShorts(g_tagSampleFormat, std::vector<std::uint64_t>(samples, format));
    tiff.addBlocks({std::string(8 * samples * bits / 8 + 8, '\0')});
    tiff.endPage();
    return tiff.getData();
}

} // namespace

TEST(TiffRefusalTest, FormsThatAreOutOfScopeAreTold)
{
    struct Case
    {
        unsigned bits, samples, photometric, format, compression;
        const char* told;
    };
    for (const Case& c :
         {Case{64, 1, 1, 3, 1, "floating, 64 bits"}, Case{64, 1, 1, 1, 1, "unsigned, 64 bits"},
          Case{16, 1, 1, 3, 1, "floating, 16 bits"}, Case{24, 1, 1, 3, 1, "floating, 24 bits"},
          Case{12, 1, 1, 1, 1, "unsigned, 12 bits"}, Case{64, 1, 1, 6, 1, "complex, 64 bits"},
          Case{32, 1, 1, 5, 1, "complex, 32 bits"}, Case{4, 1, 1, 2, 1, "signed, 4 bits"},
          Case{8, 4, 5, 1, 1, "ink (CMYK)"}, Case{8, 3, 8, 1, 1, "CIELab"},
          Case{8, 1, 32803, 1, 1, "colour filter array"}, Case{8, 1, 1, 1, 34712, "compression 34712"}}) {
        const std::string data = plainPage(c.bits, c.samples, c.photometric, c.format, c.compression);
        const std::string text = failureOf([&] { (void)readTiff(bytesOf(data)); });
        EXPECT_TRUE(contains(text, "memory: page 0 holds 4x2 pixels of " + std::to_string(c.samples))) << c.told;
        EXPECT_TRUE(contains(text, c.told));
        EXPECT_TRUE(contains(text, "not supported"));
    }
    EXPECT_NO_THROW((void)readTiff(bytesOf(plainPage(8, 1, 1, 4)))); // untyped bytes count as unsigned
}

// Uncompressed strips of one row each, wherever in the file they lie.
TEST(TiffStripOrderTest, StripsAreFoundByTheirOffsets)
{
    struct Case
    {
        const char* name;
        std::vector<unsigned> order; ///< of the rows in the file
        unsigned gap;                ///< bytes behind each row
    };
    for (const Case& c : {Case{"touching", {0, 1, 2, 3}, 0}, Case{"gaps", {0, 1, 2, 3}, 6},
                          Case{"reverse", {3, 2, 1, 0}, 0}, Case{"reverse with gaps", {3, 2, 1, 0}, 2},
                          Case{"first two exchanged", {1, 0, 2, 3}, 0}, Case{"last two exchanged", {0, 1, 3, 2}, 0}}) {
        for (const unsigned bytes : {1u, 2u, 4u}) {
            for (const unsigned samples : {1u, 3u}) {
                TinyTiff tiff;
                tiff.beginPage();
                addPageTags(tiff, 5, 4, 8 * bytes, samples, samples == 3 ? 2 : 1);
                tiff.addShort(g_tagRowsPerStrip, 1);
                std::vector<std::uint64_t> offsets(4);
                for (const unsigned row : c.order) {
                    offsets[row] = tiff.getSize();
                    tiff.addData(block(tiff, bytes, 0, row, 5, 1, 0, samples) + std::string(c.gap, '\x55'));
                }
                tiff.addLongs(g_tagStripOffsets, offsets);
                tiff.addLongs(g_tagStripBytes, std::vector<std::uint64_t>(4, 5 * bytes * samples));
                tiff.endPage();
                EXPECT_TRUE(regionsAreCuts(tiff.getData()));
                const ImagePtr image = readTiff(bytesOf(tiff.getData()));
                forEachPixel(*image, [&](const Position& p) {
                    EXPECT_EQ(static_cast<double>(bitsAt(p.x, p.y, p.c, bytes)), valueAt(*image, p)) << c.name;
                });
            }
        }
    }
}
