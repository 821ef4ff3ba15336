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

} // namespace
} // namespace orlix::imaproc::test
