// Tiles, pixel by pixel, inside the image and far beyond it.
#include "ORLIXIPL/ORLIXBaseImageTools/ImageTileExtractor.h"

#include "ORLIXIPL/ORLIXBaseImageTools/ImageTileColl.h"
#include "ORLIXIPL/ORLIXBaseImageTools/ORLIXBaseImageToolsException.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "support/Images.h"
#include "support/StridedImages.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace orlix::image {
namespace {

using orlix::testing::fillRandom;
using orlix::testing::WatchedImage;
using orlix::testing::WrapForm;

std::string failureOf(const ProcessingResult<bool>& result)
{
    return result ? "no failure" : result.getMessage();
}

/// The pixel that a mirror shows at a signed position, by stepping into the image.
unsigned long mirrored(long position, unsigned long size)
{
    const long count = static_cast<long>(size);
    while (position < 0 || position >= count) {
        position = position < 0 ? -1 - position : 2 * count - 1 - position;
    }
    return static_cast<unsigned long>(position);
}

/// Is the tile that of the volume at these signed places?
template <class TTile, class TAccess>
::testing::AssertionResult isTileOf(const BaseImage& image, const Tile3dCoords& coords, const TTile& tile,
                                    const TAccess& access)
{
    const unsigned long size = elementSize(image.getBufferType());
    for (unsigned long k = 0; k < coords.sizeZ; ++k) {
        for (unsigned long j = 0; j < coords.sizeY; ++j) {
            for (unsigned long i = 0; i < coords.sizeX; ++i) {
                const unsigned long x = mirrored(static_cast<long>(coords.originX + i), image.getSizeX());
                const unsigned long y = mirrored(static_cast<long>(coords.originY + j), image.getSizeY());
                const unsigned long z = mirrored(static_cast<long>(coords.originZ + k), image.getSizeZ());
                const auto* const found = static_cast<const std::byte*>(access(tile, j, k)) + i * size;
                if (std::memcmp(found, image.accessRow(y, z, 0, 0) + x * size, size) != 0) {
                    return ::testing::AssertionFailure() << "(" << i << ", " << j << ", " << k << ") differs";
                }
            }
        }
    }
    return ::testing::AssertionSuccess();
}

::testing::AssertionResult isTileOf(const BaseImage& image, const Tile2dCoords& coords, const InputImageTile2d& tile)
{
    return isTileOf(
        image, {coords.originX, coords.originY, 0, coords.sizeX, coords.sizeY, 1}, tile,
        [](const InputImageTile2d& from, unsigned long line, unsigned long) { return from.accessBuffer(line); });
}
::testing::AssertionResult isTileOf(const BaseImage& image, const Tile3dCoords& coords, const InputImageTile3d& tile)
{
    return isTileOf(image, coords, tile, [](const InputImageTile3d& from, unsigned long line, unsigned long plan) {
        return from.accessBuffer(line, plan);
    });
}

eImageBufferType anyType()
{
    return *rc::gen::elementOf(std::vector<eImageBufferType::domain>(g_allBufferTypes.begin(), g_allBufferTypes.end()));
}
unsigned long anyOrigin()
{
    return static_cast<unsigned long>(*rc::gen::inRange(-20L, 20L));
}

RC_GTEST_PROP(ImageTileExtractorProperty, TilesOfPlansAreMirroredAtTheBorder, (unsigned long seed))
{
    const auto geometry = geometry2d(anyType(), *rc::gen::inRange(1UL, 9UL), *rc::gen::inRange(1UL, 9UL));
    const WatchedImage wrapped(*geometry, WrapForm{.rowGap = *rc::gen::inRange(0UL, 3UL)});
    const ImagePtr image = *rc::gen::arbitrary<bool>() ? wrapped.get() : createImage(*geometry);
    fillRandom(*image, seed);
    InputImageTile2d tile;
    for (int repetition = 0; repetition < 3; ++repetition) { // the same tile, filled again
        const Tile2dCoords coords{anyOrigin(), anyOrigin(), *rc::gen::inRange(0UL, 12UL), *rc::gen::inRange(0UL, 12UL)};
        RC_ASSERT(failureOf(ImageTileExtractor::extractInputTile2d(*image, coords, mirorBorder2d(), tile)) ==
                  "no failure");
        RC_ASSERT(tile.getSizeX() == coords.sizeX);
        RC_ASSERT(tile.getSizeY() == coords.sizeY);
        RC_ASSERT(tile.getImageBufferType() == geometry->getBufferType());
        RC_ASSERT(bool(isTileOf(*image, coords, tile)));
    }
}

RC_GTEST_PROP(ImageTileExtractorProperty, TilesOfVolumesAreMirroredAtTheBorder, (unsigned long seed))
{
    const auto geometry =
        geometry3d(anyType(), *rc::gen::inRange(1UL, 7UL), *rc::gen::inRange(1UL, 7UL), *rc::gen::inRange(1UL, 7UL));
    const ImagePtr image = createImage(*geometry);
    fillRandom(*image, seed);
    InputImageTile3d tile;
    for (int repetition = 0; repetition < 3; ++repetition) {
        const Tile3dCoords coords{anyOrigin(),
                                  anyOrigin(),
                                  anyOrigin(),
                                  *rc::gen::inRange(0UL, 8UL),
                                  *rc::gen::inRange(0UL, 8UL),
                                  *rc::gen::inRange(0UL, 8UL)};
        RC_ASSERT(failureOf(ImageTileExtractor::extractInputTile3d(*image, coords, mirorBorder3d(), tile)) ==
                  "no failure");
        RC_ASSERT(tile.getSizeZ() == coords.sizeZ);
        RC_ASSERT(bool(isTileOf(*image, coords, tile)));
    }
}

TEST(ImageTileExtractor, LinesInsideTheImageAreItsOwn)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt16, 10, 8));
    InputImageTile2d tile;
    ASSERT_EQ(failureOf(ImageTileExtractor::extractInputTile2d(*image, {6, 7, 4, 3}, mirorBorder2d(), tile)),
              "no failure");
    EXPECT_EQ(tile.accessBuffer(0), image->accessRow(7, 0, 0, 0) + 12);
    EXPECT_EQ(tile.accessBuffer(1), image->accessRow(7, 0, 0, 0) + 12) << "mirrored";
    EXPECT_EQ(tile.accessBuffer(2), image->accessRow(6, 0, 0, 0) + 12);
}

