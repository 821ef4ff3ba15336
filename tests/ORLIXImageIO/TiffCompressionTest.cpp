// Every compression that the installed libtiff has, written by libtiff itself or by hand where it can only read.
#include "ORLIXImageIO/CutImages.h"
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyTiff.h"

#include <tiffio.h>

#include <array>
#include <bit>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

constexpr unsigned g_width = 48, g_height = 32;

struct CodecCase
{
    const char* name;
    unsigned compression, photometric, samples, bits, format;
    eImageBufferType::domain type;
    double tolerance; ///< largest difference, of values that span 0 to 200
    bool bTiled = false;
    bool bSeparate = false;
};

// Smooth, so that lossy compressions stay close. Bits alternate in runs.
double valueOf(const CodecCase& codec, unsigned x, unsigned y, unsigned sample)
{
    if (codec.bits == 1) {
        return (x / 5 + y / 3) % 2;
    }
    const double value = 20 + x * 2 + y + sample * 20;
    return codec.photometric == PHOTOMETRIC_LOGL || codec.photometric == PHOTOMETRIC_LOGLUV ||
                   (codec.compression == COMPRESSION_PIXARLOG && codec.format == SAMPLEFORMAT_IEEEFP)
               ? value / 200
               : value;
}

void appendSample(std::string& row, const CodecCase& codec, unsigned x, unsigned y, unsigned sample)
{
    const double value = valueOf(codec, x, y, sample);
    const auto append = [&](auto element) { row.append(reinterpret_cast<const char*>(&element), sizeof element); };
    if (codec.format == SAMPLEFORMAT_IEEEFP) {
        append(static_cast<float>(value));
    } else if (codec.bits == 32) {
        append(static_cast<std::uint32_t>(value));
    } else if (codec.bits == 16) {
        append(static_cast<std::uint16_t>(value));
    } else if (codec.bits == 8) {
        append(static_cast<std::uint8_t>(value));
    } else {
        if (x % 8 == 0) {
            row += '\0';
        }
        row.back() = static_cast<char>(row.back() | (value != 0 ? 0x80 >> x % 8 : 0));
    }
}

std::string blockOf(const CodecCase& codec, unsigned x0, unsigned y0, unsigned width, unsigned height,
                    unsigned firstSample)
{
    std::string data;
    for (unsigned y = y0; y < y0 + height; ++y) {
        for (unsigned x = x0; x < x0 + width; ++x) {
            for (unsigned s = 0; s < (codec.bSeparate ? 1 : codec.samples); ++s) {
                appendSample(data, codec, x, y, firstSample + s);
            }
        }
    }
    return data;
}

void writeByLibrary(const boost::filesystem::path& file, const CodecCase& codec)
{
    TIFF* const tiff = TIFFOpen(file.c_str(), "w");
    ASSERT_TRUE(tiff);
    const unsigned rows = codec.compression == COMPRESSION_JBIG ? g_height : 16; // which it wants in one strip
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, g_width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, g_height);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, codec.compression);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, codec.photometric);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, codec.samples);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, codec.bits);
    TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT, codec.format);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, codec.bSeparate ? PLANARCONFIG_SEPARATE : PLANARCONFIG_CONTIG);
    if (codec.compression == COMPRESSION_JPEG) {
        TIFFSetField(tiff, TIFFTAG_JPEGQUALITY, 98);
        TIFFSetField(tiff, TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB);
    }
    if (codec.compression == COMPRESSION_WEBP) {
        TIFFSetField(tiff, TIFFTAG_WEBP_LOSSLESS, 1);
    }
    if (codec.compression == COMPRESSION_SGILOG || codec.compression == COMPRESSION_SGILOG24) {
        TIFFSetField(tiff, TIFFTAG_SGILOGDATAFMT, SGILOGDATAFMT_FLOAT);
    }
    if (codec.bTiled) {
        TIFFSetField(tiff, TIFFTAG_TILEWIDTH, 16);
        TIFFSetField(tiff, TIFFTAG_TILELENGTH, 16);
    } else {
        TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, rows);
    }
    const unsigned step = codec.bTiled ? 16 : g_width;
    unsigned block = 0;
    for (unsigned sample = 0; sample < (codec.bSeparate ? codec.samples : 1); ++sample) {
        for (unsigned y = 0; y < g_height; y += rows) {
            for (unsigned x = 0; x < g_width; x += step, ++block) {
                std::string data = blockOf(codec, x, y, step, rows, sample);
                const auto bytes = static_cast<tmsize_t>(data.size());
                const tmsize_t put = codec.bTiled ? TIFFWriteEncodedTile(tiff, block, data.data(), bytes)
                                                  : TIFFWriteEncodedStrip(tiff, block, data.data(), bytes);
                EXPECT_GT(put, 0);
            }
        }
    }
    TIFFClose(tiff);
}

