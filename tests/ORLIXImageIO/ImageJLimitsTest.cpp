// Where sizes and pixel sizes pass what plain ImageJ can be told: the last that is written, and the first that is
// refused.
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"

#include <boost/make_shared.hpp>

#include <sys/mman.h>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

// Stops at the first question, when nothing but the start of the file is there.
std::string failureOfWriting(const ImagePtr& image, const eTiffCompression& compression)
{
    const TestFolder folder;
    WriteOptions options;
    options.description = eTiffDescription::eImageJ;
    options.compression = compression;
    options.progress = [](unsigned long, unsigned long) { return false; };
    return failureOf([&] { writeImage(folder / "a.tif", image, options); });
}

// Over memory that is never touched beyond the first plans.
std::string failureOfWriting(const BaseImageGeometry& geometry,
                             const eTiffCompression& compression = eTiffCompression::eLzw)
{
    const unsigned long plan = geometry.getSizeX() * geometry.getSizeY(), bytes = plan * geometry.getSizeZ();
    void* const memory =
        ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    EXPECT_NE(MAP_FAILED, memory);
    const ImagePtr image = wrapImage(geometry, memory, {geometry.getSizeX(), plan, bytes, bytes}, nullptr);
    const std::string text = failureOfWriting(image, compression);
    ::munmap(memory, bytes);
    return text;
}

} // namespace

// Of 2^32 bytes less 1 MiB, each page takes 1 KiB for its directory, each strip 16 bytes for being listed, and its
// pixels one and a half times.
TEST(ImageJLimitsTest, CompressedPixelsDirectoriesAndStripsCount)
{
    const std::string refused = "compressed pixels that could pass 4 GiB", stopped = "stopped";
    constexpr unsigned long room = (1ul << 32) - 1 - (1ul << 20);
    constexpr unsigned long pages = room / (1024 + 16 + 1);
    EXPECT_TRUE(contains(failureOfWriting(*geometry3d(eImageBufferType::UInt8, 1, 1, pages)), stopped));
    EXPECT_TRUE(contains(failureOfWriting(*geometry3d(eImageBufferType::UInt8, 1, 1, pages + 1)), refused));

    constexpr unsigned long rows = 2730, rowBytes = (1ul << 20) - 1; // a strip each
    constexpr unsigned long listed = 1024 + rows * (rowBytes + rowBytes / 2 + 16);
    static_assert(listed > room && listed - 16 * rows <= room);
    EXPECT_TRUE(contains(failureOfWriting(*geometry2d(eImageBufferType::UInt8, rowBytes, rows)), refused));
    EXPECT_TRUE(contains(failureOfWriting(*geometry2d(eImageBufferType::UInt8, rowBytes, rows - 1)), stopped));
}

TEST(ImageJLimitsTest, PlansBelow4GiB)
{
    const auto failure = [](unsigned long width) {
        return failureOfWriting(*geometry2d(eImageBufferType::UInt8, width, 1ul << 16), eTiffCompression::eNone);
    };
    EXPECT_TRUE(contains(failure((1ul << 16) - 2), "stopped"));
    EXPECT_TRUE(contains(failure((1ul << 16) - 1), "plans of 4 GiB and more"));
}

TEST(ImageJLimitsTest, PixelSizesOfBothAxes)
{
    const auto failure = [](float sizeX, float sizeY) {
        const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 2, 2));
        auto calibration = boost::make_shared<GeometricCalibration>();
        calibration->init2d("mm", sizeX, sizeY, 0, 0);
        image->setGeometricCalibration(calibration);
        return failureOfWriting(image, eTiffCompression::eNone);
    };
    const std::string refused = "pixel sizes below 2.5e-10 or above 1e9 of their unit";
    EXPECT_TRUE(contains(failure(2.6e-10f, 0.99e9f), "stopped"));
    EXPECT_TRUE(contains(failure(0.99e9f, 2.6e-10f), "stopped"));
    for (const float size : {2.4e-10f, 1.01e9f}) {
        EXPECT_TRUE(contains(failure(size, 1), refused));
        EXPECT_TRUE(contains(failure(1, size), refused));
    }
}
