// Files for plain ImageJ: its description, its order of pages, its way to lie in a file, and what it can't read.
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"

#include <boost/make_shared.hpp>

#include <sys/mman.h>
#include <tiffio.h>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

WriteOptions imageJOptions(const eTiffCompression& compression = {}, bool bBigEndian = false)
{
    WriteOptions options;
    options.description = eTiffDescription::eImageJ;
    options.compression = compression;
    options.byteOrder = bBigEndian ? eByteOrder::eBigEndian : eByteOrder::eLittleEndian;
    return options;
}

boost::shared_ptr<const GeometricCalibration> calibrationIn(const std::string& unit, float x, float y, float z)
{
    const auto calibration = boost::make_shared<GeometricCalibration>();
    calibration->init3d(unit, x, y, z, 0, 0, 0);
    return calibration;
}

// Of the first page, and where the pixels of each page begin.
struct Layout
{
    std::string description;
    float perUnitX = 0, perUnitY = 0;
    std::uint16_t unit = 0;
    std::vector<std::uint64_t> offsets;
};

Layout layoutOf(const boost::filesystem::path& file)
{
    Layout layout;
    TIFF* const tiff = TIFFOpen(file.c_str(), "r");
    if (!tiff) {
        ADD_FAILURE() << "libtiff can't open it";
        return layout;
    }
    char* text = nullptr;
    TIFFGetField(tiff, TIFFTAG_IMAGEDESCRIPTION, &text);
    layout.description = text ? text : "";
    TIFFGetField(tiff, TIFFTAG_XRESOLUTION, &layout.perUnitX);
    TIFFGetField(tiff, TIFFTAG_YRESOLUTION, &layout.perUnitY);
    TIFFGetField(tiff, TIFFTAG_RESOLUTIONUNIT, &layout.unit);
    do {
        EXPECT_EQ(1u, TIFFNumberOfStrips(tiff));
        layout.offsets.push_back(TIFFGetStrileOffset(tiff, 0));
    } while (TIFFReadDirectory(tiff) == 1);
    TIFFClose(tiff);
    return layout;
}

std::string descriptionOf(const ImagePtr& image, const boost::shared_ptr<const GeometricCalibration>& calibration = {})
{
    const TestFolder folder;
    image->setGeometricCalibration(calibration);
    writeImage(folder / "a.tif", image, imageJOptions());
    return layoutOf(folder / "a.tif").description;
}

class ImageJTypeTest : public ::testing::TestWithParam<eImageBufferType::domain>
{};

} // namespace

