// Writing and reading back gives the same image, whatever the options.
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"

#include <boost/make_shared.hpp>
#include <rapidcheck/gtest.h>

#include <sys/mman.h>
#include <tiffio.h>

#include <limits>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

eImageBufferType anyType()
{
    return *rc::gen::elementOf(g_allBufferTypes);
}

boost::shared_ptr<const GeometricCalibration> anyCalibration()
{
    static const std::vector<std::string> units = {"px", "\u00b5m", "micron", "mm", "inch", "furlong", "", "a<b&\"c\""};
    auto calibration = boost::make_shared<GeometricCalibration>();
    const auto number = [](float low) { return low + static_cast<float>(*rc::gen::inRange(1, 1 << 20)) * 0.00037f; };
    switch (*rc::gen::inRange(0, 3)) {
    case 0: return nullptr;
    case 1:
        calibration->init2d(*rc::gen::elementOf(units), number(0), number(0), number(-50), number(-50), number(-1));
        return calibration;
    default:
        calibration->init3d(*rc::gen::elementOf(units), number(0), number(0), number(0), number(-50), number(-50),
                            number(-50), number(-1), number(-1), number(-1));
        return calibration;
    }
}

BaseImageGeometry anyGeometry(const eImageBufferType& type)
{
    VolumeGeometry volume;
    if (*rc::gen::arbitrary<bool>()) {
        volume.init3d(*rc::gen::inRange(1ul, 4ul));
    }
    ColorGeometry color;
    color.initChannels(*rc::gen::inRange(1ul, 6ul));
    TemporalGeometry temporal;
    if (*rc::gen::arbitrary<bool>()) {
        temporal.initSequence(*rc::gen::inRange(1ul, 4ul));
    }
    return {type, *rc::gen::inRange(1ul, 70ul), *rc::gen::inRange(1ul, 40ul), volume, color, temporal};
}

WriteOptions anyOptions(const BaseImageGeometry& geometry)
{
    WriteOptions options;
    options.compression = static_cast<eTiffCompression::domain>(*rc::gen::inRange(0, 6));
    options.bPredictor = *rc::gen::arbitrary<bool>();
    options.bTiled = *rc::gen::arbitrary<bool>();
    options.tileSize = *rc::gen::element(16ul, 32ul, 64ul);
    options.bigTiff = static_cast<eBigTiff::domain>(*rc::gen::inRange(0, 2));
    options.byteOrder = static_cast<eByteOrder::domain>(*rc::gen::inRange(0, 2));
    const bool bRgb = (geometry.getSizeC() == 3 || geometry.getSizeC() == 4) &&
                      geometry.getBufferType() != eImageBufferType::eBufferBinary;
    options.channelLayout = static_cast<eChannelLayout::domain>(*rc::gen::inRange(0, bRgb ? 3 : 2));
    return options;
}

void requireSame(const BaseImage& expected, const BaseImage& found)
{
    const ::testing::AssertionResult result = areSame(expected, found);
    if (!result) {
        RC_FAIL(result.message());
    }
}

} // namespace

RC_GTEST_PROP(RoundTripTest, TiffKeepsEverything, ())
{
    const TestFolder folder;
    const BaseImageGeometry geometry = anyGeometry(anyType());
    const ImagePtr image = filledImage(geometry, *rc::gen::arbitrary<std::uint64_t>());
    image->setGeometricCalibration(anyCalibration());
    const WriteOptions options = anyOptions(geometry);
    writeImage(folder / "a.tif", image, options);
    requireSame(*image, *readImage(folder / "a.tif"));

    const ImageFileInfo info = readImageInfo(folder / "a.tif");
    RC_ASSERT(info.geometry.toString() == geometry.toString());
    RC_ASSERT(info.metadata == "OME-XML");
    RC_ASSERT(info.bTiled == options.bTiled);
    RC_ASSERT(info.bBigTiff == (options.bigTiff == eBigTiff::eAlways));
    RC_ASSERT(info.bBigEndian == (options.byteOrder == eByteOrder::eBigEndian));
    RC_ASSERT(folder.getNames() == std::vector<std::string>{"a.tif"});
}

