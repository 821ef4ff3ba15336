// How much of a file a region reads, as the system counts it.
#include "ORLIXImageIO/CutImages.h"
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyTiff.h"

#include <fcntl.h>
#include <unistd.h>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

constexpr unsigned long g_kib = 1ul << 10;
/// What asking for the count reads itself, and the windows of a file that directories are read from.
constexpr unsigned long g_directoryBytes = 96 * g_kib;

/// Bytes that this thread has read so far; nothing where the system doesn't tell.
std::optional<unsigned long> bytesRead()
{
    std::ifstream stream("/proc/thread-self/io");
    std::string word;
    unsigned long bytes = 0;
    return stream >> word >> bytes && word == "rchar:" ? std::optional(bytes) : std::nullopt;
}

template <class TWork>
unsigned long bytesReadBy(TWork&& work)
{
    const unsigned long before = bytesRead().value();
    work();
    return bytesRead().value() - before;
}

class RegionBytesTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!bytesRead()) {
            GTEST_SKIP() << "this system doesn't count what a thread reads";
        }
    }

    const TestFolder m_folder;
};

constexpr unsigned long g_width = 65536, g_height = 32768, g_tile = 512, g_tileBytes = g_tile * g_tile * 2;
constexpr unsigned long g_tilesAcross = g_width / g_tile, g_tiles = g_tilesAcross * (g_height / g_tile);
constexpr unsigned long g_tablesBytes = g_tiles * 16;

unsigned short pixelAt(unsigned long x, unsigned long y)
{
    return static_cast<unsigned short>(x * 7 + y * 13);
}

// 4 GiB of tiles of UInt16, all holes but for those in `filled`.
void writeHugeFile(const boost::filesystem::path& file, const std::vector<unsigned long>& filled)
{
    constexpr unsigned long start = 1ul << 20; // behind the directory
    std::vector<std::uint64_t> offsets, sizes(g_tiles, g_tileBytes);
    for (unsigned long tile = 0; tile < g_tiles; ++tile) {
        offsets.push_back(start + tile * g_tileBytes);
    }
    TinyTiff tiff(false, true);
    tiff.beginPage();
    addPageTags(tiff, g_width, g_height, 16, 1, 1);
    tiff.addLong(g_tagTileWidth, g_tile);
    tiff.addLong(g_tagTileHeight, g_tile);
    tiff.addLong8s(g_tagTileOffsets, offsets);
    tiff.addLong8s(g_tagTileBytes, sizes);
    tiff.endPage();
    ASSERT_LT(tiff.getSize(), start);
    putContent(file, tiff.getData());
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_GE(descriptor, 0);
    ASSERT_EQ(0, ::ftruncate(descriptor, static_cast<off_t>(start + g_tiles * g_tileBytes)));
    for (const unsigned long tile : filled) {
        std::vector<unsigned short> pixels;
        const unsigned long x0 = tile % g_tilesAcross * g_tile, y0 = tile / g_tilesAcross * g_tile;
        for (unsigned long i = 0; i < g_tile * g_tile; ++i) {
            pixels.push_back(pixelAt(x0 + i % g_tile, y0 + i / g_tile));
        }
        ASSERT_EQ(static_cast<ssize_t>(g_tileBytes),
                  ::pwrite(descriptor, pixels.data(), g_tileBytes, static_cast<off_t>(offsets[tile])));
    }
    ::close(descriptor);
}

} // namespace

