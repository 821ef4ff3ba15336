// What reading a region promises beside its pixels: calibration, sizes, limits, progress, refusals.
#include "ORLIXImageIO/CutImages.h"
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyPages.h"

#include <boost/make_shared.hpp>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

constexpr unsigned long g_huge = ~0ul;

class ReadRegionTest : public ::testing::Test
{
protected:
    ReadRegionTest() { writeImage(m_file, m_whole); }

    std::string refusalOf(const RegionOffsets& offsets, const RegionSizes& sizes) const
    {
        return failureOf([&] { (void)readRegion(m_file, offsets, sizes); });
    }

    std::string beyond(const std::string& what) const
    {
        return m_file.string() + ": the image is 31x23x5x2x3 UInt16, but the region " + what;
    }

    const TestFolder m_folder;
    const boost::filesystem::path m_file = m_folder / "a.tif";
    const ImagePtr m_whole = filledImage(*geometry5d(eImageBufferType::UInt16, 31, 23, 5, 2, 3), 1);
};

boost::shared_ptr<GeometricCalibration> turned3d()
{
    const auto calibration = boost::make_shared<GeometricCalibration>();
    calibration->init3d("mm", 0.1F, 0.2F, 0.3F, 10, -20, 30, 0.5F, 0.25F, 0.125F);
    return calibration;
}

} // namespace

TEST_F(ReadRegionTest, SizesLeftOutReachToTheEnd)
{
    const ImagePtr all = readRegion(m_file, {}, {});
    EXPECT_TRUE(areSameButForCalibration(*m_whole, *all));
    const ImagePtr rest = readRegion(m_file, {.x = 30, .z = 2, .t = 1}, {.y = 4});
    EXPECT_TRUE(areSameButForCalibration(*cut(*m_whole, {30, 0, 2, 0, 1}, {1, 4, 3, 2, 2}), *rest));
}

TEST_F(ReadRegionTest, SizesOfZeroGiveNoElements)
{
    const ImagePtr none = readRegion(m_file, {.x = 31, .z = 5}, {.x = 0, .y = 3});
    EXPECT_EQ("0x3x0x2x3 UInt16", none->getGeometry().toString());
    EXPECT_TRUE(none->getGeometry().getVolumeGeometry().is3d());
    writeImage(m_folder / "a.png", filledImage(*geometry2d(eImageBufferType::UInt8, 8, 8), 1));
    EXPECT_EQ("8x0x1x1x1 UInt8", readRegion(m_folder / "a.png", {}, {.y = 0})->getGeometry().toString());
}

TEST_F(ReadRegionTest, RegionsBeyondTheImageAreRefused)
{
    EXPECT_EQ(beyond("ends at x = 32: let it lie in the image, whose x has 31"), refusalOf({.x = 1}, {.x = 31}));
    EXPECT_EQ(beyond("begins at y = 24: let it lie in the image, whose y has 23"), refusalOf({.y = 24}, {}));
    EXPECT_EQ(beyond("ends at z = 18446744073709551619: let it lie in the image, whose z has 5"),
              refusalOf({.z = 4}, {.z = g_huge}));
    EXPECT_EQ(beyond("begins at c = 18446744073709551615: let it lie in the image, whose c has 2"),
              refusalOf({.c = g_huge}, {.c = 2}));
    EXPECT_EQ(beyond("begins at t = 4: let it lie in the image, whose t has 3"), refusalOf({.t = 4}, {.t = 0}));
    // The first axis counts, and pixels are not looked at.
    EXPECT_EQ(beyond("ends at y = 24: let it lie in the image, whose y has 23"),
              refusalOf({.y = 23, .z = 9}, {.x = 31, .y = 1}));
    writeImage(m_folder / "a.png", filledImage(*geometry2d(eImageBufferType::UInt8, 8, 8), 1));
    EXPECT_TRUE(contains(failureOf([&] { (void)readRegion(m_folder / "a.png", {.x = 7}, {.x = 2}); }),
                         "the region ends at x = 9"));
}

TEST_F(ReadRegionTest, OriginMovesWithTheRegion)
{
    m_whole->setGeometricCalibration(turned3d());
    writeImage(m_file, m_whole);
    const auto found = readRegion(m_file, {7, 11, 3, 1, 2}, {2, 2, 2, 1, 1})->getGeometricCalibration();
    GeometricCalibration expected;
    expected.init3d("mm", 0.1F, 0.2F, 0.3F, 7.0F * 0.1F + 10, 11.0F * 0.2F - 20, 3.0F * 0.3F + 30);
    ASSERT_TRUE(found);
    EXPECT_EQ(expected, *found);
    // Of the whole the rotation goes too.
    EXPECT_EQ(0, readRegion(m_file, {}, {})->getGeometricCalibration()->getRotationX());
    EXPECT_EQ(0.5F, readImage(m_file)->getGeometricCalibration()->getRotationX());
}

TEST_F(ReadRegionTest, CalibrationIn2dStaysIn2d)
{
    const auto calibration = boost::make_shared<GeometricCalibration>();
    calibration->init2d("um", 0.5F, 0.25F, 1, 2, 0.75F);
    m_whole->setGeometricCalibration(calibration);
    writeImage(m_file, m_whole);
    GeometricCalibration expected;
    expected.init2d("um", 0.5F, 0.25F, 4.5F, 4);
    EXPECT_EQ(expected, *readRegion(m_file, {7, 8, 3, 0, 0}, {})->getGeometricCalibration());
}