RC_GTEST_PROP(RoundTripTest, PngKeepsEverything, ())
{
    const TestFolder folder;
    const eImageBufferType type =
        *rc::gen::element(eImageBufferType::UInt8, eImageBufferType::UInt16, eImageBufferType::eBufferBinary,
                          eImageBufferType::eBufferUInt8Like, eImageBufferType::eBufferUInt16Like);
    VolumeGeometry volume;
    if (*rc::gen::arbitrary<bool>()) {
        volume.init3d(1);
    }
    TemporalGeometry temporal;
    if (*rc::gen::arbitrary<bool>()) {
        temporal.initSequence(1);
    }
    ColorGeometry color;
    color.initChannels(type == eImageBufferType::eBufferBinary ? 1 : *rc::gen::inRange(1ul, 5ul));
    const ImagePtr image =
        filledImage({type, *rc::gen::inRange(1ul, 200ul), *rc::gen::inRange(1ul, 150ul), volume, color, temporal},
                    *rc::gen::arbitrary<std::uint64_t>());
    image->setGeometricCalibration(anyCalibration());
    writeImage(folder / "a.png", image);
    requireSame(*image, *readImage(folder / "a.png"));
}

// Wrapped memory whose rows don't touch, and whose plans lie in any order of axes.
RC_GTEST_PROP(RoundTripTest, StridesAreFollowed, ())
{
    const TestFolder folder;
    const BaseImageGeometry geometry = anyGeometry(anyType());
    const unsigned long row = geometry.getSizeX() + *rc::gen::inRange(0ul, 5ul);
    const unsigned long c = row * geometry.getSizeY(), t = c * geometry.getSizeC(), z = t * geometry.getSizeT();
    std::vector<std::uint32_t> memory(z * geometry.getSizeZ());
    const ImagePtr image = wrapImage(geometry, memory.data(), {row, z, c, t}, nullptr);
    fill(*image, *rc::gen::arbitrary<std::uint64_t>());
    const std::vector<std::uint32_t> before = memory;
    writeImage(folder / "a.tif", image, anyOptions(geometry));
    requireSame(*image, *readImage(folder / "a.tif"));
    RC_ASSERT(memory == before); // swapping and differencing happen elsewhere
}

namespace {

class WrittenTypeTest : public ::testing::TestWithParam<eImageBufferType::domain>
{};

} // namespace

TEST_P(WrittenTypeTest, LimitsSurviveEveryCompression)
{
    const TestFolder folder;
    const ImagePtr image = createImage(*geometry2d(GetParam(), 64, 3));
    forEachPixel(*image, [&](const Position& p) {
        setValue(*image, p, (p.x + p.y) % 2 ? getMinValue(GetParam()) : getMaxValue(GetParam()));
    });
    for (int compression = 0; compression < 6; ++compression) {
        WriteOptions options;
        options.compression = static_cast<eTiffCompression::domain>(compression);
        writeImage(folder / "a.tif", image, options);
        EXPECT_TRUE(areSame(*image, *readImage(folder / "a.tif"))) << compression;
    }
}

INSTANTIATE_TEST_SUITE_P(AllTypes, WrittenTypeTest, ::testing::ValuesIn(g_allBufferTypes),
                         [](const auto& info) { return getBufferTypeName(info.param); });

TEST(RoundTripTest, FloatsThatAreNoNumbersSurvive)
{
    const TestFolder folder;
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::Real32, 5, 1));
    const float values[] = {std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity(),
                            std::numeric_limits<float>::quiet_NaN(), -0.f, std::numeric_limits<float>::denorm_min()};
    std::memcpy(planData<float>(*image, 0, 0, 0), values, sizeof values);
    writeImage(folder / "a.tiff", image);
    EXPECT_EQ(0, std::memcmp(planData<float>(*readImage(folder / "a.tiff"), 0, 0, 0), values, sizeof values));
}

