// Tiles out of an image.
#pragma once

#include "ORLIX/ORLIXUtil/ProcessingResult.h"
#include "ORLIXIPL/ORLIXBaseImageTools/BorderPolicy.h"
#include "ORLIXIPL/ORLIXImage/ImageTile.h"
#include "ORLIXIPL/ORLIXImage/ImageTileCoords.h"

namespace orlix::image {

/// Fills tiles; pixels beyond the border are those that the policy names. Fails for an image without pixels, for one of
/// more plans or volumes than one, and for a tile that is too large to exist. May be called from any thread, each with
/// a tile of its own.
class ORLIXBASEIMAGETOOLS_API ImageTileExtractor
{
public:
    /// (X, Y, 1, 1, 1) -> (coords.sizeX, coords.sizeY)
    static ProcessingResult<bool> extractInputTile2d(const BaseImage& image, const Tile2dCoords& coords,
                                                     const Border2dPolicy& policy, InputImageTile2d& tile);
    /// (X, Y, Z, 1, 1) -> (coords.sizeX, coords.sizeY, coords.sizeZ)
    static ProcessingResult<bool> extractInputTile3d(const BaseImage& image, const Tile3dCoords& coords,
                                                     const Border3dPolicy& policy, InputImageTile3d& tile);
};

} // namespace orlix::image
