// Pages as ImageJ describes them.
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyPages.h"

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

TEST(ImageJTest, AxesRunChannelsFirst)
{
    const ImagePtr image = imageOf({.description = "ImageJ=1.53c\nimages=12\nchannels=2\nslices=3\nframes=2\n"
                                                   "hyperstack=true\nloop=false\n",
                                    .pages = 12});
    ASSERT_EQ("3x2x3x2x2 UInt16", image->getGeometry().toString());
    for (unsigned t = 0, page = 0; t < 2; ++t) {
        for (unsigned z = 0; z < 3; ++z) {
            for (unsigned c = 0; c < 2; ++c, ++page) {
                EXPECT_EQ(page, pageAt(*image, z, c, t));
            }
        }
    }
    EXPECT_EQ("3x2x5x1x1 UInt16",
              imageOf({.description = "ImageJ=1.4\nimages=5\n", .pages = 5})->getGeometry().toString());
    EXPECT_EQ("3x2x1x1x5 UInt16",
              imageOf({.description = "ImageJ=1.4\nimages=5\nframes=5\n", .pages = 5})->getGeometry().toString());
    EXPECT_EQ("3x2x1x6x1 UInt16",
              imageOf({.description = "ImageJ=1.4\nimages=2\nchannels=2\n", .pages = 2, .samples = 3})
                  ->getGeometry()
                  .toString());
}

TEST(ImageJTest, CalibrationComesFromUnitSpacingAndResolution)
{
    const auto read = [](const std::string& lines, unsigned resolutionUnit, std::uint32_t perUnit) {
        return imageOf({.description = "ImageJ=1.53c\nimages=2\nslices=2\n" + lines,
                        .pages = 2,
                        .resolutionUnit = resolutionUnit,
                        .perUnit = {perUnit, 1000}})
            ->getGeometricCalibration();
    };
    const auto full = read("unit=\\u00B5m\nspacing=-2.5\n", 1, 4000);
    ASSERT_TRUE(full);
    EXPECT_EQ("\u00b5m", full->getUnit());
    EXPECT_TRUE(full->is3d());
    EXPECT_EQ(0.25f, full->getPixelSizeX());
    EXPECT_EQ(0.125f, full->getPixelSizeY());
    EXPECT_EQ(2.5f, full->getPixelSizeZ());

    EXPECT_EQ("\u00b5m", read("unit=\xb5m\n", 1, 4000)->getUnit());     // Latin-1, old versions
    EXPECT_EQ("\u00b5m", read("unit=\xc2\xb5m\n", 1, 4000)->getUnit()); // UTF-8
    EXPECT_EQ("\u212b", read("unit=\\u212B\n", 1, 4000)->getUnit());
    EXPECT_EQ("a\\uzz", read("unit=a\\uzz\n", 1, 4000)->getUnit());
    EXPECT_EQ(1.f, read("unit=mm\n", 1, 4000)->getPixelSizeZ()); // ImageJ leaves out a spacing of 1
    EXPECT_EQ("px", read("spacing=3\n", 0, 0)->getUnit());
    EXPECT_EQ(1.f, read("spacing=3\n", 0, 0)->getPixelSizeX());
    EXPECT_FALSE(read("unit= \n", 0, 0));
    EXPECT_FALSE(read("unit=pixel\n", 0, 0));
    EXPECT_EQ("inch", read("", 2, 300000)->getUnit());
}

// The sizes along y and z may have units of their own; here x is 1/4, y 1/8 and z 2.5 of theirs.
TEST(ImageJTest, UnitsOfAxesAreConverted)
{
    const auto fileIn = [](const std::string& units, unsigned slices) {
        return fileOf({.description = "ImageJ=1.53c\nimages=2\n" + std::string(slices == 2 ? "slices" : "frames") +
                                      "=2\nspacing=2.5\n" + units,
                       .pages = 2,
                       .resolutionUnit = 1,
                       .perUnit = {4000, 1000}});
    };
    const auto read = [&](const std::string& units) {
        return readTiff(bytesOf(fileIn(units, 2)))->getGeometricCalibration();
    };
    const auto mixed = read("unit=mm\nyunit=\\u00B5m\nzunit=nm\n");
    ASSERT_TRUE(mixed);
    EXPECT_EQ("mm", mixed->getUnit());
    EXPECT_FLOAT_EQ(0.25f, mixed->getPixelSizeX());
    EXPECT_FLOAT_EQ(0.000125f, mixed->getPixelSizeY());
    EXPECT_FLOAT_EQ(0.0000025f, mixed->getPixelSizeZ());
    const auto micro = read("unit=micron\nzunit=mm\n");
    ASSERT_TRUE(micro);
    EXPECT_EQ(0.125f, micro->getPixelSizeY());
    EXPECT_FLOAT_EQ(2500.f, micro->getPixelSizeZ());
    EXPECT_EQ(2.5f, read("unit=micron\nyunit=um\nzunit=\\u00B5m\n")->getPixelSizeZ()); // three names of one unit
    EXPECT_EQ(2.5f, read("unit=furlong\nyunit=furlong\nzunit=furlong\n")->getPixelSizeZ());

    // What doesn't convert: z leaves x and y, y leaves nothing.
    const auto flat = read("unit=mm\nzunit=sec\n");
    ASSERT_TRUE(flat);
    EXPECT_FALSE(flat->is3d());
    EXPECT_EQ(0.125f, flat->getPixelSizeY());
    EXPECT_FALSE(read("unit=mm\nyunit=sec\n"));
    EXPECT_FALSE(read("zunit=mm\n")->is3d()); // pixels and millimetres
    const TestFolder folder;
    const auto ignoredIn = [&](const std::string& units, unsigned slices) {
        putContent(folder / "a.tif", fileIn(units, slices));
        return readImageInfo(folder / "a.tif").ignored.units;
    };
    EXPECT_EQ("z in sec", ignoredIn("unit=mm\nzunit=sec\n", 2));
    EXPECT_EQ("", ignoredIn("unit=mm\nzunit=sec\n", 1)); // there is no z
    EXPECT_EQ("y in sec, z in kg", ignoredIn("unit=mm\nyunit=sec\nzunit=kg\n", 2));
    EXPECT_EQ("", ignoredIn("unit=mm\nyunit=nm\n", 2));
}