TEST(RoundTripTest, OddCalibrationsSurvive)
{
    const TestFolder folder;
    const ImagePtr image = filledImage(*geometry3d(eImageBufferType::UInt8, 4, 4, 2), 1);
    const float nan = std::numeric_limits<float>::quiet_NaN();
    auto calibration = boost::make_shared<GeometricCalibration>();
    calibration->init3d("\u00b5m", 0, -1, std::numeric_limits<float>::infinity(), 1e-30f, 0, 0);
    image->setGeometricCalibration(calibration);
    writeImage(folder / "a.tif", image);
    EXPECT_TRUE(areSame(*image, *readImage(folder / "a.tif")));

    calibration = boost::make_shared<GeometricCalibration>();
    calibration->init2d("mm", 0.1f, 0.3f, nan, 0);
    image->setGeometricCalibration(calibration);
    writeImage(folder / "a.tif", image);
    EXPECT_TRUE(std::isnan(readImage(folder / "a.tif")->getGeometricCalibration()->getOriginX()));
}

TEST(RoundTripTest, SameImageGivesSameBytes)
{
    const TestFolder folder;
    const ImagePtr image = filledImage(*geometry3d(eImageBufferType::UInt16, 33, 21, 5), 7);
    for (const char* const ending : {"tif", "png"}) {
        const ImagePtr written =
            std::string(ending) == "png" ? filledImage(*geometry2d(eImageBufferType::UInt16, 9, 9), 1) : image;
        writeImage(folder / (std::string("a.") + ending), written);
        writeImage(folder / (std::string("b.") + ending), written);
        EXPECT_TRUE(contentOf(folder / (std::string("a.") + ending)) ==
                    contentOf(folder / (std::string("b.") + ending)));
    }
}

TEST(RoundTripTest, BinaryCountsEveryValueButZero)
{
    const TestFolder folder;
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::eBufferBinary, 11, 2));
    forEachPixel(*image,
                 [&](const Position& p) { setValue(*image, p, p.x % 3 ? 0 : 255.0 - static_cast<double>(p.x)); });
    for (const char* const name : {"a.tif", "a.png"}) {
        writeImage(folder / name, image);
        const ImagePtr found = readImage(folder / name);
        EXPECT_EQ(eImageBufferType::eBufferBinary, found->getBufferType());
        EXPECT_EQ(1u, readImageInfo(folder / name).bitsPerSample);
        forEachPixel(*found, [&](const Position& p) { EXPECT_EQ(p.x % 3 ? 0 : 1, valueAt(*found, p)); });
    }
}

// More pages than a directory table of 16 bits would count, and a stack that crosses many strips.
TEST(RoundTripTest, ManyPages)
{
    const TestFolder folder;
    const ImagePtr image = createImage(*geometry5d(eImageBufferType::UInt8, 2, 1, 10, 5, 60));
    fill(*image, 3);
    writeImage(folder / "a.tif", image);
    EXPECT_EQ(3000u, readImageInfo(folder / "a.tif").pages);
    EXPECT_TRUE(areSame(*image, *readImage(folder / "a.tif")));
}

namespace {

// How a file of so many GiB of zeros begins. The pixels are pages that were never touched, and the write is stopped
// once the first bytes are in the file: those that were gathered come later.
std::string startOfFile(unsigned long gibibytes, const eTiffCompression& compression)
{
    const TestFolder folder;
    constexpr unsigned long side = 1ul << 15;
    const unsigned long bytes = side * side * gibibytes;
    void* const memory =
        ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory == MAP_FAILED) {
        ADD_FAILURE() << "no address space";
        return {};
    }
    const ImagePtr image = wrapImage(*geometry3d(eImageBufferType::UInt8, side, side, gibibytes), memory,
                                     {side, side * side, bytes, bytes}, nullptr);
    std::string start;
    WriteOptions options;
    options.compression = compression;
    options.progress = [&](unsigned long, unsigned long) {
        start = contentOf(folder / folder.getNames().front()).substr(0, 4);
        return start.empty();
    };
    EXPECT_TRUE(contains(failureOf([&] { writeImage(folder / "a.tif", image, options); }), "stopped"));
    ::munmap(memory, bytes);
    return start;
}