TEST(ImageTileExtractor, ReadsNothingOutsideTheImage)
{
    const auto geometry = geometry2d(eImageBufferType::UInt8, 5, 5);
    const WatchedImage wrapped(*geometry, WrapForm{.rowGap = 2});
    InputImageTile2d tile;
    const Tile2dCoords coords{~0UL - 30, ~0UL - 30, 70, 70};
    ASSERT_EQ(failureOf(ImageTileExtractor::extractInputTile2d(*wrapped.get(), coords, mirorBorder2d(), tile)),
              "no failure");
    EXPECT_TRUE(isTileOf(*wrapped.get(), coords, tile));
}

/// Inside the image, across each border and far beyond it.
TEST(ImageTileExtractor, PixelsMayLieInAnyOrder)
{
    for (const eImageBufferType type : {eImageBufferType::UInt8, eImageBufferType::Int16, eImageBufferType::Real32}) {
        for (const orlix::testing::StridedForm& form : orlix::testing::allStridedForms()) {
            SCOPED_TRACE(form.name);
            orlix::testing::StridedImage image(*geometry3d(type, 9, 8, 5), form);
            image.fillRandom(3);
            const ImagePtr dense = image.makeDense();
            for (const Tile3dCoords& coords : {Tile3dCoords{2, 1, 1, 5, 4, 3},
                                               {0, 0, 0, 9, 8, 5},
                                               {6, 6, 3, 5, 4, 4},
                                               {~0UL - 1, ~0UL, 0, 4, 3, 2},
                                               {~0UL - 20, 3, ~0UL - 9, 50, 1, 20}}) {
                InputImageTile3d tile;
                ASSERT_TRUE(ImageTileExtractor::extractInputTile3d(*image.getConst(), coords, mirorBorder3d(), tile));
                EXPECT_TRUE(isTileOf(*dense, coords, tile));
            }
            EXPECT_TRUE(image.isOutsideIntact());
        }
    }
}

TEST(ImageTileExtractor, OtherPoliciesAreAskedToo)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt8, 3, 2));
    const std::vector<unsigned char> pixels = {1, 2, 3, 4, 5, 6};
    std::memcpy(image->accessRow(0, 0, 0, 0), pixels.data(), pixels.size());
    const BorderFunction last = [](unsigned long position, unsigned long size) {
        return position < size ? position : size - 1;
    };
    InputImageTile2d tile;
    ASSERT_EQ(failureOf(ImageTileExtractor::extractInputTile2d(*image, {1, 1, 4, 2}, {last, mirorPosition}, tile)),
              "no failure");
    for (unsigned long line = 0; line < 2; ++line) {
        const auto* const found = static_cast<const unsigned char*>(tile.accessBuffer(line));
        EXPECT_EQ(std::vector<unsigned char>(found, found + 4), (std::vector<unsigned char>{5, 6, 6, 6}));
    }
}

