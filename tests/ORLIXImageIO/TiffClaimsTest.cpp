// What pages claim against what the file, the region and the limits allow, to the last byte.
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"
#include "ORLIXImageIO/TinyTiff.h"

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

struct Claim
{
    std::uint64_t width = 4, height = 1, samples = 1, compression = 1, photometric = 1, planar = 1;
    std::uint64_t tile = 0; ///< its side; 0 for strips
    std::string block = "abcd";
};

void addPage(TinyTiff& tiff, const Claim& claim)
{
    tiff.beginPage();
    tiff.addLong(g_tagWidth, claim.width);
    tiff.addLong(g_tagHeight, claim.height);
    tiff.addShorts(g_tagBits, std::vector<std::uint64_t>(claim.samples, 8));
    tiff.addShort(g_tagCompression, claim.compression);
    tiff.addShort(g_tagPhotometric, claim.photometric);
    tiff.addShort(g_tagSamples, claim.samples);
    tiff.addShort(g_tagPlanar, claim.planar);
    if (claim.tile > 0) {
        tiff.addLong(g_tagTileWidth, claim.tile);
        tiff.addLong(g_tagTileHeight, claim.tile);
    }
    tiff.addBlocks(std::vector<std::string>(claim.planar == 2 ? claim.samples : 1, claim.block), claim.tile > 0);
    tiff.endPage();
}

std::string fileOf(const std::vector<Claim>& claims)
{
    TinyTiff tiff;
    for (const Claim& claim : claims) {
        addPage(tiff, claim);
    }
    return tiff.getData();
}

std::string refusalOf(const std::string& content, const ReadLimits& limits = {})
{
    ReadOptions options;
    options.limits = limits;
    return failureOf([&] { (void)readTiff(bytesOf(content), options); });
}

bool isTold(const std::string& content)
{
    const TestFolder folder;
    putContent(folder / "a.tif", content);
    try {
        (void)readImageInfo(folder / "a.tif");
    } catch (const ORLIXImageIOException& exception) {
        EXPECT_TRUE(contains(exception.what(), "page 0 claims"));
        return false;
    }
    return true;
}

} // namespace

// Of one row, as many bytes as the codec can make of the whole file.
TEST(TiffClaimsTest, ArePlausibleUpToWhatTheCodecCanGive)
{
    struct Row
    {
        Claim claim;
        std::uint64_t ratio;
    };
    for (const auto& [claim, ratio] :
         {Row{{.compression = 1}, 1}, Row{{.compression = 32773}, 64}, Row{{.compression = 5}, 4096},
          Row{{.compression = 8}, 1040}, Row{{.compression = 32946}, 1040}, Row{{.samples = 3, .planar = 2}, 1},
          Row{{.samples = 3, .photometric = 6}, 4}}) {
        SCOPED_TRACE(claim.compression * 100 + claim.photometric * 10 + claim.planar);
        Claim largest = claim;
        largest.width = fileOf({claim}).size() * ratio / claim.samples;
        EXPECT_TRUE(isTold(fileOf({largest})));
        ++largest.width;
        EXPECT_FALSE(isTold(fileOf({largest})));
    }
}

TEST(TiffClaimsTest, OfPagesThatAreNotReadDontMatter)
{
    const std::string content = fileOf({{}, {.tile = 1 << 20}});
    EXPECT_TRUE(contains(refusalOf(content), "page 1 claims"));
    const ImagePtr first = readTiffRegion(bytesOf(content), {}, {.z = 1}, {});
    EXPECT_EQ("4x1x1x1x1 UInt8", first->getGeometry().toString());
    EXPECT_TRUE(contains(failureOf([&] { (void)readTiffRegion(bytesOf(content), {.z = 1}, {}, {}); }), "page 1"));
}

TEST(TiffClaimsTest, WorkingMemoryIsThatOfTheWorstPage)
{
    constexpr unsigned long tileBytes = 64 * 64, pixelBytes = 2 * 4;
    const Claim tiled = {.tile = 64, .block = std::string(tileBytes, 'x')};
    for (const std::vector<Claim>& pages : {std::vector<Claim>{tiled, {}}, {{}, tiled}}) {
        ReadLimits limits;
        limits.maxBytes = pixelBytes + tileBytes - 1;
        EXPECT_TRUE(contains(refusalOf(fileOf(pages), limits), "claims 4x1x2x1x1 UInt8 elements and needs 4104 bytes"));
    }
}

// A limit that no memory can reach is cut to the largest size that there is.
TEST(TiffClaimsTest, NoLimitIsAboveTheLargestSize)
{
    ReadLimits limits;
    limits.maxBytes = limits.maxElements = ~0ul;
    limits.bMustBePlausible = false;
    const Claim half = {.width = 0xffffffff, .height = 0x7fffffff, .compression = 8}; // of the bytes that 64 bits tell
    const std::string content = fileOf({half, half});
    EXPECT_TRUE(contains(refusalOf(content, limits), "limit of 9223372036854775807"));
}

// Each channel has strips of its own; those of the others may be missing.
TEST(TiffClaimsTest, OfSamplesInPlanesOnlyThoseThatAreReadCount)
{
    TinyTiff tiff;
    tiff.beginPage();
    addPageTags(tiff, 4, 1, 8, 3, 2);
    tiff.addShort(g_tagPlanar, 2);
    tiff.addData("abcd");
    tiff.addLongs(g_tagStripOffsets, {0, tiff.getSize() - 4, 0});
    tiff.addLongs(g_tagStripBytes, {4, 4, 4});
    tiff.endPage();
    const ImagePtr green = readTiffRegion(bytesOf(tiff.getData()), {.c = 1}, {.c = 1}, {});
    EXPECT_EQ('d', static_cast<char>(green->accessRow(0, 0, 0, 0)[3]));
    EXPECT_TRUE(contains(refusalOf(tiff.getData()), "strip 0 is missing"));
}

// Strips of channels that reach beyond a region on both sides stay out of one another's rows.
TEST(TiffClaimsTest, StripsMayReachBeyondTheRegion)
{
    constexpr unsigned long width = 16, height = 100;
    TinyTiff tiff;
    tiff.beginPage();
    addPageTags(tiff, width, height, 8, 3, 2);
    tiff.addShort(g_tagPlanar, 2);
    std::vector<std::string> strips(3);
    for (unsigned long i = 0; i < 3 * width * height; ++i) {
        strips[i / (width * height)] += static_cast<char>(hashOf({i, 0, 0, 0, 0}, 7));
    }
    tiff.addBlocks(strips);
    tiff.endPage();
    const ImagePtr cut = readTiffRegion(bytesOf(tiff.getData()), {.y = 40}, {.y = 50}, {});
    forEachPixel(*cut, [&](const Position& p) {
        EXPECT_EQ(static_cast<unsigned char>(strips[p.c][(p.y + 40) * width + p.x]), valueAt(*cut, p));
    });
}
