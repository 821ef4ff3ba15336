// The tags of written files, for programs that know no OME-XML.
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"

#include <boost/make_shared.hpp>

#include <tiffio.h>

#include <memory>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

struct Close
{
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};

class TiffTagsTest : public ::testing::Test
{
protected:
    std::unique_ptr<TIFF, Close> write(const ImagePtr& image, const WriteOptions& options = {})
    {
        writeImage(m_folder / "a.tif", image, options);
        return std::unique_ptr<TIFF, Close>(TIFFOpen((m_folder / "a.tif").c_str(), "r"));
    }

private:
    const TestFolder m_folder;
};

} // namespace

TEST_F(TiffTagsTest, ResolutionsThatCantBeToldAreLeftOut)
{
    const auto tellsResolution = [&](float sizeX, float sizeY) {
        const ImagePtr image = filledImage(*geometry2d(eImageBufferType::UInt8, 4, 4), 1);
        auto calibration = boost::make_shared<GeometricCalibration>();
        calibration->init2d("m", sizeX, sizeY, 0, 0);
        image->setGeometricCalibration(calibration);
        const auto tiff = write(image);
        float found = 0;
        return TIFFGetField(tiff.get(), TIFFTAG_XRESOLUTION, &found) == 1 ||
               TIFFGetField(tiff.get(), TIFFTAG_YRESOLUTION, &found) == 1;
    };
    EXPECT_TRUE(tellsResolution(1, 1));
    EXPECT_TRUE(tellsResolution(1e3f, 1e3f));
    EXPECT_FALSE(tellsResolution(1e5f, 1));
    EXPECT_FALSE(tellsResolution(1, 1e5f));
    EXPECT_FALSE(tellsResolution(1e-12f, 1));
    EXPECT_FALSE(tellsResolution(1, 1e-12f));
}

// The other channels are as they are: nothing was multiplied by the fourth.
TEST_F(TiffTagsTest, TheFourthSampleIsUnassociatedAlpha)
{
    const auto tiff = write(filledImage(*geometry5d(eImageBufferType::UInt8, 4, 4, 1, 4, 1), 1));
    std::uint16_t count = 0, samples = 0, planar = 0;
    std::uint16_t* kinds = nullptr;
    ASSERT_EQ(1, TIFFGetField(tiff.get(), TIFFTAG_EXTRASAMPLES, &count, &kinds));
    ASSERT_EQ(1, count);
    EXPECT_EQ(EXTRASAMPLE_UNASSALPHA, kinds[0]);
    TIFFGetField(tiff.get(), TIFFTAG_SAMPLESPERPIXEL, &samples);
    TIFFGetField(tiff.get(), TIFFTAG_PLANARCONFIG, &planar);
    EXPECT_EQ(4, samples);
    EXPECT_EQ(PLANARCONFIG_CONTIG, planar);
}

// OME-XML has no place for sizes that aren't above 0.
TEST_F(TiffTagsTest, OnlyPixelSizesAreToldAsSuch)
{
    const ImagePtr image = filledImage(*geometry2d(eImageBufferType::UInt8, 4, 4), 1);
    auto calibration = boost::make_shared<GeometricCalibration>();
    calibration->init2d("mm", 0, 2, 0, 0);
    image->setGeometricCalibration(calibration);
    const auto tiff = write(image);
    const char* text = nullptr;
    ASSERT_EQ(1, TIFFGetField(tiff.get(), TIFFTAG_IMAGEDESCRIPTION, &text));
    EXPECT_FALSE(contains(text, "PhysicalSizeX"));
    EXPECT_TRUE(contains(text, "PhysicalSizeY=\"2\" PhysicalSizeYUnit=\"mm\""));
}

TEST_F(TiffTagsTest, TheDescriptionTellsOrderOfBytesAndOfSamples)
{
    for (const eByteOrder::domain order : {eByteOrder::eLittleEndian, eByteOrder::eBigEndian}) {
        for (const unsigned long channels : {1ul, 3ul, 4ul}) {
            WriteOptions options;
            options.byteOrder = order;
            const auto tiff =
                write(filledImage(*geometry5d(eImageBufferType::UInt8, 4, 4, 1, channels, 1), 1), options);
            const char* text = nullptr;
            ASSERT_EQ(1, TIFFGetField(tiff.get(), TIFFTAG_IMAGEDESCRIPTION, &text));
            EXPECT_TRUE(contains(text, order == eByteOrder::eBigEndian ? "BigEndian=\"true\"" : "BigEndian=\"false\""));
            EXPECT_TRUE(contains(text, channels > 1 ? "Interleaved=\"true\"" : "Interleaved=\"false\""));
        }
    }
}