constexpr CodecCase g_codecs[] = {
    {"Lzw", COMPRESSION_LZW, 1, 1, 16, 1, eImageBufferType::UInt16, 0},
    {"LzwTiled", COMPRESSION_LZW, 2, 3, 8, 1, eImageBufferType::UInt8, 0, true},
    {"PackBits", COMPRESSION_PACKBITS, 1, 1, 8, 1, eImageBufferType::UInt8, 0},
    {"Deflate", COMPRESSION_DEFLATE, 1, 1, 32, 1, eImageBufferType::UInt32, 0},
    {"AdobeDeflate", COMPRESSION_ADOBE_DEFLATE, 1, 1, 32, 3, eImageBufferType::Real32, 0},
    {"Lzma", COMPRESSION_LZMA, 1, 1, 16, 1, eImageBufferType::UInt16, 0},
    {"Zstd", COMPRESSION_ZSTD, 1, 1, 16, 1, eImageBufferType::UInt16, 0},
    {"WebpRgb", COMPRESSION_WEBP, 2, 3, 8, 1, eImageBufferType::UInt8, 0},
    {"WebpRgba", COMPRESSION_WEBP, 2, 4, 8, 1, eImageBufferType::UInt8, 0, true},
    {"LercFloat", COMPRESSION_LERC, 1, 1, 32, 3, eImageBufferType::Real32, 0},
    {"LercUInt16", COMPRESSION_LERC, 1, 1, 16, 1, eImageBufferType::UInt16, 0},
    {"JpegGrey", COMPRESSION_JPEG, 1, 1, 8, 1, eImageBufferType::UInt8, 3},
    {"JpegRgb", COMPRESSION_JPEG, 2, 3, 8, 1, eImageBufferType::UInt8, 3},
    {"JpegYCbCr", COMPRESSION_JPEG, 6, 3, 8, 1, eImageBufferType::UInt8, 6},
    {"JpegYCbCrTiled", COMPRESSION_JPEG, 6, 3, 8, 1, eImageBufferType::UInt8, 6, true},
    {"JpegSeparate", COMPRESSION_JPEG, 2, 3, 8, 1, eImageBufferType::UInt8, 3, false, true},
    {"CcittRle", COMPRESSION_CCITTRLE, 1, 1, 1, 1, eImageBufferType::eBufferBinary, 0},
    {"CcittGroup3", COMPRESSION_CCITTFAX3, 0, 1, 1, 1, eImageBufferType::eBufferBinary, 0},
    {"CcittGroup4", COMPRESSION_CCITTFAX4, 0, 1, 1, 1, eImageBufferType::eBufferBinary, 0},
    {"Jbig", COMPRESSION_JBIG, 0, 1, 1, 1, eImageBufferType::eBufferBinary, 0},
    {"PixarLog", COMPRESSION_PIXARLOG, 2, 3, 32, 3, eImageBufferType::UInt8, 2},
    {"SgiLogL", COMPRESSION_SGILOG, PHOTOMETRIC_LOGL, 1, 32, 3, eImageBufferType::Real32, 1},
    {"SgiLogLuv", COMPRESSION_SGILOG, PHOTOMETRIC_LOGLUV, 3, 32, 3, eImageBufferType::Real32, 2},
    {"SgiLog24", COMPRESSION_SGILOG24, PHOTOMETRIC_LOGLUV, 3, 32, 3, eImageBufferType::Real32, 10}};