TEST_P(ImageJTypeTest, ComesBack)
{
    const eImageBufferType type = GetParam();
    const bool bBinary = type == eImageBufferType::eBufferBinary;
    const eImageBufferType expected = bBinary || type == eImageBufferType::eBufferUInt8Like ? eImageBufferType::UInt8
                                      : type == eImageBufferType::eBufferUInt16Like         ? eImageBufferType::UInt16
                                                                                            : GetParam();
    const TestFolder folder;
    const ImagePtr image = filledImage(*geometry5d(type, 21, 9, 3, 2, 2), 11);
    setValue(*image, {0, 0, 0, 0, 0}, getMinValue(type));
    setValue(*image, {1, 0, 0, 0, 0}, getMaxValue(type));
    image->setGeometricCalibration(calibrationIn("\u00b5m", 0.3f, 0.7f, 2.5f));
    for (const auto compression :
         {eTiffCompression::eNone, eTiffCompression::ePackBits, eTiffCompression::eLzw, eTiffCompression::eDeflate}) {
        for (const bool bBigEndian : {false, true}) {
            writeImage(folder / "a.tif", image, imageJOptions(compression, bBigEndian));
            const ImageFileInfo info = readImageInfo(folder / "a.tif");
            EXPECT_EQ("ImageJ", info.metadata);
            EXPECT_EQ(12u, info.pages);
            EXPECT_EQ(bBigEndian, info.bBigEndian);
            const ImagePtr found = readImage(folder / "a.tif");
            ASSERT_EQ(std::string("21x9x3x2x2 ") + getBufferTypeName(expected), found->getGeometry().toString());
            unsigned long wrong = 0;
            forEachPixel(*image, [&](const Position& p) {
                wrong += valueAt(*image, p) * (bBinary ? 255 : 1) != valueAt(*found, p);
            });
            EXPECT_EQ(0u, wrong) << compression << bBigEndian;
            const auto calibration = found->getGeometricCalibration();
            ASSERT_TRUE(calibration);
            EXPECT_EQ("\u00b5m", calibration->getUnit());
            EXPECT_NEAR(0.3, calibration->getPixelSizeX(), 1e-7);
            EXPECT_NEAR(0.7, calibration->getPixelSizeY(), 1e-7);
            EXPECT_EQ(2.5f, calibration->getPixelSizeZ());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllTypes, ImageJTypeTest,
                         ::testing::Values(eImageBufferType::UInt8, eImageBufferType::UInt16, eImageBufferType::Int16,
                                           eImageBufferType::Real32, eImageBufferType::eBufferBinary,
                                           eImageBufferType::eBufferUInt8Like, eImageBufferType::eBufferUInt16Like),
                         [](const auto& info) { return getBufferTypeName(info.param); });

// ImageJ looks at the first directory alone, and takes the pixels of all pages to follow, channels first.
TEST(ImageJWriterTest, PixelsOfAllPagesTouch)
{
    const TestFolder folder;
    const ImagePtr image = filledImage(*geometry5d(eImageBufferType::Int16, 7, 5, 3, 2, 2), 4);
    for (const bool bBigEndian : {false, true}) {
        writeImage(folder / "a.tif", image, imageJOptions({}, bBigEndian));
        const std::string content = contentOf(folder / "a.tif");
        const Layout layout = layoutOf(folder / "a.tif");
        ASSERT_EQ(12u, layout.offsets.size());
        EXPECT_EQ(content.size(), layout.offsets[0] + 12 * 70);
        unsigned long wrong = 0;
        forEachPixel(*image, [&](const Position& p) {
            const unsigned long page = (p.t * 3 + p.z) * 2 + p.c;
            EXPECT_EQ(layout.offsets[0] + page * 70, layout.offsets[page]);
            const std::size_t at = layout.offsets[0] + page * 70 + (p.y * 7 + p.x) * 2;
            const int first = static_cast<unsigned char>(content[at]),
                      second = static_cast<unsigned char>(content[at + 1]);
            const int stored = bBigEndian ? first * 256 + second : second * 256 + first;
            wrong += valueAt(*image, p) + 32768 != stored;
        });
        EXPECT_EQ(0u, wrong);
    }
}

TEST(ImageJWriterTest, DescriptionTellsAxesAndDisplayRange)
{
    EXPECT_EQ("ImageJ=1.53t\n", descriptionOf(filledImage(*geometry2d(eImageBufferType::UInt8, 4, 4), 1)));
    EXPECT_EQ("ImageJ=1.53t\nimages=3\nslices=3\nloop=false\n",
              descriptionOf(filledImage(*geometry3d(eImageBufferType::UInt8, 4, 4, 3), 1)));
    EXPECT_EQ(
        "ImageJ=1.53t\nimages=24\nchannels=2\nslices=3\nframes=4\nhyperstack=true\nmode=composite\nunit=\\u00B5m\n"
        "spacing=1.5\nloop=false\n",
        descriptionOf(filledImage(*geometry5d(eImageBufferType::UInt8, 4, 4, 3, 2, 4), 1),
                      calibrationIn("\u00b5m", 1, 1, 1.5f)));
    EXPECT_EQ("ImageJ=1.53t\nimages=2\nframes=2\nhyperstack=true\nloop=false\n",
              descriptionOf(filledImage(*geometry5d(eImageBufferType::UInt8, 4, 4, 1, 1, 2), 1)));
    EXPECT_EQ("ImageJ=1.53t\nimages=7\nchannels=7\nhyperstack=true\nmode=composite\nloop=false\n",
              descriptionOf(filledImage(*geometry5d(eImageBufferType::UInt8, 4, 4, 1, 7, 1), 1)));
    EXPECT_EQ("ImageJ=1.53t\nimages=8\nchannels=8\nhyperstack=true\nmode=grayscale\nloop=false\n",
              descriptionOf(filledImage(*geometry5d(eImageBufferType::UInt8, 4, 4, 1, 8, 1), 1)));
    const ImagePtr real = createImage(*geometry2d(eImageBufferType::Real32, 4, 1));
    const float values[] = {-1.5f, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(), 7};
    std::memcpy(planData<float>(*real, 0, 0, 0), values, sizeof values);
    EXPECT_EQ("ImageJ=1.53t\nmin=-1.5\nmax=7\n", descriptionOf(real));
    const ImagePtr signed16 = createImage(*geometry2d(eImageBufferType::Int16, 2, 1));
    setValue(*signed16, {0, 0, 0, 0, 0}, -100);
    setValue(*signed16, {1, 0, 0, 0, 0}, 300);
    EXPECT_EQ("ImageJ=1.53t\ncf=0\nc0=-32768.0\nc1=1.0\nvunit=Gray Value\nmin=32668\nmax=33068\n",
              descriptionOf(signed16));
}

TEST(ImageJWriterTest, DisplayRangeIsThatOfAllPixels)
{
    const auto image = [] {
        const ImagePtr made = createImage(*geometry5d(eImageBufferType::UInt16, 5, 4, 3, 2, 2));
        forEachPixel(*made, [&](const Position& p) { setValue(*made, p, 1000); });
        return made;
    };
    EXPECT_FALSE(contains(descriptionOf(image()), "min=")) << "there is none of equal values";
    for (const Position& last : {Position{4, 0, 0, 0, 0}, Position{0, 3, 0, 0, 0}, Position{0, 0, 2, 0, 0},
                                 Position{0, 0, 0, 1, 0}, Position{0, 0, 0, 0, 1}}) {
        const ImagePtr higher = image(), lower = image();
        setValue(*higher, last, 2000);
        EXPECT_TRUE(contains(descriptionOf(higher), "min=1000\nmax=2000\n"));
        setValue(*lower, last, 500);
        EXPECT_TRUE(contains(descriptionOf(lower), "min=500\nmax=1000\n"));
    }
}

TEST(ImageJWriterTest, DistancesOfSlicesAreToldWhereThereAreAny)
{
    const ImagePtr image = filledImage(*geometry3d(eImageBufferType::UInt8, 4, 4, 3), 1);
    const auto flat = boost::make_shared<GeometricCalibration>();
    flat->init2d("mm", 0.5f, 0.5f, 0, 0);
    EXPECT_FALSE(contains(descriptionOf(image, flat), "spacing"));
    EXPECT_FALSE(contains(descriptionOf(image, calibrationIn("mm", 0.5f, 0.5f, 0)), "spacing"));
    EXPECT_TRUE(contains(descriptionOf(image, calibrationIn("mm", 0.5f, 0.5f, 0.1f)), "spacing=0.1\n"));
}

TEST(ImageJWriterTest, UnitsAndResolutions)
{
    const TestFolder folder;
    struct Case
    {
        std::string unit, line;
        unsigned tag;
    };
    for (const Case& c : {Case{"px", "unit=pixel\n", 1}, Case{"mm", "unit=mm\n", 1}, Case{"cm", "unit=cm\n", 3},
                          Case{"inch", "unit=inch\n", 2}, Case{"a\nb\\c", "unit=a\\u000Ab\\u005Cc\n", 1},
                          Case{"\u212b", "unit=\\u212B\n", 1}}) {
        for (const auto compression : {eTiffCompression::eNone, eTiffCompression::eLzw}) {
            const ImagePtr image = filledImage(*geometry3d(eImageBufferType::UInt8, 4, 4, 2), 1);
            image->setGeometricCalibration(calibrationIn(c.unit, 0.25f, 0.5f, 2));
            writeImage(folder / "a.tif", image, imageJOptions(compression));
            const Layout layout = layoutOf(folder / "a.tif");
            EXPECT_TRUE(contains(layout.description, c.line));
            EXPECT_EQ(4.f, layout.perUnitX);
            EXPECT_EQ(2.f, layout.perUnitY);
            EXPECT_EQ(c.tag, layout.unit);
            const auto found = readImage(folder / "a.tif")->getGeometricCalibration();
            ASSERT_TRUE(found) << c.unit;
            EXPECT_EQ(*calibrationIn(c.unit, 0.25f, 0.5f, 2), *found) << c.unit;
        }
    }
    for (const float size : {1e9f, 123456.f, 3.7f, 0.0031f, 3e-10f}) {
        const ImagePtr image = filledImage(*geometry2d(eImageBufferType::UInt8, 4, 4), 1);
        image->setGeometricCalibration(calibrationIn("mm", size, 1, 1));
        writeImage(folder / "a.tif", image, imageJOptions());
        EXPECT_FLOAT_EQ(size, readImage(folder / "a.tif")->getGeometricCalibration()->getPixelSizeX());
    }
}

TEST(ImageJWriterTest, UnitsAreWrittenInUtf16)
{
    const auto lineOf = [](const std::string& unit) {
        const std::string text =
            descriptionOf(filledImage(*geometry2d(eImageBufferType::UInt8, 4, 4), 1), calibrationIn(unit, 1, 1, 1));
        const std::size_t start = text.find("unit=");
        return text.substr(start, text.find('\n', start) - start);
    };
    EXPECT_EQ("unit=\\u00B5\\u20AC", lineOf("\u00b5\u20ac"));
    EXPECT_EQ("unit=\\uD83D\\uDD2Cs", lineOf("\U0001f52cs"));
    EXPECT_EQ("unit=\\u00E9t\\u00E9", lineOf("\xe9t\xe9")) << "no UTF-8, so Latin-1";
}

TEST(ImageJWriterTest, ColoursAreSamplesWhereImageJHasThem)
{
    const TestFolder folder;
    for (const unsigned long channels : {3ul, 4ul}) {
        for (const auto compression : {eTiffCompression::eNone, eTiffCompression::eDeflate}) {
            const ImagePtr image = filledImage(*geometry5d(eImageBufferType::UInt8, 11, 6, 2, channels, 2), 5);
            writeImage(folder / "a.tif", image, imageJOptions(compression));
            EXPECT_EQ(channels == 3 ? 4u : 16u, readImageInfo(folder / "a.tif").pages);
            EXPECT_TRUE(areSame(*image, *readImage(folder / "a.tif")));
        }
    }
}

TEST(ImageJWriterTest, WhatImageJCannotReadIsRefused)
{
    const TestFolder folder;
    const auto refusal = [&](const eImageBufferType& type, unsigned long channels,
                             const std::function<void(WriteOptions&)>& choose) {
        WriteOptions options = imageJOptions();
        choose(options);
        const ImagePtr image = filledImage(*geometry5d(type, 4, 4, 1, channels, 1), 1);
        return failureOf([&] { writeImage(folder / "a.tif", image, options); });
    };
    const auto nothing = [](WriteOptions&) {};
    for (const eImageBufferType type : {eImageBufferType::Int8, eImageBufferType::Int32, eImageBufferType::UInt32,
                                        eImageBufferType::eBufferUInt32Like}) {
        EXPECT_TRUE(contains(refusal(type, 1, nothing),
                             std::string("ImageJ can't read elements of ") + getBufferTypeName(type) + ": convert"));
    }
    const eImageBufferType grey = eImageBufferType::UInt8;
    EXPECT_TRUE(contains(refusal(grey, 1, [](WriteOptions& o) { o.bTiled = true; }), "can't read tiles"));
    EXPECT_TRUE(contains(refusal(grey, 1, [](WriteOptions& o) { o.compression = eTiffCompression::eZstd; }),
                         "can't read this compression"));
    EXPECT_TRUE(contains(refusal(grey, 1, [](WriteOptions& o) { o.bigTiff = eBigTiff::eAlways; }), "64-bit offsets"));
    const auto rgb = [](WriteOptions& o) { o.channelLayout = eChannelLayout::eRgbSamples; };
    EXPECT_TRUE(contains(refusal(grey, 4, rgb), "samples of a pixel"));
    EXPECT_TRUE(contains(refusal(eImageBufferType::UInt16, 3, rgb), "samples of a pixel"));
    const ImagePtr image = filledImage(*geometry2d(grey, 4, 4), 1);
    image->setGeometricCalibration(calibrationIn("m", 1e-10f, 1, 1));
    EXPECT_TRUE(contains(failureOf([&] { writeImage(folder / "a.tif", image, imageJOptions()); }), "another unit"));
    EXPECT_TRUE(folder.getNames().empty());
}

// Where 32-bit offsets end there is one directory alone. The pixels are pages that were never touched, and the write is
// stopped once it is seen how the file begins.
TEST(ImageJWriterTest, OneDirectoryPastFourGibibytes)
{
    const TestFolder folder;
    constexpr unsigned long side = 1ul << 15;
    for (const unsigned long plans : {3ul, 5ul}) {
        const unsigned long bytes = side * side * plans;
        void* const memory =
            ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        ASSERT_NE(MAP_FAILED, memory);
        const ImagePtr image = wrapImage(*geometry3d(eImageBufferType::UInt8, side, side, plans), memory,
                                         {side, side * side, bytes, bytes}, nullptr);
        std::string start;
        WriteOptions options = imageJOptions();
        options.progress = [&](unsigned long, unsigned long) {
            start = contentOf(folder / folder.getNames().front()).substr(0, 1000);
            return false;
        };
        EXPECT_TRUE(contains(failureOf([&] { writeImage(folder / "a.tif", image, options); }), "stopped"));
        EXPECT_TRUE(folder.getNames().empty());
        EXPECT_TRUE(contains(start, "images=" + std::to_string(plans) + "\n"));
        ASSERT_EQ(std::string("II*\0\x08\0\0\0", 8), start.substr(0, 8));
        const std::size_t link = 10 + 12 * static_cast<unsigned char>(start[8]);
        EXPECT_EQ(plans == 5, start.substr(link, 4) == std::string(4, '\0'));
        options.compression = eTiffCompression::ePackBits;
        if (plans == 5) {
            EXPECT_TRUE(contains(failureOf([&] { writeImage(folder / "a.tif", image, options); }),
                                 "compressed pixels that could pass 4 GiB"));
        }
        ::munmap(memory, bytes);
    }
}