TEST_F(ReadRegionTest, WithoutCalibrationPixelsAreCounted)
{
    GeometricCalibration volume, plan;
    volume.init3d("px", 1, 1, 1, 7, 8, 3);
    plan.init2d("px", 1, 1, 7, 8);
    EXPECT_EQ(volume, *readRegion(m_file, {7, 8, 3, 0, 0}, {})->getGeometricCalibration());
    writeImage(m_file, filledImage(*geometry2d(eImageBufferType::UInt8, 31, 23), 1));
    EXPECT_EQ(plan, *readRegion(m_file, {7, 8, 0, 0, 0}, {})->getGeometricCalibration());
}

// A tile of 128 x 128 and the region itself, of an image that is larger.
TEST_F(ReadRegionTest, LimitsAreForTheRegion)
{
    WriteOptions tiled;
    tiled.bTiled = true;
    tiled.tileSize = 128;
    tiled.compression = eTiffCompression::eDeflate;
    writeImage(m_file, filledImage(*geometry2d(eImageBufferType::UInt16, 400, 300), 1), tiled);
    ReadOptions options;
    options.limits.maxElements = 24;
    options.limits.maxBytes = 128 * 128 * 2 + 6 * 4 * 2;
    const auto read = [&] { return readRegion(m_file, {100, 100, 0, 0, 0}, {6, 4, 1, 1, 1}, options); };
    EXPECT_EQ(24u, read()->getGeometry().getNbPixels());
    options.limits.maxElements = 23;
    EXPECT_TRUE(contains(failureOf(read), "6x4x1x1x1 UInt16 elements, more than the limit of 23"));
    options.limits = {.maxBytes = 128 * 128 * 2 + 6 * 4 * 2 - 1};
    EXPECT_TRUE(contains(failureOf(read), "more than the limit of 32815"));
}

TEST_F(ReadRegionTest, ProgressCountsTheRegionsPlans)
{
    ReadOptions options;
    unsigned long last = 0, known = 0, calls = 0;
    options.progress = [&](unsigned long done, unsigned long all) {
        EXPECT_GE(done, last);
        last = done, known = all, ++calls;
        return true;
    };
    (void)readRegion(m_file, {3, 3, 1, 1, 1}, {4, 4, 3, 1, 2}, options);
    EXPECT_EQ(6u, last);
    EXPECT_EQ(6u, known);
    EXPECT_GE(calls, 6u);
    options.progress = [&](unsigned long done, unsigned long) { return done < 2; };
    EXPECT_TRUE(contains(failureOf([&] { (void)readRegion(m_file, {}, {.x = 3}, options); }), "reading was stopped"));
}

// A stack of RGB pages tells one channel of each.
TEST_F(ReadRegionTest, ProgressCountsChannelsThatAreTaken)
{
    for (const auto description : {eTiffDescription::eOme, eTiffDescription::eImageJ}) {
        WriteOptions write;
        write.description = description;
        write.channelLayout = eChannelLayout::eRgbSamples;
        writeImage(m_file, filledImage(*geometry5d(eImageBufferType::UInt8, 9, 9, 4, 3, 1), 1), write);
        unsigned long last = 0;
        ReadOptions options;
        options.progress = [&](unsigned long done, unsigned long) { return last = done, true; };
        (void)readRegion(m_file, {.z = 1, .c = 2}, {.c = 1}, options);
        EXPECT_EQ(3u, last);
    }
}

TEST_F(ReadRegionTest, DamageElsewhereIsNotSeen)
{
    std::string content = contentOf(m_file);
    const ImagePtr plan = cut(*m_whole, {0, 0, 1, 0, 0}, {31, 23, 1, 2, 1});
    content.resize(content.size() - 1); // the last directory
    EXPECT_THROW((void)readTiffRegion(bytesOf(content), {.z = 1}, {.z = 1}), ORLIXImageIOException);

    WriteOptions deflate;
    deflate.compression = eTiffCompression::eDeflate;
    writeImage(m_file, m_whole, deflate);
    content = contentOf(m_file);
    const std::size_t last = content.rfind("\x78\x9c"); // where the last strip begins
    ASSERT_NE(content.npos, last);
    content.replace(last, 2, "\xff\xff");
    EXPECT_THROW((void)readTiff(bytesOf(content)), ORLIXImageIOException);
    EXPECT_TRUE(areSameButForCalibration(*plan, *readTiffRegion(bytesOf(content), {.z = 1}, {.z = 1, .t = 1})));
    EXPECT_THROW((void)readTiffRegion(bytesOf(content), {.z = 4, .c = 1, .t = 2}, {}), ORLIXImageIOException);
}

TEST_F(ReadRegionTest, MissingAndUnknownFilesAreRefused)
{
    EXPECT_TRUE(contains(failureOf([&] { (void)readRegion(m_folder / "no.tif", {}, {}); }), "can't be opened"));
    putContent(m_folder / "text.tif", "no image");
    EXPECT_TRUE(contains(failureOf([&] { (void)readRegion(m_folder / "text.tif", {}, {}); }), "TIFF or PNG"));
}
