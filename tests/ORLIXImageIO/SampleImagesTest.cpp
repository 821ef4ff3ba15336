// Files as other programs lay them out: axes, types, calibration and pixels. samples/make-samples wrote them, and
// worked out what they hold, without an image library.
#include "ORLIXImageIO/CutImages.h"
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TinyPng.h"

#include <boost/filesystem/path.hpp>

#include <algorithm>
#include <cctype>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

struct SampleImage
{
    const char* file;
    const char* geometry;
    const char* metadata;
    unsigned long pages;
    std::uint32_t crc; ///< of the pixels in the order x, y, z, c, t, low byte first
    double sum, first, middle, last;
    const char* unit = nullptr; ///< null where there is no calibration
    double pixelSize = 0;       ///< the same on all axes
};

// As samples/make-samples prints it.
constexpr SampleImage g_images[] = {
    {"imagej-plan.tif", "40x23x1x1x1 UInt8", "ImageJ", 1, 0x12ab5716, 109156, 0, 115, 227},
    {"imagej-slices.tif", "16x13x6x1x1 UInt8", "ImageJ", 6, 0x27507154, 131608, 0, 51, 84},
    {"imagej-channels.tif", "35x19x1x3x1 UInt16", "ImageJ", 3, 0x9d980d67, 30584495, 0, 125, 250},
    {"imagej-calibrated.tif", "16x12x8x1x1 UInt16", "ImageJ", 8, 0x0593e6a8, 25381696, 0, 68, 64375, "mm", 1.5},
    {"little-endian.tif", "20x17x1x1x1 UInt16", "", 1, 0x277a6585, 4582866, 0, 42810, 137},
    {"big-endian.tif", "20x17x1x1x1 UInt16", "", 1, 0x277a6585, 4582866, 0, 42810, 137},
    {"deflate-strips.tif", "32x24x1x1x1 UInt16", "", 1, 0xe60a327c, 13175296, 0, 60, 18922},
    {"pages-of-a-document.tif", "10x15x2x1x1 UInt8", "", 2, 0x9d780e34, 20322, 0, 17, 64},
    {"grey.png", "37x21x1x1x1 UInt8", "", 1, 0x4e34ae13, 86392, 0, 104, 208},
    {"rgb.png", "37x21x1x3x1 UInt8", "", 1, 0x7119a140, 298119, 0, 133, 10},
    {"grey-palette.png", "10x10x1x1x1 UInt8", "", 1, 0xb1e5b19b, 20534, 255, 230, 205}};

boost::filesystem::path pathOf(const std::string& file)
{
    return boost::filesystem::path(ORLIX_TEST_DATA_DIR) / file;
}

class SampleImageTest : public ::testing::TestWithParam<SampleImage>
{};

} // namespace

TEST_P(SampleImageTest, IsRead)
{
    const SampleImage& expected = GetParam();
    EXPECT_TRUE(regionsOfFileAreCuts(pathOf(expected.file)));
    const ImagePtr image = readImage(pathOf(expected.file));
    ASSERT_EQ(expected.geometry, image->getGeometry().toString());
    std::string bytes;
    std::vector<double> values;
    double sum = 0;
    forEachPixel(*image, [&](const Position& p) {
        values.push_back(valueAt(*image, p));
        sum += values.back();
        for (unsigned byte = 0; byte < elementSize(image->getBufferType()); ++byte) {
            bytes += static_cast<char>(static_cast<unsigned>(values.back()) >> (8 * byte));
        }
    });
    EXPECT_EQ(expected.crc, crcOf(bytes));
    EXPECT_EQ(expected.sum, sum);
    EXPECT_EQ(expected.first, values.front());
    EXPECT_EQ(expected.middle, values[values.size() / 2]);
    EXPECT_EQ(expected.last, values.back());

    const auto& calibration = image->getGeometricCalibration();
    ASSERT_EQ(expected.unit != nullptr, calibration != nullptr);
    if (calibration) {
        EXPECT_EQ(expected.unit, calibration->getUnit());
        EXPECT_TRUE(calibration->is3d());
        EXPECT_NEAR(expected.pixelSize, calibration->getPixelSizeX(), 1e-5);
        EXPECT_NEAR(expected.pixelSize, calibration->getPixelSizeY(), 1e-5);
        EXPECT_NEAR(expected.pixelSize, calibration->getPixelSizeZ(), 1e-5);
    }
    const ImageFileInfo info = readImageInfo(pathOf(expected.file));
    EXPECT_EQ(expected.geometry, info.geometry.toString());
    EXPECT_EQ(expected.metadata, info.metadata);
    EXPECT_EQ(expected.pages, info.pages);
    EXPECT_EQ(!calibration, !info.calibration);
}

INSTANTIATE_TEST_SUITE_P(All, SampleImageTest, ::testing::ValuesIn(g_images), [](const auto& info) {
    std::string name = info.param.file;
    std::ranges::replace_if(
        name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return name;
});

TEST(SampleImageRefusalTest, OutOfScope)
{
    for (const auto& [file, told] : {std::pair("real64-rgb.tif", "3x2 pixels of 3 RGB samples, floating, 64 bits"),
                                     std::pair("head-of-a-jpeg.jpg", "its first bytes are neither's (ff d8 ff e0")}) {
        EXPECT_TRUE(contains(failureOf([&file = file] { (void)readImage(pathOf(file)); }), told));
        EXPECT_TRUE(contains(failureOf([&file = file] { (void)readImageInfo(pathOf(file)); }), pathOf(file).string()));
    }
}