class TiffCompressionTest : public ::testing::TestWithParam<CodecCase>
{};

} // namespace

TEST_P(TiffCompressionTest, IsRead)
{
    const CodecCase& codec = GetParam();
    if (!TIFFIsCODECConfigured(static_cast<std::uint16_t>(codec.compression))) {
        GTEST_SKIP() << "this libtiff has no " << codec.name;
    }
    const TestFolder folder;
    writeByLibrary(folder / "a.tif", codec);
    EXPECT_TRUE(regionsOfFileAreCuts(folder / "a.tif"));
    const ImagePtr image = readImage(folder / "a.tif");
    ASSERT_EQ(codec.type, image->getBufferType());
    ASSERT_EQ(codec.samples, image->getSizeC());
    const bool bUnit = valueOf(codec, 0, 0, 0) < 1 && codec.bits > 1;
    const bool bBytes = bUnit && codec.type == eImageBufferType::UInt8; // PixarLog's floats come back as bytes
    double largest = 0;
    forEachPixel(*image, [&](const Position& p) {
        double expected =
            valueOf(codec, static_cast<unsigned>(p.x), static_cast<unsigned>(p.y), static_cast<unsigned>(p.c));
        expected = codec.photometric == PHOTOMETRIC_MINISWHITE ? 1 - expected : expected;
        const double found = valueAt(*image, p) / (bBytes ? 255 : 1);
        largest = std::max(largest, std::abs(expected - found) * (bUnit ? 200 : 1));
    });
    EXPECT_LE(largest, codec.tolerance);
}

INSTANTIATE_TEST_SUITE_P(AllCodecs, TiffCompressionTest, ::testing::ValuesIn(g_codecs),
                         [](const auto& info) { return info.param.name; });

// Runs of 4-bit pixels: a byte with the high bits 00 repeats the last pixel, one with 11 gives a new one.
TEST(TiffReadOnlyCompressionTest, ThunderScan)
{
    TinyTiff tiff;
    tiff.beginPage();
    tiff.addLong(g_tagWidth, 6);
    tiff.addLong(g_tagHeight, 1);
    tiff.addShort(g_tagBits, 4);
    tiff.addShort(g_tagCompression, COMPRESSION_THUNDERSCAN);
    tiff.addShort(g_tagPhotometric, 1);
    tiff.addShort(g_tagSamples, 1);
    tiff.addBlocks({std::string("\xc5\x03\xcf\x01", 4)});
    tiff.endPage();
    EXPECT_TRUE(regionsAreCuts(tiff.getData()));
    const ImagePtr image = readTiff(bytesOf(tiff.getData()));
    const auto* const pixels = planData<unsigned char>(*image, 0, 0, 0);
    EXPECT_EQ((std::vector<unsigned char>{85, 85, 85, 85, 255, 255}), std::vector<unsigned char>(pixels, pixels + 6));
}

// A literal row of 2-bit pixels.
TEST(TiffReadOnlyCompressionTest, Next)
{
    TinyTiff tiff;
    tiff.beginPage();
    tiff.addLong(g_tagWidth, 8);
    tiff.addLong(g_tagHeight, 1);
    tiff.addShort(g_tagBits, 2);
    tiff.addShort(g_tagCompression, COMPRESSION_NEXT);
    tiff.addShort(g_tagPhotometric, 1);
    tiff.addShort(g_tagSamples, 1);
    tiff.addBlocks({std::string("\x00\x1b\xe4", 3)});
    tiff.endPage();
    EXPECT_TRUE(regionsAreCuts(tiff.getData()));
    const ImagePtr image = readTiff(bytesOf(tiff.getData()));
    const auto* const pixels = planData<unsigned char>(*image, 0, 0, 0);
    EXPECT_EQ((std::vector<unsigned char>{0, 85, 170, 255, 255, 170, 85, 0}),
              std::vector<unsigned char>(pixels, pixels + 8));
}