TEST(ImageTileExtractor, RefusesWhatHasNoTile)
{
    InputImageTile2d tile;
    InputImageTile3d box;
    const auto extract2d = [&tile](const BaseImageGeometry& geometry, const Tile2dCoords& coords) {
        return failureOf(ImageTileExtractor::extractInputTile2d(*createImage(geometry), coords, mirorBorder2d(), tile));
    };
    const auto extract3d = [&box](const BaseImageGeometry& geometry, const Tile3dCoords& coords) {
        return failureOf(ImageTileExtractor::extractInputTile3d(*createImage(geometry), coords, mirorBorder3d(), box));
    };
    EXPECT_EQ(extract2d(*geometry2d(eImageBufferType::UInt8, 0, 5), {0, 0, 1, 1}),
              "An image of 0x5x1x1x1 UInt8 has no pixels to take a tile from: give one that has");
    EXPECT_EQ(extract3d(*geometry3d(eImageBufferType::UInt8, 5, 5, 0), {0, 0, 0, 1, 1, 1}),
              "An image of 5x5x0x1x1 UInt8 has no pixels to take a tile from: give one that has");
    EXPECT_EQ(extract2d(*geometry3d(eImageBufferType::UInt8, 5, 5, 2), {0, 0, 1, 1}),
              "2d tiles are taken from one plan, but the image is 5x5x2x1x1 UInt8: cut it into plans first");
    EXPECT_EQ(extract3d(*geometry5d(eImageBufferType::UInt8, 5, 5, 2, 2, 1), {0, 0, 0, 1, 1, 1}),
              "3d tiles are taken from one volume, but the image is 5x5x2x2x1 UInt8: cut it into volumes first");
    EXPECT_EQ(extract2d(*geometry2d(eImageBufferType::Int16, 5, 5), {0, 0, 1UL << 32, 1UL << 31}),
              "A tile of 4294967296x2147483648x1 pixels is too large to exist: ask for less");
    EXPECT_EQ(extract2d(*geometry2d(eImageBufferType::Int16, 5, 5), {0, 0, 0, 1UL << 61}),
              "A tile of 0x2305843009213693952x1 pixels is too large to exist: ask for less");
}

TEST(ImageTileColl, TakesOneTileAfterTheOther)
{
    const ImagePtr image = createImage(*geometry2d(eImageBufferType::UInt16, 10, 8));
    fillRandom(*image, 7);
    const std::vector<Tile2dCoords> coords = {{3, 3, 2, 2}, {~0UL, 5, 4, 4}, {100, 100, 1, 1}};
    InputImageTile2dColl coll(*image, coords.data(), 3, mirorBorder2d());
    EXPECT_EQ(coll.getNbTiles(), 3u);
    EXPECT_EQ(coll.getImageBufferType(), eImageBufferType::UInt16);
    for (const unsigned long index : {1UL, 0UL, 2UL, 1UL}) {
        EXPECT_TRUE(isTileOf(*image, coords[index], coll.getTile(index))) << index;
    }
    coll.init(*image, InputImageTile2dColl::Places(coords.data()), 1, 1, mirorBorder2d());
    EXPECT_EQ(coll.getNbTiles(), 1u);
    EXPECT_TRUE(isTileOf(*image, coords[1], coll.getTile(0)));
    try {
        coll.getTile(1);
        ADD_FAILURE() << "no exception";
    } catch (const tools::ORLIXBaseImageToolsException& error) {
        EXPECT_STREQ(error.what(), "There is no tile 1 in a collection of 1");
    }
}

TEST(ImageTileColl, ATileThatCannotBeTakenRaises)
{
    const ImagePtr image = createImage(*geometry3d(eImageBufferType::UInt8, 0, 4, 4));
    const std::vector<Tile3dCoords> coords = {{0, 0, 0, 1, 1, 1}};
    InputImageTile3dColl coll(*image, coords.data(), 1, mirorBorder3d());
    try {
        coll.getTile(0);
        ADD_FAILURE() << "no exception";
    } catch (const tools::ORLIXBaseImageToolsException& error) {
        EXPECT_STREQ(error.what(), "An image of 0x4x4x1x1 UInt8 has no pixels to take a tile from: give one that has");
    }
}

} // namespace
} // namespace orlix::image
