// The sample images beside the repository: axes, types, calibration and pixels. The expected values come from other
// programs' decoders.
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestImages.h"
#include "ORLIXImageIO/TinyPng.h"

#include <boost/filesystem/operations.hpp>

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

constexpr SampleImage g_images[] = {
    {"blobs.tif", "256x254x1x1x1 UInt8", "ImageJ", 1, 0x255e4926, 6714936, 40, 32, 48},
    {"blobs_3d_fiji_skeleton.tif", "32x32x30x1x1 UInt8", "ImageJ", 30, 0x5e9d09c5, 1020765, 0, 0, 0},
    {"camera.png", "512x512x1x1x1 UInt8", "", 1, 0x59c2562e, 33832495, 200, 158, 149},
    {"cells-3channel-16bit.tif", "695x395x1x3x1 UInt16", "ImageJ", 3, 0x9c71b244, 203484740, 149, 215, 160},
    {"chessboard_GRAY_U16.tif", "200x200x1x1x1 UInt16", "", 1, 0x8edc837b, 5100000, 255, 205, 255},
    {"chessboard_GRAY_U16B.tif", "200x200x1x1x1 UInt16", "", 1, 0x8edc837b, 5100000, 255, 205, 255},
    {"coins.png", "384x303x1x1x1 UInt8", "", 1, 0x0ac5a20f, 11269333, 47, 46, 7},
    {"ihc.png", "512x512x1x3x1 UInt8", "", 1, 0x1deb24bf, 126084883, 156, 180, 207},
    {"membranes.tif", "256x256x1x1x1 UInt16", "", 1, 0xe71dd6c0, 164221513, 4496, 7838, 3682},
    {"mini-t1-head.tif", "32x32x32x1x1 UInt16", "ImageJ", 32, 0xbaed7200, 9074214, 259, 287, 329, "mm", 1.5},
    {"multipage.tif", "10x15x2x1x1 UInt8", "", 2, 0xdabac1d2, 38144, 0, 77, 168},
    {"palette_gray.png", "10x10x1x1x1 UInt8", "", 1, 0x0134d9c5, 13750, 250, 250, 25}};

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
    if (!boost::filesystem::exists(pathOf(expected.file))) {
        GTEST_SKIP() << pathOf(expected.file).string() << " is not there";
    }
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
    for (const auto& [file, told] : {std::pair("multipage_rgb.tif", "10x10 pixels of 3 RGB samples, floating, 64 bits"),
                                     std::pair("truncated.jpg", "its first bytes are neither's (ff d8 ff e0")}) {
        if (!boost::filesystem::exists(pathOf(file))) {
            GTEST_SKIP() << pathOf(file).string() << " is not there";
        }
        EXPECT_TRUE(contains(failureOf([&file = file] { (void)readImage(pathOf(file)); }), told));
        EXPECT_TRUE(contains(failureOf([&file = file] { (void)readImageInfo(pathOf(file)); }), pathOf(file).string()));
    }
}
