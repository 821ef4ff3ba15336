// Directories that tell of more strips or tiles than their file can list are refused before libtiff takes memory for
// them, however they tell it.
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TinyTiff.h"

#include <functional>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

constexpr std::uint16_t g_tagDepth = 32997, g_tagTileDepth = 32998;
constexpr std::uint64_t g_manyRows = 70000;

using AddTags = std::function<void(TinyTiff&)>;

void addPage(TinyTiff& tiff, const AddTags& addTags, bool bTiles = false)
{
    tiff.beginPage();
    tiff.addShort(g_tagBits, 8);
    tiff.addShort(g_tagCompression, 1);
    tiff.addShort(g_tagPhotometric, 1);
    addTags(tiff);
    tiff.addBlocks({std::string(600, 'a')}, bTiles);
    tiff.endPage();
}

std::string fileOf(const AddTags& addTags, bool bTiles = false, bool bBigEndian = false, bool bBigTiff = false)
{
    TinyTiff tiff(bBigEndian, bBigTiff);
    addPage(tiff, addTags, bTiles);
    return tiff.getData();
}

AddTags rowsOf(std::uint64_t height)
{
    return [height](TinyTiff& tiff) {
        tiff.addLong(g_tagWidth, 16);
        tiff.addLong(g_tagHeight, height);
        tiff.addLong(g_tagRowsPerStrip, 1);
    };
}

bool isRefused(const std::string& content, std::uint64_t blocks)
{
    const std::string failure = failureOf([&] { (void)readTiff(bytesOf(content)); });
    return failure.find("it tells of " + std::to_string(blocks) + " strips or tiles, more than the file can list") !=
           failure.npos;
}

/// Gives the entry of a tag, which is a 32-bit number so far, another type. Little-endian numbers stay what they are.
std::string withType(std::string file, std::uint16_t tag, std::uint16_t type)
{
    const TinyTiff tiff;
    const std::string entry = tiff.number(2, tag) + tiff.number(2, 4);
    return file.replace(file.find(entry) + 2, 2, tiff.number(2, type));
}

} // namespace

TEST(DirectoryClaimsTest, StripsInEveryKindOfFile)
{
    for (const bool bBigEndian : {false, true}) {
        for (const bool bBigTiff : {false, true}) {
            EXPECT_TRUE(isRefused(fileOf(rowsOf(g_manyRows), false, bBigEndian, bBigTiff), g_manyRows))
                << bBigEndian << bBigTiff;
        }
    }
}

TEST(DirectoryClaimsTest, TilesOfAreasAndOfVolumes)
{
    for (const std::uint64_t depth : {1ul, 10ul}) {
        const auto tags = [depth](TinyTiff& tiff) {
            tiff.addLong(g_tagWidth, 16 * 300 - 15);
            tiff.addLong(g_tagHeight, 16 * 300 - 15);
            tiff.addLong(g_tagTileWidth, 16);
            tiff.addLong(g_tagTileHeight, 16);
            tiff.addLong(g_tagDepth, depth);
            tiff.addLong(g_tagTileDepth, 1);
        };
        EXPECT_TRUE(isRefused(fileOf(tags, true), 300 * 300 * depth)) << depth;
    }
}

TEST(DirectoryClaimsTest, SamplesInPlanesOfTheirOwnCountEach)
{
    for (const std::uint64_t planar : {1ul, 2ul}) {
        const auto tags = [planar](TinyTiff& tiff) {
            rowsOf(40000)(tiff);
            tiff.addShort(g_tagSamples, 3);
            tiff.addShort(g_tagPlanar, planar);
        };
        EXPECT_EQ(planar == 2, isRefused(fileOf(tags), 120000));
    }
}

TEST(DirectoryClaimsTest, NumbersOfEveryType)
{
    for (const std::uint16_t type : {1, 3, 4, 6, 8, 9}) {
        EXPECT_TRUE(isRefused(withType(fileOf(rowsOf(g_manyRows)), g_tagRowsPerStrip, type), g_manyRows)) << type;
    }
    for (const std::uint16_t type : {1, 3, 4, 6, 8, 9, 16, 17}) {
        const std::string file = fileOf(rowsOf(g_manyRows), false, false, true);
        EXPECT_TRUE(isRefused(withType(file, g_tagRowsPerStrip, type), g_manyRows)) << type;
    }
}