const std::string g_classic("II*\0", 4), g_big("II+\0", 4);

} // namespace

// 32-bit offsets end at 4 GiB.
TEST(RoundTripTest, BigTiffWhereItIsNeeded)
{
    EXPECT_EQ(g_classic, startOfFile(3, eTiffCompression::eNone));
    EXPECT_EQ(g_big, startOfFile(4, eTiffCompression::eNone));
}

// How much a compression makes of pixels is known too late, and some grow.
TEST(RoundTripTest, BigTiffWhereCompressedPixelsCouldNeedIt)
{
    EXPECT_EQ(g_classic, startOfFile(2, eTiffCompression::ePackBits));
    EXPECT_EQ(g_big, startOfFile(3, eTiffCompression::ePackBits));
}

// A tile far larger than the image would take its memory and its time for nothing.
TEST(RoundTripTest, TilesAreNoLargerThanTheImage)
{
    const TestFolder folder;
    struct Case
    {
        unsigned long sizeX, sizeY, tileSize;
        std::uint32_t width, height;
    };
    for (const Case& one : {Case{20, 40, 4096, 32, 48}, Case{20, 40, 65520, 32, 48}, Case{32, 200, 64, 32, 64},
                            Case{200, 1, 64, 64, 16}, Case{64, 65, 64, 64, 64}}) {
        const ImagePtr image = filledImage(*geometry2d(eImageBufferType::UInt8, one.sizeX, one.sizeY), 1);
        WriteOptions options;
        options.bTiled = true;
        options.tileSize = one.tileSize;
        writeImage(folder / "a.tif", image, options);
        TIFF* const tiff = TIFFOpen((folder / "a.tif").c_str(), "r");
        ASSERT_TRUE(tiff);
        std::uint32_t width = 0, height = 0;
        TIFFGetField(tiff, TIFFTAG_TILEWIDTH, &width);
        TIFFGetField(tiff, TIFFTAG_TILELENGTH, &height);
        TIFFClose(tiff);
        EXPECT_EQ(one.width, width) << one.sizeX << " " << one.tileSize;
        EXPECT_EQ(one.height, height) << one.sizeY << " " << one.tileSize;
        EXPECT_TRUE(areSame(*image, *readImage(folder / "a.tif")));
    }
}

// The tags that programs read which know no OME-XML.
TEST(RoundTripTest, ResolutionsOfBothAxesAreWritten)
{
    const TestFolder folder;
    const ImagePtr image = filledImage(*geometry2d(eImageBufferType::UInt8, 4, 4), 1);
    const auto calibration = boost::make_shared<GeometricCalibration>();
    calibration->init2d("mm", 0.5f, 0.125f, 0, 0);
    image->setGeometricCalibration(calibration);
    writeImage(folder / "a.tif", image);
    TIFF* const tiff = TIFFOpen((folder / "a.tif").c_str(), "r");
    ASSERT_TRUE(tiff);
    float x = 0, y = 0;
    std::uint16_t unit = 0;
    TIFFGetField(tiff, TIFFTAG_XRESOLUTION, &x);
    TIFFGetField(tiff, TIFFTAG_YRESOLUTION, &y);
    TIFFGetField(tiff, TIFFTAG_RESOLUTIONUNIT, &unit);
    TIFFClose(tiff);
    EXPECT_EQ(20.f, x); // pixels a centimetre
    EXPECT_EQ(80.f, y);
    EXPECT_EQ(RESUNIT_CENTIMETER, unit);
}

TEST(RoundTripTest, RgbGoesIntoSamples)
{
    const TestFolder folder;
    const ImagePtr image = filledImage(*geometry5d(eImageBufferType::UInt8, 20, 10, 2, 3, 1), 5);
    writeImage(folder / "a.tif", image);
    EXPECT_EQ(2u, readImageInfo(folder / "a.tif").pages);
    const ImagePtr wide = filledImage(*geometry5d(eImageBufferType::UInt16, 20, 10, 2, 3, 1), 5);
    writeImage(folder / "b.tif", wide);
    EXPECT_EQ(6u, readImageInfo(folder / "b.tif").pages);
}