TEST_F(RegionBytesTest, AFewTilesOfFourGigabytes)
{
    // Around the corner (64512, 31744) meet four tiles, whose pixels lie beyond 32-bit offsets.
    const unsigned long corner = 62 * g_tilesAcross + 126;
    const std::vector<unsigned long> around = {corner - g_tilesAcross - 1, corner - g_tilesAcross, corner - 1, corner};
    writeHugeFile(m_folder / "huge.tif", around);
    for (const unsigned long tiles : {1, 4}) {
        const RegionOffsets first = {64512ul - (tiles == 4 ? 30 : 0), 31744ul - (tiles == 4 ? 20 : 0), 0, 0, 0};
        ReadOptions options;
        options.limits.maxBytes = 2 * g_tileBytes; // nowhere near 4 GiB of memory
        ImagePtr image;
        const unsigned long bytes =
            bytesReadBy([&] { image = readRegion(m_folder / "huge.tif", first, {.x = 64, .y = 64}, options); });
        EXPECT_LE(bytes, tiles * g_tileBytes + g_tablesBytes + g_directoryBytes);
        EXPECT_GE(bytes, tiles * g_tileBytes);
        unsigned long wrong = 0;
        forEachPixel(*image,
                     [&](const Position& p) { wrong += valueAt(*image, p) != pixelAt(first.x + p.x, first.y + p.y); });
        EXPECT_EQ(0u, wrong);
    }
}

// 100 plans of 512 KiB.
TEST_F(RegionBytesTest, TheRowsAndPlansOfARegion)
{
    const ImagePtr image = filledImage(*geometry3d(eImageBufferType::UInt8, 1024, 512, 100), 1);
    WriteOptions options;
    options.description = eTiffDescription::eImageJ; // one directory, so that pixels alone count
    writeImage(m_folder / "stack.tif", image, options);
    const auto bytesOf = [&](const RegionOffsets& offsets, const RegionSizes& sizes) {
        return bytesReadBy([&] { (void)readRegion(m_folder / "stack.tif", offsets, sizes); });
    };
    EXPECT_LE(bytesOf({.z = 50}, {.z = 1}), 512 * g_kib + g_directoryBytes);
    EXPECT_LE(bytesOf({.y = 500, .z = 10}, {.y = 8, .z = 80}), 80 * 16 * g_kib + g_directoryBytes);
    EXPECT_LE(bytesOf({.y = 500, .z = 99}, {.x = 3, .y = 8}), 8 * g_kib + g_directoryBytes);
}

TEST_F(RegionBytesTest, TheColumnsOfLongRows)
{
    writeImage(m_folder / "long.tif", filledImage(*geometry2d(eImageBufferType::UInt8, 1 << 20, 16), 1));
    const unsigned long bytes =
        bytesReadBy([&] { (void)readRegion(m_folder / "long.tif", {.x = 1 << 19}, {.x = 100}); });
    EXPECT_LE(bytes, 16 * 16 * g_kib + g_directoryBytes);
}

// Of ten strips of a MiB each, under a compression that doesn't make them smaller.
TEST_F(RegionBytesTest, TheStripsOfARegion)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 1024, 10240));
    forEachPixel(*image, [&](const Position& p) { setValue(*image, p, static_cast<double>(hashOf(p, 5) >> 56)); });
    WriteOptions options;
    options.compression = eTiffCompression::eDeflate;
    options.bPredictor = false;
    writeImage(m_folder / "strips.tif", image, options);
    const unsigned long bytes =
        bytesReadBy([&] { (void)readRegion(m_folder / "strips.tif", {.y = 5000}, {.x = 9, .y = 9}); });
    EXPECT_LE(bytes, 1100 * g_kib + g_directoryBytes);
    EXPECT_GE(bytes, 1000 * g_kib);
}

TEST_F(RegionBytesTest, TheFirstRowsOfAPng)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 1024, 4096));
    forEachPixel(*image, [&](const Position& p) { setValue(*image, p, static_cast<double>(hashOf(p, 5) >> 56)); });
    writeImage(m_folder / "a.png", image);
    const unsigned long bytes =
        bytesReadBy([&] { (void)readRegion(m_folder / "a.png", {.y = 100}, {.x = 9, .y = 9}); });
    EXPECT_LE(bytes, 110 * g_kib + 64 * g_kib + g_directoryBytes);
}
