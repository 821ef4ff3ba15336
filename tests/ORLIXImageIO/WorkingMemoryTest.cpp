// The limit of bytes is for pixels and working memory together.
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyPng.h"

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

struct File
{
    const char* name;
    std::string content;
    unsigned long pixelBytes;
    unsigned long workingBytes; ///< at least
};

std::vector<File> filesThatNeedMore()
{
    const TestFolder folder;
    std::vector<File> files;
    WriteOptions tiled;
    tiled.bTiled = true;
    tiled.tileSize = 64;
    tiled.compression = eTiffCompression::eDeflate;
    writeImage(folder / "a.tif", filledImage(*geometry2d(eImageBufferType::UInt16, 100, 90), 1), tiled);
    files.push_back({"tiles", contentOf(folder / "a.tif"), 100 * 90 * 2, 64 * 64 * 2});

    WriteOptions colour;
    colour.compression = eTiffCompression::eLzw;
    writeImage(folder / "a.tif", filledImage(*geometry5d(eImageBufferType::UInt8, 100, 90, 1, 3, 1), 2), colour);
    files.push_back({"row of colours", contentOf(folder / "a.tif"), 100 * 90 * 3, 100 * 3});

    writeImage(folder / "a.png", filledImage(*geometry5d(eImageBufferType::UInt8, 100, 90, 1, 3, 1), 3));
    files.push_back({"rows of colours", contentOf(folder / "a.png"), 100 * 90 * 3, 100 * 3 * 32});

    const TinyPng interlaced = {.width = 50, .height = 40, .colorType = 2, .bInterlaced = true};
    files.push_back({"all rows of colours",
                     pngOf(interlaced, [](auto x, auto y, unsigned s) { return (x + y + s) % 256; }), 50 * 40 * 3,
                     50 * 40 * 3});
    return files;
}

ImagePtr readWithin(const File& file, unsigned long bytes)
{
    ReadOptions options;
    options.limits.maxBytes = bytes;
    return file.content.starts_with("II") ? readTiff(bytesOf(file.content), options)
                                          : readPng(bytesOf(file.content), options);
}

} // namespace

TEST(WorkingMemoryTest, CountsAgainstTheLimit)
{
    for (const File& file : filesThatNeedMore()) {
        SCOPED_TRACE(file.name);
        EXPECT_TRUE(contains(failureOf([&] { (void)readWithin(file, file.pixelBytes + file.workingBytes - 1); }),
                             "more than the limit of " + std::to_string(file.pixelBytes + file.workingBytes - 1)));
        EXPECT_NO_THROW((void)readWithin(file, 4 * file.pixelBytes));
    }
}
