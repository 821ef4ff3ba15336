// Pages that nothing describes, as plans.
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyPages.h"

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

TEST(TiffPagesTest, PlainPagesAreZ)
{
    const ImagePtr image = imageOf({.pages = 4});
    ASSERT_EQ("3x2x4x1x1 UInt16", image->getGeometry().toString());
    for (unsigned z = 0; z < 4; ++z) {
        EXPECT_EQ(z, pageAt(*image, z, 0, 0));
    }
    EXPECT_TRUE(image->getGeometry().getVolumeGeometry().is3d());
    EXPECT_FALSE(imageOf({})->getGeometry().getVolumeGeometry().is3d());
    EXPECT_FALSE(image->getGeometry().getTemporalGeometry().isSequence());
}

TEST(TiffPagesTest, ReducedPagesAreLeftOut)
{
    const ImagePtr image = imageOf({.pages = 3, .reducedPage = 1});
    ASSERT_EQ("3x2x2x1x1 UInt16", image->getGeometry().toString());
    EXPECT_EQ(0u, pageAt(*image, 0, 0, 0));
    EXPECT_EQ(2u, pageAt(*image, 1, 0, 0));
    EXPECT_EQ("1x1x1x1x1 UInt16", imageOf({.reducedPage = 0})->getGeometry().toString());
}

TEST(TiffPagesTest, PagesOfDifferentSizeAreRefused)
{
    TinyTiff tiff;
    for (const unsigned width : {3u, 4u}) {
        tiff.beginPage();
        addPageTags(tiff, width, 1, 8, 1, 1);
        tiff.addBlocks({std::string(width, 'x')});
        tiff.endPage();
    }
    const std::string text = failureOf([&] { (void)readTiff(bytesOf(tiff.getData())); });
    EXPECT_TRUE(contains(text, "page 0 has 3x1 pixels"));
    EXPECT_TRUE(contains(text, "page 1 has 4x1 pixels"));
}

TEST(TiffPagesTest, PagesOfDifferentKindAreRefused)
{
    struct Kind
    {
        unsigned height = 2, bits = 8, samples = 1;
    };
    const auto fileOf = [](const Kind& second) {
        TinyTiff tiff;
        for (const Kind& kind : {Kind(), second}) {
            tiff.beginPage();
            addPageTags(tiff, 3, kind.height, kind.bits, kind.samples, kind.samples == 3 ? 2 : 1);
            tiff.addBlocks({std::string(3ul * kind.height * kind.samples * kind.bits / 8, 'x')});
            tiff.endPage();
        }
        return tiff.getData();
    };
    EXPECT_EQ("3x2x2x1x1 UInt8", readTiff(bytesOf(fileOf({})))->getGeometry().toString());
    for (const auto& [kind, text] : {std::pair(Kind{.height = 3}, "page 1 has 3x3 pixels"),
                                     {Kind{.bits = 16}, "page 1 has 3x2 pixels of 1 grey sample, unsigned, 16 bits"},
                                     {Kind{.samples = 3}, "page 1 has 3x2 pixels of 3 RGB samples"}}) {
        EXPECT_TRUE(contains(failureOf([&, &kind = kind] { (void)readTiff(bytesOf(fileOf(kind))); }), text));
    }
}

TEST(TiffPagesTest, ResolutionGivesPixelSizes)
{
    const auto calibration = imageOf({.resolutionUnit = 3, .perUnit = {40, 1}})->getGeometricCalibration();
    ASSERT_TRUE(calibration);
    EXPECT_EQ("cm", calibration->getUnit());
    EXPECT_EQ(1.f / 40, calibration->getPixelSizeX());
    EXPECT_EQ(1.f / 80, calibration->getPixelSizeY());
    EXPECT_FALSE(calibration->is3d());
    EXPECT_EQ("inch", imageOf({.resolutionUnit = 2, .perUnit = {300, 1}})->getGeometricCalibration()->getUnit());
    EXPECT_FALSE(imageOf({.resolutionUnit = 1, .perUnit = {40, 1}})->hasGeometricCalibration()); // a mere ratio
    EXPECT_FALSE(imageOf({.resolutionUnit = 3, .perUnit = {0, 1}})->hasGeometricCalibration());
    EXPECT_FALSE(imageOf({})->hasGeometricCalibration());
}

TEST(TiffPagesTest, ScreenResolutionsAreNoMeasurements)
{
    for (const std::uint32_t perInch : {72u, 96u}) {
        EXPECT_FALSE(imageOf({.resolutionUnit = 2, .perUnit = {perInch, 1}, .ratio = 1})->hasGeometricCalibration());
        EXPECT_FALSE(
            imageOf({.description = "ImageJ=1.53c\n", .resolutionUnit = 2, .perUnit = {perInch, 1}, .ratio = 1})
                ->hasGeometricCalibration());
        EXPECT_TRUE(imageOf({.resolutionUnit = 2, .perUnit = {perInch, 1}})->hasGeometricCalibration());
        EXPECT_TRUE(
            imageOf(
                {.description = "ImageJ=1.53c\nunit=inch\n", .resolutionUnit = 2, .perUnit = {perInch, 1}, .ratio = 1})
                ->hasGeometricCalibration());
    }
    EXPECT_FALSE(imageOf({.resolutionUnit = 3, .perUnit = {2834, 100}, .ratio = 1})->hasGeometricCalibration());
}