// libtiff 4.5 forgets to add up the differences of grey PixarLog, and loses its way between the rows of RLE/W: wrong
// pixels would come out.
TEST(TiffReadOnlyCompressionTest, WhatLibtiffGetsWrongIsRefused)
{
    const TestFolder folder;
    writeByLibrary(folder / "a.tif", {"", COMPRESSION_PIXARLOG, 1, 1, 8, 1, eImageBufferType::UInt8, 0});
    EXPECT_TRUE(
        contains(failureOf([&] { (void)readImage(folder / "a.tif"); }), "under PixarLog, which is not supported"));
    writeByLibrary(folder / "a.tif", {"", COMPRESSION_CCITTRLEW, 1, 1, 1, 1, eImageBufferType::eBufferBinary, 0});
    EXPECT_TRUE(
        contains(failureOf([&] { (void)readImage(folder / "a.tif"); }), "under CCITT RLE/W, which is not supported"));
}

// Luma and chroma without compression, at half the chroma resolution: greys of 16 to 235 come back as they are.
TEST(TiffReadOnlyCompressionTest, SubsampledYCbCr)
{
    TinyTiff tiff;
    tiff.beginPage();
    addPageTags(tiff, 4, 2, 8, 3, 6);
    tiff.addShorts(530, {2, 2}); // chroma subsampling
    tiff.addBlocks({std::string("\x10\x20\x30\x40\x80\x80\x50\x60\x70\x7f\x80\x80", 12)});
    tiff.endPage();
    EXPECT_TRUE(regionsAreCuts(tiff.getData()));
    const ImagePtr image = readTiff(bytesOf(tiff.getData()));
    ASSERT_EQ("4x2x1x3x1 UInt8", image->getGeometry().toString());
    const unsigned luma[2][4] = {{0x10, 0x20, 0x50, 0x60}, {0x30, 0x40, 0x70, 0x7f}};
    forEachPixel(*image, [&](const Position& p) { EXPECT_NEAR(luma[p.y][p.x], valueAt(*image, p), 1); });
}

// Predictors of integers and floats, in strips and tiles, in both byte orders.
TEST(TiffPredictorTest, IsUndone)
{
    const TestFolder folder;
    for (const char* const mode : {"wl", "wb"}) {
        for (const bool bFloat : {false, true}) {
            if (bFloat && mode[1] == 'b') {
                continue; // libtiff 4.5 writes these wrongly
            }
            std::array<std::uint32_t, 64> values{};
            for (unsigned i = 0; i < values.size(); ++i) {
                const float number = 1.5f * static_cast<float>(i) - 20;
                values[i] = bFloat ? std::bit_cast<std::uint32_t>(number) : i * i * 77777;
            }
            TIFF* const tiff = TIFFOpen((folder / "a.tif").c_str(), mode);
            TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, 16);
            TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, 4);
            TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_ADOBE_DEFLATE);
            TIFFSetField(tiff, TIFFTAG_PREDICTOR, bFloat ? PREDICTOR_FLOATINGPOINT : PREDICTOR_HORIZONTAL);
            TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
            TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 32);
            TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT, bFloat ? SAMPLEFORMAT_IEEEFP : SAMPLEFORMAT_UINT);
            TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
            auto copy = values; // libtiff swaps in place
            TIFFWriteEncodedStrip(tiff, 0, copy.data(), sizeof copy);
            TIFFClose(tiff);
            const ImagePtr image = readImage(folder / "a.tif");
            EXPECT_EQ(0, std::memcmp(image->accessRow(0, 0, 0, 0), values.data(), sizeof values)) << mode << bFloat;
        }
    }
}