// libtiff takes one or the other.
TEST(DirectoryClaimsTest, OfTagsThatStandTwiceTheWorseCounts)
{
    for (const bool bFirst : {true, false}) {
        const auto twice = [bFirst](std::uint16_t tag, std::uint64_t better, std::uint64_t worse) {
            return [=](TinyTiff& tiff) {
                tiff.addLong(tag, bFirst ? worse : better);
                tiff.addLong(tag, bFirst ? better : worse);
            };
        };
        const auto and_ = [](const AddTags& one, const std::vector<std::pair<std::uint16_t, std::uint64_t>>& others) {
            return [=](TinyTiff& tiff) {
                one(tiff);
                for (const auto& [tag, value] : others) {
                    tiff.addLong(tag, value);
                }
            };
        };
        EXPECT_TRUE(isRefused(
            fileOf(and_(twice(g_tagHeight, 16, g_manyRows), {{g_tagWidth, 16}, {g_tagRowsPerStrip, 1}})), g_manyRows));
        EXPECT_TRUE(isRefused(
            fileOf(and_(twice(g_tagRowsPerStrip, g_manyRows, 1), {{g_tagWidth, 16}, {g_tagHeight, g_manyRows}})),
            g_manyRows));
        EXPECT_TRUE(
            isRefused(fileOf(and_(twice(g_tagPlanar, 1, 2),
                                  {{g_tagWidth, 16}, {g_tagHeight, 40000}, {g_tagRowsPerStrip, 1}, {g_tagSamples, 3}})),
                      120000));
    }
}

TEST(DirectoryClaimsTest, StripsWithoutRowsCountAsOneRowEach)
{
    const auto tags = [](TinyTiff& tiff) {
        tiff.addLong(g_tagWidth, 16);
        tiff.addLong(g_tagHeight, g_manyRows);
        tiff.addLong(g_tagRowsPerStrip, 0);
    };
    EXPECT_TRUE(isRefused(fileOf(tags), g_manyRows));
}

TEST(DirectoryClaimsTest, FurtherPages)
{
    TinyTiff tiff;
    addPage(tiff, rowsOf(1));
    addPage(tiff, rowsOf(g_manyRows));
    EXPECT_TRUE(isRefused(tiff.getData(), g_manyRows));
}

TEST(DirectoryClaimsTest, FewAreHarmless)
{
    EXPECT_FALSE(isRefused(fileOf(rowsOf(65536)), 65536));
    EXPECT_TRUE(isRefused(fileOf(rowsOf(65537)), 65537));
}

TEST(DirectoryClaimsTest, WhatTheFileHasRoomToListIsTaken)
{
    const std::string file = fileOf(rowsOf(g_manyRows));
    const auto padded = [&](std::size_t size) { return file + std::string(size - file.size(), '\0'); };
    EXPECT_TRUE(isRefused(padded(2 * g_manyRows - 1), g_manyRows));
    EXPECT_FALSE(isRefused(padded(2 * g_manyRows), g_manyRows)) << "which libtiff finds fault with";

    TinyTiff whole;
    whole.beginPage();
    addPageTags(whole, 16, g_manyRows, 8, 1, 1);
    whole.addLong(g_tagRowsPerStrip, 1);
    whole.addBlocks(std::vector<std::string>(g_manyRows, std::string(16, 'a')));
    whole.endPage();
    const ImagePtr image = readTiff(bytesOf(whole.getData()));
    EXPECT_EQ(g_manyRows, image->getSizeY());
    EXPECT_EQ('a', valueAt(*image, {15, g_manyRows - 1, 0, 0, 0}));
}

// A number of entries is a claim, too: what lies behind the end is not looked at.
TEST(DirectoryClaimsTest, EntriesEndWithTheFile)
{
    TinyTiff tiff(false, true);
    addPage(tiff, rowsOf(1));
    std::string file = tiff.getData();
    const std::uint64_t directory = file.size() - 8 - 8 - 20 * 8;
    ASSERT_EQ(tiff.number(8, 8), file.substr(directory, 8));
    file.replace(directory, 8, tiff.number(8, ~0ul));
    EXPECT_NE("", failureOf([&] { (void)readTiff(bytesOf(file)); }));
}
