// Between two questions whether to go on lie few pixels, whatever the codec and the layout.
#include "ORLIXIPL/ORLIXImageIO/ORLIXImageIO.h"
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFolder.h"

#include <cstring>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

struct Layout
{
    const char* name;
    const char* file;
    unsigned long width, height;
    eTiffCompression::domain compression = eTiffCompression::eNone;
    unsigned long tileSize = 0;
    unsigned long bytesWritten = 64ul << 10; ///< between two questions, on average
    unsigned long bytesRead = 64ul << 10;
};

void PrintTo(const Layout& layout, std::ostream* out)
{
    *out << layout.name;
}

// Tiles are decoded as a whole, and LZMA gathers 64 KiB of its own.
const Layout g_layouts[] = {
    {"Strips", "a.tif", 1024, 1024, eTiffCompression::eNone, 0, 256ul << 10, 256ul << 10},
    {"PackBits", "a.tif", 1024, 1024, eTiffCompression::ePackBits},
    {"Lzw", "a.tif", 1024, 1024, eTiffCompression::eLzw},
    {"Deflate", "a.tif", 1024, 1024, eTiffCompression::eDeflate},
    {"Zstd", "a.tif", 1024, 1024, eTiffCompression::eZstd},
    {"Lzma", "a.tif", 1024, 1024, eTiffCompression::eLzma},
    {"LongRowsDeflate", "a.tif", 1ul << 20, 2, eTiffCompression::eDeflate, 0, 64ul << 10, 1ul << 20},
    {"LongRowsLzma", "a.tif", 1ul << 20, 2, eTiffCompression::eLzma, 0, 128ul << 10, 1ul << 20},
    {"TilesLzw", "a.tif", 1024, 1024, eTiffCompression::eLzw, 1024, 64ul << 10, 1ul << 20},
    {"TilesDeflate", "a.tif", 1024, 1024, eTiffCompression::eDeflate, 1024, 64ul << 10, 1ul << 20},
    {"TilesZstd", "a.tif", 1024, 1024, eTiffCompression::eZstd, 1024, 128ul << 10, 1ul << 20},
    {"TilesLzma", "a.tif", 1024, 1024, eTiffCompression::eLzma, 1024, 128ul << 10, 1ul << 20},
    {"Png", "a.png", 1024, 1024},
    {"PngLongRows", "a.png", 4ul << 20, 2},
};

class GranularityTest : public ::testing::TestWithParam<Layout>
{};

} // namespace

TEST_P(GranularityTest, AsksOften)
{
    const Layout& layout = GetParam();
    const TestFolder folder;
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, layout.width, layout.height));
    for (unsigned long y = 0; y < layout.height; ++y) { // noise: codecs are slowest
        for (unsigned long x = 0; x < layout.width; x += 8) {
            const std::uint64_t bits = hashOf({x, y, 0, 0, 0}, 5);
            std::memcpy(image->accessRow(y, 0, 0, 0) + x, &bits, 8);
        }
    }
    unsigned long calls = 0;
    const auto count = [&](unsigned long, unsigned long) { return ++calls > 0; };
    WriteOptions write;
    write.compression = layout.compression;
    write.bPredictor = false;
    write.bTiled = layout.tileSize != 0;
    write.tileSize = layout.tileSize;
    write.bSync = false;
    write.progress = count;
    writeImage(folder / layout.file, image, write);
    EXPECT_GE(calls, layout.width * layout.height / layout.bytesWritten);

    calls = 0;
    ReadOptions read;
    read.progress = count;
    EXPECT_TRUE(areSame(*image, *readImage(folder / layout.file, read)));
    EXPECT_GE(calls, layout.width * layout.height / layout.bytesRead);
}

INSTANTIATE_TEST_SUITE_P(Layouts, GranularityTest, ::testing::ValuesIn(g_layouts),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(GranularityOfSyncTest, AsksWhileItWaitsForTheDisk)
{
    const TestFolder folder;
    const ImagePtr image = filledImage(*geometry2d(eImageBufferType::UInt8, 4096, 4096), 1);
    const auto callsOf = [&](bool bSync) {
        unsigned long calls = 0;
        WriteOptions options;
        options.bSync = bSync;
        options.progress = [&](unsigned long, unsigned long) { return ++calls > 0; };
        writeImage(folder / "a.tif", image, options);
        return calls;
    };
    EXPECT_GE(callsOf(true), callsOf(false) + 4);
}

// Where a file is much smaller than its pixels, what counts is pixels: rows, or tiles as a whole.
TEST_P(GranularityTest, AsksOftenWhereThereIsLittleToMove)
{
    const Layout& layout = GetParam();
    const bool bLongRows = layout.height == 2;
    const unsigned long width = bLongRows ? layout.width : 4 * layout.width, bytes = width * layout.height;
    const unsigned long pieces = std::max(layout.tileSize * layout.tileSize, bLongRows ? width : 64ul << 10);
    const TestFolder folder;
    unsigned long calls = 0;
    const auto count = [&](unsigned long, unsigned long) { return ++calls > 0; };
    WriteOptions write;
    write.compression = layout.compression;
    write.bTiled = layout.tileSize != 0;
    write.tileSize = layout.tileSize;
    write.bSync = false;
    write.progress = count;
    writeImage(folder / layout.file, createImage(*geometry2d(eImageBufferType::UInt8, width, layout.height)), write);
    EXPECT_GE(calls, bytes / std::max(pieces, layout.bytesWritten));

    calls = 0;
    ReadOptions read;
    read.progress = count;
    (void)readImage(folder / layout.file, read);
    EXPECT_GE(calls, bytes / std::max(pieces, layout.bytesRead));
}

TEST(GranularityOfStacksTest, AsksWithinAPlan)
{
    const TestFolder folder;
    unsigned long calls = 0;
    WriteOptions options;
    options.description = eTiffDescription::eImageJ;
    options.bSync = false;
    options.progress = [&](unsigned long, unsigned long) { return ++calls > 0; };
    writeImage(folder / "a.tif", createImage(*geometry2d(eImageBufferType::UInt8, 4096, 2048)), options);
    EXPECT_GE(calls, 8u); // a mebibyte each
}
