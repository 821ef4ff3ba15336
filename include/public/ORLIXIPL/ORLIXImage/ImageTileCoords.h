// Where a tile lies.
#pragma once

namespace orlix::image {

/// A rectangle of a plan, in pixels. It may reach beyond the image; an origin below 0 is one that wrapped: 2^64 - 1 is
/// the column before the first.
struct Tile2dCoords
{
    unsigned long originX = 0;
    unsigned long originY = 0;
    unsigned long sizeX = 0;
    unsigned long sizeY = 0;

    friend constexpr bool operator==(const Tile2dCoords&, const Tile2dCoords&) = default;
};

/// A box of a volume, in the same way.
struct Tile3dCoords
{
    unsigned long originX = 0;
    unsigned long originY = 0;
    unsigned long originZ = 0;
    unsigned long sizeX = 0;
    unsigned long sizeY = 0;
    unsigned long sizeZ = 0;

    friend constexpr bool operator==(const Tile3dCoords&, const Tile3dCoords&) = default;
};

} // namespace orlix::image
