// Attributes that carry tiles: what they say of them.
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/StorageRecorder.h"

#include <gtest/gtest.h>

namespace orlix::imaproc::test {
namespace {

using image::createImage;
using image::eImageBufferType;

TEST(TileCollAttributes, TellTheirTilesAndTheirType)
{
    const ImageConstPtr image = createImage(*image::geometry2d(eImageBufferType::UInt16, 5, 4));
    const std::vector<image::Tile2dCoords> coords = {{0, 0, 2, 2}, {3, 1, 2, 2}};
    InTiles tiles;
    EXPECT_FALSE(tiles.isSet());
    tiles.init(nullptr);
    EXPECT_TRUE(tiles.isNull());
    tiles.init(boost::make_shared<image::InputImageTile2dColl>(*image, coords.data(), 2, image::mirorBorder2d()));
    EXPECT_TRUE(tiles.isHeld());
    EXPECT_FALSE(tiles.isOutput());
    EXPECT_EQ(tiles.getImageProcessingAttributeType(), eImageProcessingAttributeType::eTileCollAttribute);
    EXPECT_EQ(tiles.getNbTiles(), 2u);
    EXPECT_EQ(tiles.getImageBufferType(), eImageBufferType::UInt16);
    EXPECT_EQ(tiles.getImageTile2d(1).accessBuffer(1), image->accessRow(2, 0, 0, 0) + 3 * 2);
    tiles.clear();
    EXPECT_FALSE(tiles.isSet());
    EXPECT_FALSE(tiles.getStorage());
}

TEST(TileCollAttributes, TilesMayLieWhereAFunctionTells)
{
    const ImageConstPtr image = createImage(*image::geometry2d(eImageBufferType::UInt8, 50, 4));
    const unsigned long step = 7;
    const image::TilePlaces<image::Tile2dCoords> places(
        &step, [](const void* source, unsigned long first, unsigned long count, image::Tile2dCoords* coords) {
            for (unsigned long i = 0; i < count; ++i) {
                coords[i] = {*static_cast<const unsigned long*>(source) * (first + i), 1, 2, 2};
            }
        });
    image::InputImageTile2dColl tiles(*image, places, 2, 3, image::mirorBorder2d());
    EXPECT_EQ(&tiles.getImage(), image.get());
    EXPECT_EQ(tiles.getNbTiles(), 3u);
    image::Tile2dCoords told[2];
    tiles.tellPlaces(1, 2, told);
    EXPECT_EQ(told[0], (image::Tile2dCoords{21, 1, 2, 2}));
    EXPECT_EQ(told[1], (image::Tile2dCoords{28, 1, 2, 2}));
    EXPECT_EQ(tiles.getTile(0).accessBuffer(0), image->accessRow(1, 0, 0, 0) + 14);
    EXPECT_EQ(tiles.getTileAt({3, 2, 4, 1}).accessBuffer(0), image->accessRow(2, 0, 0, 0) + 3);
    EXPECT_ANY_THROW(tiles.getTile(3));
}

} // namespace
} // namespace orlix::imaproc::test