TEST(ImageJTest, RawStacksFollowOnePage)
{
    for (const bool bBigEndian : {false, true}) {
        for (const unsigned samples : {1u, 3u}) {
            const ImagePtr image = imageOf({.description = "ImageJ=1.53c\nimages=6\nslices=3\nframes=2\n",
                                            .samples = samples,
                                            .rawPlans = 5,
                                            .bBigEndian = bBigEndian});
            ASSERT_EQ("3x2x3x" + std::to_string(samples) + "x2 UInt16", image->getGeometry().toString());
            forEachPixel(*image, [&](const Position& p) {
                EXPECT_EQ((p.t * 3 + p.z) * 100 + p.c * 10 + p.y * 3 + p.x, valueAt(*image, p));
            });
        }
    }
}

// One sample is as good as in a plane of its own.
TEST(ImageJTest, RawStacksOfOneSampleInAPlane)
{
    TinyTiff tiff;
    tiff.beginPage();
    addPageTags(tiff, 2, 1, 8, 1, 1);
    tiff.addShort(g_tagPlanar, 2);
    tiff.addText(g_tagDescription, "ImageJ=1.53c\nimages=2\n");
    tiff.addBlocks({"ab"});
    tiff.addData("cd");
    tiff.endPage();
    EXPECT_EQ('d', valueAt(*readTiff(bytesOf(tiff.getData())), {1, 0, 1, 0, 0}));
}

// Signed samples of 16 bits, as ImageJ keeps them: unsigned, with a line from -32768 on through them.
TEST(ImageJTest, LinesThroughUnsignedSamplesGiveSignedOnes)
{
    const auto firstOf = [](const std::string& lines, unsigned rawPlans) {
        const ImagePtr image = imageOf({.description = "ImageJ=1.53c\nimages=2\n" + lines,
                                        .pages = rawPlans == 0 ? 2u : 1u,
                                        .rawPlans = rawPlans});
        EXPECT_EQ(eImageBufferType::Int16, image->getBufferType());
        return valueAt(*image, {1, 1, 1, 0, 0});
    };
    const std::string line = "cf=0\nc0=-32768.0\nc1=1.0\nvunit=Gray Value\n";
    EXPECT_EQ(104 - 32768, firstOf(line, 0));
    EXPECT_EQ(104 - 32768, firstOf(line, 1));
    for (const std::string other :
         {"cf=0\nc0=-32768.0\nc1=2.0\n", "cf=0\nc0=1\nc1=1.0\n", "cf=1\nc0=-32768\nc1=1\n", "cf=0\nc1=1.0\n"}) {
        EXPECT_EQ(eImageBufferType::UInt16, imageOf({.description = "ImageJ=1.53c\n" + other})->getBufferType());
    }
}

TEST(ImageJTest, ContradictionsAreRefused)
{
    const auto failure = [](const std::string& lines, unsigned pages, unsigned rawPlans = 0) {
        return failureOf(
            [&] { (void)imageOf({.description = "ImageJ=1.53c\n" + lines, .pages = pages, .rawPlans = rawPlans}); });
    };
    EXPECT_TRUE(contains(failure("images=6\nslices=4\n", 6), "must multiply to images (6)"));
    EXPECT_TRUE(contains(failure("images=3\n", 2), "tells of 3 images, but the file has 2 pages"));
    EXPECT_TRUE(contains(failure("images=x\n", 1), "images must be a whole number above 0, but is \"x\""));
    EXPECT_TRUE(contains(failure("images=0\n", 1), "above 0"));
    EXPECT_TRUE(contains(failure("images=4\n", 1, 1), "claims 48 bytes"));
    EXPECT_TRUE(contains(failure("images=4611686018427387904\n", 1), "bytes"));
    EXPECT_TRUE(contains(failure("images=18446744073709551615\nchannels=18446744073709551615\n", 1), "bytes"));
}
