// Pages that hold several plans: the tags ImageDepth and TileDepth.
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TinyTiff.h"

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

// 16x16 pixels of UInt8 in `depth` plans, each in a strip of its own, or in one tile of `tileDepth` plans.
std::string volumePage(unsigned depth, unsigned tileDepth, bool bTiled)
{
    TinyTiff tiff;
    tiff.beginPage();
    addPageTags(tiff, 16, 16, 8, 1, 1);
    if (depth > 0) {
        tiff.addLong(32997, depth);
    }
    if (tileDepth > 0) {
        tiff.addLong(32998, tileDepth);
    }
    std::vector<std::string> blocks;
    for (unsigned plan = 0; plan < std::max(depth, 1u); ++plan) {
        blocks.emplace_back(256, static_cast<char>('a' + plan));
    }
    if (bTiled) {
        tiff.addShort(g_tagTileWidth, 16);
        tiff.addShort(g_tagTileHeight, 16);
        for (; tileDepth > 1 && blocks.size() > 1; blocks.pop_back()) {
            blocks.front() += blocks[1];
        }
    } else {
        tiff.addShort(g_tagRowsPerStrip, 16);
    }
    tiff.addBlocks(blocks, bTiled);
    tiff.endPage();
    return tiff.getData();
}

} // namespace

TEST(TiffVolumePageTest, SeveralPlansInAPageAreRefused)
{
    for (const bool bTiled : {false, true}) {
        const std::string text = failureOf([&] { (void)readTiff(bytesOf(volumePage(3, 0, bTiled))); });
        EXPECT_TRUE(contains(text, "page 0 holds a volume (ImageDepth 3, TileDepth "));
    }
    EXPECT_TRUE(contains(failureOf([&] { (void)readTiff(bytesOf(volumePage(3, 3, true))); }), "TileDepth 3"));
    EXPECT_TRUE(contains(failureOf([&] { (void)readTiff(bytesOf(volumePage(1, 4, true))); }), "TileDepth 4"));
}

TEST(TiffVolumePageTest, OnePlanIsAPageAsAnyOther)
{
    for (const bool bTiled : {false, true}) {
        const ImagePtr image = readTiff(bytesOf(volumePage(1, bTiled ? 1 : 0, bTiled)));
        EXPECT_EQ("16x16x1x1x1 UInt8", image->getGeometry().toString());
        EXPECT_EQ('a', valueAt(*image, {15, 15, 0, 0, 0}));
    }
}
